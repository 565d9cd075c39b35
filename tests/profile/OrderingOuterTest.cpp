// The outer profile last, boundaries before it.
#include "config/Korvanta_Configuration.h"
#include "support/PartTables.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{
/// One upright box of each width, 10 high, in a row, with end marks.
void PutBoxes(std::initializer_list<double> widths)
{
    double x = 0.0;
    std::size_t left = widths.size();
    for (const double width : widths) {
        PutBox(x, 0.0, width, 10.0);
        PutEnd(--left == 0 ? KindOuterEnd : KindEnd);
        x += width + 5.0;
    }
}

/// Widths of the boxes in table order; a boundary flag shows as "b", the outer mark as "*".
std::string Order()
{
    std::string text;
    for (std::int32_t i = 5; i <= AppState.ElementCount; i += 5) {
        text += text.empty() ? "" : " ";
        text += std::to_string(static_cast<int>(Slot(i - 4).EndX - Slot(i - 4).StartX + 0.5));
        text += Slot(i).GeoA == 1.0 ? "b" : "";
        text += Slot(i).Kind == KindOuterEnd ? "*" : "";
    }
    return text;
}

void OrderByArea()
{
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    PutOuterLast(largest);
}
} // namespace

TEST(OuterLast, MovesTheLargestToTheEnd)
{
    struct Case {
        std::initializer_list<double> Widths;
        const char* Result;
    };
    const Case cases[] = {
        {{3.0, 50.0, 4.0, 5.0}, "3 4 5 50*"}, {{50.0, 3.0, 4.0}, "3 4 50*"},
        {{3.0, 4.0, 50.0}, "3 4 50*"},        {{50.0}, "50*"},
        {{20.0, 5.0, 20.0}, "5 20b 20*"}, // equal areas: the earlier one is the outer one
    };
    for (const Case& c : cases) {
        StartCase();
        PutBoxes(c.Widths);
        OrderByArea();
        EXPECT_EQ(Order(), c.Result);
        EXPECT_EQ(AppState.ElementCount, static_cast<std::int32_t>(5 * c.Widths.size()));
    }
}

TEST(OuterLast, OfTwoEqualProfilesTheEarlierOne)
{
    StartCase();
    PutBoxes({20.0, 20.0});
    OrderByArea();
    EXPECT_EQ(Slot(1).StartX, 25.0);
    EXPECT_EQ(Slot(6).StartX, 0.0) << "the first became the outer one";
    EXPECT_EQ(Order(), "20b 20*");
}

TEST(OuterLast, FlagsWhatRunsAlongTheOuterOneAndMovesTheLastOfThem)
{
    struct Case {
        const char* Name;
        const char* Bound;
        std::initializer_list<double> Widths; // areas are 10 times these
        const char* Result;
    };
    const Case cases[] = {
        {"moved before the outer one", "15", {99.0, 3.0, 4.0, 100.0}, "3 4 99b 100*"},
        {"already there", "15", {3.0, 4.0, 99.0, 100.0}, "3 4 99b 100*"},
        {"all flagged, the last one moves", "35", {98.0, 3.0, 97.0, 4.0, 100.0}, "98b 3 4 97b 100*"},
        {"strictly below the bound", "10", {99.0, 3.0, 100.0}, "99 3 100*"},
        {"two profiles are flagged, too", "15", {99.0, 100.0}, "99b 100*"},
        {"after the outer one was moved", "15", {100.0, 99.0, 3.0, 4.0}, "3 4 99b 100*"},
        {"a bound of 0 flags nothing", "0", {100.0, 3.0, 100.0}, "3 100 100*"},
    };
    for (const Case& c : cases) {
        StartCase();
        HoldConfigWrites();
        WriteConfig("CONFIG", "EXTPRF_BOUND", c.Bound);
        PutBoxes(c.Widths);
        OrderByArea();
        EXPECT_EQ(Order(), c.Result) << c.Name;
    }
}

TEST(OuterLast, HasABoundOfOneByDefault)
{
    StartCase();
    PutBoxes({9.95, 3.0, 10.0}); // areas 99.5 and 100
    OrderByArea();
    EXPECT_EQ(Order(), "3 10b 10*");
    StartCase();
    PutBoxes({9.85, 3.0, 10.0}); // areas 98.5 and 100
    OrderByArea();
    EXPECT_EQ(Order(), "10 3 10*");
}

TEST(OuterLast, KeepsTheOrderWithoutAnyArea)
{
    StartCase();
    PutLine(5.0, 0.0, 5.0, 9.0);
    PutEnd();
    PutLine(1.0, 0.0, 1.0, 9.0);
    PutEnd();
    PutLine(8.0, 0.0, 8.0, 9.0);
    PutEnd(KindOuterEnd);
    OrderByArea();
    EXPECT_EQ(TableText(), "L5,0>5,9 . L1,0>1,9 . L8,0>8,9 9");
    StartCase();
    PutOuterLast(0);
    EXPECT_EQ(AppState.ElementCount, 0);
}

TEST(OuterLast, LetsAnOpenProfileBeTheLargest)
{
    StartCase();
    PutLine(0.0, 0.0, 100.0, 0.0);
    PutLine(100.0, 0.0, 100.0, 50.0);
    PutLine(100.0, 50.0, 0.0, 50.0);
    PutEnd();
    PutBox(20.0, 20.0, 10.0, 5.0);
    PutEnd(KindOuterEnd);
    OrderByArea();
    EXPECT_EQ(Slot(5).Kind, KindEnd);
    EXPECT_EQ(Slot(5).GeoA, 0.0) << "50 isn't near 0, the area of an open outer profile";
    EXPECT_EQ(Slot(9).Kind, KindOuterEnd);
    EXPECT_EQ(Slot(9).GeoB, 0.0);
    EXPECT_EQ(Slot(6).EndX, 100.0);
}

TEST(OuterLast, FlagsOpenProfilesBesideAnOpenOuterOne)
{
    StartCase();
    PutLine(0.0, 0.0, 3.0, 1.0); // open, its area is 0.0 like that of the outer one
    PutEnd();
    PutBox(200.0, 200.0, 5.0, 5.0); // closed: 25 isn't near 0
    PutEnd();
    PutLine(0.0, 100.0, 100.0, 110.0); // open, but the largest by what lies below it: 100 * 105
    PutEnd(KindOuterEnd);
    OrderByArea();
    EXPECT_EQ(TableText(), "L200,200>205,200 L205,200>205,205 L205,205>200,205 L200,205>200,200 . "
                           "L0,0>3,1 . L0,100>100,110 9");
    EXPECT_EQ(Slot(5).GeoA, 0.0);
    EXPECT_EQ(Slot(7).GeoA, 1.0);
    EXPECT_EQ(Slot(9).GeoA, 0.0) << "the outer one itself has no flag";
}
