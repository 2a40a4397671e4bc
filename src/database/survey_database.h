#pragma once

#include "core/current_directory.h"
#include "core/failure_rule.h"
#include "database/record_set.h"

#include <filesystem>
#include <memory>
#include <string_view>

namespace tarvex
{

/// A record-set handle as the handlers use it: every call but the two that give something is one
/// step of the rule in force. While nothing is assigned every call fails.
class SurveyHandle
{
public:
    /// Replaces the handle before; a null one leaves nothing assigned.
    void Assign(std::unique_ptr<RecordSet> records) { records_ = std::move(records); }

    /// The steps of RecordSet of the same names. Under SkipOnError a failure is passed over.
    void SetFilter(std::string_view criterion);
    void MoveFirst();
    void MoveNext();
    void AddNew();
    void Edit();
    void Update();
    void SetField(std::string_view name, const Value& value);
    void LetOthersWrite();

    /// As that of RecordSet; no step, and no effect while nothing is assigned.
    void PassOverEmptyMarks();

    /// False when it fails.
    bool KeepOthersFromWriting();

    /// The handle is spent, and must be opened again for the next operation.
    void Close();

    /// A new handle over the rows that meet the filter. Raises its failure, as the two below do.
    std::unique_ptr<RecordSet> OpenRecordset() { return Opened().OpenRecordset(); }

    /// These two raise their failure: it is the step or the test around them that fails.
    bool Eof() { return Opened().Eof(); }
    Value Fields(std::string_view name) { return Opened().Fields(name); }

private:
    RecordSet& Opened() const;

    std::unique_ptr<RecordSet> records_;
};

/// The survey database as the program holds it for the length of its run.
struct SurveyDatabase {
    /// The engine must outlive it. Nothing is opened yet.
    explicit SurveyDatabase(SurveyEngine& surveyEngine) : engine(surveyEngine) {}

    /// Opens `surveyTable` over the whole table; when that fails it is left unset, and every step
    /// on it fails.
    void OpenTable();

    /// Opens `surveyMatch` over the rows of `surveyTable` that meet its filter.
    void OpenMatch();

    SurveyEngine& engine;

    /// The database's file, set when the database panel loads.
    std::filesystem::path databasePath;

    /// The whole table.
    SurveyHandle surveyTable;

    /// The rows of one header's tube.
    SurveyHandle surveyMatch;
};

/// The load of `Form4`: the database is `tar_vex.mdb` of the current directory of that moment,
/// which need not be the one where the program started.
void LoadDatabaseForm(SurveyDatabase& survey, const CurrentDirectory& currentDirectory);

} // namespace tarvex
