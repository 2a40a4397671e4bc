#pragma once

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarvex::survey
{

/// Something in a file that is not as the manager writes it.
struct Anomaly {
    std::string file;         ///< name of the file, empty while only bytes are known
    std::size_t record = 0;   ///< from 1
    std::uint64_t offset = 0; ///< of the record's first byte
    std::string text;         ///< one sentence without a full stop
    bool harmless = false;    ///< no value is lost by it
};

} // namespace tarvex::survey
