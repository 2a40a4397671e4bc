#pragma once

#include <filesystem>
#include <string>

namespace tarvex
{

/// The one file dialog of the program, `CommonDialog1`. Its settings stay from one showing to the
/// next.
class FileDialog
{
public:
    virtual ~FileDialog() = default;

    std::string Filter;             ///< pairs of description and pattern, each ended by "|"
    int FilterIndex = 0;            ///< the filter selected at first, from 1
    std::filesystem::path InitDir;  ///< the folder shown at first
    std::filesystem::path FileName; ///< the name chosen last; a cancel leaves it

    /// Each returns when the operator has closed the dialog.
    virtual void ShowOpen() = 0;
    virtual void ShowSave() = 0;
};

} // namespace tarvex
