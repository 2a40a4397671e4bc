#pragma once

#include <QStringList>
#include <QWidget>

#include <filesystem>
#include <map>
#include <string>

namespace tarvex::tests
{

/// What a person would see of the panel: the text of each box, whether each button can be pressed,
/// whether the wait indicator shows. By name of the control.
using PanelState = std::map<std::string, std::string>;

PanelState StateOf(const QWidget& panel);

/// The files below a folder and what they hold.
using FolderState = std::map<std::string, std::string>;

FolderState StateOf(const std::filesystem::path& folder);

/// The controls that differ between two states, one a line.
std::string ChangesOnPanel(const PanelState& before, const PanelState& after);

/// The files that differ between two states, record by record; of a file that was there before the
/// records that are other than before.
std::string ChangesInFolder(const FolderState& before, const FolderState& after);

} // namespace tarvex::tests
