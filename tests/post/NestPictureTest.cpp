// What the operator sees of a nest against what is cut: number of copies, and where each cut begins.
#include "PostStation.h"

#include "config/Korvanta_Configuration.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/LeadParts.h"
#include "support/RecordingSurface.h"

#include <gtest/gtest.h>

#include <random>
#include <sstream>

namespace
{
/// A plate with one hole, and sometimes an open cut.
void MakePlate(double width, double height, bool open)
{
    AddLines({{2, 2}, {6, 2}, {6, 6}, {2, 2}});
    AddEnd(KindEnd, 8, LibraryClass);
    if (open) {
        AddLines({{1, 5}, {3, 7}}, 0);
        AddEnd(KindEnd, 0, LibraryClass);
    }
    AddLines({{0, 0}, {0, height}, {width, height}, {width, 0}, {0, 0}});
    AddEnd(KindOuterEnd, -width * height, LibraryClass);
    MeasureProfiles(FlagOn);
    ComputeBounds();
    InitLeadData();
}

struct Point {
    double X = 0.0;
    double Y = 0.0;
};

/// Ends of the dashed strokes.
std::vector<Point> RapidEnds(const std::vector<std::string>& strokes)
{
    std::vector<Point> ends;
    for (const std::string& stroke : strokes) {
        if (stroke.ends_with("dashed")) {
            std::istringstream text(stroke.substr(5));
            Point end;
            text >> end.X >> end.Y >> end.X >> end.Y;
            ends.push_back(end);
        }
    }
    return ends;
}

std::vector<Point> ProgramRapids(const Lines& lines)
{
    std::vector<Point> ends;
    for (const std::string& line : lines) {
        const std::size_t x = line.find(" X");
        const std::size_t y = line.find(" Y");
        if (line.starts_with("G00") && x != std::string::npos && y != std::string::npos) {
            ends.push_back({std::stod(line.substr(x + 2)), std::stod(line.substr(y + 2))});
        }
    }
    return ends;
}

TEST(NestPicture, ShowsTheCutsOfTheProgram)
{
    const PostStation station(
        "[PartProgram_CONFIG]\nLINENUMBER=OFF\n[PartProgram_StartCUT]\nLINE1=*RAPID_MOVE\n");
    std::mt19937 random(561);
    const auto pick = [&random](int low, int high) {
        return std::uniform_int_distribution<int>(low, high)(random);
    };
    std::size_t cuts = 0;
    for (int round = 0; round < 80; ++round) {
        ClearPart();
        HoldConfigWrites();
        MakePlate(pick(10, 60), pick(10, 60), pick(0, 1) != 0);
        const auto set = [](NestingField field, int number) {
            AppState.TextNesting[static_cast<std::size_t>(field)].Text = std::to_string(number);
        };
        set(FieldSheetX, pick(60, 300));
        set(FieldSheetY, pick(60, 300));
        set(FieldKerf, pick(0, 2));
        set(FieldGapX, pick(-4, 10));
        set(FieldGapY, pick(-4, 10));
        set(FieldNestType, pick(1, 4));
        AppState.NestResultX = pick(0, 3) == 0 ? pick(1, 5) : 0;
        AppState.NestResultY = pick(0, 3) == 0 ? pick(1, 5) : 0;
        AppState.ScreenState = ScreenNesting;
        Drawn.Shown = true;
        RunNesting();
        TakeStrokes();
        RedrawScene(FlagOn);
        const std::int32_t drawn = AppState.CopiesDrawn;
        const std::vector<Point> seen = RapidEnds(TakeStrokes());
        AppState.ScreenState = ScreenInput;
        AppState.SaveMode = FlagOn; // as the station saves it
        RedrawScene(FlagOn);
        EXPECT_EQ(AppState.CopiesDrawn, drawn) << "round " << round;
        GenerateProgram("NEST");
        AppState.SaveMode = FlagOff;
        ASSERT_EQ(AppState.ProgramCopies, drawn) << "round " << round;
        const std::vector<Point> cut = ProgramRapids(station.Program("NEST"));
        ASSERT_EQ(seen.size(), cut.size()) << "round " << round;
        for (std::size_t i = 0; i < cut.size(); ++i) {
            ASSERT_NEAR(seen[i].X, cut[i].X, 0.002) << "round " << round << " cut " << i;
            ASSERT_NEAR(seen[i].Y, cut[i].Y, 0.002) << "round " << round << " cut " << i;
        }
        cuts += cut.size();
    }
    EXPECT_GT(cuts, 1000U);
}
} // namespace
