#include "config/Korvanta_Utility.h"
#include "platform/Fault.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

namespace
{
struct FolderNames : testing::Test {
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        AppState.AppPath = Station.Path;
    }
};
} // namespace

TEST_F(FolderNames, ExistingFolderIsLeftAlone)
{
    Station.Write("drive_c/JOBS/A.NST", "x");
    NormalisePath("C:\\JOBS\\");
    NormalisePath("C:\\jobs");
    EXPECT_EQ(Station.Read("drive_c/JOBS/A.NST"), "x");
    int entries = 0;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(Station.Path)) {
        entries += entry.path().empty() ? 0 : 1;
    }
    EXPECT_EQ(entries, 3); // drive_c, JOBS, A.NST
}

TEST_F(FolderNames, LevelsAreMadeUnderTheirDrive)
{
    NormalisePath("D:\\CNC\\PROGRAM\\");
    EXPECT_TRUE(Station.Holds("drive_d/CNC/PROGRAM"));
}

TEST_F(FolderNames, ExistingLevelsAreEntered)
{
    Station.Write("drive_c/Korvanta/keep.txt", "x");
    NormalisePath("C:\\KORVANTA\\NEST\\DATA");
    EXPECT_TRUE(Station.Holds("drive_c/Korvanta/NEST/DATA"));
    EXPECT_FALSE(Station.Holds("drive_c/KORVANTA"));
}

TEST_F(FolderNames, DotNameStartsAtTheRootOfDriveC)
{
    NormalisePath(".\\JOBS\\NEST");
    EXPECT_TRUE(Station.Holds("drive_c/JOBS/NEST"));
    EXPECT_FALSE(Station.Holds("JOBS"));
}

TEST_F(FolderNames, EmptyAndDotLevelsAreSkipped)
{
    NormalisePath("C:\\\\A\\.\\B\\\\");
    EXPECT_TRUE(Station.Holds("drive_c/A/B"));
}

TEST_F(FolderNames, LevelsWithAColonArePassedOver)
{
    NormalisePath("C:\\A\\X:\\B");
    EXPECT_TRUE(Station.Holds("drive_c/A/B"));
}

TEST_F(FolderNames, PlainNameLiesBesideTheProgram)
{
    NormalisePath("PROGRAM\\OLD\\");
    EXPECT_TRUE(Station.Holds("PROGRAM/OLD"));
}

TEST_F(FolderNames, NativeNameStandsAsItIs)
{
    NormalisePath(Station.Path + "/out/parts\\DATA\\");
    EXPECT_TRUE(Station.Holds("out/parts/DATA"));
    NormalisePath(Station.Path + "\\NEST");
    EXPECT_TRUE(Station.Holds("NEST"));
}

TEST_F(FolderNames, WorkingFolderStays)
{
    const auto before = std::filesystem::current_path();
    NormalisePath(".\\A");
    NormalisePath("B\\C");
    EXPECT_EQ(std::filesystem::current_path(), before);
}

TEST_F(FolderNames, LevelThatCannotBeMadeIsAFaultThatNamesIt)
{
    Station.Write("drive_c/JOBS", "a file in the way");
    try {
        NormalisePath("C:\\JOBS\\NEST\\DATA");
        FAIL() << "no fault";
    } catch (const RunTimeFault& fault) {
        EXPECT_EQ(fault.what(), "folder " + Station.Path + "/drive_c/JOBS can't be made");
    }
    EXPECT_EQ(Station.Read("drive_c/JOBS"), "a file in the way");
}
