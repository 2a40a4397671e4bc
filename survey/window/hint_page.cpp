#include "survey/window/hint_page.h"

#include "survey/files/report_names.h"
#include "survey/window/window_text.h"

#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace tarvex::survey
{

HintPage::HintPage(const std::function<void()>& openReports,
                   const std::function<void()>& openFolder)
{
    auto* const column = new QVBoxLayout(this);
    column->addStretch(1);
    where_ = AddText();
    where_->setObjectName(QStringLiteral("hint"));
    auto font = where_->font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * 1.25);
    where_->setFont(font);
    AddText()->setText(QStringLiteral(
        "Open reports or a folder, or drop them here. A report that the manager downloads into an "
        "open folder shows up by itself."));
    const auto add = [&](const QString& caption, const std::function<void()>& handler) {
        auto* const button = new QPushButton(caption, this);
        connect(button, &QPushButton::clicked, this, handler);
        column->addWidget(button, 0, Qt::AlignHCenter);
    };
    add(QStringLiteral("Open &reports..."), openReports);
    add(QStringLiteral("Open f&older..."), openFolder);
    column->addStretch(2);
    Say({});
}

QLabel* HintPage::AddText()
{
    auto* const text = new QLabel(this);
    text->setWordWrap(true);
    text->setTextFormat(Qt::PlainText);
    text->setAlignment(Qt::AlignCenter);
    layout()->addWidget(text);
    return text;
}

void HintPage::Say(const std::vector<std::filesystem::path>& folders)
{
    QStringList names;
    for (const auto& folder : folders)
        names += Text(Shown(folder));
    where_->setText(
        names.isEmpty()
            ? QStringLiteral("No surveys are open.")
            : QStringLiteral("There are no surveys in %1.").arg(names.join(QStringLiteral(", "))));
}

} // namespace tarvex::survey
