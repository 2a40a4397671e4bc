#pragma once

#include <QApplication>

#include <functional>
#include <string>

namespace tarvex::platform
{

/// The toolkit's application, with the one door for what comes out of an event: a timer, a
/// notifier, a paint, a model, a delegate, an event filter. The toolkit itself cannot pass an
/// exception on, and would end the program without a word.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    using Report = std::function<void(const std::string& reason)>;

    /// `report` runs with the reason of the first failure, in an event of its own: what was at work
    /// when it came has been left by then. Without one an exception goes on into the toolkit.
    void OnFailure(Report report);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void Note(const std::string& reason);

    Report report_;
    bool failed_ = false;
};

} // namespace tarvex::platform
