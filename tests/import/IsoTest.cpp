// ISO-IN, from the words of a line to the measured part.
#include "import/IsoDoubts.h"

#include "geometry/Orbalib.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <sstream>
#include <string>
#include <vector>

namespace
{
class Iso : public testing::Test
{
protected:
    TempFolder Station;

    void SetUp() override
    {
        StartCase();
        AppState.AppPath = Station.Path;
        AppState.PprIniName = "PPR.ini";
        AppState.NcPath = Station.Path + "\\NC\\";
        AppState.ExternalPathSense = -1;
        AppState.InternalPathSense = 1;
    }

    void IncrementalCentre(const std::string& value) const
    {
        Station.Write("PPR.ini", "[PartProgram_CONFIG]\r\nINC_CENTER=" + value + "\r\n");
    }

    /// The raw elements of a program text.
    bool Read(const std::string& text)
    {
        ClearPart();
        AppState.IsoMode = 0;
        AppState.IsoX = AppState.IsoY = AppState.IsoI = AppState.IsoJ = 0.0;
        return ReadIsoFile(Station.Write("NC/part.iso", text));
    }

    bool Import(const std::string& text)
    {
        Station.Write("NC/part.iso", text);
        return ImportIso("part.iso");
    }
};

const ProfileElement& Element(std::size_t slot)
{
    return AppState.ElementTable.at(slot);
}

/// "1 0,0 10,0 s1" or "2 0,0 10,0 c5,0 r-5 s0": kind, start, end, centre and radius of an arc, side.
std::string Describe(const ProfileElement& element)
{
    std::ostringstream text;
    text << element.Kind << ' ' << element.StartX << ',' << element.StartY << ' ' << element.EndX << ','
         << element.EndY;
    if (element.Kind == KindArc) {
        text << " c" << element.GeoA << ',' << element.GeoB << " r" << element.GeoC;
    }
    text << " s" << element.Sense;
    return text.str();
}

std::vector<std::string> Elements()
{
    std::vector<std::string> all;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        all.push_back(Describe(Element(static_cast<std::size_t>(i))));
    }
    return all;
}

using Lines = std::vector<std::string>;

struct ReadCase {
    const char* Name;
    const char* Incremental; ///< value of INC_CENTER
    const char* Text;
    Lines Want;
};

const ReadCase ReadCases[] = {
    {"code and coordinate from the state", "NO", "G01 X10\nY5\n", {"1 0,0 10,0 s0", "1 10,0 10,5 s0"}},
    {"relative centre", "YES", "G02 X10 Y0 I5 J0", {"2 0,0 10,0 c5,0 r-5 s0"}},
    {"absolute centre", "NO", "G02 X10 Y0 I5 J0", {"2 0,0 10,0 c5,0 r-5 s0"}},
    {"relative centre off the origin",
     "YES",
     "G0 X100 Y50\nG3 X110 I5 J0",
     {"2 100,50 110,50 c105,50 r5 s0"}},
    {"absolute centre off the origin",
     "NO",
     "G0 X100 Y50\nG3 X110 I105 J50",
     {"2 100,50 110,50 c105,50 r5 s0"}},
    {"any value but one that holds NO is relative", "1", "G0 X9\nG2 X9 Y0 I-2 J0", {"2 9,0 9,0 c7,0 r-2 s0"}},
    {"NONE holds NO", "NONE", "G0 X9\nG2 X9 Y0 I7 J0", {"2 9,0 9,0 c7,0 r-2 s0"}},
    // The second arc takes the first one's absolute centre (5, 0) as a distance from its own start (10, 0).
    {"a relative centre is kept as an absolute one",
     "YES",
     "G2 X10 I5 J0\nX20",
     {"2 0,0 10,0 c5,0 r-5 s0", "2 10,0 20,0 c15,0 r-5 s0"}},
    {"an unknown code is passed over", "NO", "G81 G01 X5", {"1 0,0 5,0 s0"}},
    {"the first known code wins", "NO", "G00 G01 X5\nG1 G0 X7", {"1 5,0 7,0 s0"}},
    {"an unknown code alone keeps the mode", "NO", "G1 X5\nG54\nX6", {"1 0,0 5,0 s0", "1 5,0 6,0 s0"}},
    {"a comment moves the position", "NO", "; X100\nG1 X101 Y0", {"1 100,0 101,0 s0"}},
    {"a comment makes an element in mode 1", "NO", "G1 X5\n; X100", {"1 0,0 5,0 s0", "1 5,0 100,0 s0"}},
    {"lines without the letters count for nothing",
     "NO",
     "G1 X5\n   \n\t\n%\nM30 (end)\n\nX6",
     {"1 0,0 5,0 s0", "1 5,0 6,0 s0"}},
    {"0.01 is dropped, and the position moves", "NO", "G1 X0.01\nX0.03", {"1 0.01,0 0.03,0 s0"}},
    {"0.011 is kept", "NO", "G1 X0.011", {"1 0,0 0.011,0 s0"}},
    {"rapid moves the position", "NO", "G1 X5\nG0 X20\nG1 Y5", {"1 0,0 5,0 s0", "1 20,0 20,5 s0"}},
    {"a rapid without coordinates sets the mode",
     "NO",
     "G1 X5\nG0\nX9\nG1 X10",
     {"1 0,0 5,0 s0", "1 9,0 10,0 s0"}},
    // I = 3 stays a distance until an arc takes it: radius 3 about 5 + 3.
    {"a centre word of a straight line is kept for the next arc",
     "YES",
     "G1 X5 I3\nG2 X11",
     {"1 0,0 5,0 s0", "2 5,0 11,0 c8,0 r-3 s0"}},
    {"a comment without digits sets its words to 0",
     "NO",
     "G1 X5 Y5\n(XY)\nX9",
     {"1 0,0 5,5 s0", "1 5,5 0,0 s0", "1 0,0 9,0 s0"}},
    {"the G of a comment is a rapid",
     "NO",
     "G1 X5\n(PROGRAM 7)\nX9\nG1 X10",
     {"1 0,0 5,0 s0", "1 9,0 10,0 s0"}},
    {"G40 and G42 alone stop the motion too",
     "NO",
     "G1 X1\nG40\nX5\nG1 X6\nG42\nX8\nG1 X9",
     {"1 0,0 1,0 s0", "1 5,0 6,0 s0", "1 8,0 9,0 s-1"}},
    {"a longer code that begins like a side is one",
     "NO",
     "G1 G420 X5\nG1 G400 X9",
     {"1 0,0 5,0 s-1", "1 5,0 9,0 s0"}},
    {"two signs are no number", "NO", "G1 X+-5 Y3\nX-", {"1 0,0 0,3 s0"}},
    {"G1 G41 keeps the motion", "NO", "G1 G41 X5\nX9", {"1 0,0 5,0 s1", "1 5,0 9,0 s1"}},
    {"G41 alone stops the motion until the next code",
     "NO",
     "G1 X1\nG41 X5 Y5\nX10\nG1 X20",
     {"1 0,0 1,0 s0", "1 10,5 20,5 s1"}},
    {"G42, then off", "NO", "G1 G42 X5\nG1 G40 X9", {"1 0,0 5,0 s-1", "1 5,0 9,0 s0"}},
    {"G40 counts before G41, G41 before G42",
     "NO",
     "G1 G42 X5\nG1 G42 G41 X9\nG1 G41 G40 X12",
     {"1 0,0 5,0 s-1", "1 5,0 9,0 s1", "1 9,0 12,0 s0"}},
    {"CR, LF and CR LF end lines",
     "NO",
     "G1 X1\rX2\nX3\r\nX4",
     {"1 0,0 1,0 s0", "1 1,0 2,0 s0", "1 2,0 3,0 s0", "1 3,0 4,0 s0"}},
    {"numbers of every form", "NO", "G1X.5Y-1.\nX+2Y-.25", {"1 0,0 0.5,-1 s0", "1 0.5,-1 2,-0.25 s0"}},
    {"a blank behind the letter is no number", "NO", "G1 X5 Y5\nX 9 Y6", {"1 0,0 5,5 s0", "1 5,5 0,6 s0"}},
    {"no exponents", "NO", "G1 X1e3 Y1", {"1 0,0 1,1 s0"}},
    {"small letters are no words", "NO", "g1 x5\nG1 X3 y9", {"1 0,0 3,0 s0"}},
    {"the first occurrence counts", "NO", "G1 X1 X2 Y3 Y4", {"1 0,0 1,3 s0"}},
    {"an arc of radius 0 is a straight element", "YES", "G2 X10 I0 J0", {"1 0,0 10,0 s0"}},
    {"an arc of radius 0 and no length is dropped", "YES", "G2 X0 Y0 I0 J0", {}},
    {"a full circle stays an arc", "YES", "G3 X0 Y0 I4 J3", {"2 0,0 0,0 c4,3 r5 s0"}},
    {"bytes of every kind", "NO", "\xff\xfe(\x01) G1 X5\x1a", {"1 0,0 5,0 s0"}},
};

TEST_F(Iso, ReadsMoves)
{
    for (const ReadCase& c : ReadCases) {
        IncrementalCentre(c.Incremental);
        EXPECT_TRUE(Read(c.Text)) << c.Name;
        EXPECT_EQ(Elements(), c.Want) << c.Name;
    }
}

TEST_F(Iso, GivesLinesTheirCoefficients)
{
    IncrementalCentre("NO");
    ASSERT_TRUE(Read("G1 X3 Y4"));
    // Unit left normal of (3, 4) / 5 through the origin.
    EXPECT_NEAR(Element(1).GeoA, -0.8, 1e-12);
    EXPECT_NEAR(Element(1).GeoB, 0.6, 1e-12);
    EXPECT_NEAR(Element(1).GeoC, 0.0, 1e-12);
}

TEST_F(Iso, TakesTheCodeOfALine)
{
    struct CodeCase {
        const char* Line;
        std::int16_t Want;
    };
    AppState.IsoMode = 3;
    for (const CodeCase& c : std::initializer_list<CodeCase>{{"X5", 3},
                                                             {"G00", 0},
                                                             {"G1", 1},
                                                             {"G042", 42},
                                                             {"G40G1", 40},
                                                             {"G4 G90 G71", 3},
                                                             {"G1.5", 3},
                                                             {"G-1", 3},
                                                             {"(GOOD) G1", 0}, // no digits behind the first G
                                                             {"G 2", 0},
                                                             {"G81G02", 2},
                                                             {"g1", 3}}) {
        EXPECT_EQ(ReadGCode(c.Line), c.Want) << c.Line;
    }
}

TEST_F(Iso, TakesAWordOfALine)
{
    AppState.IsoX = 1.5;
    AppState.IsoY = 2.5;
    AppState.IsoI = 3.5;
    AppState.IsoJ = 4.5;
    EXPECT_EQ(ReadWord('X', "Y7"), 1.5);
    EXPECT_EQ(ReadWord('Y', "X7"), 2.5);
    EXPECT_EQ(ReadWord('I', ""), 3.5);
    EXPECT_EQ(ReadWord('J', ""), 4.5);
    EXPECT_EQ(ReadWord('F', "X7"), 0.0);
    EXPECT_EQ(ReadWord('F', "X7 F300"), 300.0);
    EXPECT_EQ(ReadWord('X', "X"), 0.0);
    EXPECT_EQ(ReadWord('X', "X-12.25Y3"), -12.25);
    EXPECT_EQ(ReadWord('X', "X1.2.3"), 1.2);
    EXPECT_EQ(ReadWord('X', "X5-3"), 5.0);
    EXPECT_EQ(ReadWord('X', "X--5"), 0.0);
}

TEST_F(Iso, KeepsTheLastSide)
{
    EXPECT_EQ(ReadSide("X5", -1), -1);
    EXPECT_EQ(ReadSide("G1G41X5", 0), 1);
    EXPECT_EQ(ReadSide("G42", 1), -1);
    EXPECT_EQ(ReadSide("G40", 1), 0);
    EXPECT_EQ(ReadSide("G041", 0), 0) << "only the plain word is looked for";
}

TEST_F(Iso, ImportsAClosedProfileAsThePart)
{
    // Drawn counter-clockwise away from the origin; an outer profile is cut clockwise from the same point.
    ASSERT_TRUE(Import("G0 X10 Y20\nG1 X110\nY70\nX10\nY20\nM30"));
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_DOUBLE_EQ(AppState.TotalCutLength, 300.0);
    EXPECT_EQ(AppState.MinX, 0.0);
    EXPECT_EQ(AppState.MinY, 0.0);
    EXPECT_EQ(AppState.MaxX, 100.0);
    EXPECT_EQ(AppState.MaxY, 50.0);
    EXPECT_EQ(Describe(Element(1)), "1 0,0 0,50 s0");
    EXPECT_EQ(Element(5).Kind, KindOuterEnd);
    EXPECT_EQ(Element(5).GeoB, -5000.0);
    EXPECT_EQ(AppState.ShadowElements.size(), 6U);
    EXPECT_TRUE(AppState.ImportOpen.empty());
    EXPECT_TRUE(AppState.ImportFailure.empty());
}

TEST_F(Iso, CutsAClosedProfileOnTheLeftWhenAnySideWasRead)
{
    ASSERT_TRUE(Import("G0 X0 Y0\nG1 X100\nG1 G42 Y50\nX0\nG1 G40 Y0"));
    for (std::size_t i = 1; i <= 4; ++i) {
        EXPECT_EQ(Element(i).Sense, 1) << i;
    }
}

TEST_F(Iso, KeepsTheSideOfAnOpenProfileAndTellsItsGap)
{
    ASSERT_TRUE(Import("G0 X10 Y10\nG1 G42 X20\nY20"));
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(Describe(Element(1)), "1 0,0 10,0 s-1");
    EXPECT_EQ(Describe(Element(2)), "1 10,0 10,10 s-1");
    ASSERT_EQ(AppState.ImportOpen.size(), 1U);
    EXPECT_EQ(AppState.ImportOpen[0].Profile, 1);
    EXPECT_NEAR(AppState.ImportOpen[0].Gap, std::sqrt(200.0), 1e-9);
    EXPECT_NEAR(AppState.ImportOpen[0].X, 20.0, 1e-9);
    EXPECT_NEAR(AppState.ImportOpen[0].Y, 20.0, 1e-9);
}

TEST_F(Iso, MakesAProfileOfEachChain)
{
    // A hole of 4 x 2 in the middle of a plate, the plate first: it becomes the last profile.
    ASSERT_TRUE(Import("G1 X10\nY6\nX0\nY0\nG0 X3 Y2\nG1 X7\nY4\nX3\nY2"));
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_EQ(AppState.ElementCount, 10);
    EXPECT_EQ(Element(5).Kind, KindEnd);
    EXPECT_EQ(Element(5).GeoB, 8.0) << "a hole runs counter-clockwise";
    EXPECT_EQ(Element(10).GeoB, -60.0);
    EXPECT_DOUBLE_EQ(AppState.TotalCutLength, 12.0 + 32.0);
}

TEST_F(Iso, DoesNotChain)
{
    // The second line ends where the first ended: only turned would it follow, and nothing is turned.
    ASSERT_TRUE(Import("G1 X10\nG0 X10 Y10\nG1 X10 Y0"));
    EXPECT_EQ(AppState.ProfileCount, 2);
}

TEST_F(Iso, RemembersTheSource)
{
    ASSERT_TRUE(Import("G1 X10"));
    EXPECT_EQ(AppState.SourceName, "part.iso");
    EXPECT_EQ(AppState.JobName, "part.iso");
    const std::string path = Station.Write("elsewhere/other.nc", "G1 Y7");
    ASSERT_TRUE(ImportIso(path));
    EXPECT_EQ(AppState.SourceName, path);
    EXPECT_EQ(AppState.JobName, "other.nc");
    EXPECT_DOUBLE_EQ(AppState.TotalCutLength, 7.0);
}

TEST_F(Iso, StartsANewPart)
{
    AppState.MoveStep = 3.0;
    AppState.PathOriginSet = FlagOn;
    AppState.PathCursorDistance = 5.0;
    AppState.CurrentProfile = 4;
    AppState.IsoMode = 1;
    AppState.IsoX = 50.0;
    AppState.MarkPoints.push_back({1.0, 2.0});
    AppState.MarkPointCount = 1;
    AppState.ImportRead["LINE"] = 9;
    AppState.ImportDoubts.push_back({7, "of the program before"});
    AppState.ImportDoubtCount = 1;
    ASSERT_TRUE(Import("X10\nG1 Y10"));
    EXPECT_EQ(AppState.ElementCount, 2) << "no motion code stood ahead of X10";
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_EQ(AppState.PathOriginSet, FlagOff);
    EXPECT_TRUE(IsNoValue(AppState.PathCursorDistance));
    EXPECT_EQ(AppState.CurrentProfile, 0);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_TRUE(AppState.ImportRead.empty());
    EXPECT_TRUE(AppState.ImportDoubts.empty());
    EXPECT_EQ(AppState.ImportDoubtCount, 0);
}

struct DoubtCase {
    const char* Name;
    const char* Incremental;
    const char* Text;
    Lines Want;
};

const DoubtCase DoubtCases[] = {
    {"good arcs", "YES", "G2 X10 I5 J0\nX20 I5 J0\nG3 X10 Y10 I-10 J0", {}},
    {"a full circle", "YES", "G0 X70 Y35\nG3 X70 Y35 I-10 J0", {}},
    // Centre (5, 0), radius 5; the end is 6 from it.
    {"the end lies outside", "YES", "G2 X11 I5 J0", {"1: the arc ends 1 beside its circle"}},
    {"the end lies inside", "YES", "G2 X9 I5 J0", {"1: the arc ends 1 beside its circle"}},
    {"no more than 0.02", "YES", "G2 X10.02 I5 J0", {}},
    {"more than 0.02", "YES", "G2 X10.021 I5 J0", {"1: the arc ends 0.02 beside its circle"}},
    // Read as absolute, the centre (5, 0) is 107.35 from the start and 116.29 from the end.
    {"relative centres read as absolute ones",
     "NO",
     "G0 X100 Y50\nG3 X110 Y50 I5 J0",
     {"2: the arc ends 8.94 beside its circle"}},
    {"a straight line with its words needs no circle", "YES", "G1 X11 I5 J0\nG0 X3 I9", {}},
    // Both halves about (0, 0).
    {"a centre that stays, absolute", "NO", "G0 X15\nG3 X-15 I0 J0\nX15", {}},
    {"a left out 0 ahead of any arc", "YES", "G3 X0 Y0 J5", {}},
    // The J of the first circle, 35, is taken as a distance: the second closes, with a radius of 36.4 instead of 10.
    {"a left out 0 behind an arc",
     "YES",
     "G0 X70 Y35\nG3 X70 Y35 I-10 J0\nG0 X170 Y35\nG3 X170 Y35 I-10",
     {"4: the arc has no J and takes that of an earlier line"}},
    {"the same in the other axis",
     "YES",
     "G0 X35 Y70\nG3 X35 Y70 I0 J-10\nG0 X35 Y170\nG3 X35 Y170 J-10",
     {"4: the arc has no I and takes that of an earlier line"}},
    // Centre (45, 20): from the start (10, 0) 35 and 20 away, radius 40.31; from the end (20, 0) sqrt(1025) = 32.01.
    {"a wrong centre that opens the arc",
     "YES",
     "G0 X0 Y20\nG2 X0 Y20 I35 J0\nG0 X10 Y0\nG2 X20 Y0 J20",
     {"4: the arc ends 8.29 beside its circle: it has no I"}},
    {"a radius word", "YES", "G2 X10 R5", {"1: the arc ends 10 beside its circle: it has no I and J"}},
    {"every line counts, blank ones too",
     "YES",
     "%\r\n\r\n(a)\r\nG2 X11 I5 J0",
     {"4: the arc ends 1 beside its circle"}},
    {"a dwell behind a cut", "YES", "G1 X5\nG04 X2\nG1 X9", {"2: the dwell G04 is read as a move"}},
    {"a dwell behind a rapid", "YES", "G0 X5\nG4 X2\nG1 X9", {"2: the dwell G04 is read as a move"}},
    {"a dwell that moves Y", "YES", "G1 X5\nM3 (y) G04 Y2\nG1 X9", {"2: the dwell G04 is read as a move"}},
    {"relative coordinates",
     "YES",
     "G90\nG91 G1 X5\nG90 G91.1\nG1 X9",
     {"2: G91 isn't read, the coordinates count as absolute"}},
    {"a dwell with a word of its own", "YES", "G1 X5\nG04 P2\nG4 F1 X5\nG40\nG41 X7\nG1 X9", {}},
};

TEST_F(Iso, DoubtsWhatIsHardlyMeantSo)
{
    for (const DoubtCase& c : DoubtCases) {
        IncrementalCentre(c.Incremental);
        ASSERT_TRUE(Import(c.Text)) << c.Name;
        Lines doubts;
        for (const ImportDoubt& doubt : AppState.ImportDoubts) {
            doubts.push_back(std::to_string(doubt.Line) + ": " + doubt.What);
        }
        EXPECT_EQ(doubts, c.Want) << c.Name;
        EXPECT_EQ(AppState.ImportDoubtCount, static_cast<std::int64_t>(c.Want.size())) << c.Name;
    }
}

TEST_F(Iso, KeepsTheFirstDoubtsAndCountsAll)
{
    std::string text = "G1 X5\n";
    for (int i = 0; i < 150; ++i) {
        text += "G4 X" + std::to_string(i % 2) + "\n";
    }
    ASSERT_TRUE(Import(text));
    EXPECT_EQ(AppState.ImportDoubtCount, 150);
    ASSERT_EQ(AppState.ImportDoubts.size(), MaxDoubts);
    EXPECT_EQ(AppState.ImportDoubts.back().Line, 101);
    EXPECT_FALSE(Import("G0 X5\nG4 X2"));
    EXPECT_TRUE(AppState.ImportDoubts.empty()) << "a refused program tells why, and no more";
    EXPECT_EQ(AppState.ImportDoubtCount, 0);
    EXPECT_EQ(AppState.ImportFailure, "the program holds no move that cuts");
}

struct RefusedCase {
    const char* Name;
    const char* Text;
};

const RefusedCase RefusedCases[] = {
    {"an empty file", ""},
    {"no code", "X10\nY10"},
    {"rapids only", "G0 X10 Y10\nG0 X0"},
    {"moves too short", "G1 X0.005\nX0.01\nX0.02"},
    {"a coordinate that is no length", "G1 X10\nX99999999999999999999999999999999999999\nX0"},
    {"a number beyond a double", "G1 "
                                 "X10\nX999999999999999999999999999999999999999999999999999999999999999999999"
                                 "9999999999999999999999999999999"
                                 "999999999999999999999999999999999999999999999999999999999999999999999999999"
                                 "99999999999999999999999999999999"
                                 "999999999999999999999999999999999999999999999999999999999999999999999999999"
                                 "99999999999999999999999999999999"},
    {"a start far away", "G0 X-20000000\nG1 X10"},
    {"a centre far away", "G1 X10\nG2 X20 I20000000"},
    {"a table of bytes", "\x7f\x45\x4c\x46\x02\x01"},
};

TEST_F(Iso, RefusesWhatGivesNoPart)
{
    for (const RefusedCase& c : RefusedCases) {
        EXPECT_FALSE(Import(c.Text)) << c.Name;
        EXPECT_EQ(AppState.ElementCount, 0) << c.Name;
        EXPECT_EQ(AppState.ElementTable.size(), 1U) << c.Name;
        EXPECT_EQ(AppState.ProfileCount, 0) << c.Name;
        EXPECT_FALSE(AppState.ImportFailure.empty()) << c.Name;
    }
}

TEST_F(Iso, IgnoresNonsenseThatMakesNoElement)
{
    ASSERT_TRUE(Import("; X99999999999999999999\nG0 X0\nG1 X10"));
    EXPECT_EQ(AppState.ElementCount, 2);
}

TEST_F(Iso, RefusesAMissingFileOrName)
{
    AppState.SourceName = "before.iso";
    AppState.JobName = "before";
    EXPECT_FALSE(ImportIso("none.iso"));
    EXPECT_FALSE(ImportIso(""));
    EXPECT_FALSE(ImportIso("   "));
    Station.Write("NC/folder/x", "");
    EXPECT_FALSE(ImportIso("folder"));
    EXPECT_EQ(AppState.SourceName, "before.iso") << "only a file that is there becomes the source";
    EXPECT_EQ(AppState.JobName, "before");
}

TEST_F(Iso, HoldsTheTableToItsSlots)
{
    // A zigzag of n joined moves takes n slots and one end mark.
    const auto zigzag = [](int moves) {
        std::string text = "G1";
        for (int i = 1; i <= moves; ++i) {
            text += "X" + std::to_string(i) + "Y" + std::to_string(i % 2) + "\n";
        }
        return text;
    };
    ASSERT_TRUE(Import(zigzag(32766)));
    EXPECT_EQ(AppState.ElementCount, 32767);
    EXPECT_FALSE(Import(zigzag(32767)));
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST_F(Iso, CountsTheEndMarksOfLooseMoves)
{
    // Each move stands alone and takes two slots.
    const auto strokes = [](int moves) {
        std::string text;
        for (int i = 1; i <= moves; ++i) {
            text += "G0 Y" + std::to_string(i) + "\nG1 X" + std::to_string(i % 2 == 1 ? 10 : 0) + "\n";
        }
        return text;
    };
    ASSERT_TRUE(Import(strokes(16383)));
    EXPECT_EQ(AppState.ElementCount, 32766);
    EXPECT_EQ(AppState.ProfileCount, 16383);
    EXPECT_FALSE(Import(strokes(16384)));
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST_F(Iso, NeverLeavesANumberThatIsNone)
{
    std::mt19937 random(20240607);
    const std::string letters = "GXYIJ0123456789+-.; \n\nG1G2G3G0G41";
    std::uniform_int_distribution<std::size_t> pick(0, letters.size() - 1);
    for (int round = 0; round < 2000; ++round) {
        std::string text = "G1 X1\n";
        for (int i = 0; i < 120; ++i) {
            text += letters[pick(random)];
        }
        IncrementalCentre(round % 2 == 0 ? "YES" : "NO");
        const bool imported = Import(text);
        EXPECT_EQ(imported, AppState.ElementCount > 0);
        for (std::size_t i = 1; i < AppState.ElementTable.size(); ++i) {
            const ProfileElement& e = Element(i);
            for (const double value :
                 {e.GeoA, e.GeoB, e.GeoC, e.StartX, e.StartY, e.EndX, e.EndY, e.Length}) {
                ASSERT_TRUE(std::isfinite(value)) << text;
            }
        }
        ASSERT_TRUE(std::isfinite(AppState.TotalCutLength)) << text;
    }
}
} // namespace
