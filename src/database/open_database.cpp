#include "database/open_database.h"

namespace tarvex
{

void OpenDatabase(WorkingState& state, HeaderStore& headers, const std::function<void()>& showForm4)
{
    headers.StorePanel(state.CurrentBlock);
    showForm4();
}

} // namespace tarvex
