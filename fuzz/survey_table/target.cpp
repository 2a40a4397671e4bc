#include "common/target.h"

#include "common/choices.h"
#include "common/require.h"
#include "database/read_headers.h"
#include "database/write_headers.h"
#include "platform/sqlite/sqlite_engine.h"
#include "support/test_program.h"
#include "survey_table/survey_file.h"

#include <set>

namespace tarvex::fuzz
{
namespace
{

/// Takes the boxes of the two commands, and no others.
class SurveyBoxes : public MessageBoxes
{
public:
    void Critical(std::string_view text, std::string_view /*title*/) override
    {
        static const std::set<std::string_view> known = {
            "ATTENTION: Already there were executed 25 readings ",
            "Attention: Block no. is incorect",
            "Attention: Invalid DEPTH value",
            "Attention: Invalid STEP value",
            "Attention: Invalid GUIDES value",
            "Attention: Invalid NORTH value"};
        Require(known.contains(text), text);
    }
    bool AskOkCancel(std::string_view text) override { Broken(text); }
};

/// Headers as an operator may have left them in the boxes.
void StoreHeaders(tests::TestProgram& program, Choices& choices)
{
    for (unsigned records = choices.Below(6); records > 0; --records) {
        for (TextBox& box : program.panel.header.things)
            box.SetText(choices.HostileText(9));
        StorePanel(program.panel, program.state, 1 + choices.Below(30));
    }
}

void RequireSound(const tests::TestProgram& program, const SurveyFile& file, int rowsBefore,
                  const std::string& bytesBefore)
{
    const auto size = std::filesystem::file_size(program.state.headerFilePath);
    Require(size == 30 * sizeof(BlockHeader), "there are thirty headers");
    const bool refused = file.KindOfFile() == SurveyFile::Kind::Foreign;
    if (refused) Require(file.Bytes() == bytesBefore, "another program's file is left as it is");
    if (file.KindOfFile() == SurveyFile::Kind::Damaged) return;
    Require(tests::NamesIn(program.folder.Path()).size() == 2, "at rest there is one file");
    if (refused) return;
    Require(file.IsSound(), "the database is sound");
    Require(file.Rows() >= rowsBefore, "no row is lost");
}

} // namespace
} // namespace tarvex::fuzz

void tarvex::fuzz::RunInput(std::string_view input)
{
    Choices choices(input);
    tests::TestProgram program;
    SurveyFile file(program.folder / "tar_vex.mdb", choices);
    const bool ordinary = file.KindOfFile() == SurveyFile::Kind::Ordinary;
    const int rows = ordinary ? file.Rows() : 0;
    const std::string bytes = file.KindOfFile() == SurveyFile::Kind::Foreign ? file.Bytes() : "";

    platform::SqliteEngine engine;
    SurveyDatabase survey(engine);
    LoadDatabaseForm(survey, [&] { return program.folder.Path(); });
    SurveyBoxes boxes;
    StoreHeaders(program, choices);
    for (int rounds = 0; rounds < 2; ++rounds) {
        program.Click([&] {
            if (choices.Below(2) == 0)
                ReadHeaders(survey, program.state, boxes, [] {});
            else
                WriteHeaders(program.panel, program.state, survey, program.world, boxes);
        });
    }
    Require(!program.unhandledFailure.has_value(), "the two commands skip what fails");
    RequireSound(program, file, rows, bytes);
}
