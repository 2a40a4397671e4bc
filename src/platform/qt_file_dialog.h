#pragma once

#include "core/file_dialog.h"
#include "core/program_end.h"

#include <QFileDialog>
#include <QStringList>

#include <string_view>

namespace tarvex::platform
{

/// `CommonDialog1` on the toolkit: application-modal, over the active window, with the object name
/// "CommonDialog1". When the program ends while it stands, it goes, and the call raises
/// ProgramEnded.
class QtFileDialog : public FileDialog
{
public:
    explicit QtFileDialog(const ProgramEnd& end) : end_(end) {}

    void ShowOpen() override;
    void ShowSave() override;

private:
    void Show(QFileDialog::AcceptMode mode, QFileDialog::FileMode files);

    const ProgramEnd& end_;
};

/// A filter as the toolkit writes it, from pairs of description and pattern each ended by "|". The
/// pattern "*.*" means every file, also one without a point in its name.
QStringList NameFilters(std::string_view filter);

} // namespace tarvex::platform
