#include "survey/checks/check.h"
#include "survey/checks/verdict_text.h"
#include "survey/window/fit_screen.h"
#include "survey/window/hint_page.h"
#include "survey/window/main_window.h"
#include "survey/window/verdict_line.h"
#include "survey/window/window_text.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QStackedWidget>
#include <QTableView>
#include <QVBoxLayout>

namespace tarvex::survey
{

void MainWindow::ShowVerdict()
{
    if (chosen_.empty()) {
        verdict_ = {};
        verdictLine_->Say(Text(whyNone_));
        rows_.Clear();
    } else {
        verdict_ = Check(chosen_.back(), limits_);
        const auto& newest = chosen_.back();
        const bool several = chosen_.size() > 1 && newest.head;
        verdictLine_->Say(
            Text((several ? "Verdict on readout " + newest.head->readout : "Verdict") + ": " +
                 verdict_.Line()),
            Text(TextOf(verdict_)), newest.files.front());
        rows_.Show(chosen_.back(), verdict_);
    }
    table_->verticalHeader()->setVisible(rows_.HasFaults());
    FitColumns();
    reasons_->setEnabled(!chosen_.empty());
}

void MainWindow::ShowHint()
{
    const bool empty = listed_.empty();
    if (empty) {
        if (hint_ == nullptr) {
            hint_ = new HintPage([this] { AskForFile(); }, [this] { AskForFolder(); });
            pages_->addWidget(new Room(hint_, pages_));
        }
        hint_->Say(folders_);
    }
    verdictRow_->setVisible(!empty);
    pages_->setCurrentIndex(empty ? 1 : 0);
}

/// On a narrow window the verdict needs the whole line; the menu has the reasons too.
void MainWindow::LeaveRoomForVerdict()
{
    constexpr int kEnough = 40; // letters
    reasons_->setVisible(width() >= kEnough * fontMetrics().averageCharWidth());
}

void MainWindow::ShowReasons()
{
    if (chosen_.empty()) return Report(whyNone_);
    QDialog dialog(this);
    dialog.setWindowTitle(QStringLiteral("Reasons for the verdict"));
    auto* const column = new QVBoxLayout(&dialog);
    auto* const text = new QPlainTextEdit(Text(TextOf(verdict_)), &dialog);
    text->setObjectName(QStringLiteral("reasonsText"));
    text->setAccessibleName(dialog.windowTitle());
    text->setReadOnly(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    column->addWidget(text);
    auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Close, &dialog);
    connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    column->addWidget(buttons);
    dialog.resize(QSize(640, 360).boundedTo(FreeSize(*this)));
    dialog.exec();
}

} // namespace tarvex::survey
