#include "panel/look.h"

#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QPalette>
#include <QWidget>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

constexpr qreal kSmallestPointSize = 11;

QFont Readable(QFont font)
{
    font.setPointSizeF(std::max(QFontInfo(font).pointSizeF(), kSmallestPointSize));
    return font;
}

/// The desktop's colours with full contrast between text and ground, in a light theme and in a dark
/// one; what is disabled stays legible.
QPalette Contrasting(QPalette palette)
{
    const bool light = palette.color(QPalette::Window).lightness() > 127;
    const QColor text = light ? Qt::black : Qt::white;
    const QColor disabled = light ? QColor(0x6b, 0x6b, 0x6b) : QColor(0xa0, 0xa0, 0xa0);
    for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
        palette.setColor(QPalette::Active, role, text);
        palette.setColor(QPalette::Inactive, role, text);
        palette.setColor(QPalette::Disabled, role, disabled);
    }
    return palette;
}

} // namespace

void ApplyLook(QWidget& window)
{
    window.setFont(Readable(window.font()));
    window.setPalette(Contrasting(window.palette()));
}

void MakeHeading(QLabel& label)
{
    QFont font = Readable(label.font());
    font.setPointSizeF(font.pointSizeF() * 1.25);
    font.setBold(true);
    label.setFont(font);
}

QFont FixedWidthFont()
{
    QFont font = Readable(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    font.setPointSizeF(font.pointSizeF() + 1); // these fonts look smaller than the others
    return font;
}

void ShowLocked(QWidget& box)
{
    QPalette palette = box.palette();
    palette.setColor(QPalette::Base, palette.color(QPalette::Window));
    box.setPalette(palette);
}

} // namespace tarvex::panel
