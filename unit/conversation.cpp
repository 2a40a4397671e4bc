#include "unit/conversation.h"

#include "unit/line_log.h"

namespace tarvex::unit
{

std::string LineOf(const Heard& heard, Time at)
{
    switch (heard.kind) {
    case Heard::Kind::Frame:
        return TextOf({at, Speaker::Manager, heard.bytes + "\r"});
    case Heard::Kind::Noise:
        return TextOf({at, Speaker::Manager, heard.bytes, "passed over"});
    case Heard::Kind::Wake:
        break;
    }
    return TextOf({at, Speaker::Manager, heard.bytes});
}

std::string LineOf(const Reply& reply, Time at)
{
    if (!reply.hangUp) return TextOf({at, Speaker::Unit, reply.bytes});
    return TextOf({at, Speaker::Unit, {}, std::string(kHangUpNote)});
}

} // namespace tarvex::unit
