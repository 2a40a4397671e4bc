#include "panel/window/main_window.h"

#include "panel/rules/field_rules.h"
#include "panel/widgets/announcement.h"
#include "panel/widgets/box_edit.h"
#include "panel/widgets/field_leaving.h"
#include "panel/widgets/fit_screen.h"
#include "panel/widgets/look.h"
#include "panel/widgets/port_options.h"
#include "panel/widgets/wait_announcer.h"
#include "panel/widgets/wait_ground.h"
#include "panel/window/control_table.h"
#include "panel/window/controls.h"
#include "panel/window/layouts.h"
#include "panel/window/service_list.h"
#include "platform/text/qt_text.h"
#include "settings/port_choice.h"

#include <QAbstractButton>
#include <QCloseEvent>
#include <QShortcut>
#include <QTabBar>

#include <functional>
#include <vector>

namespace tarvex::panel
{

/// What the controls run: every event goes through the one door for handlers.
class MainWindow::Parts
{
public:
    Parts(MainWindow& window, const CommandContext& context, PortNames& portNames,
          Handlers& handlers)
        : window_(window),
          context_(context),
          handlers_(handlers),
          leaving_(handlers, context.line.messages)
    {
        MakeControls();
        LayOut(window_);
        OrderTabKey();
        HangOnButtons();
        HangOnTabStrip();
        context_.panel.portOptions.OnClick(
            [this](int index) { ChoosePort(context_.line.state, index); });
        portOptions_ =
            std::make_unique<PortOptions>(window_, context_.panel.portOptions, portNames);
        auto* list = new ServiceList(&window_, [this](Command command) { RunFromList(command); });
        new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_F12), &window_, [list] { list->PopUp(); });
        new WaitAnnouncer(static_cast<WaitGround&>(ControlNamed(window_, "Shape1")),
                          *new Announcement(window_));
        ControlNamed(window_, "Text2").setFocus();
        FitToScreen(window_, {920, 540});
    }

    ~Parts()
    {
        for (BoxEdit* edit : edits_)
            edit->Detach();
        context_.panel.portOptions.OnClick({});
    }

private:
    void MakeControls()
    {
        for (const ControlRow& row : ControlTable()) {
            if (row.parent.empty()) continue; // the form itself
            QWidget* widget = MakeControl(row, context_.panel, window_);
            if (row.kind == ControlKind::TextBox) HangOnBox(row, static_cast<BoxEdit*>(widget));
        }
    }

    void HangOnBox(const ControlRow& row, BoxEdit* edit)
    {
        edits_.push_back(edit);
        leaving_.Watch(*edit);
        if (const FieldRule rule = RuleOf(row.name)) {
            leaving_.RunOnLeaving(*edit, [this, rule](MessageBoxes& messages) {
                rule(context_.panel, context_.line.state, messages);
            });
        }
        if (row.name == RowOf(HeaderBox::DepthTenths).control)
            edit->OnDoubleClick([this] { Run([&] { ToggleDepthTenths(context_.panel); }); });
    }

    void HangOnButtons()
    {
        for (const ControlRow& row : ControlTable()) {
            if (row.command == Command::None) continue;
            auto* button = window_.findChild<QAbstractButton*>(Literal(row.name));
            QObject::connect(button, &QAbstractButton::clicked, &window_,
                             [this, command = row.command] { RunCommand(command); });
        }
    }

    void HangOnTabStrip()
    {
        auto* strip = window_.findChild<QTabBar*>("TabStrip1");
        QObject::connect(strip, &QTabBar::currentChanged, &window_, [this, strip](int index) {
            if (window_.focusWidget() != strip) strip->setFocus(); // turned by the wheel
            Run([&] { SelectTab(context_.panel, index + 1); });
        });
    }

    void OrderTabKey()
    {
        QWidget* previous = nullptr;
        for (const ControlRow& row : ControlTable()) {
            auto* widget = window_.findChild<QWidget*>(Literal(row.name));
            if (widget == nullptr || widget->focusPolicy() == Qt::NoFocus) continue;
            if (previous != nullptr) QWidget::setTabOrder(previous, widget);
            previous = widget;
        }
    }

    /// The field in work is left before a handler reads the boxes.
    void Run(const std::function<void()>& handler)
    {
        leaving_.CatchUp();
        handlers_.Run(handler);
    }

    void RunCommand(Command command)
    {
        Run([&] { RowOf(command).run(context_); });
    }

    /// As its button would: the list is no control of the window, and the focus goes to one.
    void RunFromList(Command command)
    {
        ControlNamed(window_, "TabStrip1").setFocus();
        RunCommand(command);
    }

    MainWindow& window_;
    CommandContext context_;
    Handlers& handlers_;
    FieldLeaving leaving_;
    std::unique_ptr<PortOptions> portOptions_;
    std::vector<BoxEdit*> edits_;
};

MainWindow::MainWindow(const CommandContext& context, PortNames& portNames, Handlers& handlers,
                       ProgramEnd& end)
    : end_(end)
{
    const ControlRow& form = RowNamed("Scaricodati");
    setObjectName(Literal(form.name));
    setWindowTitle(Literal(form.caption));
    ApplyLook(*this);
    parts_ = std::make_unique<Parts>(*this, context, portNames, handlers);
}

MainWindow::~MainWindow() = default;

void MainWindow::closeEvent(QCloseEvent* event)
{
    end_.End(0);
    event->accept();
}

} // namespace tarvex::panel
