#include "panel/widgets/look.h"

#include "panel/widgets/accessible.h"
#include "panel/widgets/focus_mark.h"
#include "panel/widgets/look_palette.h"
#include "panel/widgets/look_style.h"

#include <QApplication>
#include <QEvent>
#include <QFontDatabase>
#include <QFontInfo>
#include <QLabel>
#include <QToolTip>

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

/// Keeps the contrast when the palette is set anew while the program runs. What the desktop changes
/// comes through the style already; this is for colours set for the program alone.
class PaletteKeeper final : public QObject
{
public:
    explicit PaletteKeeper(QApplication& application) : QObject(&application)
    {
        application.installEventFilter(this);
        Improve();
    }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (watched == parent() && event->type() == QEvent::ApplicationPaletteChange) Improve();
        return false;
    }

private:
    static void Improve()
    {
        const QPalette palette = Contrasting(QApplication::palette());
        if (palette != QApplication::palette()) QApplication::setPalette(palette);
        QToolTip::setPalette(palette);
    }
};

bool IsDressed()
{
    return dynamic_cast<const LookStyle*>(QApplication::style()) != nullptr;
}

} // namespace

void DressProgram()
{
    if (IsDressed()) return;
    // A desktop's own boxes would come in another size, and with less contrast.
    QCoreApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QApplication::setStyle(new LookStyle);
    const QFont font = Readable(QApplication::font());
    QApplication::setFont(font);
    for (const char* windowClass : {"QTipLabel", "QMessageBox", "QMenu"})
        QApplication::setFont(font, windowClass);
    new PaletteKeeper(*qApp);
    MarkFocusEverywhere();
    DescribeToAssistiveTools();
}

void ApplyLook(QWidget&)
{
    DressProgram();
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

} // namespace tarvex::panel
