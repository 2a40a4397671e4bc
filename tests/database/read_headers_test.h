#pragma once

#include "database/read_headers.h"
#include "database/survey_test.h"

#include <string>

namespace tarvex::tests
{

inline constexpr auto kLimit = "ATTENTION: Already there were executed 25 readings ";

class ReadHeadersTest : public SurveyTest
{
protected:
    /// The row that reading `header` from record 1 leaves of `before`, a row of the same tube.
    SurveyRow FoldInto(const SurveyRow& before, const BlockHeader& header)
    {
        AddRow(before);
        PutHeader(1, header);
        Read();
        EXPECT_EQ(Rows().size(), 30U);
        return RowAt(0);
    }

    static SurveyRow With(SurveyRow row, const SurveyRow& more)
    {
        for (const auto& [name, value] : more)
            row[name] = value;
        return row;
    }
};

inline const BlockHeader kReading = DamHeader("00", "160926  ", "093015  ");
inline const std::string kFiled = "160926  093015  ";
inline const std::string kEarlier = "150926  080000  ";

} // namespace tarvex::tests
