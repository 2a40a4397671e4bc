#pragma once

#include "core/fixed_text.h"

#include <string>
#include <string_view>
#include <variant>

namespace tarvex
{

/// What one field of a survey row holds: nothing (Null), a number, or a text of single bytes. Null
/// goes through every operation below that can carry it; one that cannot fails.
class Value
{
public:
    /// Null.
    Value() = default;

    Value(double number) : content_(number) {}
    Value(std::string text) : content_(std::move(text)) {}
    Value(std::string_view text) : content_(std::string(text)) {}
    Value(const char* text) : content_(std::string(text)) {}

    template <std::size_t Width>
    Value(const FixedText<Width>& text) : content_(text.Text())
    {
    }

    /// True when it is neither a number nor a text.
    bool IsNull() const { return std::holds_alternative<std::monostate>(content_); }

    /// The number, or nullptr when it is a text or Null.
    const double* Number() const { return std::get_if<double>(&content_); }

    /// The text, or nullptr when it is a number or Null.
    const std::string* Text() const { return std::get_if<std::string>(&content_); }

    /// True when both hold the very same thing: a number is no text, and Null is Null. What a
    /// handler compares goes through Equals instead.
    friend bool operator==(const Value&, const Value&) = default;

private:
    std::variant<std::monostate, double, std::string> content_;
};

/// The outcome of a comparison: unknown when one side is Null.
enum class Truth { False, True, Unknown };

/// A test that comes out unknown counts as false.
constexpr bool CountsAsTrue(Truth truth)
{
    return truth == Truth::True;
}

/// Unknown stays unknown.
Truth Not(Truth truth);

/// True when one side is true, even beside an unknown one.
Truth Or(Truth left, Truth right);

/// A number and a text that reads as one throughout, blanks around it allowed, are compared by
/// value; any other text equals no number.
Truth Equals(const Value& value, double number);

/// Byte by byte; a number is compared in its plain form.
Truth Equals(const Value& value, std::string_view text);

/// False for a text that is no number throughout.
Truth Less(const Value& value, double number);

/// As Less.
Truth Greater(const Value& value, double number);

/// Both texts in one; Null when one of them is.
Value Join(const Value& left, const Value& right);

/// The first `count` characters, or all of it; Null of Null.
Value Left(const Value& value, std::size_t count);

/// `count` characters from position `first` (from 1), as far as there are any; Null of Null.
Value Middle(const Value& value, std::size_t first, std::size_t count);

/// Every letter as its capital; Null of Null.
Value Capitals(const Value& value);

/// The number of characters; Null of Null.
Value Length(const Value& value);

/// The text, or the plain form of a number. Fails on Null.
std::string TextOf(const Value& value);

/// The number, or the one at the start of a text, 0 without one. Fails on Null.
double NumericValue(const Value& value);

} // namespace tarvex
