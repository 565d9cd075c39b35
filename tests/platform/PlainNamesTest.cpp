// Names without a drive or root: they lie in the program's folder, as the shipped settings have them.
#include "platform/Paths.h"
#include "platform/TextFile.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>

TEST(PlainNames, LieInTheProgramsFolder)
{
    StartCase();
    const TempFolder station;
    AppState.AppPath = station.Path;
    station.Write("Program/OLD.nc", "x");
    EXPECT_EQ(NativePath("PROGRAM\\old.NC"), station.Path + "/Program/OLD.nc");
    EXPECT_EQ(NativePath("NEST\\"), station.Path + "/NEST");
    EXPECT_EQ(NativePath("."), station.Path);
    EXPECT_EQ(NativePath(".\\NEST"), station.Path + "/NEST");
    EXPECT_EQ(NativeNewPath("A.nc"), station.Path + "/A.nc");
    EXPECT_EQ(NativeNewPath("PROGRAM\\old.NC"), station.Path + "/Program/old.NC");
    EXPECT_TRUE(FileExists("program\\OLD.NC"));
    EXPECT_TRUE(FolderExists("PROGRAM\\"));
    WriteWholeText("PROGRAM\\NEW.nc", "y");
    EXPECT_EQ(station.Read("Program/NEW.nc"), "y");
}

TEST(PlainNames, LieInTheWorkingFolderWithoutAProgramFolder)
{
    StartCase();
    EXPECT_EQ(NativePath("NEST\\A.nst"), "NEST/A.nst");
    EXPECT_EQ(NativeNewPath("A.nst"), "./A.nst");
    EXPECT_EQ(NativeNewPath(""), "");
    AppState.AppPath = "station"; // no native root: its own files are found from the working folder
    EXPECT_EQ(NativePath(AppState.AppPath + "\\none.ini"), "station/none.ini");
}
