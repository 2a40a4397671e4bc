#include "core/exchange_progress.h"

#include <algorithm>

namespace tarvex
{

double ExchangeCount::Share() const
{
    return expected > 0 ? std::min(1.0, static_cast<double>(done) / expected) : 0;
}

void ExchangeProgress::Begin(int exchanges)
{
    underWay_.push_back({.expected = exchanges});
    Show(underWay_.back());
}

void ExchangeProgress::Expect(int exchanges)
{
    underWay_.back().expected = exchanges;
    Show(underWay_.back());
}

void ExchangeProgress::CountExchange()
{
    ++underWay_.back().done;
    Show(underWay_.back());
}

void ExchangeProgress::SetStalled(bool stalled)
{
    underWay_.back().stalled = stalled;
    Show(underWay_.back());
}

void ExchangeProgress::End()
{
    ExchangeCount ended = underWay_.back();
    underWay_.pop_back();
    ExchangeCount& goesOn = underWay_.empty() ? ended : underWay_.back();
    goesOn.stalled = false;
    Show(goesOn);
}

void ExchangeProgress::Show(const ExchangeCount& count)
{
    if (shown_ == count) return;
    shown_ = count;
    Changed();
}

} // namespace tarvex
