#pragma once

#include "core/program_end.h"
#include "database/survey_test.h"
#include "panel/survey/database_forms.h"
#include "platform/sqlite/survey_table_model.h"

#include <QAbstractButton>
#include <QTableView>
#include <QWidget>

#include <stdexcept>
#include <string>

namespace tarvex::tests
{

/// The database's forms over a real database in the test's folder, below no main form.
class DatabaseFormsTest : public SurveyTest
{
protected:
    ~DatabaseFormsTest() override;

    /// The window of that object name that is on view, or null.
    static QWidget* Find(const char* name);

    /// The same; the test ends when there is none.
    static QWidget& Window(const char* name);

    template <class Widget>
    static Widget& Control(const char* window, const char* name)
    {
        auto* control = Window(window).findChild<Widget*>(name);
        if (control == nullptr) throw std::runtime_error(std::string("no control ") + name);
        return *control;
    }

    static void Press(const char* window, const char* button);

    static QTableView& Grid() { return Control<QTableView>("Form5", "DataGrid1"); }

    /// The text that the grid shows in a row, from 0, under a field's name.
    static std::string Cell(int row, std::string_view field);

    /// The mark of a row as it is in the file.
    Value Mark(std::size_t row) { return RowAt(row)["b"]; }

    /// Types into whatever has the keyboard.
    static void Type(const char* keys);
    static void Type(Qt::Key key);

    static void DeleteClosed();

    ProgramEnd end;
    Handlers handlers{end, boxes};
    std::filesystem::path currentDirectory = folder.Path();
    panel::DatabaseForms forms{{panel, state, survey, world, boxes, handlers,
                                [this] { return currentDirectory; },
                                [this] {
                                    return std::make_unique<platform::SurveyTableModel>(
                                        [this] { return survey.databasePath; });
                                }}};
};

} // namespace tarvex::tests
