#include "database/write_headers.h"

#include "core/conversion.h"
#include "database/row_transfer.h"

#include <cmath>

namespace tarvex
{

namespace
{

constexpr std::string_view kIncorrectBlock = "Attention: Block no. is incorect";

constexpr double kRefusedBlock = kBlockCount; // the last block is never written from here

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
    row.PassOverEmptyMarks(); // they would be set to what they are
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
