#pragma once

class QWidget;

namespace tarvex::panel
{

/// Lays out the made controls of the main form: the left column, the tab strip with its three
/// frames, and the wait indicator below. The window keeps its size whatever is shown. On a screen
/// that is too small the column and the frames scroll; the indicator is always in sight.
void LayOut(QWidget& window);

/// Lays out the made controls of one frame of the third tab, on whatever window they are.
void LayOutParameters(QWidget& window);
void LayOutPorts(QWidget& window);
void LayOutClock(QWidget& window);

} // namespace tarvex::panel
