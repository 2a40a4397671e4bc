#include "panel/widgets/tip_text.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace tarvex::tests
{

namespace
{

const QString kLong = QStringLiteral(
    "Com 1: /dev/ttyUSB0, FT232R USB UART (FTDI), serial A1B2, not permitted. Its users must be in "
    "the group dialout: run `sudo usermod -aG dialout $USER`, then log in again.\nnot opened "
    "14:02: permission denied");

int LongestLine(const QString& text)
{
    int longest = 0;
    for (const QString& line : text.split('\n'))
        longest = std::max(longest, static_cast<int>(line.size()));
    return longest;
}

TEST(TipText, BreaksALongTextIntoLinesThatTheScreenHolds)
{
    const QString tip = panel::TipText(kLong);
    EXPECT_LE(LongestLine(tip), 60);
    EXPECT_LE(tip.count('\n'), 4);
}

TEST(TipText, KeepsEveryWordAndTheTextsOwnLines)
{
    const QString tip = panel::TipText(kLong);
    EXPECT_EQ(QString(tip).replace('\n', ' '), QString(kLong).replace('\n', ' '));
    EXPECT_TRUE(tip.contains("\nnot opened 14:02: permission denied"));
}

TEST(TipText, LeavesAWordWithoutBlanksWhole)
{
    const QString path = "/" + QString(100, 'a');
    EXPECT_EQ(panel::TipText(path), path);
    EXPECT_EQ(panel::TipText("Com 1: " + path + " end"), "Com 1:\n" + path + "\nend");
}

TEST(TipText, LeavesAShortTextAsItIs)
{
    EXPECT_EQ(panel::TipText("Com 1:  a & b"), "Com 1:  a & b");
    EXPECT_EQ(panel::TipText(""), "");
}

TEST(TipText, LeavesANameThatLooksLikeMarkupAsItIs)
{
    EXPECT_EQ(panel::TipText("Com 1: <b>adapter</b> &lt; b"), "Com 1: <b>adapter</b> &lt; b");
}

} // namespace

} // namespace tarvex::tests
