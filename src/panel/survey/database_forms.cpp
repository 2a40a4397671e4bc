#include "panel/survey/database_forms.h"

#include "database/read_headers.h"
#include "database/write_headers.h"
#include "panel/widgets/open_form.h"

namespace tarvex::panel
{

DatabaseForms::~DatabaseForms()
{
    delete form4_;
    delete form5_;
}

void DatabaseForms::ShowPanel()
{
    const auto load = [this] {
        LoadDatabaseForm(world_.survey, world_.currentDirectory);
        const Form4::Actions actions{[this] { Read(); }, [this] { Write(); },
                                     [this] { ShowGrid(); }};
        return new Form4(world_.handlers, actions, mainForm_);
    };
    OpenForm(form4_, load, look_);
}

void DatabaseForms::ShowGrid()
{
    const auto load = [this] { return new Form5(world_.handlers, world_.openRows(), mainForm_); };
    OpenForm(form5_, load, look_);
    form5_->Refresh();
}

void DatabaseForms::Read()
{
    CommitEdit();
    ReadHeaders(world_.survey, world_.state, world_.messages, [this] { ShowGrid(); });
}

void DatabaseForms::Write()
{
    CommitEdit();
    WriteHeaders(world_.panel, world_.state, world_.survey, world_.events, world_.messages);
    if (form5_) form5_->Refresh(); // the marks are gone
}

/// What the operator is still typing counts.
void DatabaseForms::CommitEdit()
{
    if (form5_) form5_->CommitEdit();
}

} // namespace tarvex::panel
