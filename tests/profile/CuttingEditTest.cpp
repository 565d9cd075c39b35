// The lead fields and keys of the Cutting screen.
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr double Near = 1e-9;

int Redraws = 0;

/// The part of a redraw that the routines rely on: the lead points are found.
void FindLeads(Flag)
{
    ++Redraws;
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        LeadRecordArray leads;
        BuildLeads(leads, profile);
    }
}

class CuttingEdit : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
        AppState.ScreenState = ScreenCutting;
        AppState.Redraw = FindLeads;
        Redraws = 0;
    }

    /// A closed triangle (3, 4, 5 long), an open angle, and the square around them.
    static void MakeThree(double profileClass = LibraryClass)
    {
        AddLines({{10, 10}, {14, 10}, {14, 13}, {10, 10}});
        AddEnd(KindEnd, 6, profileClass);
        AddLines({{30, 30}, {40, 30}, {40, 40}}, 0);
        AddEnd(KindEnd, 0, profileClass);
        AddLines({{0, 0}, {0, 100}, {100, 100}, {100, 0}, {0, 0}});
        AddEnd(KindOuterEnd, -10000, profileClass);
        MeasureProfiles(FlagOn);
        InitLeadData();
        SelectProfile(3, FlagOff);
        RedrawScreen(FlagOn);
        Redraws = 0;
    }

    static ProfileRecord& Record(std::size_t profile)
    {
        return AppState.ProfileTable[profile];
    }

    static std::string Text(CuttingField field)
    {
        return AppState.TextCutting[static_cast<std::size_t>(field)].Text;
    }

    static void Type(CuttingField field, const std::string& text)
    {
        AppState.TextCutting[static_cast<std::size_t>(field)].Text = text;
    }
};

// --- selection -----------------------------------------------------------------------------------------

TEST_F(CuttingEdit, SelectionWrapsAtBothEnds)
{
    MakeThree();
    EXPECT_FALSE(SelectProfile(2, FlagOff));
    EXPECT_EQ(AppState.CurrentProfile, 2);
    EXPECT_TRUE(SelectProfile(4, FlagOff));
    EXPECT_EQ(AppState.CurrentProfile, 1);
    EXPECT_TRUE(SelectProfile(0, FlagOff));
    EXPECT_EQ(AppState.CurrentProfile, 3);
    EXPECT_TRUE(SelectProfile(-5, FlagOff));
    EXPECT_EQ(AppState.CurrentProfile, 3);
    EXPECT_EQ(Redraws, 0);
    EXPECT_FALSE(SelectProfile(1, FlagOn));
    EXPECT_EQ(Redraws, 1);
    EXPECT_EQ(Text(FieldLeadInA), "10");
}

TEST_F(CuttingEdit, NothingToSelect)
{
    EXPECT_FALSE(SelectProfile(0, FlagOff));
    EXPECT_TRUE(SelectProfile(3, FlagOff));
    EXPECT_EQ(AppState.CurrentProfile, 0);
}

// --- fields --------------------------------------------------------------------------------------------

TEST_F(CuttingEdit, FieldsShowTheRecord)
{
    MakeThree();
    Record(3).LeadInLength = 7.25;
    Record(3).LeadInRadius = 2.999; // a nine in the first place cut away carries
    Record(3).LeadOutLength = 6.0;  // switched off
    Record(3).LeadOutArcOn = FlagOn;
    Record(3).LeadOutRadius = 0.5;
    AppState.MoveStep = 2.25;
    ShowProfileFields();
    EXPECT_EQ(Text(FieldLeadInA), "7.25");
    EXPECT_EQ(Text(FieldLeadInB), "3");
    EXPECT_EQ(Text(FieldLeadOutC), "0");
    EXPECT_EQ(Text(FieldLeadOutD), "0.5");
    EXPECT_EQ(Text(FieldMoveStep), "2.2");
    AppState.MoveStep = 0.0;
    ShowProfileFields();
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(Text(FieldMoveStep), "10");
}

TEST_F(CuttingEdit, WithoutAProfileTheFieldChoosesOne)
{
    MakeThree();
    AppState.CurrentProfile = 0;
    Type(FieldProfileNumber, "2");
    ShowProfileFields();
    EXPECT_EQ(AppState.CurrentProfile, 2);
    EXPECT_EQ(Text(FieldLeadInA), "0");
}

TEST_F(CuttingEdit, ValuesGoToRecordAndSettings)
{
    MakeThree();
    Type(FieldLeadInA, "7.5");
    Type(FieldLeadInB, "0");
    Type(FieldLeadOutC, ".5");
    Type(FieldLeadOutD, "3");
    Type(FieldMoveStep, "4");
    Record(3).LeadInAngle = 0.25;
    ApplyLeadValues();
    EXPECT_EQ(Record(3).LeadInLength, 7.5);
    EXPECT_EQ(Record(3).LeadInLineOn, FlagOn);
    EXPECT_EQ(Record(3).LeadInAngle, 0.25);
    EXPECT_EQ(Record(3).LeadInRadius, 0.0);
    EXPECT_EQ(Record(3).LeadInArcOn, FlagOff);
    EXPECT_EQ(Record(3).LeadOutLength, 0.5);
    EXPECT_EQ(Record(3).LeadOutLineOn, FlagOn);
    EXPECT_EQ(Record(3).LeadOutRadius, 3.0);
    EXPECT_EQ(Record(3).LeadOutArcOn, FlagOn);
    EXPECT_EQ(AppState.MoveStep, 4.0);
    EXPECT_EQ(Redraws, 1);
    EXPECT_EQ(Text(FieldLeadOutC), "0.5");
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_In", "10"), "7.5");
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_InRd", "5"), "5") << "a value of 0 isn't remembered";
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_Out", "0"), ".5");
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_OutRd", "0"), "3");
    EXPECT_EQ(Record(1).LeadInLength, 10.0) << "other profiles stay";
}

TEST_F(CuttingEdit, MoveStepOfNothingIsTen)
{
    MakeThree();
    for (const char* text : {"0", "-3", "", "x"}) {
        Type(FieldMoveStep, text);
        ApplyLeadValues();
        EXPECT_EQ(AppState.MoveStep, 10.0);
        EXPECT_EQ(Text(FieldMoveStep), "10");
    }
}

TEST_F(CuttingEdit, OpenProfileOfAnOpenShapeTakesNoLeads)
{
    MakeThree();
    SelectProfile(2, FlagOff);
    Type(FieldLeadInA, "5");
    Type(FieldLeadOutC, "5");
    AppState.OpenShapePart = FlagOn;
    ApplyLeadValues();
    EXPECT_EQ(Record(2).LeadInLineOn, FlagOff);
    EXPECT_EQ(Record(2).LeadInLength, 0.0);
    EXPECT_EQ(Text(FieldLeadInA), "0");
    AppState.OpenShapePart = FlagOff;
    Type(FieldLeadInA, "5");
    ApplyLeadValues();
    EXPECT_EQ(Record(2).LeadInLineOn, FlagOn);
    EXPECT_EQ(Record(2).LeadInLength, 5.0);
}

TEST_F(CuttingEdit, PartWithoutProfilesTakesNoKey)
{
    Type(FieldLeadInA, "5");
    ApplyLeadValues();
    MoveLead(1);
    MoveLeadNextElement();
    CopyLeadsToAll();
    ChangeProfilePath();
    MovePathCursor(1, 0);
    UpdatePathCursor();
    EXPECT_EQ(Redraws, 0);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff);
    EXPECT_EQ(ReadConfig("Lead_CONFIG", "L_In", "10"), "10");
}

// --- moving the lead -----------------------------------------------------------------------------------

TEST_F(CuttingEdit, LeadMovesByTheStepAndWraps)
{
    MakeThree();
    MoveLead(1);
    EXPECT_EQ(Record(3).LeadPosition, 20.0);
    Record(3).LeadPosition = 390.0;
    MoveLead(1);
    EXPECT_EQ(Record(3).LeadPosition, 0.0) << "at the end is past it";
    MoveLead(-1);
    EXPECT_EQ(Record(3).LeadPosition, 390.0);
    Record(3).LeadPosition = 395.0;
    MoveLead(1);
    EXPECT_EQ(Record(3).LeadPosition, 5.0);
    MoveLead(-1);
    EXPECT_EQ(Record(3).LeadPosition, 395.0);
    EXPECT_EQ(Redraws, 5);
    EXPECT_EQ(Record(1).LeadPosition, 10.0);
}

TEST_F(CuttingEdit, LeadGoesOneUnitIntoTheNextElement)
{
    MakeThree();
    SelectProfile(1, FlagOff); // sides of 4, 3 and 5
    Record(1).LeadPosition = 2.0;
    RedrawScreen(FlagOn);
    MoveLeadNextElement();
    EXPECT_NEAR(Record(1).LeadPosition, 5.0, Near);
    MoveLeadNextElement();
    EXPECT_NEAR(Record(1).LeadPosition, 8.0, Near);
    MoveLeadNextElement();
    EXPECT_EQ(Record(1).LeadPosition, 0.0) << "behind the last element comes the first point";
    MoveLeadNextElement();
    EXPECT_NEAR(Record(1).LeadPosition, 5.0, Near);
}

TEST_F(CuttingEdit, ALastElementOneUnitLongIsEnteredInItsMiddle)
{
    AddLines({{0, 0}, {4, 0}, {4, 1}, {0, 1}, {0, 0}});
    AddEnd(KindOuterEnd, 4, LibraryClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
    SelectProfile(1, FlagOff);
    Record(1).LeadPosition = 6.0; // on the third side, which ends at 9
    RedrawScreen(FlagOn);
    MoveLeadNextElement();
    // 10 isn't above the length, so it stands past the end, whose rule gives the middle and half the length.
    EXPECT_EQ(Record(1).LeadElement, 4);
    EXPECT_NEAR(Record(1).LeadPosition, 0.5, Near);
}

TEST_F(CuttingEdit, NextElementOfALaterProfileCountsFromItsOwnStart)
{
    MakeThree();
    MoveLeadNextElement();
    EXPECT_NEAR(Record(3).LeadPosition, 101.0, Near);
    Record(3).LeadElement = 1; // of another profile, as before its first redraw
    MoveLeadNextElement();
    EXPECT_NEAR(Record(3).LeadPosition, 101.0, Near);
}

// --- all profiles, and their sense -----------------------------------------------------------------------

TEST_F(CuttingEdit, LeadsAreCopiedWithoutThePosition)
{
    MakeThree();
    ProfileRecord& from = Record(3);
    from.LeadInLength = 1.5;
    from.LeadInAngle = 0.1;
    from.LeadInArcOn = FlagOff;
    from.LeadInRadius = 0.0;
    from.LeadOutLineOn = FlagOn;
    from.LeadOutLength = 2.5;
    from.LeadOutAngle = 0.2;
    from.LeadOutArcOn = FlagOn;
    from.LeadOutRadius = 3.5;
    from.LeadPosition = 200.0;
    from.Side = -1.0;
    from.Status = LeadStraight;
    CopyLeadsToAll();
    for (const std::size_t profile : {1U, 2U, 3U}) {
        const ProfileRecord& record = Record(profile);
        EXPECT_EQ(record.LeadInLength, 1.5);
        EXPECT_EQ(record.LeadInAngle, 0.1);
        EXPECT_EQ(record.LeadInLineOn, FlagOn);
        EXPECT_EQ(record.LeadInArcOn, FlagOff);
        EXPECT_EQ(record.LeadInRadius, 0.0);
        EXPECT_EQ(record.LeadOutLength, 2.5);
        EXPECT_EQ(record.LeadOutAngle, 0.2);
        EXPECT_EQ(record.LeadOutLineOn, FlagOn);
        EXPECT_EQ(record.LeadOutRadius, 3.5);
        EXPECT_EQ(record.LeadOutArcOn, FlagOn);
        EXPECT_EQ(record.Status, LeadStraight);
        EXPECT_EQ(record.RecordNumber, static_cast<std::int16_t>(profile));
    }
    EXPECT_EQ(Record(1).LeadPosition, 10.0);
    EXPECT_EQ(Record(2).LeadPosition, 0.0);
    EXPECT_EQ(Record(1).Side, 1.0);
}

TEST_F(CuttingEdit, PathChangeTurnsTheProfileAndItsSide)
{
    MakeThree();
    ChangeProfilePath();
    EXPECT_EQ(Record(3).Side, -1.0);
    EXPECT_EQ(AppState.ElementTable[8].StartX, 0.0);
    EXPECT_EQ(AppState.ElementTable[8].EndX, 100.0);
    EXPECT_EQ(AppState.ElementTable[12].GeoB, 10000.0);
    EXPECT_EQ(Redraws, 1);
    ChangeProfilePath();
    EXPECT_EQ(Record(3).Side, 1.0);
    EXPECT_EQ(AppState.ElementTable[12].GeoB, -10000.0);
}

TEST_F(CuttingEdit, PathChangeOfAnOpenProfile)
{
    MakeThree();
    SelectProfile(2, FlagOff);
    AppState.OpenShapePart = FlagOn;
    ChangeProfilePath();
    EXPECT_EQ(AppState.ElementTable[5].StartX, 30.0);
    EXPECT_EQ(Redraws, 0);
    AppState.OpenShapePart = FlagOff;
    ChangeProfilePath();
    EXPECT_EQ(AppState.ElementTable[5].StartX, 40.0);
    EXPECT_EQ(AppState.ElementTable[5].StartY, 40.0);
    EXPECT_EQ(Record(2).Side, 1.0) << "only closed profiles negate it";
    EXPECT_EQ(Redraws, 1);
}

// --- path cursor -----------------------------------------------------------------------------------------

class PathCursor : public CuttingEdit
{
protected:
    static constexpr std::int16_t Ctrl = 2;

    /// The square entered at its corner (0, 0) by a straight lead of 15: 415 in all.
    static void MakePath()
    {
        MakeSquare(ImportedClass);
        SelectProfile(1, FlagOff);
    }

    static void ExpectAt(double distance, double x, double y)
    {
        EXPECT_NE(AppState.PathOriginSet, FlagOff);
        EXPECT_NEAR(AppState.PathCursorDistance, distance, Near);
        EXPECT_NEAR(AppState.PathOriginX, x, Near);
        EXPECT_NEAR(AppState.PathOriginY, y, Near);
    }
};

TEST_F(PathCursor, FirstUseStandsAtTheStart)
{
    MakePath();
    MovePathCursor(-1, Ctrl);
    ExpectAt(0, -15, 0);
    EXPECT_EQ(AppState.PathCursorProfile, 1);
    EXPECT_EQ(Redraws, 1);
}

TEST_F(PathCursor, StepsAlongLeadAndContour)
{
    MakePath();
    MovePathCursor(1, 0);
    MovePathCursor(1, 0);
    ExpectAt(10, -5, 0);
    MovePathCursor(1, 0);
    ExpectAt(20, 5, 0);
    AppState.MoveStep = 100.0;
    MovePathCursor(1, 0);
    ExpectAt(120, 100, 5);
    MovePathCursor(-1, 0);
    ExpectAt(20, 5, 0);
    AppState.MoveStep = 95.0; // exactly onto the corner
    MovePathCursor(1, 0);
    ExpectAt(115, 100, 0);
}

TEST_F(PathCursor, CtrlGoesToTheEnds)
{
    MakePath();
    MovePathCursor(1, 0);
    MovePathCursor(1, Ctrl);
    ExpectAt(415, 0, 0);
    MovePathCursor(-1, 0);
    ExpectAt(405, 0, 10);
    MovePathCursor(-1, Ctrl);
    ExpectAt(0, -15, 0);
    MovePathCursor(1, 3); // Ctrl with another key is no Ctrl
    ExpectAt(10, -5, 0);
}

TEST_F(PathCursor, BelowTheStartItGoesOff)
{
    MakePath();
    MovePathCursor(1, 0);
    MovePathCursor(-1, 0);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff);
    EXPECT_EQ(Redraws, 2);
    MovePathCursor(-1, 0);
    ExpectAt(0, -15, 0);
}

TEST_F(PathCursor, RunsOnArcsEitherWay)
{
    for (const double radius : {10.0, -10.0}) {
        StartCase();
        HoldConfigWrites();
        MakeCircle(radius, ImportedClass);
        SelectProfile(1, FlagOff);
        AppState.ProfileTable[1].LeadInLineOn = FlagOff;
        AppState.ProfileTable[1].LeadInArcOn = FlagOff;
        AppState.ProfileTable[1].LeadPosition = 0.0;
        MovePathCursor(1, 0);
        AppState.MoveStep = 5.0;
        MovePathCursor(1, 0); // half a radian
        ExpectAt(5, 10 + 10 * std::cos(0.5), 10 + (radius > 0 ? 10 : -10) * std::sin(0.5));
        MovePathCursor(1, Ctrl);
        EXPECT_NEAR(AppState.PathCursorDistance, 20 * Pi, 1e-6);
    }
}

TEST_F(PathCursor, LeadOutBelongsToThePath)
{
    MakePath();
    AppState.ProfileTable[1].LeadOutLineOn = FlagOn;
    AppState.ProfileTable[1].LeadOutLength = 6.0;
    MovePathCursor(1, 0);
    MovePathCursor(1, Ctrl);
    ExpectAt(421, 0, -6);
}

TEST_F(PathCursor, EmptyProfileHasOnePlace)
{
    AddElement(KindOuterEnd, 7, 8, 0, 0, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    SelectProfile(1, FlagOff);
    MovePathCursor(1, 0);
    MovePathCursor(1, Ctrl);
    ExpectAt(0, 7, 8);
}

// --- fit of the view -------------------------------------------------------------------------------------

TEST(View, FitsThePart)
{
    StartCase(); // a picture of 640 x 480
    AppState.MaxX = 300;
    AppState.MaxY = 100;
    FitView(Picture::Tecno, 0, 0);
    EXPECT_EQ(AppState.PartSizeX, 300);
    EXPECT_EQ(AppState.PartSizeY, 100);
    // 3 to 1 is wider than 4 to 3: from -30 to 315 in X, 345 * 3 / 4 in Y, the top 10 below that height.
    EXPECT_NEAR(AppState.ViewLeft, -30, Near);
    EXPECT_NEAR(AppState.ViewWidth, 345, Near);
    EXPECT_NEAR(AppState.ViewHeight, -258.75, Near);
    EXPECT_NEAR(AppState.ViewTop, 248.75, Near);
    EXPECT_NEAR(AppState.UnitsPerPixelX, 345.0 / 640, Near);
    EXPECT_NEAR(AppState.UnitsPerPixelY, -345.0 / 640, Near);
    EXPECT_NEAR(AppState.ViewCentreX, 142.5, Near);
    EXPECT_NEAR(AppState.ViewCentreY, 248.75 - 129.375, Near);
}

TEST(View, FitsABoxTallerThanThePicture)
{
    StartCase();
    AppState.MaxX = 30;
    AppState.MaxY = 20;
    FitView(Picture::Tecno, 100, 200);
    // From -2 to 210 in Y, 212 * 4 / 3 in X, from -3 on.
    EXPECT_NEAR(AppState.ViewHeight, -212, Near);
    EXPECT_NEAR(AppState.ViewTop, 210, Near);
    EXPECT_NEAR(AppState.ViewWidth, 212 * 4 / 3.0, Near);
    EXPECT_NEAR(AppState.ViewLeft, -3, Near);
    FitView(Picture::Tecno, 100, 0); // half a box is none
    EXPECT_NEAR(AppState.ViewLeft + AppState.ViewWidth, 1.05 * 30, Near);
}

TEST(View, NothingToFitGivesNoNaN)
{
    StartCase();
    Screen.PictureWidth = 0;
    Screen.PictureHeight = 0;
    FitView(Picture::Tecno, 0, 0);
    EXPECT_EQ(AppState.ViewWidth, 0.0);
    EXPECT_EQ(AppState.UnitsPerPixelX, 0.0);
    EXPECT_FALSE(std::isnan(AppState.UnitsPerPixelY));
}
} // namespace
