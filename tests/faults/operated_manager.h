#pragma once

#include "program/operator.h"
#include "program/operator_steps.h"
#include "program/program.h"
#include "program/typed_name.h"
#include "support/ordinary_user.h"

#include <QSocketNotifier>

#include <optional>
#include <string>

namespace tarvex::tests
{

/// The program with an operator who is told what to do by lines from outside: the steps of
/// operator_steps.h, and
///
///     reports PATH        makes that the folder of the reports
///     file NAME           types that name into the next file dialog, when it comes
///     close               closes the panel
///     say NAME            says what a box holds, as "text ..."
///     disk BYTES          a disk that takes no more than so many bytes below the current folder
///     ordinary            the rights of an ordinary user from now on
///
/// A step that comes while another one waits is taken inside its wait. When a step has ended it
/// says "box ..." for each message box that has come and been answered, and "done".
class OperatedManager
{
public:
    OperatedManager();
    OperatedManager(const OperatedManager&) = delete;
    OperatedManager& operator=(const OperatedManager&) = delete;

    /// Takes a step that needs no window, before there is one. Throws when it does.
    void TakeEarly(const std::string& step);

    /// Shows the panel, takes steps from the standard input until the program ends or nobody is
    /// left to tell any, and gives the exit status.
    int Run();

private:
    void TakeWhatHasCome();
    void Take(const std::string& step);
    void Perform(const std::string& step);
    bool PerformOwn(const std::string& verb, const std::string& rest);

    Program program_;
    BoxWatcher boxes_;
    QSocketNotifier notifier_{0, QSocketNotifier::Read};
    std::optional<OperatorSteps> steps_;
    std::optional<OrdinaryUser> user_;
    std::optional<TypedName> file_;
    std::string received_;
};

} // namespace tarvex::tests
