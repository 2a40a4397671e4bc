#include "core/failure.h"
#include "platform/qt_message_boxes.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QMessageBox>
#include <QProxyStyle>
#include <QPushButton>
#include <QScreen>
#include <QTimer>
#include <QVBoxLayout>
#include <QWidget>

#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace tarvex::tests
{
namespace
{

/// Each test plans what the operator does when the box is open.
class Boxes : public ::testing::Test
{
protected:
    void WhenShown(const std::function<void(QMessageBox&)>& act)
    {
        QTimer::singleShot(0, qApp, [this, act] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr) << "no box is open";
            ++seen;
            act(*box);
        });
    }

    void TearDown() override { EXPECT_EQ(seen, 1); }

    static void Press(QWidget& widget, Qt::Key key)
    {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &press);
        QKeyEvent release(QEvent::KeyRelease, key, Qt::NoModifier);
        QApplication::sendEvent(&widget, &release);
    }

    int seen = 0;
    ProgramEnd end;
    platform::QtMessageBoxes boxes{end};
};

TEST_F(Boxes, ACriticalOneShowsItsTextWithOneOkButton)
{
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.objectName(), "messageBox");
        EXPECT_EQ(box.text(), "Attention: TAR--VEX not connected");
        EXPECT_EQ(box.windowTitle(), "Tar Vex Manager");
        EXPECT_EQ(box.icon(), QMessageBox::Critical);
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok);
        EXPECT_EQ(box.windowModality(), Qt::ApplicationModal);
        box.button(QMessageBox::Ok)->click();
    });
    boxes.Critical("Attention: TAR--VEX not connected");
}

TEST_F(Boxes, ACriticalOneTakesATitleOfItsOwn)
{
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.windowTitle(), "Errore");
        box.reject();
    });
    boxes.Critical("Invalid Drive!", "Errore");
}

TEST_F(Boxes, ShowTextUnchangedAndInTheProgramsCodePage)
{
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.textFormat(), Qt::PlainText);
        EXPECT_EQ(box.text(), QString::fromUtf8("<b>profondità</b> & €"));
        box.reject();
    });
    boxes.Critical("<b>profondit\xE0</b> & \x80");
}

TEST_F(Boxes, AQuestionHasNoIconAndOkFirstAsItsDefault)
{
    WhenShown([](QMessageBox& box) {
        EXPECT_EQ(box.icon(), QMessageBox::NoIcon);
        EXPECT_EQ(box.windowTitle(), "Tar Vex Manager");
        EXPECT_EQ(box.standardButtons(), QMessageBox::Ok | QMessageBox::Cancel);
        EXPECT_EQ(box.defaultButton(), box.button(QMessageBox::Ok));
        EXPECT_LT(box.button(QMessageBox::Ok)->x(), box.button(QMessageBox::Cancel)->x());
        box.reject();
    });
    boxes.AskOkCancel("ATTENTION: ALL BLOCKS WILL BE LOST");
}

/// A desktop whose custom is Cancel before OK.
class CancelFirst : public QProxyStyle
{
public:
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* data) const override
    {
        return hint == SH_DialogButtonLayout ? 3
                                             : QProxyStyle::styleHint(hint, option, widget, data);
    }
};

TEST_F(Boxes, AQuestionHasOkFirstAlsoWhereTheDesktopPutsItLast)
{
    QApplication::setStyle(new CancelFirst);
    WhenShown([](QMessageBox& box) {
        EXPECT_LT(box.button(QMessageBox::Ok)->x(), box.button(QMessageBox::Cancel)->x());
        box.reject();
    });
    boxes.AskOkCancel("ATTENTION");
    QApplication::setStyle("Fusion");
}

TEST_F(Boxes, OkAnswersAQuestionWithTrue)
{
    WhenShown([](QMessageBox& box) { box.button(QMessageBox::Ok)->click(); });
    EXPECT_TRUE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, CancelAnswersAQuestionWithFalse)
{
    WhenShown([](QMessageBox& box) { box.button(QMessageBox::Cancel)->click(); });
    EXPECT_FALSE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, EnterAnswersAQuestionWithTrue)
{
    WhenShown([](QMessageBox& box) { Press(box, Qt::Key_Return); });
    EXPECT_TRUE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, EscapeAnswersAQuestionWithFalse)
{
    WhenShown([](QMessageBox& box) { Press(box, Qt::Key_Escape); });
    EXPECT_FALSE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, ClosingTheWindowAnswersAQuestionWithFalse)
{
    WhenShown([](QMessageBox& box) { box.close(); });
    EXPECT_FALSE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, OpenOverTheActiveWindow)
{
    QWidget window;
    window.show();
    window.activateWindow();
    QApplication::setActiveWindow(&window);
    WhenShown([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.reject();
    });
    boxes.Critical("ATTENTION");
}

/// A window that leaves no room beside its fields: three of them, each as high as a third of it.
TEST_F(Boxes, LeaveTheFieldInSightThatTheySpeakOf)
{
    QWidget window;
    window.setGeometry(window.screen()->availableGeometry());
    auto* column = new QVBoxLayout(&window);
    for (int i = 0; i < 3; ++i) {
        auto* field = new QLineEdit(&window);
        field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        column->addWidget(field);
    }
    window.show();
    QApplication::setActiveWindow(&window);
    for (auto* field : window.findChildren<QLineEdit*>()) {
        seen = 0;
        field->setProperty(kSpokenOf, true);
        WhenShown([&](QMessageBox& box) {
            const QRect place(field->mapToGlobal(QPoint()), field->size());
            EXPECT_FALSE(box.frameGeometry().intersects(place)) << place.top();
            box.reject();
        });
        boxes.Critical("Attention: Invalid value");
        field->setProperty(kSpokenOf, false);
    }
}

TEST_F(Boxes, OpenOverTheProgramsWindowAlsoWhileAnotherProgramIsActive)
{
    QWidget window;
    window.show();
    QApplication::setActiveWindow(nullptr);
    WhenShown([&](QMessageBox& box) {
        EXPECT_EQ(box.parentWidget(), &window);
        box.reject();
    });
    boxes.Critical("ATTENTION");
}

TEST_F(Boxes, GoWithTheirWindowAndCountAsCancelled)
{
    auto window = std::make_unique<QWidget>();
    window->show();
    QApplication::setActiveWindow(window.get());
    WhenShown([&](QMessageBox&) { window.reset(); });
    EXPECT_FALSE(boxes.AskOkCancel("ATTENTION"));
}

TEST_F(Boxes, RaiseProgramEndedWhenTheProgramEndsUnderThem)
{
    WhenShown([&](QMessageBox& box) {
        end.End(0);
        box.button(QMessageBox::Ok)->click();
    });
    EXPECT_THROW(boxes.AskOkCancel("ATTENTION"), ProgramEnded);
}

} // namespace
} // namespace tarvex::tests
