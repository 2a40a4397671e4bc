#pragma once

#include <QLabel>

namespace tarvex::survey
{

/// A line of plain text that ends in "…" where the window is too narrow for it, rather than widen
/// the window. The whole of it is its tool tip.
class CutLabel : public QLabel
{
public:
    /// An empty line.
    explicit CutLabel(QWidget* parent);

    /// Shows this text in place of the one before.
    void Say(const QString& words);

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarvex::survey
