#pragma once

#include "core/header_store.h"

#include <functional>

namespace tarvex
{

/// The way into the database: stores the panel in the record of `currentBlock`, and then shows the
/// database panel, `Form4`. A failing store ends the program before anything is shown.
void OpenDatabase(const ControlPanel& panel, WorkingState& state,
                  const std::function<void()>& showForm4);

} // namespace tarvex
