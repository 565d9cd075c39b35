// What each screen shows and where its focus is, by every way to it; what is built on the way, and what isn't.
#include "config/Korvanta_Configuration.h"
#include "shell/FieldEvents.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

namespace
{
class Screens : public StationCase
{
protected:
    void SetUp() override
    {
        StationCase::SetUp();
        AppState.ExitConfirm = FlagOff;
        AppState.ExitAfterSave = FlagOff;
        FillShapeLists();
        SelectInputTab(TabRect);
        EnterInputScreen();
        TakeCalls();
    }

    static bool Shown(Panel panel)
    {
        return AppState.PanelVisible[static_cast<std::size_t>(panel)] != FlagOff;
    }

    /// One picture and one frame of the three, and one of the two tab bars.
    static void ExpectPanels(std::int16_t screen)
    {
        EXPECT_EQ(AppState.ScreenState, screen);
        EXPECT_EQ(Shown(Panel::TabInput), screen == ScreenInput);
        EXPECT_EQ(Shown(Panel::TabCam), screen != ScreenInput);
        if (screen == ScreenInput) {
            return;
        }
        EXPECT_EQ(AppState.CamTab, screen - 1);
        EXPECT_EQ(Shown(Panel::PicParam), screen == ScreenParameters);
        EXPECT_EQ(Shown(Panel::FrameValue), screen == ScreenParameters);
        EXPECT_EQ(Shown(Panel::TecnoPic), screen == ScreenCutting);
        EXPECT_EQ(Shown(Panel::FrameCutting), screen == ScreenCutting);
        EXPECT_EQ(Shown(Panel::NestingPic), screen == ScreenNesting);
        EXPECT_EQ(Shown(Panel::FrameNesting), screen == ScreenNesting);
    }

    static void OpenRect(std::int32_t item)
    {
        EnterInputScreen();
        AppState.InputTab = TabRect;
        AppState.Lists[TabRect].Selected = item;
        KeyDispatcher(KeyF10, 0);
    }
};

TEST_F(Screens, EachShowsItsPanelsAndFocusesItsFirstField)
{
    OpenRect(4);
    ExpectPanels(ScreenParameters);
    EXPECT_EQ(LastFocus(), "focus ParamText 0");
    KeyDispatcher(KeyF10, 0);
    ExpectPanels(ScreenCutting);
    EXPECT_EQ(LastFocus(), "focus TextCutting 0");
    KeyDispatcher(KeyF10, 0);
    ExpectPanels(ScreenNesting);
    EXPECT_EQ(LastFocus(), "focus TextNesting 0");
    KeyDispatcher(KeyF9, 0);
    ExpectPanels(ScreenCutting);
    KeyDispatcher(KeyF9, 0);
    ExpectPanels(ScreenParameters);
    EXPECT_EQ(LastFocus(), "focus ParamText 0");
    KeyDispatcher(KeyF1, 0);
    ExpectPanels(ScreenInput);
    EXPECT_EQ(LastFocus(), "focus list 1");
}

TEST_F(Screens, AClickOnATabShowsItFromEachOther)
{
    OpenRect(4);
    KeyDispatcher(KeyF10, 0); // built
    for (const std::int16_t from : {TabParameters, TabCutting, TabNesting}) {
        for (const std::int16_t to : {TabParameters, TabCutting, TabNesting}) {
            ClickCamTab(from);
            ClickCamTab(to);
            ExpectPanels(static_cast<std::int16_t>(to + 1));
            EXPECT_EQ(AppState.PreviousCamTab, to);
        }
    }
    TakeCalls();
    ClickCamTab(3);
    ClickCamTab(-1);
    EXPECT_EQ(AppState.CamTab, TabNesting);
}

TEST_F(Screens, TheFocusRecordNamesTheFieldOfTheScreen)
{
    OpenRect(4);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Param);
    EXPECT_EQ(AppState.CurrentField, 0);
    FieldArrived(AppState.ParamText, 1);
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Cutting);
    EXPECT_EQ(AppState.CurrentField, FieldAngle);
    EXPECT_EQ(AppState.FieldMode, 2);
    EXPECT_EQ(AppState.KeyBar[4], (ImageRef{ImageList::Common, 9})) << "a quarter turn";
    FieldArrived(AppState.TextCutting, FieldMoveStep);
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Nesting);
    EXPECT_EQ(AppState.CurrentField, FieldSheetX);
    EXPECT_EQ(AppState.FieldMode, 8);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].BackColor, ColorYellow);
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None) << "the window reports the arrival on the name";
    EXPECT_EQ(LastFocus(), "focus TextFileName");
    FileNameEntered();
    EXPECT_EQ(AppState.FocusedSet, FieldSet::FileName);
    KeyDispatcher(KeyF9, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Nesting);
    KeyDispatcher(KeyF1, 0);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    EXPECT_EQ(AppState.FieldMode, 0);
}

TEST_F(Screens, AnImportHasNoFieldOnTheParametersScreen)
{
    OpenPlate(1);
    KeyDispatcher(KeyF9, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    EXPECT_EQ(AppState.FieldMode, 0);
    EXPECT_EQ(AppState.KeyBar[2], ImageRef{});
    EXPECT_THAT(Screen.Calls, Not(Contains("focus ParamText 0")));
}

TEST_F(Screens, AnImportIsDrawnOnTheParametersScreenAndAShapeIsnt)
{
    Drawn.Shown = true;
    OpenPlate(0);
    ASSERT_FALSE(Drawn.Pictures.empty());
    EXPECT_EQ(Drawn.Pictures.back(), Picture::Param);
    ASSERT_FALSE(AppState.JobName.empty());
    EXPECT_THAT(Drawn.Strokes, Contains(HasSubstr("' " + AppState.JobName + " '"))) << "its name over it";
    EXPECT_EQ(TakeStrokesLike("line").size(), 8U) << "two contours of four lines, no axes";
    OpenRect(4);
    EXPECT_THAT(TakeStrokesLike("line"), IsEmpty());
}

TEST_F(Screens, AShapeIsBuiltOnTheWayToCuttingButForTheWayBackFromNesting)
{
    OpenRect(4);
    SetText(AppState.ParamText[0], "120"); // A, the height
    KeyDispatcher(KeyF10, 0);
    EXPECT_NEAR(AppState.MaxY, 120.0, 1e-9);
    KeyDispatcher(KeyF10, 0);
    SetText(AppState.ParamText[0], "140"); // nobody can type it here: the fields are on another screen
    KeyDispatcher(KeyF9, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_NEAR(AppState.MaxY, 120.0, 1e-9) << "back from the nest the part stays as it is";
    KeyDispatcher(KeyF9, 0);
    KeyDispatcher(KeyF10, 0);
    EXPECT_NEAR(AppState.MaxY, 140.0, 1e-9);
}

TEST_F(Screens, AChangedParameterKeepsTheLeadsAndANewOpeningDoesNot)
{
    HoldConfigWrites();
    OpenRect(4);
    KeyDispatcher(KeyF10, 0);
    FieldArrived(AppState.TextCutting, FieldLeadInA);
    SetText(AppState.TextCutting[FieldLeadInA], "7");
    KeyDispatcher(KeyF9, 0); // leaves the field first
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 7.0);
    SetText(AppState.ParamText[0], "150");
    KeyDispatcher(KeyF10, 0);
    EXPECT_NEAR(AppState.MaxY, 150.0, 1e-9);
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 7.0);
    AppState.HeldConfig.clear(); // the edited value would be the default of the next part
    KeyDispatcher(KeyF1, 0);
    OpenRect(4);
    KeyDispatcher(KeyF10, 0);
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 10.0);
}

TEST_F(Screens, AClickStraightOnNestingNestsThePartOfTheParameters)
{
    OpenPlate(2); // 100 x 50, the part before
    OpenRect(4);
    SetText(AppState.ParamText[0], "120"); // A, the height
    ClickCamTab(TabNesting);
    ExpectPanels(ScreenNesting);
    EXPECT_NEAR(AppState.MaxX, 200.0, 1e-9) << "not the part before";
    EXPECT_NEAR(AppState.MaxY, 120.0, 1e-9);
    ASSERT_GT(AppState.ProfileTable.size(), 1U);
    EXPECT_NE(AppState.ProfileTable[1].Status, LeadUnset);
    ClickCamTab(TabParameters);
    SetText(AppState.ParamText[0], "0");
    ClickCamTab(TabNesting);
    ExpectPanels(ScreenParameters);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Param);
    SetText(AppState.ParamText[0], "130");
    KeyDispatcher(KeyF10, 0);
    ExpectPanels(ScreenCutting);
    EXPECT_NEAR(AppState.MaxY, 130.0, 1e-9);
}

TEST_F(Screens, ABuildThatFailsCanBeMended)
{
    OpenRect(4);
    const std::string good = AppState.ParamText[0].Text;
    SetText(AppState.ParamText[0], "0");
    TakeCalls();
    KeyDispatcher(KeyF10, 0);
    ExpectPanels(ScreenParameters);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Param);
    SetText(AppState.ParamText[0], good);
    KeyDispatcher(KeyF10, 0);
    ExpectPanels(ScreenCutting);
}

TEST_F(Screens, LeavingForTheInputScreenDropsTheJobWithoutAQuestion)
{
    AppState.ExitConfirm = FlagOn;
    SetText(AppState.TextFileName, "LEFT");
    OpenPlate(2);
    SetText(AppState.TextNesting[FieldSheetX], "*4");
    TakeCalls();
    KeyDispatcher(KeyF1, 0);
    ExpectPanels(ScreenInput);
    EXPECT_EQ(AppState.TextFileName.Text, "");
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "0");
    EXPECT_EQ(AppState.TextNesting[FieldSheetY].Text, "0");
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "");
    EXPECT_EQ(AppState.LabelNesting[LabelCountY], "");
    EXPECT_EQ(AppState.NestResultX, 0);
    EXPECT_EQ(AppState.KeyBar[2], (ImageRef{ImageList::InputState0, 3})) << "the keys of the lists";
    EXPECT_THAT(TakeCalls(), Not(Contains("box text 32|||two")));
}

TEST_F(Screens, EscEndsAtOnceWithAnUnsavedNest)
{
    OpenPlate(2);
    EXPECT_THROW(ValueFieldKey(AppState.TextNesting, FieldSheetX, KeyEsc, 0), ProcessEnded);
    EXPECT_EQ(TakeCalls().back(), "end 0");
    EnterSaveMode();
    EXPECT_THROW(FileNameKey(KeyEsc, 0), ProcessEnded);
}
} // namespace
