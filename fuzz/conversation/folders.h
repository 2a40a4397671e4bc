#pragma once

#include "common/choices.h"
#include "core/working_state.h"

#include <filesystem>
#include <memory>

namespace tarvex::tests
{
class FullDisk;
}

namespace tarvex::fuzz
{

/// The folder where the program started and that of the reports, and what may become of them while
/// the program runs.
class Folders
{
public:
    /// Makes the folder of the reports, and makes `start` the current one.
    Folders(const std::filesystem::path& start, WorkingState& state, Choices& choices);
    ~Folders();
    Folders(const Folders&) = delete;
    Folders& operator=(const Folders&) = delete;

    /// Something happens to a file or a folder that the program works with.
    void DoHarm();

    /// The operator chooses a folder for the reports, most often the one there is.
    void ChooseReports();

    /// A path that the dialog may give for a header file.
    std::filesystem::path HeaderFile();

    /// No file anywhere but in the two folders, none there of another name than the program gives,
    /// and all of whole records.
    void RequireSound() const;

private:
    void RequireRecords(const std::filesystem::path& file) const;

    std::filesystem::path start_;
    std::filesystem::path reports_;
    WorkingState& state_;
    Choices& choices_;
    std::unique_ptr<tests::FullDisk> disk_;
    bool cutByUs_ = false; ///< a file here has been cut in the middle of a record
};

} // namespace tarvex::fuzz
