#pragma once

#include <QScrollArea>

#include <string>

class QLabel;

namespace tarvex::survey
{

/// The verdict above everything else: it wraps, and where it needs more than the few lines that the
/// screen has to spare, it scrolls. Assistive tools have it as a notification, which they speak
/// when its words change.
class VerdictLine : public QScrollArea
{
public:
    /// Says nothing yet.
    explicit VerdictLine(QWidget* parent);

    /// Shows these words, and has them spoken when they or what they are about, `subject`, are
    /// others than before; `tip` is shown where the pointer rests on them.
    void Say(const QString& words, const QString& tip = {}, const std::string& subject = {});

protected:
    void resizeEvent(QResizeEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void Fit();

    QLabel* words_;
    std::string subject_;
};

} // namespace tarvex::survey
