#include "platform/qt_path.h"
#include "platform/text/qt_text.h"

#include "support/temporary_folder.h"

#include <QFileInfo>

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using platform::SpelledFolder;

class SpelledFolderTest : public ::testing::Test
{
protected:
    SpelledFolderTest() { std::filesystem::create_directory(odd); }

    TemporaryFolder folder;
    const std::filesystem::path odd = folder / "Citt\xE0";
};

TEST_F(SpelledFolderTest, AnOrdinaryFolderIsSpelledByItsPath)
{
    const SpelledFolder spelled(folder.Path());
    EXPECT_FALSE(spelled.IsAlias());
    EXPECT_EQ(spelled.Spelling(), PathToQString(folder.Path()));
    EXPECT_EQ(spelled.PathOf(spelled.Spelling() + "/table"), folder / "table");
    EXPECT_EQ(spelled.Spell("com1"), PathToQString(folder / "com1"));
}

TEST_F(SpelledFolderTest, TheToolkitReachesAFolderOutsideUnicode)
{
    WriteFile(odd / "table", "1");
    const SpelledFolder spelled(odd);
    EXPECT_TRUE(spelled.IsAlias());
    EXPECT_TRUE(QFileInfo(spelled.Spelling()).isDir());
    EXPECT_TRUE(QFileInfo(spelled.Spell("table")).isFile());
}

TEST_F(SpelledFolderTest, WhatTheToolkitGivesIsFoundInTheSystemsBytes)
{
    const SpelledFolder spelled(odd);
    EXPECT_EQ(spelled.PathOf(spelled.Spelling() + "/sub" + "/table"), odd / "sub" / "table");
    EXPECT_EQ(spelled.PathOf(spelled.Spelling() + "0/table").native().find("Citt"),
              std::string::npos)
        << "another open file whose number only begins alike";
    EXPECT_EQ(spelled.PathOf("/srv/table"), "/srv/table");
}

TEST_F(SpelledFolderTest, AFolderThatIsGoneIsStillShown)
{
    const SpelledFolder spelled(odd / "gone");
    EXPECT_FALSE(spelled.IsAlias());
    EXPECT_TRUE(spelled.Spelling().endsWith(QStringLiteral("Citt\uFFFD/gone")));
    EXPECT_EQ(SpelledFolder({}).Spelling(), QString());
}

TEST_F(SpelledFolderTest, NearestUnicodeIsTheFolderAbove)
{
    EXPECT_EQ(platform::NearestUnicode(odd / "dati"), folder.Path());
    EXPECT_EQ(platform::NearestUnicode(folder.Path()), folder.Path());
}

} // namespace
} // namespace tarvex::tests
