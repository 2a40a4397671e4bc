#pragma once

class QWidget;

namespace tarvex::panel
{

/// Lays out the made controls of the main form: the left column, the tab strip with its three
/// frames, and the wait indicator below. The window keeps its size whatever is shown.
void LayOut(QWidget& window);

} // namespace tarvex::panel
