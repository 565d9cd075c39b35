// The operator's folder names on this machine's file system.
#include "platform/Paths.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <sys/stat.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;

struct PathCase {
    const char* Rule;
    std::string Path;
    std::string Native; ///< below the program's folder, or whole when it begins with "/dev"
};

TEST(Paths, BecomeNative)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("Korvanta.ini", "");
    folder.Write("drive_c/Korvanta/NEST/Plate.nst", "");
    folder.Write("drive_D/x.nc", "");
    folder.Write("both/B", "");
    folder.Write("both/b", "");
    folder.Write("odd/back\\slash.txt", "");
    folder.Write("B\xc3\x9cRO/a", "");
    const std::vector<PathCase> cases = {
        {"beside the program", folder.Path + "\\Korvanta.ini", "/Korvanta.ini"},
        {"another case", folder.Path + "\\KORVANTA.INI", "/Korvanta.ini"},
        {"no such file", folder.Path + "\\None.ini", "/None.ini"},
        {"drive", "C:\\Korvanta\\NEST\\Plate.nst", "/drive_c/Korvanta/NEST/Plate.nst"},
        {"drive, another case", "c:\\KORVANTA\\nest\\PLATE.NST", "/drive_c/Korvanta/NEST/Plate.nst"},
        {"drive, slashes", "C:/korvanta/nest", "/drive_c/Korvanta/NEST"},
        {"folder found, file new", "C:\\KORVANTA\\NEST\\New.nst", "/drive_c/Korvanta/NEST/New.nst"},
        {"folder of the drive in another case", "d:\\X.NC", "/drive_D/x.nc"},
        {"drive that is not there", "Q:\\A\\b.nc", "/drive_q/A/b.nc"},
        {"drive alone", "C:\\", "/drive_c"},
        {"drive without separator", "C:Korvanta", "/drive_c/Korvanta"},
        {"root of no drive is that of C", "\\Korvanta\\NEST", "/drive_c/Korvanta/NEST"},
        {"separators doubled and at the end", "C:\\\\Korvanta\\\\.\\NEST\\", "/drive_c/Korvanta/NEST"},
        {"the exact name goes first", folder.Path + "\\both\\b", "/both/b"},
        {"the exact name goes first", folder.Path + "\\both\\B", "/both/B"},
        {"as it stands", folder.Path + "/odd/back\\slash.txt", "/odd/back\\slash.txt"},
        {"accented letters", folder.Path + "\\b\xc3\xbcro\\A", "/B\xc3\x9cRO/a"},
        {"a digit for a drive is a name", folder.Path + "\\1:\\x", "/1:/x"},
    };
    for (const PathCase& c : cases) {
        EXPECT_EQ(NativePath(c.Path), folder.Path + c.Native) << c.Rule;
    }
    EXPECT_EQ(NativePath(""), "");
    EXPECT_EQ(NativePath("/"), "/");
    EXPECT_EQ(NativePath("/dev/null"), "/dev/null");
}

TEST(Paths, OfSeveralCasesTheFirstByNameIsFound)
{
    StartCase();
    const TempFolder folder;
    folder.Write("ab", "");
    folder.Write("aB", "");
    folder.Write("Ab", "");
    EXPECT_EQ(NativePath(folder.Path + "\\AB"), folder.Path + "/Ab");
}

TEST(Paths, AreRelativeToTheWorkingFolder)
{
    StartCase();
    const TempFolder folder;
    folder.Write("Sub/Part.dxf", "");
    const fs::path before = fs::current_path();
    fs::current_path(folder.Path);
    EXPECT_EQ(NativePath("sub\\PART.DXF"), "Sub/Part.dxf");
    EXPECT_EQ(NativePath(".\\SUB"), "Sub");
    EXPECT_EQ(NativePath("none.dxf"), "none.dxf");
    EXPECT_EQ(NativePath("..\\x\\y"), "../x/y");
    EXPECT_EQ(NativePath(".\\"), ".");
    EXPECT_TRUE(FileExists("SUB/part.dxf"));
    AppState.AppPath = "C:\\KORVANTA"; // names no place here: its drives lie in the working folder
    EXPECT_EQ(NativePath("C:\\NC"), "drive_c/NC");
    AppState.AppPath = "";
    EXPECT_EQ(NativePath("C:\\NC"), "drive_c/NC");
    fs::current_path(before);
}

TEST(Paths, NewNamesKeepTheirSpelling)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("drive_c/Nc/old.nc", "");
    EXPECT_EQ(NativeNewPath("C:\\NC\\OLD.NC"), folder.Path + "/drive_c/Nc/OLD.NC");
    EXPECT_EQ(NativeNewPath("C:NEW.NC"), folder.Path + "/drive_c/NEW.NC");
    EXPECT_EQ(NativeNewPath("\\NEW.NC"), folder.Path + "/drive_c/NEW.NC");
    EXPECT_EQ(NativeNewPath("NEW.NC"), folder.Path + "/NEW.NC");
    EXPECT_EQ(NativeNewPath("/new.nc"), "/new.nc");
    EXPECT_EQ(FolderOf("C:\\NC\\OLD.NC"), "C:\\NC\\");
    EXPECT_EQ(FolderOf("C:OLD.NC"), "C:");
    EXPECT_EQ(FolderOf("OLD.NC"), ".");
    EXPECT_EQ(FolderOf("/a/b/"), "/a/");
}

TEST(Paths, TellFilesFromFolders)
{
    StartCase();
    const TempFolder folder;
    const std::string file = folder.Write("sub/a.txt", "");
    EXPECT_TRUE(FileExists(file));
    EXPECT_FALSE(FolderExists(file));
    EXPECT_TRUE(FolderExists(folder.Path + "\\SUB\\"));
    EXPECT_FALSE(FileExists(folder.Path + "\\sub"));
    EXPECT_FALSE(FileExists(folder.Path + "\\none"));
    EXPECT_FALSE(FolderExists(""));
    EXPECT_FALSE(FileExists(""));
    EXPECT_FALSE(FileExists("/dev/null")) << "a device is no file";
    EXPECT_FALSE(FileExists(folder.Path + "/" + std::string(5000, 'x')));
    fs::create_symlink("a.txt", folder.Path + "/sub/link");
    EXPECT_TRUE(FileExists(folder.Path + "\\sub\\link"));
    fs::create_symlink("gone", folder.Path + "/sub/broken");
    EXPECT_FALSE(FileExists(folder.Path + "\\sub\\broken"));
}

TEST(Paths, DeleteFiles)
{
    StartCase();
    const TempFolder folder;
    folder.Write("a.txt", "");
    folder.Write("sub/b.txt", "");
    EXPECT_TRUE(DeleteFileIfThere(folder.Path + "\\A.TXT"));
    EXPECT_FALSE(folder.Holds("a.txt"));
    EXPECT_TRUE(DeleteFileIfThere(folder.Path + "\\a.txt")) << "a missing file is no error";
    EXPECT_TRUE(DeleteFileIfThere(folder.Path + "\\none\\a.txt"));
    EXPECT_FALSE(DeleteFileIfThere(folder.Path + "\\sub")) << "a folder stays";
    EXPECT_TRUE(folder.Holds("sub/b.txt"));
    ASSERT_EQ(::mkfifo((folder.Path + "/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(DeleteFileIfThere(folder.Path + "\\pipe")) << "what is no plain file stays";
    EXPECT_TRUE(folder.Holds("pipe"));
}

TEST(Paths, MakeFolders)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("file", "");
    EXPECT_TRUE(MakeFolder(folder.Path + "\\One"));
    EXPECT_TRUE(fs::is_directory(folder.Path + "/One"));
    EXPECT_TRUE(MakeFolder(folder.Path + "\\ONE")) << "there already";
    EXPECT_FALSE(folder.Holds("ONE"));
    EXPECT_TRUE(MakeFolder(folder.Path + "\\ONE\\Two"));
    EXPECT_TRUE(fs::is_directory(folder.Path + "/One/Two"));
    EXPECT_FALSE(MakeFolder(folder.Path + "\\Three\\Four")) << "one level only";
    EXPECT_FALSE(MakeFolder(folder.Path + "\\file"));
    EXPECT_FALSE(MakeFolder(""));
    EXPECT_TRUE(MakeFolder("E:\\NC")) << "a drive is always there";
    EXPECT_TRUE(fs::is_directory(folder.Path + "/drive_e/NC"));
    EXPECT_TRUE(MakeFolder("F:\\"));
    EXPECT_TRUE(fs::is_directory(folder.Path + "/drive_f"));
}

TEST(Paths, ListPlainFiles)
{
    StartCase();
    const TempFolder folder;
    folder.Write("Jobs/a.nst", "");
    folder.Write("Jobs/B.NST", "");
    folder.Write("Jobs/DATA/c.bmp", "");
    fs::create_symlink("a.nst", folder.Path + "/Jobs/link.nst");
    std::vector<std::string> names = ListFiles(folder.Path + "\\JOBS\\");
    std::sort(names.begin(), names.end());
    EXPECT_EQ(names, (std::vector<std::string>{"B.NST", "a.nst", "link.nst"}));
    EXPECT_TRUE(ListFiles(folder.Path + "\\none").empty());
    EXPECT_TRUE(ListFiles(folder.Path + "\\Jobs\\a.nst").empty());
    EXPECT_TRUE(ListFiles("").empty());
}
} // namespace
