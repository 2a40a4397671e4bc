#include "panel/forms/aboutus.h"

#include "panel/forms/credits.h"
#include "panel/forms/picture.h"
#include "panel/forms/program_data.h"
#include "platform/text/qt_text.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include <array>
#include <string>

namespace tarvex::panel
{

namespace
{
constexpr QSize kPictureSize(96, 96);

struct Row {
    const char* name; ///< of the text; its caption is named after it
    std::string_view caption;
    std::string_view text;
};

const std::string& Version()
{
    static const std::string version =
        std::to_string(kMajorVersion) + "." + std::to_string(kMinorVersion);
    return version;
}

/// The caption of the first row about the maker: it has a little room above it.
constexpr std::string_view kFirstOfMaker = "Software :";
constexpr int kApart = 10;

std::array<Row, 8> AllRows()
{
    return {{{"Application", "Application :", "Tar Vex Manager "},
             {"Version", "Version :", Version()},
             {"Description",
              "Description :", "Software di comunicazione concentralina inclinometrica Tar Vex"},
             {"Maker", kFirstOfMaker, kMakerName},
             {"Address", "Address :", kMakerAddress},
             {"Telephone", "Telephone :", kMakerTelephone},
             {"Fax", "Fax :", kMakerFax},
             {"HotLine", "Hot-line :", kMakerHotLine}}};
}

QLabel* Label(const QString& name, std::string_view text, QWidget* parent)
{
    auto* label = new QLabel(Literal(text), parent);
    label->setObjectName(name);
    label->setTextFormat(Qt::PlainText);
    return label;
}
} // namespace

AboutUs::AboutUs(Handlers& handlers, QWidget* parent) : QDialog(parent)
{
    setObjectName("aboutus");
    setWindowTitle("About");
    setAttribute(Qt::WA_DeleteOnClose);
    Build(handlers);
}

void AboutUs::Build(Handlers& handlers)
{
    auto* picture = new PictureBox(kProgramPicture, kPictureSize, this);
    picture->setObjectName("Image1");
    auto* close = new QPushButton("&Close", this);
    close->setObjectName("btnclose");
    close->setDefault(true);
    connect(close, &QPushButton::clicked, this,
            [this, &handlers] { handlers.Run([this] { this->close(); }); });

    auto* content = new QHBoxLayout;
    content->setSpacing(24);
    content->addWidget(picture, 0, Qt::AlignTop);
    content->addLayout(Rows());

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(24, 24, 24, 16);
    layout->setSpacing(24);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(content);
    layout->addWidget(close, 0, Qt::AlignRight);
}

QLayout* AboutUs::Rows()
{
    auto* rows = new QGridLayout;
    rows->setHorizontalSpacing(12);
    rows->setVerticalSpacing(8);
    int line = 0;
    for (const Row& row : AllRows()) {
        if (row.caption == kFirstOfMaker) rows->setRowMinimumHeight(line++, kApart);
        const QString name = QString::fromLatin1(row.name);
        auto* text = Label(name, row.text, this);
        text->setTextInteractionFlags(Qt::TextSelectableByMouse); // to copy a telephone number
        text->setAccessibleDescription(Literal(row.caption));
        auto* caption = Label("Label" + name, row.caption, this);
        caption->setBuddy(text);
        rows->addWidget(caption, line, 0, Qt::AlignRight);
        rows->addWidget(text, line, 1);
        ++line;
    }
    return rows;
}

} // namespace tarvex::panel
