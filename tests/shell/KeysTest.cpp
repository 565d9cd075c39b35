// The tables of keys of the four screens, and the clicks on the key bar.
#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "shell/FieldEvents.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;

namespace
{
class Keys : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        FillShapeLists();
        SelectInputTab(TabRect);
        EnterInputScreen();
        AppState.ExitConfirm = FlagOff;
        AppState.ExitAfterSave = FlagOff;
        Screen.Metrics = {300, 100, 50, 20}; // icons: 5 in a row
        TakeCalls();
    }

    static void PressInField(std::int16_t keyCode)
    {
        KeyDispatcher(keyCode, 0, ScreenFields(), ScreenPicture());
    }

    static std::int32_t SelectedRect()
    {
        return AppState.Lists[TabRect].Selected;
    }

    static bool Exits(std::int16_t keyCode)
    {
        try {
            KeyDispatcher(keyCode, 0);
        } catch (const ProcessEnded& end) {
            return end.Status == 0;
        }
        return false;
    }
};

// --- Input screen -----------------------------------------------------------------------------------------

TEST_F(Keys, TabsGoRoundOnTheInputScreen)
{
    AppState.InputTab = TabIsoIn;
    KeyDispatcher(KeyF1, 0);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
    KeyDispatcher(KeyPad3, 0);
    EXPECT_EQ(AppState.InputTab, TabRect);
    KeyDispatcher(KeyF2, 0);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
    KeyDispatcher(KeyPad9, 0);
    EXPECT_EQ(AppState.InputTab, TabIsoIn);
    for (const std::int16_t key : {KeyF1, KeyPad3, KeyF2, KeyPad9}) {
        AppState.SaveMode = FlagOn;
        KeyDispatcher(key, 0);
        EXPECT_EQ(AppState.InputTab, TabIsoIn) << "while a name is asked for the tab stays, key " << key;
    }
}

TEST_F(Keys, F3ToF6MoveTheSelectionWithOrWithoutANameAskedFor)
{
    for (const Flag saving : {FlagOff, FlagOn}) {
        AppState.SaveMode = saving;
        AppState.Lists[TabRect].Selected = 7;
        KeyDispatcher(KeyF3, 0);
        EXPECT_EQ(SelectedRect(), 8);
        KeyDispatcher(KeyF4, 0);
        EXPECT_EQ(SelectedRect(), 7);
        KeyDispatcher(KeyF5, 0);
        EXPECT_EQ(SelectedRect(), 12);
        KeyDispatcher(KeyF6, 0);
        EXPECT_EQ(SelectedRect(), 7);
    }
}

TEST_F(Keys, DeleteWorksOnTheJobsOnly)
{
    Station.Write("NEST/plate.nst", "");
    Station.Write("NEST/second.nst", "");
    SelectInputTab(TabPrograms);
    for (const std::int16_t key : {KeyF8, KeyD, KeyDelete}) {
        Screen.BoxAnswers = {false};
        TakeCalls();
        KeyDispatcher(key, 0);
        EXPECT_THAT(TakeCalls(), ElementsAre("box |text 37|PLATE|two"));
    }
    AppState.SaveMode = FlagOn;
    KeyDispatcher(KeyF8, 0);
    AppState.SaveMode = FlagOff;
    AppState.InputTab = TabRect;
    KeyDispatcher(KeyF8, 0);
    KeyDispatcher(KeyD, 0);
    KeyDispatcher(KeyDelete, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    AppState.InputTab = TabPrograms;
    KeyDispatcher(KeyDelete, 0);
    EXPECT_FALSE(Station.Holds("NEST/plate.nst"));
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("SECOND"));
    KeyDispatcher(KeyDelete, 0);
    EXPECT_THAT(Texts(TabPrograms), IsEmpty());
    TakeCalls();
    KeyDispatcher(KeyDelete, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "nothing is left to delete";
}

TEST_F(Keys, F9LeavesTheProgramOrGoesBackToTheNest)
{
    EXPECT_TRUE(Exits(KeyF9));
    OpenPlate(2);
    EnterSaveMode();
    AppState.ExitConfirm = FlagOn;
    TakeCalls();
    KeyDispatcher(KeyF9, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)], FlagOn);
    EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)], FlagOff);
    EXPECT_EQ(Screen.Calls.front(), "focus TextFileName");
    EXPECT_EQ(LastFocus(), "focus TextNesting 0");
}

TEST_F(Keys, EnterAndF10OpenTheSelectedShape)
{
    for (const std::int16_t key : {KeyEnter, KeyF10}) {
        EnterInputScreen();
        AppState.Lists[TabRect].Selected = 4;
        KeyDispatcher(key, 0);
        EXPECT_EQ(AppState.ScreenState, ScreenParameters);
        EXPECT_EQ(AppState.ShapeId, 1005);
        EXPECT_EQ(AppState.JobName, "R_05");
        EXPECT_EQ(AppState.SourceName, "R_05");
    }
}

TEST_F(Keys, EmptyListsOpenNothing)
{
    for (const std::int16_t tab : {TabPrograms, TabDxfIn}) {
        SelectInputTab(tab);
        for (const std::int16_t key : {KeyEnter, KeyF10}) {
            TakeCalls();
            KeyDispatcher(key, 0);
            EXPECT_EQ(AppState.ScreenState, ScreenInput);
            EXPECT_THAT(TakeCalls(), IsEmpty());
        }
    }
}

TEST_F(Keys, AJobPutsItsNameIntoTheField)
{
    Station.Write("NEST/plate.nst", "");
    Station.Write("NEST/top.nst", "");
    SelectInputTab(TabPrograms);
    AppState.Lists[TabPrograms].Selected = 1;
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.TextFileName.Text, "TOP");
    EXPECT_THAT(Texts(TabPrograms), ElementsAre("TOP"));
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
}

// --- every screen -----------------------------------------------------------------------------------------

TEST_F(Keys, EscAndItsAliasEndTheProgramOnEveryScreen)
{
    AppState.EscAlias = 19;
    for (const std::int16_t screen : {ScreenInput, ScreenParameters, ScreenCutting, ScreenNesting}) {
        AppState.ScreenState = screen;
        EXPECT_TRUE(Exits(KeyEsc)) << screen;
        EXPECT_TRUE(Exits(19)) << screen;
    }
    AppState.ExitConfirm = FlagOn;
    Screen.BoxAnswers = {false, true};
    EXPECT_FALSE(Exits(KeyEsc));
    EXPECT_TRUE(Exits(KeyEsc));
    EXPECT_THAT(Screen.Calls, Contains("box text 32|||two"));
}

TEST_F(Keys, AnAliasTakesItsKeyFromTheScreens)
{
    for (const std::int16_t alias : {KeyF10, KeyEnter, KeyF1, KeyD}) {
        AppState.EscAlias = alias;
        for (const std::int16_t screen : {ScreenInput, ScreenParameters, ScreenCutting, ScreenNesting}) {
            AppState.ScreenState = screen;
            EXPECT_TRUE(Exits(alias)) << alias << " on " << screen;
        }
    }
}

TEST_F(Keys, AnAliasThatIsNoNumberIsNoKey)
{
    AppState.EscAlias =
        0; // what a setting without a number gives, and what the window sends for a key without a code
    for (const std::int16_t screen : {ScreenInput, ScreenParameters, ScreenCutting, ScreenNesting}) {
        AppState.ScreenState = screen;
        EXPECT_FALSE(Exits(0)) << screen;
    }
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(Keys, OtherKeysAndOtherScreensDoNothing)
{
    for (const int screen : {-1, 4, 99}) {
        AppState.ScreenState = static_cast<std::int16_t>(screen);
        for (std::int16_t key = 0; key < 256; ++key) {
            KeyDispatcher(key, 0);
        }
    }
    for (const std::int16_t key : {std::int16_t{0}, std::int16_t{65}, KeySpace, KeyLeft, KeyF7}) {
        AppState.ScreenState = ScreenInput;
        KeyDispatcher(key, 0);
    }
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

// --- CAM screens --------------------------------------------------------------------------------------------

TEST_F(Keys, TheParametersScreenHasTwoKeys)
{
    OpenShape(1001);
    TakeCalls();
    for (const std::int16_t key : {KeyF2, KeyF3, KeyF4, KeyF5, KeyF6, KeyF7, KeyF8, KeyF9, KeyEnter, KeyD}) {
        KeyDispatcher(key, 0);
        EXPECT_EQ(AppState.ScreenState, ScreenParameters) << key;
    }
    EXPECT_THAT(TakeCalls(), IsEmpty());
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(AppState.CamTab, TabCutting);
    EnterCamTab(TabParameters);
    KeyDispatcher(KeyF1, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
}

TEST_F(Keys, ScreensFollowEachOther)
{
    OpenPlate(1);
    PressInField(KeyF9);
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    PressInField(KeyF10);
    PressInField(KeyF10);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    PressInField(KeyF9);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    PressInField(KeyF10);
    PressInField(KeyF10);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(AppState.SaveMode, FlagOn);
    EXPECT_EQ(AppState.InputTab, TabPrograms);
    for (const std::int16_t tab : {TabCutting, TabNesting}) {
        OpenPlate(tab);
        SetText(AppState.TextNesting[FieldSheetX], "500");
        PressInField(KeyF1);
        EXPECT_EQ(AppState.ScreenState, ScreenInput);
        EXPECT_EQ(AppState.SaveMode, FlagOff);
        EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "0");
        EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)], FlagOn);
        EXPECT_EQ(AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)], FlagOff);
    }
    OpenPlate(0);
    ClickCamTab(TabNesting);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
}

TEST_F(Keys, AShapeThatCantBeBuiltStaysOnTheParametersScreen)
{
    OpenShape(1005);
    SetText(AppState.ParamText[0], "0");
    TakeCalls();
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.CamTab, TabParameters);
    EXPECT_EQ(LastFocus(), "focus ParamText 0");
}

TEST_F(Keys, F2JumpsBetweenZoomAndTheFirstField)
{
    for (const std::int16_t tab : {TabCutting, TabNesting}) {
        OpenPlate(tab);
        const std::string name = tab == TabCutting ? "focus TextCutting " : "focus TextNesting ";
        FieldArrived(ScreenFields(), 2);
        TakeCalls();
        PressInField(KeyF2);
        EXPECT_THAT(TakeCalls(), ElementsAre(name + (tab == TabCutting ? "9" : "7")));
        AppState.FieldMode = 3;
        PressInField(KeyF2);
        EXPECT_THAT(TakeCalls(), ElementsAre(name + "0"));
    }
}

TEST_F(Keys, F3ToF8AreTheKeysOfTheField)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldAngle);
    PressInField(KeyF3);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "1");
    PressInField(KeyF4);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
    PressInField(KeyF5);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "90");
    PressInField(KeyF6);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0");
    KeyDispatcher(KeyF3, 0);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "0") << "a key without fields has nothing to work on";
    NextCamTab();
    FieldArrived(AppState.TextNesting, FieldNestType);
    PressInField(KeyF6);
    EXPECT_EQ(AppState.TextNesting[FieldNestType].Text, "4");
}

TEST_F(Keys, F8SimulatesOrMovesTheZoom)
{
    OpenPlate(2);
    FieldArrived(AppState.TextNesting, FieldGapX);
    TakeCalls();
    PressInField(KeyF8);
    const std::vector<std::string> calls = TakeCalls();
    ASSERT_GE(calls.size(), 2U);
    EXPECT_EQ(calls[0], "focus TextNesting 6");
    EXPECT_EQ(calls[1], "yield");
    AppState.SimRunning = FlagOn;
    PressInField(KeyF8);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus TextNesting 6", "yield")) << "one simulation at a time";
    AppState.SimRunning = FlagOff;
    FieldArrived(AppState.TextNesting, FieldNestingZoom);
    SetText(AppState.TextNesting[FieldNestingZoom], "2");
    const double before = AppState.ViewCentreY;
    TakeCalls();
    PressInField(KeyF8);
    EXPECT_THAT(TakeCalls(), Not(Contains("focus TextNesting 6")));
    EXPECT_GT(AppState.ViewCentreY, before);
}

TEST_F(Keys, ADroppedPartLeavesItsLeadToTheNext)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldLeadInA);
    SetText(AppState.TextCutting[FieldLeadInA], "7.5");
    PressInField(KeyF1);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_In", ""), "7.5") << "the field was left by the key";
}

TEST_F(Keys, AScreenIsLeftByLeavingItsFieldFirst)
{
    OpenPlate(2);
    FieldArrived(AppState.TextNesting, FieldSheetX);
    SetText(AppState.TextNesting[FieldSheetX], "*3");
    PressInField(KeyF10);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "330") << "3 cells of 100 + 10";
    EXPECT_EQ(AppState.NestResultX, 3);
    EXPECT_EQ(AppState.CountX, 3);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    AppState.NestResultX = 0;
    FieldGone(AppState.TextNesting, FieldSheetX); // the window's own report comes late
    EXPECT_EQ(AppState.NestResultX, 0);
}

// --- clicks -------------------------------------------------------------------------------------------------

TEST_F(Keys, AClickIsTheKeyAndGivesTheFocusBack)
{
    AppState.Lists[TabRect].Selected = 0;
    ClickFunctionButton(2);
    EXPECT_EQ(SelectedRect(), 1);
    EXPECT_EQ(LastFocus(), "focus list 1");
    ClickFunctionButton(9);
    EXPECT_EQ(AppState.ShapeId, 1002);
    EXPECT_EQ(LastFocus(), "focus ParamText 0");
    TakeCalls();
    ClickFunctionButton(2);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus ParamText 0")) << "a button without a key here keeps it, too";
    ClickFunctionButton(9);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(LastFocus(), "focus TextCutting 0");
    FieldArrived(AppState.TextCutting, FieldScale);
    ClickFunctionButton(2);
    EXPECT_EQ(AppState.TextCutting[FieldScale].Text, "2");
    EXPECT_EQ(LastFocus(), "focus TextCutting 2");
    EXPECT_EQ(AppState.ButtonPressed, FlagOff);
    TakeCalls();
    ClickFunctionButton(-1);
    ClickFunctionButton(10);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(Keys, AClickedNameKeepsTheFocusInItsField)
{
    OpenPlate(2);
    EnterSaveMode();
    TakeCalls();
    ClickFunctionButton(0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus TextFileName"));
}

TEST_F(Keys, AClickOnF2AppliesTheZoomThatTheLostFocusDoesNot)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldCuttingZoom);
    ASSERT_EQ(AppState.FieldMode, 3);
    SetText(AppState.TextCutting[FieldCuttingZoom], "4");
    const double width = AppState.ViewWidth;
    AppState.ButtonPressed = FlagOn;
    FieldGone(AppState.TextCutting, FieldCuttingZoom);
    EXPECT_EQ(AppState.ViewWidth, width);
    TakeCalls();
    ClickFunctionButton(1);
    EXPECT_EQ(AppState.ViewWidth, width / 4);
    EXPECT_EQ(LastFocus(), "focus TextCutting 0");
    FieldArrived(AppState.TextCutting, FieldAngle);
    TakeCalls();
    ClickFunctionButton(1);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus TextCutting 9"));
}

TEST_F(Keys, AClickThatLeavesTheZoomFieldForAnotherScreenAppliesNothing)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldCuttingZoom);
    SetText(AppState.TextCutting[FieldCuttingZoom], "4");
    ClickFunctionButton(9);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    EXPECT_TRUE(IsNoValue(AppState.SavedCentreX));
}
} // namespace
