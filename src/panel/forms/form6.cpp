#include "panel/forms/form6.h"

#include "core/failure_rule.h"
#include "panel/forms/directory_list.h"
#include "panel/forms/machine_places.h"
#include "panel/forms/new_folder.h"
#include "panel/forms/path_label.h"
#include "panel/forms/report_folder.h"
#include "platform/text/qt_text.h"

#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSignalBlocker>
#include <QVBoxLayout>

namespace tarvex::panel
{

namespace
{
constexpr const char* kNotWritable = "Reports cannot be written in this folder.";
constexpr const char* kNotListed = "The new folder cannot be opened.";
} // namespace

Form6::Form6(const World& world, QWidget* parent)
    : QDialog(parent),
      world_(world),
      places_(MachinePlaces(world.startFolder)),
      Drive1(new QComboBox(this)),
      Dir1(new DirectoryList(this)),
      path_(new PathLabel(this)),
      reason_(new QLabel(this)),
      NewFolder(new QPushButton("&New folder", this)),
      command3d1(new QPushButton("Ok", this))
{
    setObjectName("Form6");
    setWindowTitle("Folder");
    setAttribute(Qt::WA_DeleteOnClose);
    Build();
    Connect();
    Load();
}

void Form6::Build()
{
    Drive1->setObjectName("Drive1");
    Drive1->setAccessibleName("Drive");
    for (const Place& place : places_) {
        Drive1->addItem(PathToQString(place.name));
        Drive1->setItemData(Drive1->count() - 1, PathToQString(place.folder), Qt::ToolTipRole);
    }
    Dir1->setObjectName("Dir1");
    Dir1->setAccessibleName("Folder for the reports");
    path_->setObjectName("LabelPath");
    reason_->setObjectName("LabelReason");
    reason_->setWordWrap(true);
    QFont strong = reason_->font();
    strong.setBold(true);
    reason_->setFont(strong);

    auto* rows = new QFormLayout;
    rows->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    rows->addRow("&Drive :", Drive1);
    rows->labelForField(Drive1)->setObjectName("LabelDrive1");
    rows->addRow("Folder :", path_);
    rows->labelForField(path_)->setObjectName("LabelFolder");

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(rows);
    layout->addWidget(Dir1, 1);
    layout->addWidget(reason_);
    layout->addLayout(Buttons());
    resize(560, 520);
    Dir1->setFocus();
}

QLayout* Form6::Buttons()
{
    NewFolder->setObjectName("NewFolder");
    NewFolder->setAutoDefault(false);
    command3d1->setObjectName("command3d1");
    command3d1->setDefault(true);
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(NewFolder);
    buttons->addStretch();
    buttons->addWidget(command3d1);
    return buttons;
}

void Form6::Connect()
{
    const auto handler = [this](void (Form6::*step)()) {
        return [this, step] { world_.handlers.Run([this, step] { (this->*step)(); }); };
    };
    connect(Drive1, &QComboBox::currentIndexChanged, this, handler(&Form6::ChangeDrive));
    connect(command3d1, &QPushButton::clicked, this, handler(&Form6::Choose));
    connect(NewFolder, &QPushButton::clicked, this, handler(&Form6::AskNewFolder));
    Dir1->OnChange([this] { ShowFolder(); });
}

void Form6::Load()
{
    SkipOnError rule;
    const auto reports = DefaultReportFolder(world_.startFolder);
    Attempt([&] { MakeFolder(reports); }); // fails when it is there already
    Attempt([&] { Dir1->SetFolder(places_.front().folder); });
    Attempt([&] { Dir1->SetFolder(reports); });
    ShowFolder();
}

void Form6::ChangeDrive()
{
    const auto& folder = places_[static_cast<std::size_t>(Drive1->currentIndex())].folder;
    try {
        Dir1->SetFolder(folder);
    } catch (const RunTimeFailure&) {
        world_.messages.Critical("Invalid Drive!", "Errore");
        Drive1->setCurrentIndex(0);
    }
}

/// Shows the current folder of the list, and offers OK only where the reports can be written: a
/// download into a folder that takes no files would never come to its end.
void Form6::ShowFolder()
{
    const auto folder = Dir1->Folder();
    path_->ShowPath(PathToQString(std::filesystem::path(folder).make_preferred()));
    const QSignalBlocker quiet(Drive1);
    Drive1->setCurrentIndex(static_cast<int>(NearestPlace(places_, folder)));
    const bool choosable = MayBeWritten(folder);
    command3d1->setEnabled(choosable);
    NewFolder->setEnabled(choosable);
    reason_->setText(choosable ? QString() : Literal(kNotWritable));
}

void Form6::Choose()
{
    const auto folder = Dir1->Folder();
    if (!CanBeWritten(folder)) {
        command3d1->setEnabled(false);
        return Refuse(kNotWritable);
    }
    world_.state.reportFolder = folder;
    world_.panel.downloadButton.Enable();
    close();
}

void Form6::AskNewFolder()
{
    auto* question = new NewFolderBox(Dir1->Folder(), this);
    connect(question, &QDialog::accepted, this, [this, question] {
        world_.handlers.Run([this, question] { GoTo(question->Made()); });
    });
    question->open();
}

void Form6::GoTo(const std::filesystem::path& folder)
{
    try {
        Dir1->SetFolder(folder);
    } catch (const RunTimeFailure&) {
        Refuse(kNotListed);
    }
}

void Form6::Refuse(const char* reason)
{
    reason_->setText(Literal(reason));
}

} // namespace tarvex::panel
