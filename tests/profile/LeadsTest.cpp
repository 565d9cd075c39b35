// Lead records: defaults, the lead point on the contour, and the lead geometry. A square and a circle carry them, so
// that each value can be read off the drawing.
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
constexpr double Near = 1e-9;

class Leads : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
        HoldConfigWrites();
    }

    void Find(std::int32_t profile = 1)
    {
        FindLeadPoint(InX, InY, OutX, OutY, Tangent,
                      AppState.ProfileTable[static_cast<std::size_t>(profile)].LeadPosition, profile);
    }

    void Build(std::int32_t profile = 1)
    {
        BuildLeads(Records, profile);
    }

    static ProfileRecord& Record(std::size_t profile = 1)
    {
        return AppState.ProfileTable[profile];
    }

    double InX = -1;
    double InY = -1;
    double OutX = -1;
    double OutY = -1;
    double Tangent = -1;
    LeadRecordArray Records;
};

void ExpectPlace(const CutMove& record, std::int16_t kind, double x, double y)
{
    EXPECT_EQ(record.Kind, kind);
    EXPECT_NEAR(record.X, x, Near);
    EXPECT_NEAR(record.Y, y, Near);
}

void ExpectArc(const CutMove& record, double x, double y, double centreX, double centreY, double radius)
{
    ExpectPlace(record, KindArc, x, y);
    EXPECT_NEAR(record.CentreX, centreX, Near);
    EXPECT_NEAR(record.CentreY, centreY, Near);
    EXPECT_NEAR(record.Radius, radius, Near);
}

/// The lead-in or lead-out of a record, in one call.
void SetLead(Flag& lineOn, double& length, Flag& arcOn, double& radius, double newLength, double newRadius)
{
    length = newLength;
    lineOn = ToFlag(newLength > 0);
    radius = newRadius;
    arcOn = ToFlag(newRadius > 0);
}

void SetLeadIn(ProfileRecord& record, double length, double radius)
{
    SetLead(record.LeadInLineOn, record.LeadInLength, record.LeadInArcOn, record.LeadInRadius, length,
            radius);
}

void SetLeadOut(ProfileRecord& record, double length, double radius)
{
    SetLead(record.LeadOutLineOn, record.LeadOutLength, record.LeadOutArcOn, record.LeadOutRadius, length,
            radius);
}

// --- defaults ------------------------------------------------------------------------------------------

TEST_F(Leads, ClosedProfileStartsWithTheSettings)
{
    MakeSquare(ImportedClass);
    const ProfileRecord& record = Record();
    EXPECT_EQ(record.Status, LeadNormal);
    EXPECT_EQ(record.RecordNumber, 1);
    EXPECT_EQ(record.LeadElement, 1);
    EXPECT_EQ(record.LeadPosition, 10.0);
    EXPECT_EQ(record.Side, 1.0);
    EXPECT_EQ(record.LeadInLength, 10.0);
    EXPECT_EQ(record.LeadInRadius, 5.0);
    EXPECT_EQ(record.LeadOutLength, 0.0);
    EXPECT_EQ(record.LeadOutRadius, 0.0);
    EXPECT_EQ(record.LeadInLineOn, FlagOn);
    EXPECT_EQ(record.LeadInArcOn, FlagOn);
    EXPECT_EQ(record.LeadOutLineOn, FlagOff);
    EXPECT_EQ(record.LeadOutArcOn, FlagOff);
    EXPECT_EQ(record.ProfileLength, 400.0) << "the measured length stays";
    EXPECT_EQ(record.CornerSnap, FlagOn);
}

TEST_F(Leads, SettingsOfTheStationAreTheDefaults)
{
    WriteConfig("Lead_CONFIG", "L_In", "7.5");
    WriteConfig("Lead_CONFIG", "L_InRd", "0");
    WriteConfig("Lead_CONFIG", "L_Out", "2");
    WriteConfig("Lead_CONFIG", "L_OutRd", "3");
    AppState.InternalPathSense = -1;
    MakeSquare(ImportedClass);
    const ProfileRecord& record = Record();
    EXPECT_EQ(record.LeadInLength, 7.5);
    EXPECT_EQ(record.LeadInRadius, 0.0);
    EXPECT_EQ(record.LeadInArcOn, FlagOn) << "the lead-in is switched on whatever its size";
    EXPECT_EQ(record.LeadOutLength, 2.0);
    EXPECT_EQ(record.LeadOutLineOn, FlagOn);
    EXPECT_EQ(record.LeadOutRadius, 3.0);
    EXPECT_EQ(record.LeadOutArcOn, FlagOn);
    EXPECT_EQ(record.Side, -1.0);
}

TEST_F(Leads, SettingsBelowZeroCountAsZero)
{
    WriteConfig("Lead_CONFIG", "L_In", "-4");
    WriteConfig("Lead_CONFIG", "L_OutRd", "-3");
    MakeSquare(ImportedClass);
    EXPECT_EQ(Record().LeadInLength, 0.0);
    EXPECT_EQ(Record().LeadOutRadius, 0.0);
    EXPECT_EQ(Record().LeadOutArcOn, FlagOff);
}

TEST_F(Leads, OpenProfileStartsWithoutLeads)
{
    MakeOpenAngle();
    const ProfileRecord& record = Record();
    EXPECT_EQ(record.Status, LeadNormal);
    EXPECT_EQ(record.LeadPosition, 0.0);
    EXPECT_EQ(record.LeadInLineOn, FlagOn);
    EXPECT_EQ(record.LeadInLength, 0.0);
    EXPECT_EQ(record.LeadInArcOn, FlagOff);
    EXPECT_EQ(record.LeadInRadius, 0.0);
    EXPECT_EQ(record.LeadOutLineOn, FlagOff);
    EXPECT_EQ(record.LeadOutArcOn, FlagOff);
}

TEST_F(Leads, InitialisedRecordStays)
{
    MakeSquare(ImportedClass);
    Record().LeadInLength = 3.0;
    Record().LeadPosition = 77.0;
    InitProfileRecord(1);
    InitLeadData();
    EXPECT_EQ(Record().LeadInLength, 3.0);
    EXPECT_EQ(Record().LeadPosition, 77.0);
    Record().Status = LeadUnset;
    InitProfileRecord(1);
    EXPECT_EQ(Record().LeadInLength, 10.0);
    EXPECT_EQ(Record().LeadPosition, 10.0);
}

// --- the lead point ------------------------------------------------------------------------------------

TEST_F(Leads, PointOnALine)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = 130.0; // 30 up the right side
    Find();
    EXPECT_NEAR(InX, 100.0, Near);
    EXPECT_NEAR(InY, 30.0, Near);
    EXPECT_EQ(OutX, InX);
    EXPECT_EQ(OutY, InY);
    EXPECT_NEAR(Tangent, Pi / 2, Near);
    EXPECT_EQ(Record().Status, LeadNormal);
    EXPECT_EQ(Record().LeadElement, 2);
}

TEST_F(Leads, PositionAtTheEndOfAnElementFallsOnTheNext)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = 100.0;
    Find();
    EXPECT_NEAR(InX, 100.0, Near);
    EXPECT_NEAR(InY, 0.0, Near);
    EXPECT_EQ(Record().LeadElement, 2);
    EXPECT_EQ(Record().Status, LeadNormal) << "a library shape keeps its arc at a corner";
}

TEST_F(Leads, PointOnACounterClockwiseArc)
{
    MakeCircle(10.0); // 10 along a radius of 10 is one radian
    Find();
    EXPECT_NEAR(InX, 10.0 + 10.0 * std::cos(1.0), Near);
    EXPECT_NEAR(InY, 10.0 + 10.0 * std::sin(1.0), Near);
    EXPECT_NEAR(Tangent, 1.0 + Pi / 2, Near);
}

TEST_F(Leads, PointOnAClockwiseArc)
{
    MakeCircle(-10.0);
    Find();
    EXPECT_NEAR(InX, 10.0 + 10.0 * std::cos(1.0), Near);
    EXPECT_NEAR(InY, 10.0 - 10.0 * std::sin(1.0), Near);
    EXPECT_NEAR(std::remainder(Tangent - (-1.0 - Pi / 2), 2 * Pi), 0.0, Near);
}

TEST_F(Leads, PastTheEndIsTheMiddleOfTheLastElement)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = 400.0; // the end itself is past it
    Find();
    EXPECT_NEAR(InX, 0.0, Near);
    EXPECT_NEAR(InY, 50.0, Near);
    EXPECT_EQ(Record().LeadElement, 4);
    EXPECT_EQ(Record().LeadPosition, 50.0) << "the half length as it stands";
    Find();
    EXPECT_NEAR(InX, 50.0, Near) << "which is a place on the first side the next time";
    EXPECT_NEAR(InY, 0.0, Near);
    EXPECT_EQ(Record().LeadElement, 1);
}

TEST_F(Leads, PastTheEndAfterASmallerScale)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = 390.0;
    for (ProfileElement& element : AppState.ElementTable) {
        element.StartX /= 2;
        element.StartY /= 2;
    }
    MeasureProfiles(FlagOff);
    Find();
    EXPECT_NEAR(InX, 0.0, Near);
    EXPECT_NEAR(InY, 25.0, Near);
    EXPECT_EQ(Record().LeadPosition, 25.0);
}

TEST_F(Leads, ImportedCornerTakesTheLead)
{
    MakeSquare(ImportedClass);
    Record().LeadPosition = 114.9; // 14.9 behind the corner (100, 0); the bound is 1.5 steps of 10
    Find();
    EXPECT_EQ(InX, 100.0);
    EXPECT_NEAR(InY, 0.0, Near);
    EXPECT_EQ(Record().Status, LeadStraight);
    EXPECT_EQ(Record().LeadElement, 2);
    EXPECT_EQ(Record().LeadPosition, 114.9) << "the position itself stays";

    Record().LeadPosition = 115.0;
    Find();
    EXPECT_NEAR(InY, 15.0, Near);
    EXPECT_EQ(Record().Status, LeadNormal);

    AppState.MoveStep = 11.0;
    Find();
    EXPECT_EQ(Record().Status, LeadStraight) << "the bound follows the step";
}

TEST_F(Leads, CornerIsTakenOnlyFromBehind)
{
    MakeSquare(ImportedClass);
    Record().LeadPosition = 99.0; // one unit ahead of the corner
    Find();
    EXPECT_NEAR(InX, 99.0, Near);
    EXPECT_EQ(Record().Status, LeadNormal);
}

TEST_F(Leads, PositionBeforeTheStartStaysOnTheContour)
{
    MakeSquare(LibraryClass);
    Record().LeadPosition = -30.0;
    Find();
    EXPECT_NEAR(InX, 0.0, Near);
    EXPECT_NEAR(InY, 30.0, Near);
    Record().LeadPosition = -800.0;
    Find();
    EXPECT_NEAR(InX, 0.0, Near);
    EXPECT_NEAR(InY, 0.0, Near);
    Record().LeadPosition = -1e-300;
    Find();
    EXPECT_NEAR(InX, 0.0, Near);
    EXPECT_NEAR(InY, 0.0, Near);
}

TEST_F(Leads, OpenProfileIsEnteredAtItsFirstPoint)
{
    MakeOpenAngle();
    Record().LeadPosition = 33.0; // no matter
    Find();
    EXPECT_EQ(InX, 0.0);
    EXPECT_EQ(InY, 0.0);
    EXPECT_EQ(OutX, 50.0);
    EXPECT_EQ(OutY, 30.0);
    EXPECT_EQ(Tangent, 0.0);
    EXPECT_EQ(Record().Status, LeadStraight);
    EXPECT_EQ(Record().LeadElement, 1);
}

TEST_F(Leads, SecondProfileIsFoundBehindTheFirst)
{
    MakeSquare(LibraryClass);
    AppState.ElementTable[5].Kind = KindEnd;
    AddLines({{20, 20}, {20, 30}, {40, 30}, {20, 20}});
    AddEnd(KindOuterEnd, -100, LibraryClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Record(2).LeadPosition = 5.0;
    Find(2);
    EXPECT_NEAR(InX, 20.0, Near);
    EXPECT_NEAR(InY, 25.0, Near);
    EXPECT_EQ(Record(2).LeadElement, 6);
}

// --- lead geometry, both ends on -------------------------------------------------------------------------

TEST_F(Leads, SquareWithDefaults)
{
    MakeSquare(LibraryClass);
    Build();
    // At (10, 0), travelling in +x, leads on the left: centre 5 above, arc from (5, 5), line from 10 above that.
    ExpectPlace(Records[1], KindLine, 5.0, 15.0);
    ExpectArc(Records[2], 5.0, 5.0, 10.0, 5.0, 5.0);
    ExpectPlace(Records[3], KindEnd, 10.0, 0.0);
    ExpectPlace(Records[4], KindEnd, 10.0, 0.0);
    EXPECT_EQ(Records[5].Kind, 0);
    EXPECT_EQ(Records[6].Kind, 0);
}

TEST_F(Leads, SideTurnsThemOver)
{
    MakeSquare(LibraryClass);
    Record().Side = -1.0;
    SetLeadOut(Record(), 4.0, 3.0);
    Build();
    ExpectPlace(Records[1], KindLine, 5.0, -15.0);
    ExpectArc(Records[2], 5.0, -5.0, 10.0, -5.0, -5.0);
    ExpectPlace(Records[3], KindEnd, 10.0, 0.0);
    ExpectArc(Records[4], 10.0, 0.0, 10.0, -3.0, -3.0);
    ExpectPlace(Records[5], KindLine, 13.0, -3.0);
    ExpectPlace(Records[6], KindEnd, 13.0, -7.0);
}

TEST_F(Leads, LeadInOfALineOnly)
{
    MakeSquare(LibraryClass);
    SetLeadIn(Record(), 6.0, 0.0);
    Build();
    ExpectPlace(Records[1], KindLine, 10.0, 6.0);
    ExpectPlace(Records[2], KindEnd, 10.0, 0.0);
    EXPECT_EQ(Records[3].Kind, 0);
}

TEST_F(Leads, LeadInOfAnArcOnly)
{
    MakeSquare(LibraryClass);
    SetLeadIn(Record(), 0.0, 6.0);
    Build();
    ExpectArc(Records[1], 4.0, 6.0, 10.0, 6.0, 6.0);
    ExpectPlace(Records[2], KindEnd, 10.0, 0.0);
    EXPECT_EQ(Records[3].Kind, 0);
}

TEST_F(Leads, NoLeadInIsALineWithoutLength)
{
    MakeSquare(LibraryClass);
    SetLeadIn(Record(), 0.0, 0.0);
    Build();
    ExpectPlace(Records[1], KindLine, 10.0, 0.0);
    ExpectPlace(Records[2], KindEnd, 10.0, 0.0);
    EXPECT_EQ(Records[3].Kind, 0);
}

TEST_F(Leads, LeadOutOfALineOnlyIsSquareToTheContour)
{
    MakeSquare(LibraryClass);
    SetLeadOut(Record(), 4.0, 0.0);
    Build();
    ExpectPlace(Records[4], KindLine, 10.0, 0.0);
    ExpectPlace(Records[5], KindEnd, 10.0, 4.0);
    EXPECT_EQ(Records[6].Kind, 0);
}

TEST_F(Leads, LeadOutOfAnArcOnly)
{
    MakeSquare(LibraryClass);
    SetLeadOut(Record(), 0.0, 3.0);
    Build();
    ExpectArc(Records[4], 10.0, 0.0, 10.0, 3.0, 3.0);
    ExpectPlace(Records[5], KindEnd, 13.0, 3.0);
    EXPECT_EQ(Records[6].Kind, 0);
}

TEST_F(Leads, AnglesTurnTheStraightPieces)
{
    MakeSquare(LibraryClass);
    SetLeadIn(Record(), 2.0, 0.0);
    SetLeadOut(Record(), 2.0, 0.0);
    Record().LeadInAngle = Pi / 6;
    Record().LeadOutAngle = Pi / 6;
    Build();
    // 120 and 60 degrees from the travel: mirror images about the normal.
    ExpectPlace(Records[1], KindLine, 9.0, std::sqrt(3.0));
    ExpectPlace(Records[5], KindEnd, 11.0, std::sqrt(3.0));
    Record().Side = -1.0;
    Build();
    ExpectPlace(Records[1], KindLine, 9.0, -std::sqrt(3.0));
    ExpectPlace(Records[5], KindEnd, 11.0, -std::sqrt(3.0));
}

TEST_F(Leads, ArcTooSmallToBeOneCountsAsOff)
{
    MakeSquare(LibraryClass);
    Record().LeadInRadius = 0.0; // switched on by the settings
    Record().LeadOutArcOn = FlagOn;
    Record().LeadOutRadius = 0.009;
    Build();
    ExpectPlace(Records[1], KindLine, 10.0, 10.0);
    ExpectPlace(Records[2], KindEnd, 10.0, 0.0);
    ExpectPlace(Records[4], KindEnd, 10.0, 0.0);
    EXPECT_EQ(Records[5].Kind, 0);
}

TEST_F(Leads, NothingOfAnEarlierBuildRemains)
{
    MakeSquare(LibraryClass);
    SetLeadOut(Record(), 4.0, 3.0);
    Build();
    SetLeadIn(Record(), 0.0, 0.0);
    SetLeadOut(Record(), 0.0, 0.0);
    Build();
    EXPECT_EQ(Records[3].Kind, 0);
    EXPECT_EQ(Records[5].Kind, 0);
    EXPECT_EQ(Records[6].Kind, 0);
    EXPECT_EQ(Records[2].Radius, 0.0);
}

// --- straight leads --------------------------------------------------------------------------------------

TEST_F(Leads, CornerGetsOneStraightPiece)
{
    MakeSquare(ImportedClass); // 10 is within 15 of the first corner
    SetLeadOut(Record(), 3.0, 2.0);
    Build();
    ExpectPlace(Records[1], KindLine, -15.0, 0.0); // A + B along the tangent
    ExpectPlace(Records[2], KindEnd, 0.0, 0.0);
    EXPECT_EQ(Records[3].Kind, 0);
    ExpectPlace(Records[4], KindLine, 0.0, 0.0);
    ExpectPlace(Records[5], KindEnd, 0.0, -5.0); // the last side arrives downwards
    EXPECT_EQ(Records[6].Kind, 0);
}

TEST_F(Leads, CornerBehindAnotherElementLeavesInItsDirection)
{
    MakeSquare(ImportedClass);
    Record().LeadPosition = 101.0; // corner (100, 0), reached in +x, left in +y
    SetLeadIn(Record(), 4.0, 0.0);
    SetLeadOut(Record(), 0.0, 2.0);
    Build();
    ExpectPlace(Records[1], KindLine, 100.0, -4.0);
    ExpectPlace(Records[2], KindEnd, 100.0, 0.0);
    ExpectPlace(Records[5], KindEnd, 102.0, 0.0);
}

TEST_F(Leads, CornerOfALaterProfileIsReachedFromItsOwnLastElement)
{
    MakeSquare(ImportedClass);
    AppState.ElementTable[5].Kind = KindEnd;
    AddLines({{20, 20}, {20, 30}, {40, 30}, {20, 20}});
    AddEnd(KindOuterEnd, -100, ImportedClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Record(2).LeadPosition = 5.0;
    SetLeadOut(Record(2), 5.0, 0.0);
    Build(2);
    EXPECT_EQ(Record(2).LeadElement, 6);
    ExpectPlace(Records[4], KindLine, 20.0, 20.0);
    // It comes from (40, 30): 5 on along (-2, -1) / sqrt(5), whatever profile stands ahead in the table.
    ExpectPlace(Records[5], KindEnd, 20.0 - 2 * std::sqrt(5.0), 20.0 - std::sqrt(5.0));
}

TEST_F(Leads, ArcArrivesAlongItsTangent)
{
    // Half disc: line (0, 0) to (20, 0), arc back over (10, 10).
    AddLines({{0, 0}, {20, 0}});
    AddArc({20, 0}, {0, 0}, {10, 0}, 10.0);
    AddEnd(KindOuterEnd, 50 * Pi);
    MeasureProfiles(FlagOn);
    InitLeadData();
    SetLeadOut(Record(), 3.0, 0.0);
    Build();
    ExpectPlace(Records[2], KindEnd, 0.0, 0.0);
    ExpectPlace(Records[5], KindEnd, 0.0, -3.0);
}

TEST_F(Leads, SwitchedOffPiecesDoNotCount)
{
    MakeSquare(ImportedClass);
    Record().LeadInArcOn = FlagOff; // its radius of 5 stays in the record
    Record().LeadOutLength = 9.0;
    Build();
    ExpectPlace(Records[1], KindLine, -10.0, 0.0);
    ExpectPlace(Records[4], KindEnd, 0.0, 0.0);
}

TEST_F(Leads, StraightLeadBelowTheToleranceIsNone)
{
    MakeSquare(ImportedClass);
    SetLeadIn(Record(), 0.009, 0.0);
    SetLeadOut(Record(), 0.009, 0.0);
    Build();
    ExpectPlace(Records[1], KindEnd, 0.0, 0.0);
    EXPECT_EQ(Records[2].Kind, 0);
    ExpectPlace(Records[4], KindEnd, 0.0, 0.0);
    EXPECT_EQ(Records[5].Kind, 0);
    SetLeadIn(Record(), 0.01, 0.0);
    Build();
    ExpectPlace(Records[1], KindLine, -0.01, 0.0);
}

TEST_F(Leads, OpenProfileLeavesBehindItsLastPoint)
{
    MakeOpenAngle();
    Build();
    ExpectPlace(Records[1], KindEnd, 0.0, 0.0);
    ExpectPlace(Records[4], KindEnd, 50.0, 30.0);
    SetLeadIn(Record(), 3.0, 1.0);
    SetLeadOut(Record(), 2.0, 5.0);
    Build();
    ExpectPlace(Records[1], KindLine, -4.0, 0.0);
    ExpectPlace(Records[2], KindEnd, 0.0, 0.0);
    ExpectPlace(Records[4], KindLine, 50.0, 30.0);
    ExpectPlace(Records[5], KindEnd, 50.0, 37.0);
}

TEST_F(Leads, OpenArcLeavesAlongItsTangent)
{
    AddArc({10, 0}, {0, 10}, {0, 0}, 10.0, 0);
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    SetLeadIn(Record(), 2.0, 0.0);
    SetLeadOut(Record(), 2.0, 0.0);
    Build();
    ExpectPlace(Records[1], KindLine, 10.0, -2.0);
    ExpectPlace(Records[5], KindEnd, -2.0, 10.0);
}

// --- what must not break it --------------------------------------------------------------------------------

void ExpectFinite(const LeadRecordArray& records)
{
    for (const CutMove& record : records) {
        EXPECT_TRUE(std::isfinite(record.X) && std::isfinite(record.Y) && std::isfinite(record.Radius));
    }
}

TEST_F(Leads, EmptyProfileHasJustItsPoint)
{
    AddElement(KindOuterEnd, 7, 8, 0, 0, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build();
    ExpectPlace(Records[1], KindEnd, 7.0, 8.0);
    ExpectPlace(Records[4], KindEnd, 7.0, 8.0);
}

TEST_F(Leads, EmptyProfileWithAnAreaIsNoTrap)
{
    AddElement(KindOuterEnd, 7, 8, 0, 55, 0, 0, 0, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
    Build();
    ExpectPlace(Records[1], KindEnd, 7.0, 8.0);
}

TEST_F(Leads, ProfileWithoutLengthOrRadius)
{
    AddLines({{5, 5}, {5, 5}});
    AddEnd(KindEnd, 0);
    AddArc({6, 6}, {6, 6}, {6, 6}, 0.0);
    AddEnd(KindOuterEnd, 1); // called closed, against all appearance
    MeasureProfiles(FlagOn);
    InitLeadData();
    SetLeadOut(Record(1), 1.0, 1.0);
    Build(1);
    ExpectFinite(Records);
    ExpectPlace(Records[1], KindEnd, 5.0, 5.0);
    Build(2);
    ExpectFinite(Records);
    EXPECT_EQ(Record(2).LeadElement, 3);
}

TEST_F(Leads, NoSuchProfileGivesNothing)
{
    MakeSquare(ImportedClass);
    for (const std::int32_t profile : {-1, 0, 2, 40000}) {
        Build(profile);
        EXPECT_EQ(Records[1].Kind, 0);
        EXPECT_EQ(Records[4].Kind, 0);
        InitProfileRecord(profile);
    }
    EXPECT_EQ(Record().LeadElement, 1);
}
} // namespace
