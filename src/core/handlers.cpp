#include "core/handlers.h"

#include "core/failure_rule.h"

#include <exception>
#include <string>

namespace tarvex
{

namespace
{

/// Counts one more for as long as it lives.
class Counted
{
public:
    explicit Counted(int& count) : count_(count) { ++count_; }
    ~Counted() { --count_; }
    Counted(const Counted&) = delete;
    Counted& operator=(const Counted&) = delete;

private:
    int& count_;
};

} // namespace

void Handlers::Run(const std::function<void()>& handler)
{
    if (end_.Ended() || underWay_ >= kDeepest) return;
    const Counted counted(underWay_);
    LetFailuresGoUp rule;
    try {
        RunShowingFailure(handler);
    } catch (const ProgramEnded&) {
        // A handler that this one runs inside is ended by its own next pass of the pump.
    }
}

/// The box itself raises ProgramEnded when the program ends while the box is open. An exception of
/// the standard library is a failure like any other: it must not reach the toolkit, which would end
/// the program without a word.
void Handlers::RunShowingFailure(const std::function<void()>& handler)
{
    try {
        handler();
    } catch (const std::exception& failure) {
        messages_.Critical(std::string("Run-time error: ") + failure.what());
        end_.End(1);
    }
}

} // namespace tarvex
