// The keys of the fields, kind by kind: every row of the tables, and the numbers that are no keys.
#include "shell/FunctionKeys.h"

#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr double Near = 1e-9;
constexpr std::int16_t Ctrl = 2;

void RecordRedraw(Flag fit)
{
    Screen.Calls.push_back(fit != FlagOff ? "redraw fit" : "redraw");
}

std::vector<std::string> TakeCalls()
{
    std::vector<std::string> calls;
    calls.swap(Screen.Calls);
    return calls;
}

/// A square hole of 20 in a plate of 100 x 50, both closed.
class FieldKeys : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        for (ValueField& field : AppState.TextCutting) {
            field.Change = CuttingFieldChanged;
        }
        for (ValueField& field : AppState.TextNesting) {
            field.Change = NestingFieldChanged;
        }
        AppState.Redraw = RecordRedraw;
        AppState.WorkExternalSense = -1;
        AppState.WorkInternalSense = 1;
        AddLines({{10, 10}, {30, 10}, {30, 30}, {10, 30}, {10, 10}});
        AddEnd(KindEnd, 400);
        AddLines({{0, 0}, {0, 50}, {100, 50}, {100, 0}, {0, 0}});
        AddEnd(KindOuterEnd, -5000);
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
        SelectProfile(1, FlagOff);
    }

    static std::string& Cutting(CuttingField field)
    {
        return AppState.TextCutting[static_cast<std::size_t>(field)].Text;
    }

    static std::string& Nesting(NestingField field)
    {
        return AppState.TextNesting[static_cast<std::size_t>(field)].Text;
    }

    static void OnCutting(CuttingField field)
    {
        AppState.ScreenState = ScreenCutting;
        CuttingFieldEntered(field);
        TakeCalls();
    }

    static void OnNesting(NestingField field)
    {
        AppState.ScreenState = ScreenNesting;
        NestingFieldEntered(field);
        TakeCalls();
    }

    static void Key(std::int16_t number, std::int16_t shift = 0)
    {
        if (AppState.ScreenState == ScreenCutting) {
            ApplyFunctionKey(number, AppState.TextCutting, Picture::Tecno, shift);
        } else {
            ApplyFunctionKey(number, AppState.TextNesting, Picture::Nesting, shift);
        }
    }
};

// --- plus and minus on every field ----------------------------------------------------------------------------

TEST_F(FieldKeys, PlusAndMinusStepEachField)
{
    struct StepCase {
        std::int16_t Field;
        const char* From;
        const char* Plus;
        const char* Minus;
    };
    const StepCase cutting[] = {
        {FieldAngle, "10", "11", "9"},       {FieldAngle, "360", "360", "359"},
        {FieldScale, "2", "3", "1"},         {FieldScale, "1", "2", ".01"},
        {FieldMoveStep, "10", "11", "9"},    {FieldMoveStep, "1", "2", "0.1"},
        {FieldLeadInA, "5", "5.5", "4.5"},   {FieldLeadInB, "0", "0.5", "0"},
        {FieldLeadOutC, "2", "2.5", "1.5"},  {FieldLeadOutD, "999", "999", "998.5"},
        {FieldCuttingZoom, "1", "2", "1"},   {FieldCuttingZoom, "30", "30", "29"},
        {FieldProfileNumber, "1", "2", "2"},
    };
    for (const StepCase& c : cutting) {
        const auto index = static_cast<std::size_t>(c.Field);
        const std::string name = "TextCutting " + std::to_string(c.Field) + " from " + c.From;
        SelectProfile(1, FlagOff);
        OnCutting(static_cast<CuttingField>(c.Field));
        SetText(AppState.TextCutting[index], c.From);
        Key(1);
        EXPECT_EQ(AppState.TextCutting[index].Text, c.Plus) << name;
        SetText(AppState.TextCutting[index], c.From);
        Key(2);
        EXPECT_EQ(AppState.TextCutting[index].Text, c.Minus) << name;
    }
    const StepCase nesting[] = {
        {FieldSheetX, "100", "110", "90"}, {FieldSheetY, "15", "25", "10"},
        {FieldKerf, "0.1", "0.2", "0"},    {FieldGapX, "-3", "-2", "-4"},
        {FieldGapY, "10", "11", "9"},      {FieldSimulation, "24", "25", "23"},
        {FieldNestingZoom, "7", "8", "6"},
    };
    for (const StepCase& c : nesting) {
        const auto index = static_cast<std::size_t>(c.Field);
        const std::string name = "TextNesting " + std::to_string(c.Field);
        OnNesting(static_cast<NestingField>(c.Field));
        SetText(AppState.TextNesting[index], c.From);
        Key(1);
        EXPECT_EQ(AppState.TextNesting[index].Text, c.Plus) << name;
        SetText(AppState.TextNesting[index], c.From);
        Key(2);
        EXPECT_EQ(AppState.TextNesting[index].Text, c.Minus) << name;
    }
}

TEST_F(FieldKeys, NumbersWithoutAKeyDoNothing)
{
    struct ModeCase {
        std::int32_t Mode;
        std::int16_t Field;
        std::int16_t Keys; ///< how many it has
    };
    const ModeCase cases[] = {{0, FieldScale, 0},       {1, FieldScale, 2},    {2, FieldAngle, 4},
                              {4, FieldMirror, 4},      {5, FieldMoveStep, 5}, {6, FieldNestType, 4},
                              {7, FieldSimulation, 3},  {8, FieldSheetX, 3},   {9, FieldProfileNumber, 6},
                              {3, FieldCuttingZoom, 7}, {-1, FieldScale, 0},   {10, FieldScale, 0}};
    for (const ModeCase& c : cases) {
        AppState.ScreenState = ScreenCutting;
        AppState.FieldMode = c.Mode;
        AppState.CurrentField = c.Field;
        TakeCalls();
        const std::vector<ProfileRecord> before = AppState.ProfileTable;
        for (const int number : {c.Keys + 1, c.Keys + 2, 8, 9, 100, 0, -1}) {
            Key(static_cast<std::int16_t>(number));
        }
        EXPECT_THAT(TakeCalls(), IsEmpty()) << "mode " << c.Mode;
        EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, before[1].LeadPosition);
    }
    EXPECT_EQ(Cutting(FieldScale), "1");
}

TEST_F(FieldKeys, FieldsThatAreNotThereAreLeftAlone)
{
    OnCutting(FieldAngle);
    ApplyFunctionKey(1, {}, Picture::Tecno, 0);
    AppState.CurrentField = 10;
    Key(1);
    AppState.CurrentField = -1;
    Key(1);
    EXPECT_EQ(Cutting(FieldAngle), "0");
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

// --- Angle and Mirror -------------------------------------------------------------------------------------------

TEST_F(FieldKeys, FourQuarterTurnsGiveTheShapeAsItBegan)
{
    const std::vector<ProfileElement> before = AppState.ElementTable;
    OnCutting(FieldAngle);
    const double widths[] = {50, 100, 50, 100};
    for (int turn = 0; turn < 4; ++turn) {
        Key(3);
        EXPECT_EQ(Cutting(FieldAngle), std::to_string(90 * (turn + 1)));
        EXPECT_NEAR(AppState.MinX, 0, Near);
        EXPECT_NEAR(AppState.MinY, 0, Near);
        EXPECT_NEAR(AppState.MaxX, widths[turn], Near);
    }
    for (std::size_t i = 1; i < before.size(); ++i) {
        EXPECT_NEAR(AppState.ElementTable[i].StartX, before[i].StartX, 1e-6);
        EXPECT_NEAR(AppState.ElementTable[i].StartY, before[i].StartY, 1e-6);
    }
    Key(3);
    EXPECT_EQ(Cutting(FieldAngle), "360") << "the limit";
    Key(4);
    EXPECT_EQ(Cutting(FieldAngle), "270");
}

TEST_F(FieldKeys, MirrorKeysWriteTheirCode)
{
    OnCutting(FieldMirror);
    for (std::int16_t key = 4; key >= 1; --key) {
        Key(key);
        EXPECT_EQ(Cutting(FieldMirror), std::to_string(key - 1));
        EXPECT_THAT(TakeCalls(), Contains("redraw fit"));
    }
    // The hole keeps 10 from the left and 20 from the top: turned over Y it stands 20 from the bottom.
    Key(2);
    EXPECT_NEAR(AppState.ElementTable[1].StartX, 10, Near);
    double lowest = 100;
    for (std::size_t i = 1; i <= 4; ++i) {
        lowest = std::min(lowest, AppState.ElementTable[i].StartY);
    }
    EXPECT_NEAR(lowest, 20, Near);
}

// --- Profile nr. and leads ----------------------------------------------------------------------------------------

TEST_F(FieldKeys, LeadsMoveByTheStep)
{
    AppState.ProfileTable[1].LeadPosition = 10;
    AppState.MoveStep = 15;
    OnCutting(FieldMoveStep);
    Key(3);
    EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, 25);
    Key(4);
    Key(4);
    EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, 75) << "80 around, 5 back over the start";
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw", "redraw", "redraw"));
    AppState.ProfileTable[1].LeadElement = 2;
    Key(5);
    EXPECT_EQ(AppState.ProfileTable[1].LeadPosition, 41) << "one into the third side";
}

TEST_F(FieldKeys, SteppedLeadsCountAtOnce)
{
    AppState.ProfileTable[1].LeadInLength = 5;
    ShowProfileFields();
    OnCutting(FieldLeadInA);
    Key(1);
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 5.5);
    Key(2);
    Key(2);
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 4.5);
    EXPECT_THAT(TakeCalls(),
                ElementsAre("select TextCutting 5 0 3", "redraw", "select TextCutting 5 0 1", "redraw",
                            "select TextCutting 5 0 3", "redraw")); // "5.5", "5", "4.5"
    OnCutting(FieldMoveStep);
    Key(1);
    EXPECT_EQ(AppState.MoveStep, 11);
}

TEST_F(FieldKeys, CopyLeadsGivesAllTheSame)
{
    AppState.ProfileTable[1].LeadInLength = 7;
    OnCutting(FieldProfileNumber);
    Key(3);
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 7);
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw"));
}

TEST_F(FieldKeys, PathChangeTurnsTheProfile)
{
    OnCutting(FieldProfileNumber);
    Key(4);
    EXPECT_EQ(AppState.ProfileTable[1].Side, -1);
    EXPECT_NEAR(AppState.ElementTable[1].EndY, 30, Near) << "up the left side first";
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw"));
}

TEST_F(FieldKeys, ProfileNumberGoesAround)
{
    OnCutting(FieldProfileNumber);
    Key(1);
    EXPECT_EQ(AppState.CurrentProfile, 2);
    Key(1);
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(Cutting(FieldProfileNumber), "1");
    Key(2);
    EXPECT_EQ(AppState.CurrentProfile, 2);
    EXPECT_EQ(Cutting(FieldProfileNumber), "2");
}

TEST_F(FieldKeys, CursorRunsOnThePathWithCtrlToItsEnds)
{
    AppState.ProfileTable[1].LeadInLineOn = AppState.ProfileTable[1].LeadInArcOn = FlagOff;
    AppState.ProfileTable[1].LeadPosition = 0;
    OnCutting(FieldProfileNumber);
    Key(6);
    EXPECT_NE(AppState.PathOriginSet, FlagOff) << "the first use switches it on, whichever key";
    EXPECT_EQ(AppState.PathCursorDistance, 0);
    Key(5);
    EXPECT_EQ(AppState.PathCursorDistance, 10);
    Key(5, Ctrl);
    EXPECT_NEAR(AppState.PathCursorDistance, 80, Near) << "the end of the cut";
    Key(6);
    EXPECT_NEAR(AppState.PathCursorDistance, 70, Near);
    Key(6, 3); // Shift and Ctrl is a plain step
    EXPECT_NEAR(AppState.PathCursorDistance, 60, Near);
    Key(6, Ctrl);
    EXPECT_EQ(AppState.PathCursorDistance, 0);
    EXPECT_NE(AppState.PathOriginSet, FlagOff);
    Key(6);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff) << "below 0 it is off";
}

// --- Nesting fields -------------------------------------------------------------------------------------------

TEST_F(FieldKeys, NestTypeKeys)
{
    OnNesting(FieldNestType);
    for (std::int16_t key = 4; key >= 1; --key) {
        Key(key);
        EXPECT_EQ(AppState.NestKind, key);
        EXPECT_EQ(Nesting(FieldNestType), std::to_string(key));
        EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit", "select TextNesting 5 0 1", "yield"));
    }
    AppState.NestKind = 0;
    Key(1);
    EXPECT_EQ(AppState.NestKind, 1);
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit")) << "the text is the same";
}

TEST_F(FieldKeys, StarKeyAsksForACount)
{
    OnNesting(FieldSheetY);
    Nesting(FieldSheetY) = "500";
    Key(3);
    EXPECT_EQ(Nesting(FieldSheetY), "*");
    EXPECT_THAT(TakeCalls(), ElementsAre("select TextNesting 1 1 0")) << "the caret behind the star";
    EXPECT_NE(AppState.SheetFieldChanged, FlagOff);
    EXPECT_EQ(AppState.CurrentField, FieldSheetY);
}

TEST_F(FieldKeys, SimulationKeyStartsAndStops)
{
    OnNesting(FieldSimulation);
    bool ran = false;
    Screen.OnPause = [&ran] {
        ran = true;
        EXPECT_NE(AppState.SimRunning, FlagOff);
        Key(3);
        EXPECT_EQ(AppState.SimRunning, FlagOff);
    };
    Screen.ClockTick = 1.0;
    Key(3);
    EXPECT_TRUE(ran);
    EXPECT_EQ(AppState.SimRunning, FlagOff);
    EXPECT_EQ(Nesting(FieldSimulation), "2");
}
} // namespace
