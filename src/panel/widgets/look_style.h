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
    LookStyle();

    using QProxyStyle::polish;
    void polish(QPalette& palette) override;

    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                            QPainter* painter, const QWidget* widget) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                           const QWidget* widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override;
};

} // namespace tarvex::panel
