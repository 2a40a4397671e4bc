#pragma once

#include <QLabel>

namespace tarvex::panel
{

/// A path on one line. One too long for the line keeps its beginning and its end; text(), the tool
/// tip and assistive tools give all of it.
class PathLabel : public QLabel
{
public:
    /// An empty line.
    explicit PathLabel(QWidget* parent);

    /// Shows this path in place of the one before.
    void ShowPath(const QString& path);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

} // namespace tarvex::panel
