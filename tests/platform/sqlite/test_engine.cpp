#include "database/survey_test.h"
#include "platform/sqlite/sqlite_engine.h"

namespace tarvex::tests
{

std::unique_ptr<SurveyEngine> MakeTestEngine()
{
    return std::make_unique<platform::SqliteEngine>();
}

} // namespace tarvex::tests
