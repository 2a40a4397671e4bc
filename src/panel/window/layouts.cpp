#include "panel/window/layouts.h"

#include "core/header_boxes.h"
#include "panel/widgets/box_edit.h"
#include "panel/widgets/fit_screen.h"
#include "panel/widgets/look.h"
#include "panel/widgets/scroll_room.h"
#include "panel/widgets/text_paints.h"
#include "panel/window/controls.h"

#include <QBoxLayout>
#include <QFrame>
#include <QGridLayout>
#include <QLabel>
#include <QScrollBar>

#include <initializer_list>
#include <string_view>

namespace tarvex::panel
{

namespace
{

constexpr int kCaption = 0, kField = 1, kHint = 2, kRest = 3; // the columns of a frame of fields
constexpr int kNear = 6;                                      // between what belongs together
constexpr int kWide = 16;                                     // between groups
constexpr int kAroundMark = 4; // the focus mark reaches outside its button

using Names = std::initializer_list<std::string_view>;

QHBoxLayout* Beside(QWidget& window, Names names)
{
    auto* row = new QHBoxLayout;
    row->setSpacing(kNear);
    for (const std::string_view name : names)
        row->addWidget(&ControlNamed(window, name));
    return row;
}

/// One row of captions and fields on a grid; a name left empty leaves its cell so.
class FieldGrid
{
public:
    FieldGrid(QWidget& window, const char* frame)
        : window_(window), grid_(new QGridLayout(&ControlNamed(window, frame)))
    {
        grid_->setHorizontalSpacing(10);
        grid_->setVerticalSpacing(kNear);
        grid_->setColumnStretch(kRest, 1);
    }

    void Heading(const char* name) { grid_->addWidget(&Named(name), row_++, kCaption, 1, -1); }

    void Field(const char* caption, Names boxes, const char* hint = nullptr)
    {
        grid_->addWidget(&Named(caption), row_, kCaption);
        grid_->addLayout(Beside(window_, boxes), row_, kField, Qt::AlignLeft);
        if (hint != nullptr) grid_->addWidget(&Named(hint), row_, kHint);
        ++row_;
    }

    void WideField(const char* caption, const char* box)
    {
        grid_->addWidget(&Named(caption), row_, kCaption);
        grid_->addWidget(&Named(box), row_++, kField, 1, -1);
    }

    void Group(const char* caption, Names controls)
    {
        grid_->addWidget(&Named(caption), row_, kCaption);
        Below(controls);
    }

    /// After the fields of the row just made.
    void After(Names names)
    {
        auto* beside = Beside(window_, names);
        beside->addStretch();
        grid_->addLayout(beside, row_ - 1, kHint, 1, 2);
    }

    /// Below the fields, or below their captions.
    void Below(Names names, int column = kField)
    {
        auto* beside = Beside(window_, names);
        beside->addStretch();
        grid_->addLayout(beside, row_++, column, 1, -1);
    }

    void Gap() { grid_->setRowMinimumHeight(row_++, kWide); }
    void Fill() { grid_->setRowStretch(row_, 1); }

private:
    QWidget& Named(const char* name) { return ControlNamed(window_, name); }

    QWidget& window_;
    QGridLayout* grid_;
    int row_ = 0;
};

void UseFixedWidth(QWidget& window, Names boxes)
{
    for (const std::string_view name : boxes)
        ControlNamed(window, name).setFont(FixedWidthFont());
}

void LayOutHeader(QWidget& window)
{
    FieldGrid grid(window, "Frame1");
    grid.Heading("HeadingFrame1");
    grid.Field("LabelText2", {"Text2"});
    grid.After({"sscommand9", "sscommand10", "sscommand11"});
    grid.Field("LabelText3", {"Text3"});
    grid.Field("LabelText4", {"Text4"});
    grid.Field("LabelText5", {"Text5"});
    grid.Field("LabelText6", {"Text6", "Text13"}, "HintText6");
    grid.Field("LabelText7", {"Text7"}, "HintText7");
    grid.Field("LabelText8", {"Text8"}, "HintText8");
    grid.Field("LabelText9", {"Text9"}, "HintText9");
    grid.Field("LabelText10", {"Text10"});
    grid.Field("LabelText11", {"Text11"}, "HintText11");
    grid.Field("LabelText12", {"Text12"}, "HintText12");
    grid.WideField("LabelText15", "Text15");
    grid.Below({"sscommand1", "sscommand5"});
    grid.Fill();
    UseFixedWidth(window, {"Text2"});
    for (const auto& row : kHeaderBoxes)
        UseFixedWidth(window, {row.control});
}

void LayOutDownload(QWidget& window)
{
    FieldGrid grid(window, "Frame2");
    grid.Heading("HeadingFrame2");
    grid.Group("LabelNumblocco", {"numblocco", "Command2", "Command1"});
    grid.Gap();
    grid.Below({"Command10", "command3d1", "command3d3"});
    grid.Gap();
    grid.WideField("LabelText1", "Text1");
    grid.Group("Label28", {"Text17"});
    grid.Below({"Picture1"});
    grid.Fill();
    UseFixedWidth(window, {"numblocco", "Text17"});
}

void LayOutGainZero(QWidget& window)
{
    FieldGrid grid(window, "Frame4");
    static_cast<QLabel&>(ControlNamed(window, "Label22")).setWordWrap(true);
    grid.Heading("Label22");
    grid.Below({"Command13", "Command4", "Command5"}, kCaption);
    grid.Field("Label29", {"Text18"});
    grid.Field("Label31", {"Text20"});
    grid.Field("Label30", {"Text19"});
    grid.Field("Label32", {"Text21"});
    grid.Field("Label33", {"Text22"});
    grid.Fill();
}

/// One row of the clock: its caption, and three boxes after their labels.
void LayOutClockRow(QWidget& window, QGridLayout& grid, int row, Names names)
{
    int column = 0;
    for (const std::string_view name : names)
        grid.addWidget(&ControlNamed(window, name), row, column++);
}

void LayOutSetup(QWidget& window)
{
    LayOutGainZero(window);
    LayOutParameters(window);
    LayOutPorts(window);
    LayOutClock(window);

    auto* grid = new QGridLayout(&ControlNamed(window, "Frame3"));
    grid->setSpacing(12);
    grid->addWidget(&ControlNamed(window, "Frame4"), 0, 0);
    grid->addWidget(&ControlNamed(window, "Frame1parametri"), 0, 1);
    grid->addWidget(&ControlNamed(window, "Frameserial"), 1, 0);
    grid->addWidget(&ControlNamed(window, "Frame1a"), 1, 1);
    grid->setColumnStretch(0, 1);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
}

QWidget* LeftColumn(QWidget& window)
{
    auto* content = new QWidget(&window);
    auto* column = new QVBoxLayout(content);
    column->setContentsMargins(kAroundMark, 0, kAroundMark, kAroundMark);
    column->setSpacing(kNear);
    column->addWidget(&ControlNamed(window, "HeadingControlPanel"));
    const auto group = [&](Names names) {
        for (const std::string_view name : names)
            column->addWidget(&ControlNamed(window, name));
        column->addSpacing(kWide);
    };
    group({"Command3", "Command8", "Command9"});
    group({"Command6", "sscommand6"});
    group({"Command7", "ssCommand8"});
    column->addStretch();
    for (const char* name : {"Command11", "Command12"})
        column->addWidget(&ControlNamed(window, name));
    auto* room = new ScrollRoom(*content, window);
    const int whole = content->sizeHint().width() + room->verticalScrollBar()->sizeHint().width();
    if (whole <= FreeSize(window).width() / 2) room->setMinimumWidth(whole);
    return room;
}

QLayout* Tabs(QWidget& window)
{
    auto* content = new QWidget(&window);
    auto* frames = new QGridLayout(content);
    frames->setContentsMargins(0, 0, 0, 0);
    for (const char* name : {"Frame1", "Frame2", "Frame3"})
        frames->addWidget(&ControlNamed(window, name), 0, 0);
    content->setMaximumWidth(content->sizeHint().width() * 5 / 4); // what belongs together stays so
    auto* pane = new ScrollRoom(*content, window);
    pane->setObjectName("PaneTabStrip1");
    pane->setFrameStyle(QFrame::StyledPanel | QFrame::Raised);

    auto* tabs = new QVBoxLayout;
    tabs->setSpacing(0);
    tabs->addWidget(&ControlNamed(window, "TabStrip1"), 0, Qt::AlignLeft);
    tabs->addWidget(pane, 1);
    return tabs;
}

QLayout* WaitIndicator(QWidget& window)
{
    auto& label = static_cast<QLabel&>(ControlNamed(window, "Label34"));
    MakeHeading(label);
    label.setAlignment(Qt::AlignCenter);
    label.setMargin(4);
    label.setWordWrap(true); // no text makes the window wider than its screen
    QSizePolicy policy = label.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    label.setSizePolicy(policy);
    new TextPaints(label);

    auto* both = new QGridLayout;
    both->addWidget(&ControlNamed(window, "Shape1"), 0, 0);
    both->addWidget(&label, 0, 0);
    label.raise();
    return both;
}

} // namespace

void LayOutParameters(QWidget& window)
{
    FieldGrid parameters(window, "Frame1parametri");
    parameters.Field("LabelText16rt", {"Text16rt"}, "HintText16rt");
    parameters.Below({"Command6scrivi"});
    parameters.Fill();
    UseFixedWidth(window, {"Text16rt"});
}

void LayOutPorts(QWidget& window)
{
    auto* ports = new QVBoxLayout(&ControlNamed(window, "Frameserial"));
    for (const char* name : {"ssOption1_0", "ssOption1_1", "ssOption1_2", "ssOption1_3"})
        ports->addWidget(&ControlNamed(window, name), 0, Qt::AlignLeft);
    ports->addStretch();
}

void LayOutClock(QWidget& window)
{
    auto* grid = new QGridLayout(&ControlNamed(window, "Frame1a"));
    grid->setHorizontalSpacing(10);
    grid->setVerticalSpacing(kNear);
    LayOutClockRow(
        window, *grid, 0,
        {"LabelDate", "LabelText13a", "Text13a", "LabelText1a", "Text1a", "LabelText2a", "Text2a"});
    LayOutClockRow(
        window, *grid, 1,
        {"LabelTime", "LabelText14a", "Text14a", "LabelText3a", "Text3a", "LabelText4a", "Text4a"});
    auto* buttons = Beside(window, {"ssCommand3", "ssCommand4", "ssCommand2"});
    buttons->addStretch();
    grid->addLayout(buttons, 2, 0, 1, -1);
    grid->setColumnStretch(grid->columnCount(), 1);
    grid->setRowStretch(grid->rowCount(), 1);
    UseFixedWidth(window, {"Text13a", "Text1a", "Text2a", "Text14a", "Text3a", "Text4a"});
}

void LayOut(QWidget& window)
{
    LayOutHeader(window);
    LayOutDownload(window);
    LayOutSetup(window);
    auto* grid = new QGridLayout(&window);
    grid->setHorizontalSpacing(kWide);
    grid->addWidget(LeftColumn(window), 0, 0);
    grid->addLayout(Tabs(window), 0, 1);
    grid->addLayout(WaitIndicator(window), 1, 0, 1, 2);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(0, 1);
}

} // namespace tarvex::panel
