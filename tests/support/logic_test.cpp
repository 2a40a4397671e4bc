#include "support/logic_test.h"

#include "core/record_file.h"

namespace tarvex::tests
{

LogicTest::LogicTest()
{
    panel.ssOption1.OnClick([this](int index) { state.ComPortNumber = index + 1; });
    LoadMainForm(panel, state, headers, [this] { return folder.Path(); });
}

void LogicTest::Click(const std::function<void()>& handler)
{
    LetFailuresGoUp rule;
    try {
        handler();
        ++finishedHandlers;
    } catch (const RunTimeFailure& failure) {
        unhandledFailure = failure.what();
        world.EndProgramAt(world.Now());
    } catch (const ProgramEnded&) {
        EXPECT_TRUE(world.Ended());
    }
}

void LogicTest::ClickLink(const std::function<void(DeviceLink&)>& handler)
{
    Click([&] {
        DeviceLink link(line);
        handler(link);
    });
}

BlockHeader LogicTest::StoredHeader(int recordNumber) const
{
    RecordFile file(sizeof(BlockHeader));
    file.Open(state.HeaderFilePath);
    BlockHeader header;
    file.Get(recordNumber, header);
    EXPECT_FALSE(file.EndOfFile()) << "no record " << recordNumber;
    return header;
}

} // namespace tarvex::tests
