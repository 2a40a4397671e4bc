#pragma once

#include "core/header_store.h"
#include "core/message_boxes.h"
#include "database/survey_database.h"

#include <functional>

namespace tarvex
{

/// Folds the thirty records of the header file into the survey table, one row a tube: an unknown
/// tube gets a row, a known one has its row updated and the reading filed in the slot of its
/// readout number. `BlockHeader` is left holding record 30; the panel stays. At the end the grid,
/// `Form5`, is shown. A failing step is skipped without a word.
void ReadHeaders(SurveyDatabase& survey, WorkingState& state, MessageBoxes& messages,
                 const std::function<void()>& showForm5);

} // namespace tarvex
