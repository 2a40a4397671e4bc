#pragma once

#include "survey/checks/check_limits.h"
#include "survey/figures/series.h"
#include "survey/model/survey.h"

#include <array>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace tarvex::survey
{

/// What a page of plots shows along the tube.
enum class PlotKind { Readings, HalfDifferences, Sums, Change };

struct PlotKindName {
    PlotKind kind;
    const char* name;
};

inline constexpr std::array<PlotKindName, 4> kPlotKinds{
    {{PlotKind::Readings, "Readings"},
     {PlotKind::HalfDifferences, "Half differences"},
     {PlotKind::Sums, "Sums"},
     {PlotKind::Change, "Change"}}};

/// One line of a plot.
struct Curve {
    std::string name; ///< for the legend, UTF-8
    Series points;
    bool strong = true;      ///< of the newest survey
    std::vector<int> marked; ///< depths to be marked as out
};

/// The plot of one channel.
struct PlotHalf {
    std::string title;
    std::vector<Curve> curves;
    /// Between these values the newest survey's sums are good.
    std::optional<std::pair<double, double>> limits;
};

/// Both channels of one kind, to be drawn side by side.
struct PlotPage {
    PlotHalf a;
    PlotHalf b;
};

/// Surveys over each other, the newest last and strongest; `base` is what the change is held
/// against, null for none. The change needs a base of the same tube; without one the page is empty.
PlotPage PageOf(PlotKind kind, const std::vector<const Survey*>& surveys, const Survey* base,
                const Limits& limits);

} // namespace tarvex::survey
