#include "database/read_headers.h"

#include "core/conversion.h"
#include "database/criterion.h"
#include "database/survey_fields.h"

namespace tarvex
{

namespace
{

constexpr std::string_view kDatePlaceholder = "GGMMAA  ";
constexpr std::string_view kTimePlaceholder = "hhmmss  ";
constexpr std::string_view kNoMoreReadings = "ATTENTION: Already there were executed 25 readings ";
constexpr int kLastSlot = kSlotCount - 1;

bool HasReading(const BlockHeader& header)
{
    return header.data.View() != kDatePlaceholder && header.ora.View() != kTimePlaceholder;
}

std::string Reading(const BlockHeader& header)
{
    return header.data.Text() + header.ora.Text();
}

void SetTube(SurveyHandle& row, const BlockHeader& header)
{
    row.SetField("cliente", header.cliente);
    row.SetField("cantiere", header.cantiere);
    row.SetField("tubo", header.tubo);
    row.SetField("profondità", header.profondità);
    row.SetField("passo", header.passo);
    row.SetField("guide", header.guide);
    row.SetField("nord", header.nord);
}

/// The readout number of a tube met for the first time does not count: its row starts with 0.
void AddTube(SurveyHandle& row, const BlockHeader& header)
{
    row.AddNew();
    SetTube(row, header);
    row.SetField("nlet", 0.0);
    if (HasReading(header)) {
        row.SetField("l0", Reading(header));
        row.SetField("nlet", 0.0); // again, in case the first one failed
    }
    row.Update();
}

/// A slot never filled is Null and makes this unknown, which counts as the same reading.
Truth HoldsAnotherReading(const Value& slot, const BlockHeader& header)
{
    return Or(Not(Equals(Left(slot, 8), header.data.View())),
              Not(Equals(Middle(slot, 9, 8), header.ora.View())));
}

/// Files the reading in slot `number` on top of another one in the slot before it. Otherwise it is
/// taken for that one, and the row's count steps back.
void FileReading(SurveyHandle& row, const BlockHeader& header, int number)
{
    const auto slotBefore = SlotName(number - 1);
    if (Holds([&] { return HoldsAnotherReading(row.Fields(slotBefore), header); })) {
        row.SetField(SlotName(number), Reading(header));
    } else {
        row.SetField("nlet", TwoDigits(number - 1));
    }
}

void UpdateTube(SurveyHandle& row, const BlockHeader& header, MessageBoxes& messages)
{
    row.Edit();
    SetTube(row, header);
    if (!HasReading(header)) return; // no Update: a block never used changes nothing in its row

    row.SetField("nlet", NumericValue(header.nlet.View()));
    if (Holds([&] { return Greater(row.Fields("nlet"), kLastSlot); })) {
        row.LetOthersWrite();
        messages.Critical(kNoMoreReadings);
        row.KeepOthersFromWriting();
        row.SetField("nlet", kLastSlot);
    }
    Value number;
    Attempt([&] { number = row.Fields("nlet"); });
    if (Equals(number, 0) == Truth::True) row.SetField("l0", Reading(header));
    for (int slot = 1; slot <= kLastSlot; ++slot) {
        if (Equals(number, slot) == Truth::True) FileReading(row, header, slot);
    }
    row.Update();
}

} // namespace

void ReadHeaders(SurveyDatabase& survey, WorkingState& state, MessageBoxes& messages,
                 const std::function<void()>& showForm5)
{
    bool noMatch = false;
    SkipOnError rule(noMatch);
    survey.OpenTable();

    HeaderFile file(state);
    file.Open();
    for (int recordNumber = 1; recordNumber <= kBlockCount; ++recordNumber) {
        file.Get(recordNumber);
        // Or another program could add the same tube between the look-up and the update.
        if (!survey.surveyTable.KeepOthersFromWriting()) continue;
        noMatch = false;
        survey.surveyTable.SetFilter(TubeCriterion(state.blockHeader));
        survey.OpenMatch();
        survey.surveyMatch.MoveFirst(); // its failure alone shows that the tube is unknown
        if (noMatch) {
            AddTube(survey.surveyMatch, state.blockHeader);
        } else {
            UpdateTube(survey.surveyMatch, state.blockHeader, messages);
        }
        survey.surveyMatch.Close();
        survey.surveyTable.LetOthersWrite();
    }
    file.Close();
    survey.surveyTable.Close();
    Attempt(showForm5);
}

} // namespace tarvex
