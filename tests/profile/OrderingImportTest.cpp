// The end of an import: from loose runs to a measured part.
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
void ExpectSense(std::int32_t first, std::int32_t last, std::int16_t sense)
{
    for (std::int32_t i = first; i <= last; ++i) {
        EXPECT_EQ(Slot(i).Sense, sense) << "slot " << i;
    }
}
} // namespace

TEST(NormaliseImport, MakesAPartOfAPlateWithAHole)
{
    StartCase();
    PutBox(105.0, 205.0, 40.0, 30.0); // counter-clockwise, first: it becomes the last and turns
    PutCircle(125.0, 220.0, 5.0);
    AppState.MarkPoints.push_back({110.0, 210.0});
    AppState.MarkPointCount = 1;
    ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
    EXPECT_EQ(TableText(), "A+25,15>25,15 . L0,0>0,30 L0,30>40,30 L40,30>40,0 L40,0>0,0 9");
    EXPECT_EQ(AppState.ProfileCount, 2);
    EXPECT_EQ(AppState.WorkExternalSense, -1);
    EXPECT_EQ(AppState.WorkInternalSense, 1);
    EXPECT_NEAR(Slot(2).GeoB, 25.0 * Pi, 1e-9);
    EXPECT_NEAR(Slot(7).GeoB, -1200.0, 1e-9);
    EXPECT_EQ(Slot(2).Closing, 1);
    EXPECT_EQ(Slot(7).Closing, -1);
    EXPECT_NEAR(AppState.TotalCutLength, 140.0 + 10.0 * Pi, 1e-9);
    EXPECT_EQ(AppState.MarkPoints[1].X, 5.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 5.0);
    EXPECT_EQ(AppState.MaxX, 40.0);
    EXPECT_EQ(FirstDifference(AppState.ShadowElements, AppState.ElementTable), 0U);
    EXPECT_TRUE(AppState.ImportOpen.empty());
    EXPECT_EQ(EndMarkOf(1), 2);
    EXPECT_EQ(EndMarkOf(2), 7);
}

TEST(NormaliseImport, TakesNoSideFromADrawing)
{
    for (const bool clockwise : {false, true}) { // one of the two is reversed on the way
        StartCase();
        PutLine(50.0, 5.0, 60.0, 5.0, 1); // open
        PutBox(0.0, 0.0, 40.0, 30.0, clockwise, 1);
        ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
        ExpectSense(1, 1, 0);
        ExpectSense(3, 6, 1);
        EXPECT_EQ(Slot(2).Sense, 0) << "end marks have no side";
        EXPECT_EQ(Slot(7).Sense, 0);
    }
}

TEST(NormaliseImport, TakesSidesOfAProgramAsRead)
{
    struct Case {
        const char* Name;
        std::int16_t First, Rest, Closed;
    };
    const Case cases[] = {
        {"left all round", 1, 1, 1},
        {"right all round", -1, -1, 1},
        {"one side read", -1, 0, 1},
        {"none", 0, 0, 0},
    };
    for (const Case& c : cases) {
        for (const bool open : {false, true}) {
            StartCase();
            PutLine(0.0, 0.0, 40.0, 0.0, c.First);
            PutLine(40.0, 0.0, 40.0, 30.0, c.Rest);
            if (!open) {
                PutLine(40.0, 30.0, 0.0, 0.0, c.Rest);
            }
            ASSERT_TRUE(NormaliseImport(ImportSides::Program, 0.0, 0.0));
            if (open) {
                EXPECT_EQ(Slot(1).Sense, c.First) << c.Name;
                EXPECT_EQ(Slot(2).Sense, c.Rest) << c.Name;
            } else {
                ExpectSense(1, 3, c.Closed);
            }
        }
    }
}

TEST(NormaliseImport, CutsTheInnerContourOfARingLikeTheOuterOne)
{
    // Areas 10000 and 9999.5: less than the bound of 1 apart. 9998.9 is a hole like any other.
    for (const double height : {99.995, 99.989}) {
        const bool boundary = height > 99.99;
        StartCase();
        PutBox(0.0, 0.0, 100.0, height);
        PutCircle(50.0, 50.0, -4.0);
        PutLine(100.0, 0.0, 100.0, 100.0);
        PutLine(100.0, 100.0, 0.0, 100.0);
        PutLine(0.0, 100.0, 0.0, 0.0);
        PutLine(0.0, 0.0, 100.0, 0.0);
        ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
        ASSERT_EQ(AppState.ProfileCount, 3);
        const std::int32_t ring = EndMarkOf(boundary ? 2 : 1);
        EXPECT_EQ(Slot(ring).GeoA, boundary ? 1.0 : 0.0);
        EXPECT_NEAR(Slot(ring).GeoB, boundary ? -100.0 * height : 100.0 * height, 1e-6);
        EXPECT_EQ(Slot(ring).Closing, boundary ? -1 : 1);
        EXPECT_NEAR(Slot(EndMarkOf(boundary ? 1 : 2)).GeoB, 16.0 * Pi, 1e-9)
            << "the hole keeps the inner sense";
        EXPECT_NEAR(Slot(EndMarkOf(3)).GeoB, -10000.0, 1e-6);
        ExpectSense(ring - 4, ring - 1, 1);
    }
}

TEST(NormaliseImport, TellsWhereAProfileStayedOpen)
{
    StartCase();
    // In the file all this lies 500000, 4500000 further out.
    PutLine(100.0, 50.0, 130.0, 50.0); // open: ends (130, 90), 50 from its start
    PutLine(130.0, 50.0, 130.0, 90.0);
    PutBox(0.0, 0.0, 60.0, 40.0, true);
    PutLine(-20.0, 10.0, -20.0, 15.0); // open
    ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 500000.0, 4500000.0));
    // Below the first one, from y = 0: (100 - 130) * (50 + 50) / 2 = -1500, less than the box of 2400.
    ASSERT_EQ(AppState.ImportOpen.size(), 2U);
    EXPECT_EQ(AppState.ImportOpen[0].Profile, 1);
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[0].Gap, 50.0);
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[0].X, 500130.0);
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[0].Y, 4500090.0);
    EXPECT_EQ(AppState.ImportOpen[1].Profile, 2) << "numbered as they stand now";
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[1].Gap, 5.0);
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[1].X, 499980.0);
    EXPECT_DOUBLE_EQ(AppState.ImportOpen[1].Y, 4500015.0);
    EXPECT_EQ(Slot(1).StartX, 120.0) << "the part itself begins at the lone line";
}

TEST(NormaliseImport, OfMarkPointsAloneGivesAPartWithoutProfiles)
{
    StartCase();
    AppState.MarkPoints.push_back({110.0, 210.0});
    AppState.MarkPointCount = 1;
    ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_EQ(AppState.TotalCutLength, 0.0);
    EXPECT_EQ(AppState.MarkPoints[1].X, 110.0);
    EXPECT_EQ(AppState.ShadowMarkPoints[1].Y, 210.0);
}

TEST(NormaliseImport, RefusesAPartThatItsEndMarksWouldMakeTooLong)
{
    for (const int lines : {16383, 16384}) { // each stands alone and needs a mark: 32766 or 32768 slots
        StartCase();
        for (int i = 0; i < lines; ++i) {
            PutLine(3.0 * i, 0.0, 3.0 * i + 1.0, 0.0);
        }
        AppState.ImportOpen.resize(3);
        const bool fits = lines == 16383;
        EXPECT_EQ(NormaliseImport(ImportSides::Drawing, 0.0, 0.0), fits);
        EXPECT_EQ(AppState.ElementCount, fits ? 32766 : 0);
        EXPECT_EQ(AppState.ProfileCount, fits ? lines : 0);
        EXPECT_EQ(AppState.ImportOpen.size(), fits ? static_cast<std::size_t>(lines) : 0U);
        EXPECT_EQ(AppState.ElementTable.size(), fits ? 32767U : 1U);
        EXPECT_EQ(AppState.ImportFailure.empty(), fits);
    }
}

TEST(NormaliseImport, RefusesCoordinatesThatAreNoNumbers)
{
    for (const double bad : {static_cast<double>(NAN), static_cast<double>(INFINITY), -1e200, 1e37}) {
        StartCase();
        PutBox(0.0, 0.0, 10.0, 10.0);
        PutArc(0.0, 0.0, 5.0, 5.0, bad, 0.0, 5.0);
        EXPECT_FALSE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
        EXPECT_EQ(AppState.ElementCount, 0);
        EXPECT_FALSE(AppState.ImportFailure.empty());
        StartCase();
        AppState.MarkPoints.push_back({1.0, bad});
        AppState.MarkPointCount = 1;
        EXPECT_FALSE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
        EXPECT_EQ(AppState.MarkPointCount, 0);
    }
}

TEST(NormaliseImport, OrdersManyProfilesByTheConfiguredSenses)
{
    for (const std::int16_t external : {std::int16_t{-1}, std::int16_t{1}}) {
        StartCase();
        AppState.ExternalPathSense = external;
        AppState.InternalPathSense = static_cast<std::int16_t>(-external);
        PutBox(0.0, 0.0, 2000.0, 100.0);
        for (int i = 0; i < 100; ++i) {
            PutBox(5.0 + 15.0 * i, 10.0, 10.0, 10.0, i % 2 == 0);
        }
        ASSERT_TRUE(NormaliseImport(ImportSides::Drawing, 0.0, 0.0));
        ASSERT_EQ(AppState.ProfileCount, 101);
        for (std::int32_t p = 1; p <= 101; ++p) {
            std::int32_t mark = 0;
            std::int16_t sense = 0;
            ProfileArea(p, mark, sense);
            EXPECT_EQ(mark, 5 * p);
            EXPECT_EQ(sense, p == 101 ? external : -external);
            ExpectSense(mark - 4, mark - 1, 1);
        }
    }
}
