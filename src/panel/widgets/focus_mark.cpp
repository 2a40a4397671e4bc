#include "panel/widgets/focus_mark.h"

#include "panel/widgets/look_palette.h"
#include "panel/widgets/rounded_frame.h"

#include <QApplication>
#include <QEvent>
#include <QPainter>

namespace tarvex::panel
{

namespace
{

constexpr const char* kName = "FocusMark";

bool IsWindowWithoutMark(const QWidget& widget)
{
    const bool window = widget.windowType() == Qt::Window || widget.windowType() == Qt::Dialog;
    return window && widget.findChild<QFocusFrame*>(kName) == nullptr;
}

class MarkMaker final : public QObject
{
public:
    using QObject::QObject;

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() != QEvent::Show || !watched->isWidgetType()) return false;
        auto& widget = static_cast<QWidget&>(*watched);
        if (IsWindowWithoutMark(widget)) new FocusMark(widget);
        return false;
    }
};

} // namespace

FocusMark::FocusMark(QWidget& window) : QFocusFrame(&window), window_(window)
{
    setObjectName(kName);
    hide(); // a window without the keyboard has no control to mark
    following_ = connect(qApp, &QApplication::focusChanged, this,
                         [this](QWidget*, QWidget* focused) { Follow(focused); });
    Follow(QApplication::focusWidget());
}

/// What the toolkit takes down after this moves the focus once more.
FocusMark::~FocusMark()
{
    disconnect(following_);
}

void FocusMark::Follow(QWidget* focused)
{
    const bool inside = focused != nullptr && window_.isAncestorOf(focused);
    setWidget(inside ? focused : nullptr);
}

void FocusMark::paintEvent(QPaintEvent*)
{
    constexpr int kThickness = 2;
    QPainter painter(this);
    const QColor colour = MarkColour(palette(), palette().color(QPalette::Base));
    DrawRoundedFrame(painter, rect(), {colour, kThickness});
}

void MarkFocusEverywhere()
{
    qApp->installEventFilter(new MarkMaker(qApp));
}

} // namespace tarvex::panel
