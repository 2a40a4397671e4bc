#include "database/criterion.h"

#include "core/failure.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kBetween = "' and ";
constexpr std::string_view kEquals = "] = '";

/// Takes a condition's head, e.g. "[tubo] = '", off the front of `rest` and gives its field; gives
/// an empty name and leaves `rest` when there is none.
std::string_view TakeHead(std::string_view& rest)
{
    if (!rest.starts_with('[')) return {};
    const std::size_t end = rest.find_first_of("[]'", 1);
    if (end == std::string_view::npos || !rest.substr(end).starts_with(kEquals)) return {};
    const std::string_view field = rest.substr(1, end - 1);
    rest.remove_prefix(end + kEquals.size());
    return field;
}

/// Where the quoted text at the front of `rest` ends: at an apostrophe that the next condition or
/// the end follows.
std::size_t EndOfText(std::string_view rest)
{
    std::size_t end = rest.find(kBetween);
    while (end != std::string_view::npos) {
        std::string_view next = rest.substr(end + kBetween.size());
        if (!TakeHead(next).empty()) return end;
        end = rest.find(kBetween, end + 1);
    }
    if (!rest.ends_with('\'')) throw RunTimeFailure("Syntax error in criterion");
    return rest.size() - 1;
}

} // namespace

std::string MakeCriterion(const std::vector<Condition>& conditions)
{
    std::string criterion;
    for (const Condition& condition : conditions) {
        if (!criterion.empty()) criterion += kBetween.substr(1);
        criterion += "[" + condition.field + std::string(kEquals) + condition.text + "'";
    }
    return criterion;
}

std::vector<Condition> ParseCriterion(std::string_view criterion)
{
    std::vector<Condition> conditions;
    std::string_view rest = criterion;
    while (!rest.empty()) {
        const std::string_view field = TakeHead(rest);
        if (field.empty()) throw RunTimeFailure("Syntax error in criterion");
        const std::size_t end = EndOfText(rest);
        conditions.push_back({std::string(field), std::string(rest.substr(0, end))});
        rest.remove_prefix(end + 1 == rest.size() ? rest.size() : end + kBetween.size());
    }
    return conditions;
}

std::string TubeCriterion(const BlockHeader& header)
{
    return MakeCriterion({{"cliente", header.cliente.Text()},
                          {"cantiere", header.cantiere.Text()},
                          {"Tubo", header.tubo.Text()}});
}

} // namespace tarvex
