// The road of one part by keys alone, with the window's focus played along: what it saves is what the same numbers give
// without any keys.
#include "post/Korvanta_PostProcessor.h"
#include "shell/FieldEvents.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

#include <fstream>
#include <functional>
#include <set>
#include <sstream>

namespace
{
class RoadByKeys : public StationCase
{
protected:
    const ValueField* Focus = nullptr; ///< null while a list has it

    void SetUp() override
    {
        StationCase::SetUp();
        std::ifstream table(KORVANTA_SOURCE_DIR "/station/PPR.ini", std::ios::binary);
        std::ostringstream text;
        text << table.rdbuf();
        Station.Write("PPR.ini", text.str());
        Configure("EXIT_PROGRAM=NO\n", "");
        StartCase();
        Screen.Metrics = {300, 100, 50, 20};
    }

    void PlayWindow()
    {
        Screen.OnFocus = [this](const ValueField* field) { MoveFocus(field); };
        StartWindow(Station.Path, "");
    }

    /// A window leaves the old control, then arrives on the new one, unless leaving has sent the focus elsewhere.
    void MoveFocus(const ValueField* field)
    {
        const ValueField* old = Focus;
        if (old == field) {
            return;
        }
        Focus = field;
        if (old == &AppState.TextFileName) {
            FileNameLeft();
        } else if (old != nullptr) {
            FieldGone(ArrayOf(*old), old->Index);
        }
        if (Focus != field || field == nullptr) {
            return;
        }
        if (field == &AppState.TextFileName) {
            FileNameEntered();
        } else {
            FieldArrived(ArrayOf(*field), field->Index);
        }
    }

    static FieldArray ArrayOf(const ValueField& field)
    {
        const std::string name = field.ControlName;
        if (name == "ParamText") {
            return AppState.ParamText;
        }
        return name == "TextCutting" ? FieldArray(AppState.TextCutting) : FieldArray(AppState.TextNesting);
    }

    void Press(std::int16_t keyCode) const
    {
        if (Focus == nullptr) {
            ListKey(AppState.InputTab, keyCode, 0);
        } else if (Focus == &AppState.TextFileName) {
            FileNameKey(keyCode, 0);
        } else {
            ValueFieldKey(ArrayOf(*Focus), Focus->Index, keyCode, 0);
        }
    }

    /// From the list of rectangular shapes to the Parameters screen of the plate.
    void OpenPlateByKeys() const
    {
        Press(KeyF2);
        Press(KeyF2); // from the jobs around to the programs: EMPTY.ISO, PLATE.ISO
        Press(KeyF5);
        Press(KeyF10);
        ASSERT_EQ(AppState.ScreenState, ScreenParameters);
        ASSERT_EQ(AppState.ProfileCount, 2);
    }

    /// Types over the selected text of the field with the focus, character by character.
    void Type(const std::string& text) const
    {
        ASSERT_NE(Focus, nullptr);
        for (std::size_t length = 1; length <= text.size(); ++length) {
            ValueField& field = Focus == &AppState.TextFileName
                                    ? AppState.TextFileName
                                    : ArrayOf(*Focus)[static_cast<std::size_t>(Focus->Index)];
            SetText(field, text.substr(0, length));
        }
    }
};

TEST_F(RoadByKeys, SavesTheProgramOfTheSameNumbers)
{
    PlayWindow();
    for (int step = 1; step < 5; ++step) {
        Press(KeyF3); // from
    }
    Press(KeyF10);
    ASSERT_EQ(AppState.ShapeId, 1005);
    ASSERT_EQ(Focus, AppState.ParamText.data());
    Type("120");
    Press(KeyEnter);
    Press(KeyF10);
    ASSERT_EQ(AppState.ScreenState, ScreenCutting);
    Type("90");
    Press(KeyEnter);
    EXPECT_EQ(Focus, &AppState.TextCutting[FieldMirror]);
    Press(KeyF10);
    ASSERT_EQ(AppState.ScreenState, ScreenNesting);
    Type("*5");
    Press(KeyEnter);
    Type("*2");
    Press(KeyF10); // the entry counts, though the field is left by the key that ends the nest
    EXPECT_EQ(Focus, &AppState.TextFileName);
    EXPECT_EQ(AppState.TextFileName.Text, "R_05");
    Type("ROAD");
    Press(KeyEnter);
    EXPECT_EQ(AppState.ProgramCopies, 10);
    EXPECT_EQ(Focus, nullptr);
    const std::string byKeys = Station.Read("NC/" + AppState.OutputName);
    ASSERT_GT(byKeys.size(), 200U);

    StartCase();
    StartStation(Station.Path, 0);
    OpenShape(1005);
    SetText(AppState.ParamText[0], "120");
    NextCamTab();
    SetText(AppState.TextCutting[FieldAngle], "90");
    NextCamTab();
    SetText(AppState.TextNesting[FieldSheetX], "*5");
    NestingFieldLeft(FieldSheetX);
    AppState.SheetFieldChanged = FlagOff;
    SetText(AppState.TextNesting[FieldSheetY], "*2");
    NestingFieldLeft(FieldSheetY);
    GenerateProgram("ROAD");
    EXPECT_EQ(Station.Read("NC/" + AppState.OutputName), byKeys);
}

TEST_F(RoadByKeys, AJobComesBackWithTheParametersItWasSavedWith)
{
    PlayWindow();
    Press(KeyF10);
    ASSERT_EQ(AppState.ShapeId, 1001);
    Type("123.5");
    for (int screen = ScreenParameters; screen < ScreenNesting; ++screen) {
        Press(KeyF10);
    }
    Press(KeyF10);
    Type("KEPT");
    Press(KeyEnter);
    ASSERT_EQ(AppState.ScreenState, ScreenInput);
    ResetFields();
    OpenSavedJob("KEPT.nst");
    EXPECT_EQ(AppState.ShapeId, 1001);
    EXPECT_EQ(AppState.ParamText[0].Text, "123.5");
    EXPECT_EQ(AppState.PartSizeY, 123.5);
}

TEST_F(RoadByKeys, ALimitHoldsTheFocusOnTheFieldThatPassedIt)
{
    PlayWindow();
    Press(KeyF10);
    Press(KeyF10);
    ASSERT_EQ(Focus, AppState.TextCutting.data());
    Type("400");
    Press(KeyEnter);
    EXPECT_EQ(Focus, AppState.TextCutting.data());
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "360");
    EXPECT_EQ(AppState.CurrentField, FieldAngle);
    EXPECT_EQ(AppState.FieldMode, 2);
    for (int step = 0; step < 5; ++step) {
        Press(KeyEnter);
    }
    ASSERT_EQ(Focus, &AppState.TextCutting[FieldLeadInA]);
    Type("1000");
    Press(KeyDown);
    EXPECT_EQ(AppState.TextCutting[FieldLeadInA].Text, "999");
    EXPECT_EQ(AppState.TextCutting[FieldLeadInA].BackColor, 0xFFFF00);
    EXPECT_EQ(AppState.CurrentField, Focus->Index);
}

TEST_F(RoadByKeys, TheWayBackOfAnImportEndsOnAWorkingField)
{
    PlayWindow();
    OpenPlateByKeys();
    Press(KeyF10);
    ASSERT_EQ(Focus, AppState.TextCutting.data());
    Press(KeyF9); // no field has the focus there, and the window may take it for where it was
    EXPECT_EQ(AppState.FocusedSet, FieldSet::None);
    Press(KeyF10);
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Cutting);
    EXPECT_EQ(AppState.FieldMode, 2);
    Press(KeyF3);
    EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, "1");
}

TEST_F(RoadByKeys, AClickOnTheTabThatIsShownLeavesItsFieldWorking)
{
    PlayWindow();
    OpenPlateByKeys();
    Press(KeyF10);
    Press(KeyF10);
    ASSERT_EQ(Focus, AppState.TextNesting.data());
    Type("*2");
    ClickCamTab(TabNesting);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "220") << "2 cells of 100 + 10";
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Nesting);
    Type("*3");
    Press(KeyEnter);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "330");
    EXPECT_EQ(AppState.CountX, 3);
}

TEST_F(RoadByKeys, AShapeThatCantBeBuiltKeepsTheFocusOnItsParameters)
{
    PlayWindow();
    for (int step = 1; step < 5; ++step) {
        Press(KeyF3);
    }
    Press(KeyF10);
    Type("0");
    Press(KeyF10);
    EXPECT_EQ(AppState.ScreenState, ScreenParameters);
    EXPECT_EQ(Focus, AppState.ParamText.data());
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Param);
}

// --- keys that arrive while the window catches up -----------------------------------------------------------

TEST_F(RoadByKeys, AKeyThatOvertakesTheParametersScreenWins)
{
    PlayWindow();
    OpenPlateByKeys();
    Press(KeyF10);
    EnterInputScreen();
    SelectInputTab(TabRect);
    int yields = 0;
    const std::function<void()> overtake = [&] {
        // The reset of the fields may yield, too: the key comes once the Parameters screen is there.
        if (AppState.ScreenState == ScreenParameters) {
            ++yields;
            KeyDispatcher(KeyF10, 0);
        } else {
            Screen.OnYield = overtake;
        }
    };
    Screen.OnYield = overtake;
    Press(KeyF10);
    EXPECT_EQ(yields, 1);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(Focus, AppState.TextCutting.data());
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Cutting);
    EXPECT_EQ(AppState.PreviousCamTab, TabCutting);
}

TEST_F(RoadByKeys, AKeyThatOvertakesTheQuestionForANameWins)
{
    PlayWindow();
    OpenPlateByKeys();
    Press(KeyF10);
    Press(KeyF10);
    Screen.OnYield = [] { KeyDispatcher(KeyF9, 0); };
    Press(KeyF10);
    EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    EXPECT_EQ(AppState.SaveMode, FlagOff);
    EXPECT_EQ(Focus, AppState.TextNesting.data());
    EXPECT_EQ(AppState.FocusedSet, FieldSet::Nesting);
}

TEST_F(RoadByKeys, AKeyThatOvertakesTheSimulationWins)
{
    PlayWindow();
    OpenPlateByKeys();
    Press(KeyF10);
    Press(KeyF10);
    AppState.KerfState = KerfRight; // any walk sets it anew
    Screen.OnYield = [] { KeyDispatcher(KeyF9, 0); };
    Press(KeyF8);
    EXPECT_EQ(AppState.ScreenState, ScreenCutting);
    EXPECT_EQ(Focus, AppState.TextCutting.data());
    EXPECT_EQ(AppState.KerfState, KerfRight);
}

TEST_F(RoadByKeys, HammeredKeysBreakNothing)
{
    PlayWindow();
    AppState.ExitConfirm = FlagOn;
    const std::int16_t keys[] = {KeyF1,   KeyF2,    KeyF3,  KeyF4,  KeyF5,     KeyF6,    KeyF7,   KeyF8,
                                 KeyF9,   KeyF10,   KeyF10, KeyF10, KeyEnter,  KeyEnter, KeyUp,   KeyDown,
                                 KeyLeft, KeyRight, KeyEsc, KeyD,   KeyDelete, KeyPad3,  KeyPad9, KeySpace};
    std::uint32_t random = 20;
    std::set<std::int16_t> seen;
    bool asked = false;
    for (int press = 0; press < 3000; ++press) {
        random = random * 1664525U + 1013904223U;
        Screen.BoxAnswers = {false, false};
        Screen.Calls.clear();
        Press(keys[(random >> 16U) % std::size(keys)]);
        seen.insert(AppState.ScreenState);
        asked = asked || AppState.SaveMode != FlagOff;
        ASSERT_GE(AppState.ScreenState, ScreenInput);
        ASSERT_LE(AppState.ScreenState, ScreenNesting);
        const bool camShown = AppState.PanelVisible[static_cast<std::size_t>(Panel::TabCam)] != FlagOff;
        ASSERT_EQ(camShown, AppState.ScreenState != ScreenInput) << "press " << press;
        ASSERT_NE(camShown, AppState.PanelVisible[static_cast<std::size_t>(Panel::TabInput)] != FlagOff);
    }
    EXPECT_EQ(seen.size(), 4U) << "the keys reach every screen";
    EXPECT_TRUE(asked);
}
} // namespace
