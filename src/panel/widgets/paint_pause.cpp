#include "panel/widgets/paint_pause.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QPointer>
#include <QTimer>

#include <utility>
#include <vector>

namespace tarvex::panel
{

/// When all widgets of the program that have changed show it.
class PaintPause::Moment : public QObject
{
public:
    static Moment& OfProgram()
    {
        static QPointer<Moment> moment;
        if (!moment) moment = new Moment;
        return *moment;
    }

    void Note(PaintPause& changed)
    {
        if (!std::exchange(changed.hasChanged_, true)) changed_.push_back(&changed);
        const bool isDue =
            !sinceShown_.isValid() || sinceShown_.hasExpired(kMillisecondsBetweenPaints);
        if (isDue && !std::exchange(isDue_, true)) {
            timer_.start(kMillisecondsAfterChange);
        } else if (!timer_.isActive()) {
            timer_.start(kMillisecondsBetweenPaints);
        }
    }

    void Forget(const PaintPause& gone) { std::erase(changed_, &gone); }

private:
    Moment() : QObject(QCoreApplication::instance())
    {
        timer_.setSingleShot(true);
        timer_.callOnTimeout([this] { ShowAll(); });
    }

    /// One at a time: what is shown may end another that waits. What it changes waits for the next.
    void ShowAll()
    {
        isDue_ = false;
        sinceShown_.start();
        for (auto left = changed_.size(); left > 0 && !changed_.empty(); --left) {
            PaintPause& first = *changed_.front();
            changed_.erase(changed_.begin());
            first.hasChanged_ = false;
            first.show_();
        }
    }

    QTimer timer_;
    QElapsedTimer sinceShown_;
    bool isDue_ = false;
    std::vector<PaintPause*> changed_; // in the order of their first change
};

PaintPause::~PaintPause()
{
    if (hasChanged_) Moment::OfProgram().Forget(*this);
}

void PaintPause::NoteChange()
{
    Moment::OfProgram().Note(*this);
}

} // namespace tarvex::panel
