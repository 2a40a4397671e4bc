#include "unit/tap/marked_bytes.h"

#include <utility>

namespace tarvex::unit
{

namespace
{
constexpr char kMark = '\xFF';

void Append(std::vector<Received>& received, char byte)
{
    if (received.empty() || received.back().kind != Received::Kind::Bytes)
        received.push_back({Received::Kind::Bytes, {}});
    received.back().bytes += byte;
}
} // namespace

std::vector<Received> MarkedBytes::Take(std::string_view bytes)
{
    std::vector<Received> received;
    for (const char byte : bytes) {
        if (byte == kMark && mark_.empty()) {
            mark_ = byte;
        } else if (byte == '\0' && mark_.size() == 1) {
            mark_ += byte;
        } else if (std::exchange(mark_, {}).size() < 2) {
            Append(received, byte); // a plain byte, or a doubled mark, which is the byte itself
        } else {
            const auto kind = byte == '\0' ? Received::Kind::Break : Received::Kind::Damaged;
            received.push_back({kind, {byte}});
        }
    }
    return received;
}

} // namespace tarvex::unit
