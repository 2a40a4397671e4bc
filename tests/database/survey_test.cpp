#include "database/survey_test.h"

#include "core/record_file.h"
#include "database/read_headers.h"
#include "database/write_headers.h"

namespace tarvex
{

void PrintTo(const Value& value, std::ostream* out)
{
    if (value.IsNull()) {
        *out << "Null";
    } else if (value.Number() != nullptr) {
        *out << *value.Number();
    } else {
        *out << ::testing::PrintToString(*value.Text());
    }
}

} // namespace tarvex

namespace tarvex::tests
{

SurveyTest::SurveyTest()
{
    LoadDatabaseForm(survey, [this] { return folder.Path(); });
}

void SurveyTest::AddRow(const SurveyRow& row)
{
    const auto table = backend->OpenTable(survey.databasePath);
    table->AddNew();
    for (const auto& [name, value] : row)
        table->SetField(name, value);
    table->Update();
    table->Close();
}

std::vector<SurveyRow> SurveyTest::Rows()
{
    std::vector<SurveyRow> rows;
    const auto table = backend->OpenTable(survey.databasePath);
    for (; !table->Eof(); table->MoveNext()) {
        SurveyRow& row = rows.emplace_back();
        for (const auto name : kSurveyFields) {
            const Value value = table->Fields(name);
            if (!value.IsNull()) row.emplace(name, value);
        }
    }
    return rows;
}

SurveyRow SurveyTest::RowAt(std::size_t place)
{
    const auto rows = Rows();
    if (place >= rows.size()) {
        ADD_FAILURE() << "no row " << place;
        return {};
    }
    return rows[place];
}

void SurveyTest::PutHeader(int recordNumber, const BlockHeader& header)
{
    RecordFile file(sizeof(BlockHeader));
    file.Open(state.headerFilePath);
    file.Put(recordNumber, header);
}

void SurveyTest::Read()
{
    Click([&] { ReadHeaders(survey, state, boxes, [&] { ++gridsShown; }); });
}

void SurveyTest::Write()
{
    Click([&] { WriteHeaders(panel, state, survey, world, boxes); });
}

SurveyRow TubeRow(const BlockHeader& header)
{
    return {{"cliente", header.cliente}, {"cantiere", header.cantiere},
            {"tubo", header.tubo},       {"profondità", header.profondità},
            {"passo", header.passo},     {"guide", header.guide},
            {"nord", header.nord},       {"nlet", 0.0}};
}

BlockHeader DamHeader(std::string_view nlet, std::string_view data, std::string_view ora)
{
    BlockHeader header = DefaultHeader(0);
    header.cliente = "ROSSI";
    header.cantiere = "DIGA A";
    header.tubo = "T1";
    header.profondità = "0500";
    header.passo = "1";
    header.guide = "4";
    header.nord = "+015";
    header.nlet = nlet;
    header.data = data;
    header.ora = ora;
    return header;
}

} // namespace tarvex::tests
