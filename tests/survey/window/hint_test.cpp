#include "survey/window/hint_page.h"
#include "survey/window/legible_style.h"
#include "survey/window/survey_icon.h"
#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QAction>
#include <QApplication>
#include <QDialog>
#include <QFileDialog>
#include <QImage>
#include <QPalette>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <QTreeWidget>

namespace tarvex::survey
{
namespace
{

using ::testing::HasSubstr;

TEST_F(WindowTest, SaysWhatToDoWhereNoSurveyIs)
{
    window_.show();
    EXPECT_EQ(Find<QLabel>("hint").text(), QStringLiteral("No surveys are open."));
    EXPECT_TRUE(Find<QLabel>("hint").isVisible());
    EXPECT_FALSE(Find<QWidget>("tree").isVisible());
    window_.Open({folder_.Path()});
    EXPECT_FALSE(Find<QLabel>("hint").isVisible());
    EXPECT_TRUE(Find<QWidget>("tree").isVisible());
    EXPECT_TRUE(Find<QWidget>("verdict").isVisible());
}

TEST_F(WindowTest, NamesTheFolderInWhichNoSurveyIs)
{
    std::filesystem::create_directory(folder_ / "empty");
    window_.Open({folder_ / "empty"});
    window_.show();
    EXPECT_THAT(Find<QLabel>("hint").text().toStdString(),
                HasSubstr("There are no surveys in " + (folder_ / "empty").string()));
    tests::Download(folder_ / "empty", "1:depth=20");
    EXPECT_TRUE(QTest::qWaitFor([&] { return Find<QWidget>("tree").isVisible(); }, 20'000));
}

TEST_F(WindowTest, OpensReportsFromTheHintByKeys)
{
    window_.show();
    window_.activateWindow();
    QStringList opened;
    for (auto* const button : Find<QWidget>("hint").parentWidget()->findChildren<QPushButton*>()) {
        EXPECT_NE(button->focusPolicy() & Qt::TabFocus, 0);
        QTimer::singleShot(0, &window_, [&] {
            auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
            ASSERT_NE(dialog, nullptr);
            opened += dialog->windowTitle();
            dialog->reject();
        });
        QTest::keyClick(button, Qt::Key_Space);
    }
    EXPECT_EQ(opened, QStringList({QStringLiteral("Open reports"), QStringLiteral("Open folder")}));
}

TEST_F(WindowTest, KeepsWhatIsChosenWhileTheKeysAreAtATube)
{
    window_.Open({folder_.Path()});
    auto& tree = Find<QTreeWidget>("tree");
    auto* const tube = tree.topLevelItem(0)->child(0)->child(0);
    tree.setCurrentItem(tube->child(0));
    ASSERT_TRUE(tube->child(0)->isSelected());
    QTest::keyClick(&tree, Qt::Key_Up);
    EXPECT_EQ(tree.currentItem(), tube);
    EXPECT_TRUE(tube->child(0)->isSelected());
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(tube).center());
    EXPECT_TRUE(tube->child(0)->isSelected());
    QTest::keyClick(&tree, Qt::Key_Down);
    QTest::keyClick(&tree, Qt::Key_Down);
    EXPECT_TRUE(tube->child(1)->isSelected());
    EXPECT_FALSE(tube->child(0)->isSelected());
}

TEST_F(WindowTest, SaysWhichOfSeveralReadingsItsVerdictIsOn)
{
    window_.Open({folder_.Path()});
    Find<QTreeWidget>("tree").topLevelItem(0)->child(0)->child(0)->child(0)->setSelected(true);
    EXPECT_EQ(Verdict(), "Verdict on readout 02: good");
}

TEST_F(WindowTest, FillsItsRoomWithThePlotsWhereNothingIsChosenToo)
{
    window_.Open({folder_.Path()});
    window_.show();
    Find<QTreeWidget>("tree").clearSelection();
    Plot().replot();
    EXPECT_GT(Plot().axisRect(0)->height(), Plot().height() * 2 / 3);
}

TEST_F(WindowTest, ExportsInTheChosenFormWhereTheNameHasNoEnding)
{
    window_.Open({folder_.Path()});
    QString proposed;
    QTimer::singleShot(0, &window_, [&] {
        auto* const dialog = qobject_cast<QFileDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        proposed = dialog->selectedFiles().value(0);
        dialog->selectNameFilter(QStringLiteral("Table (*.csv)"));
        dialog->selectFile(PathText(folder_ / "table"));
        static_cast<QDialog*>(dialog)->accept();
    });
    for (auto* const action : window_.findChildren<QAction*>())
        if (action->text().startsWith(QStringLiteral("&Export"))) action->trigger();
    EXPECT_THAT(proposed.toStdString(), ::testing::EndsWith("-PENDIO 1-T1  -02.pdf"));
    EXPECT_THAT(tests::FileBytes(folder_ / "table.csv"), ::testing::StartsWith("Depth"));
}

TEST_F(WindowTest, ShowsTheReasonsOfItsVerdictByAKey)
{
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    QString reasons;
    QTimer::singleShot(0, &window_, [&] {
        auto* const dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        ASSERT_NE(dialog, nullptr);
        reasons = dialog->findChild<QPlainTextEdit*>()->toPlainText();
        dialog->reject();
    });
    QTest::keyClick(&Find<QPushButton>("reasons"), Qt::Key_Space);
    EXPECT_THAT(reasons.toStdString(), HasSubstr("spike: 12.5 m: the half difference"));
    EXPECT_THAT(reasons.toStdString(), HasSubstr("A1+A3: 40 sums, mean"));
}

TEST(SurveyIcon, IsDrawnForTheTitleBar)
{
    const auto picture = SurveyIcon().pixmap(32).toImage();
    ASSERT_EQ(picture.size(), QSize(32, 32));
    EXPECT_EQ(picture.pixelColor(4, 16), QColor(0x1f, 0x4e, 0x5f)) << "the edge of the drawing";
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
}

TEST(LegibleStyle, MakesSelectionsLegibleInAnyTheme)
{
    LegibleStyle style;
    for (const auto& [base, highlight, text] :
         {std::array<QColor, 3>{Qt::white, QColor(48, 140, 198), Qt::white},
          {QColor(30, 30, 30), QColor(0, 0, 128), Qt::white},
          {QColor(30, 30, 30), QColor(90, 90, 90), QColor(150, 150, 150)},
          {Qt::white, QColor(250, 250, 210), Qt::white},
          {Qt::black, Qt::black, Qt::black}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, base);
        palette.setColor(QPalette::Highlight, highlight);
        palette.setColor(QPalette::HighlightedText, text);
        style.polish(palette);
        for (const auto group : {QPalette::Active, QPalette::Inactive, QPalette::Disabled}) {
            const auto ground = palette.color(group, QPalette::Highlight);
            EXPECT_GE(ContrastOf(palette.color(group, QPalette::HighlightedText), ground), 4.5);
            EXPECT_GE(ContrastOf(ground, base), 3);
        }
    }
    EXPECT_NEAR(ContrastOf(Qt::black, Qt::white), 21, 1e-9);
    EXPECT_NEAR(ContrastOf(QColor(119, 119, 119), Qt::white), 4.48, 0.01);
}

} // namespace
} // namespace tarvex::survey
