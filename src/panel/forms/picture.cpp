#include "panel/forms/picture.h"

#include <QPainter>
#include <QPixmap>
#include <QtMath>

// A library's resources have to be asked for, or the linker leaves them out.
static void LoadPictures()
{
    Q_INIT_RESOURCE(pictures);
}

namespace tarvex::panel
{

QIcon ProgramIcon()
{
    LoadPictures();
    QSvgRenderer drawing(QString::fromLatin1(kProgramPicture));
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

PictureBox::PictureBox(const char* picture, int width, QWidget* parent) : QWidget(parent)
{
    LoadPictures();
    drawing_.load(QString::fromLatin1(picture));
    const QSizeF natural = drawing_.viewBoxF().size();
    setFixedSize(width, qRound(width * natural.height() / natural.width()));
}

void PictureBox::paintEvent(QPaintEvent*)
{
    QPainter painter(this);
    drawing_.render(&painter, QRectF(rect()));
}

} // namespace tarvex::panel
