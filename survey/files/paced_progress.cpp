#include "survey/files/paced_progress.h"

#include <utility>

namespace tarvex::survey
{

namespace
{
constexpr auto kPace = std::chrono::seconds(1);
} // namespace

Progress Paced(Progress report, Now now)
{
    auto due = now() + kPace;
    return [report = std::move(report), now = std::move(now), due](std::size_t count) mutable {
        const auto time = now();
        if (time < due) return;
        due = time + kPace;
        report(count);
    };
}

} // namespace tarvex::survey
