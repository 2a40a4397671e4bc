#include "survey/checks/checks.h"
#include "survey/checks/runs.h"

namespace tarvex::survey
{

namespace
{
struct Guide {
    Column a;
    Column b;
    char number;
};

constexpr std::array<Guide, 4> kGuides{{{Column::A1, Column::B1, '1'},
                                        {Column::A3, Column::B3, '3'},
                                        {Column::A2, Column::B2, '2'},
                                        {Column::A4, Column::B4, '4'}}};

bool Same(const Row& one, const Row& other, Column column)
{
    return one.At(column) && one.At(column) == other.At(column);
}

void CheckChannel(const CheckedSurvey& checked, Column column, const std::vector<Run>& reported)
{
    const std::string name(kColumnNames[static_cast<std::size_t>(column)]);
    const auto runs =
        Runs(checked.survey.rows, checked.step, checked.limits.frozenChannel,
             [&](const Row& one, const Row& other) { return Same(one, other, column); });
    for (const auto& run : runs)
        if (!Covers(reported, run))
            checked.Report({"frozen", Remedy::ReadAgain, name.substr(0, 1), run,
                            name + " is the same over " + std::to_string(run.size()) + " depths"});
}
} // namespace

void CheckFrozen(const CheckedSurvey& checked)
{
    for (std::size_t i = 0; i < ColumnsOf(checked.survey) / 2; ++i) {
        const auto& guide = kGuides[i];
        const auto runs = Runs(checked.survey.rows, checked.step, checked.limits.frozenGuide,
                               [&](const Row& one, const Row& other) {
                                   return Same(one, other, guide.a) && Same(one, other, guide.b);
                               });
        for (const auto& run : runs)
            checked.Report({"frozen", Remedy::ReadAgain, "AB", run,
                            std::string("A and B of guide ") + guide.number +
                                " are the same over " + std::to_string(run.size()) + " depths"});
        CheckChannel(checked, guide.a, runs);
        CheckChannel(checked, guide.b, runs);
    }
}

} // namespace tarvex::survey
