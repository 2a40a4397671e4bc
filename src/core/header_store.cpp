#include "core/header_store.h"

#include "core/failure_rule.h"
#include "core/header_boxes.h"

namespace tarvex
{

void HeaderFile::Open()
{
    Attempt([&] { file_.Open(state_.headerFilePath); });
}

void HeaderFile::OpenEmptied()
{
    Attempt([&] { file_.OpenEmptied(state_.headerFilePath); });
}

void HeaderFile::Get(double recordNumber)
{
    Attempt([&] { file_.Get(recordNumber, state_.blockHeader); });
}

void HeaderFile::Put(double recordNumber)
{
    Attempt([&] { file_.Put(recordNumber, state_.blockHeader); });
}

void HeaderFile::Close()
{
    file_.Close();
}

void ReloadPanel(ControlPanel& panel, WorkingState& state)
{
    HeaderFile file(state);
    file.Open();
    file.Get(state.currentBlock);
    LoadHeader(panel.header, state.blockHeader);
    LoadCalibration(panel.calibration, state.blockHeader);
    file.Close();
}

void StorePanel(const ControlPanel& panel, WorkingState& state, double recordNumber)
{
    HeaderFile file(state);
    file.Open();
    StoreHeader(state.blockHeader, panel.header);
    StoreCalibration(state.blockHeader, panel.calibration);
    file.Put(recordNumber);
    file.Close();
}

void StorePanelWithoutCalibration(const ControlPanel& panel, WorkingState& state,
                                  double recordNumber)
{
    HeaderFile file(state);
    file.Open();
    StoreHeader(state.blockHeader, panel.header);
    file.Put(recordNumber);
    file.Close();
}

void FillDefaults(WorkingState& state, HeaderFile& file)
{
    for (int index = 0; index < kBlockCount; ++index) {
        state.blockHeader = DefaultHeader(index);
        file.Put(index + 1);
    }
}

} // namespace tarvex
