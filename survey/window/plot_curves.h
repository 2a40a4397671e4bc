#pragma once

#include "survey/checks/verdict.h"
#include "survey/window/plot_page.h"

#include <vector>

namespace tarvex::survey
{

/// What all curves of a page depend on.
struct CurveChoice {
    PlotKind kind;
    char channel;
    const Survey* base;     ///< of the change; null for none
    const Verdict& verdict; ///< on the newest survey
    bool several;           ///< surveys: the legend says which
};

/// The curves of one survey; `strong` for the newest.
std::vector<Curve> CurvesOf(const CurveChoice& choice, const Survey& survey, bool strong);

} // namespace tarvex::survey
