// The statistics walk draws each copy; only the first two can change a lead. Judged by the walk over them all.
#include "nesting/Korvanta_CutTecnology.h"

#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <random>
#include <vector>

namespace
{
bool DrawCopy(double, double, void*)
{
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        LeadRecordArray leads;
        BuildLeads(leads, profile);
    }
    return true;
}

TEST(Statistics, FurtherCopiesChangeNothing)
{
    std::mt19937 random(661);
    const auto pick = [&random](double low, double high) {
        return std::uniform_real_distribution<double>(low, high)(random);
    };
    int moved = 0;
    for (int round = 0; round < 2000; ++round) {
        StartCase();
        HoldConfigWrites();
        AppState.ScreenState = ScreenNesting;
        Drawn.Shown = round % 2 != 0; // with the strokes of each copy, and without
        const double width = pick(1, 30);
        const double height = pick(1, 30);
        AddLines({{0, 0}, {width, 0}, {width, height}, {0, 0}});
        AddEnd(KindEnd, width * height / 2, pick(0, 1) < 0.5 ? ImportedClass : LibraryClass);
        AddLines({{0, 0}, {0, 40}, {40, 40}, {40, 0}, {0, 0}});
        AddEnd(KindOuterEnd, -1600, ImportedClass);
        MeasureProfiles(FlagOn);
        ComputeBounds();
        InitLeadData();
        AppState.MoveStep = pick(0.1, 20);
        for (std::size_t profile = 1; profile <= 2; ++profile) {
            ProfileRecord& record = AppState.ProfileTable[profile];
            record.LeadPosition = pick(-0.5, 2.0) * record.ProfileLength;
        }
        AppState.TextNesting[FieldSheetX].Text = std::to_string(pick(40, 200));
        AppState.TextNesting[FieldSheetY].Text = std::to_string(pick(40, 200));
        AppState.TextNesting[FieldGapX].Text = "2";
        AppState.TextNesting[FieldGapY].Text = "2";
        AppState.TextNesting[FieldNestType].Text = std::to_string(1 + round % 4);
        const std::vector<ProfileRecord> before = AppState.ProfileTable;
        RedrawScene(FlagOn);
        const std::vector<ProfileRecord> fast = AppState.ProfileTable;
        AppState.ProfileTable = before;
        const std::int64_t copies = WalkCopies(1, 1, DrawCopy, nullptr); // half the gap
        ASSERT_EQ(AppState.CopiesDrawn, copies);
        for (std::size_t profile = 1; profile <= 2; ++profile) {
            const ProfileRecord& plain = AppState.ProfileTable[profile];
            ASSERT_EQ(fast[profile].LeadPosition, plain.LeadPosition) << "round " << round;
            ASSERT_EQ(fast[profile].LeadElement, plain.LeadElement) << "round " << round;
            ASSERT_EQ(fast[profile].Status, plain.Status) << "round " << round;
            moved += plain.LeadPosition != before[profile].LeadPosition ? 1 : 0;
        }
    }
    EXPECT_GT(moved, 500) << "the case that matters was met";
}
} // namespace
