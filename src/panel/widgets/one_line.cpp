#include "panel/widgets/one_line.h"

#include <QLineEdit>

#include <algorithm>

namespace tarvex::panel
{

namespace
{

/// What other programs end a line with: CR, LF, and all else that Unicode breaks a line at.
bool IsLineEnd(QChar character)
{
    const char16_t code = character.unicode();
    return (code >= u'\n' && code <= u'\r') || code == u'\u0085' || code == u'\u2028' ||
           code == u'\u2029';
}

/// Where a text differs from the one before it, when `unchanged` characters at its end are the
/// same.
qsizetype FirstDifference(const QString& text, const QString& before, qsizetype unchanged)
{
    const qsizetype compared = std::min(text.size(), before.size()) - unchanged;
    qsizetype at = 0;
    while (at < compared && text[at] == before[at])
        ++at;
    return at;
}

} // namespace

OneLineValidator::OneLineValidator(QLineEdit& edit)
    : QValidator(&edit), edit_(edit), before_(edit.text())
{
    connect(&edit, &QLineEdit::textChanged, this, [this](const QString& text) { before_ = text; });
}

QValidator::State OneLineValidator::validate(QString& input, int& position) const
{
    const bool setByTheProgram = !edit_.isUndoAvailable();
    if (setByTheProgram) return Acceptable;
    const auto unchanged = input.size() - position;
    const auto begin = input.begin() + FirstDifference(input, before_, unchanged);
    const auto end = std::max(begin, input.begin() + position);
    const auto lineEnd = std::find_if(begin, end, IsLineEnd);
    position -= static_cast<int>(end - lineEnd);
    input.erase(lineEnd, end);
    return Acceptable;
}

void KeepToOneLine(QLineEdit& edit)
{
    edit.setValidator(new OneLineValidator(edit));
}

} // namespace tarvex::panel
