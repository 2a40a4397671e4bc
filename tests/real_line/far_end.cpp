#include "real_line/far_end.h"

#include "unit/survey.h"

#include <chrono>
#include <utility>

namespace tarvex::tests
{

namespace
{

unit::Time Now()
{
    return std::chrono::duration_cast<unit::Time>(
        std::chrono::steady_clock::now().time_since_epoch());
}

} // namespace

FarEnd::FarEnd() : unit_(unit::DemoMemory()) {}

std::string FarEnd::Hear(std::string_view bytes)
{
    const std::scoped_lock lock(mutex_);
    std::string answers;
    for (const char byte : bytes) {
        heard_ += byte;
        std::string answer;
        for (const unit::Reply& reply : unit_.Feed({&byte, 1}, Now()))
            answer += reply.bytes;
        ActOn(answer);
        answers += answer;
    }
    return answers;
}

void FarEnd::ActOn(std::string& answer)
{
    if (act_ && unit_.CountOf(moment_) >= number_) std::exchange(act_, {})(answer);
}

void FarEnd::At(unit::Moment moment, int number, Act act)
{
    const std::scoped_lock lock(mutex_);
    moment_ = moment;
    number_ = unit_.CountOf(moment) + number;
    act_ = std::move(act);
}

std::string FarEnd::Heard() const
{
    const std::scoped_lock lock(mutex_);
    return heard_;
}

unit::Memory FarEnd::Memory() const
{
    const std::scoped_lock lock(mutex_);
    return unit_.StoredMemory();
}

} // namespace tarvex::tests
