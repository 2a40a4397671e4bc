#pragma once

#include "core/file_dialog.h"
#include "core/program_end.h"

#include <QFileDialog>
#include <QString>

#include <string_view>
#include <vector>

namespace tarvex::platform
{

/// `CommonDialog1` on the toolkit: application-modal, over the active window, with the object name
/// "CommonDialog1". It is the toolkit's own dialog on every desktop, the same for every operator,
/// and leaves no settings in the operator's home. When the program ends while it is open, it
/// closes, and the call raises ProgramEnded.
class QtFileDialog : public FileDialog
{
public:
    /// `end` must outlive the dialogs.
    explicit QtFileDialog(const ProgramEnd& end);

    void ShowOpen(std::string_view title) override;
    void ShowSave(std::string_view title, Fate fate) override;

private:
    void SetUp(QFileDialog& dialog) const;
    void Show(QFileDialog& dialog);

    const ProgramEnd& end_;
};

/// One kind of file that a dialog offers.
struct NameFilter {
    QString text;    ///< as the dialog shows it, blanks included
    QString pattern; ///< as the toolkit matches names
};

/// The kinds of files of a filter: pairs of description and pattern, each ended by "|". The pattern
/// "*.*" means every file, also one without a point in its name.
std::vector<NameFilter> NameFilters(std::string_view filter);

} // namespace tarvex::platform
