#include "survey/window/verdict_line.h"

#include "survey/window/accessible.h"
#include "survey/window/fit_screen.h"

#include <QEvent>
#include <QLabel>

#include <algorithm>

namespace tarvex::survey
{

namespace
{
/// Lines that the verdict may take of a window as large as the screen allows: an eighth of it.
int MostLines(const QWidget& line)
{
    constexpr int kShare = 8;
    constexpr int kMost = 4;
    return std::clamp(FreeSize(line).height() / kShare / line.fontMetrics().lineSpacing(), 1,
                      kMost);
}
} // namespace

VerdictLine::VerdictLine(QWidget* parent) : QScrollArea(parent), words_(new QLabel(this))
{
    MakeSpoken(*words_);
    words_->setObjectName(QStringLiteral("verdict"));
    words_->setWordWrap(true);
    words_->setTextFormat(Qt::PlainText);
    words_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    auto strong = font();
    strong.setBold(true);
    words_->setFont(strong);
    setFrameShape(NoFrame);
    setWidgetResizable(true);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidget(words_);
    for (auto* const ground : {viewport(), static_cast<QWidget*>(words_)})
        ground->setAutoFillBackground(false);
}

void VerdictLine::Say(const QString& words, const QString& tip, const std::string& subject)
{
    words_->setToolTip(tip);
    if (words == words_->text() && subject == subject_) return;
    subject_ = subject;
    words_->setText(words);
    Fit();
    Announce(*words_);
}

void VerdictLine::resizeEvent(QResizeEvent* event)
{
    QScrollArea::resizeEvent(event);
    Fit();
}

void VerdictLine::changeEvent(QEvent* event)
{
    QScrollArea::changeEvent(event);
    if (event->type() == QEvent::FontChange) Fit();
}

void VerdictLine::Fit()
{
    const int needed = words_->heightForWidth(viewport()->width());
    const int most = MostLines(*this) * fontMetrics().lineSpacing();
    setFixedHeight(std::min(needed, most));
    setFocusPolicy(needed > most ? Qt::StrongFocus : Qt::NoFocus); // keys scroll it
}

} // namespace tarvex::survey
