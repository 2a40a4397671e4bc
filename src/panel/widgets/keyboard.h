#pragma once

#include <QObject>

#include <functional>

class QKeyEvent;
class QWidget;

namespace tarvex::panel
{

/// The keys that all windows have in common, the toolkit's boxes too. Return presses the button
/// that has the focus, on every desktop, and no other; Escape closes a window beside the main form;
/// Ctrl+PageUp and Ctrl+PageDown turn the tabs; F1 asks for help. What has the focus comes first:
/// only a key that it has no use for closes, turns or helps. A key that is held down acts once,
/// also when the keyboard has gone to another window or box meanwhile.
class Keyboard final : public QObject
{
public:
    /// Looks after every window from now on; runs `help` at each F1.
    explicit Keyboard(std::function<void()> help);

    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool ActOnWindow(QWidget& window, const QKeyEvent& key);

    std::function<void()> help_;
};

} // namespace tarvex::panel
