#include "panel/forms/new_folder.h"

#include "panel/forms/report_folder.h"
#include "panel/widgets/one_line.h"
#include "platform/text/qt_text.h"

#include <QLineEdit>

#include <string>
#include <system_error>
#include <utility>

namespace tarvex::panel
{

namespace
{

const QString kPrompt = QStringLiteral("Name of the new folder :");

QString NoName(const QString& name)
{
    if (name.isEmpty()) return QStringLiteral("The folder needs a name.");
    return QStringLiteral("A folder cannot have this name: a name has no separator in it, and is "
                          "neither \".\" nor \"..\".");
}

QString Reason(const std::error_code& error)
{
    if (error == std::errc::file_exists)
        return QStringLiteral("There is a folder or a file of this name already.");
    if (error == std::errc::filename_too_long) return QStringLiteral("The name is too long.");
    if (error == std::errc::permission_denied || error == std::errc::read_only_file_system)
        return QStringLiteral("Nothing can be written in the folder that it would lie in.");
    if (error == std::errc::no_space_on_device) return QStringLiteral("The drive is full.");
    if (error == std::errc::no_such_file_or_directory)
        return QStringLiteral("The folder that it would lie in is not there any more.");
    return QStringLiteral("The system says: ") + Literal(error.message());
}

} // namespace

NewFolderBox::NewFolderBox(std::filesystem::path inside, QWidget* parent)
    : QInputDialog(parent), inside_(std::move(inside))
{
    setObjectName("NewFolderName");
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowTitle("New folder");
    setLabelText(kPrompt);
    setTextValue({}); // makes the line
    KeepToOneLine(*findChild<QLineEdit*>());
}

void NewFolderBox::accept()
{
    const auto name = PathFromQString(textValue());
    if (!IsFolderName(name)) return Refuse(NoName(textValue()));
    const auto folder = inside_ / name;
    if (const std::error_code error = TryMakeFolder(folder)) return Refuse(Reason(error));
    made_ = folder;
    QInputDialog::accept();
}

void NewFolderBox::Refuse(const QString& reason)
{
    setLabelText(QStringLiteral("The new folder could not be made.\n") + reason +
                 QStringLiteral("\n\n") + kPrompt);
    auto& name = *findChild<QLineEdit*>();
    name.setFocus();
    name.selectAll();
}

} // namespace tarvex::panel
