// Blocks and their inserts.
#include "DxfHelp.h"

#include "import/Korvanta_DxfIn.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

constexpr std::string_view ArcBlock = "0 BLOCK|2 B|10 0|20 0|0 ARC|10 0|20 0|40 10|50 0|51 90|0 ENDBLK";
constexpr std::string_view CircleBlock = "0 BLOCK|2 B|10 0|20 0|0 CIRCLE|10 3|20 0|40 10|0 ENDBLK";
constexpr std::string_view PointBlock = "0 BLOCK|2 B|10 1|20 2|0 POINT|10 1|20 2|0 ENDBLK";

std::vector<CurvePoint> Places(const DxfResult& result)
{
    std::vector<CurvePoint> places;
    for (const DxfRecord& record : result.Records) {
        places.push_back({record.Entity.P1[0], record.Entity.P1[1]});
    }
    return places;
}

} // namespace

TEST(DxfInserts, PlaceTurnAndScale)
{
    // base point off, then scale 2, then 90 degrees, then (100, 50): (10, 0) -> (20, 0) -> (0, 20) -> (100, 70)
    const DxfResult r = ReadEntities("0 INSERT|2 b|10 100|20 50|41 2|42 2|43 2|50 90",
                                     "0 BLOCK|2 B|10 5|20 5|0 LINE|10 5|20 5|11 15|21 5|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 1U) << "block names have no case";
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{100, 50, 0}));
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{100, 70, 0}));
}

TEST(DxfInserts, MirrorArcsAndHandThemOutFromTheirOtherEnd)
{
    const DxfResult r = ReadEntities("0 INSERT|2 B|41 -1|0 INSERT|2 B|42 -1|0 INSERT|2 B|41 -1|42 -1|"
                                     "0 INSERT|2 B|10 3|230 -1",
                                     ArcBlock);
    ASSERT_EQ(r.Records.size(), 4U);
    ExpectArc(r.Records[0], DxfArc, {0, 0}, 10, {0, 10}, {-10, 0});
    ExpectArc(r.Records[1], DxfArc, {0, 0}, 10, {0, -10}, {10, 0});
    ExpectArc(r.Records[2], DxfArc, {0, 0}, 10, {-10, 0}, {0, -10});
    ExpectArc(r.Records[3], DxfArc, {-3, 0}, 10, {-3, 10}, {-13, 0});
}

TEST(DxfInserts, KeepCirclesStartingAtTheRight)
{
    const DxfResult r =
        ReadEntities("0 INSERT|2 B|50 90|0 INSERT|2 B|41 -1|0 INSERT|2 B|41 2|42 2|50 37", CircleBlock);
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectArc(r.Records[0], DxfCircle, {0, 3}, 10, {10, 3}, {10, 3});
    ExpectArc(r.Records[1], DxfCircle, {-3, 0}, 10, {7, 0}, {7, 0});
    const double x = 6 * 0.79863551;
    const double y = 6 * 0.60181502;
    ExpectArc(r.Records[2], DxfCircle, {x, y}, 20, {x + 20, y}, {x + 20, y});
}

TEST(DxfInserts, RunThroughAnArrayRowByRow)
{
    const DxfResult r = ReadEntities("0 INSERT|2 B|10 100|20 0|70 3|71 2|44 10|45 20", PointBlock);
    const std::vector<CurvePoint> expected{{100, 0}, {110, 0}, {120, 0}, {100, 20}, {110, 20}, {120, 20}};
    const std::vector<CurvePoint> places = Places(r);
    ASSERT_EQ(places.size(), expected.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i].X, expected[i].X) << i;
        EXPECT_EQ(places[i].Y, expected[i].Y) << i;
    }
    EXPECT_EQ(r.Account.Read.at("POINT"), 6);
    EXPECT_EQ(r.Account.Read.at("INSERT"), 1);
}

TEST(DxfInserts, TurnAnArrayButDontScaleItsSteps)
{
    // turned by 90: columns run upward, rows to the left
    const DxfResult r = ReadEntities("0 INSERT|2 B|50 90|41 5|42 5|70 2|71 2|44 10|45 20", PointBlock);
    const std::vector<CurvePoint> expected{{0, 0}, {0, 10}, {-20, 0}, {-20, 10}};
    const std::vector<CurvePoint> places = Places(r);
    ASSERT_EQ(places.size(), expected.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_NEAR(places[i].X, expected[i].X, 1e-6) << i;
        EXPECT_NEAR(places[i].Y, expected[i].Y, 1e-6) << i;
    }
}

TEST(DxfInserts, NestMirrorsAndArrays)
{
    // B holds a quarter arc; C holds B mirrored at y, twice beside each other; the drawing holds C mirrored at x.
    const std::string blocks = std::string(ArcBlock) + "|0 BLOCK|2 C|0 INSERT|2 B|42 -1|70 2|44 100|0 ENDBLK";
    const DxfResult r = ReadEntities("0 INSERT|2 C|10 0|20 0|41 -1", blocks);
    ASSERT_EQ(r.Records.size(), 2U);
    // Both mirrors make a turn by 180: counter-clockwise again, from (-10, 0) to (0, -10).
    ExpectArc(r.Records[0], DxfArc, {0, 0}, 10, {-10, 0}, {0, -10});
    ExpectArc(r.Records[1], DxfArc, {-100, 0}, 10, {-110, 0}, {-100, -10});
    EXPECT_EQ(r.Account.Read.at("INSERT"), 2);
    EXPECT_EQ(r.Account.Read.at("ARC"), 2);
}

TEST(DxfInserts, OfUnequalScalesMakeEllipses)
{
    const DxfResult r = ReadEntities("0 INSERT|2 B|41 2|42 1", ArcBlock);
    ASSERT_EQ(r.Records.size(), 1U);
    std::vector<CurvePoint> samples;
    for (int i = 0; i <= 900; ++i) {
        const double t = i * (std::acos(0.0) / 900.0);
        samples.push_back({20 * std::cos(t), 10 * std::sin(t)});
    }
    ExpectFollows(r.Records[0], samples);
}

TEST(DxfInserts, OfUnequalScalesStartAFullEllipseAtTheRightOfItsCentre)
{
    const DxfResult r = ReadEntities("0 INSERT|2 B|41 2|42 1|50 90", CircleBlock);
    // centre (3, 0) -> (6, 0) -> (0, 6); 10 wide to each side, 20 high
    ASSERT_EQ(r.Records.size(), 1U);
    const auto& vertices = r.Records[0].Vertices;
    EXPECT_NEAR(vertices.front()[0], 10.0, 1e-5);
    EXPECT_NEAR(vertices.front()[1], 6.0, 1e-5);
    EXPECT_EQ(vertices.front(), vertices.back());
    EXPECT_EQ(r.Records[0].Entity.Kind, DxfCurve);
}

TEST(DxfInserts, ThatMakeACircleOfACircleAgainHandOutACircle)
{
    const std::string blocks = std::string(CircleBlock) + "|0 BLOCK|2 C|0 INSERT|2 B|41 2|42 1|0 ENDBLK";
    const DxfResult r = ReadEntities("0 INSERT|2 C|41 1|42 2", blocks);
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectArc(r.Records[0], DxfCircle, {6, 0}, 20, {26, 0}, {26, 0});
}

TEST(DxfInserts, MakeAnEllipseACircle)
{
    const DxfResult r =
        ReadEntities("0 INSERT|2 B|41 1|42 2",
                     "0 BLOCK|2 B|0 ELLIPSE|10 0|20 0|11 10|21 0|40 0.5|41 0|42 1.5707963267948966|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectArc(r.Records[0], DxfArcPiece, {0, 0}, 10, {10, 0}, {0, 10});
}

TEST(DxfInserts, ScaleBulgedPolylinesUnequally)
{
    // half circle right of (0, 0)-(0, 10), twice as wide: reaches x = 10 instead of 5
    const DxfResult r = ReadEntities(
        "0 INSERT|2 B|41 2|42 1",
        "0 BLOCK|2 B|0 LWPOLYLINE|70 0|10 -5|20 0|10 0|20 0|42 1|10 0|20 10|10 -5|20 10|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{-10, 0}, {0, 0}});
    std::vector<CurvePoint> samples;
    for (int i = 0; i <= 900; ++i) {
        const double t = i * (std::acos(-1.0) / 900.0);
        samples.push_back({10 * std::sin(t), 5 - 5 * std::cos(t)});
    }
    ExpectFollows(r.Records[1], samples);
    ExpectRun(r.Records[2], DxfLwPolyline, {{0, 10}, {-10, 10}});
}

TEST(DxfInserts, TakeTheirOwnNormalIntoAccount)
{
    // normal (1, 0, 0): x axis (0, 1, 0), y axis (0, 0, 1): the block's x becomes y, its y is height
    const DxfResult r = ReadEntities("0 INSERT|2 B|10 4|20 5|30 6|210 1|220 0|230 0",
                                     "0 BLOCK|2 B|0 LINE|10 0|20 0|11 10|21 3|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{6, 4, 0}));
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{6, 14, 0}));
}

TEST(DxfInserts, MayStandAheadOfTheirBlocks)
{
    const DxfResult r =
        ReadDxf(Groups("0 SECTION|2 ENTITIES|0 INSERT|2 B|10 5|20 5|0 ENDSEC|0 SECTION|2 BLOCKS") +
                Groups(PointBlock) + Groups("0 ENDSEC|0 EOF"));
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{5, 5, 0}));
}

TEST(DxfInserts, OfNothingAreLeftOut)
{
    const DxfResult r = ReadEntities(
        "0 INSERT|2 MISSING|0 INSERT|2 EMPTY|0 INSERT|2 *Paper_Space0|0 INSERT|2 NOTES|70 2|44 5",
        "0 BLOCK|2 EMPTY|0 ENDBLK|0 BLOCK|2 *Paper_Space0|0 POINT|10 1|20 1|0 ENDBLK|"
        "0 BLOCK|2 NOTES|0 TEXT|1 a|0 ATTDEF|1 b|0 ENDBLK");
    EXPECT_TRUE(r.Records.empty());
    EXPECT_EQ(r.Account.LeftOut,
              (std::map<std::string, std::int64_t>{{"INSERT", 4}, {"TEXT", 2}, {"ATTDEF", 2}}));
}

TEST(DxfInserts, PassOverTheirAttributes)
{
    const DxfResult r = ReadEntities(
        "0 INSERT|66 1|2 B|10 5|20 5|0 ATTRIB|10 9|20 9|1 value|0 SEQEND|8 0|0 POINT|10 1|20 1", PointBlock);
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_TRUE(r.Account.LeftOut.empty());
}

TEST(DxfInserts, WithinThemselvesEnd)
{
    const DxfResult r =
        ReadEntities("0 INSERT|2 A|10 1|20 0",
                     "0 BLOCK|2 A|0 POINT|10 0|20 0|0 INSERT|2 B|10 10|20 0|0 ENDBLK|"
                     "0 BLOCK|2 B|0 POINT|10 0|20 0|0 INSERT|2 A|10 100|20 0|0 INSERT|2 B|0 ENDBLK");
    EXPECT_TRUE(r.Complete);
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_EQ(r.Records[1].Entity.P1, (DxfPoint3{11, 0, 0}));
    EXPECT_EQ(r.Account.LeftOut.at("INSERT"), 2);
}

TEST(DxfInserts, NestedWithoutEndAreCutOff)
{
    std::string blocks = "0 BLOCK|2 B0|0 POINT|10 0|20 0|0 ENDBLK";
    for (int i = 1; i < 5000; ++i) {
        blocks += "|0 BLOCK|2 B" + std::to_string(i) + "|0 INSERT|2 B" + std::to_string(i - 1) + "|0 ENDBLK";
    }
    const DxfResult r = ReadEntities("0 INSERT|2 B4999|0 INSERT|2 B20", blocks);
    EXPECT_TRUE(r.Complete);
    EXPECT_EQ(r.Records.size(), 1U) << "twenty levels are fine";
}

TEST(DxfInserts, ThatMultiplyWithoutMeasureEndTheReading)
{
    // ten copies of ten copies of ... thirty levels: 1e30 points
    std::string blocks = "0 BLOCK|2 B0|0 POINT|10 0|20 0|0 ENDBLK";
    for (int i = 1; i <= 30; ++i) {
        blocks += "|0 BLOCK|2 B" + std::to_string(i) + "|0 INSERT|70 10|44 1|2 B" + std::to_string(i - 1) +
                  "|0 ENDBLK";
    }
    EXPECT_FALSE(ReadEntities("0 INSERT|2 B30", blocks).Complete);
    EXPECT_FALSE(ReadEntities("0 INSERT|2 B|70 32767|71 32767|44 1|45 1", PointBlock).Complete);
    EXPECT_FALSE(ReadEntities("0 INSERT|2 B|70 32767|71 32767|44 1|45 1", ArcBlock).Complete);
}

TEST(DxfInserts, OfTextsAloneCountInAnyNumber)
{
    const DxfResult r =
        ReadEntities("0 INSERT|2 B|70 32767|71 32767|44 1|45 1", "0 BLOCK|2 B|0 TEXT|1 a|0 ENDBLK");
    EXPECT_TRUE(r.Complete);
    EXPECT_EQ(r.Account.LeftOut.at("TEXT"), 32767LL * 32767LL);
}

TEST(DxfInserts, BeyondTheTableMakeTheImportFalse)
{
    StartCase();
    const TempFolder folder;
    std::string name =
        folder.Write("grid.dxf", DrawingOf("0 INSERT|2 B|70 200|71 200|44 30|45 30", ArcBlock));
    EXPECT_FALSE(ImportDxf(name)) << "40000 arcs";
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    name = folder.Write("small.dxf", DrawingOf("0 INSERT|2 B|70 20|71 20|44 30|45 30", ArcBlock));
    EXPECT_TRUE(ImportDxf(name));
    EXPECT_EQ(AppState.ElementCount, 800);
}

TEST(DxfBlocks, WithoutTheirEndEndAtTheNextOne)
{
    const DxfResult r = ReadEntities("0 INSERT|2 A|0 INSERT|2 B",
                                     "0 BLOCK|2 A|0 POINT|10 1|20 0|0 BLOCK|2 B|0 POINT|10 2|20 0");
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_EQ(r.Records[0].Entity.P1[0], 1.0F);
    EXPECT_EQ(r.Records[1].Entity.P1[0], 2.0F);
}
