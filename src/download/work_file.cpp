#include "download/work_file.h"

#include "core/conversion.h"
#include "core/failure_rule.h"
#include "download/sample_word.h"
#include "link/memory_page.h"

#include <array>

namespace tarvex
{

namespace
{

using Column = FixedText<8> DataRecord::*;

/// The columns of a page's words, two bytes each, in the order of the memory.
constexpr std::array<Column, 8> kColumns = {&DataRecord::a1, &DataRecord::b1, &DataRecord::a3,
                                            &DataRecord::b3, &DataRecord::a2, &DataRecord::b2,
                                            &DataRecord::a4, &DataRecord::b4};
constexpr std::size_t kWordsOfTwoGuides = 4;

void PutRecord(WorkingState& state, RecordFile& workFile, int recordNumber)
{
    state.dataRecord.end = kRecordEnd;
    Attempt([&] { workFile.Put(recordNumber, state.dataRecord); });
}

std::string SampleWord(std::string_view reply, std::size_t word)
{
    const int highByte = 2 * static_cast<int>(word);
    std::string digits(Middle(reply, PositionOfByte(highByte), 2));
    digits += Middle(reply, PositionOfByte(highByte + 1), 2);
    return digits;
}

} // namespace

void WriteTitleRecords(WorkingState& state, RecordFile& workFile)
{
    state.dataRecord.text = kReportTitle;
    PutRecord(state, workFile, 1);
    state.dataRecord.text = "";
    PutRecord(state, workFile, 2);
}

void FillDataRow(WorkingState& state, std::string_view reply, double depth, bool fourGuides)
{
    state.dataRecord.text = "";
    state.dataRecord.depth = OneDecimal(depth) + ";";
    const std::size_t words = fourGuides ? kColumns.size() : kWordsOfTwoGuides;
    for (std::size_t word = 0; word < words; ++word) {
        std::string reading;
        Attempt([&] { DecodeSampleWord(SampleWord(reply, word), reading); });
        state.dataRecord.*kColumns[word] = reading + ";";
    }
}

void WriteDataRow(WorkingState& state, RecordFile& workFile, int recordNumber)
{
    PutRecord(state, workFile, recordNumber);
}

} // namespace tarvex
