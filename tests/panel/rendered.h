#pragma once

#include <QColor>
#include <QImage>
#include <QWidget>

#include <string>

namespace tarvex::tests
{

/// What an operator sees of a window, taken from its picture alone.
class Rendered
{
public:
    explicit Rendered(QWidget& window);

    /// The contrast of the control's border with what is beside it, outside and inside, at the side
    /// where it is least.
    double BorderContrast(const QWidget& control) const;

    /// The contrast of the most outstanding pixel inside the control with its ground.
    double TextContrast(const QWidget& control) const;

    /// The ground of the control, next to its border.
    QColor Ground(const QWidget& control) const;

    /// The colour of most pixels on and around the control's border that are other ones in
    /// `before`.
    QColor FrameChange(const QWidget& control, const Rendered& before) const;

    /// Which of "left top right bottom" have a part of the control's border that is as it is in
    /// `before`; empty when a whole frame has come. Round corners do not count.
    std::string SidesWithoutChange(const QWidget& control, const Rendered& before) const;

private:
    QRect Place(const QWidget& control) const;
    double SideContrast(QPoint edge, QPoint inwards) const;
    bool ChangesAlong(const QRect& strip, const Rendered& before) const;

    QWidget& window_;
    QImage picture_;
};

/// Which of "left top right bottom" of that control the mark of the focus in this window leaves as
/// they are without it; "no mark" when it marks another control or none.
std::string SidesWithoutMark(QWidget& window, const QWidget& control);

/// The contrast of two colours by the accessibility guidelines.
double SeenContrast(const QColor& one, const QColor& other);

} // namespace tarvex::tests
