#pragma once

#include "database/survey_database.h"
#include "database/survey_fields.h"
#include "database/watched_engine.h"
#include "support/logic_test.h"

#include <map>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

namespace tarvex
{
/// For the messages of failing tests.
void PrintTo(const Value& value, std::ostream* out);
} // namespace tarvex

namespace tarvex::tests
{

/// The engine that this test program tests: each program brings its own.
std::unique_ptr<SurveyEngine> MakeTestEngine();

/// A row by field name; what is not named is Null.
using SurveyRow = std::map<std::string, Value>;

/// The database panel on the whole program below the window: an empty database in the test's
/// folder, the header file with its thirty default records.
class SurveyTest : public LogicTest
{
protected:
    SurveyTest();

    /// Appends a row to the table.
    void AddRow(const SurveyRow& row);

    /// Every row of the table, in its order.
    std::vector<SurveyRow> Rows();

    /// The row at that place, from 0; the test fails when there is none.
    SurveyRow RowAt(std::size_t place);

    /// Writes one record of the header file.
    void PutHeader(int recordNumber, const BlockHeader& header);

    /// The two commands, run as a click on their button does.
    void Read();
    void Write();

    std::unique_ptr<SurveyEngine> backend = MakeTestEngine();
    WatchedEngine engine{*backend};
    SurveyDatabase survey{engine};
    int gridsShown = 0;
};

/// Names a row of a table test.
template <class Row>
std::string SituationOf(const ::testing::TestParamInfo<Row>& row)
{
    return row.param.situation;
}

/// The row that a new tube gets, without its readings.
SurveyRow TubeRow(const BlockHeader& header);

/// A header of the tube ROSSI / DIGA A / T1 with a reading.
BlockHeader DamHeader(std::string_view nlet, std::string_view data, std::string_view ora);

} // namespace tarvex::tests
