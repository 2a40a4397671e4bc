#include "database/survey_database.h"

namespace tarvex
{

void SurveyHandle::SetFilter(std::string_view criterion)
{
    Attempt([&] { Opened().SetFilter(criterion); });
}

void SurveyHandle::MoveFirst()
{
    Attempt([&] { Opened().MoveFirst(); });
}

void SurveyHandle::PassOverEmptyMarks()
{
    if (records_) records_->PassOverEmptyMarks();
}

void SurveyHandle::MoveNext()
{
    Attempt([&] { Opened().MoveNext(); });
}

void SurveyHandle::AddNew()
{
    Attempt([&] { Opened().AddNew(); });
}

void SurveyHandle::Edit()
{
    Attempt([&] { Opened().Edit(); });
}

void SurveyHandle::Update()
{
    Attempt([&] { Opened().Update(); });
}

void SurveyHandle::SetField(std::string_view name, const Value& value)
{
    Attempt([&] { Opened().SetField(name, value); });
}

bool SurveyHandle::KeepOthersFromWriting()
{
    return Attempt([&] { Opened().KeepOthersFromWriting(); });
}

void SurveyHandle::LetOthersWrite()
{
    Attempt([&] { Opened().LetOthersWrite(); });
}

void SurveyHandle::Close()
{
    Attempt([&] { Opened().Close(); });
}

RecordSet& SurveyHandle::Opened() const
{
    if (!records_) throw RunTimeFailure("Object variable not set");
    return *records_;
}

void SurveyDatabase::OpenTable()
{
    surveyTable.Assign(nullptr);
    Attempt([&] { surveyTable.Assign(engine.OpenTable(databasePath)); });
}

void SurveyDatabase::OpenMatch()
{
    Attempt([&] { surveyMatch.Assign(surveyTable.OpenRecordset()); });
}

void LoadDatabaseForm(SurveyDatabase& survey, const CurrentDirectory& currentDirectory)
{
    SkipOnError rule;
    Attempt([&] { survey.databasePath = currentDirectory() / "tar_vex.mdb"; });
}

} // namespace tarvex
