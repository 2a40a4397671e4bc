#pragma once

#include "unit/reply.h"

#include <string>
#include <vector>

namespace tarvex::unit
{

/// What the unit makes of the bytes that reach it.
struct Heard {
    enum class Kind {
        Wake,  ///< the character "}"
        Frame, ///< a whole frame; `bytes` has its letter and payload, not its CR
        Noise, ///< bytes that belong to neither, which the unit passes over
    };
    Kind kind;
    std::string bytes;

    bool operator==(const Heard&) const = default;
};

/// Cuts the stream from the line into wakes and frames.
///
/// The unit listens for a frame only after a wake, and for one frame only. A frame starts with one
/// of the letters a, b, c, C, D, G, H and ends with CR. "}" is a wake wherever it comes, so a
/// broken frame never costs more than itself. Only inside the payload of a header or calibration
/// frame, whose text may hold any character, "}" and CR count as text while the characters follow
/// each other closely: those two frames end by their length.
class FrameReader
{
public:
    /// A pause after which "}" is a wake in any place. Frames leave the manager without pauses, and
    /// no wait of it after a frame is shorter than some 40 ms.
    static constexpr Time kPause{20'000};

    /// Takes one byte, and returns what it completes, in order.
    std::vector<Heard> Take(char byte, Time now);

    /// Forgets the last wake: the next frame needs one of its own.
    void Sleep() { state_ = State::Asleep; }

private:
    bool IsText(Time now) const;
    std::vector<Heard> Wake();
    std::vector<Heard> Extend(char byte);
    std::vector<Heard> Finish(bool wellFormed);
    std::vector<Heard> StartFrame(char byte);
    std::vector<Heard> TakeNoise();

    enum class State { Asleep, Awake, InFrame };
    State state_ = State::Asleep;
    std::string frame_;
    std::string noise_;
    Time last_{0};
};

} // namespace tarvex::unit
