#include "database/watched_engine.h"

#include "core/failure.h"

#include <utility>

namespace tarvex::tests
{

namespace
{

class WatchedRecordSet : public RecordSet
{
public:
    WatchedRecordSet(WatchedEngine& watcher, std::unique_ptr<RecordSet> inner)
        : watcher_(watcher), inner_(std::move(inner))
    {
    }

    void SetFilter(std::string_view criterion) override
    {
        watcher_.Note("Filter " + std::string(criterion));
        inner_->SetFilter(criterion);
    }
    std::unique_ptr<RecordSet> OpenRecordset() override
    {
        watcher_.Note("OpenRecordset");
        return std::make_unique<WatchedRecordSet>(watcher_, inner_->OpenRecordset());
    }
    void MoveFirst() override
    {
        watcher_.Note("MoveFirst");
        inner_->MoveFirst();
    }
    bool Eof() override
    {
        watcher_.Note("Eof");
        return inner_->Eof();
    }
    void MoveNext() override
    {
        watcher_.Note("MoveNext");
        inner_->MoveNext();
    }
    void PassOverEmptyMarks() override { inner_->PassOverEmptyMarks(); } // no step of a handler
    void AddNew() override
    {
        watcher_.Note("AddNew");
        inner_->AddNew();
    }
    void Edit() override
    {
        watcher_.Note("Edit");
        inner_->Edit();
    }
    void Update() override
    {
        watcher_.Note("Update");
        inner_->Update();
    }
    Value Fields(std::string_view name) override
    {
        watcher_.Note("Fields " + std::string(name));
        return inner_->Fields(name);
    }
    void SetField(std::string_view name, const Value& value) override
    {
        watcher_.Note("SetField " + std::string(name));
        inner_->SetField(name, value);
    }
    void KeepOthersFromWriting() override
    {
        watcher_.Note("KeepOthersFromWriting");
        inner_->KeepOthersFromWriting();
    }
    void LetOthersWrite() override
    {
        watcher_.Note("LetOthersWrite");
        inner_->LetOthersWrite();
    }
    void Close() override
    {
        watcher_.Note("Close");
        inner_->Close();
    }

private:
    WatchedEngine& watcher_;
    std::unique_ptr<RecordSet> inner_;
};

} // namespace

std::unique_ptr<RecordSet> WatchedEngine::OpenTable(const std::filesystem::path& file)
{
    Note("OpenTable");
    return std::make_unique<WatchedRecordSet>(*this, inner_.OpenTable(file));
}

void WatchedEngine::Note(std::string call)
{
    calls.push_back(std::move(call));
    if (fails(static_cast<int>(calls.size()), calls.back())) throw RunTimeFailure("on purpose");
}

} // namespace tarvex::tests
