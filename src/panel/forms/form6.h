#pragma once

#include "core/control_panel.h"
#include "core/handlers.h"
#include "core/working_state.h"
#include "panel/forms/places.h"

#include <QDialog>

#include <filesystem>
#include <vector>

class QComboBox;
class QLabel;
class QPushButton;

namespace tarvex::panel
{

class DirectoryList;
class PathLabel;

/// The folder chooser `Form6`. Its OK sets the folder for reports and enables the panel's download
/// button; closed in any other way it leaves both. Deletes itself when closed.
class Form6 : public QDialog
{
public:
    /// What the choice reaches and what it is made with.
    struct World {
        WorkingState& state;
        ControlPanel& panel;
        Handlers& handlers;
        MessageBoxes& messages;
        std::filesystem::path startFolder; ///< the one that holds `dati`
    };

    /// Builds the form and loads the list; its parts in `world` must outlive it.
    Form6(const World& world, QWidget* parent);

private:
    void Build();
    QLayout* Buttons();
    void Connect();
    void Load();

    void ChangeDrive();
    void ShowFolder();
    void Choose();
    void AskNewFolder();
    void GoTo(const std::filesystem::path& folder);
    void Refuse(const char* reason);

    World world_;
    std::vector<Place> places_;
    QComboBox* Drive1;
    DirectoryList* Dir1;
    PathLabel* path_;
    QLabel* reason_;
    QPushButton* NewFolder;
    QPushButton* command3d1;
};

} // namespace tarvex::panel
