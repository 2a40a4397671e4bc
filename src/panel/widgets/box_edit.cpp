#include "panel/widgets/box_edit.h"

#include "panel/widgets/one_line.h"
#include "platform/text/qt_text.h"

#include <QApplication>
#include <QFocusEvent>
#include <QMouseEvent>
#include <QStyle>
#include <QStyleOptionFrame>

#include <utility>

namespace tarvex::panel
{

namespace
{

/// Puts "?" for what the code page does not hold while it is being typed, so that the cursor stays
/// where it is. A letter and its accent typed apart become one character first.
class CodePageValidator final : public OneLineValidator
{
public:
    using OneLineValidator::OneLineValidator;

    State validate(QString& input, int& position) const override
    {
        OneLineValidator::validate(input, position);
        const QString held = ToQString(ToBytes(input.normalized(QString::NormalizationForm_C)));
        if (held != input) {
            position -= static_cast<int>(input.size() - held.size());
            input = held;
        }
        return Acceptable;
    }
};

/// True when the focus goes to another control of the window, not to a box, a window or a menu.
bool IsLeaving(Qt::FocusReason reason)
{
    return reason != Qt::ActiveWindowFocusReason && reason != Qt::PopupFocusReason &&
           reason != Qt::MenuBarFocusReason;
}

constexpr int kWidestCounted = 8; // characters; longer boxes take the room that there is

} // namespace

BoxEdit::BoxEdit(TextBox& box, QWidget* parent) : QLineEdit(parent), box_(box)
{
    if (box.MaximumLength() != TextBox::kAnyLength)
        setMaxLength(static_cast<int>(box.MaximumLength()));
    setValidator(new CodePageValidator(*this));
    setFocusPolicy(Qt::StrongFocus);
    if (box.MaximumLength() <= kWidestCounted)
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    ShowBox();
    box_.Watch([this] { ShowBox(); });
    connect(this, &QLineEdit::textChanged, this, [this](const QString& text) { TakeTyped(text); });
}

BoxEdit::~BoxEdit()
{
    Detach();
}

void BoxEdit::Detach()
{
    disconnect(this, &QLineEdit::textChanged, this, nullptr);
    box_.Unwatch();
    pause_.reset();
    waits_ = false;
    leave_ = {};
    doubleClick_ = {};
}

void BoxEdit::Pace()
{
    pause_.emplace([this] { ShowText(); });
}

void BoxEdit::ShowBox()
{
    if (pause_) {
        pause_->NoteChange();
    } else if (showsLater_ && !box_.Text().empty()) {
        ShowWhenQueueRuns();
    } else {
        ShowText();
    }
    setEnabled(box_.Enabled());
    if (isHidden() == box_.Visible()) setVisible(box_.Visible());
}

void BoxEdit::ShowWhenQueueRuns()
{
    if (std::exchange(waits_, true)) return;
    const auto show = [this] {
        if (std::exchange(waits_, false)) ShowText();
    };
    QMetaObject::invokeMethod(this, show, Qt::QueuedConnection);
}

void BoxEdit::ShowText()
{
    const QString shown = ToQString(box_.Text());
    if (text() != shown) setText(shown);
}

void BoxEdit::TakeTyped(const QString& text)
{
    std::string typed = ToBytes(text);
    if (typed != box_.Text()) box_.SetText(typed);
}

QSize BoxEdit::sizeHint() const
{
    const QSize usual = QLineEdit::sizeHint();
    if (box_.MaximumLength() > kWidestCounted) return usual;
    QStyleOptionFrame option;
    initStyleOption(&option);
    const int characters = static_cast<int>(box_.MaximumLength()) + 2; // room for the cursor
    const QSize content(fontMetrics().horizontalAdvance('0') * characters, fontMetrics().height());
    const int width =
        style()->sizeFromContents(QStyle::CT_LineEdit, &option, content, this).width();
    return {width, usual.height()};
}

void BoxEdit::EnterWhole(Qt::FocusReason reason)
{
    if (!left_) return;
    left_ = false;
    entering_ = reason == Qt::MouseFocusReason || reason == Qt::ActiveWindowFocusReason;
    selectAll();
}

void BoxEdit::Leave(Qt::FocusReason reason)
{
    if (std::exchange(left_, true)) return;
    if (leave_) leave_(reason);
}

void BoxEdit::CatchUp(Qt::FocusReason reason)
{
    if (window()->focusWidget() != this) Leave(reason);
}

void BoxEdit::focusInEvent(QFocusEvent* event)
{
    QLineEdit::focusInEvent(event);
    EnterWhole(event->reason());
}

void BoxEdit::focusOutEvent(QFocusEvent* event)
{
    const Qt::FocusReason reason = event->reason();
    QLineEdit::focusOutEvent(event);
    if (IsLeaving(reason)) Leave(reason);
}

// A press or a key can come before the activation, and so before the focus.

void BoxEdit::keyPressEvent(QKeyEvent* event)
{
    left_ = false;
    QLineEdit::keyPressEvent(event);
}

void BoxEdit::mousePressEvent(QMouseEvent* event)
{
    if (window()->focusWidget() == this) EnterWhole(Qt::MouseFocusReason);
    const bool selects = entering_ && event->button() == Qt::LeftButton;
    QLineEdit::mousePressEvent(event);
    entering_ = selects;
    if (!selects) return;
    pressedAt_ = event->pos();
    selectAll();
}

void BoxEdit::mouseMoveEvent(QMouseEvent* event)
{
    if (entering_ && event->buttons() != Qt::NoButton) {
        const int way = (event->pos() - pressedAt_).manhattanLength();
        if (way < QApplication::startDragDistance()) return; // a click's tremble is no selection
        setCursorPosition(cursorPositionAt(pressedAt_));
    }
    if (event->buttons() != Qt::NoButton) entering_ = false;
    QLineEdit::mouseMoveEvent(event);
}

void BoxEdit::mouseReleaseEvent(QMouseEvent* event)
{
    entering_ = false;
    QLineEdit::mouseReleaseEvent(event);
}

/// What was dropped is in a field in work, which is left as any other.
void BoxEdit::dropEvent(QDropEvent* event)
{
    setFocus(Qt::OtherFocusReason);
    left_ = false;
    QLineEdit::dropEvent(event);
}

void BoxEdit::mouseDoubleClickEvent(QMouseEvent* event)
{
    QLineEdit::mouseDoubleClickEvent(event);
    if (doubleClick_ && event->button() == Qt::LeftButton) doubleClick_();
}

} // namespace tarvex::panel
