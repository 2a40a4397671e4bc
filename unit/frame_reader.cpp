#include "unit/frame_reader.h"

#include <algorithm>
#include <string_view>
#include <utility>

namespace tarvex::unit
{

namespace
{
constexpr char kWake = '}';
constexpr char kEnd = '\r';
constexpr std::string_view kLetters = "abcCDGH";
constexpr std::size_t kHead = 6; // the letter and five address digits
constexpr std::size_t kLongest = 64;

/// Length without CR of the frames whose payload is free text; 0 for those that end at the first
/// CR.
std::size_t FixedLength(char letter)
{
    if (letter == 'C') return 50;
    return letter == 'D' ? 35 : 0;
}
} // namespace

std::vector<Heard> FrameReader::Take(char byte, Time now)
{
    const bool wakes = byte == kWake && !IsText(now);
    last_ = now;
    if (wakes) return Wake();
    if (state_ == State::InFrame) return Extend(byte);
    if (state_ == State::Awake && kLetters.find(byte) != std::string_view::npos)
        return StartFrame(byte);
    if (noise_.size() < kLongest) noise_ += byte;
    return {};
}

bool FrameReader::IsText(Time now) const
{
    return state_ == State::InFrame && frame_.size() >= kHead &&
           frame_.size() < FixedLength(frame_.front()) && now - last_ < kPause;
}

std::vector<Heard> FrameReader::Wake()
{
    noise_ += std::exchange(frame_, {});
    auto heard = TakeNoise();
    heard.push_back({Heard::Kind::Wake, std::string(1, kWake)});
    state_ = State::Awake;
    return heard;
}

std::vector<Heard> FrameReader::Extend(char byte)
{
    const auto fixed = FixedLength(frame_.front());
    const bool complete = fixed == 0 ? byte == kEnd : frame_.size() == fixed;
    if (complete && byte == kEnd) return Finish(true);
    frame_ += byte;
    return complete || frame_.size() > kLongest ? Finish(false) : std::vector<Heard>{};
}

std::vector<Heard> FrameReader::Finish(bool wellFormed)
{
    state_ = State::Asleep;
    const auto kind = wellFormed ? Heard::Kind::Frame : Heard::Kind::Noise;
    return {{kind, std::exchange(frame_, {})}};
}

std::vector<Heard> FrameReader::StartFrame(char byte)
{
    frame_ = byte;
    state_ = State::InFrame;
    return TakeNoise();
}

std::vector<Heard> FrameReader::TakeNoise()
{
    if (noise_.empty()) return {};
    return {{Heard::Kind::Noise, std::exchange(noise_, {})}};
}

} // namespace tarvex::unit
