#include "core/header_store.h"

#include "core/failure_rule.h"
#include "core/header_boxes.h"

namespace tarvex
{

void HeaderFile::Open()
{
    Attempt([&] { file_.Open(state_.HeaderFilePath); });
}

void HeaderFile::OpenEmptied()
{
    Attempt([&] { file_.OpenEmptied(state_.HeaderFilePath); });
}

void HeaderFile::Get(double recordNumber)
{
    Attempt([&] { file_.Get(recordNumber, state_.BlockHeader); });
}

void HeaderFile::Put(double recordNumber)
{
    Attempt([&] { file_.Put(recordNumber, state_.BlockHeader); });
}

void HeaderFile::Close()
{
    file_.Close();
}

void HeaderStore::ReloadPanel()
{
    HeaderFile file(state_);
    file.Open();
    file.Get(state_.CurrentBlock);
    LoadHeaderBoxes(panel_, state_.BlockHeader);
    LoadCalibrationBoxes(panel_, state_.BlockHeader);
    file.Close();
}

void HeaderStore::StorePanel(double recordNumber)
{
    HeaderFile file(state_);
    file.Open();
    StoreHeaderBoxes(state_.BlockHeader, panel_);
    StoreCalibrationBoxes(state_.BlockHeader, panel_);
    file.Put(recordNumber);
    file.Close();
}

void HeaderStore::StorePanelWithoutCalibration(double recordNumber)
{
    HeaderFile file(state_);
    file.Open();
    StoreHeaderBoxes(state_.BlockHeader, panel_);
    file.Put(recordNumber);
    file.Close();
}

void HeaderStore::FillDefaults(HeaderFile& file)
{
    for (int index = 0; index < kBlockCount; ++index) {
        state_.BlockHeader = DefaultHeader(index);
        file.Put(index + 1);
    }
}

} // namespace tarvex
