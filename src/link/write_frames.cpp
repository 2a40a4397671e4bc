#include "link/write_frames.h"

#include "core/block_header.h"
#include "core/conversion.h"

#include <string>

namespace tarvex
{

namespace
{

void SendToBlock(DeviceLink& link, char kind, double blockIndex, const std::string& payload)
{
    if (const auto index = BlockWithIndex(blockIndex))
        link.SendFrame(kind + TwoHexDigits(*index) + "000" + payload);
}

} // namespace

void SendHeaderFrame(DeviceLink& link, const HeaderBoxes& boxes, double blockIndex)
{
    SendToBlock(link, 'C', blockIndex, Joined(boxes));
}

void SendCalibrationFrame(DeviceLink& link, const CalibrationBoxes& boxes, double blockIndex)
{
    SendToBlock(link, 'D', blockIndex, Joined(boxes));
}

void SendClosingFrame(DeviceLink& link)
{
    link.SendFrame("b000F500");
}

bool WriteExchange(DeviceLink& link, int settleTicks, const std::function<void()>& send)
{
    if (!link.TimedWake()) return false;
    if (link.AnsweredReady()) {
        send();
        link.SettleWait(settleTicks);
    }
    return true;
}

} // namespace tarvex
