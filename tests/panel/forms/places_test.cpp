#include "panel/forms/places.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

namespace tarvex::tests
{

using panel::DrivePlaces;
using panel::MountPoints;
using panel::NearestPlace;
using panel::Place;
using panel::UnixPlaces;
using ::testing::ElementsAre;

namespace
{
std::vector<std::string> Shown(const std::vector<Place>& places)
{
    std::vector<std::string> shown;
    shown.reserve(places.size());
    for (const Place& place : places)
        shown.push_back(place.name.string() + " = " + place.folder.string());
    return shown;
}
} // namespace

TEST(MountPoints, AreTheFifthFieldsOfTheTable)
{
    std::istringstream table(
        "22 28 0:20 / /sys rw,nosuid shared:7 - sysfs sysfs rw\n"
        "95 28 8:17 / /media/tech/STICK rw,nosuid shared:50 - vfat /dev/sdb1 rw\n");
    EXPECT_THAT(MountPoints(table), ElementsAre("/sys", "/media/tech/STICK"));
}

TEST(MountPoints, AreReadWithBlanksAndOtherEscapedCharacters)
{
    std::istringstream table("95 28 8:17 / /media/tech/USB\\040DISK\\134\\0111 rw - vfat x rw\n"
                             "96 28 8:18 / /mnt/no\\9escape\\04 rw - vfat x rw\n");
    EXPECT_THAT(MountPoints(table),
                ElementsAre("/media/tech/USB DISK\\\t1", "/mnt/no\\9escape\\04"));
}

TEST(MountPoints, AreNoneInATableThatIsNotThereOrCutShort)
{
    std::istringstream cut("95 28 8:17 /\n\n");
    EXPECT_THAT(MountPoints(cut), ElementsAre());
    std::istringstream missing;
    missing.setstate(std::ios::failbit);
    EXPECT_THAT(MountPoints(missing), ElementsAre());
}

TEST(UnixPlaces, AreStartFolderHomeRemovableMediaAndFileSystem)
{
    const auto places = UnixPlaces("/srv/surveys/2026", "/srv/people/tech",
                                   {"/", "/proc", "/media/tech/STICK", "/run/media/tech/CARD",
                                    "/mnt/server", "/mnt", "/mntother", "/media/tech/STICK"});
    EXPECT_THAT(Shown(places),
                ElementsAre("Start folder = /srv/surveys/2026", "Home = /srv/people/tech",
                            "STICK = /media/tech/STICK", "CARD = /run/media/tech/CARD",
                            "server = /mnt/server", "mnt = /mnt", "File system = /"));
}

TEST(UnixPlaces, HoldAFolderOnce)
{
    EXPECT_THAT(Shown(UnixPlaces("/srv/people/tech", "/srv/people/tech", {})),
                ElementsAre("Start folder = /srv/people/tech", "File system = /"));
    EXPECT_THAT(Shown(UnixPlaces("/", "", {})), ElementsAre("Start folder = /"));
}

TEST(DrivePlaces, AreTheDrivesWithDriveCFirst)
{
    EXPECT_THAT(Shown(DrivePlaces("ACD")), ElementsAre("C: = c:\\", "A: = a:\\", "D: = d:\\"));
    EXPECT_THAT(Shown(DrivePlaces("de")), ElementsAre("D: = d:\\", "E: = e:\\"));
}

TEST(NearestPlace, IsTheDeepestOneAboveTheFolder)
{
    const auto places =
        UnixPlaces("/srv/people/tech/surveys", "/srv/people/tech", {"/media/tech/STICK"});
    EXPECT_EQ(NearestPlace(places, "/srv/people/tech/surveys/dati"), 0U);
    EXPECT_EQ(NearestPlace(places, "/srv/people/tech/surveys"), 0U);
    EXPECT_EQ(NearestPlace(places, "/srv/people/tech/surveys2"), 1U);
    EXPECT_EQ(NearestPlace(places, "/media/tech/STICK/a/b"), 2U);
    EXPECT_EQ(NearestPlace(places, "/media/tech"), 3U);
}

TEST(NearestPlace, IsTheFirstForAFolderInNone)
{
    EXPECT_EQ(NearestPlace({{"C", "C:"}, {"D", "D:"}}, "E:/x"), 0U);
    EXPECT_EQ(NearestPlace({{"C", "C:"}, {"D", "D:"}}, ""), 0U);
}

} // namespace tarvex::tests
