#pragma once

#include <QWidget>

namespace tarvex::panel
{

/// The ground of the wait indicator: a calm strip that is seen at once. It keeps its room while it
/// is hidden.
class WaitGround final : public QWidget
{
public:
    /// Shown or hidden, it takes the room that its layout gives it.
    explicit WaitGround(QWidget* parent);

    /// The colour of a text upon it.
    static QColor TextColour() { return Qt::black; }

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarvex::panel
