#pragma once

#include <QProxyStyle>

namespace tarvex::survey
{

/// The desktop's style with selections that are read in any theme: 4.5 of contrast between a
/// selected text and its ground, and 3 between that ground and the ground around it, as the
/// accessibility guidelines ask for. What has the keyboard has a frame of two pixels, and buttons
/// are hit with gloves on.
class LegibleStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
    /// Has tool tips show their text as it is: what a report holds is no markup.
    void polish(QWidget* widget) override;

    /// The frame around what has the keyboard.
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;
    /// No button is lower than a glove needs.
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& content,
                           const QWidget* widget) const override;
};

/// The contrast of two opaque colours as the guidelines count it: from 1 to 21.
double ContrastOf(const QColor& one, const QColor& other);

} // namespace tarvex::survey
