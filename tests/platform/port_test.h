#pragma once

#include "core/failure.h"
#include "core/program_end.h"
#include "platform/port_finder.h"
#include "platform/pseudo_terminal.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_serial_port.h"
#include "support/temporary_folder.h"

#include <QElapsedTimer>
#include <QTimer>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace tarvex::tests
{

/// A port finder that knows the links of `folder` alone: no test reaches the machine's own ports.
inline platform::PortFinder LinksOf(const TemporaryFolder& folder)
{
    return platform::PortFinder(folder.Path(), [] { return std::vector<platform::MachinePort>(); });
}

/// A start folder whose link com1 leads to a pseudo terminal, and the program's port on it.
class PortTest : public ::testing::Test
{
protected:
    PortTest() { Link("com1", terminal); }

    void Link(const std::string& name, const PseudoTerminal& target) const
    {
        std::filesystem::remove(folder / name);
        std::filesystem::create_symlink(target.Device(), folder / name);
    }

    /// Sleeps in the event queue until the condition holds; false when it does not within 5 s.
    template <typename Condition>
    bool PumpUntil(Condition condition)
    {
        QTimer watch;
        watch.start(100);
        QElapsedTimer time;
        time.start();
        pump.DoEvents();
        while (!condition() && time.elapsed() < 5000)
            pump.WaitForEvents();
        return condition();
    }

    /// Lets events run for some time.
    void PumpFor(int milliseconds)
    {
        bool over = false;
        QTimer::singleShot(milliseconds, Qt::PreciseTimer, [&] { over = true; });
        while (!over)
            pump.WaitForEvents();
    }

    /// Everything received, as soon as it is at least that many bytes.
    std::string InputOf(int count)
    {
        EXPECT_TRUE(PumpUntil([&] { return port.InBufferCount() >= count; }))
            << "received " << port.InBufferCount() << " bytes of " << count;
        return port.Input();
    }

    /// The reason for which the port does not open; empty when it does.
    std::string RefusalOf(SerialPort& opened)
    {
        try {
            opened.Open();
            return {};
        } catch (const RunTimeFailure& failure) {
            return failure.what();
        }
    }

    TemporaryFolder folder;
    PseudoTerminal terminal;
    ProgramEnd end;
    platform::QtEventPump pump{end};
    platform::QtSerialPort port{LinksOf(folder)};
};

} // namespace tarvex::tests
