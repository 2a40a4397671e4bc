#include "survey/checks/runs.h"

#include <algorithm>
#include <cstddef>

namespace tarvex::survey
{

std::vector<Run> Runs(const std::vector<Row>& rows, int step, double length,
                      const std::function<bool(const Row&, const Row&)>& same)
{
    std::vector<Run> runs;
    Run run;
    const auto close = [&] {
        if (run.size() > 1 && static_cast<double>(run.size()) >= length) runs.push_back(run);
        run.clear();
    };
    for (std::size_t i = 0; i < rows.size(); ++i) {
        if (i > 0 && (rows[i].depth != rows[i - 1].depth + step || !same(rows[i - 1], rows[i])))
            close();
        run.push_back(rows[i].depth);
    }
    close();
    return runs;
}

bool Covers(const std::vector<Run>& runs, const Run& run)
{
    return std::ranges::any_of(runs,
                               [&](const Run& other) { return std::ranges::includes(other, run); });
}

} // namespace tarvex::survey
