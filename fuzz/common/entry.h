#pragma once

#include <cstddef>
#include <cstdint>

// The names by which libFuzzer, and the driver here, know a target.
extern "C" {

/// Called once, before the first input.
int LLVMFuzzerInitialize(int* argc, char*** argv);

/// Tries one input; what it breaks ends the process.
int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
}
