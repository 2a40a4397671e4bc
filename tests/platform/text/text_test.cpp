#include "platform/text/qt_text.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

TEST(ToolkitText, EveryByteSurvivesTheWayToTheToolkitAndBack)
{
    for (int value = 0; value < 256; ++value) {
        const std::string byte(1, static_cast<char>(value));
        EXPECT_EQ(ToQString(byte).size(), 1) << value;
        EXPECT_EQ(ToBytes(ToQString(byte)), byte) << value;
    }
}

TEST(ToolkitText, KeepsNulAndControlBytesInTheirPlaces)
{
    const std::string bytes("a\0b\r\n", 5);
    EXPECT_EQ(ToQString(bytes), QString("a%1b\r\n").arg(QChar(0)));
    EXPECT_EQ(ToBytes(ToQString(bytes)), bytes);
}

TEST(ToolkitText, TurnsTheCodePagesOwnCharacters)
{
    EXPECT_EQ(ToQString("\x80 \xE0 \x9F"), QString::fromUtf8("€ à Ÿ"));
    EXPECT_EQ(ToBytes(QString::fromUtf8("€ à Ÿ")), "\x80 \xE0 \x9F");
}

TEST(ToolkitText, ACharacterOutsideTheCodePageIsOneQuestionMark)
{
    EXPECT_EQ(ToBytes(QString::fromUtf8("Ω")), "?");
    EXPECT_EQ(ToBytes(QString::fromUtf8("😀")), "?");
    EXPECT_EQ(ToBytes(QString(QChar(0xD83D))), "?");
}

} // namespace
} // namespace tarvex::tests
