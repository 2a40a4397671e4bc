#pragma once

#include <windows.h>

#include <gtest/gtest.h>

namespace tarvex::tests
{

/// True where Wine stands in for Windows.
inline bool IsWine()
{
    return ::GetProcAddress(::GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace tarvex::tests

/// Leaves a test to a real Windows, for a reason: what Wine does there.
#define SKIP_UNDER_WINE(reason)                                                                    \
    if (IsWine()) GTEST_SKIP() << "Wine " reason
