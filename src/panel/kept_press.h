#pragma once

#include <QObject>

namespace tarvex::panel
{

/// A mouse press on a button moves the focus first; when a field's rule then opens a box, the box
/// takes the release (and one that comes after the box is lost as well), so that the press would
/// come to nothing. This keeps such a press: it becomes the whole click, once, when the box is
/// gone.
class KeptPress final : public QObject
{
public:
    /// Watches the presses of the whole program.
    KeptPress();

    /// To be told when a rule has shown a box in a change of focus by the mouse.
    void BoxShownInPress() { boxShown_ = true; }

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool boxShown_ = false;
};

} // namespace tarvex::panel
