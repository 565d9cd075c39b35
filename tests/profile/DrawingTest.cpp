// Strokes of one part: contours, arcs, arrows, the marker of the cut's side, and the overlay of the cut.
#include "profile/Drawing.h"

#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/Strokes.h"
#include "support/LeadParts.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

using testing::ElementsAre;
using testing::IsEmpty;

namespace
{
/// One world unit per pixel, on the Cutting screen.
class Drawing : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        Drawn.Shown = true;
        AppState.ScreenState = ScreenCutting;
        AppState.UnitsPerPixelX = 1.0;
        AppState.UnitsPerPixelY = -1.0;
        AppState.ViewHeight = -640.0;
    }

    /// A square hole of 3 in a square of 10.
    static void MakeFrame()
    {
        PutBox(2, 2, 3, 3);
        PutEnd(KindEnd);
        PutBox(0, 0, 10, 10);
        PutEnd(KindOuterEnd);
        MeasureProfiles(FlagOn);
        InitLeadData();
    }

    static void SetMarker(const char* pixels)
    {
        WriteConfig("CONFIG", "KERFPOSDRAW", pixels);
    }
};

// --- arcs and arrows ---------------------------------------------------------------------------------------

TEST_F(Drawing, ArcsRunCounterClockwiseOnTheSurface)
{
    struct ArcCase {
        const char* Name;
        double StartX, StartY, EndX, EndY, Radius;
        const char* Stroke;
    };
    const ArcCase cases[] = {
        {"quarter", 6, 2, 1, 7, 5, "arc 1 2 5 0 90 #000000 1"},
        {"clockwise: the long way round", 6, 2, 1, 7, -5, "arc 1 2 5 90 0 #000000 1"},
        {"clockwise quarter", 1, 7, 6, 2, -5, "arc 1 2 5 0 90 #000000 1"},
        {"through the third quadrant", -4, 2, 1, -3, 5, "arc 1 2 5 180 270 #000000 1"},
        {"full circle", 6, 2, 6, 2, 5, "circle 1 2 5 #000000 1"},
        {"clockwise full circle", 6, 2, 6, 2.009, -5, "circle 1 2 5 #000000 1"},
        {"no circle at the tolerance", 6, 2, 6, 2.02, 5, "arc 1 2 5 0 0.229182 #000000 1"},
        {"radius 0 counts as clockwise", 6, 2, 1, 7, 0, "arc 1 2 0 90 0 #000000 1"},
    };
    for (const ArcCase& c : cases) {
        DrawArc(Picture::Tecno, 1, 2, c.StartX, c.StartY, c.EndX, c.EndY, c.Radius);
        EXPECT_THAT(TakeStrokes(), ElementsAre(c.Stroke)) << c.Name;
    }
}

/// The two ends of a short arc of an enormous circle have one angle in 32 bits, which would be a full turn.
TEST_F(Drawing, ArcTooShortForItsAnglesIsAChord)
{
    // About (0, 0), at 180 degrees: 0.02 up is 2e-7 in angle, and floats there are 2.4e-7 apart.
    DrawArc(Picture::Tecno, 0, 0, -1e5, 0.001, -1e5, -0.019, 1e5);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line -100000 0.001 -100000 -0.019 #000000 1"));
    DrawArc(Picture::Tecno, 0, 0, -1e5, -0.019, -1e5, 0.001, -1e5);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line -100000 -0.019 -100000 0.001 #000000 1"));
    // The same ends the other way round are all of the circle but 0.02.
    DrawArc(Picture::Tecno, 0, 0, -1e5, -0.019, -1e5, 0.001, 1e5);
    EXPECT_THAT(TakeStrokes(), ElementsAre("circle 0 0 100000 #000000 1"));
}

TEST_F(Drawing, ArrowHasTwoBarbsAtItsEnd)
{
    // 640 / 80 = 8 at 16 degrees: 7.69009 back, 2.2051 beside the shaft.
    DrawArrow(Picture::Nesting, 0, 0, 10, 0, 0x123456);
    EXPECT_EQ(Drawn.Pictures.front(), Picture::Nesting);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 0 0 10 0 #123456 1", "line 10 0 2.30991 -2.2051 #123456 1",
                                           "line 10 0 2.30991 2.2051 #123456 1"));
}

TEST_F(Drawing, CoordinatesStayFinite)
{
    DrawLine(Picture::Tecno, 1e300, -1e300, std::nan(""), std::numeric_limits<double>::infinity());
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 1e+30 -1e+30 0 1e+30 #000000 1"));
}

// --- the part ----------------------------------------------------------------------------------------------

TEST_F(Drawing, CurrentProfileIsRedAndThick)
{
    MakeFrame();
    AppState.CurrentProfile = 1;
    DrawPart(Picture::Tecno, 100, 50, FlagOff);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 102 52 105 52 #ff0000 3", "line 105 52 105 55 #ff0000 3",
                                           "line 105 55 102 55 #ff0000 3", "line 102 55 102 52 #ff0000 3",
                                           "line 100 50 110 50 #000000 1", "line 110 50 110 60 #000000 1",
                                           "line 110 60 100 60 #000000 1", "line 100 60 100 50 #000000 1"));
    AppState.CurrentProfile = 0;
    DrawPart(Picture::Tecno, 0, 0, FlagOff);
    for (const std::string& stroke : TakeStrokes()) {
        EXPECT_TRUE(stroke.ends_with("#000000 1")) << stroke;
    }
}

/// Twin halves: both end as an outer profile.
TEST_F(Drawing, EachEndMarkCountsAProfile)
{
    PutBox(0, 0, 4, 4);
    PutEnd(KindOuterEnd);
    PutLine(0, 9, 5, 9);
    PutEnd(KindOuterEnd);
    MeasureProfiles(FlagOn);
    InitLeadData();
    AppState.CurrentProfile = 2;
    DrawPart(Picture::Tecno, 0, 0, FlagOn);
    const std::vector<std::string> strokes = TakeStrokes();
    ASSERT_EQ(strokes.size(), 5U + 2 * 4U);
    EXPECT_EQ(strokes[0], "line 0 0 4 0 #000000 1");
    EXPECT_EQ(strokes[8], "line 0 9 5 9 #ff0000 3");
    EXPECT_EQ(strokes[9], "line 2.5 9 2.5 14 #ff0000 1");
}

TEST_F(Drawing, PensAreSetWhereTheyChange)
{
    MakeFrame();
    AppState.CurrentProfile = 1;
    SurfaceSetPen(Picture::Tecno, {0x123456, 7, true, true}); // of another stroke
    DrawPart(Picture::Tecno, 0, 0, FlagOff);
    EXPECT_EQ(TakeStrokes().front(), "line 2 2 5 2 #ff0000 3");
    DrawPart(Picture::Tecno, 50, 0, FlagOff);
    EXPECT_EQ(TakeStrokes().front(), "line 52 2 55 2 #ff0000 3") << "the next copy begins with its own pen";
}

TEST_F(Drawing, ArcElementsFollowTheOffset)
{
    PutCircle(3, 4, -2);
    PutEnd(KindEnd);
    PutArc(10, 0, 0, 10, 0, 0, 10);
    PutLine(0, 10, 0, 0);
    PutLine(0, 0, 10, 0);
    PutEnd(KindOuterEnd);
    DrawPart(Picture::Tecno, 1, 1, FlagOff);
    EXPECT_THAT(TakeStrokes(), ElementsAre("circle 4 5 2 #000000 1", "arc 1 1 10 0 90 #000000 1",
                                           "line 1 11 1 1 #000000 1", "line 1 1 11 1 #000000 1"));
}

TEST_F(Drawing, MarkPointsAreCrossesInTheLastPen)
{
    PutLine(0, 0, 10, 0);
    PutEnd(KindOuterEnd);
    AppState.MarkPoints = {{0, 0}, {3, 4}, {7, 8}};
    AppState.MarkPointCount = 2;
    AppState.CurrentProfile = 1;
    AppState.UnitsPerPixelX = 0.5;
    AppState.UnitsPerPixelY = -0.5; // 5 pixels are 2.5
    DrawPart(Picture::Tecno, 1, 0, FlagOff);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 1 0 11 0 #ff0000 3", "line 1.5 4 6.5 4 #ff0000 3",
                                           "line 4 1.5 4 6.5 #ff0000 3", "line 5.5 8 10.5 8 #ff0000 3",
                                           "line 8 5.5 8 10.5 #ff0000 3"));
}

TEST_F(Drawing, EmptyPartHasNoStroke)
{
    DrawPart(Picture::Tecno, 0, 0, FlagOn);
    DrawMoves(Picture::Tecno, 0, 0, 1);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}

// --- the marker --------------------------------------------------------------------------------------------

TEST_F(Drawing, MarkerOnALine)
{
    MakeSquare(ImportedClass); // from (0, 0) to the right, side left
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    // Foot 10 along, tip 5 to the left, arrow 20 along.
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("line 10 0 10 5 #000000 1", "line 10 5 30 5 #000000 1",
                            "line 30 5 22.3099 2.7949 #000000 1", "line 30 5 22.3099 7.2051 #000000 1"));
    AppState.ProfileTable[1].Side = -1.0;
    DrawKerfMarker(Picture::Tecno, 1, 100, 200);
    EXPECT_EQ(TakeStrokes().front(), "line 110 200 110 195 #000000 1");
}

TEST_F(Drawing, MarkerLengthIsASetting)
{
    MakeSquare(ImportedClass);
    SetMarker("-8"); // any sign
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    EXPECT_EQ(TakeStrokes().front(), "line 16 0 16 8 #000000 1");
    AppState.UnitsPerPixelY = -0.25;
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    EXPECT_EQ(TakeStrokes().front(), "line 4 0 4 2 #000000 1");
    for (const char* nothing : {"0", "", "x"}) {
        SetMarker(nothing);
        DrawKerfMarker(Picture::Tecno, 1, 0, 0);
        EXPECT_THAT(TakeStrokes(), IsEmpty()) << nothing;
    }
}

TEST_F(Drawing, MarkerStaysOnAShortLine)
{
    AddLines({{0, 0}, {6, 0}, {6, 50}, {0, 50}, {0, 0}});
    AddEnd(KindOuterEnd, 300);
    MeasureProfiles(FlagOn);
    InitLeadData();
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    EXPECT_EQ(TakeStrokes().front(), "line 3 0 3 5 #000000 1") << "6 is shorter than 10: its middle";
    DrawKerfMarker(Picture::Tecno, 2, 0, 0);
    EXPECT_EQ(TakeStrokes().front(), "line 6 10 1 10 #000000 1") << "upward, to the left";
}

TEST_F(Drawing, MarkerOnArcs)
{
    MakeCircle(10); // about (10, 10) from (20, 10), counter-clockwise: a quarter further is the top
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(strokes[0], "line 10 20 10 15 #000000 1") << "left of travel is inside";
    EXPECT_EQ(strokes[1], "line 10 15 -10 15 #000000 1") << "travel there goes to the left";
    StartCase();
    HoldConfigWrites();
    AppState.ScreenState = ScreenCutting;
    AppState.UnitsPerPixelX = 1.0;
    AppState.UnitsPerPixelY = -1.0;
    MakeCircle(-10); // clockwise: a quarter further is the bottom
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    strokes = TakeStrokes();
    EXPECT_EQ(strokes[0], "line 10 0 10 -5 #000000 1") << "left of travel is outside";
    EXPECT_EQ(strokes[1], "line 10 -5 -10 -5 #000000 1");
}

TEST_F(Drawing, EachProfileHasOneMarkerInItsColour)
{
    MakeFrame();
    AppState.CurrentProfile = 2;
    DrawPart(Picture::Tecno, 0, 0, FlagOn);
    const std::vector<std::string> strokes = TakeStrokes();
    ASSERT_EQ(strokes.size(), 8U + 2 * 4U);
    EXPECT_EQ(strokes[1], "line 3.5 2 3.5 7 #000000 1");
    EXPECT_EQ(strokes[5], "line 5 2 5 5 #000000 1") << "the pen is that of the contour again";
    EXPECT_EQ(strokes[8], "line 0 0 10 0 #ff0000 3");
    EXPECT_EQ(strokes[9], "line 10 0 10 5 #ff0000 1") << "10 isn't shorter than 10";
    EXPECT_EQ(strokes[13], "line 10 0 10 10 #ff0000 3");
}

TEST_F(Drawing, ParametersScreenHasNoMarker)
{
    MakeFrame();
    AppState.ScreenState = ScreenParameters;
    DrawPart(Picture::Param, 0, 0, FlagOn);
    EXPECT_EQ(TakeStrokes().size(), 8U);
    DrawKerfMarker(Picture::Param, 1, 0, 0);
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}

TEST_F(Drawing, MarkerNeedsAnElementWithARecord)
{
    PutLine(0, 0, 10, 0);
    PutEnd(KindOuterEnd); // not measured: no records
    for (const std::int32_t slot : {-1, 0, 1, 2, 3, 40000}) {
        DrawKerfMarker(Picture::Tecno, slot, 0, 0);
    }
    EXPECT_THAT(TakeStrokes(), IsEmpty());
}

TEST_F(Drawing, MarkerTurnsWithTheSense)
{
    MakeSquare(ImportedClass);
    ToggleProfileSense(1);
    // Now up the left side first, the side right of travel.
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    const std::vector<std::string> strokes = TakeStrokes();
    EXPECT_EQ(strokes[0], "line 0 10 5 10 #000000 1");
    EXPECT_EQ(strokes[1], "line 5 10 5 30 #000000 1");
}

TEST_F(Drawing, OpenProfileKeepsItsSide)
{
    MakeOpenAngle(); // (0, 0) to (50, 0) to (50, 30)
    const double side = AppState.ProfileTable[1].Side;
    ToggleProfileSense(1);
    EXPECT_EQ(AppState.ProfileTable[1].Side, side);
    DrawKerfMarker(Picture::Tecno, 1, 0, 0);
    EXPECT_EQ(TakeStrokes().front(), "line 50 20 55 20 #000000 1") << "downward from (50, 30), still left";
}

// --- the overlay of the cut ----------------------------------------------------------------------------------

TEST_F(Drawing, LeadsOfOneCopy)
{
    MakeSquare(LibraryClass);
    ProfileRecord& record = AppState.ProfileTable[1];
    record.LeadPosition = 50.0;
    record.LeadInLength = 10.0;
    record.LeadInRadius = 5.0;
    record.LeadOutLineOn = record.LeadOutArcOn = FlagOn;
    record.LeadOutLength = 3.0;
    record.LeadOutRadius = 2.0;
    AppState.PenX = 1.0;
    AppState.PenY = 2.0;
    DrawMoves(Picture::Tecno, 100, 0, 4);
    // Lead point (50, 0), on the left of travel: down to (45, 5), a quarter about (50, 5); out about (50, 2), then up.
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 1 2 145 15 #800080 1 dashed", "line 145 15 145 5 #008000 4",
                                           "arc 150 5 5 180 270 #008000 4", "arc 150 2 2 270 0 #008080 4",
                                           "line 152 2 152 5 #008080 4"));
    EXPECT_NEAR(AppState.PenX, 152, 1e-9);
    EXPECT_NEAR(AppState.PenY, 5, 1e-9);
}

TEST_F(Drawing, ProfileWithoutLeadsIsReachedByTheRapidLine)
{
    MakeSquare(LibraryClass);
    ProfileRecord& record = AppState.ProfileTable[1];
    record.LeadPosition = 50.0;
    record.LeadInLineOn = record.LeadInArcOn = FlagOff;
    DrawMoves(Picture::Tecno, 0, 0, 1);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 0 0 50 0 #800080 1 dashed", "line 50 0 50 0 #008000 1"))
        << "a lead-in of length 0 is a dot";
    EXPECT_NEAR(AppState.PenX, 50, 1e-9);
}

TEST_F(Drawing, RapidLinesGoToTheMarkPointsFirst)
{
    MakeSquare(LibraryClass);
    AppState.ProfileTable[1].LeadInLineOn = AppState.ProfileTable[1].LeadInArcOn = FlagOff;
    AppState.ProfileTable[1].LeadPosition = 50.0;
    AppState.MarkPoints = {{0, 0}, {3, 4}, {7, 8}};
    AppState.MarkPointCount = 2;
    DrawMoves(Picture::Tecno, 10, 0, 1);
    EXPECT_THAT(TakeStrokes(),
                ElementsAre("line 0 0 13 4 #800080 1 dashed", "line 13 4 17 8 #800080 1 dashed",
                            "line 17 8 60 0 #800080 1 dashed", "line 60 0 60 0 #008000 1"));
}

TEST_F(Drawing, StepsHaveTheirColours)
{
    CutMove from;
    from.Kind = KindLine;
    CutMove to;
    to.X = 5;
    DrawMoveStep(MoveStep::Rapid, Picture::Tecno, from, to, 0, 0, 7);
    DrawMoveStep(MoveStep::LeadIn, Picture::Tecno, from, to, 0, 1, 7);
    DrawMoveStep(MoveStep::Profile, Picture::Tecno, from, to, 0, 2, 7);
    DrawMoveStep(MoveStep::LeadOut, Picture::Tecno, from, to, 0, 3, 7);
    EXPECT_THAT(TakeStrokes(), ElementsAre("line 0 0 5 0 #800080 1 dashed", "line 0 1 5 1 #008000 7",
                                           "line 0 2 5 2 #800000 7", "line 0 3 5 3 #008080 7"));
    EXPECT_EQ(AppState.PenY, 3);
}

TEST_F(Drawing, FitTellsThePictureItsScale)
{
    AppState.MaxX = 300;
    AppState.MaxY = 100;
    FitView(Picture::Param, 0, 0);
    EXPECT_EQ(Drawn.Pictures.front(), Picture::Param);
    EXPECT_THAT(TakeStrokes(), ElementsAre("scale -30 248.75 345 -258.75"));
}
} // namespace
