#include "panel/forms/picture.h"

#include <QPainter>
#include <QPixmap>

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
    Drawing drawing;
    drawing.Load(kProgramPicture);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64, 128}) {
        QPixmap pixmap(size, size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        drawing.Render(painter, pixmap.rect());
        painter.end();
        icon.addPixmap(pixmap);
    }
    return icon;
}

PictureBox::PictureBox(const char* picture, QSize size, QWidget* parent)
    : QWidget(parent), picture_(picture)
{
    setFixedSize(size);
}

void PictureBox::paintEvent(QPaintEvent*)
{
    if (!drawing_.IsLoaded()) {
        LoadPictures();
        drawing_.Load(picture_);
    }
    QPainter painter(this);
    drawing_.Render(painter, rect());
}

} // namespace tarvex::panel
