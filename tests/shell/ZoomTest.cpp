// The zoom: frame, moves, confirmation, and the Zoom fields that drive it.
#include "shell/Zoom.h"

#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/FunctionKeys.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
constexpr double Near = 1e-9;

/// A part of 300 x 100 on the Cutting screen. The whole view: left -30, top 248.75, 345 wide, 258.75 high, centre
/// (142.5, 119.375).
class Zoom : public ::testing::Test
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
        AppState.Redraw = RedrawScene;
        AppState.ScreenState = ScreenCutting;
        AddLines({{0, 0}, {300, 100}});
        AddEnd(KindOuterEnd, 0);
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
        Drawn.Shown = true;
    }

    static ValueField& Field()
    {
        return AppState.TextCutting[FieldCuttingZoom];
    }

    static void EnterField()
    {
        CuttingFieldEntered(FieldCuttingZoom);
        TakeStrokes();
    }

    static void Key(std::int16_t number)
    {
        ApplyFunctionKey(number, AppState.TextCutting, Picture::Tecno, 0);
    }

    static void ExpectCentre(double x, double y)
    {
        EXPECT_NEAR(AppState.ViewCentreX, x, Near);
        EXPECT_NEAR(AppState.ViewCentreY, y, Near);
    }

    static void ExpectView(double left, double top, double width, double height)
    {
        EXPECT_NEAR(AppState.ViewLeft, left, Near);
        EXPECT_NEAR(AppState.ViewTop, top, Near);
        EXPECT_NEAR(AppState.ViewWidth, width, Near);
        EXPECT_NEAR(AppState.ViewHeight, height, Near);
    }
};

TEST_F(Zoom, ArrivalShowsTheWholeWithTheFrame)
{
    SetText(Field(), "2");
    EXPECT_THAT(TakeStrokes(), IsEmpty()) << "a text set from elsewhere zooms nothing";
    CuttingFieldEntered(FieldCuttingZoom);
    EXPECT_EQ(AppState.FieldMode, 3);
    EXPECT_EQ(AppState.CurrentField, FieldCuttingZoom);
    std::vector<std::string> strokes = TakeStrokes();
    ASSERT_GT(strokes.size(), 4U);
    EXPECT_EQ(strokes[0], "scale -30 248.75 345 -258.75");
    EXPECT_EQ(strokes[1], "clear");
    strokes.erase(strokes.begin(), strokes.end() - 3);
    // 86.25 to either side of the centre, 64.6875 up and down.
    EXPECT_THAT(strokes, ElementsAre("box 56.25 184.062 228.75 54.6875 #ff0000 1 inverting",
                                     "line 142.5 248.75 142.5 -10 #ff0000 1 inverting",
                                     "line -30 119.375 315 119.375 #ff0000 1 inverting"));
    CuttingFieldEntered(FieldCuttingZoom);
    EXPECT_THAT(TakeStrokes(), IsEmpty()) << "the field has the focus already";
}

TEST_F(Zoom, FactorKeysExchangeTheFrame)
{
    EnterField();
    Key(1);
    EXPECT_EQ(Field().Text, "2");
    EXPECT_THAT(TakeStrokesLike("box"), ElementsAre("box -30 248.75 315 -10 #ff0000 1 inverting",
                                                    "box 56.25 184.062 228.75 54.6875 #ff0000 1 inverting"))
        << "the old one is drawn again, and gone";
    Key(2);
    Key(2);
    EXPECT_EQ(Field().Text, "1") << "the least factor";
    for (int i = 0; i < 40; ++i) {
        Key(1);
    }
    EXPECT_EQ(Field().Text, "30");
    EXPECT_EQ(AppState.ZoomFrame, 30);
    ExpectView(-30, 248.75, 345, -258.75);
}

TEST_F(Zoom, MoveKeysStepByAQuarterOfTheFrame)
{
    EnterField();
    SetText(Field(), "5"); // steps of 345 / 20 = 17.25 and 258.75 / 20 = 12.9375
    ExpectCentre(142.5, 119.375);
    Key(3);
    ExpectCentre(159.75, 119.375);
    Key(4);
    Key(4);
    ExpectCentre(125.25, 119.375);
    Key(5);
    ExpectCentre(125.25, 106.4375);
    Key(6);
    Key(6);
    ExpectCentre(125.25, 132.3125);
    TakeStrokes();
    Key(3);
    const std::vector<std::string> lines = TakeStrokesLike("line");
    EXPECT_THAT(lines, ElementsAre("line 125.25 248.75 125.25 -10 #ff0000 1 inverting",
                                   "line -30 132.312 315 132.312 #ff0000 1 inverting",
                                   "line 142.5 248.75 142.5 -10 #ff0000 1 inverting",
                                   "line -30 132.312 315 132.312 #ff0000 1 inverting"));
}

TEST_F(Zoom, CentreStaysInTheView)
{
    EnterField();
    for (int i = 0; i < 9; ++i) {
        Key(3);
        Key(5);
    }
    ExpectCentre(315, -10);
    for (int i = 0; i < 9; ++i) {
        Key(4);
        Key(6);
    }
    ExpectCentre(-30, 248.75);
}

TEST_F(Zoom, ConfirmedFrameFillsThePicture)
{
    EnterField();
    SetText(Field(), "3");
    Key(3); // 345 / 12 = 28.75
    TakeStrokes();
    Key(7);
    // 115 wide, 86.25 high about (171.25, 119.375).
    ExpectView(113.75, 162.5, 115, -86.25);
    EXPECT_NEAR(AppState.UnitsPerPixelX, 115.0 / 640, Near);
    EXPECT_NEAR(AppState.UnitsPerPixelY, -86.25 / 480, Near);
    EXPECT_NEAR(AppState.SavedCentreX, 171.25, Near);
    EXPECT_NEAR(AppState.SavedCentreY, 119.375, Near);
    const std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(strokes[1], "scale 113.75 162.5 115 -86.25");
    EXPECT_EQ(strokes[2], "clear");
    for (const std::string& stroke : strokes) {
        EXPECT_FALSE(stroke.ends_with("inverting")) << stroke;
    }
    Key(7);
    CuttingFieldLeft(FieldCuttingZoom);
    ExpectView(113.75, 162.5, 115, -86.25); // twice is the same as once
}

TEST_F(Zoom, KeysAfterTheConfirmationReturnToTheWhole)
{
    EnterField();
    SetText(Field(), "3");
    Key(7);
    TakeStrokes();
    Key(3);
    ExpectView(-30, 248.75, 345, -258.75);
    ExpectCentre(171.25, 119.375);
    const std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(
        std::count_if(strokes.begin(), strokes.end(),
                      [](const std::string& stroke) { return stroke.find("inverting") != stroke.npos; }),
        3)
        << "its box and its cross; nothing stood there to be taken away";
}

TEST_F(Zoom, FactorOneShowsTheWhole)
{
    EnterField();
    SetText(Field(), "3");
    Key(7);
    SetText(Field(), "1");
    Key(7);
    ExpectView(-30, 248.75, 345, -258.75);
    EXPECT_NEAR(AppState.SavedCentreX, 142.5, Near) << "of the last applied zoom";
    EXPECT_EQ(AppState.ZoomFrame, 0.0);
    Key(3);
    Key(7);
    ExpectView(-30, 248.75, 345, -258.75);
}

TEST_F(Zoom, LeavingTheFieldAppliesIt)
{
    EnterField();
    SetText(Field(), "3");
    CuttingFieldLeft(FieldCuttingZoom);
    EXPECT_NEAR(AppState.ViewWidth, 115, Near);
    CuttingFieldEntered(FieldMoveStep);
    EXPECT_EQ(AppState.FieldMode, 5);
    RedrawScene(FlagOff);
    EXPECT_NEAR(AppState.ViewWidth, 115, Near) << "work goes on in the zoomed view";
    CuttingFieldLeft(FieldMoveStep);
    EXPECT_NEAR(AppState.ViewWidth, 115, Near);
}

TEST_F(Zoom, ClickOnTheKeyBarLeavesItToTheClick)
{
    EnterField();
    SetText(Field(), "3");
    AppState.ButtonPressed = FlagOn;
    CuttingFieldLeft(FieldCuttingZoom);
    EXPECT_NEAR(AppState.ViewWidth, 345, Near);
    EXPECT_EQ(AppState.ButtonPressed, FlagOff);
    ApplyZoom(3.0);
    EXPECT_NEAR(AppState.ViewWidth, 115, Near);
}

TEST_F(Zoom, AFrameLeftStandingIsntDrawnTwice)
{
    EnterField();
    AppState.ButtonPressed = FlagOn;
    CuttingFieldLeft(FieldCuttingZoom);
    CuttingFieldEntered(FieldAngle);
    ASSERT_GT(AppState.ZoomFrame, 0.0);
    TakeStrokes();
    CuttingFieldEntered(FieldCuttingZoom);
    EXPECT_EQ(TakeStrokesLike("box").size(), 1U) << "a second stroke would take it away";
}

TEST_F(Zoom, NextArrivalFindsThePlaceAgain)
{
    EnterField();
    SetText(Field(), "3");
    Key(4);
    CuttingFieldLeft(FieldCuttingZoom);
    CuttingFieldEntered(FieldAngle);
    EnterField();
    ExpectView(-30, 248.75, 345, -258.75);
    ExpectCentre(113.75, 119.375);
    ClearZoom(); // a new part
    CuttingFieldEntered(FieldAngle);
    EnterField();
    ExpectCentre(142.5, 119.375);
}

TEST_F(Zoom, PlaceBesideTheViewIsBroughtIn)
{
    AppState.SavedCentreX = 5000; // on the sheet
    AppState.SavedCentreY = -5000;
    EnterField();
    ExpectCentre(315, -10);
}

TEST_F(Zoom, NewPartForgetsThePlace)
{
    AppState.SavedCentreX = AppState.SavedCentreY = 7;
    ResetFieldsForPart();
    EXPECT_TRUE(IsNoValue(AppState.SavedCentreX));
    EXPECT_TRUE(IsNoValue(AppState.SavedCentreY));
}

TEST_F(Zoom, RedrawBringsTheFrameBack)
{
    EnterField();
    RedrawScene(FlagOff);
    EXPECT_EQ(TakeStrokesLike("box").size(), 1U);
    Key(7);
    TakeStrokes();
    RedrawScene(FlagOff);
    EXPECT_THAT(TakeStrokesLike("box"), IsEmpty());
}

TEST_F(Zoom, OutsideTheFieldNothingMoves)
{
    CuttingFieldEntered(FieldAngle);
    const double width = AppState.ViewWidth;
    ApplyZoom(Picture::Tecno, ZoomStep::Confirm, 3);
    ApplyZoom(Picture::Tecno, ZoomStep::Right, 3);
    ApplyZoom(3.0);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
    EXPECT_EQ(AppState.ViewWidth, width);
}

TEST_F(Zoom, SheetIsTheWholeOnTheNestingScreen)
{
    AppState.ScreenState = ScreenNesting;
    AppState.TextNesting[FieldSheetX].Text = "1000";
    AppState.TextNesting[FieldSheetY].Text = "300";
    NestingFieldEntered(FieldNestingZoom);
    EXPECT_EQ(AppState.FieldMode, 3);
    ExpectView(-30, 800, 1080, -810); // to 1050; the top 10 below the height
    SetText(AppState.TextNesting[FieldNestingZoom], "2");
    EXPECT_EQ(AppState.ZoomFrame, 2);
    ApplyFunctionKey(3, AppState.TextNesting, Picture::Nesting, 0);
    ExpectCentre(510 + 135, 395);
    NestingFieldLeft(FieldNestingZoom);
    ExpectView(375, 597.5, 540, -405);
    EXPECT_EQ(Drawn.Pictures.back(), Picture::Nesting);
}

TEST_F(Zoom, TypedFactorIsKeptInItsLimits)
{
    EnterField();
    SetText(Field(), "99");
    EXPECT_EQ(Field().Text, "30");
    EXPECT_EQ(AppState.ZoomFrame, 30);
    SetText(Field(), "");
    EXPECT_EQ(Field().Text, "1");
    EXPECT_EQ(AppState.ZoomFrame, 1);
}

TEST_F(Zoom, PartWithoutSizeZoomsNothing)
{
    ClearPart();
    AppState.MinX = AppState.MaxX = AppState.MinY = AppState.MaxY = 0.0;
    EnterField();
    for (std::int16_t key = 1; key <= 7; ++key) {
        Key(key);
    }
    EXPECT_EQ(AppState.ViewWidth, 0.0);
    ExpectCentre(0, 0);
}
} // namespace
