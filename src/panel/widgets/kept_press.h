#pragma once

class QEvent;
class QObject;

namespace tarvex::panel
{

/// A mouse press on a button moves the focus first; when a field's rule then opens a box, the box
/// takes the release (and one that comes after the box is lost too), so that the press would have
/// no effect. This keeps such a press: it becomes the whole click, once, when the box is
/// gone.
class KeptPress final
{
public:
    /// To be called when a rule has shown a box in a change of focus by the mouse.
    void BoxShownInPress() { boxShown_ = true; }

    /// To be called with each press before the widget gets it. True when this has made the press a
    /// click, so that it must no longer reach the widget.
    bool Takes(QObject& widget, const QEvent& press);

private:
    bool boxShown_ = false;
};

} // namespace tarvex::panel
