#include "program/manual.h"
#include "program/program_test.h"

#include <QApplication>
#include <QDesktopServices>
#include <QMessageBox>
#include <QTabBar>
#include <QUrl>
#include <QtTest>

namespace tarvex::tests
{

/// Stands for the desktop: remembers the pages it is asked to open.
class PageReader : public QObject
{
    Q_OBJECT

public:
    PageReader() { QDesktopServices::setUrlHandler("file", this, "Take"); }
    ~PageReader() override { QDesktopServices::unsetUrlHandler("file"); }

    QList<QUrl> opened;

    Q_INVOKABLE void Take(const QUrl& url) { opened.push_back(url); }
};

namespace
{

class PanelKeys : public ProgramTest
{
protected:
    static void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }

    static void Hold(QWidget& to, Qt::Key key)
    {
        QKeyEvent repeated(QEvent::KeyPress, key, Qt::NoModifier, QString(), true);
        for (int i = 0; i < 5; ++i)
            QCoreApplication::sendEvent(&to, &repeated);
    }

    int Tab() { return AtPanel().Find<QTabBar>("TabStrip1")->currentIndex() + 1; }

    static QString Focused()
    {
        return QApplication::focusWidget() == nullptr ? QString()
                                                      : QApplication::focusWidget()->objectName();
    }
};

TEST_F(PanelKeys, ControlAndPageKeysTurnTheTabsFromAnywhereAndLeaveTheFieldFirst)
{
    StartAlone();
    AtPanel().Type("Text5", "t1");
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Tab(), 2);
    EXPECT_EQ(AtPanel().Text("Text5"), "T1  ");
    EXPECT_TRUE(AtPanel().IsShown("Frame2"));

    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Tab(), 3);
    Press(Qt::Key_PageDown, Qt::ControlModifier);
    EXPECT_EQ(Tab(), 1);
    AtPanel().Find<QWidget>("Command3")->setFocus();
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Tab(), 3);
    EXPECT_TRUE(AtPanel().IsShown("Frame3"));
    Press(Qt::Key_PageUp, Qt::ControlModifier);
    EXPECT_EQ(Tab(), 2);
}

TEST_F(PanelKeys, AHeldReturnDoesNotAnswerTheQuestionThatItBrought)
{
    Start();
    bool open = false;
    boxes.beforeAnswer = [&](QWidget* box) {
        Hold(*QApplication::focusWidget(), Qt::Key_Return);
        open = box->isVisible();
        Press(Qt::Key_Escape);
    };
    AtPanel().Find<QWidget>("Command7")->setFocus();

    Press(Qt::Key_Return);

    EXPECT_TRUE(open);
    EXPECT_EQ(boxes.texts.size(), 1) << boxes.texts.join("; ").toStdString();
    EXPECT_EQ(FileBytes(folder / "intestazione").substr(0, 8), "CLIENT 1") << "Escape means Cancel";
}

TEST_F(PanelKeys, AHeldReturnDoesNotRunACommandIntoItself)
{
    Start({"--fault", "silent@wake1+"});
    AtPanel().Find<QWidget>("Command3")->setFocus();
    QTimer::singleShot(50, qApp, [] { Hold(*QApplication::focusWidget(), Qt::Key_Return); });

    Press(Qt::Key_Return);

    EXPECT_EQ(boxes.texts, QStringList("Attention: TAR--VEX not connected"));
}

TEST_F(PanelKeys, ADownloadGivesTheFocusBack)
{
    Start({"--fill", "1:depth=2.0,step=0.5,guides=2"});
    AtPanel().ShowTab(2);
    ChooseFolder(folder.Path());
    AtPanel().Find<QWidget>("command3d1")->setFocus();
    QStringList way;
    const QObject follower;
    QObject::connect(qApp, &QApplication::focusChanged, &follower, [&] { way << Focused(); });

    Press(Qt::Key_Return);

    EXPECT_TRUE(std::filesystem::exists(folder / "datiram.dat"));
    EXPECT_EQ(way, QStringList({"Text1", "command3d1"})) << "its button was grey meanwhile";
}

TEST_F(PanelKeys, ADownloadLeavesTheFocusWhereTheOperatorHasMovedIt)
{
    Start({"--fill", "1:depth=2.0,step=0.5,guides=2"});
    AtPanel().ShowTab(2);
    ChooseFolder(folder.Path());
    QTimer::singleShot(0, qApp, [&] { AtPanel().Find<QWidget>("Command11")->setFocus(); });

    AtPanel().Click("command3d1");

    EXPECT_EQ(Focused(), "Command11");
}

TEST_F(PanelKeys, F1OpensTheManualThatCameWithTheProgramOnceHoweverLongItIsHeld)
{
    const auto page = (folder / "bin" / kManualFromProgram).lexically_normal();
    std::filesystem::create_directories(page.parent_path());
    WriteFile(page, "<p>manual</p>");
    StartIn(folder.Path(), folder / "bin");
    const PageReader reader;

    Press(Qt::Key_F1);
    EXPECT_EQ(reader.opened,
              QList<QUrl>{QUrl::fromLocalFile(QString::fromStdString(page.string()))});
    Hold(*QApplication::focusWidget(), Qt::Key_F1);
    EXPECT_EQ(reader.opened.size(), 1);
}

} // namespace
} // namespace tarvex::tests

#include "panel_keys_test.moc"
