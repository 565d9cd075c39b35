// The link to a CNC host: when it is asked, told and handed programs, and that nobody else ever touches it.
#include "platform/Fault.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/Korvanta_VELInterface.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr const char* NoLibrary = "system box Critical Error|VELCOMLib non found!";

class HostLink : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        Station.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=nc\n[PartProgram_Begin]\n1=START\n");
        StartCase();
    }

    /// A start of the window with these settings.
    void Start(const std::string& setup, const std::string& commandLine = "") const
    {
        Configure(setup, "FTBLCNC=YES\n");
        StartWindow(Station.Path, commandLine);
    }

    static std::vector<std::string> HostCalls()
    {
        std::vector<std::string> calls;
        for (const std::string& call : Screen.Calls) {
            if (call.starts_with("host ")) {
                calls.push_back(call);
            }
        }
        return calls;
    }

    /// The list of jobs, with one selected.
    void ShowJobs(const std::vector<std::string>& names, std::int32_t selected) const
    {
        for (const std::string& name : names) {
            Station.Write("NEST/" + name, "");
        }
        SelectInputTab(TabPrograms);
        AppState.Lists[TabPrograms].Selected = selected;
        TakeCalls();
    }

    std::string OpenCall(const std::string& file) const
    {
        return "host open " + Station.Path + "\\NC\\" + file + " 1";
    }

    /// The nest of an imported plate, asking for its name.
    static void AskForName(const std::string& name)
    {
        OpenPlate(2);
        EnterSaveMode();
        SetText(AppState.TextFileName, name);
        TakeCalls();
    }
};

// --- language -------------------------------------------------------------------------------------------------

TEST_F(HostLink, GivesTheLanguageByItsIndex)
{
    const std::pair<std::int32_t, std::int16_t> cases[] = {
        {0, 1}, {1, 2}, {2, 3}, {3, 4}, {4, 5}, {5, 6}, {6, 1}, {7, 1}, {-1, 1}, {32767, 1}, {-32768, 1},
    };
    for (const auto& [index, language] : cases) {
        StartCase();
        Screen.HostLanguages = {index, index};
        Start("VELCOM=YES\n");
        EXPECT_EQ(AppState.Language, language) << index;
        EXPECT_THAT(HostCalls(), ElementsAre("host language", "host language")) << index;
    }
}

TEST_F(HostLink, IsAskedForItsLanguageTwiceAndTheSecondAnswerCounts)
{
    Screen.HostLanguages = {7, 2};
    Start("VELCOM=YES\n");
    EXPECT_EQ(AppState.Language, 3);
    StartCase();
    Screen.HostLanguages = {2, 7};
    Start("VELCOM=YES\n");
    EXPECT_EQ(AppState.Language, 1);
}

TEST_F(HostLink, WinsOverTheCommandLineAndTheSettings)
{
    Screen.HostLanguages = {4, 4};
    Start("VELCOM=YES\nLANGUAGE=3\n", "2");
    EXPECT_EQ(AppState.Language, 5);
}

/// The first call fails, or the second one.
TEST_F(HostLink, WithoutOneTheStartIsOver)
{
    for (const int answers : {0, 1}) {
        StartCase();
        Screen.HostAnswers = answers;
        EXPECT_THROW(Start("VELCOM=YES\nSCREEN_RES=640x480\n"), ProcessEnded);
        std::vector<std::string> expected(static_cast<std::size_t>(answers + 1), "host language");
        expected.insert(expected.end(), {NoLibrary, "end 1"});
        EXPECT_EQ(TakeCalls(), expected);
        EXPECT_THAT(Texts(TabRect), IsEmpty()) << "nothing of the start has run";
    }
}

// --- announcement ---------------------------------------------------------------------------------------------

struct BarCase {
    const char* Resolution;
    const char* Host;
    int Announced;
};

TEST_F(HostLink, IsToldOfTheStationOnceWhenItHasABar)
{
    const BarCase cases[] = {
        {"640x480", "YES", 1}, {"1024x768", "YES", 1}, {"1", "YES", 1},         {"60", "YES", 1},
        {"0", "YES", 0},       {"wide", "YES", 0},     {"-5", "YES", 0},        {"60", "C:\\YES", 0},
        {"60", "NO", 0},       {"640x480", "NO", 0},   {"640x480", "\\YES", 0},
    };
    for (const BarCase& c : cases) {
        StartCase();
        Start(std::string("SCREEN_RES=") + c.Resolution + "\nVELCOM=" + c.Host + "\n");
        const std::vector<std::string> calls = HostCalls();
        EXPECT_EQ(std::count(calls.begin(), calls.end(), "host announce 1"), c.Announced)
            << c.Resolution << " " << c.Host;
    }
}

TEST_F(HostLink, IsToldAtTheEndOfTheStart)
{
    Start("VELCOM=YES\nSCREEN_RES=60\n");
    EXPECT_THAT(TakeCalls(), ElementsAre("host language", "host language", "focus list 1", "host announce 1",
                                         "focus list 1"));
    StartCase();
    Station.Write("NC/ftblcnc.dat", "PLATE.NC");
    Screen.HostAnswers = 2;
    EXPECT_THROW(Start("VELCOM=YES\nSCREEN_RES=60\n"), RunTimeFault);
    EXPECT_EQ(Texts(TabRect).size(), 41U) << "the lists come before";
    EXPECT_TRUE(Station.Holds("NC/ftblcnc.dat")) << "what an earlier run left goes behind it";
}

// --- F7 on the job list ---------------------------------------------------------------------------------------

TEST_F(HostLink, GetsTheProgramOfTheSelectedJobByF7)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=NO\n");
    ShowJobs({"arm.nst", "bolt.nst", "cap.x.nst"}, 1);
    ListKey(TabPrograms, KeyF7, 0);
    EXPECT_THAT(HostCalls(), ElementsAre(OpenCall("BOLT.nc")));
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
    EXPECT_EQ(AppState.Lists[TabPrograms].Selected, 1);
    TakeCalls();
    AppState.Lists[TabPrograms].Selected = 2;
    ClickFunctionButton(6);
    EXPECT_THAT(HostCalls(), ElementsAre(OpenCall("CAP.nc"))) << "the key of the bar is the key";
    EXPECT_EQ(LastFocus(), "focus list 0");
}

TEST_F(HostLink, GetsProgramsByTheRuleOfTheirNames)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=NO\n");
    ShowJobs({"arm.nst"}, 0);
    Station.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION= ngc \n");
    KeyDispatcher(KeyF7, 0);
    Station.Write("PPR.ini", "");
    KeyDispatcher(KeyF7, 0);
    EXPECT_THAT(HostCalls(), ElementsAre(OpenCall("ARM.ngc"), OpenCall("ARM")));
}

TEST_F(HostLink, F7EndsTheProgramWhenItIsSetSo)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\nEXIT_LOG_FILE=exit.log\n");
    ShowJobs({"arm.nst"}, 0);
    EXPECT_THROW(KeyDispatcher(KeyF7, 0), ProcessEnded);
    EXPECT_THAT(TakeCalls(), ElementsAre(OpenCall("ARM.nc"), "end 0"));
    EXPECT_FALSE(Station.Holds("exit.log")) << "the log belongs to a save";
}

TEST_F(HostLink, F7DoesNothingElsewhere)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\n");
    for (const std::int16_t tab : {TabRect, TabCirc, TabHoles, TabDxfIn, TabIsoIn}) {
        SelectInputTab(tab);
        TakeCalls();
        KeyDispatcher(KeyF7, 0);
        EXPECT_THAT(TakeCalls(), IsEmpty()) << tab;
    }
    SelectInputTab(TabPrograms);
    TakeCalls();
    KeyDispatcher(KeyF7, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "no job";
    ShowJobs({"arm.nst"}, -1);
    KeyDispatcher(KeyF7, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "none selected";
    OpenPlate(2);
    KeyDispatcher(KeyF7, 0);
    EXPECT_THAT(HostCalls(), IsEmpty()) << "the Nesting screen has its own F7";
    EnterSaveMode();
    SetText(AppState.TextFileName, "arm");
    ASSERT_NE(SelectedItem(TabPrograms), nullptr);
    TakeCalls();
    KeyDispatcher(KeyF7, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "a name is asked for";
}

TEST_F(HostLink, OneThatIsGoneIsAFault)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\n");
    ShowJobs({"arm.nst"}, 0);
    Screen.HostAnswers = 0;
    EXPECT_THROW(KeyDispatcher(KeyF7, 0), RunTimeFault);
    EXPECT_THAT(TakeCalls(), ElementsAre(OpenCall("ARM.nc"))) << "no box, and no plain end";
}

// --- after a save ---------------------------------------------------------------------------------------------

TEST_F(HostLink, GetsTheSavedProgramBeforeTheLogAndTheEnd)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\nEXIT_LOG_FILE=exit.log\n");
    AskForName("new.one");
    EXPECT_THROW(KeyDispatcher(KeyF10, 0), ProcessEnded);
    EXPECT_THAT(HostCalls(), ElementsAre(OpenCall("NEW.nc")));
    EXPECT_EQ(Screen.Calls.back(), "end 0");
    EXPECT_TRUE(Station.Holds("NC/NEW.nc"));
    EXPECT_TRUE(Station.Holds("NEST/NEW.nst"));
    EXPECT_EQ(Station.Read("exit.log"), "NEW\r\n" + Station.Path + "\\NC\\\r\n");
}

TEST_F(HostLink, OneThatIsGoneAfterASaveLeavesTheJobAndNoLog)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\nEXIT_LOG_FILE=exit.log\n");
    AskForName("new");
    Screen.HostAnswers = 0;
    EXPECT_THROW(KeyDispatcher(KeyEnter, 0), RunTimeFault);
    EXPECT_THAT(HostCalls(), ElementsAre(OpenCall("NEW.nc")));
    for (const char* name : {"NC/NEW.nc", "NEST/NEW.nst", "NEST/DATA/NEW.drw"}) {
        EXPECT_TRUE(Station.Holds(name)) << name;
        EXPECT_FALSE(Station.Holds(std::string(name) + ".part")) << name;
    }
    EXPECT_FALSE(Station.Holds("exit.log"));
}

TEST_F(HostLink, GetsNothingWhenTheProgramGoesOnAfterASave)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=NO\n");
    AskForName("new");
    KeyDispatcher(KeyF10, 0);
    EXPECT_THAT(HostCalls(), IsEmpty());
    EXPECT_TRUE(Station.Holds("NC/NEW.nc"));
}

TEST_F(HostLink, GetsNothingWhenTheOldJobIsToStay)
{
    Start("VELCOM=YES\nEXIT_PROGRAM=YES\n");
    Station.Write("NEST/NEW.nst", "");
    AskForName("new");
    Screen.BoxAnswers = {false};
    KeyDispatcher(KeyF10, 0);
    EXPECT_THAT(HostCalls(), IsEmpty());
    EXPECT_FALSE(Station.Holds("NC/NEW.nc"));
}

// --- no host --------------------------------------------------------------------------------------------------

TEST_F(HostLink, IsNeverTouchedInTheOtherModes)
{
    for (const char* mode : {"NO", "\\YES", "C:\\YES", "yes", ""}) {
        StartCase();
        Screen.HostAnswers = 0;
        Start(std::string("VELCOM=") + mode + "\nSCREEN_RES=60\nLANGUAGE=2\nEXIT_PROGRAM=YES\n", "3");
        EXPECT_EQ(AppState.Language, 3) << mode;
        EXPECT_EQ(AppState.HostBarHeight, std::string(mode).ends_with("\\YES") ? 60 : 0) << mode;
        Station.Write("NEST/arm.nst", "");
        SelectInputTab(TabPrograms);
        const std::vector<std::string> before = TakeCalls();
        KeyDispatcher(KeyF7, 0);
        EXPECT_THAT(TakeCalls(), IsEmpty()) << mode;
        Screen.Calls = before;
        ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
        NextCamTab();
        NextCamTab();
        EnterSaveMode();
        SetText(AppState.TextFileName, "new");
        Screen.BoxAnswers = {true};
        EXPECT_THROW(SaveCurrentJob(), ProcessEnded) << mode;
        EXPECT_EQ(Screen.Calls.back(), "end 0") << mode;
        EXPECT_THAT(HostCalls(), IsEmpty()) << mode;
    }
}
} // namespace
