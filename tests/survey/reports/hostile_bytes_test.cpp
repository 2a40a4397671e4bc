#include "survey/reports/reader.h"

#include "support/report_bytes.h"
#include "support/survey.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace tarvex::survey
{
namespace
{

/// What holds for the contents of any bytes.
void ExpectSound(const Contents& contents, const std::string& bytes)
{
    EXPECT_EQ(contents.kind == FileKind::None, !contents.refusal.empty());
    EXPECT_LE(contents.anomalies.size(), kMostAnomalies);
    for (const auto& anomaly : contents.anomalies) {
        EXPECT_GE(anomaly.record, 1U);
        EXPECT_LT(anomaly.offset, bytes.size());
        EXPECT_LT(anomaly.text.size(), 200U);
    }
    EXPECT_TRUE(std::ranges::is_sorted(contents.rows, std::ranges::less_equal{}, &Row::depth))
        << "each depth once, in order";
    for (const auto& row : contents.rows)
        for (const auto& reading : row.readings)
            EXPECT_TRUE(!reading || std::abs(reading->counts) <= kLargestReading);
}

/// One change of the kind that bad disks, cables and editors make.
void Damage(std::string& bytes, std::mt19937& random)
{
    const auto at = [&](std::size_t size) { return random() % std::max<std::size_t>(size, 1); };
    static const std::string kBytes("\r\n;+- .,059A\0\xEF\xFF", 15);
    const auto place = at(bytes.size());
    const char byte = kBytes[at(kBytes.size())];
    switch (random() % 5U) {
    case 0:
        if (!bytes.empty()) bytes[place] = byte;
        break;
    case 1:
        bytes.insert(place, 1 + at(20), byte);
        break;
    case 2:
        bytes.erase(place, 1 + at(200));
        break;
    case 3:
        bytes.insert(place, bytes.substr(at(bytes.size()), at(300)));
        break;
    default:
        bytes.resize(place);
    }
}

class HostileBytes : public ::testing::TestWithParam<std::string>
{
};

TEST_P(HostileBytes, NeverBreakTheReader)
{
    std::mt19937 random(20261121);
    for (int round = 0; round < 3000; ++round) {
        auto bytes = GetParam();
        const auto changes = 1 + random() % 12U;
        for (std::size_t i = 0; i < changes; ++i)
            Damage(bytes, random);
        ExpectSound(Read(bytes), bytes);
        if (HasFailure()) FAIL() << "round " << round;
    }
}

INSTANTIATE_TEST_SUITE_P(Reports, HostileBytes,
                         ::testing::Values(tests::SmallSurveyHeadReport(),
                                           tests::DataReportOf(tests::SmallSurveyRows()),
                                           tests::WorkFileOf(tests::SmallSurveyRows()),
                                           std::string()));

TEST(HostileText, OfAMegabyteIsReadInOnePass)
{
    std::string same;
    while (same.size() < (1U << 20U))
        same += "0.5;+00001;+00001;+00001;+00001\n";
    EXPECT_EQ(Read(same).rows.size(), 1U);
    EXPECT_EQ(Read(std::string(1U << 20U, ';')).kind, FileKind::None);
    EXPECT_EQ(Read(std::string(1U << 20U, '\r')).kind, FileKind::None);
}

} // namespace
} // namespace tarvex::survey
