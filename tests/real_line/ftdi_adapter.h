#pragma once

#include "real_line/ftdi_registers.h"
#include "real_line/function_files.h"
#include "real_line/interruptible_thread.h"

#include <atomic>
#include <deque>
#include <mutex>
#include <string>
#include <string_view>

namespace tarvex::tests
{

/// What the chip has noted of characters, as a bit of its status.
enum class Mark : unsigned char {
    None = 0,
    Overrun = 0x02, ///< others before them were lost
    Parity = 0x04,
    Framing = 0x08,
    Break = 0x10,
};

/// A USB adapter with an FTDI chip, made of the machine's own gadget driver; its line leads to the
/// unit. It is in its socket from the start.
class FtdiAdapter : public RealLine
{
public:
    FtdiAdapter();
    ~FtdiAdapter() override;

    std::filesystem::path Device() const override { return device_; }
    LineState State() const override;
    void Say(std::string_view bytes) override { SayMarked(bytes, Mark::None); }
    void Break() override { SayMarked({"\0", 1}, Mark::Break); }
    int Requests() const override { return requests_; }

    /// As Say, with what the chip has noted of those characters.
    void SayMarked(std::string_view bytes, Mark mark);

    /// Returns once the host has taken all that was said.
    void AwaitTaken() const;

    /// Returns once it is out of its socket, whether or not the host has noticed.
    void Pull();

    /// Returns once the host has made a port of it, which may be another one than before.
    void Plug();

    /// Pulls it when the chip gets its `number`-th request from now on, before it answers.
    void PullAtRequest(int number) { pullAt_ = requests_ + number; }

    /// True until then.
    bool IsToBePulled() const { return pullAt_ > 0; }

    /// The chip's own timer, in milliseconds.
    int LatencyTimer() const;

private:
    void Control();
    void Obey(const usb_ctrlrequest& request);
    void Empty();
    void Receive();
    void Send();
    std::string Next();

    FunctionFiles function_;
    std::filesystem::path device_;
    mutable std::mutex mutex_;
    FtdiRegisters registers_;
    std::deque<std::string> packets_;   ///< to the host
    std::atomic<bool> sending_ = false; ///< one more is on its way
    std::atomic<int> requests_ = 0;
    std::atomic<int> pullAt_ = 0; ///< at which of them; 0 for none
    InterruptibleThread sender_;
    InterruptibleThread receiver_;
    InterruptibleThread control_;
};

} // namespace tarvex::tests
