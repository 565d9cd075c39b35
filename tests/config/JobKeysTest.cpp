// Keys of a job file.
#include "config/JobKeys.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

namespace
{
const std::string Job =
    "[0000]\r\nVP=2.28\r\nVL=3.00\r\n[0001]\r\nS=1004\r\nF=R_04\r\nP0= 3 00 \r\nP1=10.50\r\n"
    "P10=7\r\n[0002]\r\nV0=0\r\n[0003]\r\nV0=3000*2\r\nRx=\r\nRy=3\r\n"
    "[0004]\r\nV1=Steel\r\nV2=\r\n";

TEST(JobKeys, AreReadFromTheJobFolder)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    AppState.NestingPath = "C:\\Korvanta\\NEST\\";
    folder.Write("drive_c/Korvanta/NEST/Plate.nst", Job);
    EXPECT_EQ(ReadJobKey("PLATE.NST", "0000", "VL", ""), "3.00") << "exactly as it stands";
    EXPECT_EQ(ReadJobKey("Plate.nst", "0001", "S", "0"), "1004");
    EXPECT_EQ(ReadJobKey("Plate.nst", "0001", "P0", ""), "3 00") << "blanks at the ends go, one inside stays";
    EXPECT_EQ(ReadJobKey("Plate.nst", "0001", "P1", ""), "10.50");
    EXPECT_EQ(ReadJobKey("Plate.nst", "0001", "P2", " 20 "), "20");
    EXPECT_EQ(ReadJobKey("Plate.nst", "0003", "V0", ""), "3000*2") << "not the V0 of another section";
    EXPECT_EQ(ReadJobKey("Plate.nst", "0003", "Rx", "9"), "") << "empty is a value";
    EXPECT_EQ(ReadJobKey("Plate.nst", "0003", "Ry", ""), "3");
    EXPECT_EQ(ReadJobKey("Plate.nst", "0004", "V1", ""), "Steel");
    EXPECT_EQ(ReadJobKey("Plate.nst", "0004", "V3", "x"), "x");
    EXPECT_EQ(ReadJobKey("Plate.nst", "[0001]", "S", "none"), "none") << "the name comes without brackets";
    EXPECT_EQ(ReadJobKey("None.nst", "0001", "S", "0"), "0");
}

TEST(JobKeys, AreCutToTheBuffer)
{
    StartCase();
    const TempFolder folder;
    AppState.NestingPath = folder.Path + "\\";
    std::string job = "[0001]\r\nF=" + std::string(60, 'f') + "\r\nG=" + std::string(48, 'g') + " h\r\nH=a";
    job += '\0';
    job += "b\r\n";
    folder.Write("a.nst", job);
    EXPECT_EQ(ReadJobKey("a.nst", "0001", "F", ""), std::string(49, 'f'));
    EXPECT_EQ(ReadJobKey("a.nst", "0001", "G", ""), std::string(48, 'g')) << "trimmed after the cut";
    EXPECT_EQ(ReadJobKey("a.nst", "0001", "H", ""), "a");
    EXPECT_EQ(ReadJobKey("a.nst", "0001", "I", std::string(60, 'd')), std::string(49, 'd'));
}
} // namespace
