#pragma once

#include "core/control_panel.h"
#include "panel/widgets/paint_pause.h"

#include <QLineEdit>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace tarvex::panel
{

/// The line edit of one TextBox. It shows the box's text, takes what the operator types into it
/// (one line; "?" for a character without a byte of its own), and is hidden, disabled and cut as
/// the box is. Entering it selects its whole text, so that typing replaces a padded field.
class BoxEdit final : public QLineEdit
{
public:
    /// Shows the box's text from now on. The box must outlive it, or Detach be called before.
    BoxEdit(TextBox& box, QWidget* parent);
    ~BoxEdit() override;

    /// Run once when the focus has gone to another control of this window: not when a message box,
    /// another window or a menu takes it over.
    void OnLeave(std::function<void(Qt::FocusReason)> leave) { leave_ = std::move(leave); }
    /// Run at each double click of the left button, after the toolkit's own answer to it.
    void OnDoubleClick(std::function<void()> act) { doubleClick_ = std::move(act); }

    /// Shows many changes a second a few times a second from now on, and none at once (PaintPause).
    /// Only for a box that nobody types into.
    void Pace();

    /// Shows a text when the event queue runs next, and an empty one at once, from now on: to lay
    /// out a text takes half a millisecond, and it may change while the unit waits. Only for a box
    /// that nobody types into.
    void ShowLater() { showsLater_ = true; }

    /// Leaves the box now if its window, while it was not active, has passed the focus on.
    void CatchUp(Qt::FocusReason reason);

    /// Parts from the box: neither follows the other from now on, and nothing more is run.
    void Detach();

    /// As wide as the longest text that the box takes.
    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void ShowBox();
    void ShowText();
    void ShowWhenQueueRuns();
    void TakeTyped(const QString& text);
    void EnterWhole(Qt::FocusReason reason);
    void Leave(Qt::FocusReason reason);

    TextBox& box_;
    std::optional<PaintPause> pause_;
    std::function<void(Qt::FocusReason)> leave_;
    std::function<void()> doubleClick_;
    bool showsLater_ = false;
    bool waits_ = false;    // a text, to be shown
    bool left_ = true;      // the focus is elsewhere in this window, and that has been noticed
    bool entering_ = false; // a click that brings the focus has selected everything
    QPoint pressedAt_;
};

} // namespace tarvex::panel
