#pragma once

#include <QColor>

#include <initializer_list>

namespace tarvex::panel
{

/// The contrast of two opaque colours as the accessibility guidelines count it: from 1 (the same
/// brightness) to 21 (black on white).
double Contrast(const QColor& one, const QColor& other);

/// `wanted`, changed towards black or white by no more than it takes to reach the contrast `least`
/// with every one of the grounds. Where no colour reaches it, the one that comes nearest.
QColor SetOff(const QColor& wanted, std::initializer_list<QColor> grounds, double least);

/// The colour between two, `share` (0 to 1) of the way from the first.
QColor Between(const QColor& from, const QColor& to, double share);

} // namespace tarvex::panel
