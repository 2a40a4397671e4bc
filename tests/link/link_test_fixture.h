#pragma once

#include "support/logic_test.h"

namespace tarvex::tests
{

/// One link on an open port under the rule that failing steps are skipped, as in a command.
class LinkTest : public LogicTest
{
protected:
    /// Runs `steps` between the opening and the closing of the port.
    void OnOpenPort(const std::function<void(DeviceLink&)>& steps)
    {
        ClickLink([&](DeviceLink& link) {
            SkipOnError rule;
            link.OpenPort();
            steps(link);
            link.ClosePort();
        });
    }

    /// Lets `bytes` come in at that moment.
    void ReceiveAt(Milliseconds moment, std::string bytes)
    {
        world.At(moment, [this, bytes = std::move(bytes)] { port.Receive(bytes); });
    }

    /// The unit never answers by itself.
    void SilenceUnit() { port.unit = nullptr; }
};

} // namespace tarvex::tests
