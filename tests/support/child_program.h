#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include <sys/types.h>

namespace tarvex::tests
{

/// A program in a process of its own, spoken with by lines through its standard input and output,
/// and killed with its owner. Its waits have a limit far beyond what a healthy program needs;
/// reaching it counts as the end of the output.
class ChildProgram
{
public:
    /// What becomes of what it says on its standard error.
    enum class Errors { PassedOn, Dropped };

    /// Starts the first of the words, which is looked for as a shell does, with the others as its
    /// arguments. Throws std::runtime_error when it does not start.
    explicit ChildProgram(const std::vector<std::string>& words, Errors errors = Errors::PassedOn);
    ~ChildProgram();
    ChildProgram(const ChildProgram&) = delete;
    ChildProgram& operator=(const ChildProgram&) = delete;

    /// Puts a line to it. False when it reads no more.
    bool WriteLine(std::string_view line) const;

    /// The next line that it prints, without its end; nothing after the last, or when none comes
    /// within so many milliseconds.
    std::optional<std::string> ReadLine(int patience = kPatience);

    /// What it prints until its end.
    std::string RestOfOutput();

    void Signal(int number) const;

    /// Waits for the end; the exit status, or 128 and the number of the signal that ended it. A
    /// program that does not come to its end is killed.
    int ExitStatus();

    /// The number of the process.
    pid_t Process() const { return process_; }

    static constexpr int kPatience = 60'000; // milliseconds

private:
    bool Receive(int patience);

    pid_t process_ = -1;
    int socket_ = -1;
    std::string received_;
    bool ended_ = false;
};

} // namespace tarvex::tests
