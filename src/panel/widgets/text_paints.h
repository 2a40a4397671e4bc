#pragma once

#include <QLabel>

namespace tarvex::panel
{

/// Keeps a label from being painted where it has no text. For one that lies over a widget that
/// changes: to paint the label means to lay out its text again, wherever the change was.
class TextPaints final : public QObject
{
public:
    /// `label` owns it. Its text is centred, and it has neither a frame nor a picture.
    explicit TextPaints(QLabel& label);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    const QRect& TextRoom();

    QLabel& label_;
    // What the room was found for.
    QSize size_;
    QFont font_;
    QString text_;
    QRect room_;
};

} // namespace tarvex::panel
