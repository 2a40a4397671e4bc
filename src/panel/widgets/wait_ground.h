#pragma once

#include "core/exchange_progress.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarvex::panel
{

/// The ground of the wait indicator: a calm strip that is seen at once, and fills from the left as
/// the exchange goes on. One that has stalled is hatched where it is empty and has a broken, heavy
/// border. It keeps its room while it is hidden.
class WaitGround final : public QWidget
{
public:
    /// It is painted anew at most this often, however fast the exchange goes on.
    static constexpr int kMillisecondsBetweenPaints = 250;

    /// Shows `progress`, which must outlive it, as its only watcher. Shown or hidden, it takes the
    /// room that its layout gives it.
    WaitGround(ExchangeProgress& progress, QWidget* parent);
    ~WaitGround() override;

    const ExchangeProgress& Progress() const { return progress_; }

    /// Runs `changed` at every change of the progress, at once; also for what is not yet painted.
    void OnChange(std::function<void()> changed) { changed_ = std::move(changed); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void TakeChange();
    void PaintSoon();

    ExchangeProgress& progress_;
    std::function<void()> changed_;
    QTimer pause_;      // since the last painting
    bool late_ = false; // a change waits for the pause to end
};

} // namespace tarvex::panel
