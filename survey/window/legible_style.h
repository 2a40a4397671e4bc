#pragma once

#include <QProxyStyle>

namespace tarvex::survey
{

/// The desktop's style with selections that are read in any theme: 4.5 of contrast between a
/// selected text and its ground, and 3 between that ground and the ground around it, as the
/// accessibility guidelines ask for.
class LegibleStyle : public QProxyStyle
{
public:
    using QProxyStyle::polish;
    void polish(QPalette& palette) override;
};

/// The contrast of two opaque colours as the guidelines count it: from 1 to 21.
double ContrastOf(const QColor& one, const QColor& other);

} // namespace tarvex::survey
