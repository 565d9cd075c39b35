// korvanta-batch as a package installs it: in the user's own station folder.
#include "BatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <regex>
#include <set>
#include <sys/wait.h>

using testing::HasSubstr;

namespace
{
namespace fs = std::filesystem;

/// Program, module and template where a package puts them, below the folder's "usr".
struct Installation {
    TempFolder Folder;

    Installation()
    {
        const fs::path programs = Folder.Path + "/usr/bin";
        const fs::path modules = (programs / KORVANTA_MODULE_FOLDER).lexically_normal();
        fs::create_directories(programs);
        fs::create_directories(modules);
        fs::create_directories(Folder.Path + "/usr/share/korvanta");
        fs::create_directories(Folder.Path + "/home");
        fs::copy_file(KORVANTA_BINARY_DIR "/bin/korvanta-batch", programs / "korvanta-batch");
        const fs::path painter = KORVANTA_BINARY_DIR "/bin/korvanta-painter.so";
        if (fs::exists(painter)) {
            fs::copy_file(painter, modules / "korvanta-painter.so");
        }
        fs::copy(KORVANTA_SOURCE_DIR "/station", Folder.Path + "/usr/share/korvanta/station",
                 fs::copy_options::recursive);
    }

    BatchResult Run(const std::string& environment, const std::string& arguments) const
    {
        const std::string line = "cd '" + Folder.Path + "' && env -u HOME -u KORVANTA_STATION " +
                                 environment + " usr/bin/korvanta-batch " + arguments +
                                 " >output.txt 2>errors.txt";
        const int status = std::system(line.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Folder.Read("output.txt"),
                Folder.Read("errors.txt")};
    }

    BatchResult RunAtHome(const std::string& arguments) const
    {
        return Run("HOME='" + Folder.Path + "/home'", arguments);
    }
};

TEST(Installed, WorksInTheUsersFolder)
{
    const Installation installed;
    const BatchResult result = installed.RunAtHome("BRACKET.dxf --save MINE");
    EXPECT_EQ(result.Status, 0);
    // A build without the window has no painter, and says so.
    const bool painted = fs::exists(KORVANTA_BINARY_DIR "/bin/korvanta-painter.so");
    EXPECT_EQ(result.Errors.find("preview") == std::string::npos, painted) << result.Errors;
    EXPECT_TRUE(installed.Folder.Holds("home/Korvanta/NEST/MINE.nst"));
    EXPECT_TRUE(installed.Folder.Holds("home/Korvanta/PROGRAM/MINE.nc"));
    EXPECT_EQ(installed.Folder.Holds("home/Korvanta/NEST/DATA/MINE.bmp"), painted);
    EXPECT_FALSE(installed.Folder.Holds("usr/share/korvanta/station/NEST"));
    EXPECT_EQ(installed.RunAtHome("MINE.nst --program AGAIN").Status, 0);
    EXPECT_TRUE(installed.Folder.Holds("home/Korvanta/PROGRAM/AGAIN.nc"));
}

/// The words of a text that begin with two dashes. A manual page writes each dash as "\\-".
std::set<std::string> OptionsIn(const std::string& text)
{
    const std::string plain = std::regex_replace(text, std::regex(R"(\\-)"), "-");
    const std::regex option("--[a-z][a-z-]*");
    return {std::sregex_token_iterator(plain.begin(), plain.end(), option), std::sregex_token_iterator()};
}

TEST(Installed, ManualPageHasEachOption)
{
    const Installation installed;
    const std::string page = installed.Folder.Path + "/page";
    fs::copy_file(KORVANTA_SOURCE_DIR "/packaging/man/korvanta-batch.1", page);
    const std::set<std::string> options = OptionsIn(installed.RunAtHome("--help").Output);
    EXPECT_GT(options.size(), 10U);
    EXPECT_EQ(OptionsIn(installed.Folder.Read("page")), options);
}

TEST(Installed, MakesNoFolderForAQuestion)
{
    const Installation installed;
    EXPECT_EQ(installed.RunAtHome("--help").Status, 0);
    EXPECT_EQ(installed.RunAtHome("--version").Status, 0);
    EXPECT_EQ(installed.RunAtHome("--list-shapes").Status, 0);
    EXPECT_EQ(installed.RunAtHome("--bogus").Status, 2);
    EXPECT_EQ(installed.RunAtHome("R-05 --station usr/share/korvanta/station --svg a.svg").Status, 0);
    EXPECT_TRUE(installed.Folder.Holds("a.svg"));
    EXPECT_FALSE(installed.Folder.Holds("home/Korvanta"));
}

TEST(Installed, SaysWhyThereIsNoFolder)
{
    const Installation installed;
    const BatchResult homeless = installed.Run("", "R-05 --program LOST");
    EXPECT_EQ(homeless.Status, 1);
    EXPECT_EQ(homeless.Errors,
              "korvanta-batch: No folder for the station: neither HOME nor KORVANTA_STATION is set\n");
    const BatchResult nowhere = installed.Run("HOME=/nowhere", "R-05 --program LOST");
    EXPECT_EQ(nowhere.Status, 1);
    EXPECT_THAT(nowhere.Errors, HasSubstr("Cannot make the station folder /nowhere/Korvanta: "));
    EXPECT_EQ(installed.Run("KORVANTA_STATION=here", "R-05 --program LOST").Status, 1);
    EXPECT_EQ(
        installed.Run("KORVANTA_STATION='" + installed.Folder.Path + "/here'", "R-05 --program FOUND").Status,
        0);
    EXPECT_TRUE(installed.Folder.Holds("here/PROGRAM/FOUND.nc"));
}
} // namespace
