#include "database/write_headers.h"

#include "core/conversion.h"
#include "database/survey_fields.h"

#include <cmath>

namespace tarvex
{

namespace
{

constexpr std::string_view kIncorrectBlock = "Attention: Block no. is incorect";
constexpr std::string_view kInvalidDepth = "Attention: Invalid DEPTH value";
constexpr std::string_view kInvalidStep = "Attention: Invalid STEP value";
constexpr std::string_view kInvalidGuides = "Attention: Invalid GUIDES value";
constexpr std::string_view kInvalidNorth = "Attention: Invalid NORTH value";

constexpr double kRefusedBlock = kBlockCount; // the last block is never written from here
constexpr double kDeepestAtHalfMetreSteps = 1000;
constexpr double kDeepestAtMetreSteps = 2000;
constexpr double kFullCircle = 360;

/// One marked row on its way into the working header. The checks give the box that stops the walk,
/// or an empty text.
class RowTransfer
{
public:
    RowTransfer(SurveyHandle& row, BlockHeader& header) : row_(row), header_(header) {}

    /// Client, site and tube reach the header whatever becomes of the checks. Null fits no field of
    /// fixed width: it leaves the field as it was.
    void TakeTube()
    {
        Attempt([&] { header_.cliente = TextOf(TubeText("cliente", 8)); });
        Attempt([&] { header_.cantiere = TextOf(TubeText("cantiere", 8)); });
        Attempt([&] { header_.tubo = TextOf(TubeText("tubo", 4)); });
    }

    std::string_view TakeChecked()
    {
        for (const auto check : {&RowTransfer::TakeDepth, &RowTransfer::TakeStep,
                                 &RowTransfer::TakeGuides, &RowTransfer::TakeNorth}) {
            if (const std::string_view refusal = (this->*check)(); !refusal.empty()) return refusal;
        }
        return {};
    }

    /// The first slot never filled; without one the header's number stays.
    void TakeNextReading()
    {
        for (int slot = 0; slot < kSlotCount; ++slot) {
            if (Holds([&] { return row_.Fields(SlotName(slot)).IsNull(); })) {
                header_.nlet = TwoDigits(slot);
                return;
            }
        }
    }

private:
    Value TubeText(std::string_view name, std::size_t width)
    {
        return Capitals(Left(Join(row_.Fields(name), std::string(width, ' ')), width));
    }

    /// The limit goes by the step before the step itself has been checked.
    std::string_view TakeDepth()
    {
        if (Holds([&] { return Less(Length(row_.Fields("profondità")), 4); })) return kInvalidDepth;
        Attempt([&] { header_.profondità = TextOf(row_.Fields("profondità")); });
        const double deepest = Holds([&] { return Equals(row_.Fields("passo"), 0); })
                                   ? kDeepestAtHalfMetreSteps
                                   : kDeepestAtMetreSteps;
        const auto tooDeep = [&] { return NumericValue(row_.Fields("profondità")) > deepest; };
        return Holds(tooDeep) ? kInvalidDepth : std::string_view();
    }

    std::string_view TakeStep()
    {
        if (!IsOneOf("passo", 0, 1)) return kInvalidStep;
        Attempt([&] { header_.passo = TextOf(row_.Fields("passo")); });
        return {};
    }

    std::string_view TakeGuides()
    {
        if (!IsOneOf("guide", 2, 4)) return kInvalidGuides;
        Attempt([&] { header_.guide = TextOf(row_.Fields("guide")); });
        return {};
    }

    /// Too far west passes: north has no lower bound.
    std::string_view TakeNorth()
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

    bool IsOneOf(std::string_view name, double first, double second)
    {
        return Holds([&] {
            const Value value = row_.Fields(name);
            return Or(Equals(value, first), Equals(value, second));
        });
    }

    SurveyHandle& row_;
    BlockHeader& header_;
};

/// Writes the current row into the header file if its mark says so. False when a check stops the
/// walk.
bool TransferRow(SurveyHandle& row, BlockHeader& header, HeaderFile& file, MessageBoxes& messages)
{
    if (!Holds([&] { return Not(Equals(row.Fields("b"), "")); })) return true;

    double block = 0;
    const auto isBlock = [&] {
        block = NumericValue(row.Fields("b"));
        return block > 0 && block < kRefusedBlock;
    };
    if (!Holds(isBlock)) {
        messages.Critical(kIncorrectBlock);
        return true;
    }

    RowTransfer transfer(row, header);
    transfer.TakeTube();
    if (const std::string_view refusal = transfer.TakeChecked(); !refusal.empty()) {
        messages.Critical(refusal);
        return false;
    }
    transfer.TakeNextReading();
    file.Put(std::nearbyint(block)); // a half goes to the even record
    return true;
}

} // namespace

void WriteHeaders(ControlPanel& panel, WorkingState& state, SurveyDatabase& survey,
                  EventPump& events, MessageBoxes& messages)
{
    SkipOnError rule;
    events.DoEvents();
    survey.OpenTable(); // after the events: another of these commands may have run in them

    SurveyHandle& row = survey.surveyTable;
    HeaderFile file(state);
    file.Open();
    row.MoveFirst();
    while (Holds([&] { return !row.Eof(); })) {
        if (!TransferRow(row, state.blockHeader, file, messages)) break;
        row.Edit();
        row.SetField("b", "");
        row.Update();
        row.MoveNext();
    }
    file.Close();
    row.Close();

    state.currentBlock = 1;
    panel.blockNumber.SetText(TwoDigits(state.currentBlock));
    ReloadPanel(panel, state);
    events.DoEvents();
}

} // namespace tarvex
