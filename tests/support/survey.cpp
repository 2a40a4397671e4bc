#include "support/survey.h"

#include "support/report_bytes.h"

namespace tarvex::tests
{

namespace
{
constexpr int kDataPages = 240;
} // namespace

std::vector<std::string> SmallSurveyHeader()
{
    return {"CLIENT0 ", "SITE0000", "T12 ", "0015", "0", "2", "+000", "03", "161126  ", "093015"};
}

void SetSmallSurvey(ScriptedUnit& unit, int index)
{
    unit.SetHeader(index, SmallSurveyHeader());
    unit.SetReadings(index, 0, {0x81F4, 0x01F4, 0x8000, 0x0000, 0x8001, 0x8002, 0x8003, 0x8004});
    unit.SetReadings(index, 1, {0x8064, 0x0064, 0x800A, 0x000A});
    unit.SetReadings(index, 2, {0x8001, 0x0001, 0x8002, 0x0002});
}

std::vector<std::string> SmallSurveyRows()
{
    return {RowRecord("001.5", {"+00500", "-00500", "+00000", "-00000"}),
            RowRecord("001.0", {"+00100", "-00100", "+00010", "-00010"}),
            RowRecord("000.5", {"+00001", "-00001", "+00002", "-00002"})};
}

std::string SmallSurveyHeadReport()
{
    return HeadReportOf({"Client: ;CLIENT0 ", "Site:;SITE0000", "Tube no: ;T12 ", "Depth:;001.5",
                         "Step:;0", "Guides no: ;2", "North:;+000", "Readout no:;03",
                         "Date: ;16/11/26", "Time:;09:30:15"});
}

void SetSurvey(ScriptedUnit& unit, int index, const std::string& depth, const std::string& step,
               const std::string& guides)
{
    std::vector<std::string> header = SmallSurveyHeader();
    header[3] = depth;
    header[4] = step;
    header[5] = guides;
    unit.SetHeader(index, header);
    for (int page = 0; page < kDataPages; ++page) {
        const auto word = static_cast<std::uint16_t>(0x8000 + page);
        unit.SetReadings(index, page, std::vector<std::uint16_t>(8, word));
    }
}

} // namespace tarvex::tests
