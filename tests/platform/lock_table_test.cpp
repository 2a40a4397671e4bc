#include "platform/lock_table.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

using platform::FileNumber;
using platform::HolderInLockTable;

const FileNumber kAdapter{0, 6, 512};

TEST(LockTable, NamesTheProcessOfALockOfEachAdvisoryKind)
{
    EXPECT_EQ(HolderInLockTable("1: FLOCK  ADVISORY  WRITE 1234 00:06:512 0 EOF\n", kAdapter),
              1234);
    EXPECT_EQ(HolderInLockTable("7: POSIX  ADVISORY  READ  99 00:06:512 0 0\n", kAdapter), 99);
    EXPECT_EQ(HolderInLockTable("12: OFDLCK ADVISORY  WRITE -1 00:06:512 0 EOF\n", kAdapter), 0);
}

TEST(LockTable, FindsTheFileByAllOfItsNumbers)
{
    const char* const table = "1: FLOCK  ADVISORY  WRITE 1 00:06:51 0 EOF\n"
                              "2: FLOCK  ADVISORY  WRITE 2 00:07:512 0 EOF\n"
                              "3: FLOCK  ADVISORY  WRITE 3 01:06:512 0 EOF\n"
                              "4: FLOCK  ADVISORY  WRITE 4 00:06:5120 0 EOF\n";
    EXPECT_EQ(HolderInLockTable(table, kAdapter), std::nullopt);
    EXPECT_EQ(HolderInLockTable(table, {0, 6, 51}), 1);
    EXPECT_EQ(HolderInLockTable("1: POSIX  ADVISORY  WRITE 5 103:1a:77 0 EOF\n", {0x103, 0x1a, 77}),
              5);
}

TEST(LockTable, PassesOverAWaitingProcessALeaseAndWhatItCannotRead)
{
    const char* const table = "1: LEASE  ACTIVE    READ  1 00:06:512 0 EOF\n"
                              "1: -> FLOCK  ADVISORY  WRITE 2 00:06:512 0 EOF\n"
                              "\n"
                              "1: FLOCK ADVISORY\n";
    EXPECT_EQ(HolderInLockTable(table, kAdapter), std::nullopt);
    EXPECT_EQ(HolderInLockTable("", kAdapter), std::nullopt);
}

} // namespace
} // namespace tarvex::tests
