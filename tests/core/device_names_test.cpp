#include "core/device_names.h"

#include <gtest/gtest.h>

namespace tarvex::tests
{
namespace
{

TEST(DeviceNames, AreTheSystemsOwnWithAnyEndingAndInAnyCase)
{
    for (const char* const name :
         {"CON", "prn", "Aux", "NUL", "nul.", "NUL.abc-SITE-T12 -03-dat.dat", "Con  .dat", "aux:x",
          "COM1", "com9.txt", "LPT1", "lpt3 .dat", "COM\xB9", "CONIN$", "conout$"})
        EXPECT_TRUE(NamesADevice(name)) << name;
}

TEST(DeviceNames, AreNoNamesThatOnlyBeginLikeThem)
{
    for (const char* const name : {"", ".", "-", "CON-SITE-T12 -03-dat.dat", "NULL", "COM", "COM0",
                                   "COM10", "LPTA", " CON", "datiram.dat", "intestazione", "A.NUL"})
        EXPECT_FALSE(NamesADevice(name)) << name;
}

} // namespace
} // namespace tarvex::tests
