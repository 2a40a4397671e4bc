#pragma once

#include "core/control_panel.h"
#include "core/event_pump.h"
#include "core/header_store.h"
#include "core/message_boxes.h"
#include "database/survey_database.h"

namespace tarvex
{

/// Walks the survey table and writes every row whose mark `b` names a block, 1 to 29, into that
/// record of the header file, with the row's next free reading as readout number; what a row does
/// not hold is what `BlockHeader` held. Every row walked ends with an empty mark. The first row
/// that fails a check stops the walk with its box; rows before it stay written, it keeps its mark.
/// At the end the panel shows block 1. A failing step is skipped without a word, and a failing
/// check counts as passed: without a database the depth check therefore stops the walk.
void WriteHeaders(ControlPanel& panel, WorkingState& state, SurveyDatabase& survey,
                  EventPump& events, MessageBoxes& messages);

} // namespace tarvex
