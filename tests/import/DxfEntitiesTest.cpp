// Arcs, circles, points and polylines of a drawing.
#include "DxfHelp.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

const double HalfRoot = std::sqrt(0.5);

} // namespace

TEST(DxfArcs, AreHandedOutCounterClockwise)
{
    const DxfResult r = ReadEntities("0 ARC|10 1|20 2|40 10|50 0|51 90|0 ARC|10 0|20 0|40 10|50 350|51 10");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectArc(r.Records[0], DxfArc, {1, 2}, 10, {11, 2}, {1, 12});
    const double c = 9.84807753;
    const double s = 1.73648178;
    ExpectArc(r.Records[1], DxfArc, {0, 0}, 10, {c, -s}, {c, s});
}

TEST(DxfArcs, OfAFullTurnStartAtTheirOwnStart)
{
    const DxfResult r =
        ReadEntities("0 ARC|10 0|20 0|40 10|50 0|51 360|0 ARC|10 0|20 0|40 10|50 90|51 450|"
                     "0 ARC|10 0|20 0|40 10|50 180|51 180|0 ARC|10 0|20 0|40 10|50 -90|51 270");
    ASSERT_EQ(r.Records.size(), 4U);
    ExpectArc(r.Records[0], DxfArc, {0, 0}, 10, {10, 0}, {10, 0});
    ExpectArc(r.Records[1], DxfArc, {0, 0}, 10, {0, 10}, {0, 10});
    ExpectArc(r.Records[2], DxfArc, {0, 0}, 10, {-10, 0}, {-10, 0});
    ExpectArc(r.Records[3], DxfArc, {0, 0}, 10, {0, -10}, {0, -10});
    for (const DxfRecord& record : r.Records) {
        EXPECT_EQ(record.Entity.P3, record.Entity.P4) << "to the bit";
    }
}

TEST(DxfArcs, BelowOneHundredthInLengthAreNotHandedOut)
{
    // radius 1: 0.5 degrees are 0.00873 long, 0.6 degrees 0.01047
    const DxfResult r = ReadEntities("0 ARC|10 0|20 0|40 1|50 0|51 0.5|0 ARC|10 0|20 0|40 1|50 0|51 0.6|"
                                     "0 CIRCLE|10 0|20 0|40 0.001");
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_NEAR(r.Records[0].Entity.P4[1], 0.010472, 1e-6);
    EXPECT_EQ(r.Records[1].Entity.Kind, DxfCircle) << "a full circle of any size is";
    EXPECT_EQ(r.Account.LeftOut.at("ARC"), 1);
    EXPECT_EQ(r.Account.Read.at("ARC"), 1);
}

TEST(DxfArcs, ThatWouldBecomeFullCirclesByRoundingAreNotHandedOut)
{
    // Far out a float holds steps of 0.0039 only: an arc of 0.0105 may end up shorter than 0.01 there. Never may a record
    // of less than half a turn have ends closer than that.
    std::string entities = "0 POINT|10 0|20 0";
    for (int i = 0; i < 200; ++i) {
        entities += "|0 ARC|10 " + std::to_string(40000 + i) + ".123|20 50000|40 100|50 " +
                    std::to_string(i) + "|51 " + std::to_string(i) + ".006";
    }
    const DxfResult r = ReadEntities(entities);
    for (const DxfRecord& record : r.Records) {
        if (record.Entity.Kind == DxfArc) {
            const double x = record.Entity.P4[0] - record.Entity.P3[0];
            const double y = record.Entity.P4[1] - record.Entity.P3[1];
            EXPECT_GE(std::hypot(x, y), 0.01);
        }
    }
    EXPECT_GT(r.Records.size(), 20U) << "most of them stay";
}

TEST(DxfCircles, StartAtTheRightOfTheirCentreWhateverTheirNormal)
{
    // The normal (0, 0, -1) mirrors x: the centre 5 stands at -5.
    const DxfResult r = ReadEntities("0 CIRCLE|10 5|20 7|40 2|0 CIRCLE|10 5|20 7|40 2|210 0|220 0|230 -1");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectArc(r.Records[0], DxfCircle, {5, 7}, 2, {7, 7}, {7, 7});
    ExpectArc(r.Records[1], DxfCircle, {-5, 7}, 2, {-3, 7}, {-3, 7});
    EXPECT_EQ(r.Records[1].Entity.P3, r.Records[1].Entity.P4);
}

TEST(DxfArcs, WithAReversedNormalAreMirrored)
{
    // In its own plane from (10, 0) to (0, 10) about 0; seen from above from (-10, 0) clockwise to (0, 10).
    const DxfResult r = ReadEntities("0 ARC|10 0|20 0|40 10|50 0|51 90|210 0|220 0|230 -1");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectArc(r.Records[0], DxfArc, {0, 0}, 10, {0, 10}, {-10, 0});
}

TEST(DxfArcs, OfATiltedPlaneBecomeEllipses)
{
    // Normal (0, -s, s), s = sqrt(1/2). Its x axis is z cross n = (1, 0, 0), its y axis n cross x = (0, s, s):
    // a circle of radius 10 is 20 wide and 20 s high from above.
    const DxfResult r =
        ReadEntities("0 CIRCLE|10 0|20 0|40 10|210 0|220 -0.70710678118654752|230 0.70710678118654752");
    ASSERT_EQ(r.Records.size(), 1U);
    std::vector<CurvePoint> samples;
    for (int i = 0; i <= 3600; ++i) {
        const double t = i * (std::acos(-1.0) / 1800.0);
        samples.push_back({10 * std::cos(t), 10 * HalfRoot * std::sin(t)});
    }
    ExpectFollows(r.Records[0], samples);
    EXPECT_EQ(r.Records[0].Vertices.front(), r.Records[0].Vertices.back());
}

TEST(DxfArcs, SeenFromTheirSideAreStraight)
{
    const DxfResult r = ReadEntities("0 CIRCLE|10 0|20 5|30 3|40 10|210 1|220 0|230 0");
    // The plane's x axis is z cross n = (0, 1, 0), its y axis (0, 0, 1): centre at (3, 0), the circle from -10 to 10.
    ASSERT_EQ(r.Records.size(), 1U);
    double low = 0;
    double high = 0;
    for (const auto& v : r.Records[0].Vertices) {
        EXPECT_NEAR(v[0], 3.0, 1e-6);
        low = std::min(low, static_cast<double>(v[1]));
        high = std::max(high, static_cast<double>(v[1]));
    }
    EXPECT_NEAR(low, -10.0, 0.005);
    EXPECT_NEAR(high, 10.0, 0.005);
    EXPECT_GT(LeastStep(r.Records[0]), 0.01);
}

TEST(DxfPoints, AndLinesIgnoreTheNormal)
{
    const DxfResult r =
        ReadEntities("0 POINT|10 5|20 7|30 9|210 0|220 0|230 -1|0 LINE|10 1|20 2|30 3|11 4|21 5|31 6|"
                     "210 0|220 0|230 -1");
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{5, 7, 0})) << "they stand in the drawing's own axes";
    EXPECT_EQ(r.Records[1].Entity.P1, (DxfPoint3{1, 2, 0}));
    EXPECT_EQ(r.Records[1].Entity.P2, (DxfPoint3{4, 5, 0}));
}

TEST(DxfPolylines, RepeatTheirFirstVertexWhenClosed)
{
    const DxfResult r = ReadEntities(
        "0 LWPOLYLINE|90 3|70 1|10 0|20 0|10 10|20 0|10 10|20 10|"
        "0 LWPOLYLINE|90 3|70 0|10 0|20 0|10 10|20 0|10 10|20 10|"
        "0 POLYLINE|66 1|70 1|0 VERTEX|10 0|20 0|0 VERTEX|10 5|20 0|0 VERTEX|10 5|20 5|0 SEQEND");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{0, 0}, {10, 0}, {10, 10}, {0, 0}});
    ExpectRun(r.Records[1], DxfLwPolyline, {{0, 0}, {10, 0}, {10, 10}});
    ExpectRun(r.Records[2], DxfPolyline, {{0, 0}, {5, 0}, {5, 5}, {0, 0}});
}

TEST(DxfPolylines, CloseWithTheBulgeOfTheirLastVertex)
{
    // Bulge 1 from (0, 10) down to (0, 0) is a half circle on the left side of the drawing, counter-clockwise.
    const DxfResult r = ReadEntities("0 LWPOLYLINE|70 1|10 0|20 0|10 10|20 0|10 10|20 10|10 0|20 10|42 1");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{0, 0}, {10, 0}, {10, 10}, {0, 10}});
    ExpectArc(r.Records[1], DxfArcPiece, {0, 5}, 5, {0, 10}, {0, 0});
}

TEST(DxfPolylines, IgnoreTheLastBulgeWhenOpen)
{
    const DxfResult r = ReadEntities("0 LWPOLYLINE|70 0|10 0|20 0|10 10|20 0|42 1");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{0, 0}, {10, 0}});
}

TEST(DxfPolylines, OfTwoBulgedVerticesAreACircle)
{
    for (const char* entities :
         {"0 LWPOLYLINE|70 1|10 0|20 0|42 1|10 10|20 0|42 1",
          "0 POLYLINE|66 1|70 1|0 VERTEX|10 0|20 0|42 1|0 VERTEX|10 10|20 0|42 1|0 SEQEND"}) {
        const DxfResult r = ReadEntities(entities);
        ASSERT_EQ(r.Records.size(), 2U);
        ExpectArc(r.Records[0], DxfArcPiece, {5, 0}, 5, {0, 0}, {10, 0});
        ExpectArc(r.Records[1], DxfArcPiece, {5, 0}, 5, {10, 0}, {0, 0});
    }
    // clockwise: the same halves from their other ends
    const DxfResult r = ReadEntities("0 LWPOLYLINE|70 1|10 0|20 0|42 -1|10 10|20 0|42 -1");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectArc(r.Records[0], DxfArcPiece, {5, 0}, 5, {10, 0}, {0, 0});
    ExpectArc(r.Records[1], DxfArcPiece, {5, 0}, 5, {0, 0}, {10, 0});
}

TEST(DxfPolylines, TurnBulgesIntoTheArcsTheyMean)
{
    // bulge tan(22.5 degrees) is a quarter: centre (0, 0), from (10, 0) to (0, 10); negative: the centre (10, 10)
    const DxfResult r = ReadEntities("0 LWPOLYLINE|70 0|10 10|20 0|42 0.41421356237309503|10 0|20 10|"
                                     "0 LWPOLYLINE|70 0|10 10|20 0|42 -0.41421356237309503|10 0|20 10|"
                                     "0 LWPOLYLINE|70 0|10 10|20 0|42 2.414213562373095|10 0|20 10");
    ASSERT_EQ(r.Records.size(), 3U);
    ExpectArc(r.Records[0], DxfArcPiece, {0, 0}, 10, {10, 0}, {0, 10});
    ExpectArc(r.Records[1], DxfArcPiece, {10, 10}, 10, {0, 10}, {10, 0});
    ExpectArc(r.Records[2], DxfArcPiece, {10, 10}, 10, {10, 0}, {0, 10}); // three quarters
}

TEST(DxfPolylines, TakeATinyBulgeAsStraight)
{
    const DxfResult r =
        ReadEntities("0 LWPOLYLINE|70 0|10 0|20 0|42 0.9e-9|10 10|20 0|42 -0.9e-9|10 20|20 0|10 30|20 0");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{0, 0}, {10, 0}, {20, 0}, {30, 0}});
}

TEST(DxfPolylines, NeverHandOutAnArcThatItsFloatsCantHold)
{
    // Bulge 1e-6 over 100: radius 25000000, height 0.00005. As an arc of floats it could come out as a full circle.
    const DxfResult flat = ReadEntities("0 LWPOLYLINE|70 0|10 0|20 0|42 1e-6|10 100|20 0");
    ASSERT_EQ(flat.Records.size(), 1U);
    ExpectRun(flat.Records[0], DxfLwPolyline, {{0, 0}, {100, 0}});
    // Bulge 0.001 over 3997.3: height 1.99865, radius 999326. A float of that size holds steps of 0.0625.
    const DxfResult large = ReadEntities("0 LWPOLYLINE|70 0|10 0.7|20 0.3|42 0.001|10 3998|20 0.3");
    ASSERT_EQ(large.Records.size(), 1U);
    EXPECT_EQ(large.Records[0].Entity.Kind, DxfCurve);
    EXPECT_LE(LargestMiss(large.Records[0], {{1999.35, 0.3 - 1.99865}, {0.7, 0.3}, {3998, 0.3}}), 0.005);
}

TEST(DxfPolylines, HandOutLongListsInPiecesThatShareTheirJoint)
{
    std::string entity = "0 LWPOLYLINE|70 0";
    for (int i = 0; i < 40000; ++i) {
        entity += "|10 " + std::to_string(i % 1000) + "|20 " + std::to_string(i / 1000);
    }
    const DxfResult r = ReadEntities(entity);
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_EQ(r.Records[0].Entity.PointCount, 32767);
    EXPECT_EQ(r.Records[1].Entity.PointCount, 40000 - 32766);
    EXPECT_EQ(r.Records[0].Vertices.back(), r.Records[1].Vertices.front());
    EXPECT_EQ(r.Account.Read.at("LWPOLYLINE"), 1);
}

TEST(DxfPolylines, OfSpaceAreSeenFromAbove)
{
    const DxfResult r =
        ReadEntities("0 POLYLINE|66 1|70 9|210 0|220 0|230 -1|0 VERTEX|10 1|20 2|30 50|42 1|70 32|"
                     "0 VERTEX|10 3|20 4|30 60|70 32|0 VERTEX|10 5|20 0|30 70|70 32|0 SEQEND");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfPolyline, {{1, 2}, {3, 4}, {5, 0}, {1, 2}});
}

TEST(DxfPolylines, OfThePlaneTakeTheirNormalAndElevation)
{
    // Normal (0, -1, 0): x axis (1, 0, 0), y axis n cross x = (0, 0, 1): y is seen from above as -elevation.
    const DxfResult r =
        ReadEntities("0 LWPOLYLINE|70 0|38 -7|210 0|220 -1|230 0|10 1|20 2|10 5|20 9|"
                     "0 POLYLINE|66 1|70 0|10 0|20 0|30 -7|210 0|220 -1|230 0|0 VERTEX|10 1|20 2|30 99|"
                     "0 VERTEX|10 5|20 9|30 99|0 SEQEND");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectRun(r.Records[0], DxfLwPolyline, {{1, 7}, {5, 7}});
    ExpectRun(r.Records[1], DxfPolyline, {{1, 7}, {5, 7}});
}

TEST(DxfPolylines, MirrorTheirBulgesWithAReversedNormal)
{
    // In its own plane a half circle right of (0, 0)-(0, 10); from above x is mirrored: left, and clockwise.
    const DxfResult r = ReadEntities("0 LWPOLYLINE|70 0|210 0|220 0|230 -1|10 0|20 0|42 1|10 0|20 10");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectArc(r.Records[0], DxfArcPiece, {0, 5}, 5, {0, 10}, {0, 0});
}

TEST(DxfPolylines, OfMeshesGiveNothing)
{
    const DxfResult r = ReadEntities(
        "0 POLYLINE|66 1|70 16|71 2|72 2|0 VERTEX|10 0|20 0|70 64|0 VERTEX|10 9|20 0|70 64|0 SEQEND|"
        "0 POLYLINE|66 1|70 64|0 VERTEX|10 0|20 0|70 192|0 VERTEX|10 9|20 0|70 192|0 SEQEND|"
        "0 LINE|10 1|20 1|11 2|21 2");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Ignored, (std::vector<std::int16_t>{17, 17}));
    EXPECT_EQ(r.Account.LeftOut.at("POLYLINE"), 2);
    EXPECT_EQ(r.Account.Read.size(), 1U) << "vertices and sequence ends aren't entities";
}

TEST(DxfPolylines, TakeFittedVerticesAndNotTheFrame)
{
    const DxfResult r =
        ReadEntities("0 POLYLINE|66 1|70 4|0 VERTEX|10 0|20 0|70 16|0 VERTEX|10 5|20 9|70 16|"
                     "0 VERTEX|10 0|20 0|70 8|0 VERTEX|10 3|20 4|70 8|0 VERTEX|10 9|20 0|70 8|0 SEQEND");
    ASSERT_EQ(r.Records.size(), 1U);
    ExpectRun(r.Records[0], DxfPolyline, {{0, 0}, {3, 4}, {9, 0}});
}

TEST(DxfPolylines, WithoutTheirEndEndAtTheNextEntity)
{
    const DxfResult r =
        ReadEntities("0 POLYLINE|66 1|70 0|0 VERTEX|10 0|20 0|0 VERTEX|10 5|20 0|0 POINT|10 1|20 1");
    ASSERT_EQ(r.Records.size(), 2U);
    ExpectRun(r.Records[0], DxfPolyline, {{0, 0}, {5, 0}});
    EXPECT_EQ(r.Records[1].Entity.Kind, DxfPoint);
}

TEST(DxfPolylines, OfOneVertexGiveNothing)
{
    const DxfResult r =
        ReadEntities("0 LWPOLYLINE|70 1|10 0|20 0|42 1|0 LWPOLYLINE|70 0|0 POLYLINE|66 1|0 SEQEND");
    EXPECT_TRUE(r.Records.empty());
    EXPECT_EQ(r.Account.LeftOut.at("LWPOLYLINE"), 2);
}

TEST(DxfEntities, OfUnknownNamesStandBetweenKnownOnes)
{
    const DxfResult r =
        ReadEntities("0 LINE|10 0|20 0|11 1|21 0|0 XYZZY|10 5|20 5|11 6|21 6|40 3|0 LINE|10 1|20 0|11 2|21 0|"
                     "0 3DFACE|10 0|20 0|11 5|21 0|12 5|22 5|0 TEXT|10 1|20 1|1 0|0 MTEXT|3 LINE|1 0|"
                     "101 Embedded Object|70 1|10 1|20 0|0 LINE|10 2|20 0|11 3|21 0|0 |10 7");
    EXPECT_EQ(r.Records.size(), 3U);
    EXPECT_EQ(r.Ignored, (std::vector<std::int16_t>{17, 17, 15, 16, 17}));
    EXPECT_EQ(r.Account.Read, (std::map<std::string, std::int64_t>{{"LINE", 3}}));
    EXPECT_EQ(r.Account.LeftOut.at("XYZZY"), 1);
}

TEST(DxfEntities, KeepTheirNumbersFromOthersData)
{
    // Other applications' groups and extended data use codes that mean something else there.
    const DxfResult r =
        ReadEntities("0 LINE|102 {ACME|10 99|11 99|102 }|10 1|20 2|11 3|21 4|1001 ACME|1010 55|1040 66");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{1, 2, 0}));
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{3, 4, 0}));
}

TEST(DxfEntities, ComeInAnyOrderOfGroups)
{
    const DxfResult r = ReadEntities("0 LINE|21 4|11 3|20 2|10 1|8 0|0 ARC|51 90|40 5|50 0|20 2|10 1");
    ASSERT_EQ(r.Records.size(), 2U);
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{3, 4, 0}));
    ExpectArc(r.Records[1], DxfArc, {1, 2}, 5, {6, 2}, {1, 7});
}

TEST(DxfEntities, OfPaperSpaceAreLeftOut)
{
    const DxfResult r = ReadEntities(
        "0 LINE|67 1|10 0|20 0|11 1|21 0|0 LINE|67 0|10 0|20 0|11 2|21 0|"
        "0 POLYLINE|67 1|66 1|0 VERTEX|10 1|20 1|0 VERTEX|10 2|20 2|0 SEQEND|0 INSERT|67 1|2 B",
        "0 BLOCK|2 B|0 CIRCLE|10 0|20 0|40 1|0 ENDBLK|0 BLOCK|2 *Paper_Space|0 LINE|10 0|20 0|11 9|"
        "21 9|0 ENDBLK");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_EQ(r.Records[0].Entity.P2[0], 2.0F);
    EXPECT_TRUE(r.Ignored.empty());
    EXPECT_EQ(r.Account.LeftOut,
              (std::map<std::string, std::int64_t>{{"LINE", 1}, {"POLYLINE", 1}, {"INSERT", 1}}));
}

TEST(DxfOffset, LeavesADrawingWithinItsReachAlone)
{
    const DxfResult r = ReadEntities("0 LINE|10 4096|20 -4096|11 1.25|21 2.5");
    EXPECT_EQ(r.Account.OffsetX, 0.0);
    EXPECT_EQ(r.Account.OffsetY, 0.0);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{4096, -4096, 0}));
}

TEST(DxfOffset, KeepsThePrecisionOfADrawingFarAway)
{
    const DxfResult r = ReadEntities("0 LINE|10 500000.125|20 4500000.5|11 500010.375|21 4500020.0625|"
                                     "0 CIRCLE|10 500005.5|20 4500005.25|40 2|"
                                     "0 LWPOLYLINE|70 0|10 500001.03125|20 4500002|10 500003|20 4500004");
    ASSERT_EQ(r.Records.size(), 3U);
    EXPECT_EQ(r.Account.OffsetX, 500000.0);
    EXPECT_EQ(r.Account.OffsetY, 4500000.0);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{0.125F, 0.5F, 0}));
    EXPECT_EQ(r.Records[0].Entity.P2, (DxfPoint3{10.375F, 20.0625F, 0}));
    EXPECT_EQ(r.Records[1].Entity.P3, (DxfPoint3{7.5F, 5.25F, 0}));
    EXPECT_EQ(r.Records[2].Vertices[0], (std::array<float, 2>{1.03125F, 2.0F}));
}

TEST(DxfOffset, CountsWhatInsertsPlaceAndHoldsNegativeCorners)
{
    const DxfResult r =
        ReadEntities("0 INSERT|2 B|10 -9000.5|20 10.5", "0 BLOCK|2 B|0 POINT|10 0|20 0|0 ENDBLK");
    EXPECT_EQ(r.Account.OffsetX, -9001.0) << "whole numbers, downwards";
    EXPECT_EQ(r.Account.OffsetY, 10.0);
    EXPECT_EQ(r.Records[0].Entity.P1, (DxfPoint3{0.5F, 0.5F, 0}));
}

TEST(DxfOffset, StaysNearTheGeometryWhenOnlyACentreIsFarAway)
{
    // radius 10000 about (0, -10000): the arc itself stands within 900 of the origin
    const DxfResult r = ReadEntities("0 ARC|10 0|20 -10000|40 10000|50 85|51 95");
    ASSERT_EQ(r.Records.size(), 1U);
    EXPECT_GT(r.Account.OffsetX, -1000.0);
    EXPECT_GT(r.Account.OffsetY, -1000.0);
}
