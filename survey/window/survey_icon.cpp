#include "survey/window/survey_icon.h"

#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

// A library's resources have to be asked for, or the linker leaves them out.
static void LoadIcon()
{
    Q_INIT_RESOURCE(survey_icon);
}

namespace tarvex::survey
{

QIcon SurveyIcon()
{
    LoadIcon();
    QSvgRenderer drawing(QStringLiteral(":/tarvex/survey_icon.svg"));
    QIcon icon;
    for (int size = 16; size <= 128; size *= 2) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        drawing.render(&painter);
        painter.end();
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace tarvex::survey
