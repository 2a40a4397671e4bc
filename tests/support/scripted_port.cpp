#include "support/scripted_port.h"

#include "core/failure.h"

#include <utility>

namespace tarvex::tests
{

void ScriptedPort::Receive(std::string_view bytes)
{
    if (open_ && !vanished) received_ += bytes;
}

void ScriptedPort::SetCommPort(int number)
{
    if (open_) throw RunTimeFailure("Port is open");
    port_ = number;
    if (keepsHistory) history.push_back("port " + std::to_string(number));
}

void ScriptedPort::Open()
{
    if (open_) throw RunTimeFailure("Port already open");
    if (vanished || refused.contains(port_)) throw RunTimeFailure("No such port");
    open_ = true;
    openedPort_ = port_;
    received_.clear();
    if (keepsHistory) history.emplace_back("open");
}

void ScriptedPort::Close()
{
    if (open_ && keepsHistory) history.emplace_back("close");
    open_ = false;
    received_.clear();
}

void ScriptedPort::Output(std::string_view bytes)
{
    RequireOpen();
    if (keepsHistory) {
        sent.emplace_back(bytes);
        history.push_back("> " + std::string(bytes));
    }
    if (unit && !vanished) unit(bytes);
}

int ScriptedPort::InBufferCount()
{
    RequireOpen();
    return static_cast<int>(received_.size());
}

std::string ScriptedPort::Input()
{
    RequireOpen();
    if (keepsHistory) history.push_back("< " + received_);
    return std::exchange(received_, {});
}

void ScriptedPort::RequireOpen() const
{
    if (!open_) throw RunTimeFailure("Port not open");
}

} // namespace tarvex::tests
