#include "panel/window/service_list.h"

#include "panel/widgets/look.h"
#include "panel/window/control_table.h"
#include "platform/text/qt_text.h"

#include <array>

namespace tarvex::panel
{

namespace
{

struct Entry {
    std::string_view text;
    Command command;
};

constexpr std::array kHiddenButtons = {"Command9", "sscommand1", "sscommand5", "command3d3",
                                       "ssCommand2"};

constexpr std::array kDialogs = {
    Entry{"Serial port RS232", Command::ShowPortDialog},
    Entry{"Set Clock", Command::ShowClockDialog},
    Entry{"Delay for Automatic Cycle", Command::ShowDelayDialog},
};

} // namespace

ServiceList::ServiceList(QWidget* parent, const std::function<void(Command)>& run) : QMenu(parent)
{
    ApplyLook(*this);
    setObjectName("ServiceList");
    setAccessibleName("Service list");
    const auto add = [&](std::string_view text, Command command) {
        addAction(Literal(text), this, [run, command] { run(command); });
    };
    for (const char* name : kHiddenButtons)
        add(RowNamed(name).caption, RowNamed(name).command);
    addSeparator();
    for (const Entry& entry : kDialogs)
        add(entry.text, entry.command);
}

void ServiceList::PopUp()
{
    const QWidget& window = *parentWidget();
    popup(window.mapToGlobal(window.rect().center() - QRect({}, sizeHint()).center()));
    setActiveAction(actions().constFirst());
}

} // namespace tarvex::panel
