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
    for (int index = 0; index < kBlockCount; ++index) {
        if (blockIndex == index) link.SendFrame(kind + TwoHexDigits(index) + "000" + payload);
    }
}

} // namespace

void SendHeaderFrame(DeviceLink& link, const Panel& panel, double blockIndex)
{
    SendToBlock(link, 'C', blockIndex,
                panel.Text3.Text() + panel.Text4.Text() + panel.Text5.Text() + panel.Text6.Text() +
                    panel.Text13.Text() + panel.Text7.Text() + panel.Text8.Text() +
                    panel.Text9.Text() + panel.Text10.Text() + panel.Text11.Text() +
                    panel.Text12.Text());
}

void SendCalibrationFrame(DeviceLink& link, const Panel& panel, double blockIndex)
{
    SendToBlock(link, 'D', blockIndex,
                panel.Text18.Text() + panel.Text20.Text() + panel.Text19.Text() +
                    panel.Text21.Text() + panel.Text22.Text());
}

void SendClosingFrame(DeviceLink& link)
{
    link.SendFrame("b000F500");
}

bool WriteExchange(DeviceLink& link, const std::function<void()>& send, SettleBound bound,
                   int settleTicks)
{
    if (!link.TimedWake()) return false;
    if (link.AnsweredReady()) {
        send();
        link.SettleWait(bound, settleTicks);
    }
    return true;
}

} // namespace tarvex
