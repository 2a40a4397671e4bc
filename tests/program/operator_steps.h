#pragma once

#include "program/operator.h"

#include <QPointer>

#include <string>

namespace tarvex::tests
{

/// An operator who is told what to do by lines of text:
///
///     click NAME          presses a button
///     type NAME TEXT      types over what a box holds
///     tab N               shows that tab
///     service ENTRY       chooses an entry of the service list
///     folder              chooses the folder of the reports
///     form NAME           goes to that window, for the steps that follow
class OperatorSteps
{
public:
    /// `panel` is the main form, where the operator begins.
    explicit OperatorSteps(QWidget* panel) : panel_(panel), form_(panel) {}

    /// Takes a step, and returns when what it set off has ended. Throws when there is no such step,
    /// or nothing to take it at.
    void Take(const std::string& step);

private:
    Operator AtForm() const;
    void ChooseFolder() const;

    QWidget* panel_;
    QPointer<QWidget> form_;
};

} // namespace tarvex::tests
