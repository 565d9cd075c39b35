// Focus and keys of the value fields, as the window reports them.
#include "shell/FieldEvents.h"
#include "config/Korvanta_Utility.h"
#include "shell/KeyCodes.h"
#include "shell/ValueFields.h"
#include "support/Station.h"

#include <gmock/gmock.h>

#include <span>

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
class FieldEvents : public StationCase
{
protected:
    /// How the window plays a focus that moves on, on the fields of one screen.
    static void MoveFocus(FieldArray fields, std::int16_t from, std::int16_t to)
    {
        FieldGone(fields, from);
        FieldArrived(fields, to);
    }

    /// Shows the first `count` parameters.
    static void ShowParameters(std::int16_t count)
    {
        for (ValueField& field : AppState.ParamText) {
            field.Visible = ToFlag(field.Index < count);
        }
    }
};

TEST_F(FieldEvents, EveryFieldHasItsStepAndLimits)
{
    struct Row {
        const char* Step;
        const char* Low;
        const char* High;
    };
    const Row cutting[] = {
        {"1", "-360", "360"},  // Angle
        {"1", "0", "4"},       // Mirror
        {"1", ".01", "99999"}, // Scale: a limit is plain number text
        {"1", "0", "32767"},   // Profile nr.
        {"1", ".1", "99999"},  // Move Step
        {"0.5", "0", "999"},   // LeadIn : A
        {"0.5", "0", "999"},   // LeadIn : B
        {"0.5", "0", "999"},   // LeadOut : C
        {"0.5", "0", "999"},   // LeadOut : D
        {"1", "1", "30"},      // Zoom
    };
    const Row nesting[] = {
        {"10", "10", "99999"},  // X Sheet
        {"10", "10", "99999"},  // Y Sheet
        {"0.1", "0", "999"},    // Kerf
        {"1", "-9999", "9999"}, // X Gap
        {"1", "-9999", "9999"}, // Y Gap
        {"1", "1", "4"},        // Nesting
        {"1", "1", "25"},       // Simulation
        {"1", "1", "30"},       // Zoom
    };
    const auto check = [](FieldArray fields, std::span<const Row> rows) {
        ASSERT_EQ(fields.size(), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            ValueField& field = fields[i];
            field.Change = nullptr;
            AppState.CurrentField = static_cast<std::int16_t>(i);
            const std::string name = field.ControlName + std::to_string(i);
            ValidateField(fields, 1e6);
            EXPECT_EQ(field.Text, rows[i].High) << name;
            StepField(fields, false, NoValue);
            EXPECT_DOUBLE_EQ(FieldNumber(field), TextToNumber(rows[i].High) - TextToNumber(rows[i].Step))
                << name;
            ValidateField(fields, -1e6);
            EXPECT_EQ(field.Text, rows[i].Low) << name;
        }
    };
    check(AppState.TextCutting, cutting);
    check(AppState.TextNesting, nesting);
}

TEST_F(FieldEvents, EveryFieldHasItsKindAndItsYellow)
{
    OpenPlate(1);
    const std::int32_t cutting[] = {2, 4, 1, 9, 5, 5, 5, 5, 5, 3};
    for (std::int16_t i = 0; i < CuttingFieldCount; ++i) {
        FieldArrived(AppState.TextCutting, i);
        const auto slot = static_cast<std::size_t>(i);
        EXPECT_EQ(AppState.FieldMode, cutting[slot]) << i;
        EXPECT_EQ(AppState.CurrentField, i);
        EXPECT_EQ(AppState.TextCutting[slot].BackColor, 0xFFFF00);
        EXPECT_EQ(AppState.LabelCuttingColor[slot], 0xFFFF00);
    }
    EXPECT_EQ(AppState.TextCutting[0].BackColor, 0xFFFFFF);
    NextCamTab();
    const std::int32_t nesting[] = {8, 8, 1, 1, 1, 6, 7, 3};
    for (std::int16_t i = 0; i < NestingFieldCount; ++i) {
        FieldArrived(AppState.TextNesting, i);
        const auto slot = static_cast<std::size_t>(i);
        EXPECT_EQ(AppState.FieldMode, nesting[slot]) << i;
        EXPECT_EQ(AppState.TextNesting[slot].BackColor, 0xFFFF00);
        EXPECT_EQ(AppState.LabelNestingColor[8], i == 0 ? 0xFFFF00 : 0xECE9D8) << i;
        EXPECT_EQ(AppState.LabelNestingColor[9], i == 1 ? 0xFFFF00 : 0xECE9D8) << i;
    }
}

TEST_F(FieldEvents, AnArrivalRefreshesTheKeyBar)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldAngle);
    EXPECT_EQ(AppState.KeyBar[4], (ImageRef{ImageList::Common, 9})) << "a quarter turn";
    FieldArrived(AppState.TextCutting, FieldScale);
    EXPECT_EQ(AppState.KeyBar[4], ImageRef{});
}

TEST_F(FieldEvents, AParameterIsSelectedAndHasNoKeys)
{
    OpenShape(1005);
    AppState.FieldMode = 2;
    AppState.ParamText[1].Text = "12.5";
    TakeCalls();
    FieldArrived(AppState.ParamText, 1);
    EXPECT_THAT(TakeCalls(), ElementsAre("select ParamText 1 0 4"));
    EXPECT_EQ(AppState.FieldMode, 0);
    EXPECT_EQ(AppState.CurrentField, 1);
    EXPECT_EQ(AppState.ParamText[1].BackColor, 0xFFFF00);
    EXPECT_EQ(AppState.ParamLabelColor[1], 0xFFFF00);
}

TEST_F(FieldEvents, EnterDownAndUpGoRoundWithoutTheZoomField)
{
    OpenPlate(1);
    for (const std::int16_t key : {KeyEnter, KeyDown}) {
        for (std::int16_t i = 0; i < FieldCuttingZoom; ++i) {
            TakeCalls();
            ValueFieldKey(AppState.TextCutting, i, key, 0);
            const int next = i == FieldLeadOutD ? 0 : i + 1;
            EXPECT_EQ(Screen.Calls.front(), "focus TextCutting " + std::to_string(next));
        }
    }
    TakeCalls();
    ValueFieldKey(AppState.TextCutting, 0, KeyUp, 0);
    EXPECT_EQ(TakeCalls().front(), "focus TextCutting 8");
    ValueFieldKey(AppState.TextCutting, 5, KeyUp, 0);
    EXPECT_EQ(TakeCalls().front(), "focus TextCutting 4");
    NextCamTab();
    TakeCalls();
    ValueFieldKey(AppState.TextNesting, 6, KeyEnter, 0);
    EXPECT_EQ(TakeCalls().front(), "focus TextNesting 0");
    ValueFieldKey(AppState.TextNesting, 0, KeyUp, 0);
    EXPECT_EQ(TakeCalls().front(), "focus TextNesting 6");
}

TEST_F(FieldEvents, AnAngleBeyondItsLimitBecomesTheLimit)
{
    OpenPlate(1);
    for (const auto& [typed, limit] : {std::pair{"400", "360"}, std::pair{"-400", "-360"}}) {
        FieldArrived(AppState.TextCutting, FieldAngle);
        SetText(AppState.TextCutting[FieldAngle], typed);
        TakeCalls();
        ValueFieldKey(AppState.TextCutting, FieldAngle, KeyEnter, 0);
        EXPECT_EQ(AppState.TextCutting[FieldAngle].Text, limit);
        EXPECT_EQ(Screen.Calls.back(), "select TextCutting 0 0 " + std::to_string(std::string(limit).size()));
        EXPECT_THAT(Screen.Calls, Contains("focus TextCutting 0"));
    }
}

TEST_F(FieldEvents, AStarEntryIsDoneWhenTheFieldIsLeft)
{
    OpenPlate(2);
    FieldArrived(AppState.TextNesting, FieldKerf);
    SetText(AppState.TextNesting[FieldKerf], "0.5");
    MoveFocus(AppState.TextNesting, FieldKerf, FieldSheetX);
    SetText(AppState.TextNesting[FieldSheetX], "*3");
    MoveFocus(AppState.TextNesting, FieldSheetX, FieldSheetY);
    EXPECT_EQ(AppState.TextNesting[FieldSheetX].Text, "333") << "3 cells of 100 + 10 + 2 x 0.5";
    EXPECT_EQ(AppState.LabelNesting[LabelCountX], "3");
}

TEST_F(FieldEvents, ADigitReplacesTheNestType)
{
    OpenPlate(2);
    FieldArrived(AppState.TextNesting, FieldNestType);
    SetText(AppState.TextNesting[FieldNestType], "12");
    EXPECT_EQ(AppState.TextNesting[FieldNestType].Text, "2");
}

TEST_F(FieldEvents, TheZoomFieldUsesTheArrowsItself)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldCuttingZoom);
    SetText(AppState.TextCutting[FieldCuttingZoom], "2");
    const double width = AppState.ViewWidth;
    const double height = AppState.ViewHeight; // below 0
    const double x = AppState.ViewCentreX;
    const double y = AppState.ViewCentreY;
    ValueFieldKey(AppState.TextCutting, FieldCuttingZoom, KeyRight, 0);
    EXPECT_DOUBLE_EQ(AppState.ViewCentreX, x + width / 8);
    ValueFieldKey(AppState.TextCutting, FieldCuttingZoom, KeyLeft, 0);
    EXPECT_DOUBLE_EQ(AppState.ViewCentreX, x);
    ValueFieldKey(AppState.TextCutting, FieldCuttingZoom, KeyDown, 0);
    EXPECT_DOUBLE_EQ(AppState.ViewCentreY, y + height / 8);
    ValueFieldKey(AppState.TextCutting, FieldCuttingZoom, KeyUp, 0);
    EXPECT_DOUBLE_EQ(AppState.ViewCentreY, y);
    ValueFieldKey(AppState.TextCutting, FieldCuttingZoom, KeyEnter, 0);
    EXPECT_DOUBLE_EQ(AppState.ViewWidth, width / 2);
}

TEST_F(FieldEvents, OtherKeysGoToTheScreen)
{
    OpenPlate(1);
    FieldArrived(AppState.TextCutting, FieldScale);
    TakeCalls();
    ValueFieldKey(AppState.TextCutting, FieldScale, KeyLeft, 0);
    ValueFieldKey(AppState.TextCutting, FieldScale, KeyRight, 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
    ValueFieldKey(AppState.TextCutting, FieldScale, KeyF3, 0);
    EXPECT_EQ(AppState.TextCutting[FieldScale].Text, "2");
    ValueFieldKey(AppState.TextCutting, FieldScale, KeyF1, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
}

TEST_F(FieldEvents, ParametersGoRoundAmongTheShownOnes)
{
    OpenShape(1001);
    ShowParameters(3);
    struct Step {
        std::int16_t From;
        std::int16_t Key;
        int To;
    };
    for (const Step& step : {Step{0, KeyEnter, 1}, Step{1, KeyDown, 2}, Step{2, KeyEnter, 0},
                             Step{2, KeyUp, 1}, Step{1, KeyUp, 0}, Step{0, KeyUp, 2}}) {
        TakeCalls();
        ValueFieldKey(AppState.ParamText, step.From, step.Key, 0);
        EXPECT_THAT(TakeCalls(), ElementsAre("focus ParamText " + std::to_string(step.To))) << step.From;
    }
    ShowParameters(15);
    ValueFieldKey(AppState.ParamText, 0, KeyUp, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus ParamText 0")) << "all are shown: it doesn't move";
    ValueFieldKey(AppState.ParamText, 14, KeyEnter, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus ParamText 0"));
    ShowParameters(1);
    ValueFieldKey(AppState.ParamText, 0, KeyUp, 0);
    EXPECT_THAT(TakeCalls(), ElementsAre("focus ParamText 0"));
    ValueFieldKey(AppState.ParamText, 0, KeyF1, 0);
    EXPECT_EQ(AppState.ScreenState, ScreenInput);
}

TEST_F(FieldEvents, LeavingTheSimulationStopsIt)
{
    OpenPlate(2);
    FieldArrived(AppState.TextNesting, FieldSimulation);
    AppState.SimRunning = FlagOn;
    FieldArrived(AppState.TextNesting, FieldSimulation);
    EXPECT_EQ(AppState.SimStop, FlagOff);
    FieldGone(AppState.TextNesting, FieldSimulation);
    EXPECT_EQ(AppState.SimStop, FlagOn);
    EXPECT_EQ(AppState.SimRunning, FlagOff);
    AppState.SimStop = FlagOff;
    FieldArrived(AppState.TextNesting, FieldGapX);
    EXPECT_EQ(AppState.SimStop, FlagOff) << "none runs any more";
    AppState.SimRunning = FlagOn;
    FieldArrived(AppState.TextNesting, FieldGapX);
    EXPECT_EQ(AppState.SimStop, FlagOn);
}
} // namespace
