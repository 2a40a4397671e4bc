#pragma once

#include "faults/sandbox.h"
#include "support/child_program.h"

#include <chrono>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace tarvex::tests
{

/// How a manager is started: with what in front of it, and steps before its panel is there. Another
/// program than the operated one takes no steps.
struct ManagerStart {
    std::string program = TARVEX_OPERATED_MANAGER;
    std::vector<std::string> wrapper = {};
    std::vector<std::string> steps = {};
};

/// The whole program in a process of its own, at the desk of a sandbox, with an operator who takes
/// steps as in operated_manager.h.
class Manager
{
public:
    /// Starts it, up to its panel. Throws when that does not come.
    explicit Manager(const Sandbox& desk, const ManagerStart& start = {});

    /// As above, without the wait for the panel.
    struct Unawaited {
    };
    Manager(const Sandbox& desk, Unawaited, const ManagerStart& start = {});

    /// Takes a step to its end, and gives the texts of the message boxes that came. Throws when it
    /// does not end.
    std::vector<std::string> Do(const std::string& step);

    /// All of them, one after the other.
    void DoAll(const std::vector<std::string>& steps);

    /// Begins a step.
    void Begin(const std::string& step) { program_.WriteLine(step); }

    /// Whether the step begun ends within so many milliseconds.
    bool Ends(int patience);

    /// What a box of the panel holds.
    std::string Text(const std::string& box);

    /// What a kill leaves it. Where that came before the number was in the port's lock file, the
    /// port is free again after this.
    void Kill();

    /// Closes the panel, also inside a wait, and gives the exit status.
    int Close();

    /// The number of the process.
    pid_t Process() const { return program_.Process(); }

private:
    std::filesystem::path port_;
    ChildProgram program_;
};

/// How long a step takes to its end.
std::chrono::microseconds TimeOf(Manager& manager, const std::string& step);

} // namespace tarvex::tests
