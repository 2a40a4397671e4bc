#pragma once

#include <QString>
#include <QValidator>

class QLineEdit;

namespace tarvex::panel
{

/// Keeps a line edit to one line: of what the operator puts in at once, by whatever way (pasted,
/// dropped, from an input method), only the part before its first line end stays. A cell copied
/// from a spreadsheet brings one. What the program sets is left as it is, line ends included.
class OneLineValidator : public QValidator
{
public:
    /// Belongs to the edit; make it while the edit is empty.
    explicit OneLineValidator(QLineEdit& edit);

    State validate(QString& input, int& position) const override;

private:
    const QLineEdit& edit_;
    QString before_; // the text that is being changed
};

/// Gives the edit a OneLineValidator.
void KeepToOneLine(QLineEdit& edit);

} // namespace tarvex::panel
