#include "survey/window/look.h"

#include "survey/window/legible_style.h"

#include <QApplication>
#include <QFontInfo>

namespace tarvex::survey
{

namespace
{
QFont Readable(QFont font)
{
    constexpr double kSmallest = 11; // points
    if (QFontInfo(font).pointSizeF() < kSmallest) font.setPointSizeF(kSmallest);
    return font;
}
} // namespace

void Dress()
{
    QApplication::setStyle(new LegibleStyle);
    const auto font = Readable(QApplication::font());
    QApplication::setFont(font);
    // The toolkit gives these a font of their own.
    for (const char* const windowClass : {"QTipLabel", "QMessageBox", "QMenu"})
        QApplication::setFont(font, windowClass);
}

} // namespace tarvex::survey
