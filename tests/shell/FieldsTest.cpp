// The value fields as records: limits, steps, and what a change, an arrival and a leaving run.
#include "shell/Korvanta_Interface.h"

#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <random>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// Redraws that were asked for, in the call record.
void RecordRedraw(Flag fit)
{
    Screen.Calls.push_back(fit != FlagOff ? "redraw fit" : "redraw");
}

/// Starts a case with the change routines of the station and a recorded redraw.
void StartFields()
{
    StartCase();
    for (ValueField& field : AppState.TextCutting) {
        field.Change = CuttingFieldChanged;
    }
    for (ValueField& field : AppState.TextNesting) {
        field.Change = NestingFieldChanged;
    }
    AppState.Redraw = RecordRedraw;
    HoldConfigWrites();
}

/// A closed box of that size, from its low corner, as one profile.
void AddBox(double x, double y, double width, double height, std::int16_t end)
{
    const double open = NoValue;
    AddElement(KindLine, x, y, 0.0, 0.0, 0.0, open, open, 0);
    AddElement(KindLine, x, y + height, 0.0, 0.0, 0.0, open, open, 0);
    AddElement(KindLine, x + width, y + height, 0.0, 0.0, 0.0, open, open, 0);
    AddElement(KindLine, x + width, y, 0.0, 0.0, 0.0, open, open, 0);
    AddElement(end, x, y, 0.0, 0.0, 0.0, open, open, 0);
}

/// A plate of 100 x 50 with two holes, ready to cut.
void MakePlate()
{
    ClearPart();
    AddBox(10.0, 10.0, 20.0, 20.0, KindEnd);
    AddBox(60.0, 10.0, 20.0, 20.0, KindEnd);
    AddBox(0.0, 0.0, 100.0, 50.0, KindOuterEnd);
    AppState.WorkExternalSense = -1;
    AppState.WorkInternalSense = 1;
    std::int16_t largest = 0;
    ShiftToOrigin();
    ComputeProfileAreas(largest);
    OrientProfiles();
    MeasureProfiles(FlagOn);
    InitLeadData();
}

ValueField& Cutting(std::size_t index)
{
    return AppState.TextCutting[index];
}

ValueField& Nesting(std::size_t index)
{
    return AppState.TextNesting[index];
}

/// One entry on the Nesting screen, ended by Enter.
void Enter(std::int16_t index, const std::string& text)
{
    NestingFieldEntered(index);
    SetText(Nesting(static_cast<std::size_t>(index)), text);
    NestingFieldLeft(index);
    NestingFieldEntered(NextField(index, NestingFieldCount));
    EndNestingEntry(index);
}

std::vector<std::string> TakeCalls()
{
    std::vector<std::string> calls = Screen.Calls;
    Screen.Calls.clear();
    return calls;
}

TEST(Fields, StartWithTheTextsOfTheForm)
{
    StartCase();
    std::vector<std::string> texts;
    for (const ValueField& field : AppState.TextCutting) {
        texts.push_back(field.Text);
    }
    EXPECT_THAT(texts, ElementsAre("0", "0", "1", "1", "10", "5", "2", "2", "3", "1"));
    texts.clear();
    for (const ValueField& field : AppState.TextNesting) {
        texts.push_back(field.Text);
    }
    EXPECT_THAT(texts, ElementsAre("0", "0", "0", "10", "10", "1", "2", "1"));
    EXPECT_STREQ(AppState.ParamText[14].FieldTag, "");
    EXPECT_EQ(AppState.ParamText[14].Text, "");
    EXPECT_EQ(AppState.ParamText[14].Index, 14);
}

TEST(Fields, ParseTheirTag)
{
    struct TagCase {
        const char* Tag;
        double Step, Min, Max;
    };
    for (const TagCase& c : std::initializer_list<TagCase>{{"", 1, -999999, 999999},
                                                           {"1;-360,360", 1, -360, 360},
                                                           {"0.10;0,999", 0.1, 0, 999},
                                                           {"1;0.01,99999", 1, 0.01, 99999},
                                                           {" 2; -3, 4", 2, -3, 4},
                                                           {"x;y,z", 0, 0, 0},
                                                           {"5", 5, 0, 0}}) {
        double min = -1.0;
        double max = -1.0;
        double step = -1.0;
        ParseFieldTag(c.Tag, min, max, step);
        EXPECT_EQ(step, c.Step) << c.Tag;
        EXPECT_EQ(min, c.Min) << c.Tag;
        EXPECT_EQ(max, c.Max) << c.Tag;
    }
}

struct ValidateCase {
    const char* Name;
    std::size_t Field; ///< of TextCutting
    double Value;
    const char* Text;
    std::vector<std::string> Calls;
};

const ValidateCase ValidateCases[] = {
    {"inside", FieldAngle, 45.0, "45", {}},
    {"on the maximum", FieldAngle, 360.0, "360", {}},
    {"on the minimum", FieldAngle, -360.0, "-360", {}},
    {"above", FieldAngle, 400.0, "360", {"focus TextCutting 0", "select TextCutting 0 0 3"}},
    {"below", FieldAngle, -400.0, "-360", {"focus TextCutting 0", "select TextCutting 0 0 4"}},
    {"two places, cut", FieldScale, 1.238, "1.23", {}},
    {"a nine carries", FieldScale, 1.239, "1.24", {}},
    {"zeros go", FieldScale, 1.5, "1.5", {}},
    {"a limit is plain number text",
     FieldScale,
     0.0,
     ".01",
     {"focus TextCutting 2", "select TextCutting 2 0 3"}},
    {"a huge number", FieldLeadInA, 1.7e308, "999", {"focus TextCutting 5", "select TextCutting 5 0 3"}},
    {"just outside", FieldLeadInA, -1e-300, "0", {"focus TextCutting 5", "select TextCutting 5 0 1"}},
};

TEST(Fields, AreValidatedAgainstTheirLimits)
{
    for (const ValidateCase& c : ValidateCases) {
        StartCase();
        AppState.CurrentField = static_cast<std::int16_t>(c.Field);
        ValidateField(AppState.TextCutting, c.Value);
        EXPECT_EQ(Cutting(c.Field).Text, c.Text) << c.Name;
        EXPECT_EQ(Screen.Calls, c.Calls) << c.Name;
    }
}

TEST(Fields, WithoutATagTakeAMillionAllButOne)
{
    StartCase();
    AppState.CurrentField = 3;
    ValidateField(AppState.ParamText, 999999.0);
    EXPECT_EQ(AppState.ParamText[3].Text, "999999");
    EXPECT_THAT(Screen.Calls, IsEmpty());
    ValidateField(AppState.ParamText, -1000000.0);
    EXPECT_EQ(AppState.ParamText[3].Text, "-999999");
    EXPECT_THAT(Screen.Calls, ElementsAre("focus ParamText 3", "select ParamText 3 0 7"));
}

TEST(Fields, OfAnyIndexAreValidatedWhereverTheFocusIs)
{
    StartCase();
    AppState.CurrentField = FieldAngle;
    ValidateFieldAt(AppState.TextCutting, FieldMirror, 9.0);
    EXPECT_EQ(Cutting(FieldMirror).Text, "4");
    EXPECT_EQ(Cutting(FieldAngle).Text, "0");
    EXPECT_EQ(AppState.CurrentField, FieldAngle);
}

TEST(Fields, StepByTheirTagOrAsAsked)
{
    StartCase();
    AppState.CurrentField = FieldLeadInA;
    StepField(AppState.TextCutting, true, NoValue);
    EXPECT_EQ(Cutting(FieldLeadInA).Text, "5.5");
    StepField(AppState.TextCutting, false, NoValue);
    StepField(AppState.TextCutting, false, NoValue);
    EXPECT_EQ(Cutting(FieldLeadInA).Text, "4.5");
    AppState.CurrentField = FieldAngle;
    StepField(AppState.TextCutting, false, 90.0);
    EXPECT_EQ(Cutting(FieldAngle).Text, "-90");
    Cutting(FieldAngle).Text = "";
    StepField(AppState.TextCutting, true, NoValue);
    EXPECT_EQ(Cutting(FieldAngle).Text, "1") << "an empty field starts from 0";
    Cutting(FieldAngle).Text = "12 degrees";
    StepField(AppState.TextCutting, true, NoValue);
    EXPECT_EQ(Cutting(FieldAngle).Text, "13");
    Cutting(FieldAngle).Text = "359.5";
    StepField(AppState.TextCutting, true, NoValue);
    EXPECT_EQ(Cutting(FieldAngle).Text, "360") << "past the limit";
}

TEST(Fields, StayWithinTheirLimitsWhateverTheStep)
{
    StartCase();
    std::mt19937 random(7);
    std::uniform_real_distribution<double> step(0.0, 500.0);
    AppState.CurrentField = FieldAngle;
    for (int i = 0; i < 2000; ++i) {
        StepField(AppState.TextCutting, (random() & 1U) != 0U, step(random));
        ASSERT_LE(FieldNumber(Cutting(FieldAngle)), 360.0);
        ASSERT_GE(FieldNumber(Cutting(FieldAngle)), -360.0);
    }
}

std::vector<std::int16_t> Changed;

TEST(Fields, RunTheirChangeRoutineForAnotherTextOnly)
{
    StartCase();
    Changed.clear();
    Nesting(FieldGapY).Change = [](std::int16_t index) { Changed.push_back(index); };
    SetText(Nesting(FieldGapY), "10");
    EXPECT_THAT(Changed, IsEmpty());
    SetText(Nesting(FieldGapY), "10.0");
    EXPECT_THAT(Changed, ElementsAre(FieldGapY));
    SetText(Nesting(FieldGapX), "3");
    EXPECT_EQ(Nesting(FieldGapX).Text, "3") << "a field without a routine takes the text";
}

TEST(Fields, GoRoundWithoutTheZoom)
{
    EXPECT_EQ(NextField(FieldAngle, CuttingFieldCount), FieldMirror);
    EXPECT_EQ(NextField(FieldLeadOutD, CuttingFieldCount), FieldAngle);
    EXPECT_EQ(NextField(FieldSimulation, NestingFieldCount), FieldSheetX);
}

TEST(CuttingFields, TakeTheFocus)
{
    StartFields();
    const std::int32_t modes[] = {2, 4, 1, 9, 5, 5, 5, 5, 5, 3};
    for (std::int16_t i = 0; i < CuttingFieldCount; ++i) {
        CuttingFieldEntered(i);
        EXPECT_EQ(AppState.CurrentField, i);
        EXPECT_EQ(AppState.FieldMode, modes[i]) << i;
    }
    EXPECT_EQ(Screen.Calls.at(4), "select TextCutting 4 0 2");
}

TEST(CuttingFields, TransformThePartAtEachChange)
{
    StartFields();
    MakePlate();
    SetText(Cutting(FieldAngle), "90");
    EXPECT_NEAR(AppState.MaxX, 50.0, 1e-9);
    EXPECT_NEAR(AppState.MaxY, 100.0, 1e-9);
    SetText(Cutting(FieldScale), "2");
    EXPECT_NEAR(AppState.MaxX, 100.0, 1e-9);
    EXPECT_NEAR(AppState.MaxY, 200.0, 1e-9);
    SetText(Cutting(FieldAngle), "");
    EXPECT_NEAR(AppState.MaxX, 200.0, 1e-9) << "no number is 0";
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit", "redraw fit", "redraw fit"));
}

TEST(CuttingFields, SelectTheTypedProfile)
{
    StartFields();
    MakePlate();
    SelectProfile(1, FlagOff);
    SetText(Cutting(FieldProfileNumber), "2");
    EXPECT_EQ(AppState.CurrentProfile, 2);
    EXPECT_EQ(Cutting(FieldProfileNumber).Text, "2");
    EXPECT_EQ(Screen.Calls.back(), "select TextCutting 3 1 0") << "the caret stands behind the number";
    SetText(Cutting(FieldProfileNumber), "3x");
    EXPECT_EQ(AppState.CurrentProfile, 3);
    EXPECT_EQ(Cutting(FieldProfileNumber).Text, "3");
}

TEST(CuttingFields, ShowTheOnlyProfileWhateverIsTyped)
{
    StartFields();
    ClearPart();
    AddBox(0.0, 0.0, 100.0, 50.0, KindOuterEnd);
    MeasureProfiles(FlagOn);
    InitLeadData();
    SetText(Cutting(FieldProfileNumber), "7");
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(Cutting(FieldProfileNumber).Text, "1");
}

TEST(CuttingFields, ShowTheProfileThatCameInstead)
{
    StartFields();
    MakePlate();
    SetText(Cutting(FieldProfileNumber), "9");
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_EQ(Cutting(FieldProfileNumber).Text, "1");
    EXPECT_EQ(Screen.Calls.back(), "select TextCutting 3 0 1");
    SetText(Cutting(FieldProfileNumber), "0");
    EXPECT_EQ(AppState.CurrentProfile, 3);
    EXPECT_EQ(Cutting(FieldProfileNumber).Text, "3");
}

TEST(CuttingFields, LeaveAPartWithoutProfilesAlone)
{
    StartFields();
    SetText(Cutting(FieldProfileNumber), "7");
    EXPECT_EQ(AppState.CurrentProfile, 0);
    for (std::int16_t i = FieldMoveStep; i <= FieldLeadOutD; ++i) {
        CuttingFieldEntered(i);
        SetText(Cutting(static_cast<std::size_t>(i)), "6");
        CuttingFieldLeft(i);
        EndCuttingEntry(i);
    }
    EXPECT_EQ(AppState.CurrentProfile, 0);
}

TEST(CuttingFields, ApplyLeadsWhenLeftAndNotBefore)
{
    StartFields();
    MakePlate();
    SelectProfile(2, FlagOff);
    CuttingFieldEntered(FieldLeadInA);
    SetText(Cutting(FieldLeadInA), "5000");
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 10.0);
    CuttingFieldLeft(FieldLeadInA);
    EXPECT_EQ(AppState.ProfileTable[2].LeadInLength, 999.0) << "checked first, applied then";
    EXPECT_EQ(Cutting(FieldLeadInA).Text, "999");
    EXPECT_EQ(AppState.ProfileTable[1].LeadInLength, 10.0);
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_In", ""), "999") << "the default of the next part";
}

TEST(CuttingFields, EachOfTheLeadsIsAppliedWhenItIsLeft)
{
    const std::pair<std::int16_t, double ProfileRecord::*> lengths[] = {
        {FieldLeadInA, &ProfileRecord::LeadInLength},
        {FieldLeadInB, &ProfileRecord::LeadInRadius},
        {FieldLeadOutC, &ProfileRecord::LeadOutLength},
        {FieldLeadOutD, &ProfileRecord::LeadOutRadius},
    };
    for (const auto& [field, length] : lengths) {
        StartFields();
        MakePlate();
        SelectProfile(2, FlagOff);
        CuttingFieldEntered(field);
        SetText(Cutting(field), "7.5");
        CuttingFieldLeft(field);
        EXPECT_EQ(AppState.ProfileTable[2].*length, 7.5) << field;
    }
}

TEST(CuttingFields, TakeTheMoveStepWhenLeft)
{
    StartFields();
    MakePlate();
    SelectProfile(1, FlagOff);
    CuttingFieldEntered(FieldMoveStep);
    SetText(Cutting(FieldMoveStep), "0.04");
    CuttingFieldLeft(FieldMoveStep);
    EXPECT_EQ(AppState.MoveStep, 0.1);
    EXPECT_EQ(Cutting(FieldMoveStep).Text, "0.1");
}

TEST(CuttingFields, AreValidatedAtTheEndOfAnEntry)
{
    StartFields();
    MakePlate();
    SetText(Cutting(FieldAngle), "400");
    EXPECT_EQ(Cutting(FieldAngle).Text, "400") << "not while it is typed";
    CuttingFieldLeft(FieldAngle);
    EXPECT_EQ(Cutting(FieldAngle).Text, "400");
    TakeCalls();
    EndCuttingEntry(FieldAngle);
    EXPECT_EQ(Cutting(FieldAngle).Text, "360");
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit", "focus TextCutting 0", "select TextCutting 0 0 3"));
    EXPECT_NEAR(AppState.MaxX, 100.0, 1e-9);
}

TEST(CuttingFields, SurviveEveryNumber)
{
    StartFields();
    MakePlate();
    SelectProfile(1, FlagOff);
    for (const char* text : {"1e308", "-1e308", "1e-308", "0", "-0", ".", "1e37", "999999999999999999999"}) {
        for (std::int16_t i = 0; i < FieldCuttingZoom; ++i) {
            CuttingFieldEntered(i);
            SetText(Cutting(static_cast<std::size_t>(i)), text);
            CuttingFieldLeft(i);
            EndCuttingEntry(i);
        }
        SetText(Cutting(FieldScale), "1");
        EXPECT_TRUE(std::isfinite(AppState.MaxX) && std::isfinite(AppState.TotalCutLength)) << text;
        EXPECT_NEAR(AppState.TotalCutLength, 460.0, 1e-6) << text;
    }
}

TEST(NestingFields, TakeTheFocusAndForgetChanges)
{
    StartFields();
    const std::int32_t modes[] = {8, 8, 1, 1, 1, 6, 7, 3};
    for (std::int16_t i = 0; i < NestingFieldCount; ++i) {
        AppState.SheetFieldChanged = FlagOn;
        AppState.NestFieldTouched = FlagOn;
        NestingFieldEntered(i);
        EXPECT_EQ(AppState.CurrentField, i);
        EXPECT_EQ(AppState.FieldMode, modes[i]) << i;
        EXPECT_EQ(AppState.SheetFieldChanged, FlagOff);
        EXPECT_EQ(AppState.NestFieldTouched, FlagOff);
    }
    EXPECT_EQ(Screen.Calls.at(3), "select TextNesting 3 0 2");
}

TEST(NestingFields, MarkWhatChanged)
{
    StartFields();
    for (const std::size_t i : {FieldSheetX, FieldSheetY}) {
        NestingFieldEntered(0);
        SetText(Nesting(i), "500");
        EXPECT_EQ(AppState.SheetFieldChanged, FlagOn) << i;
        EXPECT_EQ(AppState.NestFieldTouched, FlagOff) << i;
    }
    for (const std::size_t i : {FieldKerf, FieldGapX, FieldGapY}) {
        NestingFieldEntered(0);
        SetText(Nesting(i), "5");
        EXPECT_EQ(AppState.SheetFieldChanged, FlagOff) << i;
        EXPECT_EQ(AppState.NestFieldTouched, FlagOn) << i;
    }
}

TEST(NestingFields, TakeACountForASheet)
{
    StartFields();
    MakePlate(); // 100 wide
    Enter(FieldKerf, "0.5");
    TakeCalls();
    Enter(FieldSheetX, "*3");
    EXPECT_EQ(Nesting(FieldSheetX).Text, "333") << "3 * (100 + 10 + 2 * 0.5)";
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "3");
    EXPECT_EQ(AppState.NestResultX, 3);
    EXPECT_EQ(Nesting(FieldSheetY).Text, "61") << "raised to one cell: 50 + 10 + 2 * 0.5";
    EXPECT_THAT(TakeCalls(),
                ElementsAre("select TextNesting 0 0 1", "redraw fit", "select TextNesting 1 0 2", "redraw"));
}

TEST(NestingFields, ApplyACountWhenJustLeft)
{
    StartFields();
    MakePlate();
    NestingFieldEntered(FieldSheetY);
    SetText(Nesting(FieldSheetY), "*2");
    EXPECT_EQ(AppState.NestResultY, 0);
    NestingFieldLeft(FieldSheetY);
    EXPECT_EQ(Nesting(FieldSheetY).Text, "120");
    EXPECT_EQ(AppState.NestResultY, 2);
}

TEST(NestingFields, ApplyASheetAgainWhenItsLimitCame)
{
    StartFields();
    MakePlate();
    Enter(FieldSheetY, "*2");
    TakeCalls();
    Enter(FieldSheetX, "200000");
    EXPECT_EQ(Nesting(FieldSheetX).Text, "99999");
    EXPECT_EQ(AppState.NestResultY, 2) << "the count of the other field stays";
    EXPECT_THAT(TakeCalls(),
                ElementsAre("select TextNesting 0 0 3", "redraw fit", "select TextNesting 1 0 3",
                            "focus TextNesting 0", "select TextNesting 0 0 5", "yield", "redraw fit"));
}

TEST(NestingFields, RebuildTheNestForNewGaps)
{
    StartFields();
    MakePlate();
    Enter(FieldSheetX, "*3");
    Enter(FieldGapX, "20");
    EXPECT_EQ(Nesting(FieldSheetX).Text, "360") << "3 * (100 + 20)";
    EXPECT_EQ(AppState.NestFieldTouched, FlagOff);
}

TEST(NestingFields, CutTheKerfToTwoPlaces)
{
    StartFields();
    MakePlate();
    Enter(FieldSheetX, "*10");
    Enter(FieldKerf, "0.123");
    EXPECT_EQ(Nesting(FieldKerf).Text, "0.12");
    EXPECT_EQ(Nesting(FieldSheetX).Text, "1102.4") << "10 * (100 + 10 + 0.24), not with 0.246";
}

/// The sheet that a fixed count gives is written by the program: that is no entry in the field which has the focus by then.
TEST(NestingFields, KeepACountWhenTheSheetFollowsIt)
{
    StartFields();
    MakePlate();
    AppState.Redraw = RedrawScene;
    AppState.ScreenState = ScreenNesting;
    Enter(FieldSheetY, "*2");
    ASSERT_EQ(AppState.NestResultY, 2);
    NestingFieldEntered(FieldKerf);
    SetText(Nesting(FieldKerf), "0.123"); // becomes 0.12 once the field above has the focus
    NestingFieldLeft(FieldKerf);
    NestingFieldEntered(FieldSheetY);
    EndNestingEntry(FieldKerf);
    EXPECT_EQ(Nesting(FieldSheetY).Text, "130"); // 50 + 10.24 + 50 + 20, cut
    NestingFieldLeft(FieldSheetY);
    EXPECT_EQ(AppState.NestResultY, 2);
    EXPECT_EQ(AppState.CountY, 2);
}

TEST(NestingFields, RedrawAfterAnEntryThatChangedNothing)
{
    StartFields();
    MakePlate();
    Enter(FieldGapX, "10");
    EXPECT_THAT(TakeCalls(), ElementsAre("select TextNesting 3 0 2", "select TextNesting 4 0 2", "redraw"))
        << "a zoomed view stays";
    EndNestingEntry(FieldNestingZoom);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << "Zoom has an ending of its own";
}

TEST(NestingFields, LeaveSimulationWithoutApplyingASheet)
{
    StartFields();
    MakePlate();
    AppState.SheetFieldChanged = FlagOn;
    NestingFieldLeft(FieldSimulation);
    EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST(NestingFields, TakeTheLastDigitAsTheNestType)
{
    StartFields();
    NestingFieldEntered(FieldNestType);
    struct TypeCase {
        const char* Typed;
        const char* Want;
    };
    for (const TypeCase& c : std::initializer_list<TypeCase>{
             {"12", "2"}, {"9", "4"}, {"0", "1"}, {"x", "1"}, {"13", "3"}, {"", "1"}, {"2.4", "4"}}) {
        SetText(Nesting(FieldNestType), c.Typed);
        EXPECT_EQ(Nesting(FieldNestType).Text, c.Want) << c.Typed;
    }
    TakeCalls();
    SetText(Nesting(FieldNestType), "2");
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit", "select TextNesting 5 0 1", "yield"));
    SetText(Nesting(FieldNestType), "23");
    EXPECT_THAT(TakeCalls(), ElementsAre("redraw fit", "select TextNesting 5 0 1", "yield")) << "one redraw";
}

TEST(NestingFields, KeepSimulationAndZoomInTheirLimits)
{
    StartFields();
    SetText(Nesting(FieldSimulation), "99");
    EXPECT_EQ(Nesting(FieldSimulation).Text, "25");
    AppState.CurrentField = FieldSheetX;
    SetText(Nesting(FieldNestingZoom), "99");
    EXPECT_EQ(Nesting(FieldNestingZoom).Text, "30") << "its own limits, wherever the focus is";
    EXPECT_EQ(Nesting(FieldSheetX).Text, "0");
}
} // namespace
