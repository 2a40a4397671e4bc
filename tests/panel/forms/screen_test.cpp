// Run once for each screen that CMakeLists.txt lists: nothing here depends on its size.

#include "core/start_up.h"
#include "panel/forms/forms_test.h"
#include "panel/widgets/look.h"
#include "panel/window/main_window.h"
#include "panel/window_test.h"

#include <QApplication>
#include <QLabel>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QTabBar>
#include <QTest>

#include <algorithm>
#include <string>

namespace tarvex::tests
{

namespace
{

/// The size of the texts that the desktop asks for, in percent of the program's usual one.
class AskedTextSize
{
public:
    AskedTextSize()
    {
        const int percent = qEnvironmentVariableIntValue("SCREEN_TEST_TEXT");
        QFont font = QApplication::font();
        font.setPointSizeF(11 * std::max(percent, 100) / 100.0);
        QApplication::setFont(font);
    }
};

class Screen : public FormsTest
{
protected:
    Screen()
    {
        forms.StandAbove(&window);
        forms.Dress([](QWidget& form) { panel::ApplyLook(form); });
        LoadMainForm(panel, state, [this] { return folder.Path(); });
        window.show();
    }
    ~Screen() override { forms.StandAbove(nullptr); }

    static QSize Free() { return QGuiApplication::primaryScreen()->availableSize(); }

    static void ExpectFits(const QWidget& shown)
    {
        const std::string name = shown.objectName().toStdString();
        EXPECT_LE(shown.frameGeometry().width(), Free().width()) << name;
        EXPECT_LE(shown.frameGeometry().height(), Free().height()) << name;
    }

    /// The control is on view, or, if nothing is large enough for it, its beginning.
    static bool IsInSight(const QWidget& control)
    {
        constexpr QSize kEnough(48, 24);
        const QRect shown = control.visibleRegion().boundingRect();
        return shown.contains(QRect({}, control.size().boundedTo(kEnough))) &&
               shown.contains(QRect({}, control.size().boundedTo(RoomOf(control))));
    }

    static std::string Described(const QWidget& control)
    {
        const auto size = [](QSize given) {
            return std::to_string(given.width()) + "x" + std::to_string(given.height()) + " ";
        };
        const QRect shown = control.visibleRegion().boundingRect();
        return control.objectName().toStdString() + " of " + size(control.size()) + "shows " +
               size(shown.size()) + "from " + std::to_string(shown.x()) + "," +
               std::to_string(shown.y()) + ", room " + size(RoomOf(control)) + ", window " +
               size(control.window()->size());
    }

    /// The size of what scrolls it, less the room for the mark of the focus.
    static QSize RoomOf(const QWidget& control)
    {
        for (const QWidget* above = control.parentWidget(); above; above = above->parentWidget()) {
            const auto* area = qobject_cast<const QScrollArea*>(above);
            if (area != nullptr) return area->viewport()->size() - QSize(8, 8);
        }
        return control.window()->size();
    }

    /// Goes round the window by the Tab key.
    static void ExpectTheFocusInSight(QWidget& form)
    {
        form.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
        for (int step = 0; step < 30; ++step) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* focused = QApplication::focusWidget();
            ASSERT_NE(focused, nullptr);
            EXPECT_TRUE(IsInSight(*focused)) << Described(*focused);
        }
    }

    const AskedTextSize textSize;
    PlannedFileDialog fileDialog;
    panel::MainWindow window{
        panel::CommandContext{panel, dialogs.line, forms, fileDialog, folder / "dati"}, portNames,
        handlers, end};
};

TEST_F(Screen, IsTheOneThatIsMeant)
{
    if (!qEnvironmentVariableIsSet("SCREEN_TEST_WIDTH")) GTEST_SKIP() << "any screen";
    const double width = Free().width() * window.devicePixelRatioF();
    EXPECT_NEAR(width, qEnvironmentVariableIntValue("SCREEN_TEST_WIDTH"), 3);
}

TEST_F(Screen, HoldsTheMainForm)
{
    ExpectFits(window);
    EXPECT_GE(window.width(), std::min(900, Free().width() * 9 / 10)) << "it uses what there is";
    for (int tab = 0; tab < 3; ++tab) {
        window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(tab);
        ExpectTheFocusInSight(window);
        ExpectFits(window);
    }
}

TEST_F(Screen, ShowsTheWholeWaitIndicatorWhateverIsScrolled)
{
    panel.waitIndicator.ground.Show();
    panel.waitIndicator.label.Show();
    QApplication::processEvents();
    auto& label = *window.findChild<QLabel*>("Label34");
    EXPECT_EQ(label.visibleRegion().boundingRect(), label.rect());
    EXPECT_LE(label.heightForWidth(label.width()), label.height());
    EXPECT_GT(label.width(), window.width() / 2);
}

TEST_F(Screen, ScrollsNothingWhereASpacingCouldGiveWay)
{
    const bool usual = qEnvironmentVariableIntValue("SCREEN_TEST_TEXT") <= 150;
    if (!usual || Free().height() < 500) GTEST_SKIP() << "too small, however close the contents";
    for (int tab = 0; tab < 3; ++tab) {
        window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(tab);
        QApplication::processEvents();
        for (const auto* bar : window.findChildren<QScrollBar*>())
            EXPECT_FALSE(bar->isVisible()) << tab << bar->parent()->objectName().toStdString();
    }
}

TEST_F(Screen, HoldsTheSideForms)
{
    forms.ShowAbout();
    forms.ShowFolderChooser();
    forms.ShowPortDialog();
    forms.ShowClockDialog();
    forms.ShowDelayDialog();
    QApplication::processEvents();
    for (const char* name : {"aboutus", "Form6", "Form1", "Form2", "Form3"})
        ExpectFits(Window(name));
    for (const char* name : {"Form6", "Form1", "Form2", "Form3"})
        ExpectTheFocusInSight(Window(name));
}

TEST_F(Screen, HoldsTheSplash)
{
    forms.ShowSplash([] {});
    ExpectFits(Window("preloader"));
}

TEST_F(Screen, LeavesTheTitlesRoomToBeRead)
{
    forms.ShowPortDialog();
    const QWidget& dialog = Window("Form1");
    const int title = QFontMetrics(dialog.font()).horizontalAdvance(dialog.windowTitle());
    EXPECT_GE(dialog.width(),
              std::min(title + 130, Free().width() * 9 / 10)); // three buttons beside
}

TEST_F(Screen, KeepsTheFieldsTogetherWhenTheWindowIsWide)
{
    constexpr int kCharacters = 130; // of text at most, side by side
    window.findChild<QTabBar*>("TabStrip1")->setCurrentIndex(1);
    window.resize(6000, 1000);
    QApplication::processEvents();
    const int most = window.fontMetrics().horizontalAdvance(QString(kCharacters, 'n'));
    EXPECT_LE(window.findChild<QWidget*>("Frame2")->width(), most);
}

} // namespace

} // namespace tarvex::tests
