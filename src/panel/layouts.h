#pragma once

class QWidget;

namespace tarvex::panel
{

/// Lays out the made controls of the main form: the left column, the tab strip with its three
/// frames, and the wait indicator below. The window keeps its size whatever is shown.
void LayOut(QWidget& window);

/// Lays out the made controls of one frame of the third tab, on whatever window they are.
void LayOutParameters(QWidget& window);
void LayOutPorts(QWidget& window);
void LayOutClock(QWidget& window);

/// Gives every button of the window a height and a width that are hit with gloves on.
void SizeButtons(QWidget& window);

} // namespace tarvex::panel
