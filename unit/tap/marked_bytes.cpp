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
        if (mark_.empty() && byte != kMark) {
            Append(received, byte);
        } else if (mark_.empty() || (mark_.size() == 1 && byte == '\0')) {
            mark_ += byte;
        } else if (std::exchange(mark_, {}).size() == 1) {
            Append(received, byte); // a doubled mark is the byte itself
        } else {
            const auto kind = byte == '\0' ? Received::Kind::Break : Received::Kind::Damaged;
            received.push_back({kind, {byte}});
        }
    }
    return received;
}

} // namespace tarvex::unit
