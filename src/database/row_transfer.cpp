#include "database/row_transfer.h"

#include "core/conversion.h"
#include "database/survey_fields.h"

#include <string>

namespace tarvex
{

namespace
{

constexpr std::string_view kInvalidDepth = "Attention: Invalid DEPTH value";
constexpr std::string_view kInvalidStep = "Attention: Invalid STEP value";
constexpr std::string_view kInvalidGuides = "Attention: Invalid GUIDES value";
constexpr std::string_view kInvalidNorth = "Attention: Invalid NORTH value";

constexpr double kDeepestAtHalfMetreSteps = 1000;
constexpr double kDeepestAtMetreSteps = 2000;
constexpr double kFullCircle = 360;

} // namespace

void RowTransfer::TakeTube()
{
    Attempt([&] { header_.cliente = TextOf(TubeText("cliente", 8)); });
    Attempt([&] { header_.cantiere = TextOf(TubeText("cantiere", 8)); });
    Attempt([&] { header_.tubo = TextOf(TubeText("tubo", 4)); });
}

std::string_view RowTransfer::TakeChecked()
{
    for (const auto check : {&RowTransfer::TakeDepth, &RowTransfer::TakeStep,
                             &RowTransfer::TakeGuides, &RowTransfer::TakeNorth}) {
        if (const std::string_view refusal = (this->*check)(); !refusal.empty()) return refusal;
    }
    return {};
}

void RowTransfer::TakeNextReading()
{
    for (int slot = 0; slot < kSlotCount; ++slot) {
        if (Holds([&] { return row_.Fields(SlotName(slot)).IsNull(); })) {
            header_.nlet = TwoDigits(slot);
            return;
        }
    }
}

Value RowTransfer::TubeText(std::string_view name, std::size_t width)
{
    return Capitals(Left(Join(row_.Fields(name), std::string(width, ' ')), width));
}

/// The limit goes by the step before the step itself has been checked.
std::string_view RowTransfer::TakeDepth()
{
    if (Holds([&] { return Less(Length(row_.Fields("profondità")), 4); })) return kInvalidDepth;
    Attempt([&] { header_.profondità = TextOf(row_.Fields("profondità")); });
    const double deepest = Holds([&] { return Equals(row_.Fields("passo"), 0); })
                               ? kDeepestAtHalfMetreSteps
                               : kDeepestAtMetreSteps;
    const auto tooDeep = [&] { return NumericValue(row_.Fields("profondità")) > deepest; };
    return Holds(tooDeep) ? kInvalidDepth : std::string_view();
}

std::string_view RowTransfer::TakeStep()
{
    if (!IsOneOf("passo", 0, 1)) return kInvalidStep;
    Attempt([&] { header_.passo = TextOf(row_.Fields("passo")); });
    return {};
}

std::string_view RowTransfer::TakeGuides()
{
    if (!IsOneOf("guide", 2, 4)) return kInvalidGuides;
    Attempt([&] { header_.guide = TextOf(row_.Fields("guide")); });
    return {};
}

/// Too far west passes: north has no lower bound.
std::string_view RowTransfer::TakeNorth()
{
    const auto signedNorth = [&] {
        const Value sign = Left(row_.Fields("nord"), 1);
        return Or(Equals(sign, "+"), Equals(sign, "-"));
    };
    if (!Holds(signedNorth)) return kInvalidNorth;
    Attempt([&] { header_.nord = TextOf(row_.Fields("nord")); });
    const auto inCircle = [&] { return NumericValue(row_.Fields("nord")) <= kFullCircle; };
    if (!Holds(inCircle)) return kInvalidNorth;
    // Again, in case the first one failed. The first is needed too: a north that is refused
    // here has reached the header.
    Attempt([&] { header_.nord = TextOf(row_.Fields("nord")); });
    return {};
}

bool RowTransfer::IsOneOf(std::string_view name, double first, double second)
{
    return Holds([&] {
        const Value value = row_.Fields(name);
        return Or(Equals(value, first), Equals(value, second));
    });
}

} // namespace tarvex
