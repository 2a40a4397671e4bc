#include "survey/window/look.h"

#include "survey/window/cut_label.h"
#include "survey/window/legible_style.h"
#include "survey/window/plot_curves.h"
#include "survey/window/plot_pen.h"
#include "survey/window/window_test.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QToolTip>
#include <QTreeWidget>

namespace tarvex::survey
{
namespace
{

using ::testing::HasSubstr;

class LookTest : public WindowTest
{
protected:
    LookTest() { Dress(); }
    ~LookTest() override
    {
        QToolTip::hideText();
        QApplication::setStyle(QStringLiteral("fusion"));
        QApplication::setFont(before_);
    }

    const QFont before_ = QApplication::font();
};

TEST_F(LookTest, HasTextsThatAreReadOutOfDoors)
{
    EXPECT_GE(QFontInfo(QApplication::font()).pointSizeF(), 11);
    auto large = QApplication::font();
    large.setPointSizeF(22);
    QApplication::setFont(large);
    Dress();
    EXPECT_EQ(QApplication::font().pointSizeF(), 22) << "larger ones are left";
}

TEST_F(LookTest, HasButtonsThatAreHitWithGloves)
{
    EXPECT_GE(QPushButton(QStringLiteral("Close")).sizeHint().height(), 34);
}

TEST_F(LookTest, ShowsTheTextOfEveryToolTipAsItIs)
{
    const auto outside = QStringLiteral("/srv/<b>a & b</b> &lt;1\nanother line");
    QToolTip::showText({}, outside);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (!window->inherits("QTipLabel")) continue;
        auto& tip = *static_cast<QLabel*>(window);
        EXPECT_EQ(tip.text(), outside);
        EXPECT_EQ(tip.textFormat(), Qt::PlainText);
        return;
    }
    FAIL() << "no tool tip is shown";
}

TEST_F(LookTest, FramesThePlotsWhileTheKeysGoToThem)
{
    window_.Open({folder_.Path()});
    window_.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&window_));
    window_.activateWindow();
    const auto corner = [&] { return Plot().grab().toImage().pixelColor(0, 0); };
    Find<QTreeWidget>("tree").setFocus();
    EXPECT_EQ(corner(), Plot().palette().color(QPalette::Base));
    Plot().setFocus();
    EXPECT_EQ(corner(), Plot().palette().color(QPalette::Highlight));
}

TEST_F(WindowTest, ShowsTheValuesOfTheSurveyOnView)
{
    window_.Open({folder_.Path()});
    Plot().PointTo(0);
    QTest::keyClick(&Plot(), Qt::Key_Down);
    const auto before = Find<QLabel>("values").text();
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5")});
    const auto after = Find<QLabel>("values").text();
    EXPECT_NE(after, before);
    EXPECT_EQ(Find<QTableView>("table").currentIndex().row(), 0);
    const auto first = Find<QTableView>("table").model()->index(0, 1).data().toString();
    EXPECT_THAT(after.toStdString(), HasSubstr("Depth 0.5   A1 " + first.toStdString() + " "));
    Find<QTreeWidget>("tree").clearSelection();
    EXPECT_EQ(Find<QLabel>("values").text(), QString());
}

TEST_F(WindowTest, NamesTheFaultsOfADepthAtTheHeadOfItsRow)
{
    window_.Open({folder_.Path()});
    EXPECT_TRUE(Find<QTableView>("table").verticalHeader()->isHidden());
    window_.Open({tests::Download(folder_.Path(), "4:depth=20,spike=12.5,guides=4")});
    EXPECT_FALSE(Find<QTableView>("table").verticalHeader()->isHidden());
    const auto& table = *Find<QTableView>("table").model();
    EXPECT_THAT(table.headerData(24, Qt::Vertical).toString().toStdString(), HasSubstr("spike"));
    EXPECT_EQ(table.headerData(23, Qt::Vertical).toString(), QString());
}

TEST_F(WindowTest, GivesOnlyTheHalfDifferencesMoreRoomThanAReading)
{
    const auto& table = Find<QTableView>("table");
    const auto expectFit = [&] {
        for (int column = 0; column + 1 < table.model()->columnCount(); ++column) {
            const auto title = table.model()->headerData(column, Qt::Horizontal).toString();
            EXPECT_EQ(table.columnWidth(column) > table.columnWidth(0), title.startsWith('('))
                << title.toStdString();
        }
    };
    window_.Open({folder_.Path()});
    expectFit();
    window_.Open({tests::Download(folder_.Path(), "2:depth=20,client=FOUR,guides=4")});
    expectFit();
}

TEST(CutLabel, EndsInDotsWhereItsTextHasNoRoom)
{
    CutLabel line(nullptr);
    line.resize(60, 20);
    line.Say(QStringLiteral("Depth 12.5   A1 108   B1 565"));
    const auto seen = line.grab().toImage();
    line.Say(line.fontMetrics().elidedText(line.text(), Qt::ElideRight, 60));
    EXPECT_EQ(seen, line.grab().toImage());
    EXPECT_TRUE(line.text().endsWith(QChar(0x2026)));
    EXPECT_LE(line.minimumSizeHint().width(), line.sizeHint().width());
}

class PenTest : public ::testing::TestWithParam<bool>
{
};

/// As a line of that colour looks on its paper.
QColor Seen(const QColor& ink, const QColor& paper)
{
    const auto mixed = [&](float one, float other) {
        return one * ink.alphaF() + other * (1 - ink.alphaF());
    };
    return QColor::fromRgbF(mixed(ink.redF(), paper.redF()), mixed(ink.greenF(), paper.greenF()),
                            mixed(ink.blueF(), paper.blueF()));
}

TEST_P(PenTest, DrawsOlderReadingsWeakerAndStillInSight)
{
    const QColor paper = GetParam() ? QColor(0x1b, 0x1e, 0x20) : QColor(Qt::white);
    const PlotColours colours{paper, GetParam() ? Qt::white : Qt::black, {}};
    for (std::size_t number = 0; number < 16; ++number) {
        const auto older = PenOf({"", {}, false, {}}, number, colours);
        const auto newest = PenOf({"", {}, true, {}}, number, colours);
        EXPECT_GE(ContrastOf(Seen(older.color(), paper), paper), 3) << number;
        EXPECT_GE(ContrastOf(newest.color(), paper), 3.5) << number;
        EXPECT_GE(newest.widthF(), 1.8 * older.widthF());
    }
}

INSTANTIATE_TEST_SUITE_P(Paper, PenTest, ::testing::Bool());

} // namespace
} // namespace tarvex::survey
