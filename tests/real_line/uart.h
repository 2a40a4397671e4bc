#pragma once

#include "real_line/real_line.h"

#include <string>
#include <thread>

namespace tarvex::tests
{

/// A 16550A of the machine, wired to another one that the unit is at.
class Uart : public RealLine
{
public:
    Uart();
    ~Uart() override;

    std::filesystem::path Device() const override { return "/dev/ttyS1"; }
    LineState State() const override;
    void Say(std::string_view bytes) override;
    void Break() override;

private:
    void Serve(const std::stop_token& end);
    void Write(std::string_view bytes) const;

    int farPort_;
    std::jthread unit_;
};

} // namespace tarvex::tests
