#include "link/exchange_watch.h"

#include <utility>

namespace tarvex
{

namespace
{
constexpr int kTicksToStall = 30;
} // namespace

ExchangeWatch::~ExchangeWatch()
{
    ShowEnded();
    if (begun_) progress_->End();
}

void ExchangeWatch::Expect(int exchanges)
{
    if (progress_ == nullptr) return;
    ShowEnded(); // of those expected before
    if (std::exchange(begun_, true)) {
        progress_->Expect(exchanges);
    } else {
        progress_->Begin(exchanges);
    }
}

/// The tick goes back when a wait begins; when a nested command has begun an exchange of its own,
/// which the unit heard of; and after its last value, which a wait that has stalled long before
/// does not notice.
void ExchangeWatch::Look(int received, int tick)
{
    const bool heard = received > received_;
    received_ = received;
    if (heard || tick < heardAt_) heardAt_ = tick;
    if (heard) SetStalled(false);
    if (tick - heardAt_ >= kTicksToStall) SetStalled(true);
}

void ExchangeWatch::EndExchange()
{
    hasEnded_ = std::exchange(frameIsOut_, false);
}

void ExchangeWatch::ShowEnded()
{
    if (std::exchange(hasEnded_, false) && begun_) progress_->CountExchange();
}

void ExchangeWatch::SetStalled(bool stalled)
{
    if (begun_) progress_->SetStalled(stalled);
}

} // namespace tarvex
