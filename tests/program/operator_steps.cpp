#include "program/operator_steps.h"

#include <sstream>
#include <stdexcept>

namespace tarvex::tests
{

void OperatorSteps::Take(const std::string& step)
{
    std::istringstream words(step);
    std::string verb;
    std::string name;
    std::string text;
    words >> verb >> name;
    std::getline(words >> std::ws, text);
    if (verb == "click") return AtForm().Click(name.c_str());
    if (verb == "type") return AtForm().Type(name.c_str(), QString::fromStdString(text));
    if (verb == "tab") return AtForm().ShowTab(std::stoi(name));
    if (verb == "service")
        return Operator(panel_).ChooseService(
            QString::fromStdString(name + (text.empty() ? "" : " ") + text));
    if (verb == "folder") return ChooseFolder();
    if (verb != "form") throw std::runtime_error("no such step: " + step);
    form_ = ShownForm(name.c_str());
}

Operator OperatorSteps::AtForm() const
{
    if (form_.isNull()) throw std::runtime_error("the window of these steps is closed");
    return Operator(form_);
}

void OperatorSteps::ChooseFolder() const
{
    Operator(panel_).Click("Command10");
    QWidget* chooser = ShownForm("Form6");
    const auto isReady = [chooser] {
        return chooser->findChild<QAbstractButton*>("command3d1")->isEnabled();
    };
    if (!WaitFor(isReady)) throw std::runtime_error("the folder cannot be chosen");
    Operator(chooser).Click("command3d1");
}

} // namespace tarvex::tests
