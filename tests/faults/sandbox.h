#pragma once

#include "support/temporary_folder.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace tarvex::tests
{

/// A desk of its own for a test: the folder that the manager is started in, one for its reports,
/// and a home that nothing has to do with.
struct Sandbox {
    Sandbox();

    TemporaryFolder top;
    std::filesystem::path start = top / "start";
    std::filesystem::path reports = top / "reports";
    std::filesystem::path home = top / "home";

    std::filesystem::path Port() const { return start / "com1"; }
    std::filesystem::path HeaderTable() const { return start / "intestazione"; }
    std::filesystem::path Database() const { return start / "tar_vex.mdb"; }
};

} // namespace tarvex::tests
