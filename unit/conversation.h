#pragma once

#include "unit/frame_reader.h"
#include "unit/reply.h"

#include <string>

namespace tarvex::unit
{

/// A line of the conversation for what the unit heard: the seconds with six decimals, the speaker,
/// and the bytes escaped. A frame is shown with its CR; noise is marked as passed over.
std::string LineOf(const Heard& heard, Time at);

/// The same for what the unit did.
std::string LineOf(const Reply& reply, Time at);

} // namespace tarvex::unit
