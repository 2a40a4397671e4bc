#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace tarvex::unit
{

/// Something that came out of a serial port which marks its faults.
struct Received {
    enum class Kind {
        Bytes,   ///< whole characters
        Damaged, ///< a character whose frame was wrong
        Break    ///< the line was held down for longer than a character
    };
    Kind kind = Kind::Bytes;
    std::string bytes; ///< of a break, the zero byte that a port without marks gives

    bool operator==(const Received&) const = default;
};

/// Takes the marks out of what a port delivers that was set to mark faults: FF FF is one byte FF,
/// FF 00 and a byte is a damaged one, and FF 00 00 is a break. A mark may be cut anywhere.
class MarkedBytes
{
public:
    /// What the delivered `bytes` mean, in order, together with a mark that the call before had
    /// only begun; a mark that is cut at their end waits for the next call.
    std::vector<Received> Take(std::string_view bytes);

private:
    std::string mark_; // as far as it has come
};

} // namespace tarvex::unit
