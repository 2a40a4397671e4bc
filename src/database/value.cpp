#include "database/value.h"

#include "core/code_page.h"
#include "core/conversion.h"
#include "core/failure.h"

#include <algorithm>
#include <optional>

namespace tarvex
{

namespace
{

Truth Known(bool truth)
{
    return truth ? Truth::True : Truth::False;
}

std::string_view WithoutBlanksAround(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) return {};
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

bool IsNumberThroughout(std::string_view text)
{
    if (!text.empty() && (text.front() == '+' || text.front() == '-')) text.remove_prefix(1);
    const auto points = std::count(text.begin(), text.end(), '.');
    const auto digits = std::count_if(text.begin(), text.end(), [](char character) {
        return character >= '0' && character <= '9';
    });
    return digits > 0 && points <= 1 && static_cast<std::size_t>(digits + points) == text.size();
}

/// What a comparison with a number compares; empty for a text that is none.
std::optional<double> Comparable(const Value& value)
{
    if (const double* number = value.Number()) return *number;
    const std::string_view text = WithoutBlanksAround(*value.Text());
    if (!IsNumberThroughout(text)) return std::nullopt;
    return NumericValue(text);
}

template <class Compare>
Truth CompareNumbers(const Value& value, double number, Compare compare)
{
    if (value.IsNull()) return Truth::Unknown;
    const std::optional<double> comparable = Comparable(value);
    return Known(comparable.has_value() && compare(*comparable, number));
}

template <class Change>
Value ChangeText(const Value& value, Change change)
{
    return value.IsNull() ? Value() : Value(change(TextOf(value)));
}

} // namespace

Truth Not(Truth truth)
{
    return truth == Truth::Unknown ? truth : Known(truth == Truth::False);
}

Truth Or(Truth left, Truth right)
{
    if (left == Truth::True || right == Truth::True) return Truth::True;
    return left == Truth::Unknown ? left : right;
}

Truth Equals(const Value& value, double number)
{
    return CompareNumbers(value, number, [](double left, double right) { return left == right; });
}

Truth Equals(const Value& value, std::string_view text)
{
    return value.IsNull() ? Truth::Unknown : Known(TextOf(value) == text);
}

Truth Less(const Value& value, double number)
{
    return CompareNumbers(value, number, [](double left, double right) { return left < right; });
}

Truth Greater(const Value& value, double number)
{
    return CompareNumbers(value, number, [](double left, double right) { return left > right; });
}

Value Join(const Value& left, const Value& right)
{
    return left.IsNull() || right.IsNull() ? Value() : Value(TextOf(left) + TextOf(right));
}

Value Left(const Value& value, std::size_t count)
{
    return Middle(value, 1, count);
}

Value Middle(const Value& value, std::size_t first, std::size_t count)
{
    return ChangeText(value, [&](const std::string& text) {
        return tarvex::Middle(std::string_view(text), first, count);
    });
}

Value Capitals(const Value& value)
{
    return ChangeText(value, [](const std::string& text) { return code_page::Capitals(text); });
}

Value Length(const Value& value)
{
    return ChangeText(value, [](const std::string& text) { return double(text.size()); });
}

std::string TextOf(const Value& value)
{
    if (const std::string* text = value.Text()) return *text;
    if (const double* number = value.Number()) return PlainNumber(*number);
    throw RunTimeFailure("Invalid use of Null");
}

double NumericValue(const Value& value)
{
    if (const double* number = value.Number()) return *number;
    return NumericValue(std::string_view(TextOf(value)));
}

} // namespace tarvex
