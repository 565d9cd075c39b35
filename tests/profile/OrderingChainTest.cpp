// Chaining: by hand, and against the plain search.
#include "support/PartTables.h"
#include "support/PlainOrdering.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <random>

TEST(Chain, TurnsTheSecondOfTwoElementsThatMeetEndToEnd)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutLine(10.0, 20.0, 10.0, 0.0);
    ChainElements();
    EXPECT_EQ(TableText(), "L0,0>10,0 L10,0>10,20");
    // The line x = 10 travelling up has its left normal at -x: -x + 10 = 0.
    EXPECT_EQ(Slot(2).GeoA, -1.0);
    EXPECT_EQ(Slot(2).GeoB, 0.0);
    EXPECT_EQ(Slot(2).GeoC, 10.0);
    EXPECT_EQ(Slot(2).Sense, 1) << "chaining says nothing about sides";

    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutArc(10.0, 20.0, 10.0, 0.0, 10.0, 10.0, 10.0);
    ChainElements();
    EXPECT_EQ(TableText(), "L0,0>10,0 A-10,0>10,20") << "an arc runs the other way round";
    EXPECT_EQ(Slot(2).GeoC, -10.0);
    EXPECT_EQ(Slot(2).GeoA, 10.0);
    EXPECT_EQ(Slot(2).GeoB, 10.0);
}

TEST(Chain, FindsItsStartWhenTheFirstElementStandsBackwards)
{
    StartCase();
    PutLine(10.0, 0.0, 0.0, 0.0);
    PutLine(50.0, 50.0, 60.0, 60.0);
    PutLine(10.0, 0.0, 10.0, 20.0);
    ChainElements();
    // 1 is turned and takes slot 3 as its follower; the lone line, now last, is turned in vain.
    EXPECT_EQ(TableText(), "L0,0>10,0 L10,0>10,20 L60,60>50,50");
}

TEST(Chain, LeavesTurnedWhatItTurnedInVain)
{
    StartCase();
    PutLine(0.0, 0.0, 5.0, 0.0);
    PutCircle(50.0, 50.0, 10.0);
    PutLine(90.0, 0.0, 95.0, 0.0);
    ChainElements();
    EXPECT_EQ(TableText(), "L5,0>0,0 A-60,50>60,50 L95,0>90,0") << "the last one is visited too";
}

TEST(Chain, GivesTheLowestSlotThePlaceAtASharedCorner)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutLine(70.0, 70.0, 80.0, 70.0);
    PutLine(20.0, 20.0, 10.0, 0.0); // touches with its end, but stands first
    PutLine(10.0, 0.0, 10.0, 20.0); // touches with its start
    ChainElements();
    // i = 1: slot 3 is turned and changes places with slot 2. i = 2 ends at (20,20): nothing, the chain ends.
    // i = 3: the far line, turned in vain. i = 4: the same.
    EXPECT_EQ(TableText(), "L0,0>10,0 L10,0>20,20 L80,70>70,70 L10,20>10,0");
}

TEST(Chain, TestsTheStartBeforeTheEnd)
{
    StartCase();
    PutLine(0.0, 0.0, 10.0, 0.0);
    PutArc(10.0, 0.0, 10.0, 0.0, 15.0, 0.0, -5.0); // a full circle touches with both
    ChainElements();
    EXPECT_EQ(TableText(), "L0,0>10,0 A-10,0>10,0") << "not turned";
}

TEST(Chain, LinksBelowTheToleranceOnly)
{
    struct Case {
        const char* Name;
        double X;
        const char* Result;
    };
    const Case cases[] = {
        {"0.0099", 0.0099, "L-5,0>0,0 L0,0>0,5 L9,9>8,8"},
        {"0.01 exactly", 0.01, "L0,0>-5,0 L9,9>8,8 L0,5>0,0"},
        {"0.0101", 0.0101, "L0,0>-5,0 L9,9>8,8 L0,5>0,0"},
    };
    for (const Case& c : cases) {
        StartCase();
        PutLine(-5.0, 0.0, 0.0, 0.0);
        PutLine(8.0, 8.0, 9.0, 9.0);
        PutLine(c.X, 0.0, 0.0, 5.0);
        ChainElements();
        EXPECT_EQ(TableText(), c.Result) << c.Name;
    }
}

TEST(Chain, OfAnEmptyTableDoesNothing)
{
    StartCase();
    ChainElements();
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ElementTable.size(), 1U);
}

namespace
{
/// Chains a copy by the plain search and compares slot by slot.
void ExpectSameAsPlain(const char* what, int round)
{
    const std::vector<ProfileElement> raw = AppState.ElementTable;
    PlainChainElements();
    const std::vector<ProfileElement> plain = AppState.ElementTable;
    AppState.ElementTable = raw;
    ChainElements();
    ASSERT_EQ(FirstDifference(AppState.ElementTable, plain), 0U) << what << ", round " << round;
}

class Dice
{
public:
    explicit Dice(unsigned seed) : random(seed) {}
    int Below(int limit)
    {
        return static_cast<int>(random() % static_cast<unsigned>(limit));
    }
    double Of(std::initializer_list<double> values)
    {
        return *(values.begin() + Below(static_cast<int>(values.size())));
    }

private:
    std::mt19937 random;
};
} // namespace

TEST(Chain, GivesTheVeryResultOfThePlainSearch)
{
    Dice dice(20240);
    for (int round = 0; round < 6000; ++round) {
        StartCase();
        const int count = dice.Below(40);
        const int grid = 1 + dice.Below(6);
        const double offset = dice.Of({0.0, 0.0, -2.0, 0.045, 4096.0, 4500000.0, 1e12, 1e17});
        const double pitch = dice.Of({1.0, 0.05, 0.01, 0.005, 0.0333});
        const bool jittered = dice.Below(2) == 0;
        const auto coordinate = [&] {
            const double jitter =
                jittered ? dice.Of({0.0, 0.0, 0.004, 0.00999999, 0.01, 0.01000001, -0.005, -0.01, 1e-9})
                         : 0.0;
            return offset + pitch * dice.Below(grid) + jitter;
        };
        for (int i = 0; i < count; ++i) {
            const double x = coordinate();
            const double y = coordinate();
            const bool pointLike = dice.Below(10) == 0;
            const double endX = pointLike ? x : coordinate();
            const double endY = pointLike ? y : coordinate();
            if (dice.Below(3) == 0) {
                PutArc(x, y, endX, endY, coordinate(), coordinate(), dice.Below(2) == 0 ? 2.0 : -2.0);
            } else {
                PutLine(x, y, endX, endY);
            }
            if (dice.Below(12) == 0) { // a duplicate
                AppState.ElementTable.push_back(Slot(AppState.ElementCount));
                ++AppState.ElementCount;
            }
        }
        ExpectSameAsPlain("random table", round);
    }
}

TEST(Chain, TakesZeroesOfBothSignsAndNumbersThatAreNone)
{
    const double odd[] = {0.0, -0.0, 1e300, -1e300, INFINITY, -INFINITY, NAN, 5e-324};
    Dice dice(7);
    for (int round = 0; round < 500; ++round) {
        StartCase();
        for (int i = 0; i < 12; ++i) {
            AddElement(KindArc, odd[dice.Below(8)], odd[dice.Below(8)], 0.0, 0.0, 1.0, odd[dice.Below(8)],
                       odd[dice.Below(8)], 0);
        }
        ExpectSameAsPlain("odd numbers", round);
    }
}

TEST(Chain, BringsShuffledContoursTogether)
{
    Dice dice(33);
    for (int round = 0; round < 50; ++round) {
        StartCase();
        const int contours = 1 + dice.Below(8);
        std::vector<ProfileElement> loose;
        for (int c = 0; c < contours; ++c) {
            const int corners = 3 + dice.Below(10);
            const double centre = 100.0 * c;
            const auto corner = [&](int k) {
                const double angle = 2.0 * Pi * (k % corners) / corners;
                return std::pair{centre + 40.0 * std::cos(angle), 40.0 * std::sin(angle)};
            };
            for (int k = 0; k < corners; ++k) {
                ProfileElement e;
                e.Kind = KindLine;
                std::tie(e.StartX, e.StartY) = corner(k);
                std::tie(e.EndX, e.EndY) = corner(k + 1);
                if (dice.Below(2) == 0) {
                    std::swap(e.StartX, e.EndX);
                    std::swap(e.StartY, e.EndY);
                }
                loose.push_back(e);
            }
        }
        std::mt19937 shuffler(static_cast<unsigned>(round));
        std::shuffle(loose.begin(), loose.end(), shuffler);
        for (const ProfileElement& e : loose) {
            PutLine(e.StartX, e.StartY, e.EndX, e.EndY);
        }
        ExpectSameAsPlain("contours", round);
        SplitIntoProfiles();
        EXPECT_EQ(AppState.ProfileCount, contours) << "each contour came out in one run";
        std::int16_t largest = 0;
        ComputeProfileAreas(largest);
        for (std::int32_t p = 1; p <= contours; ++p) {
            std::int32_t mark = 0;
            std::int16_t sense = 0;
            EXPECT_GT(ProfileArea(p, mark, sense), 1.0) << "closed";
        }
    }
}

TEST(Chain, CopesWithThousandsOfElementsAtOnePoint)
{
    // Stars of lines that meet at a few points a little more than the tolerance apart: each search must look past
    // thousands of slots that lie in the same cell but don't match.
    StartCase();
    Dice dice(5);
    for (int i = 0; i < 3000; ++i) {
        const double hubX = 0.015 * dice.Below(3);
        const double angle = 2.0 * Pi * i / 3000.0;
        const double farX = 500.0 * std::cos(angle);
        const double farY = 500.0 * std::sin(angle);
        if (dice.Below(2) == 0) {
            PutLine(hubX, 0.0, farX, farY);
        } else {
            PutLine(farX, farY, hubX, 0.0);
        }
    }
    ExpectSameAsPlain("star", 0);
}
