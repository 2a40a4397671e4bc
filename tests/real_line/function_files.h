#pragma once

#include "unit/program/descriptor.h"

#include <cstddef>

namespace tarvex::tests
{

/// The packets of the adapter's endpoints, in bytes.
inline constexpr std::size_t kPacket = 64;

/// The files through which a program is the adapter's function to the USB host: one interface of
/// the maker's own kind, with packets in and out, and every request to the device.
struct FunctionFiles {
    /// Describes the function to the gadget driver. Throws std::system_error when it cannot.
    FunctionFiles();

    unit::Descriptor control;
    unit::Descriptor in;  ///< to the host
    unit::Descriptor out; ///< from the host
};

} // namespace tarvex::tests
