#pragma once

#include "database/record_set.h"
#include "database/survey_fields.h"

#include <array>
#include <map>
#include <memory>
#include <vector>

namespace tarvex::tests
{

/// Survey tables in memory, one for each file name, as plain as the contract allows.
class MemoryEngine : public SurveyEngine
{
public:
    using Row = std::array<Value, kSurveyFields.size()>;
    using Table = std::vector<Row>;

    std::unique_ptr<RecordSet> OpenTable(const std::filesystem::path& file) override;

private:
    std::map<std::filesystem::path, std::shared_ptr<Table>> tables_;
};

} // namespace tarvex::tests
