#pragma once

#include "core/exchange_progress.h"
#include "panel/widgets/paint_pause.h"

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
    static constexpr int kMillisecondsBetweenPaints = PaintPause::kMillisecondsBetweenPaints;

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
    void ShowChanges();

    ExchangeProgress& progress_;
    // Since the changes were last shown.
    double leastShare_ = 0;
    double mostShare_ = 0;
    bool stallSeen_ = false;
    std::function<void()> changed_;
    PaintPause pause_;
};

} // namespace tarvex::panel
