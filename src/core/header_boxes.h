#pragma once

#include "core/block_header.h"
#include "core/panel.h"

namespace tarvex
{

/// Fills `Text3` to `Text13`, the eleven boxes of a header that the operator sees.
void LoadHeaderBoxes(Panel& panel, const BlockHeader& header);

/// Fills the hidden boxes `Text18` to `Text22`.
void LoadCalibrationBoxes(Panel& panel, const BlockHeader& header);

/// Takes the ten fields that the operator sees from their boxes; `profondità` is `Text6` joined
/// with `Text13`, neither padded before.
void StoreHeaderBoxes(BlockHeader& header, const Panel& panel);

/// Takes the five calibration fields from the hidden boxes.
void StoreCalibrationBoxes(BlockHeader& header, const Panel& panel);

} // namespace tarvex
