#include "blocks/block_commands.h"

#include "core/failure.h"
#include "support/logic_test.h"

namespace tarvex::tests
{
namespace
{

/// A port that cannot be opened, and looks at what there is when somebody tries.
class RefusingPort : public ScriptedPort
{
public:
    std::function<void()> atOpening;
    int tries = 0;

    void Open() override
    {
        ++tries;
        atOpening();
        throw RunTimeFailure("No such port");
    }
};

/// How far a command's work on the file and the panel has come when it opens the port. The panel
/// shows record 3 of the own table with another client; the operator has then typed block 7.
class PortOpeningTest : public LogicTest
{
protected:
    PortOpeningTest()
    {
        OpenOwnTableAt(*this, 3);
        panel.header[Client].SetText("VERDI   ");
        panel.blockNumber.SetText("07");
        edited_[2] = WithClient("VERDI", OwnRecord(3));
        typed_ = HeaderOnPanel(*this);
    }

    ~PortOpeningTest() override { EXPECT_EQ(refusing_.tries, 1); }

    void ExpectAtOpening(const std::vector<std::string>& table, const std::string& header)
    {
        refusing_.atOpening = [this, table, header] {
            EXPECT_TRUE(panel.waitIndicator.label.Visible());
            EXPECT_EQ(StoredTable(*this), table);
            EXPECT_EQ(HeaderOnPanel(*this), header);
            EXPECT_EQ(CalibrationOnPanel(*this), CalibrationPayload(OwnRecord(3)));
        };
    }

    std::vector<std::string> edited_ = OwnTable(); // the file once the panel has been stored
    std::string typed_;
    RefusingPort refusing_;
    Line refusingLine_{refusing_, world, world, boxes, state, &panel.waitIndicator};
    DeviceLink link_{refusingLine_};
};

TEST_F(PortOpeningTest, SetBlockHasStoredThePanelAndShownTheChosenRecord)
{
    ExpectAtOpening(edited_, HeaderPayload(OwnRecord(7)));
    boxes.ExpectQuestion(kBlocksQuestion, true);
    Click([&] { SetBlock(panel, state, link_, view, world); });
}

TEST_F(PortOpeningTest, SetAllHasStoredThePanelAndShownNoOtherRecord)
{
    ExpectAtOpening(edited_, typed_);
    boxes.ExpectQuestion(kBlockQuestion, true);
    Click([&] { SetAll(panel, state, link_, view, world); });
}

TEST_F(PortOpeningTest, ResetBlockHasNotTouchedTheFile)
{
    ExpectAtOpening(OwnTable(), typed_);
    boxes.ExpectQuestion(kBlockQuestion, true);
    Click([&] { ResetBlock(panel, state, link_, view, world); });
}

TEST_F(PortOpeningTest, TotalResetHasNotTouchedTheFile)
{
    ExpectAtOpening(OwnTable(), typed_);
    boxes.ExpectQuestion(kBlockQuestion, true);
    Click([&] { TotalReset(panel, state, link_, view, world); });
}

TEST_F(PortOpeningTest, ResetOfGainAndZeroHasStoredThePanelAndNotShownTheDefaults)
{
    ExpectAtOpening(edited_, typed_);
    boxes.ExpectQuestion(kGainZeroQuestion, true);
    Click([&] { ResetGainZero(panel, state, link_, view, world); });
}

} // namespace
} // namespace tarvex::tests
