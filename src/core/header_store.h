#pragma once

#include "core/control_panel.h"
#include "core/record_file.h"
#include "core/working_state.h"

namespace tarvex
{

/// One opening of the header file `intestazione`: records of 77 bytes, record n belonging to block
/// n. Each operation is one step of the rule in force. Files are opened for one piece of work and
/// closed again, and a command nested in a wait uses an opening of its own.
class HeaderFile
{
public:
    explicit HeaderFile(WorkingState& state) : state_(state), file_(sizeof(BlockHeader)) {}

    /// Opens `headerFilePath`.
    void Open();

    /// As Open, and drops what the file held.
    void OpenEmptied();

    /// The working header from the record of that number; blanks from where the file ends.
    void Get(double recordNumber);

    /// The working header to the record of that number.
    void Put(double recordNumber);

    /// Closes the file; no failure when it is not open.
    void Close();

private:
    WorkingState& state_;
    RecordFile file_;
};

// The header table on this side of the line ties the header file, the working header and the
// panel's boxes together. A failing open, get or put follows the rule in force; when skipped, the
// steps after it still run.

/// The working header and all boxes, those of the calibration too, from record `currentBlock`.
void ReloadPanel(ControlPanel& panel, WorkingState& state);

/// The working header from all boxes, those of the calibration too, and that record written.
void StorePanel(const ControlPanel& panel, WorkingState& state, double recordNumber);

/// As StorePanel, but the calibration is not taken from its boxes: it goes to the record as the
/// working header has it.
void StorePanelWithoutCalibration(const ControlPanel& panel, WorkingState& state,
                                  double recordNumber);

/// Sets the working header to each of the thirty default headers in turn and puts it at its record
/// of the open file.
void FillDefaults(WorkingState& state, HeaderFile& file);

} // namespace tarvex
