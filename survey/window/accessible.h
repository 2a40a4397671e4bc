#pragma once

class QLabel;

namespace tarvex::survey
{

/// Makes a label one whose words assistive tools speak when they are announced: a notification,
/// which the toolkit has no widget for. From then on they know a plot as a chart, too.
void MakeSpoken(QLabel& label);

/// Has the words of such a label spoken, as their name, whether they are new or not.
void Announce(QLabel& label);

} // namespace tarvex::survey
