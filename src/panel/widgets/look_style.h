#pragma once

#include <QProxyStyle>

namespace tarvex::panel
{

/// How the program's controls are drawn on every desktop: borders and a focus mark that are seen in
/// sunlight, buttons that are hit with gloves on, and captions in the middle of their button
/// whatever blanks they begin with.
class LookStyle final : public QProxyStyle
{
public:
    /// Draws over the toolkit's own style, the same on every desktop.
    LookStyle();

    using QProxyStyle::polish;
    /// Has tool tips show their text as it is: names of devices, folders and files are no markup.
    void polish(QWidget* widget) override;
    /// Gives a palette the contrast that sunlight needs, also after a change while running.
    void polish(QPalette& palette) override;

    /// Borders of boxes and buttons, and the focus mark.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    /// Captions of buttons, in the middle without their outer blanks; the selected tab; the lines
    /// of a head.
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    /// The edges of lists to choose from and of scroll bars.
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    /// No button is lower than a glove needs.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                           const QWidget* widget) const override;
    /// Option marks as tall as their text.
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
    /// The focus mark belongs to the window: rows of buttons and the like would cut it off.
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* more) const override;
};

} // namespace tarvex::panel
