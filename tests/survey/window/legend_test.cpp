#include "survey/window/plot_view.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <QTest>

namespace tarvex::survey
{
namespace
{

using ::testing::EndsWith;
using ::testing::HasSubstr;

/// One channel of readings of four guides, one over the other.
PlotHalf HalfOf(char channel, const std::vector<std::string>& columns)
{
    PlotHalf half{std::string(1, channel) + ": half differences, counts", {}, std::nullopt};
    for (const char* const readout : {"03", "04"})
        for (const auto& column : columns)
            half.curves.push_back(
                {column + ", readout " + readout, {{10, -250}, {200, 250}}, true, {}});
    return half;
}

/// The plots of those, in texts of that size, as wide as a small screen leaves them.
class LegendTest : public ::testing::TestWithParam<double>
{
protected:
    LegendTest()
    {
        auto font = plot_.font();
        font.setPointSizeF(GetParam());
        plot_.setFont(font);
    }

    void Show(int width, const std::vector<std::string>& columns)
    {
        plot_.resize(width, 200);
        plot_.show();
        plot_.Show({HalfOf('A', columns), HalfOf('B', columns)});
        plot_.resize(plot_.size().expandedTo(plot_.minimumSize()));
        plot_.replot();
    }

    std::vector<QCPPlottableLegendItem*> Items()
    {
        std::vector<QCPPlottableLegendItem*> items;
        for (auto* const element : plot_.plotLayout()->elements(true))
            if (auto* const item = qobject_cast<QCPPlottableLegendItem*>(element))
                items.push_back(item);
        return items;
    }

    void ExpectAllInSight()
    {
        EXPECT_FALSE(Items().empty());
        for (auto* const item : Items()) {
            const auto name = item->plottable()->name().toStdString();
            const auto needed = static_cast<QCPLayoutElement*>(item)->minimumOuterSizeHint();
            EXPECT_GE(item->rect().width(), needed.width()) << name;
            EXPECT_GE(item->rect().height(), needed.height()) << name;
            EXPECT_THAT(name, ::testing::AnyOf(EndsWith("03"), EndsWith("04")));
        }
        for (auto* const rect : plot_.axisRects())
            EXPECT_GE(rect->height(), 4 * plot_.fontMetrics().height());
    }

    PlotView plot_;
};

TEST_P(LegendTest, ShowsTheReadoutsOfFourGuidesWhereThereIsLittleRoom)
{
    Show(420, {"A1", "A3", "A2", "A4"});
    ExpectAllInSight();
}

TEST_P(LegendTest, ShowsTheReadoutsOfHalfDifferencesWhereThereIsLittleRoom)
{
    Show(420, {"(A1-A3)/2", "(A2-A4)/2"});
    ExpectAllInSight();
}

TEST_P(LegendTest, ShowsThemWhereThePlotsAreMadeNarrower)
{
    Show(1600, {"A1", "A3", "A2", "A4"});
    plot_.resize(420, 600);
    plot_.resize(plot_.size().expandedTo(plot_.minimumSize()));
    plot_.replot();
    ExpectAllInSight();
}

TEST_P(LegendTest, NamesTheReadoutsInFullWhereThereIsRoom)
{
    Show(420, {"A1", "A3"});
    plot_.resize(2000, 600);
    plot_.replot();
    for (auto* const item : Items())
        EXPECT_THAT(item->plottable()->name().toStdString(), HasSubstr(", readout 0"));
}

TEST_P(LegendTest, KeepsTheTitlesOfTheTwoPlotsApart)
{
    Show(420, {"A1", "A3"});
    for (int i = 0; i < 2; ++i) {
        const auto* const rect = plot_.axisRect(i);
        const auto* const values = rect->axis(QCPAxis::atBottom);
        const int title = QFontMetrics(values->labelFont()).horizontalAdvance(values->label());
        EXPECT_LE(rect->center().x() + title / 2, plot_.width() / 2 * (i + 1));
        EXPECT_GE(rect->center().x() - title / 2, plot_.width() / 2 * i);
        EXPECT_THAT(values->label().toStdString(), HasSubstr(": half"));
    }
}

INSTANTIATE_TEST_SUITE_P(TextSizes, LegendTest, ::testing::Values(11, 22));

} // namespace
} // namespace tarvex::survey
