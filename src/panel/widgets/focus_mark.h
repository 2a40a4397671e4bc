#pragma once

#include <QFocusFrame>

namespace tarvex::panel
{

/// A frame around the control that has the focus, strong enough to be found in sunlight.
class FocusMark final : public QFocusFrame
{
public:
    /// Marks the controls of that window.
    explicit FocusMark(QWidget& window);
    ~FocusMark() override;
    FocusMark(const FocusMark&) = delete;
    FocusMark& operator=(const FocusMark&) = delete;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void Follow(QWidget* focused);

    QWidget& window_;
    QMetaObject::Connection following_;
};

/// Gives every window that is shown from now on its FocusMark.
void MarkFocusEverywhere();

} // namespace tarvex::panel
