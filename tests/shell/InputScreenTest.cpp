// Opening, saving, deleting and leaving; the file-name field and the lists as the operator works them.
#include "shell/InputScreen.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "post/Korvanta_PostProcessor.h"
#include "shell/Exit.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <sys/mount.h>
#include <unistd.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace
{
namespace fs = std::filesystem;

class InputScreen : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        AppState.ExitConfirm = FlagOff;
        AppState.ExitAfterSave = FlagOff;
        Station.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=nc\n[PartProgram_Begin]\n1=START\n");
        FillShapeLists();
        SelectInputTab(TabRect);
        TakeCalls();
    }

    void WriteJobs(const std::vector<std::string>& names) const
    {
        for (const std::string& name : names) {
            Station.Write("NEST/" + name + ".nst", "");
        }
    }
};

// --- opening ------------------------------------------------------------------------------------------------

TEST_F(InputScreen, OpensAnImportFromItsList)
{
    SelectInputTab(TabIsoIn); // EMPTY.ISO, PLATE.ISO
    AppState.Lists[TabIsoIn].Selected = 1;
    OpenJob();
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)], FlagOn);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)], FlagOff);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::PicParam)], FlagOn);
    EXPECT_EQ(AppState.CamTabIcon[0], (ImageRef{ImageList::Small, 15}));
    EXPECT_THAT(Screen.Calls, Not(Contains("focus ParamText 0"))) << "an import has no parameters";
}

TEST_F(InputScreen, AFailedImportComesBackAfterTheBox)
{
    SelectInputTab(TabIsoIn);
    AppState.Lists[TabIsoIn].Selected = 0;
    TakeCalls();
    OpenJob();
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)], FlagOn);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)], FlagOff);
    EXPECT_THAT(TakeCalls(), ElementsAre("box text 34|text 38||one", "focus list 5"));
}

TEST_F(InputScreen, OpensTheFamilies)
{
    struct Case {
        std::int16_t Tab;
        std::int32_t Item;
        std::int16_t ShapeId;
        const char* JobName;
    };
    for (const Case& c : {Case{TabRect, 40, 1041, "R_41"}, Case{TabCirc, 0, 2001, "C_01"},
                          Case{TabCirc, 25, 2026, "C_26"}, Case{TabHoles, 2, 3003, "H_03"}}) {
        AppState.InputTab = c.Tab;
        AppState.Lists[static_cast<std::size_t>(c.Tab)].Selected = c.Item;
        SetText(AppState.TextCutting[FieldAngle], "30");
        AppState.NestResultX = 4;
        OpenJob();
        EXPECT_EQ(AppState.ShapeId, c.ShapeId);
        EXPECT_EQ(AppState.JobName, c.JobName);
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
        EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "15");
        EXPECT_EQ(AppState.NestResultX, 0);
    }
}

TEST_F(InputScreen, ShowsTheLogoThatIsThere)
{
    OpenShape(1001);
    EXPECT_EQ(AppState.LogoFile, "");
    Station.Write("IMAGES/LOGO.BMP", "BM");
    EnterParametersScreen();
    EXPECT_EQ(AppState.LogoFile, Station.Path + "\\IMAGES\\LOGO.BMP");
}

// --- saving -------------------------------------------------------------------------------------------------

TEST_F(InputScreen, AsksForTheNameOfTheNest)
{
    OpenPlate(2);
    AppState.JobName = "plate.iso";
    TakeCalls();
    EnterSaveMode();
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.SaveMode, FlagOn);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
    EXPECT_EQ(AppState.TextFileName.Text, "PLATE");
    EXPECT_EQ(TakeCalls().back(), "focus TextFileName");
    FileNameEntered();
    EXPECT_THAT(TakeCalls(), ElementsAre("select TextFileName 0 5"));
    EXPECT_EQ(AppState.FileNameColor, 0xFF0000);
    EXPECT_EQ(AppState.FileNameImage, "SaveFile");
    EXPECT_EQ(AppState.PreviewNest, FlagOn);
    EXPECT_EQ(AppState.KeyBar[8], (ImageRef{ImageList::InputState0, 11}));
}

TEST_F(InputScreen, SavesTheProgramOfTheWholeNest)
{
    OpenPlate(2);
    SetText(AppState.TextNesting[FieldSheetX], "330");
    SetText(AppState.TextNesting[FieldSheetY], "120");
    RunNesting();
    ASSERT_EQ(AppState.CountX, 3);
    ASSERT_EQ(AppState.CountY, 2);
    GenerateProgram("DIRECT");
    EnterSaveMode();
    FileNameEntered();
    ASSERT_EQ(AppState.KeyBar[0], ImageRef{}) << "no other tab while a name is asked for";
    SetText(AppState.TextFileName, "saved");
    TakeCalls();
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.ProgramCopies, 6);
    EXPECT_EQ(Station.Read("NC/SAVED.nc"), Station.Read("NC/DIRECT.nc"));
    EXPECT_EQ(AppState.JobName, "SAVED");
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    EXPECT_EQ(AppState.TextFileName.Text, "");
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "0");
    EXPECT_EQ(AppState.KeyBar[0], (ImageRef{ImageList::InputState0, 1}));
    EXPECT_EQ(AppState.KeyBar[8], (ImageRef{ImageList::InputState0, 9})) << "F9 leaves again";
    EXPECT_EQ(Screen.Calls.back(), "focus list 0");
}

TEST_F(InputScreen, AsksBeforeAJobIsOverwritten)
{
    WriteJobs({"plate"});
    OpenPlate(2);
    EnterSaveMode();
    TakeCalls();
    Screen.BoxAnswers = {false};
    SaveCurrentJob();
    EXPECT_THAT(TakeCalls(), ElementsAre("box PLATE|text 3|text 4|two", "yield", "focus TextFileName"));
    EXPECT_FALSE(Station.Holds("NC/PLATE.nc"));
    EXPECT_EQ(AppState.SaveMode, FlagOn);
    SaveCurrentJob();
    EXPECT_TRUE(Station.Holds("NC/PLATE.nc"));
    EXPECT_EQ(AppState.SaveMode, FlagOff);
}

TEST_F(InputScreen, WithoutANameNothingIsSaved)
{
    OpenPlate(2);
    for (const char* name : {"", ".", ".nst", " ", "  .nst"}) {
        EnterSaveMode();
        SetText(AppState.TextFileName, name);
        TakeCalls();
        KeyDispatcher(KeyF10, 0);
        EXPECT_THAT(TakeCalls(), ElementsAre("focus TextFileName")) << name;
        EXPECT_EQ(AppState.SaveMode, FlagOn);
    }
}

TEST_F(InputScreen, SavesUnderAnyNameThatAFileCanHave)
{
    OpenPlate(2);
    const std::string umlauts = "Gr\xC3\xB6\xC3\x9F"
                                "e 2";
    for (const auto& [name, file] : {std::pair{std::string(200, 'n'), std::string(200, 'N')},
                                     std::pair{umlauts, std::string("GR\xC3\xB6\xC3\x9F"
                                                                    "E 2")},
                                     std::pair{std::string("\xE6\x9D\xBF"), std::string("\xE6\x9D\xBF")},
                                     std::pair{std::string("a.b"), std::string("A")}}) {
        EnterCamTab(TabNesting);
        EnterSaveMode();
        SetText(AppState.TextFileName, name);
        KeyDispatcher(KeyEnter, 0);
        EXPECT_TRUE(Station.Holds("NC/" + file + ".nc")) << name;
        EXPECT_EQ(AppState.SaveMode, FlagOff) << name;
    }
}

TEST_F(InputScreen, ANameTooLongForAFileIsAskedForAgain)
{
    OpenPlate(2);
    std::string chinese; // 200 characters of three bytes
    for (int i = 0; i < 200; ++i) {
        chinese += "\xE6\x9D\xBF";
    }
    // While it is written a job is called name + ".nst.part", and a name has 255 bytes at most.
    for (const std::string& name : {chinese, std::string(247, 'n'), std::string(5000, 'n')}) {
        EnterSaveMode();
        SetText(AppState.TextFileName, name);
        TakeCalls();
        KeyDispatcher(KeyF10, 0);
        EXPECT_THAT(TakeCalls(), ElementsAre("focus TextFileName"));
        EXPECT_EQ(AppState.SaveMode, FlagOn) << "the nest isn't lost";
    }
    SetText(AppState.TextFileName, std::string(246, 'n'));
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    EXPECT_TRUE(Station.Holds("NC/" + std::string(246, 'N') + ".nc"));
}

TEST_F(InputScreen, TheNameOfTheSimulationIsAskedForAgain)
{
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "simula.nst");
    TakeCalls();
    KeyDispatcher(KeyF10, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus TextFileName"));
    EXPECT_EQ(AppState.SaveMode, FlagOn);
}

TEST_F(InputScreen, EndsAfterASaveWhenItIsSetSo)
{
    Configure("EXIT_LOG_FILE=exit.log\n", "");
    AppState.ExitAfterSave = FlagOn;
    OpenPlate(2);
    EnterSaveMode();
    EXPECT_THROW(SaveCurrentJob(), ProcessEnded);
    EXPECT_EQ(Station.Read("exit.log"), "PLATE\r\n" + Station.Path + "\\NC\\\r\n");
}

// --- leaving ------------------------------------------------------------------------------------------------

TEST_F(InputScreen, TheExitLogLiesWhereItsNameTells)
{
    AppState.JobName = "JOB.DXF";
    WriteExitLog(false); // no name, no log
    Configure("EXIT_LOG_FILE=" + Station.Path + "\\LOGS\\run.txt\n", "");
    Station.Write("LOGS/run.txt", "old");
    WriteExitLog(false);
    EXPECT_EQ(Station.Read("LOGS/run.txt"), "JOB\r\n" + Station.Path + "\\NC\\\r\n");
    WriteExitLog(true);
    EXPECT_FALSE(Station.Holds("LOGS/run.txt"));
    WriteExitLog(true);
    Configure("EXIT_LOG_FILE=beside.txt\n", "");
    WriteExitLog(false);
    EXPECT_TRUE(Station.Holds("beside.txt"));
}

TEST_F(InputScreen, LeavingWritesNoLogAndSavesNothing)
{
    Configure("EXIT_LOG_FILE=exit.log\n", "");
    OpenPlate(2);
    EXPECT_THROW(ExitProgram(), ProcessEnded);
    EXPECT_THAT(TakeCalls(), ElementsAre("end 0"));
    EXPECT_FALSE(Station.Holds("exit.log"));
    EXPECT_FALSE(Station.Holds("NC/PLATE.nc"));
}

// --- deleting -----------------------------------------------------------------------------------------------

TEST_F(InputScreen, DeletesAJobWithItsCompanions)
{
    WriteJobs({"arm", "top", "topping"});
    for (const char* name :
         {"NEST/DATA/top.bmp", "NEST/DATA/top.drw", "NC/top.nc", "NC/TOP", "NC/topping.nc"}) {
        Station.Write(name, "");
    }
    SetText(AppState.TextFileName, "TO");
    TakeCalls();
    Screen.BoxAnswers = {false, true};
    DeleteJob("TOP");
    EXPECT_TRUE(Station.Holds("NEST/top.nst"));
    DeleteJob("TOP");
    EXPECT_THAT(TakeCalls(), ElementsAre("box |text 37|TOP|two", "box |text 37|TOP|two"));
    for (const char* name : {"NEST/top.nst", "NEST/DATA/top.bmp", "NEST/DATA/top.drw", "NC/top.nc"}) {
        EXPECT_FALSE(Station.Holds(name)) << name;
    }
    EXPECT_TRUE(Station.Holds("NC/TOP")) << "with an extension set only that program goes";
    EXPECT_TRUE(Station.Holds("NC/topping.nc"));
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("TOPPING")) << "the jobs that the name still asks for";
    DeleteJob("TOP");
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "a job that isn't there is none";
}

TEST_F(InputScreen, DeletesAProgramWithoutExtension)
{
    Station.Write("PPR.ini", "");
    WriteJobs({"top"});
    Station.Write("NC/TOP", "");
    DeleteJob("TOP");
    EXPECT_FALSE(Station.Holds("NC/TOP"));
}

TEST_F(InputScreen, AJobThatCantBeDeletedKeepsItsCompanions)
{
    WriteJobs({"top"});
    for (const char* name : {"NEST/DATA/top.bmp", "NEST/DATA/top.drw", "NC/top.nc"}) {
        Station.Write(name, "");
    }
    const std::string job = Station.Path + "/NEST/top.nst";
    const bool mayAll = ::geteuid() == 0; // the superuser is kept out by what is mounted only
    if (mayAll && ::mount(job.c_str(), job.c_str(), nullptr, MS_BIND, nullptr) != 0) {
        GTEST_SKIP() << "no right to mount";
    }
    fs::permissions(Station.Path + "/NEST", fs::perms::owner_read | fs::perms::owner_exec);
    Screen.BoxAnswers = {true};
    DeleteJob("TOP");
    fs::permissions(Station.Path + "/NEST", fs::perms::owner_all);
    if (mayAll) {
        ::umount2(job.c_str(), MNT_DETACH);
    }
    for (const char* name : {"NEST/top.nst", "NEST/DATA/top.bmp", "NEST/DATA/top.drw", "NC/top.nc"}) {
        EXPECT_TRUE(Station.Holds(name)) << name;
    }
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("TOP"));
}

// --- the file-name field ------------------------------------------------------------------------------------

TEST_F(InputScreen, TypingNarrowsTheJobs)
{
    WriteJobs({"arm", "armour", "bolt"});
    SelectInputTab(TabPrograms);
    const std::pair<const char*, std::size_t> steps[] = {
        {"A", 2}, {"AR", 2}, {"ARMO", 1}, {"armx", 0}, {"", 3}};
    for (const auto& [text, count] : steps) {
        SetText(AppState.TextFileName, text);
        EXPECT_EQ(Texts(TabPrograms).size(), count) << text;
    }
}

TEST_F(InputScreen, EnterInTheNameGoesOnWhenOneJobIsLeft)
{
    WriteJobs({"arm", "armour"});
    SelectInputTab(TabPrograms);
    AppState.JobName = "before";
    SetText(AppState.TextFileName, "arm");
    TakeCalls();
    FileNameKey(KeyEnter, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus list 0"));
    EXPECT_EQ(AppState.JobName, "before");
    SetText(AppState.TextFileName, "armo");
    FileNameKey(KeyEnter, 0);
    EXPECT_EQ(AppState.JobName, "ARMOUR.nst");
    EXPECT_EQ(AppState.TextFileName.Text, "ARMOUR") << "the dispatcher has taken the selected job";
}

TEST_F(InputScreen, EnterInTheNameSaves)
{
    OpenPlate(2);
    EnterSaveMode();
    SetText(AppState.TextFileName, "");
    TakeCalls();
    FileNameKey(KeyEnter, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    SetText(AppState.TextFileName, "mine");
    FileNameKey(KeyEnter, 0);
    EXPECT_EQ(AppState.JobName, "MINE");
    EXPECT_TRUE(Station.Holds("NC/MINE.nc"));
}

TEST_F(InputScreen, OtherKeysInTheName)
{
    SelectInputTab(TabPrograms);
    for (const std::int16_t key : {KeyUp, KeyDown}) {
        TakeCalls();
        FileNameKey(key, 0);
        EXPECT_THAT(TakeCalls(), ElementsAre("focus list 0"));
    }
    FileNameKey(KeyF1, 0);
    EXPECT_EQ(AppState.InputTab, TabRect);
}

TEST_F(InputScreen, TheNameChangesItsColoursOnlyWhenSetSo)
{
    SetText(AppState.TextFileName, "X");
    FileNameEntered();
    EXPECT_EQ(AppState.FileNameColor, 0x0000FF);
    EXPECT_EQ(AppState.FileNameImage, "LoadFile");
    FileNameLeft();
    EXPECT_EQ(AppState.FileNameColor, 0x0000FF);
    AppState.TextFileLostFocus = FlagOn;
    TakeCalls();
    FileNameLeft();
    EXPECT_EQ(AppState.FileNameColor, 0xFFFF00);
    EXPECT_EQ(AppState.FileNameBackColor, 0x000000);
    EXPECT_THAT(TakeCalls(), ElementsAre("select TextFileName 0 0"));
    FileNameEntered();
    EXPECT_EQ(AppState.FileNameBackColor, 0xFFFFFF);
    AppState.SaveMode = FlagOn;
    FileNameEntered();
    EXPECT_EQ(AppState.FileNameImage, "SaveFile");
    FileNameLeft();
    EXPECT_EQ(AppState.FileNameColor, 0xFF0000);
    EXPECT_EQ(AppState.FileNameImage, "SaveFile");
}

TEST_F(InputScreen, ANameIsSelectedByCharacters)
{
    AppState.TextFileName.Text = "B\xC3\xB6\xE6\x9D\xBF";
    FileNameEntered();
    EXPECT_THAT(Screen.Calls, Contains("select TextFileName 0 3"));
}

// --- lists --------------------------------------------------------------------------------------------------

TEST_F(InputScreen, TheJobListFollowsTheMouseAndTheKeys)
{
    SelectInputTab(TabPrograms);
    TakeCalls();
    ListClicked(TabPrograms, -1);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus TextFileName")) << "an empty list hands the focus on";
    WriteJobs({"arm", "bolt", "cap"});
    FillJobList("");
    ListClicked(TabPrograms, 2);
    EXPECT_EQ(AppState.PreviewJob, "CAP");
    ListSelectionMoved(TabPrograms, 1);
    EXPECT_EQ(AppState.PreviewJob, "BOLT");
    ListClicked(TabPrograms, -1);
    EXPECT_EQ(AppState.Lists[TabPrograms].Selected, 1);
    Screen.Metrics = {300, 100, 50, 20};
    ListKey(TabPrograms, KeyF5, 0);
    EXPECT_EQ(AppState.PreviewJob, "CAP");
    ListKey(TabPrograms, KeySpace, 0);
    EXPECT_EQ(AppState.TextFileName.Text, "CAP");
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("CAP"));
}

TEST_F(InputScreen, ThePreviewIsThatOfTheSelectedJob)
{
    WriteJobs({"arm", "armour", "bolt"});
    SelectInputTab(TabPrograms);
    EXPECT_EQ(AppState.PreviewJob, "ARM");
    ListClicked(TabPrograms, 2);
    EXPECT_EQ(AppState.PreviewJob, "BOLT");
    SetText(AppState.TextFileName, "armo");
    EXPECT_EQ(AppState.PreviewJob, "ARMOUR") << "the typed name has left another job";
    SetText(AppState.TextFileName, "armx");
    EXPECT_EQ(AppState.PreviewJob, "");
    SetText(AppState.TextFileName, "");
    DeleteJob("ARM");
    EXPECT_EQ(AppState.PreviewJob, "ARMOUR");
    DeleteJob("ARMOUR");
    DeleteJob("BOLT");
    EXPECT_EQ(AppState.PreviewJob, "") << "nothing of a deleted job stays";
}

TEST_F(InputScreen, TheNestStaysInThePreviewWhileItsNameIsTyped)
{
    WriteJobs({"arm"});
    OpenPlate(2);
    EnterSaveMode();
    FileNameEntered();
    const std::string before = AppState.PreviewJob;
    SetText(AppState.TextFileName, "a");
    EXPECT_EQ(AppState.PreviewNest, FlagOn);
    EXPECT_EQ(AppState.PreviewJob, before) << "another one would have the nest drawn anew for each letter";
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.PreviewNest, FlagOff);
    EXPECT_EQ(AppState.PreviewJob, "A") << "the job that was saved is the first now";
}

TEST_F(InputScreen, OnlyJobsHaveAPreview)
{
    WriteJobs({"arm"});
    SelectInputTab(TabPrograms);
    ASSERT_EQ(AppState.PreviewJob, "ARM");
    SelectInputTab(TabRect);
    ListClicked(TabRect, 3);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 3);
    EXPECT_EQ(AppState.PreviewJob, "ARM") << "the preview isn't that of a shape";
}

TEST_F(InputScreen, AnItemThatIsNoneIsntSelected)
{
    WriteJobs({"arm", "bolt"});
    SelectInputTab(TabPrograms);
    ListClicked(TabPrograms, 1);
    for (const std::int32_t index : {-1, 2, 1000}) {
        ListClicked(TabPrograms, index);
        ListSelectionMoved(TabPrograms, index);
        EXPECT_EQ(AppState.Lists[TabPrograms].Selected, 1) << index;
        EXPECT_EQ(AppState.PreviewJob, "BOLT") << index;
    }
}

TEST_F(InputScreen, EnterAndDoubleClickOnAJobFillTheName)
{
    WriteJobs({"arm", "bolt"});
    SelectInputTab(TabPrograms);
    AppState.Lists[TabPrograms].Selected = 1;
    ListKey(TabPrograms, KeyEnter, 0);
    EXPECT_EQ(AppState.JobName, "BOLT.nst");
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EnterInputScreen();
    ListDoubleClicked(TabPrograms);
    EXPECT_EQ(AppState.TextFileName.Text, "ARM");
    EXPECT_EQ(AppState.JobName, "ARM.nst");
}

TEST_F(InputScreen, AShapeOpensByDoubleClick)
{
    TakeCalls();
    ListClicked(TabRect, 6);
    EXPECT_EQ(AppState.Lists[TabRect].Selected, 6);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    ListDoubleClicked(TabRect);
    EXPECT_EQ(AppState.ShapeId, 1007);
}

TEST_F(InputScreen, TheTabsStayWhileANameIsAskedFor)
{
    ClickInputTab(TabHoles);
    EXPECT_EQ(AppState.InputTab, TabHoles);
    OpenPlate(2);
    EnterSaveMode();
    ClickInputTab(TabHoles);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
}

TEST_F(InputScreen, AnActivatedWindowHasItsFocusWhereItBelongs)
{
    TakeCalls();
    WindowActivated();
    EXPECT_EQ(TakeCalls().back(), "focus list 1");
    OpenPlate(2);
    WindowActivated();
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EnterSaveMode();
    WindowActivated();
    EXPECT_EQ(TakeCalls().back(), "focus TextFileName");
}
} // namespace
