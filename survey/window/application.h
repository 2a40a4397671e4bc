#pragma once

#include <QApplication>

#include <functional>
#include <string>

namespace tarvex::survey
{

/// The toolkit's application with a door for what fails in the handler of an event: a key, the
/// pointer, a timer, a paint, a drop. The toolkit cannot pass an exception on, and would end the
/// program with all that the operator has open.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    using Report = std::function<void(const std::string& sentence)>;

    /// `report` is given each failure as a sentence, in an event of its own; of those that come
    /// before it has run, the first.
    void OnFailure(Report report);

    /// Runs `work`, and reports what fails in it. False when something did.
    bool Try(const std::function<void()>& work);

    bool notify(QObject* receiver, QEvent* event) override;

private:
    void Note(const char* reason) noexcept;

    Report report_;
    bool waiting_ = false; // a report is on its way
};

} // namespace tarvex::survey
