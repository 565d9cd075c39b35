// The frame of the development: fields to parameters, flags, senses, lead data, failures.
#include "platform/Fault.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Builders.h"
#include "shapes/Drawings.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"
#include "support/TableGeometry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <string>

namespace
{
constexpr ShapeDrawing Plain{"", "", "", "", "", "", "", 0};

/// Develops a shape from its defaults with some values changed. The error word is the result.
std::int16_t Develop(const char* name, const char* changes = "")
{
    ShapeDrawing drawing = Plain;
    drawing.Name = name;
    drawing.Case = changes;
    return DevelopWith(drawing, DefaultNames(drawing));
}

/// Opens a shape with its defaults, as the operator does.
void Open(std::int16_t shapeId)
{
    AppState.ShapeId = shapeId;
    ShowShapeParameters(shapeId, FlagOn);
}

std::int16_t DevelopFields()
{
    std::int16_t err = 99;
    DevelopShape(err);
    return err;
}

bool AllFinite()
{
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& e = Slot(i);
        for (const double value : {e.StartX, e.StartY, e.EndX, e.EndY, e.GeoA, e.GeoB, e.GeoC, e.Length}) {
            if (!std::isfinite(value)) {
                return false;
            }
        }
    }
    return true;
}

int Redraws = 0;

void CountRedraw(Flag /*fit*/)
{
    ++Redraws;
}

struct Development : testing::Test {
    void SetUp() override
    {
        StartCase();
        AppState.AppPath = KORVANTA_SOURCE_DIR "/station";
        AppState.Language = 1;
        LoadMessages();
        Redraws = 0;
        AppState.Redraw = CountRedraw;
    }
};
} // namespace

// --- fields -----------------------------------------------------------------------------------------------

TEST_F(Development, AHiddenFieldCountsAsZero)
{
    Open(1005);
    EXPECT_EQ(DevelopFields(), 0);
    AppState.ParamText[3].Visible = FlagOff; // Y, whose text still says 20
    EXPECT_EQ(DevelopFields(), ErrBadShape);

    Open(1001);
    AppState.ParamText[2].Visible = FlagOff; // R: the square-cornered routine
    EXPECT_EQ(DevelopFields(), 0);
    EXPECT_EQ(AppState.ElementCount, 5);
}

TEST_F(Development, AVisibleFieldBehindAHiddenOneKeepsItsPlace)
{
    Open(2003);                              // A 100, B 50, Df 75, D 10, Nr 6
    AppState.ParamText[1].Visible = FlagOff; // B: no centre hole, the other letters stay where they are
    EXPECT_EQ(DevelopFields(), 0);
    EXPECT_EQ(AppState.ProfileCount, 7);
}

TEST_F(Development, AFieldCountsAsTheNumberItsTextStartsWith)
{
    Open(1005);
    AppState.ParamText[0].Text = " 120.5mm";
    AppState.ParamText[1].Text = "8e1";
    EXPECT_EQ(DevelopFields(), 0);
    EXPECT_DOUBLE_EQ(AppState.MaxY, 120.5);
    EXPECT_DOUBLE_EQ(AppState.MaxX, 80.0);
    AppState.ParamText[0].Text = "";
    EXPECT_EQ(DevelopFields(), ErrBadShape);
    AppState.ParamText[0].Text = "wide";
    EXPECT_EQ(DevelopFields(), ErrBadShape);
}

TEST_F(Development, AllFifteenFieldsAreRead)
{
    Open(1032); // twelve letters
    for (std::size_t i = 12; i < 15; ++i) {
        AppState.ParamText[i].Visible = FlagOn;
        AppState.ParamText[i].Text = "5";
    }
    EXPECT_EQ(DevelopFields(), 0);
}

// --- which builder ----------------------------------------------------------------------------------------

TEST_F(Development, ARadiusOfExactlyZeroTakesTheSquareRoutine)
{
    EXPECT_EQ(Develop("R-01", "R=0"), 0);
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_DOUBLE_EQ(AppState.MaxX, 300.0); // the two sides change their roles
    EXPECT_DOUBLE_EQ(AppState.MaxY, 200.0);
    EXPECT_EQ(Develop("R-01", "R=0; A=0.05"), ErrBadShape);

    EXPECT_EQ(Develop("R-01", "R=0.001"), 0);
    EXPECT_EQ(AppState.ElementCount, 9);
    EXPECT_DOUBLE_EQ(AppState.MaxX, 200.0);
    EXPECT_EQ(Develop("R-01", "R=0.001; B=0.002"), ErrBadShape);
    EXPECT_EQ(Develop("R-01", "R=0.001; B=0.0021; A=0.05"), 0);

    EXPECT_EQ(Develop("R-02", "R=0"), 0);
    EXPECT_DOUBLE_EQ(AppState.MaxX, 300.0); // here A stays the height
    EXPECT_DOUBLE_EQ(AppState.MaxY, 200.0);
}

TEST_F(Development, EachIdentifierHasItsOwnBuilder)
{
    std::set<ShapeBuilder> builders;
    ShapeParameters p{};
    p[3] = 1.0;
    for (const ShapeRow& row : ShapeCatalogue()) {
        builders.insert(FindBuilder(row.ShapeId, p));
    }
    for (const int id : {11, 25, 36, 46, 50, 58, 59, 67, 69}) {
        builders.insert(FindBuilder(static_cast<std::int16_t>(id), p));
    }
    EXPECT_EQ(builders.size(), 79U);
    EXPECT_EQ(builders.count(nullptr), 0U);
    EXPECT_EQ(FindBuilder(1001, p), BuildR01);
    EXPECT_EQ(FindBuilder(1002, p), BuildR02);
    p[3] = 0.0;
    EXPECT_EQ(FindBuilder(1001, p), BuildR01Square);
    EXPECT_EQ(FindBuilder(1002, p), BuildR02Square);
    EXPECT_EQ(FindBuilder(1003, p), BuildR03);
}

TEST_F(Development, AnIdentifierWithoutABuilderIsAFailedCheck)
{
    for (const int id : {1, 10, 12, 68, 70, 999, 1000, 1042, 2000, 2027, 3000, 3004, 32767}) {
        Screen.Calls.clear();
        AppState.ShapeId = static_cast<std::int16_t>(id);
        EXPECT_EQ(DevelopFields(), ErrBadShape) << id;
        EXPECT_EQ(AppState.ElementCount, 0) << id;
        EXPECT_FALSE(BuildCurrentPart()) << id;
        EXPECT_EQ(Screen.Calls.size(), 1U) << id;
    }
}

TEST_F(Development, AStoredShapeOutsideTheCatalogueEndsInTheFailureBox)
{
    for (const ShapeDrawing& drawing : DrawingsOutside()) {
        Screen.Calls.clear();
        AppState.ShapeId = IdOf(drawing);
        for (ValueField& field : AppState.ParamText) {
            field.Text = "50"; // as a job brought them
        }
        ShowShapeParameters(AppState.ShapeId, FlagOff);
        EXPECT_FALSE(BuildCurrentPart()) << drawing.Name;
        EXPECT_EQ(Screen.Calls.size(), 1U) << drawing.Name;
    }
}

// --- success and failure ----------------------------------------------------------------------------------

TEST_F(Development, WithoutAShapeThePartStandsAsItIs)
{
    PutBox(10, 20, 30, 40);
    PutEnd(KindOuterEnd);
    AppState.ShapeId = 0;
    const std::vector<ProfileElement> before = AppState.ElementTable;
    EXPECT_TRUE(BuildCurrentPart());
    EXPECT_EQ(FirstDifference(before, AppState.ElementTable), 0U);
    AppState.ShapeId = -5;
    EXPECT_TRUE(BuildCurrentPart());
    EXPECT_EQ(FirstDifference(before, AppState.ElementTable), 0U);
    EXPECT_TRUE(Screen.Calls.empty());
}

TEST_F(Development, AFailedCheckShowsOneBoxAndDrawsNothing)
{
    Open(1005);
    SetText(AppState.ParamText[2], "0.05");
    EXPECT_FALSE(BuildCurrentPart());
    EXPECT_THAT(Screen.Calls, testing::ElementsAre("box Attention!|Check the values of the part.||one"));
    EXPECT_EQ(Redraws, 0);
    EXPECT_EQ(AppState.ParamText[2].Text, "0.05");
    EXPECT_EQ(AppState.ParamText[0].Text, "300");
    EXPECT_EQ(AppState.ElementCount, 0);

    SetText(AppState.ParamText[2], "0.1");
    EXPECT_TRUE(BuildCurrentPart());
    EXPECT_EQ(Screen.Calls.size(), 1U);
    EXPECT_EQ(AppState.ElementCount, 7);
}

TEST_F(Development, AFailureOfTheGeometryShowsTheSameBox)
{
    Open(2011);
    SetText(AppState.ParamText[0], "50"); // the smaller circle lies inside the other
    EXPECT_FALSE(BuildCurrentPart());
    EXPECT_THAT(Screen.Calls, testing::ElementsAre("box Attention!|Check the values of the part.||one"));
}

TEST_F(Development, AFailedPartIsLeftAsTheBuilderLeftIt)
{
    EXPECT_EQ(Develop("R-06", "R=100"), ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 9); // the window; the plate's corners don't fit
    EXPECT_EQ(Develop("R-06"), 0);
    EXPECT_EQ(AppState.ElementCount, 18);
}

TEST_F(Development, TheNextDevelopmentStartsFromNothing)
{
    EXPECT_EQ(Develop("R-20"), 0);
    AppState.MarkPoints.resize(3);
    AppState.MarkPointCount = 2;
    AppState.PathOriginSet = FlagOn;
    AppState.PathCursorDistance = 12.0;
    AppState.MoveStep = 3.0;
    AppState.CurrentProfile = 4;
    EXPECT_EQ(Develop("R-13"), 0);
    EXPECT_EQ(AppState.ElementCount, 4);
    EXPECT_EQ(AppState.ElementTable.size(), 5U);
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(AppState.ProfileTable.size(), 2U);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff);
    EXPECT_TRUE(IsNoValue(AppState.PathCursorDistance));
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(AppState.CurrentProfile, 1);
}

// --- what leaves the development --------------------------------------------------------------------------

TEST_F(Development, TheLeftmostPointOfAnArcDecidesTheShift)
{
    // circles of radius 30 about (0, 0), 20 about (150, 0), 15 about (-20, 100). The leftmost point is the west of the
    // third, -35; the lowest the south of the first, -30. No element ends in either.
    EXPECT_EQ(Develop("R-37"), 0);
    EXPECT_EQ(Slot(4).Kind, KindArc);
    EXPECT_NEAR(Slot(4).GeoA, 35.0, 1e-9);
    EXPECT_NEAR(Slot(4).GeoB, 30.0, 1e-9);
    EXPECT_NEAR(AppState.MinX, 0.0, 1e-9);
    EXPECT_NEAR(AppState.MinY, 0.0, 1e-9);
    EXPECT_NEAR(AppState.MaxX, 150.0 + 20.0 + 35.0, 1e-9);
    EXPECT_NEAR(AppState.MaxY, 100.0 + 15.0 + 30.0, 1e-9);
}

TEST_F(Development, ABuilderThatUsesNegativePlacesIsMovedToTheOrigin)
{
    EXPECT_EQ(Develop("C-16"), 0); // from (0, 0) to (600, -300)
    EXPECT_EQ(TableText(),
              "L0,300>150,300 L150,300>150,200 A+150,200>450,200 L450,200>450,300 L450,300>600,300 "
              "L600,300>600,250 L600,250>500,250 L500,250>500,200 A-500,200>100,200 L100,200>100,250 "
              "L100,250>0,250 L0,250>0,300 9");
}

TEST_F(Development, TheShadowIsTheUntransformedPart)
{
    EXPECT_EQ(Develop("R-05"), 0);
    EXPECT_EQ(FirstDifference(AppState.ShadowElements, AppState.ElementTable), 0U);

    SetText(AppState.TextCutting[FieldAngle], "90");
    EXPECT_EQ(Develop("R-05"), 0); // the fields of the Cutting screen stay in force
    EXPECT_NEAR(AppState.MaxX, 300.0, 1e-9);
    EXPECT_NEAR(AppState.MaxY, 200.0, 1e-9);
    EXPECT_EQ(AppState.ShadowElements.at(1).StartX, 0.0);
    EXPECT_EQ(AppState.ShadowElements.at(1).StartY, 20.0);

    SetText(AppState.TextCutting[FieldScale], "2");
    EXPECT_EQ(Develop("R-05"), 0);
    EXPECT_NEAR(AppState.MaxX, 600.0, 1e-9);
    EXPECT_NEAR(AppState.ShadowElements.at(2).Length, 200.0, 1e-9);
    EXPECT_NEAR(Slot(2).Length, 400.0, 1e-9);
}

TEST_F(Development, LengthsAreMeasured)
{
    EXPECT_EQ(Develop("R-02", "R=0"), 0); // a hole of diameter 40, a plate of 200 by 300
    EXPECT_NEAR(AppState.ProfileTable.at(1).ProfileLength, 40 * 3.14159265358979, 1e-9);
    EXPECT_NEAR(AppState.ProfileTable.at(2).ProfileLength, 1000.0, 1e-9);
    EXPECT_NEAR(AppState.TotalCutLength, 1000.0 + 40 * 3.14159265358979, 1e-9);
    EXPECT_EQ(AppState.ProfileTable.at(1).CornerSnap, FlagOff); // class 2 of the hole
    EXPECT_EQ(AppState.ProfileTable.at(2).CornerSnap, FlagOn);  // class 0 of the plate
}

TEST_F(Development, NoNumberThatIsNoneLeaves)
{
    EXPECT_EQ(Develop("R-35", "Nx=1"),
              ErrBadShape); // the spacing divides by zero, and the first hole takes 0 of it
    EXPECT_EQ(Develop("R-35", "Nx=1; B=60"), ErrBadShape); // 0 / 0
    EXPECT_EQ(Develop("C-22", "B=0.001"), ErrBadShape);    // no chord at all
    EXPECT_EQ(Develop("C-22", "B=0"), ErrBadShape);
    EXPECT_EQ(Develop("C-22", "B=-300"), ErrBadShape);  // a profile without an element
    EXPECT_NE(Develop("R-05", "A=1e300; B=1e300"), 0);  // a distance that overflows
    EXPECT_EQ(Develop("C-01", "A=1e308"), ErrBadShape); // a length that does
}

TEST_F(Development, OneRowOfHolesNeedsNoSpacing)
{
    // Ny 1: bottom row and top row, nothing between them.
    EXPECT_EQ(Develop("R-35", "Ny=1; E=0"), 0);
    EXPECT_EQ(AppState.ProfileCount, 4 + 3 + 1);
    EXPECT_TRUE(AllFinite());
}

TEST_F(Development, WildValuesNeverGiveWildTables)
{
    std::mt19937 random(7);
    const double pool[] = {0.0, 0.1, 0.5, 1.0, 2.0, 10.0, 100.0, 1e5, 1e12, 1e200, -0.1, -1.0, -50.0, -1e9};
    for (const auto drawings : {DrawingsRect01To20(), DrawingsRect21To41(), DrawingsCircular(),
                                DrawingsHoles(), DrawingsOutside()}) {
        for (const ShapeDrawing& drawing : drawings) {
            for (int i = 0; i < 50; ++i) {
                FormulaNames names = DefaultNames(drawing);
                for (auto& [letter, value] : names) {
                    if (random() % 3 == 0) {
                        value = pool[random() % std::size(pool)];
                    }
                }
                try {
                    if (DevelopWith(drawing, names) == 0) {
                        ASSERT_TRUE(AllFinite()) << ValuesText(drawing, names);
                        ASSERT_GT(AppState.ElementCount, 1) << ValuesText(drawing, names);
                    }
                } catch (const RunTimeFault&) {
                    // More elements than the table holds: only the shapes with a count can ask for them.
                    const std::string name = drawing.Name;
                    ASSERT_TRUE(name == "R-35" || name == "C-03" || name == "C-22")
                        << ValuesText(drawing, names);
                }
            }
        }
    }
}

TEST_F(Development, MoreElementsThanTheTableHoldsAreAFault)
{
    EXPECT_THROW(Develop("R-35", "Nx=20000"), RunTimeFault);
    EXPECT_THROW(Develop("C-03", "Nr=1e9"), RunTimeFault);
    EXPECT_THROW(Develop("C-22", "P=0.001"), RunTimeFault);
    EXPECT_EQ(Develop("R-35", "Nx=4000; Ny=4000"), 0); // 15,996 holes: 31,992 records, window and plate
    EXPECT_EQ(AppState.ElementCount, 2 * 15996 + 5 + 5);
}

TEST_F(Development, CoordinatesEndAtAMillionBillion)
{
    EXPECT_EQ(Develop("R-05", "A=9e14; B=9e14"), 0); // an area of 8.1e29 is none of them
    EXPECT_EQ(Develop("R-05", "A=1.1e15"), ErrBadShape);
}

// --- senses -----------------------------------------------------------------------------------------------

TEST_F(Development, AHoleShapeIsCutInTheSenseOfAnInnerContour)
{
    EXPECT_EQ(Develop("C-02"), 0);
    EXPECT_EQ(AppState.WorkExternalSense, -1);
    EXPECT_EQ(AppState.WorkInternalSense, 1);
    EXPECT_EQ(Slot(4).Closing, -1);
    EXPECT_LT(Slot(3).GeoC, 0.0);
    for (const char* name : {"H-01", "H-02", "H-03"}) {
        EXPECT_EQ(Develop(name), 0) << name;
        EXPECT_EQ(AppState.WorkExternalSense, 1) << name;
        EXPECT_EQ(AppState.WorkInternalSense, -1) << name;
        const ProfileElement& mark = Slot(AppState.ElementCount);
        EXPECT_EQ(mark.Kind, KindOuterEnd) << name;
        EXPECT_EQ(mark.Closing, 1) << name;
        EXPECT_GT(mark.GeoB, 0.0) << name;
    }
}

TEST_F(Development, TheConfiguredSensesTurnTheContours)
{
    AppState.ExternalPathSense = 1;
    AppState.InternalPathSense = -1;
    EXPECT_EQ(Develop("C-02"), 0);
    EXPECT_LT(Slot(1).GeoC, 0.0);
    EXPECT_GT(Slot(3).GeoC, 0.0);
    EXPECT_EQ(Slot(1).Sense, -1);
    EXPECT_EQ(Slot(3).Sense, -1);
    EXPECT_EQ(Develop("H-01"), 0); // an inner contour again
    EXPECT_LT(Slot(1).GeoC, 0.0);
}

TEST_F(Development, TheInnerRingOfC24IsCutLikeAnOuterContour)
{
    EXPECT_EQ(Develop("C-24"), 0);
    EXPECT_EQ(AppState.ProfileCount, 4);
    int outer = 0;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        outer += Slot(i).Kind == KindOuterEnd ? 1 : 0;
    }
    EXPECT_EQ(outer, 1);
    EXPECT_LT(Slot(3).GeoC, 0.0); // clockwise, although it isn't the last
    EXPECT_EQ(Slot(3).Sense, 1);
    EXPECT_EQ(Slot(4).Sense, 1);
    EXPECT_GT(Slot(4).GeoB, 0.0); // so that the sense of an inner contour leaves it alone
    EXPECT_EQ(Slot(4).Closing, 1);
}

// --- flags ------------------------------------------------------------------------------------------------

TEST_F(Development, FlagsTellOpenAndTwinParts)
{
    const std::set<std::string> twins = {"R-41", "C-25", "C-26"};
    const std::set<std::string> strokes = {"R-39", "R-40"};
    for (const ShapeRow& row : ShapeCatalogue()) {
        for (const Flag before : {FlagOn, FlagOff}) {
            AppState.ShapeFlagTwin = before;
            AppState.OpenShapePart = before;
            AppState.NoKerfCodes = before;
            EXPECT_EQ(Develop(row.Name), 0) << row.Name;
            const bool twin = twins.count(row.Name) != 0;
            const bool stroke = strokes.count(row.Name) != 0;
            EXPECT_EQ(AppState.ShapeFlagTwin, ToFlag(twin)) << row.Name;
            EXPECT_EQ(AppState.OpenShapePart, ToFlag(twin || stroke)) << row.Name;
            EXPECT_EQ(AppState.NoKerfCodes, ToFlag(stroke)) << row.Name;
        }
    }
}

TEST_F(Development, AnImportDoesntInheritTheFlagsOfTheShapeBefore)
{
    for (const char* name : {"R-39", "C-25"}) {
        EXPECT_EQ(Develop(name), 0);
        ClearPart();
        PutBox(0, 0, 30, 40);
        PutEnd(KindOuterEnd);
        AppState.ShapeId = 0;
        EXPECT_TRUE(BuildCurrentPart());
        EXPECT_EQ(AppState.ShapeFlagTwin, FlagOff);
        EXPECT_EQ(AppState.OpenShapePart, FlagOff);
        EXPECT_EQ(AppState.NoKerfCodes, FlagOff);
    }
}

TEST_F(Development, OnlyTheOpenShapesAreOpen)
{
    const std::set<std::string> open = {"R-39", "R-40", "R-41", "C-25", "C-26"};
    for (const ShapeRow& row : ShapeCatalogue()) {
        EXPECT_EQ(Develop(row.Name), 0) << row.Name;
        for (const TableProfile& profile : ProfilesInTable()) {
            const bool isOuter = Slot(profile.Mark).Kind == KindOuterEnd;
            EXPECT_EQ(Slot(profile.Mark).GeoB == 0.0, isOuter && open.count(row.Name) != 0) << row.Name;
        }
    }
}

// --- lead data --------------------------------------------------------------------------------------------

TEST_F(Development, LeadDataGoesWithItsPart)
{
    EXPECT_EQ(Develop("R-20"), 0);
    InitLeadData();
    AppState.ProfileTable.at(2).LeadInLength = 77.0;
    EXPECT_EQ(Develop("R-20"), 0);
    EXPECT_EQ(AppState.ProfileTable.at(2).Status, LeadUnset);
    InitLeadData();
    EXPECT_EQ(AppState.ProfileTable.at(2).LeadInLength, 10.0);
}

TEST_F(Development, LeadDataOfTheSamePartIsKept)
{
    EXPECT_EQ(Develop("R-20"), 0);
    InitLeadData();
    AppState.ProfileTable.at(2).LeadInLength = 77.0;
    AppState.ProfileTable.at(2).LeadPosition = 5.0;
    AppState.KeepLeadData = FlagOn;
    EXPECT_EQ(Develop("R-20", "Di=30"), 0);
    InitLeadData();
    EXPECT_EQ(AppState.ProfileTable.size(), 6U);
    EXPECT_EQ(AppState.ProfileTable.at(2).LeadInLength, 77.0);
    EXPECT_EQ(AppState.ProfileTable.at(2).LeadPosition, 5.0);
    EXPECT_NEAR(AppState.ProfileTable.at(2).ProfileLength, 30 * 3.14159265358979, 1e-9); // measured anew
    AppState.MoveStep = 3.0;
    EXPECT_EQ(Develop("R-20"), 0);
    EXPECT_EQ(AppState.MoveStep, 3.0);
}

TEST_F(Development, AFailedTryKeepsTheLeadDataForTheNextOne)
{
    Open(1020); // four holes and the plate
    EXPECT_TRUE(BuildCurrentPart());
    InitLeadData();
    AppState.ProfileTable.at(4).LeadInLength = 77.0;
    AppState.KeepLeadData = FlagOn;
    SetText(AppState.ParamText[0], "0.05");
    EXPECT_FALSE(BuildCurrentPart()); // no profile at all
    SetText(AppState.ParamText[0], "250");
    EXPECT_TRUE(BuildCurrentPart());
    EXPECT_EQ(AppState.ProfileTable.size(), 6U);
    EXPECT_EQ(AppState.ProfileTable.at(4).LeadInLength, 77.0);

    AppState.KeepLeadData = FlagOff; // of a part that was newly opened nothing stays
    SetText(AppState.ParamText[0], "0.05");
    EXPECT_FALSE(BuildCurrentPart());
    EXPECT_EQ(AppState.ProfileTable.size(), 1U);
}

TEST_F(Development, KeptLeadDataFollowsTheCountOfProfiles)
{
    EXPECT_EQ(Develop("R-35", "Nx=4; Ny=3"), 0); // ten holes, window, plate
    InitLeadData();
    EXPECT_EQ(AppState.ProfileTable.size(), 13U);
    AppState.ProfileTable.at(12).LeadInLength = 66.0;
    AppState.ProfileTable.at(3).LeadInLength = 33.0;
    AppState.KeepLeadData = FlagOn;
    EXPECT_EQ(Develop("R-35", "Nx=3; Ny=2; E=0"), 0); // six holes and the plate
    EXPECT_EQ(AppState.ProfileTable.size(), 8U);
    EXPECT_EQ(Develop("R-35", "Nx=4; Ny=3"), 0);
    EXPECT_EQ(AppState.ProfileTable.size(), 13U);
    EXPECT_EQ(AppState.ProfileTable.at(3).LeadInLength, 33.0);
    EXPECT_EQ(AppState.ProfileTable.at(12).Status, LeadUnset); // dropped, and new again
    InitLeadData();
    EXPECT_EQ(AppState.ProfileTable.at(12).LeadInLength, 10.0);
}

TEST_F(Development, SidesStartOnTheLeft)
{
    EXPECT_EQ(Develop("R-20"), 0);
    InitLeadData();
    ToggleProfileSense(1);
    EXPECT_EQ(AppState.ProfileTable.at(1).Side, -1.0);
    AppState.KeepLeadData = FlagOn;
    EXPECT_EQ(Develop("R-20"), 0); // contours run in their own sense again
    EXPECT_EQ(AppState.ProfileTable.at(1).Side, 1.0);
    EXPECT_EQ(Slot(1).Sense, 1);
}

// --- the rounded rectangle --------------------------------------------------------------------------------

TEST_F(Development, ARoundedRectangleHasEightRecordsThatStateTheirEnds)
{
    std::int16_t err = 0;
    RoundedRectangle(100, 50, 60, 40, 5, err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(TableText(), "L75,30>125,30 A+125,30>130,35 L130,35>130,65 A+130,65>125,70 L125,70>75,70 "
                           "A+75,70>70,65 L70,65>70,35 A+70,35>75,30");
    EXPECT_EQ(Slot(2).GeoA, 125.0);
    EXPECT_EQ(Slot(2).GeoB, 35.0);
    EXPECT_EQ(Slot(2).GeoC, 5.0);
    EXPECT_EQ(Slot(0).EndX, 0.0); // untouched: the first end was given
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_EQ(Slot(1).Sense, 1);
}

TEST_F(Development, CornersOfARoundedRectangleMustFit)
{
    std::int16_t err = 0;
    RoundedRectangle(0, 0, 60, 10, 5, err); // as high as its corners
    EXPECT_EQ(err, ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 0);
    err = 0;
    RoundedRectangle(0, 0, 10, 60, 5, err); // as wide
    EXPECT_EQ(err, ErrBadShape);
    EXPECT_EQ(AppState.ElementCount, 0);
    err = 0;
    RoundedRectangle(0, 0, 10.0001, 10.0001, 5, err);
    EXPECT_EQ(err, 0);
    EXPECT_EQ(AppState.ElementCount, 8);
    err = 15;
    RoundedRectangle(0, 0, 20, 20, 5, err);
    EXPECT_EQ(err, 15);
}
