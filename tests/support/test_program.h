#pragma once

#include "core/control_panel.h"
#include "core/handlers.h"
#include "core/header_store.h"
#include "core/working_state.h"
#include "link/device_link.h"
#include "link/operator_view.h"
#include "support/scripted_boxes.h"
#include "support/scripted_port.h"
#include "support/scripted_unit.h"
#include "support/temporary_folder.h"
#include "support/virtual_world.h"

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex::tests
{

using enum HeaderBox;
using enum CalibrationBox;

/// The whole program below the window: panel, state, header file, line and unit, on a virtual clock
/// and in a folder of its own. The start-up has run: the panel shows record 1.
class TestProgram
{
public:
    TestProgram();
    TestProgram(const TestProgram&) = delete;
    TestProgram& operator=(const TestProgram&) = delete;

    /// Runs a handler as a click on its control does, also from inside an event of the world: by
    /// the door that every event of the program goes through.
    void Click(const std::function<void()>& handler);

    /// As Click, for a handler on the line, with a link of its own.
    void ClickLink(const std::function<void(DeviceLink&)>& handler);

    /// The record of that number in the header file.
    BlockHeader StoredHeader(int recordNumber) const;

    /// Port closed, indicator hidden.
    bool LineAtRest() const;

    /// The texts of the eleven boxes of a header in their order on the panel, then of the five
    /// hidden ones of the calibration.
    std::vector<std::string> HeaderBoxTexts() const;

    /// From now on every showing and hiding of the indicator is noted in the port's history, as
    /// "Label34 on" and the like.
    void LogIndicator();

    /// The reason of the failure that a handler let go up, if one did; the box showed it.
    std::optional<std::string> unhandledFailure;

    /// Handlers that ran to their end, in order of ending; one cut off by the end of the program
    /// does not count.
    int finishedHandlers = 0;

    TemporaryFolder folder;
    WorkingState state;
    ControlPanel panel;
    ScriptedBoxes boxes;
    VirtualWorld world{[this] { CountTick(state); }};
    ScriptedPort port;
    ScriptedUnit unit{world, port};
    Line line{port, world, world, boxes, state, &panel.waitIndicator};
    OperatorView view{line};

private:
    /// The box of a failure that no handler skipped.
    class ErrorBox : public MessageBoxes
    {
    public:
        explicit ErrorBox(std::optional<std::string>& reason) : reason_(reason) {}
        void Critical(std::string_view text, std::string_view title) override;
        bool AskOkCancel(std::string_view text) override;

    private:
        std::optional<std::string>& reason_;
    };

    ErrorBox errorBox_{unhandledFailure};
    Handlers handlers_{world.end, errorBox_};
};

} // namespace tarvex::tests
