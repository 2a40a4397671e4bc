#pragma once

#include "core/control_panel.h"
#include "core/handlers.h"
#include "core/header_store.h"
#include "core/program_end.h"
#include "core/working_state.h"
#include "link/device_link.h"
#include "link/operator_view.h"
#include "platform/qt_event_pump.h"
#include "platform/qt_serial_port.h"
#include "platform/qt_tick_timer.h"
#include "program/unit_process.h"
#include "support/temporary_folder.h"

#include <chrono>
#include <functional>

namespace tarvex::bench
{

/// What a piece of work cost.
struct Cost {
    double wall = 0;      ///< seconds, from the first byte sent to the last byte taken
    double whole = 0;     ///< seconds, from its start to its end
    double processor = 0; ///< seconds of this process
};

/// Processor time of this process so far, in seconds.
double ProcessorSeconds();

/// A port that notes when the first byte went out and when bytes were last taken.
class TimedPort : public SerialPort
{
public:
    explicit TimedPort(SerialPort& port) : port_(port) {}

    double Wall() const;
    void Forget();

    void SetCommPort(int number) override { port_.SetCommPort(number); }
    void Open() override { port_.Open(); }
    void Close() override { port_.Close(); }
    void Output(std::string_view bytes) override;
    void ExpectInput(int count) override { port_.ExpectInput(count); }
    bool AwaitRest() override { return port_.AwaitRest(); }
    int InBufferCount() override { return port_.InBufferCount(); }
    std::string Input() override;

private:
    using Clock = std::chrono::steady_clock;

    SerialPort& port_;
    Clock::time_point first_;
    Clock::time_point last_;
    bool used_ = false;
};

/// The manager below its window, on the real port, with the simulated unit at its other end.
class BenchWorld
{
public:
    explicit BenchWorld(const QStringList& unitOptions);

    /// Runs a command on the line and measures it.
    Cost Measure(const std::function<void(DeviceLink&)>& command);

    /// Runs something after that time, inside the command being measured.
    void Later(int milliseconds, const std::function<void()>& event);

    /// Ends the command being measured, wherever it waits.
    void EndLater(int milliseconds);

    tests::TemporaryFolder folder;
    tests::UnitProcess unit;
    WorkingState state;
    ControlPanel panel;

private:
    class SilentBoxes : public MessageBoxes
    {
    public:
        void Critical(std::string_view text, std::string_view title) override;
        bool AskOkCancel(std::string_view) override { return true; }
    };

    SilentBoxes boxes_;
    ProgramEnd end_;
    Handlers handlers_{end_, boxes_};
    platform::QtSerialPort port_;
    TimedPort timed_{port_};
    platform::QtEventPump pump_{end_};
    platform::QtTickTimer timer_{[this] { CountTick(state); }};

public:
    /// What a command on the line works with here.
    Line line{timed_, pump_, timer_, boxes_, state, &panel.waitIndicator};
    OperatorView view{line};
};

} // namespace tarvex::bench
