#pragma once

#include "core/control_panel.h"
#include "core/current_directory.h"
#include "core/event_pump.h"
#include "core/handlers.h"
#include "core/message_boxes.h"
#include "core/working_state.h"
#include "database/survey_database.h"
#include "panel/survey/form4.h"
#include "panel/survey/form5.h"

#include <QAbstractItemModel>
#include <QPointer>

#include <functional>
#include <memory>
#include <utility>

namespace tarvex::panel
{

/// The windows of the survey database, one instance of each: opening an open one raises it, closing
/// unloads it, and the next opening loads it again. Neither is modal.
class DatabaseForms
{
public:
    /// What the forms work with. All of it outlives them.
    struct World {
        ControlPanel& panel;
        WorkingState& state;
        SurveyDatabase& survey;
        EventPump& events;
        MessageBoxes& messages;
        Handlers& handlers;

        /// Asked at each load of `Form4`.
        CurrentDirectory currentDirectory;

        /// Makes the rows of a grid: the table at the `databasePath`, a column a field of a survey
        /// row. Its revert() makes it current.
        std::function<std::unique_ptr<QAbstractItemModel>()> openRows;
    };

    explicit DatabaseForms(World world) : world_(std::move(world)) {}
    ~DatabaseForms();
    DatabaseForms(const DatabaseForms&) = delete;
    DatabaseForms& operator=(const DatabaseForms&) = delete;

    /// The window that the forms stay above; without one each is on its own.
    void StandAbove(QWidget* mainForm) { mainForm_ = mainForm; }

    /// Run on each form when it is loaded: gives it the look of the main form.
    void Dress(std::function<void(QWidget&)> look) { look_ = std::move(look); }

    /// `Form4`. Its load settles where the database lies.
    void ShowPanel();

    /// `Form5`, with the rows as they are now.
    void ShowGrid();

private:
    void Read();
    void Write();
    void CommitEdit();

    World world_;
    QPointer<QWidget> mainForm_;
    std::function<void(QWidget&)> look_ = [](QWidget&) {};
    QPointer<Form4> form4_;
    QPointer<Form5> form5_;
};

} // namespace tarvex::panel
