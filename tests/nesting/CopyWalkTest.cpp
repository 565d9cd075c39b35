// The copies of a nest: order, reversal and limits. The plain walk over every cell is the judge of the fast one.
#include "nesting/Korvanta_CutTecnology.h"

#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>
#include <string>
#include <utility>
#include <vector>

namespace
{
using Copies = std::vector<std::pair<double, double>>;

struct Visit {
    Copies Places;
    std::size_t StopAfter = 1000000;
};

bool Note(double x, double y, void* context)
{
    auto& visit = *static_cast<Visit*>(context);
    visit.Places.emplace_back(x, y);
    return visit.Places.size() < visit.StopAfter;
}

void SetNest(std::int16_t kind, std::int32_t countX, std::int32_t countY, double partX, double partY,
             double gapX, double gapY)
{
    AppState.NestKind = kind;
    AppState.CountX = countX;
    AppState.CountY = countY;
    AppState.PartSizeX = partX;
    AppState.PartSizeY = partY;
    AppState.GapX = gapX;
    AppState.GapY = gapY;
}

void SetSheet(const std::string& x, const std::string& y)
{
    AppState.TextNesting[FieldSheetX].Text = x;
    AppState.TextNesting[FieldSheetY].Text = y;
}

Copies Walk(double originX = 0.0, double originY = 0.0)
{
    Visit visit;
    const std::int64_t copies = WalkCopies(originX, originY, Note, &visit);
    EXPECT_EQ(copies, static_cast<std::int64_t>(visit.Places.size()));
    EXPECT_EQ(CountCopies(originX, originY), copies);
    return visit.Places;
}

class CopyWalk : public ::testing::Test
{
protected:
    void SetUp() override
    {
        StartCase();
    }
};

TEST_F(CopyWalk, OneCopyStandsAtTheOrigin)
{
    SetNest(0, 5, 5, 40, 40, 10, 10);
    EXPECT_EQ(Walk(3, 4), (Copies{{3, 4}}));
}

TEST_F(CopyWalk, Type1RunsRowByRowBackAndForth)
{
    SetNest(1, 3, 2, 40, 20, 10, 5);
    EXPECT_EQ(Walk(5, 2.5), (Copies{{5, 2.5}, {55, 2.5}, {105, 2.5}, {105, 27.5}, {55, 27.5}, {5, 27.5}}));
}

TEST_F(CopyWalk, Type2RunsColumnByColumnBackAndForth)
{
    SetNest(2, 3, 2, 40, 20, 10, 5);
    EXPECT_EQ(Walk(), (Copies{{0, 0}, {0, 25}, {50, 25}, {50, 0}, {100, 0}, {100, 25}}));
}

TEST_F(CopyWalk, Types1And2MindNoSheet)
{
    SetSheet("1", "1");
    SetNest(1, 2, 1, 40, 20, -60, 0);
    EXPECT_EQ(Walk(), (Copies{{0, 0}, {-20, 0}}));
    SetNest(2, 2, 1, 40, 20, -60, 0);
    EXPECT_EQ(Walk(), (Copies{{0, 0}, {-20, 0}}));
}

TEST_F(CopyWalk, NothingCountedIsNoCopy)
{
    for (const std::int16_t kind : {std::int16_t{1}, std::int16_t{2}}) {
        SetNest(kind, 0, 0, 40, 20, 0, 0);
        EXPECT_TRUE(Walk().empty());
        SetNest(kind, -3, -3, 40, 20, 0, 0);
        EXPECT_TRUE(Walk().empty());
    }
    SetNest(7, 2, 2, 40, 20, 0, 0);
    EXPECT_TRUE(Walk().empty());
}

TEST_F(CopyWalk, Type3TriesOneRowMoreAndShiftsTheRowsThatRunBack)
{
    // Pitches 10 and 10 x 0.866; four rows are tried for three counted: tops at 10, 18.66, 27.32 and 35.98.
    SetNest(3, 2, 3, 10, 10, 0, 0);
    SetSheet("25", "36");
    const Copies all = Walk();
    ASSERT_EQ(all.size(), 8U);
    EXPECT_EQ(all[0], (std::pair{0.0, 0.0}));
    EXPECT_EQ(all[1], (std::pair{10.0, 0.0}));
    EXPECT_EQ(all[2].first, 15.0);
    EXPECT_NEAR(all[2].second, 8.66, 1e-12);
    EXPECT_EQ(all[3].first, 5.0);
    EXPECT_EQ(all[4].first, 0.0);
    EXPECT_NEAR(all[4].second, 17.32, 1e-12);
    EXPECT_EQ(all[5].first, 10.0);
    EXPECT_EQ(all[6].first, 15.0);
    EXPECT_NEAR(all[7].second, 25.98, 1e-12);
    SetSheet("24.99", "35.9"); // the shifted second column and the fourth row are off the sheet
    const Copies less = Walk();
    ASSERT_EQ(less.size(), 5U);
    EXPECT_EQ(less[2].first, 5.0);
    EXPECT_EQ(less[4].first, 10.0);
}

TEST_F(CopyWalk, Type4ShiftsEvenRows)
{
    SetNest(4, 2, 1, 10, 10, 0, 0);
    SetSheet("25", "100");
    const Copies all = Walk(0, 0);
    ASSERT_EQ(all.size(), 4U);
    EXPECT_EQ(all[0], (std::pair{0.0, 0.0}));
    EXPECT_EQ(all[1].first, 5.0);
    EXPECT_NEAR(all[1].second, 8.66, 1e-12);
    EXPECT_EQ(all[2].first, 15.0) << "the second column runs down";
    EXPECT_NEAR(all[2].second, 8.66, 1e-12);
    EXPECT_EQ(all[3], (std::pair{10.0, 0.0}));
    SetSheet("24", "100"); // a skipped copy doesn't turn the column round
    const Copies less = Walk();
    ASSERT_EQ(less.size(), 3U);
    EXPECT_EQ(less[2], (std::pair{10.0, 0.0}));
}

TEST_F(CopyWalk, LimitsCountTheOriginAndTheGapInHeight)
{
    SetNest(3, 1, 0, 10, 10, 4, 4);
    SetSheet("12", "16");
    EXPECT_EQ(Walk(2, 2).size(), 1U);
    EXPECT_EQ(Walk(2.01, 2).size(), 0U);
    EXPECT_EQ(Walk(2, 2.01).size(), 0U) << "10 and a gap of 4 above 2.01";
}

TEST_F(CopyWalk, VisitorEndsTheWalk)
{
    SetSheet("1000", "1000");
    for (const std::int16_t kind : {std::int16_t{1}, std::int16_t{2}, std::int16_t{3}, std::int16_t{4}}) {
        SetNest(kind, 10, 10, 10, 10, 0, 0);
        Visit visit;
        visit.StopAfter = 13;
        EXPECT_EQ(WalkCopies(0, 0, Note, &visit), 13);
    }
}

TEST_F(CopyWalk, HugeGridsAreCountedNotWalked)
{
    constexpr std::int32_t Most = 2147483647;
    SetNest(1, Most, Most, 0.01, 0.01, 0, 0);
    EXPECT_EQ(CountCopies(0, 0), std::int64_t{Most} * Most);
    // Ten thousand million cells of which nine rows of nine stand on the sheet.
    SetNest(3, Most, Most, 10, 10, 0, 0);
    SetSheet("90", "80");
    EXPECT_EQ(Walk().size(), 9U * 5 + 8 * 4); // rows at 0, 8.66 .. 69.28; the shifted ones hold 8
    SetNest(4, Most, Most, 10, 10, 0, 0);
    EXPECT_EQ(Walk().size(), 9U * 5 + 8 * 4);
    SetSheet("9", "80"); // too narrow for any
    EXPECT_TRUE(Walk().empty());
    SetSheet("90", "9");
    EXPECT_TRUE(Walk().empty());
    SetNest(3, Most, Most, 10, 10, 0, 0);
    EXPECT_TRUE(Walk().empty());
}

/// The walk as it is told, cell by cell.
Copies PlainWalk(double originX, double originY, double sheetX, double sheetY)
{
    Copies copies;
    const double pitchX = AppState.PartSizeX + AppState.GapX;
    const double pitchY = AppState.PartSizeY + AppState.GapY;
    const bool staggered = AppState.NestKind >= 3;
    const std::int32_t rows = AppState.CountY + (staggered ? 1 : 0);
    const bool byRow = AppState.NestKind == 1 || AppState.NestKind == 3;
    const std::int32_t outer = byRow ? rows : AppState.CountX;
    std::int32_t first = 1;
    std::int32_t last = byRow ? AppState.CountX : rows;
    std::int32_t step = 1;
    for (std::int32_t line = 1; line <= outer; ++line) {
        for (std::int32_t i = first; step > 0 ? i <= last : i >= last; i += step) {
            const std::int32_t column = byRow ? i : line;
            const std::int32_t row = byRow ? line : i;
            double x = (column - 1) * pitchX;
            double y = (row - 1) * pitchY;
            if (AppState.NestKind == 3 && step == -1) {
                x += pitchX / 2;
            }
            if (AppState.NestKind == 4 && row % 2 == 0) {
                x += pitchX / 2;
            }
            if (staggered) {
                y *= 0.866;
            }
            x += originX;
            y += originY;
            if (!staggered ||
                (x + AppState.PartSizeX <= sheetX && y + AppState.PartSizeY + AppState.GapY <= sheetY)) {
                copies.emplace_back(x, y);
            }
        }
        std::swap(first, last);
        step = -step;
    }
    return copies;
}

/// The box round `copies`, and the one that FindNestBox tells, have to be the same.
void ExpectBoxOf(const Copies& copies, double originX, double originY)
{
    NestBox box;
    ASSERT_EQ(FindNestBox(originX, originY, box), !copies.empty());
    NestBox plain = {1e9, 1e9, -1e9, -1e9};
    for (const auto& [x, y] : copies) {
        plain = {std::min(plain.Left, x), std::min(plain.Bottom, y),
                 std::max(plain.Right, x + AppState.PartSizeX), std::max(plain.Top, y + AppState.PartSizeY)};
    }
    if (!copies.empty()) {
        EXPECT_EQ(box.Left, plain.Left);
        EXPECT_EQ(box.Bottom, plain.Bottom);
        EXPECT_EQ(box.Right, plain.Right);
        EXPECT_EQ(box.Top, plain.Top);
    }
}

TEST_F(CopyWalk, TheBoxHoldsShiftedRows)
{
    // Pitches 50 and 25 x 0.866; the second row begins at 25 and ends at 75 + 40, 21.65 + 20.
    SetNest(4, 2, 1, 40, 20, 10, 5);
    SetSheet("200", "47");
    NestBox box;
    ASSERT_TRUE(FindNestBox(1, 0, box));
    EXPECT_EQ(box.Left, 1.0);
    EXPECT_EQ(box.Bottom, 0.0);
    EXPECT_EQ(box.Right, 116.0);
    EXPECT_NEAR(box.Top, 41.65, 1e-12);
    SetNest(0, 5, 5, 40, 20, 10, 5);
    ASSERT_TRUE(FindNestBox(-3, 4, box));
    EXPECT_EQ(box.Left, -3.0);
    EXPECT_EQ(box.Top, 24.0);
    SetNest(1, 0, 5, 40, 20, 10, 5);
    EXPECT_FALSE(FindNestBox(0, 0, box));
}

TEST_F(CopyWalk, EqualsThePlainWalk)
{
    std::mt19937 random(20261);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    std::size_t placed = 0;
    for (int round = 0; round < 4000; ++round) {
        SetNest(static_cast<std::int16_t>(pick(1, 4)), pick(0, 9), pick(0, 9), pick(1, 40) * 0.5,
                pick(1, 40) * 0.5, pick(-25, 10) * 0.5, pick(-25, 10) * 0.5);
        const int sheetX = pick(0, 150);
        const int sheetY = pick(0, 150);
        SetSheet(std::to_string(sheetX), std::to_string(sheetY));
        const double originX = pick(-20, 20) * 0.25;
        const double originY = pick(-20, 20) * 0.25;
        const Copies plain = PlainWalk(originX, originY, sheetX, sheetY);
        ASSERT_EQ(Walk(originX, originY), plain) << "round " << round << " kind " << AppState.NestKind;
        ExpectBoxOf(plain, originX, originY);
        placed += plain.size();
    }
    EXPECT_GT(placed, 40000U) << "most nests hold something";
}
} // namespace
