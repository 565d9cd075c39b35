// The folder of the station: beside a plain program, the user's own for an installed one; made whole or not at all, and
// renewed without touching what is the operator's.
#include "platform/StationFolder.h"
#include "platform/Fault.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <cstdlib>
#include <filesystem>
#include <map>
#include <optional>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

namespace
{
namespace fs = std::filesystem;
using testing::HasSubstr;

/// Sets an environment variable, or takes it away, for the life of the object.
struct Variable {
    std::string Name;
    std::optional<std::string> Before;

    Variable(const char* name, const char* value) : Name(name)
    {
        const char* const before = std::getenv(name);
        Before = before == nullptr ? std::nullopt : std::optional<std::string>(before);
        Put(value);
    }
    void Put(const char* value) const
    {
        value == nullptr ? unsetenv(Name.c_str()) : setenv(Name.c_str(), value, 1);
    }
    ~Variable()
    {
        Put(Before.has_value() ? Before->c_str() : nullptr);
    }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;
};

/// A program installed below `Root`/usr and a user whose home is `Root`/home.
class StationFolder : public testing::Test
{
protected:
    TempFolder Root;
    std::string Programs = Root.Path + "/usr/bin";
    std::string Template = Root.Path + "/usr/share/korvanta/station";
    std::string Home = Root.Path + "/home";
    std::string Station = Home + "/Korvanta";
    Variable HomeVariable{"HOME", Home.c_str()};
    Variable StationVariableOff{StationVariable, nullptr};

    void SetUp() override
    {
        StartCase();
        fs::create_directories(Programs);
        fs::create_directories(Home);
        Install("Korvanta_MSG.TXT", "texts 1");
        Install("Korvanta.DBG", "drawings 1");
        Install("Korvanta.ini", "settings 1");
        Install("PPR.ini", "table 1");
        Install("IMAGES/LOGO.BMP", "logo 1");
        Install("DXF/PLATE.dxf", std::string(20000, 'p'));
        Install("ppr/deep/LASER.ini", "laser 1");
    }

    void Install(const std::string& name, const std::string& content) const
    {
        Root.Write("usr/share/korvanta/station/" + name, content);
    }

    /// A newer package, in which every file of before reads "2" and a table is new.
    void InstallNewer() const
    {
        Install("Korvanta_MSG.TXT", "texts 2, longer");
        Install("Korvanta.DBG", "drawings 2");
        Install("Korvanta.ini", "settings 2");
        Install("PPR.ini", "table 2");
        Install("IMAGES/LOGO.BMP", "logo 2");
        Install("DXF/PLATE.dxf", std::string(20000, 'q'));
        Install("ppr/NEW.ini", "new table 2");
    }

    void Edit(const std::string& name, const std::string& content) const
    {
        Root.Write("home/Korvanta/" + name, content);
    }

    std::string Content(const std::string& name) const
    {
        return Root.Read("home/Korvanta/" + name);
    }

    bool Holds(const std::string& name) const
    {
        return Root.Holds("home/Korvanta/" + name);
    }

    /// Each file below a folder with its content, the program's own record left out.
    static std::map<std::string, std::string> FilesOf(const std::string& folder)
    {
        std::map<std::string, std::string> files;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
            const std::string name = entry.path().lexically_relative(folder).generic_string();
            if (entry.is_regular_file() && name != ".korvanta") {
                files[name] = ReadFile(entry.path());
            }
        }
        return files;
    }

    static std::string ReadFile(const fs::path& path)
    {
        std::string content(fs::file_size(path), '\0');
        std::FILE* const file = std::fopen(path.c_str(), "rb");
        EXPECT_NE(file, nullptr);
        EXPECT_EQ(std::fread(content.data(), 1, content.size(), file), content.size());
        std::fclose(file);
        return content;
    }

    /// Names in the home folder.
    std::vector<std::string> HomeNames() const
    {
        std::vector<std::string> names;
        for (const fs::directory_entry& entry : fs::directory_iterator(Home)) {
            names.push_back(entry.path().filename().string());
        }
        return names;
    }

    std::string Start() const
    {
        return FindStationFolder(Programs);
    }

    std::string FaultOf() const
    {
        try {
            return "no fault, but " + Start();
        } catch (const RunTimeFault& fault) {
            return fault.what();
        }
    }

    /// A start in a process of its own that may write files of at most `limit` bytes: it is killed at the first longer one,
    /// or, with `asFault`, meets what a full disk is. Its status: 0 done, 1 a fault, -1 killed.
    int StartLimited(rlim_t limit, bool asFault) const
    {
        const pid_t process = fork();
        if (process == 0) {
            std::signal(SIGXFSZ, asFault ? SIG_IGN : SIG_DFL);
            const rlimit core = {0, 0};
            const rlimit size = {limit, limit};
            setrlimit(RLIMIT_CORE, &core);
            setrlimit(RLIMIT_FSIZE, &size);
            try {
                FindStationFolder(Programs);
                _exit(0);
            } catch (const RunTimeFault&) {
                _exit(1);
            }
        }
        int status = 0;
        EXPECT_EQ(waitpid(process, &status, 0), process);
        return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
    }

    /// Starts so many at the same moment; true when each of them is content.
    bool StartTogether(int count) const
    {
        int gate[2] = {-1, -1};
        EXPECT_EQ(pipe(gate), 0);
        std::vector<pid_t> processes;
        for (int i = 0; i < count; ++i) {
            const pid_t process = fork();
            if (process == 0) {
                close(gate[1]);
                char none = 0;
                static_cast<void>(!read(gate[0], &none, 1)); // until the gate is closed
                try {
                    _exit(Start() == Station ? 0 : 2);
                } catch (const RunTimeFault& fault) {
                    std::fprintf(stderr, "%s\n", fault.what());
                    _exit(1);
                }
            }
            processes.push_back(process);
        }
        close(gate[0]);
        close(gate[1]);
        bool content = true;
        for (const pid_t process : processes) {
            int status = 0;
            content = waitpid(process, &status, 0) == process && status == 0 && content;
        }
        return content;
    }
};

// --- where ---------------------------------------------------------------------------------------------------------

TEST_F(StationFolder, OfAPlainProgramIsItsOwn)
{
    Root.Write("usr/bin/Korvanta_MSG.TXT", "texts"); // though a template lies near, too
    const Variable named(StationVariable, (Root.Path + "/other").c_str());
    EXPECT_EQ(Start(), Programs);
    EXPECT_TRUE(HomeNames().empty());
    EXPECT_FALSE(Root.Holds("other"));
}

TEST_F(StationFolder, WithoutATemplateIsTheProgramsOwn)
{
    fs::remove_all(Root.Path + "/usr/share");
    HomeVariable.Put(nullptr);
    EXPECT_EQ(Start(), Programs);
    EXPECT_EQ(FindStationFolder("/"), "/");
}

TEST_F(StationFolder, OfAnInstalledProgramIsMadeInTheHomeFolder)
{
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
    EXPECT_EQ(FilesOf(Station).size(), 7U);
    EXPECT_THAT(HomeNames(), testing::ElementsAre("Korvanta"));
}

TEST_F(StationFolder, MayBeNamed)
{
    const Variable named(StationVariable, (Root.Path + "/other//").c_str());
    HomeVariable.Put(nullptr);
    EXPECT_EQ(Start(), Root.Path + "/other");
    EXPECT_EQ(FilesOf(Root.Path + "/other"), FilesOf(Template));
    EXPECT_TRUE(HomeNames().empty());
}

TEST_F(StationFolder, AnEmptyNameIsNone)
{
    const Variable named(StationVariable, "");
    EXPECT_EQ(Start(), Station);
}

TEST_F(StationFolder, FollowsALinkToAFolder)
{
    fs::create_directory(Root.Path + "/elsewhere");
    fs::create_directory_symlink(Root.Path + "/elsewhere", Station);
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Root.Path + "/elsewhere"), FilesOf(Template));
    EXPECT_TRUE(fs::is_symlink(Station));
}

TEST_F(StationFolder, OfAnotherCaseIsSomethingElse)
{
    Root.Write("home/korvanta/README.md", "sources");
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
    EXPECT_EQ(FilesOf(Home + "/korvanta").size(), 1U);
}

// --- what can't be ---------------------------------------------------------------------------------------------------

TEST_F(StationFolder, NeedsAHome)
{
    for (const char* home : {static_cast<const char*>(nullptr), ""}) {
        HomeVariable.Put(home);
        EXPECT_EQ(FaultOf(), "No folder for the station: neither HOME nor KORVANTA_STATION is set");
    }
    HomeVariable.Put("home/me");
    EXPECT_EQ(FaultOf(), "HOME must name a folder that begins with /, not home/me");
    HomeVariable.Put(Home.c_str());
    const Variable named(StationVariable, "./station");
    EXPECT_EQ(FaultOf(), "KORVANTA_STATION must name a folder that begins with /, not ./station");
    EXPECT_TRUE(HomeNames().empty());
}

TEST_F(StationFolder, SaysWhatCantBeMade)
{
    HomeVariable.Put((Root.Path + "/nowhere").c_str());
    EXPECT_EQ(FaultOf(),
              "Cannot make the station folder " + Root.Path + "/nowhere/Korvanta: No such file or directory");
    Root.Write("blocked", "a file");
    HomeVariable.Put((Root.Path + "/blocked").c_str());
    EXPECT_EQ(FaultOf(),
              "Cannot make the station folder " + Root.Path + "/blocked/Korvanta: Not a directory");
}

TEST_F(StationFolder, IsNoFileAndNoDanglingLink)
{
    Root.Write("home/Korvanta", "a file");
    EXPECT_EQ(FaultOf(), "Cannot make the station folder " + Station + ": Not a directory");
    EXPECT_EQ(Root.Read("home/Korvanta"), "a file");
    fs::remove(Station);
    fs::create_symlink(Root.Path + "/gone", Station);
    EXPECT_EQ(FaultOf(), "Cannot make the station folder " + Station + ": Not a directory");
    EXPECT_THAT(HomeNames(), testing::ElementsAre("Korvanta"));
}

TEST_F(StationFolder, SaysWhatIsInTheWay)
{
    Root.Write("home/Korvanta.part", "a file");
    EXPECT_EQ(FaultOf(),
              "Cannot make the station folder " + Station + ": " + Station + ".part is in the way");
    EXPECT_EQ(Root.Read("home/Korvanta.part"), "a file");
    fs::remove(Station + ".part");
    Root.Write("elsewhere/precious", "kept");
    fs::create_directory_symlink(Root.Path + "/elsewhere", Station + ".part");
    EXPECT_THAT(FaultOf(), HasSubstr("is in the way"));
    EXPECT_EQ(Root.Read("elsewhere/precious"), "kept");
}

TEST_F(StationFolder, IsNotMadeOfAForeignFolder)
{
    Root.Write("home/Korvanta/holiday.jpg", "a picture");
    EXPECT_EQ(FaultOf(),
              "The folder " + Station +
                  " is no station: it holds neither Korvanta.ini nor Korvanta_MSG.TXT. Move it away, or "
                  "name another folder in KORVANTA_STATION");
    EXPECT_EQ(FilesOf(Station).size(), 1U);
}

TEST_F(StationFolder, MayBeAnEmptyFolder)
{
    fs::create_directory(Station);
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
}

// --- whole or not at all -----------------------------------------------------------------------------------------------

TEST_F(StationFolder, IsMadeAnewWhereAStartWasCutOff)
{
    Root.Write("home/Korvanta.part/Korvanta.ini", "half of th");
    Root.Write("home/Korvanta.part/of/an/older/version.txt", "old");
    Root.Write("home/Korvanta.part/Korvanta_MSG.TXT.part", "te");
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
    EXPECT_THAT(HomeNames(), testing::ElementsAre("Korvanta"));
}

TEST_F(StationFolder, IsNotThereAfterAFullDisk)
{
    for (const rlim_t limit : {0, 5, 100, 19999}) {
        EXPECT_EQ(StartLimited(limit, true), 1) << limit;
        EXPECT_TRUE(HomeNames().empty()) << limit;
    }
    EXPECT_EQ(StartLimited(20000, true), 0);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
}

TEST_F(StationFolder, IsNotThereWhileAStartIsCutOffAnywhere)
{
    for (const rlim_t limit : {0, 5, 100, 19999}) {
        EXPECT_EQ(StartLimited(limit, false), -1) << limit;
        EXPECT_FALSE(fs::exists(Station)) << limit;
    }
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), FilesOf(Template));
    EXPECT_THAT(HomeNames(), testing::ElementsAre("Korvanta"));
}

TEST_F(StationFolder, IsMadeOnceByManyStarts)
{
    for (int round = 0; round < 20; ++round) {
        fs::remove_all(Station);
        ASSERT_TRUE(StartTogether(6)) << round;
        ASSERT_EQ(FilesOf(Station), FilesOf(Template)) << round;
        ASSERT_THAT(HomeNames(), testing::ElementsAre("Korvanta")) << round;
    }
}

TEST_F(StationFolder, SurvivesStartsThatAreKilledAmongOthers)
{
    for (int round = 0; round < 20; ++round) {
        fs::remove_all(Station);
        const pid_t process = fork();
        if (process == 0) {
            Start();
            _exit(0);
        }
        usleep(static_cast<useconds_t>(round) * 50);
        kill(process, SIGKILL);
        ASSERT_TRUE(StartTogether(2)) << round;
        waitpid(process, nullptr, 0);
        ASSERT_EQ(FilesOf(Station), FilesOf(Template)) << round;
        ASSERT_THAT(HomeNames(), testing::ElementsAre("Korvanta")) << round;
    }
}

// --- later starts --------------------------------------------------------------------------------------------------------

TEST_F(StationFolder, IsLeftAloneByTheSameVersion)
{
    Start();
    Edit("Korvanta.ini", "my settings");
    Edit("PPR.ini", "my table");
    Edit("Korvanta_MSG.TXT", "my texts");
    Edit("NEST/MINE.nst", "my job");
    fs::remove(Station + "/DXF/PLATE.dxf");
    const std::map<std::string, std::string> before = FilesOf(Station);
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(FilesOf(Station), before);
}

TEST_F(StationFolder, GetsWhatANewerVersionBrings)
{
    Start();
    Edit("NEST/MINE.nst", "my job");
    InstallNewer();
    EXPECT_EQ(Start(), Station);
    EXPECT_EQ(Content("Korvanta_MSG.TXT"), "texts 2, longer");
    EXPECT_EQ(Content("Korvanta.DBG"), "drawings 2");
    EXPECT_EQ(Content("IMAGES/LOGO.BMP"), "logo 2");
    EXPECT_EQ(Content("ppr/NEW.ini"), "new table 2");
    EXPECT_EQ(Content("Korvanta.ini"), "settings 1");
    EXPECT_EQ(Content("PPR.ini"), "table 1") << "proven tables don't change, not even unedited ones";
    EXPECT_EQ(Content("DXF/PLATE.dxf"), std::string(20000, 'p'));
    EXPECT_EQ(Content("NEST/MINE.nst"), "my job");
    EXPECT_EQ(FilesOf(Station).size(), 9U) << "nothing is kept aside that nobody changed";
    Edit("Korvanta_MSG.TXT", "my texts");
    Start();
    EXPECT_EQ(Content("Korvanta_MSG.TXT"), "my texts") << "the newer version was noted";
}

TEST_F(StationFolder, KeepsWhatTheOperatorChanged)
{
    Start();
    Edit("Korvanta.ini", "my settings");
    Edit("PPR.ini", "my table");
    Edit("IMAGES/LOGO.BMP", "my logo");
    Edit("Korvanta_MSG.TXT", "my texts");
    Edit("ppr/NEW.ini", "my own table of that name");
    fs::remove(Station + "/DXF/PLATE.dxf");
    fs::remove(Station + "/ppr/deep/LASER.ini");
    InstallNewer();
    Start();
    EXPECT_EQ(Content("Korvanta.ini"), "my settings");
    EXPECT_EQ(Content("PPR.ini"), "my table");
    EXPECT_EQ(Content("IMAGES/LOGO.BMP"), "my logo");
    EXPECT_EQ(Content("ppr/NEW.ini"), "my own table of that name");
    EXPECT_EQ(Content("Korvanta_MSG.TXT"), "texts 2, longer");
    EXPECT_EQ(Content("Korvanta_MSG.TXT.old"), "my texts");
    EXPECT_FALSE(Holds("Korvanta.DBG.old"));
    EXPECT_FALSE(Holds("DXF/PLATE.dxf")) << "a sample that was thrown away comes back";
    EXPECT_FALSE(Holds("ppr/deep/LASER.ini"));
}

TEST_F(StationFolder, IsCompletedWhenItCameFromElsewhere)
{
    Edit("korvanta.ini", "settings of an older station");
    Edit("ppr.ini", "its table");
    Edit("Korvanta_MSG.TXT", "its texts");
    Edit("Images/logo.bmp", "its logo");
    Start();
    EXPECT_EQ(FilesOf(Station), (std::map<std::string, std::string>{
                                    {"korvanta.ini", "settings of an older station"},
                                    {"ppr.ini", "its table"},
                                    {"Korvanta_MSG.TXT", "texts 1"},
                                    {"Korvanta_MSG.TXT.old", "its texts"},
                                    {"Images/logo.bmp", "its logo"},
                                    {"Korvanta.DBG", "drawings 1"},
                                    {"DXF/PLATE.dxf", std::string(20000, 'p')},
                                    {"ppr/deep/LASER.ini", "laser 1"},
                                }))
        << "a file in another case is the same file: a second one beside it would win over it";
}

TEST_F(StationFolder, GetsBackWhatTheProgramCantDoWithout)
{
    Start();
    Edit("Korvanta.ini", "my settings");
    fs::remove(Station + "/Korvanta_MSG.TXT");
    fs::remove(Station + "/PPR.ini");
    Start();
    EXPECT_EQ(Content("Korvanta_MSG.TXT"), "texts 1");
    EXPECT_EQ(Content("Korvanta.ini"), "my settings");
    EXPECT_FALSE(Holds("PPR.ini"));
    fs::remove(Station + "/Korvanta.DBG");
    Start();
    EXPECT_EQ(Content("Korvanta.DBG"), "drawings 1");
}

TEST_F(StationFolder, OutlivesABrokenRecord)
{
    Start();
    Edit("Korvanta.ini", "my settings");
    constexpr std::string_view Broken("no record\n\0\xFF 0123456789abcdef\n0123456789abcdef \n", 48);
    static_assert(Broken.ends_with(" \n") && Broken.find('\0') == 10);
    Edit(".korvanta", std::string(Broken));
    Start();
    std::map<std::string, std::string> expected = FilesOf(Template);
    expected["Korvanta.ini"] = "my settings";
    EXPECT_EQ(FilesOf(Station), expected);
}

TEST_F(StationFolder, OutlivesARenewalThatIsCutOffAnywhere)
{
    Start();
    Edit("Korvanta.ini", "my settings");
    Edit("Korvanta_MSG.TXT", "my texts");
    InstallNewer();
    Install("ppr/LONG.ini", std::string(5000, 'l'));
    for (const rlim_t limit : {0, 5, 10, 11, 15, 100, 4999}) {
        for (const bool asFault : {true, false}) {
            EXPECT_EQ(StartLimited(limit, asFault), asFault ? 1 : -1) << limit;
            EXPECT_EQ(Content("Korvanta.ini"), "my settings");
            if (Holds("Korvanta_MSG.TXT")) {
                EXPECT_THAT(Content("Korvanta_MSG.TXT"), testing::AnyOf("my texts", "texts 2, longer"));
            }
        }
    }
    Start();
    EXPECT_EQ(Content("Korvanta_MSG.TXT"), "texts 2, longer");
    EXPECT_EQ(Content("Korvanta_MSG.TXT.old"), "my texts");
    EXPECT_EQ(Content("ppr/LONG.ini"), std::string(5000, 'l'));
    EXPECT_EQ(Content("IMAGES/LOGO.BMP"), "logo 2");
}

TEST_F(StationFolder, IsRenewedOnceByManyStarts)
{
    for (int round = 0; round < 10; ++round) {
        fs::remove_all(Station);
        SetUp();
        Start();
        Edit("Korvanta_MSG.TXT", "my texts");
        InstallNewer();
        ASSERT_TRUE(StartTogether(6)) << round;
        ASSERT_EQ(Content("Korvanta_MSG.TXT"), "texts 2, longer") << round;
        ASSERT_EQ(Content("Korvanta_MSG.TXT.old"), "my texts") << round;
        ASSERT_EQ(FilesOf(Station).size(), 9U) << round;
    }
}
} // namespace
