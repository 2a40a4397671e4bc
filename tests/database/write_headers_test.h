#pragma once

#include "database/survey_test.h"
#include "database/write_headers.h"

#include <string>
#include <vector>

namespace tarvex::tests
{

inline constexpr auto kBadBlock = "Attention: Block no. is incorect";
inline constexpr auto kBadDepth = "Attention: Invalid DEPTH value";
inline constexpr auto kBadStep = "Attention: Invalid STEP value";
inline constexpr auto kBadGuides = "Attention: Invalid GUIDES value";
inline constexpr auto kBadNorth = "Attention: Invalid NORTH value";

/// A row that passes every check, with two readings.
inline SurveyRow DamRow(const Value& mark)
{
    SurveyRow row = TubeRow(DamHeader("00", "", ""));
    row["l0"] = "150926  080000  ";
    row["l1"] = "160926  093015  ";
    row["b"] = mark;
    return row;
}

inline SurveyRow DamRowWith(const std::string& field, const Value& value)
{
    SurveyRow row = DamRow("5");
    row[field] = value;
    if (value.IsNull()) row.erase(field);
    return row;
}

class WriteHeadersTest : public SurveyTest
{
protected:
    WriteHeadersTest() { state.blockHeader = working; }

    /// What the working header holds when the command starts; no field is a default.
    static BlockHeader WorkingHeader()
    {
        BlockHeader header;
        header.cliente = "WORKCLIE";
        header.cantiere = "WORKSITE";
        header.tubo = "WORK";
        header.profondità = "0001";
        header.passo = "9";
        header.guide = "8";
        header.nord = "?777";
        header.nlet = "66";
        header.data = "WORKDATA";
        header.ora = "WORKORA ";
        header.punto = "P";
        header.gain1 = "GAIN1..";
        header.gain2 = "GAIN2..";
        header.zero1 = "ZERO1..";
        header.zero2 = "ZERO2..";
        return header;
    }

    /// What a marked DamRow makes of it.
    static BlockHeader WrittenHeader()
    {
        BlockHeader header = WorkingHeader();
        const BlockHeader dam = DamHeader("02", "", "");
        header.cliente = dam.cliente;
        header.cantiere = dam.cantiere;
        header.tubo = dam.tubo;
        header.profondità = dam.profondità;
        header.passo = dam.passo;
        header.guide = dam.guide;
        header.nord = dam.nord;
        header.nlet = dam.nlet;
        return header;
    }

    /// The numbers of the records that are no longer the default ones.
    std::vector<int> WrittenRecords() const
    {
        std::vector<int> written;
        for (int number = 1; number <= 30; ++number)
            if (StoredHeader(number) != DefaultHeader(number - 1)) written.push_back(number);
        return written;
    }

    std::vector<Value> Marks()
    {
        std::vector<Value> marks;
        for (SurveyRow& row : Rows())
            marks.push_back(row["b"]);
        return marks;
    }

    void ExpectPanelShowsBlockOne()
    {
        EXPECT_EQ(state.currentBlock, 1);
        EXPECT_EQ(panel.blockNumber.Text(), "01");
        EXPECT_EQ(state.blockHeader, StoredHeader(1));
        EXPECT_EQ(panel.header[Client].Text(), StoredHeader(1).cliente.Text());
        EXPECT_EQ(panel.calibration[Gain1].Text(), StoredHeader(1).gain1.Text());
        EXPECT_EQ(panel.calibration[Point].Text(), StoredHeader(1).punto.Text());
        EXPECT_EQ(FileBytes(state.headerFilePath).size(), 2310U);
        EXPECT_EQ(finishedHandlers, 1);
        EXPECT_EQ(world.passes, 2);
    }

    const BlockHeader working = WorkingHeader();
};

} // namespace tarvex::tests
