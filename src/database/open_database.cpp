#include "database/open_database.h"

namespace tarvex
{

void OpenDatabase(const ControlPanel& panel, WorkingState& state,
                  const std::function<void()>& showForm4)
{
    StorePanel(panel, state, state.currentBlock);
    showForm4();
}

} // namespace tarvex
