// Drawings from a foreign writer (tests/data/make_drawings.py), every version, ASCII and binary.
#include "DxfHelp.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

class DxfSampler : public testing::TestWithParam<const char*>
{
protected:
    bool IsOldest() const
    {
        return std::string(GetParam()).find("R12") != std::string::npos;
    }
    DxfResult Result = ReadDxfFile(std::string("dxf/sampler_") + GetParam() + ".dxf");

    void ExpectPlate(std::size_t first, CurvePoint origin) const
    {
        const double x = origin.X;
        const double y = origin.Y;
        ExpectArc(Result.Records[first], DxfCircle, {x, y}, 2, {x + 2, y}, {x + 2, y});
        ExpectArc(Result.Records[first + 1], DxfArc, {x + 10, y}, 5, {x + 15, y}, {x + 10, y + 5});
        EXPECT_EQ(Result.Records[first + 2].Entity.P1,
                  (DxfPoint3{static_cast<float>(x), static_cast<float>(y), 0}));
    }
};

constexpr std::size_t FirstInsert = 8;
constexpr std::size_t FirstCurve = 32;

std::vector<CurvePoint> QuarterSamples()
{
    std::vector<CurvePoint> samples;
    for (int i = 0; i <= 2000; ++i) {
        const double t = i * (std::acos(0.0) / 2000.0);
        samples.push_back({10 * std::cos(t), 300 + 10 * std::sin(t)});
    }
    return samples;
}

} // namespace

TEST_P(DxfSampler, HandsOutItsLinesArcsAndPoints)
{
    ASSERT_TRUE(Result.Opened);
    ASSERT_TRUE(Result.Complete);
    ASSERT_GE(Result.Records.size(), FirstCurve);
    EXPECT_EQ(Result.Records[0].Entity.Kind, DxfLine);
    EXPECT_EQ(Result.Records[0].Entity.P2, (DxfPoint3{100, 0, 0}));
    ExpectArc(Result.Records[1], DxfArc, {100, 10}, 10, {100, 0}, {110, 10});
    ExpectArc(Result.Records[2], DxfCircle, {50, 50}, 20, {70, 50}, {70, 50});
    EXPECT_EQ(Result.Records[3].Entity.Kind, DxfPoint);
    EXPECT_EQ(Result.Records[3].Entity.P1, (DxfPoint3{5, 6, 0}));
}

TEST_P(DxfSampler, HandsOutItsBulgedPolylineInDrawingOrder)
{
    const std::int16_t kind = IsOldest() ? DxfPolyline : DxfLwPolyline;
    ASSERT_GE(Result.Records.size(), FirstCurve);
    ExpectRun(Result.Records[4], kind, {{0, 100}, {10, 100}});
    ExpectArc(Result.Records[5], DxfArcPiece, {10, 105}, 5, {10, 100}, {10, 110});
    ExpectRun(Result.Records[6], kind, {{10, 110}, {0, 110}});
    // bulge -0.5 over a chord of 10: radius 10 * 1.25 / 2 = 6.25, height 2.5; clockwise, so from its other end
    ExpectArc(Result.Records[7], DxfArcPiece, {-3.75, 105}, 6.25, {0, 100}, {0, 110});
}

TEST_P(DxfSampler, ResolvesItsInserts)
{
    ASSERT_GE(Result.Records.size(), FirstCurve);
    // mirrored at x = 200: the arc runs clockwise and is handed out from its other end
    ExpectArc(Result.Records[FirstInsert], DxfCircle, {200, 0}, 2, {202, 0}, {202, 0});
    ExpectArc(Result.Records[FirstInsert + 1], DxfArc, {190, 0}, 5, {190, 5}, {185, 0});
    // nested: turned by 90 at (20, 0), all of it twice as large at (300, 0)
    ExpectArc(Result.Records[FirstInsert + 3], DxfCircle, {340, 0}, 4, {344, 0}, {344, 0});
    ExpectArc(Result.Records[FirstInsert + 4], DxfArc, {340, 20}, 10, {340, 30}, {330, 20});
    const CurvePoint cells[] = {{400, 0}, {430, 0}, {460, 0}, {400, 40}, {430, 40}, {460, 40}};
    std::size_t record = FirstInsert + 6;
    for (const CurvePoint& cell : cells) {
        ExpectPlate(record, cell);
        record += 3;
    }
    EXPECT_EQ(Result.Account.Read.at("CIRCLE"), 9) << "contents count once per insertion";
    EXPECT_EQ(Result.Account.Read.at("INSERT"), 4);
}

TEST_P(DxfSampler, HandsOutItsCurves)
{
    if (IsOldest()) {
        EXPECT_EQ(Result.Records.size(), FirstCurve);
        return;
    }
    ASSERT_EQ(Result.Records.size(), FirstCurve + 6);
    const DxfRecord* curve = &Result.Records[FirstCurve];
    std::vector<CurvePoint> ellipse;
    for (int i = 0; i <= 4000; ++i) {
        const double t = i * (std::acos(-1.0) / 2000.0);
        ellipse.push_back({500 + 30 * std::cos(t), 500 + 15 * std::sin(t)});
    }
    ExpectFollows(curve[0], ellipse);
    ExpectArc(curve[1], DxfArcPiece, {600, 600}, 10, {610, 600}, {600, 610});
    EXPECT_EQ(curve[2].Vertices.front(), (std::array<float, 2>{0, 200}));
    EXPECT_EQ(curve[2].Vertices.back(), (std::array<float, 2>{30, 200}));
    // an even closed cubic starts at (p0 + 4 p1 + p2) / 6
    EXPECT_NEAR(curve[3].Vertices.front()[0], 100.0 / 6.0, 1e-4);
    EXPECT_NEAR(curve[3].Vertices.front()[1], 400.0 + 20.0 / 6.0, 1e-4);
    EXPECT_EQ(curve[3].Vertices.front(), curve[3].Vertices.back());
    ExpectFollows(curve[4], QuarterSamples());
    EXPECT_LE(LargestMiss(curve[5], {{100, 200}, {110, 210}, {120, 200}, {130, 205}}), 0.005);
}

TEST_P(DxfSampler, LeavesOutTextsHatchesDimensionsAndPaperSpace)
{
    std::map<std::string, std::int64_t> leftOut{{"TEXT", 1}};
    if (!IsOldest()) {
        leftOut = {{"TEXT", 1}, {"MTEXT", 1}, {"HATCH", 1}, {"DIMENSION", 1}, {"LINE", 1}};
        EXPECT_EQ(Result.Ignored, (std::vector<std::int16_t>{15, 16, 17, 17}))
            << "paper space isn't handed out";
    }
    EXPECT_EQ(Result.Account.LeftOut, leftOut);
}

INSTANTIATE_TEST_SUITE_P(Versions, DxfSampler,
                         testing::Values("R12", "R12_binary", "R2000", "R2000_binary", "R2004", "R2007",
                                         "R2010", "R2013", "R2018", "R2018_binary"));
