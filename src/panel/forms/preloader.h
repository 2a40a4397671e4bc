#pragma once

#include "core/handlers.h"

#include <QTimer>
#include <QWidget>

#include <functional>

namespace tarvex::panel
{

/// The splash `preloader`: on view for one period of its `Timer1`, 2000 ms, and then gives way to
/// the main form. Nothing else closes it.
class Preloader : public QWidget
{
public:
    /// `next` shows the main form; run once, after this window is gone.
    Preloader(Handlers& handlers, std::function<void()> next);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void Build();
    void Load();
    void OnTimer();
    void Unload();

    Handlers& handlers_;
    std::function<void()> next_;
    QTimer* timer_;
};

} // namespace tarvex::panel
