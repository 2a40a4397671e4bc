#include "survey/window/application.h"

#include <QMetaObject>

#include <exception>
#include <new>
#include <utility>

namespace tarvex::survey
{

void Application::OnFailure(Report report)
{
    report_ = std::move(report);
}

bool Application::Try(const std::function<void()>& work)
{
    try {
        work();
        return true;
    } catch (const std::bad_alloc&) {
        Note("there is not enough memory");
    } catch (const std::exception& failure) {
        Note(failure.what());
    }
    return false;
}

bool Application::notify(QObject* receiver, QEvent* event)
{
    bool taken = false;
    return Try([&] { taken = QApplication::notify(receiver, event); }) && taken;
}

void Application::Note(const char* reason) noexcept
{
    try {
        if (waiting_ || !report_) return;
        const std::string sentence = std::string("This could not be done: ") + reason;
        waiting_ = QMetaObject::invokeMethod(
            this,
            [this, sentence] {
                waiting_ = false;
                report_(sentence);
            },
            Qt::QueuedConnection);
    } catch (const std::exception&) {
        // Not even the memory for the sentence is left: the window stays as it is.
    }
}

} // namespace tarvex::survey
