#pragma once

#include "database/record_set.h"

namespace tarvex::platform
{

/// Survey rows in an SQLite file. A file that lacks the table gets it; a table that lacks a field
/// is another program's, and is left as it is.
class SqliteEngine : public SurveyEngine
{
public:
    std::unique_ptr<RecordSet> OpenTable(const std::filesystem::path& file) override;
};

} // namespace tarvex::platform
