#pragma once

#include "core/failure_rule.h"
#include "core/start_up.h"
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
    void Assign(std::unique_ptr<RecordSet> records) { records_ = std::move(records); }

    void SetFilter(std::string_view criterion);
    void MoveFirst();
    void MoveNext();
    void AddNew();
    void Edit();
    void Update();
    void SetField(std::string_view name, const Value& value);

    void LetOthersWrite();

    /// False when it fails.
    bool KeepOthersFromWriting();

    /// The handle is spent, and must be opened anew for the next operation.
    void Close();

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
    explicit SurveyDatabase(SurveyEngine& surveyEngine) : engine(surveyEngine) {}

    /// Opens `SurveyTable` over the whole table; when that fails it is left unset, and every step
    /// on it fails.
    void OpenTable();

    /// Opens `SurveyMatch` over the rows of `SurveyTable` that meet its filter.
    void OpenMatch();

    SurveyEngine& engine;

    /// The database's file, set when the database panel loads.
    std::filesystem::path DatabasePath;

    /// The whole table.
    SurveyHandle SurveyTable;

    /// The rows of one header's tube.
    SurveyHandle SurveyMatch;
};

/// The load of `Form4`: the database is `tar_vex.mdb` of the current directory of that moment,
/// which need not be the one where the program started.
void LoadDatabaseForm(SurveyDatabase& survey, const CurrentDirectory& currentDirectory);

/// The test of an "if" by the rule in force: a test that fails counts as passed, so that the steps
/// that it guards run. `test` gives a Truth or a bool; unknown counts as false.
template <class Test>
bool Holds(Test&& test)
{
    bool passed = true;
    Attempt([&] {
        if constexpr (std::is_same_v<std::invoke_result_t<Test>, Truth>) {
            passed = test() == Truth::True;
        } else {
            passed = test();
        }
    });
    return passed;
}

} // namespace tarvex
