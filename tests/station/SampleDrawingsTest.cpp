// The sample drawings through the import: counts, sizes and lengths that follow from how tests/data/make_samples.py
// draws them.
#include "SampleTables.h"
#include "import/Korvanta_DxfIn.h"
#include "profile/Korvanta_ProfileCut.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{
void Import(const std::string& drawing)
{
    StartCase();
    AppState.AppPath = std::string(KORVANTA_SOURCE_DIR) + "/station";
    std::string name = StationFile("DXF/" + drawing);
    ASSERT_TRUE(ImportDxf(name)) << drawing;
    ComputeBounds();
}

double AreaOf(std::int32_t profile)
{
    std::int32_t mark = 0;
    std::int16_t sense = 0;
    return ProfileArea(profile, mark, sense);
}

std::int16_t SenseOf(std::int32_t profile)
{
    std::int32_t mark = 0;
    std::int16_t sense = 0;
    ProfileArea(profile, mark, sense);
    return sense;
}

/// Length of an ellipse by Ramanujan's second formula, good to far more digits than are compared here.
double EllipseLength(double a, double b)
{
    const double h = (a - b) * (a - b) / ((a + b) * (a + b));
    return Pi * (a + b) * (1.0 + 3.0 * h / (10.0 + std::sqrt(4.0 - 3.0 * h)));
}

struct DrawingCase {
    const char* Name;
    std::int32_t Profiles;
    double Width;
    double Height;
    std::int32_t Marks;
};

class Drawings : public testing::TestWithParam<DrawingCase>
{
};
INSTANTIATE_TEST_SUITE_P(
    Shipped, Drawings,
    testing::Values(
        // outline, two holes, slot, window; the drawing stands at 200, 100
        DrawingCase{"BRACKET", 5, 140.0, 90.0, 2},
        // rim, bore with keyway, eight bolt holes
        DrawingCase{"FLANGE", 10, 160.0, 160.0, 0},
        // outline, two bores, ellipse, four bolt holes, two water passages
        DrawingCase{"GASKET", 10, 220.0, 120.0, 0},
        // outline, four corner holes, 10 x 4 vents, four connectors of three cut-outs, 2 x 5
        // buttons, window, ellipse, speaker
        DrawingCase{"PANEL", 1 + 4 + 40 + 12 + 10 + 1 + 1 + 1, 480.0, 320.0, 0}),
    [](const auto& row) { return std::string(row.param.Name); });

TEST_P(Drawings, GiveTheirClosedProfilesAndSize)
{
    const DrawingCase& c = GetParam();
    Import(std::string(c.Name) + ".dxf");
    EXPECT_EQ(AppState.ProfileCount, c.Profiles);
    EXPECT_TRUE(AppState.ImportOpen.empty());
    EXPECT_EQ(AppState.MarkPointCount, c.Marks);
    EXPECT_NEAR(AppState.MinX, 0.0, 1e-4);
    EXPECT_NEAR(AppState.MinY, 0.0, 1e-4);
    EXPECT_NEAR(AppState.MaxX, c.Width, 1e-4);
    EXPECT_NEAR(AppState.MaxY, c.Height, 1e-4);
    for (std::int32_t p = 1; p <= AppState.ProfileCount; ++p) {
        EXPECT_GT(AreaOf(p), 0.0) << "profile " << p << " is open";
        EXPECT_EQ(SenseOf(p), p == AppState.ProfileCount ? -1 : 1)
            << "holes left, outline right: profile " << p;
    }
}

TEST_P(Drawings, HaveTheOutlineLast)
{
    Import(std::string(GetParam().Name) + ".dxf");
    for (std::int32_t p = 1; p < AppState.ProfileCount; ++p) {
        EXPECT_LT(AreaOf(p), AreaOf(AppState.ProfileCount)) << "profile " << p;
    }
}

TEST(DrawingLengths, BracketIsChainedFromLooseLinesAndArcs)
{
    Import("BRACKET.dxf");
    // outline 6 lines and 6 arcs, holes one arc each, slot 4, window 4, and the five end marks
    EXPECT_EQ(AppState.ElementCount, 12 + 2 + 4 + 4 + 5);
    const double outline = 120 + 20 + 65 + 25 + 30 + 70 + 5 * (Pi / 2 * 10) + Pi / 2 * 15;
    const double holes = 2 * (2 * Pi * 4.5);
    const double slot = 2 * 20 + 2 * Pi * 5.5;
    const double window = 4 * 20;
    EXPECT_NEAR(AppState.TotalCutLength, outline + holes + slot + window, 1e-3);
    // 55, 10 and 55, 30 of the part
    EXPECT_NEAR(AppState.MarkPoints[1].X, 55.0, 1e-4);
    EXPECT_NEAR(AppState.MarkPoints[1].Y + AppState.MarkPoints[2].Y, 40.0, 1e-4);
    EXPECT_NEAR(AppState.MarkPoints[2].X, 55.0, 1e-4);
    EXPECT_EQ(AppState.ImportRead["LINE"], 12);
    EXPECT_EQ(AppState.ImportRead["ARC"], 8);
    EXPECT_EQ(AppState.ImportLeftOut["TEXT"], 1);
}

TEST(DrawingLengths, FlangeHasItsKeyway)
{
    Import("FLANGE.dxf");
    const double keyHalf = 4.0;
    const double bore = 30.0 * (2 * Pi - 2 * std::asin(keyHalf / 30.0));
    const double keyway = 2 * (33.3 - std::sqrt(30.0 * 30.0 - keyHalf * keyHalf)) + 2 * keyHalf;
    EXPECT_NEAR(AppState.TotalCutLength, 2 * Pi * 80 + bore + keyway + 8 * (2 * Pi * 5.5), 1e-3);
    // rim 1, bolt holes 8, bore one arc and three lines, ten end marks
    EXPECT_EQ(AppState.ElementCount, 1 + 8 + 4 + 10);
}

TEST(DrawingLengths, PanelHasAllItsCutOuts)
{
    Import("PANEL.dxf");
    const double outline = 2 * 464 + 2 * 304 + 2 * Pi * 8;
    const double corners = 4 * (2 * Pi * 3);
    const double vents = 40 * (2 * 34 + 2 * Pi * 3);
    const double connectors = 4 * (15 + 15 + 10 + Pi * 5 + 2 * (2 * Pi * 1.6));
    const double buttons = 10 * (2 * Pi * 8);
    const double window = 2 * (120 + 70);
    const double ellipses = EllipseLength(25, 10) + EllipseLength(20, 10);
    EXPECT_NEAR(AppState.TotalCutLength, outline + corners + vents + connectors + buttons + window + ellipses,
                0.02);
    EXPECT_EQ(AppState.ImportLeftOut["MTEXT"], 1);
}

TEST(DrawingAreas, GasketOpeningsAreWhatTheirCurvesEnclose)
{
    Import("GASKET.dxf");
    // The four waist curves are point-symmetric, so each takes half of its 30 x 12 box.
    const double outline = 220.0 * 120.0 - (4 - Pi) * 20 * 20 - 4 * (30.0 * 12.0 / 2);
    EXPECT_NEAR(AreaOf(AppState.ProfileCount), outline, outline * 1e-3);
    std::vector<double> areas;
    for (std::int32_t p = 1; p < AppState.ProfileCount; ++p) {
        areas.push_back(AreaOf(p));
    }
    std::sort(areas.begin(), areas.end());
    ASSERT_EQ(areas.size(), 9U);
    EXPECT_NEAR(areas[8], Pi * 35 * 35, 2.0); // circle
    EXPECT_NEAR(areas[7], Pi * 35 * 35, 2.0); // rational spline
    EXPECT_NEAR(areas[6], Pi * 20 * 8, 1.0);  // ellipse
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_NEAR(areas[i], Pi * 5 * 5, 1e-3); // bolt holes
    }
    // The passage through eight points of an 8 x 5 ellipse, and the one that eight control points on 9 x 6 pull
    // inward, stay near those ellipses.
    EXPECT_GT(areas[4], Pi * 7 * 4);
    EXPECT_LT(areas[5], Pi * 9 * 6);
}
} // namespace
