#pragma once

#include "common/choices.h"
#include "common/require.h"
#include "support/scripted_port.h"

namespace tarvex::fuzz
{

/// A port whose steps fail by choice, as an adapter's may that is being pulled. Closing never does.
class HostilePort : public SerialPort
{
public:
    HostilePort(tests::ScriptedPort& port, Choices& choices) : port_(port), choices_(choices) {}

    /// How often a step fails, in percent.
    unsigned failures = 0;

    void SetCommPort(int number) override
    {
        Require(number >= 1 && number <= 4, "the port is Com 1 to Com 4");
        MayFail();
        port_.SetCommPort(number);
    }
    void Open() override
    {
        MayFail();
        port_.Open();
    }
    void Close() override { port_.Close(); }
    void Output(std::string_view bytes) override;
    void ExpectInput(int count) override { port_.ExpectInput(count); }
    bool AwaitRest() override { return port_.AwaitRest(); }
    int InBufferCount() override
    {
        MayFail();
        return port_.InBufferCount();
    }
    std::string Input() override
    {
        MayFail();
        return port_.Input();
    }

private:
    void MayFail();

    tests::ScriptedPort& port_;
    Choices& choices_;
};

} // namespace tarvex::fuzz
