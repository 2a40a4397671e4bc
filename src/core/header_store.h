#pragma once

#include "core/panel.h"
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

    /// Opens `HeaderFilePath`.
    void Open();

    /// As Open, and drops what the file held.
    void OpenEmptied();

    /// `BlockHeader` from the record of that number; blanks from where the file ends.
    void Get(double recordNumber);

    /// `BlockHeader` to the record of that number.
    void Put(double recordNumber);

    void Close();

private:
    WorkingState& state_;
    RecordFile file_;
};

/// The header table on this side of the line: it ties the header file, the working `BlockHeader`
/// and the panel's boxes together. A failing open, get or put follows the rule in force; when
/// skipped, the steps after it still run.
class HeaderStore
{
public:
    HeaderStore(WorkingState& state, Panel& panel) : state_(state), panel_(panel) {}

    /// `BlockHeader` and all boxes, the hidden ones too, from record `CurrentBlock`.
    void ReloadPanel();

    /// `BlockHeader` from all boxes, the hidden ones too, and that record written.
    void StorePanel(double recordNumber);

    /// As StorePanel, but the hidden boxes are not read: the calibration of `BlockHeader` goes to
    /// the record as it stands.
    void StorePanelWithoutCalibration(double recordNumber);

    /// Sets `BlockHeader` to each row of the `DefaultHeaderTable` in turn and puts it at its record
    /// of the open file.
    void FillDefaults(HeaderFile& file);

private:
    WorkingState& state_;
    Panel& panel_;
};

} // namespace tarvex
