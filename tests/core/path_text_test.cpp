#include "core/path_text.h"

#include "support/logic_test.h"
#include "support/system_limits.h"

namespace tarvex::tests
{
namespace
{

using std::filesystem::path;

TEST(PathText, ShowsAPathInUnicode)
{
    EXPECT_EQ(path_text::Unicode(path(u8"/srv/città/€ 𝄞")), u"/srv/città/€ 𝄞");
}

TEST(PathText, FindsThePathOfAText)
{
    EXPECT_EQ(path_text::FromUnicode(u"/srv/città/€ 𝄞"), path(u8"/srv/città/€ 𝄞"));
    EXPECT_EQ(path_text::FromUnicode(u""), path());
}

TEST(PathText, GivesALibraryTheBytesThatLeadBackToThePath)
{
    const path name(u8"/srv/città/€ 𝄞");
    EXPECT_EQ(path_text::ForLibrary(name), "/srv/città/€ 𝄞");
    EXPECT_EQ(path_text::FromLibrary(path_text::ForLibrary(name)), name);
    EXPECT_EQ(path_text::FromLibrary(""), path());
}

TEST(PathText, GivesALibraryTheSystemsOwnBytesAlsoWhereTheyAreNoUtf8)
{
    SKIP_WHERE_PATHS_ARE_UNICODE();
    EXPECT_EQ(path_text::ForLibrary("/srv/Citt\xE0"), "/srv/Citt\xE0");
    EXPECT_EQ(path_text::FromLibrary("/srv/Citt\xE0"), path("/srv/Citt\xE0"));
}

TEST(PathText, ShowsAReplacementForBytesThatAreNoUtf8)
{
    SKIP_WHERE_PATHS_ARE_UNICODE();
    EXPECT_EQ(path_text::Unicode("/srv/Citt\xE0/dati"), u"/srv/Citt\uFFFD/dati");
    EXPECT_EQ(path_text::Unicode("\xED\xA0\x80"), u"\uFFFD") << "a surrogate is no character";
    EXPECT_EQ(path_text::Unicode("\xF4\x90\x80\x80"), u"\uFFFD") << "beyond Unicode";
}

TEST(PathText, ReplacesHalfASurrogatePair)
{
    SKIP_WHERE_PATHS_ARE_UNICODE();
    const std::u16string half = {u'a', char16_t{0xD834}, u'b'};
    EXPECT_EQ(path_text::FromUnicode(half), path(u8"a\uFFFDb"));
    EXPECT_EQ(path_text::FromUnicode(std::u16string(1, char16_t{0xDD1E})), path(u8"\uFFFD"));
}

TEST(PathText, KeepsHalfASurrogatePairWhereANameMayHoldIt)
{
    if (std::is_same_v<path::value_type, char>) GTEST_SKIP() << "this system's paths are bytes";
    const std::u16string half = {u'a', char16_t{0xD834}, u'b'};
    EXPECT_EQ(path_text::Unicode(path_text::FromUnicode(half)), half);
    EXPECT_TRUE(path_text::IsUnicode(path_text::FromUnicode(half)));
}

TEST(PathText, SaysWhichPathsATextLeadsBackTo)
{
    SKIP_WHERE_PATHS_ARE_UNICODE();
    EXPECT_TRUE(path_text::IsUnicode(""));
    EXPECT_TRUE(path_text::IsUnicode(path(u8"/srv/città/𝄞/\uFFFD")));
    EXPECT_FALSE(path_text::IsUnicode("/srv/Citt\xE0"));
    EXPECT_FALSE(path_text::IsUnicode("/srv/\xED\xA0\x80"));
}

TEST(PathText, EveryByteInAPathIsShownAndNoneFails)
{
    SKIP_WHERE_PATHS_ARE_UNICODE();
    for (int code = 1; code < 256; ++code) {
        const path odd(std::string("/a") + static_cast<char>(code) + "b");
        EXPECT_GE(path_text::Unicode(odd).size(), 3U) << code;
        EXPECT_EQ(path_text::IsUnicode(odd), code < 128) << code;
    }
}

} // namespace
} // namespace tarvex::tests
