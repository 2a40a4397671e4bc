#include "faults/operated_manager.h"

#include "faults/full_disk.h"

#include <QCoreApplication>

#include <array>
#include <iostream>
#include <stdexcept>
#include <unistd.h>
#include <utility>

namespace tarvex::tests
{

namespace
{

std::filesystem::path CurrentFolder()
{
    std::error_code gone; // as the program itself begins
    return std::filesystem::current_path(gone);
}

} // namespace

OperatedManager::OperatedManager() : program_(CurrentFolder(), CurrentFolder())
{
    QObject::connect(&notifier_, &QSocketNotifier::activated, [this] { TakeWhatHasCome(); });
}

void OperatedManager::TakeEarly(const std::string& step)
{
    const auto blank = step.find(' ');
    if (!PerformOwn(step.substr(0, blank), step.substr(blank + 1)))
        throw std::invalid_argument("no step for before the panel: " + step);
}

int OperatedManager::Run()
{
    program_.ShowMainForm();
    QWidget* const panel = program_.MainForm();
    panel->activateWindow();
    if (!WaitFor([panel] { return panel->isActiveWindow(); }))
        throw std::runtime_error("the panel does not become active");
    steps_.emplace(panel);
    std::cout << "ready" << std::endl;
    return QCoreApplication::exec();
}

void OperatedManager::TakeWhatHasCome()
{
    std::array<char, 4096> bytes{};
    const ssize_t count = ::read(STDIN_FILENO, bytes.data(), bytes.size());
    if (count <= 0) return QCoreApplication::exit(2);
    received_.append(bytes.data(), static_cast<std::size_t>(count));
    for (auto end = received_.find('\n'); end != std::string::npos; end = received_.find('\n')) {
        const std::string step = received_.substr(0, end);
        received_.erase(0, end + 1);
        Take(step);
    }
}

void OperatedManager::Take(const std::string& step)
{
    try {
        Perform(step);
    } catch (const std::logic_error& nothingThere) {
        std::cout << "failed " << nothingThere.what() << std::endl;
    } catch (const std::runtime_error& noSuchStep) {
        std::cout << "failed " << noSuchStep.what() << std::endl;
    }
    for (const QString& text : std::exchange(boxes_.texts, {}))
        std::cout << "box " << text.toStdString() << '\n';
    std::cout << "done" << std::endl;
}

void OperatedManager::Perform(const std::string& step)
{
    const auto blank = step.find(' ');
    const std::string verb = step.substr(0, blank);
    const std::string rest = blank == std::string::npos ? "" : step.substr(blank + 1);
    if (verb == "close") {
        program_.MainForm()->close();
    } else if (verb == "say") {
        const QString text = Operator(program_.MainForm()).Text(rest.c_str());
        std::cout << "text " << text.toStdString() << '\n';
    } else if (!PerformOwn(verb, rest)) {
        steps_->Take(step);
    }
}

bool OperatedManager::PerformOwn(const std::string& verb, const std::string& rest)
{
    if (verb == "disk") {
        LimitDisk(CurrentFolder().parent_path(), std::stoull(rest));
    } else if (verb == "ordinary") {
        user_.emplace();
    } else if (verb == "file") {
        file_.emplace(QString::fromStdString(rest));
    } else if (verb == "reports") {
        program_.State().reportFolder = rest;
        program_.PanelModel().downloadButton.Enable();
    } else {
        return false;
    }
    return true;
}

} // namespace tarvex::tests
