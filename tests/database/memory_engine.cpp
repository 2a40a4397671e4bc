#include "database/memory_engine.h"

#include "core/failure.h"
#include "database/criterion.h"
#include "database/survey_test.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace tarvex::tests
{

namespace
{

using Row = MemoryEngine::Row;
using Table = MemoryEngine::Table;

bool Meets(const Row& row, const Condition& condition)
{
    const Value& value = row[FieldIndex(condition.field)];
    return !value.IsNull() && Folded(TextOf(value)) == Folded(condition.text);
}

class MemoryRecordSet : public RecordSet
{
public:
    MemoryRecordSet(std::shared_ptr<Table> table, std::vector<Condition> conditions)
        : table_(std::move(table)), conditions_(std::move(conditions))
    {
        for (const Condition& condition : conditions_)
            FieldIndex(condition.field);
        position_ = NextMatch(0);
    }

    void SetFilter(std::string_view criterion) override
    {
        RequireOpen();
        filter_ = criterion;
    }
    std::unique_ptr<RecordSet> OpenRecordset() override
    {
        RequireOpen();
        return std::make_unique<MemoryRecordSet>(table_, ParseCriterion(filter_));
    }
    void MoveFirst() override
    {
        RequireOpen();
        buffer_.reset();
        position_ = NextMatch(0);
        Current();
    }
    bool Eof() override
    {
        RequireOpen();
        return position_ >= table_->size();
    }
    void MoveNext() override
    {
        Current();
        buffer_.reset();
        position_ = NextMatch(position_ + 1);
    }
    void AddNew() override
    {
        RequireOpen();
        buffer_.emplace();
        newRow_ = true;
    }
    void Edit() override
    {
        buffer_ = Current();
        newRow_ = false;
    }
    void Update() override
    {
        Row row = Buffer();
        if (newRow_) {
            const bool atEnd = Eof();
            table_->push_back(std::move(row));
            if (atEnd) position_ = table_->size(); // a new row moves nothing
        } else {
            Current() = std::move(row);
        }
        buffer_.reset();
    }
    Value Fields(std::string_view name) override
    {
        RequireOpen();
        const std::size_t field = FieldIndex(name);
        return buffer_ ? (*buffer_)[field] : Current()[field];
    }
    void SetField(std::string_view name, const Value& value) override
    {
        const std::size_t field = FieldIndex(name);
        Buffer()[field] = StoredForm(field, value);
    }
    void KeepOthersFromWriting() override { RequireOpen(); }
    void LetOthersWrite() override { RequireOpen(); }
    void Close() override
    {
        RequireOpen();
        table_.reset();
    }

private:
    void RequireOpen() const
    {
        if (!table_) throw RunTimeFailure("closed");
    }
    Row& Buffer()
    {
        RequireOpen();
        if (!buffer_) throw RunTimeFailure("no edit buffer");
        return *buffer_;
    }
    Row& Current()
    {
        if (Eof()) throw RunTimeFailure("no row");
        return (*table_)[position_];
    }
    std::size_t NextMatch(std::size_t from) const
    {
        while (from < table_->size() && !MeetsAll((*table_)[from]))
            ++from;
        return from;
    }
    bool MeetsAll(const Row& row) const
    {
        return std::all_of(conditions_.begin(), conditions_.end(),
                           [&](const Condition& condition) { return Meets(row, condition); });
    }

    std::shared_ptr<Table> table_;
    std::vector<Condition> conditions_;
    std::string filter_;
    std::size_t position_ = 0;
    std::optional<Row> buffer_;
    bool newRow_ = false;
};

} // namespace

std::unique_ptr<RecordSet> MemoryEngine::OpenTable(const std::filesystem::path& file)
{
    if (file.empty()) throw RunTimeFailure("no file");
    auto& table = tables_[file];
    if (!table) table = std::make_shared<Table>();
    return std::make_unique<MemoryRecordSet>(table, std::vector<Condition>{});
}

std::unique_ptr<SurveyEngine> MakeTestEngine()
{
    return std::make_unique<MemoryEngine>();
}

} // namespace tarvex::tests
