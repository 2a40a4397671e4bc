#include "faults/fault_test.h"

#include "core/block_header.h"
#include "support/report_bytes.h"

#include <iostream>
#include <thread>

namespace tarvex::tests
{

namespace
{

using ::testing::AnyOf;
using ::testing::IsEmpty;

std::string NameOfTest()
{
    const auto* const test = ::testing::UnitTest::GetInstance()->current_test_info();
    return std::string(test->test_suite_name()) + "." + test->name();
}

std::string SeedInWords()
{
    return "TARVEX_SEED=" + std::to_string(SeedOfRun());
}

std::string HeaderOf(const std::string& client, const std::string& site, const std::string& rest)
{
    return Padded(client, 8) + Padded(site, 8) + rest + "0+1.0000+1.0000+0.0000+0.0000";
}

} // namespace

FaultTest::FaultTest() : chance(NameOfTest()), seed_(__FILE__, __LINE__, SeedInWords()) {}

FaultTest::~FaultTest()
{
    std::cout << "[ faults   ] " << SeedInWords();
    for (const auto& [what, count] : notes_)
        std::cout << ", " << count << ' ' << what;
    std::cout << std::endl;
}

void FaultTest::StartUnit(const std::vector<std::string>& options)
{
    std::vector<std::string> words{"--demo", "--fast", "--link", desk.Port().string()};
    words.insert(words.end(), options.begin(), options.end());
    unit.reset(); // its end takes its link away
    unit.emplace(words);
    if (unit->Terminal().empty()) throw std::runtime_error("the unit does not start");
}

std::chrono::microseconds FaultTest::Moment(std::chrono::microseconds whole)
{
    return std::chrono::microseconds(chance.Below(static_cast<std::uint32_t>(whole.count()) + 1));
}

void FaultTest::KillInside(Manager& manager, std::chrono::microseconds whole)
{
    std::this_thread::sleep_for(Moment(whole));
    manager.Kill();
    Note("kills");
}

void FaultTest::ExpectNextStartWorks()
{
    Manager next(desk);
    EXPECT_EQ(next.Text("Text3"), "CLIENT 1");
    EXPECT_THAT(OfHeaderTable(desk.HeaderTable(), DefaultTable(), DefaultTable()), IsEmpty());
    EXPECT_EQ(std::filesystem::file_size(desk.HeaderTable()), kBlockCount * sizeof(BlockHeader));
    next.Do("type Text2 02");
    EXPECT_THAT(next.Do("click Command3"), IsEmpty());
    EXPECT_THAT(next.Text("Text3"), AnyOf("DELVALLE", "CLIENT 2"));
    EXPECT_EQ(next.Close(), 0);
    Note("next starts");
}

std::vector<std::string> FaultTest::DefaultTable()
{
    std::vector<std::string> table;
    for (int number = 1; number <= kBlockCount; ++number)
        table.push_back(DefaultRecord(number));
    return table;
}

std::vector<std::string> FaultTest::DemoTable()
{
    auto table = DefaultTable();
    table[0] = HeaderOf("DELVALLE", "FRANA 02", "T01 030002+04503120426  093015  ");
    table[1] = HeaderOf("DELVALLE", "FRANA 02", "T02 040014-01003120426  111540  ");
    table[2] = HeaderOf("COMUNE", "DIGA 1", "I3  100002+27011130426  081200  ");
    return table;
}

} // namespace tarvex::tests
