#pragma once

#include <QPalette>

namespace tarvex::tests
{

inline QPalette DarkPalette()
{
    QPalette palette(QColor(0x31, 0x36, 0x3b), QColor(0x2a, 0x2e, 0x32));
    palette.setColor(QPalette::Base, QColor(0x1b, 0x1e, 0x20));
    palette.setColor(QPalette::Highlight, QColor(0x2a, 0x44, 0x66));
    return palette;
}

inline QPalette LightPalette()
{
    QPalette palette(QColor(0xf0, 0xf0, 0xf0), QColor(0xe8, 0xe8, 0xe4));
    palette.setColor(QPalette::Base, Qt::white);
    palette.setColor(QPalette::Highlight, QColor(0x9a, 0xc0, 0xe8));
    return palette;
}

/// A desktop of high contrast: one colour for every ground, one for every text.
inline QPalette PlainPalette(const QColor& ground, const QColor& text)
{
    return {text, ground, text, ground, text, text, text, ground, ground};
}

} // namespace tarvex::tests
