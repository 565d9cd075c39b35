// The simulation by its keys: what each of them does while the head is on its way.
#include "platform/Fault.h"
#include "post/Korvanta_PostProcessor.h"
#include "shell/FieldEvents.h"
#include "shell/InputLists.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/Measure.h"
#include "shell/SimulationRun.h"
#include "shell/ValueFields.h"
#include "support/RecordingSurface.h"
#include "support/Station.h"

#include <gmock/gmock.h>

using testing::Contains;
using testing::HasSubstr;
using testing::Not;

namespace
{
constexpr std::size_t KeyOfThree = 4; ///< F5, key 3 of a field
constexpr std::int16_t PictureStart = 22;
constexpr std::int16_t PictureStop = 23;

/// Two plates on the Nesting screen. Every step lets keys in; the window moves the focus as the real one does.
class Simulation : public StationCase
{
protected:
    int Pauses = 0; ///< of the run at hand

    void SetUp() override
    {
        StationCase::SetUp();
        FillShapeLists();
        Drawn.Shown = true;
        AppState.ExitConfirm = FlagOff;
        AppState.ExitAfterSave = FlagOff;
        Screen.OnFocus = [](const ValueField* field) {
            const bool known = AppState.FocusedSet == FieldSet::Nesting && field != nullptr &&
                               AppState.CurrentField == field->Index;
            if (field != nullptr && !known && field->ControlName == std::string("TextNesting")) {
                LeaveFocusedField();
                FieldArrived(AppState.TextNesting, field->Index);
            }
        };
        OpenPlate(TabNesting);
        SetText(AppState.TextNesting[FieldSheetX], "250");
        AppState.Redraw(FlagOn);
        ASSERT_EQ(AppState.CountX, 2);
        Screen.ClockTick = 1.0;
        TakeStrokes();
    }

    static void Press(std::int16_t keyCode)
    {
        if (AppState.FocusedSet == FieldSet::Nesting) {
            ValueFieldKey(AppState.TextNesting, AppState.CurrentField, keyCode, 0);
        } else {
            KeyDispatcher(keyCode, 0, ScreenFields(), ScreenPicture());
        }
    }

    /// F8, with `play` in pause number `at` of the run.
    void RunWith(int at, const std::function<void()>& play)
    {
        Pauses = 0;
        Screen.OnPause = [this, at, play] {
            if (++Pauses == at) {
                play();
            }
        };
        Press(KeyF8);
        EXPECT_EQ(AppState.SimRunning, FlagOff);
        EXPECT_EQ(AppState.SimWalking, FlagOff);
        EXPECT_FALSE(AppState.AfterSimulation);
    }

    static std::int16_t PictureOfThree()
    {
        return AppState.KeyBar[KeyOfThree].Image;
    }
};

TEST_F(Simulation, RunsByF8FromAnyField)
{
    for (const std::int16_t field : {FieldSheetX, FieldGapY, FieldNestType, FieldSimulation}) {
        FocusField(AppState.TextNesting[static_cast<std::size_t>(field)]);
        std::int16_t picture = 0;
        RunWith(5, [&picture] {
            picture = PictureOfThree();
            EXPECT_EQ(AppState.CurrentField, FieldSimulation);
        });
        EXPECT_GT(Pauses, 100) << field;
        EXPECT_EQ(picture, PictureStop);
        EXPECT_EQ(PictureOfThree(), PictureStart);
        EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    }
}

TEST_F(Simulation, StartsAndStopsByKeyThree)
{
    FocusField(AppState.TextNesting[FieldSimulation]);
    Pauses = 0;
    Screen.OnPause = [this] {
        if (++Pauses == 30) {
            Press(KeyF5);
            EXPECT_EQ(PictureOfThree(), PictureStart);
        }
    };
    TakeStrokes();
    Press(KeyF5);
    EXPECT_EQ(Pauses, 30) << "the walk has ended with the stop";
    const std::vector<std::string> strokes = TakeStrokes();
    const auto cleared = std::find(strokes.rbegin(), strokes.rend(), "clear");
    EXPECT_THAT(std::vector<std::string>(cleared.base(), strokes.end()),
                Not(Contains(HasSubstr("inverting"))))
        << "the nest as it was, without a head";
    Pauses = 0;
    Screen.OnPause = [this] { ++Pauses; };
    Press(KeyF5);
    EXPECT_GT(Pauses, 100) << "and from the beginning again";
}

TEST_F(Simulation, BeginsOnACleanNest)
{
    RunWith(5, [] {});
    TakeStrokes();
    Screen.OnPause = nullptr;
    Screen.ClockTick = 0.0;
    FocusField(AppState.TextNesting[FieldSimulation]);
    TakeStrokes();
    Press(KeyF5);
    const std::vector<std::string> strokes = TakeStrokes();
    ASSERT_FALSE(strokes.empty());
    EXPECT_EQ(strokes.front(), "clear") << "without the trail of the run before";
}

TEST_F(Simulation, TheStartKeyDoesNothingWhileOneRuns)
{
    RunWith(5, [] {});
    const int whole = Pauses;
    RunWith(5, [] { Press(KeyF8); });
    EXPECT_EQ(Pauses, whole);
    RunWith(5, [] { ClickFunctionButton(7); });
    EXPECT_EQ(Pauses, whole);
}

TEST_F(Simulation, AStartBehindAStopWaitsForTheEndOfTheWalk)
{
    RunWith(5, [] {});
    const int whole = Pauses;
    for (const bool byF8 : {true, false}) {
        RunWith(10, [byF8] {
            Press(KeyF5);
            Press(byF8 ? KeyF8 : KeyF5);
            EXPECT_EQ(AppState.SimRunning, FlagOff) << "not inside the first";
        });
        EXPECT_EQ(Pauses, 10 + whole);
    }
}

TEST_F(Simulation, PlusAndMinusChangeTheSpeedOfTheRun)
{
    SetText(AppState.TextNesting[FieldSimulation], "10");
    EXPECT_EQ(AppState.SimSpeed, 10) << "stored by the change of the text";
    EXPECT_THAT(Station.Read("Korvanta.ini"), HasSubstr("SIMSPEED=10"));
    RunWith(5, [] {});
    const int slow = Pauses;
    RunWith(5, [] {
        SetText(AppState.TextNesting[FieldSimulation], "24");
        Press(KeyF3);
        EXPECT_NE(AppState.SimRunning, FlagOff);
    });
    EXPECT_EQ(AppState.SimSpeed, 25);
    EXPECT_LT(Pauses, slow * 0.6);
    EXPECT_THAT(Station.Read("Korvanta.ini"), HasSubstr("SIMSPEED=25"));
    RunWith(5, [] { Press(KeyF4); });
    EXPECT_EQ(AppState.TextNesting[FieldSimulation].Text, "24");
}

TEST_F(Simulation, ASpeedBeyondTheLimitsIsStoredAsTheLimit)
{
    SetText(AppState.TextNesting[FieldSimulation], "99");
    EXPECT_THAT(Station.Read("Korvanta.ini"), HasSubstr("SIMSPEED=25"));
    SetText(AppState.TextNesting[FieldSimulation], "");
    EXPECT_THAT(Station.Read("Korvanta.ini"), HasSubstr("SIMSPEED=1\r\n"));
    EXPECT_EQ(AppState.SimSpeed, 1);
}

TEST_F(Simulation, EndsWhenItsFieldIsLeft)
{
    for (const std::int16_t key : {KeyDown, KeyUp, KeyEnter, KeyF2}) {
        FocusField(AppState.TextNesting[FieldKerf]);
        RunWith(5, [key] { Press(key); });
        EXPECT_EQ(Pauses, 5) << key;
        EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    }
    FocusField(AppState.TextNesting[FieldKerf]);
    RunWith(5, [] { FieldGone(AppState.TextNesting, FieldSimulation); });
    EXPECT_EQ(Pauses, 5);
}

TEST_F(Simulation, WhatLeadsOffTheScreenComesBehindTheWalk)
{
    struct Case {
        std::function<void()> Event;
        std::int16_t Screen;
        Flag Saving;
    };
    const Case cases[] = {
        {[] { Press(KeyF1); }, ScreenInput, FlagOff},
        {[] { Press(KeyF9); }, ScreenCutting, FlagOff},
        {[] { Press(KeyF10); }, ScreenInput, FlagOn},
        {[] { ClickFunctionButton(0); }, ScreenInput, FlagOff},
        {[] { ClickFunctionButton(8); }, ScreenCutting, FlagOff},
        {[] { ClickFunctionButton(9); }, ScreenInput, FlagOn},
        {[] { ClickCamTab(TabCutting); }, ScreenCutting, FlagOff},
        {[] { ClickCamTab(TabParameters); }, ScreenParameters, FlagOff},
        {[] { ClickCamTab(TabNesting); }, ScreenNesting, FlagOff},
    };
    int number = 0;
    for (const Case& c : cases) {
        ASSERT_TRUE(OpenImport(ImportKind::Program, "plate.iso"));
        NextCamTab();
        NextCamTab();
        RunWith(20, [&] {
            c.Event();
            EXPECT_EQ(AppState.ScreenState, ScreenNesting) << number << ": the walk is still there";
            EXPECT_NE(AppState.SimStop, FlagOff);
        });
        EXPECT_EQ(Pauses, 20) << number;
        EXPECT_EQ(AppState.ScreenState, c.Screen) << number;
        EXPECT_EQ(AppState.SaveMode, c.Saving) << number;
        AppState.SaveMode = FlagOff;
        ++number;
    }
}

TEST_F(Simulation, NoOtherPartIsOpenedUnderTheWalk)
{
    const std::vector<ProfileElement> before = AppState.ElementTable;
    RunWith(20, [&] {
        for (const std::int16_t key : {KeyF1, KeyEnter, KeyF10, KeyF10, KeyF10, KeyF9, KeyF8}) {
            Press(key);
        }
        ClickCamTab(TabParameters);
        EXPECT_EQ(AppState.ElementTable.size(), before.size());
        EXPECT_EQ(AppState.ScreenState, ScreenNesting);
    });
    EXPECT_EQ(Pauses, 20);
    EXPECT_EQ(AppState.ScreenState, ScreenInput) << "the first of them counts";
}

TEST_F(Simulation, GoesOnBehindARefusedQuestion)
{
    RunWith(5, [] {});
    const int whole = Pauses;
    AppState.ExitConfirm = FlagOn;
    Screen.BoxAnswers = {false};
    TakeCalls();
    RunWith(5, [] { Press(KeyEsc); });
    EXPECT_EQ(Pauses, whole);
    EXPECT_THAT(TakeCalls(), Contains("box text 32|||two"));
}

TEST_F(Simulation, EscEndsTheProgramInTheMiddle)
{
    Screen.OnPause = [this] {
        if (++Pauses == 5) {
            Press(KeyEsc);
        }
    };
    EXPECT_THROW(Press(KeyF8), ProcessEnded);
    EXPECT_EQ(Pauses, 5);
    EXPECT_EQ(AppState.SimWalking, FlagOff);
    EXPECT_EQ(AppState.SimRunning, FlagOff);
}

TEST_F(Simulation, AFaultInAKeyEndsTheWalk)
{
    Screen.OnPause = [] { throw RunTimeFault("trial"); };
    EXPECT_THROW(Press(KeyF8), RunTimeFault);
    EXPECT_EQ(AppState.SimWalking, FlagOff);
    EXPECT_EQ(AppState.SimHeadShown, FlagOff);
}

TEST_F(Simulation, AResizedWindowShowsTheHeadOnTheNewPicture)
{
    RunWith(20, [] {
        Screen.PictureWidth = 1200;
        Screen.PictureHeight = 900;
        TakeStrokes();
        AppState.Redraw(FlagOn);
        const std::vector<std::string> strokes = TakeStrokes();
        ASSERT_GE(strokes.size(), 2U);
        EXPECT_THAT(strokes.back(), HasSubstr("inverting"));
        EXPECT_THAT(strokes[strokes.size() - 2], HasSubstr("inverting"));
        EXPECT_EQ(AppState.SimHeadX, AppState.SimX);
    });
    EXPECT_GT(Pauses, 100);
}

TEST_F(Simulation, AClickThatStartedItIsOver)
{
    AppState.Redraw(FlagOn);
    Pauses = 0;
    Flag pressed = FlagOn;
    Screen.OnPause = [&pressed] { pressed = AppState.ButtonPressed; };
    ClickFunctionButton(7);
    EXPECT_EQ(pressed, FlagOff);
    EXPECT_EQ(AppState.CurrentField, FieldSimulation);
}

TEST_F(Simulation, OffTheNestingScreenThereIsNone)
{
    PreviousCamTab();
    TakeCalls();
    StartSimulation();
    EXPECT_EQ(Screen.Pauses, 0);
    EXPECT_EQ(AppState.SimRunning, FlagOff);
}
} // namespace
