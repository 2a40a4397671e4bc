#include "line/conversation_cost.h"

#include <algorithm>
#include <cmath>

namespace tarvex::bench
{

namespace
{

double Seconds(unit::Time time)
{
    return std::chrono::duration<double>(time).count();
}

bool IsWake(const unit::LogLine& line)
{
    return line.speaker == unit::Speaker::Manager && line.bytes == "}";
}

} // namespace

ConversationCost CostOf(const std::vector<unit::LogLine>& log)
{
    std::vector<double> wakes;
    double last = 0;
    for (const unit::LogLine& line : log) {
        if (IsWake(line)) wakes.push_back(Seconds(line.at));
        if (line.speaker == unit::Speaker::Unit) last = Seconds(line.at);
    }
    ConversationCost cost;
    cost.exchanges = wakes.size();
    if (wakes.empty()) return cost;
    cost.seconds = last - wakes.front() + kCharacter;
    for (std::size_t next = 1; next < wakes.size(); ++next)
        cost.extraLatency.push_back(wakes[next] - wakes[next - 1] - kExchangeLength * kCharacter);
    return cost;
}

double Quantile(std::vector<double> values, double share)
{
    if (values.empty()) return 0;
    std::ranges::sort(values);
    const auto rank = std::ceil(share * static_cast<double>(values.size()));
    return values[static_cast<std::size_t>(std::max(rank, 1.0)) - 1];
}

double Median(std::vector<double> values)
{
    return Quantile(std::move(values), 0.5);
}

} // namespace tarvex::bench
