#include "conversation/folders.h"

#include "common/require.h"
#include "support/system_limits.h"

#include <fstream>

namespace tarvex::fuzz
{

namespace
{

namespace fs = std::filesystem;

/// The length of the records of a file of that name; 0 for a name that the program gives no file.
std::uintmax_t RecordLength(const std::string& name)
{
    if (name == "intestazione" || name == "other") return 77;
    if (name == "datiram.dat" || name.ends_with("-num.dat")) return 113;
    return name.ends_with("-dat.dat") ? 42 : 0;
}

void Replace(const fs::path& path, const std::string& bytes)
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
    std::ofstream(path, std::ios::binary) << bytes;
}

void ReplaceByFolder(const fs::path& path)
{
    std::error_code ignored;
    fs::remove_all(path, ignored);
    fs::create_directory(path, ignored);
}

} // namespace

Folders::Folders(const fs::path& start, WorkingState& state, Choices& choices)
    : start_(start), reports_(start.parent_path() / "reports"), state_(state), choices_(choices)
{
    fs::create_directory(reports_);
    fs::current_path(start_);
    state_.reportFolder = reports_;
}

Folders::~Folders()
{
    disk_.reset();
    std::error_code ignored;
    fs::current_path(start_.parent_path(), ignored);
    fs::remove_all(reports_, ignored);
}

void Folders::DoHarm()
{
    disk_.reset(); // what is written here is written whole
    std::error_code ignored;
    switch (choices_.Below(9)) {
    case 0:
        fs::remove_all(start_ / "intestazione", ignored);
        break;
    case 1:
        cutByUs_ = true;
        fs::resize_file(start_ / "intestazione", choices_.Below(2400), ignored);
        break;
    case 2:
        ReplaceByFolder(start_ / "intestazione");
        break;
    case 3:
        fs::remove_all(reports_, ignored);
        break;
    case 4:
        ReplaceByFolder(reports_ / "datiram.dat");
        break;
    case 5:
        fs::remove(reports_ / "datiram.dat", ignored);
        fs::create_symlink(start_ / "intestazione", reports_ / "datiram.dat", ignored);
        break;
    case 6:
        cutByUs_ = true;
        Replace(reports_ / "datiram.dat", choices_.Bytes(240));
        break;
    case 7:
        Replace(start_ / "datiram.dat", std::string(113, ' '));
        break;
    default:
        disk_ = std::make_unique<tests::FullDisk>(choices_.Below(4096));
    }
}

void Folders::ChooseReports()
{
    const fs::path places[] = {reports_, start_, reports_ / "missing", start_ / "intestazione",
                               start_.parent_path() / "absent"};
    state_.reportFolder = choices_.OneOf(places);
}

fs::path Folders::HeaderFile()
{
    const fs::path places[] = {start_ / "intestazione",
                               start_ / "other",
                               fs::path(),
                               start_,
                               reports_ / "missing" / "x",
                               fs::path(std::string("x\0y", 3))};
    return choices_.OneOf(places);
}

void Folders::RequireSound() const
{
    for (const auto& place : fs::directory_iterator(start_.parent_path())) {
        Require(place.path() == start_ || place.path() == reports_,
                "nothing is written outside the two folders: " + place.path().string());
        if (!place.is_directory()) continue;
        for (const auto& file : fs::directory_iterator(place.path()))
            if (!file.is_directory() && !file.is_symlink()) RequireRecords(file.path());
    }
}

void Folders::RequireRecords(const fs::path& file) const
{
    const auto length = RecordLength(file.filename().string());
    Require(length > 0, "the program gives such a name: " + file.string());
    Require(cutByUs_ || fs::file_size(file) % length == 0, "whole records: " + file.string());
}

} // namespace tarvex::fuzz
