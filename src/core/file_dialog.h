#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarvex
{

/// The one file dialog of the program, `CommonDialog1`. Its settings stay from one showing to the
/// next.
class FileDialog
{
public:
    virtual ~FileDialog() = default;

    std::string filter;             ///< pairs of description and pattern, each ended by "|"
    int filterIndex = 0;            ///< the filter selected at first, from 1
    std::filesystem::path initDir;  ///< the folder shown at first
    std::filesystem::path fileName; ///< the name chosen last; a cancel leaves it

    /// What becomes of the file that the save dialog names.
    enum class Fate {
        Overwritten, ///< the operator is asked first when it is there
        LeftAlone,
    };

    /// Each returns when the operator has closed the dialog. `title` says what it is for.
    virtual void ShowOpen(std::string_view title) = 0;
    virtual void ShowSave(std::string_view title, Fate fate) = 0;
};

} // namespace tarvex
