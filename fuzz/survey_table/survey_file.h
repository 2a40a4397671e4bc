#pragma once

#include "common/choices.h"

#include <sqlite3.h>

#include <filesystem>
#include <memory>
#include <string>

namespace tarvex::fuzz
{

/// A file `tar_vex.mdb` as somebody may have left it, and what can be asked of it.
class SurveyFile
{
public:
    enum class Kind {
        Missing,
        Ordinary, ///< the program's table, with any values and perhaps with other tables beside it
        Foreign,  ///< no database of the program's: to be left as it is
        Damaged   ///< an ordinary one of which bytes have been changed
    };

    SurveyFile(std::filesystem::path path, Choices& choices);

    Kind KindOfFile() const { return kind_; }

    /// All its bytes.
    std::string Bytes() const;

    /// Rows of the table; its only use is a whole file.
    int Rows() const;

    /// True when SQLite finds nothing wrong with it.
    bool IsSound() const;

private:
    void MakeOrdinary(Choices& choices);
    void MakeForeign(Choices& choices);
    void AddRow(sqlite3* handle, Choices& choices);
    void Damage(Choices& choices);
    std::string Ask(const char* question) const;

    std::filesystem::path path_;
    Kind kind_ = Kind::Missing;
};

} // namespace tarvex::fuzz
