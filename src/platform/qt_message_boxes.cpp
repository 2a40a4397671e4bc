#include "platform/qt_message_boxes.h"

#include "core/failure.h"
#include "platform/box_place.h"
#include "platform/sights.h"
#include "platform/text/qt_text.h"

#include <QApplication>
#include <QPointer>
#include <QScreen>
#include <QShowEvent>

namespace tarvex::platform
{

namespace
{

/// While the operator is in another program no window is active, and the box must still come up
/// over this one.
QWidget* WindowBelow()
{
    if (QWidget* const active = QApplication::activeWindow()) return active;
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->isVisible() && window->windowType() == Qt::Window) return window;
    }
    return nullptr;
}

/// Comes up beside the fields of its window: a box speaks of one of them, and the operator must see
/// what is in it.
class PlacedBox final : public QMessageBox
{
public:
    using QMessageBox::QMessageBox;

protected:
    void showEvent(QShowEvent* event) override
    {
        QMessageBox::showEvent(event);
        const QWidget* below = parentWidget();
        if (event->spontaneous() || below == nullptr) return;
        const QMargins frame = FrameOf(*below);
        move(PlaceOfBox(size().grownBy(frame), below->screen()->availableGeometry(),
                        below->frameGeometry(), SightsOf(*below)));
    }

private:
    static QMargins FrameOf(const QWidget& window)
    {
        const QRect inside = window.geometry();
        const QRect all = window.frameGeometry();
        return {inside.left() - all.left(), inside.top() - all.top(), all.right() - inside.right(),
                all.bottom() - inside.bottom()};
    }
};

QMessageBox* MakeBox(QMessageBox::Icon icon, std::string_view text, std::string_view title,
                     QMessageBox::StandardButtons buttons)
{
    auto* const box = new PlacedBox(icon, ToQString(title), QString(), buttons, WindowBelow());
    box->setObjectName("messageBox");
    box->setTextFormat(Qt::PlainText);
    box->setText(ToQString(text));
    box->setDefaultButton(QMessageBox::Ok);
    // OK comes first on every desktop, also where the custom is the other way round.
    box->setStyleSheet("QDialogButtonBox { button-layout: 0 }");
    return box;
}

} // namespace

void QtMessageBoxes::Critical(std::string_view text, std::string_view title)
{
    Show(MakeBox(QMessageBox::Critical, text, title, QMessageBox::Ok));
}

bool QtMessageBoxes::AskOkCancel(std::string_view text)
{
    return Show(MakeBox(QMessageBox::NoIcon, text, kProgramTitle,
                        QMessageBox::Ok | QMessageBox::Cancel)) == QMessageBox::Ok;
}

/// The box belongs to its window, which may be deleted while the box is open, and the box with it.
int QtMessageBoxes::Show(QMessageBox* box)
{
    const QPointer<QMessageBox> remaining(box);
    const int answer = box->exec();
    delete remaining;
    if (end_.Ended()) throw ProgramEnded();
    return answer;
}

} // namespace tarvex::platform
