#pragma once

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarvex::unit
{

/// What to throw for a text that is no filling.
std::invalid_argument FillRefusal(const std::string& reason);

/// A whole number of decimal digits alone.
std::optional<std::uint32_t> WholeNumber(std::string_view text);

/// Tenths of a metre from metres; refusals name the setting.
std::uint32_t Tenths(std::string_view name, std::string_view metres);

/// Four digits of tenths from metres.
std::string DepthText(std::string_view metres);

/// The unit's code for a step of 0.5 or 1 m.
std::string StepCode(std::string_view metres);

/// The number of guides, 2 or 4.
std::string Guides(std::string_view count);

/// The seed of a survey.
std::uint32_t Seed(std::string_view text);

/// A whole number up to `most`; refusals name the setting.
int Amount(std::string_view name, std::string_view text, std::uint32_t most);

} // namespace tarvex::unit
