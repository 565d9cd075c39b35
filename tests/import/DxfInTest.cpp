#include "import/Korvanta_DxfIn.h"

#include "DxfHelp.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>

namespace
{

/// Imports groups in their short form.
bool ImportEntities(std::string_view entities)
{
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write("part.dxf", DrawingOf(entities));
    return ImportDxf(name);
}

const ProfileElement& Element(std::size_t slot)
{
    return AppState.ElementTable.at(slot);
}

} // namespace

TEST(ImportDxf, DropsALineOfOneHundredthAndKeepsALongerOne)
{
    // 0.01 as a 32-bit float is 0.0099999998.
    ASSERT_TRUE(ImportEntities("0 LINE|10 0|20 0|11 0.01|21 0"));
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    ASSERT_TRUE(ImportEntities("0 LINE|10 0|20 0|11 0.011|21 0"));
    EXPECT_EQ(AppState.ElementCount, 2) << "the line and its end mark";
    EXPECT_EQ(Element(1).Kind, KindLine);
}

TEST(ImportDxf, TakesACircleAsOneArcFromTheRightOfItsCentre)
{
    ASSERT_TRUE(ImportEntities("0 CIRCLE|10 30|20 20|40 5"));
    ASSERT_EQ(AppState.ElementCount, 2);
    const ProfileElement& arc = Element(1);
    EXPECT_EQ(arc.Kind, KindArc);
    EXPECT_EQ(arc.GeoA, 5.0) << "moved to the origin";
    EXPECT_EQ(arc.GeoB, 5.0);
    EXPECT_EQ(std::fabs(arc.GeoC), 5.0);
    EXPECT_EQ(arc.StartX, 10.0);
    EXPECT_EQ(arc.StartY, 5.0);
    EXPECT_EQ(arc.EndX, arc.StartX);
    EXPECT_EQ(arc.EndY, arc.StartY);
    EXPECT_EQ(Element(2).Kind, KindOuterEnd);
    EXPECT_NEAR(std::fabs(Element(2).GeoB), 25.0 * Pi, 1e-9);
}

TEST(ImportDxf, DropsACircleWithoutRadius)
{
    // An arc of radius 0 is a straight element from its start to its end, here of length 0.
    ASSERT_TRUE(ImportEntities("0 CIRCLE|10 30|20 20|40 0|0 LINE|10 0|20 0|11 5|21 0"));
    EXPECT_EQ(AppState.ElementCount, 2);
    EXPECT_EQ(Element(1).Kind, KindLine);
}

TEST(ImportDxf, ChainsTwoPolylinesThatShareAnEnd)
{
    ASSERT_TRUE(ImportEntities("0 LWPOLYLINE|90 3|70 0|10 0|20 0|10 10|20 0|10 10|20 10|"
                               "0 LWPOLYLINE|90 3|70 0|10 0|20 0|10 0|20 10|10 10|20 10"));
    EXPECT_EQ(AppState.ProfileCount, 1);
    EXPECT_EQ(AppState.ElementCount, 5);
    EXPECT_NEAR(std::fabs(Element(5).GeoB), 100.0, 1e-9);
}

TEST(ImportDxf, KeepsMarkPointsOfADrawingWithoutProfiles)
{
    ASSERT_TRUE(ImportEntities("0 POINT|10 3|20 4|0 POINT|10 5|20 6"));
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    ASSERT_EQ(AppState.MarkPointCount, 2);
    ASSERT_EQ(AppState.MarkPoints.size(), 3U) << "slots from 1";
    EXPECT_EQ(AppState.MarkPoints[1].X, 3.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 4.0);
    EXPECT_EQ(AppState.MarkPoints[2].X, 5.0);
}

TEST(ImportDxf, LeavesLonePointsWhereTheyAre)
{
    ASSERT_TRUE(ImportEntities("0 POINT|10 500000.5|20 4500001"));
    EXPECT_EQ(AppState.MarkPoints[1].X, 500000.5);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 4500001.0);
}

TEST(ImportDxf, MovesMarkPointsWithThePart)
{
    ASSERT_TRUE(ImportEntities("0 POINT|10 15|20 16|0 CIRCLE|10 20|20 20|40 10"));
    EXPECT_EQ(AppState.MarkPoints[1].X, 5.0);
    EXPECT_EQ(AppState.MarkPoints[1].Y, 6.0);
}

TEST(ImportDxf, TakesNothingFromTextsHatchesAndDimensions)
{
    ASSERT_TRUE(ImportEntities("0 TEXT|10 0|20 0|40 2.5|1 A|0 MTEXT|10 0|20 0|40 2.5|1 B|"
                               "0 HATCH|10 0|20 0|91 1|0 DIMENSION|2 *D1|10 0|20 0|0 FLOWERPOT|10 1|11 5"));
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    const std::map<std::string, std::int64_t> leftOut{
        {"TEXT", 1}, {"MTEXT", 1}, {"HATCH", 1}, {"DIMENSION", 1}, {"FLOWERPOT", 1}};
    EXPECT_EQ(AppState.ImportLeftOut, leftOut);
    EXPECT_TRUE(AppState.ImportRead.empty());
}

TEST(ImportDxf, PutsTheFolderInFrontAndNamesTheJob)
{
    StartCase();
    const TempFolder folder;
    folder.Write("Plate.abc.DXF", DrawingOf("0 CIRCLE|10 0|20 0|40 5"));
    folder.Write("lid.AbC", DrawingOf("0 CIRCLE|10 0|20 0|40 5"));
    AppState.DxfPath = folder.Path;
    std::string name = "Plate.abc.DXF";
    ASSERT_TRUE(ImportDxf(name));
    EXPECT_EQ(name, folder.Path + "\\Plate.abc.DXF");
    EXPECT_EQ(AppState.SourceName, name);
    EXPECT_EQ(AppState.JobName, "Plate.abc.DXF") << "any other extension stays";
    name = folder.Path + "/lid.AbC";
    ASSERT_TRUE(ImportDxf(name));
    EXPECT_EQ(AppState.JobName, "lid");
}

TEST(ImportDxf, FailsOnAMissingFileAndEmptiesTheTables)
{
    ASSERT_TRUE(ImportEntities("0 CIRCLE|10 0|20 0|40 5|0 POINT|10 1|20 1"));
    AppState.MoveStep = 3.0;
    std::string name = "/nowhere/at/all.dxf";
    EXPECT_FALSE(ImportDxf(name));
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_EQ(AppState.MoveStep, 10.0);
    EXPECT_TRUE(AppState.ImportRead.empty());
    EXPECT_EQ(AppState.ImportFailure, "the file can't be read");
    ASSERT_TRUE(ImportEntities("0 CIRCLE|10 0|20 0|40 5"));
    EXPECT_EQ(AppState.ImportFailure, "") << "of the import before";
}

TEST(ImportDxf, FailsOnADwgFileWhateverItHolds)
{
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write("part.DWG", DrawingOf("0 CIRCLE|10 0|20 0|40 5"));
    EXPECT_FALSE(ImportDxf(name));
    EXPECT_EQ(AppState.ImportFailure, "DWG drawings can't be read yet; save the drawing as DXF");
}

TEST(ImportDxf, SaysWhenAFileIsNoDrawing)
{
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write("letter.dxf", "Dear customer,\nplease cut the plate.\n");
    EXPECT_FALSE(ImportDxf(name));
    EXPECT_EQ(AppState.ImportFailure, "the file is no DXF drawing");
    EXPECT_EQ(AppState.SourceName, "") << "nothing was opened";
}

TEST(ImportDxf, SaysWhenBlocksMultiplyBeyondMeasure)
{
    StartCase();
    const TempFolder folder;
    std::string name = folder.Write("points.dxf", DrawingOf("0 INSERT|2 B|70 32767|71 32767|44 1|45 1",
                                                            "0 BLOCK|2 B|0 POINT|10 0|20 0|0 ENDBLK"));
    EXPECT_FALSE(ImportDxf(name));
    EXPECT_EQ(AppState.ImportFailure, "the blocks or curves of the drawing multiply beyond measure");
    EXPECT_EQ(AppState.MarkPointCount, 0);
    EXPECT_EQ(AppState.MarkPoints.size(), 1U);
}

TEST(ImportDxf, TellsWhereAProfileStaysOpen)
{
    // A square of 10 whose last side stops 0.5 short; far from the origin, so that the reader takes an offset off.
    ASSERT_TRUE(ImportEntities("0 LINE|10 500000|20 4500000|11 500010|21 4500000|"
                               "0 LINE|10 500010|20 4500000|11 500010|21 4500010|"
                               "0 LINE|10 500010|20 4500010|11 500000|21 4500010|"
                               "0 LINE|10 500000|20 4500010|11 500000|21 4500000.5"));
    ASSERT_EQ(AppState.ImportOpen.size(), 1U);
    const OpenProfile& open = AppState.ImportOpen[0];
    EXPECT_EQ(open.Profile, 1);
    EXPECT_NEAR(open.Gap, 0.5, 1e-6);
    EXPECT_NEAR(open.X, 500000.0, 1e-6);
    EXPECT_NEAR(open.Y, 4500000.5, 1e-6);
    EXPECT_EQ(AppState.ImportRead.at("LINE"), 4);
}

TEST(ImportDxf, GivesClosedProfilesASideAndOpenOnesNone)
{
    ASSERT_TRUE(ImportEntities("0 CIRCLE|10 0|20 0|40 5|0 LINE|10 20|20 0|11 30|21 0"));
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& element = Element(static_cast<std::size_t>(i));
        if (element.Kind == KindArc) {
            EXPECT_EQ(element.Sense, 1);
        } else if (element.Kind == KindLine) {
            EXPECT_EQ(element.Sense, 0);
        }
    }
}

TEST(ImportDxf, FillsTheTableToItsLastSlotAndNoFurther)
{
    // One zigzag run of n lines takes n + 1 slots.
    const auto zigzag = [](int lines) {
        std::string entity = "0 LWPOLYLINE|70 0";
        for (int i = 0; i <= lines; ++i) {
            entity += "|10 " + std::to_string(i) + "|20 " + std::to_string(i % 2);
        }
        return entity;
    };
    EXPECT_TRUE(ImportEntities(zigzag(32766)));
    EXPECT_EQ(AppState.ElementCount, 32767);
    EXPECT_FALSE(ImportEntities(zigzag(32767)));
    EXPECT_EQ(AppState.ImportFailure,
              "there are more elements than the station holds (32767, profile ends included)");
    EXPECT_TRUE(AppState.ImportRead.empty());
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
}

TEST(ImportDxf, CountsTheEndMarksIntoTheLimit)
{
    // Circles take two slots each: 16383 fit (32766), 16384 don't (32768).
    const auto circles = [](int count) {
        std::string entities;
        for (int i = 0; i < count; ++i) {
            entities += (i == 0 ? "0 CIRCLE|10 " : "|0 CIRCLE|10 ") + std::to_string(i % 150) + "|20 " +
                        std::to_string(i / 150) + "|40 0.25";
        }
        return entities;
    };
    EXPECT_TRUE(ImportEntities(circles(16383)));
    EXPECT_EQ(AppState.ElementCount, 32766);
    EXPECT_EQ(AppState.ProfileCount, 16383);
    EXPECT_FALSE(ImportEntities(circles(16384)));
    EXPECT_EQ(AppState.ImportFailure,
              "there are more elements than the station holds (32767, profile ends included)");
    EXPECT_TRUE(AppState.ImportLeftOut.empty());
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ProfileCount, 0);
    EXPECT_TRUE(AppState.ImportRead.empty());
}

TEST(ImportDxf, IgnoresAnArcTooShortToBeTold)
{
    ASSERT_TRUE(ImportEntities("0 ARC|10 0|20 0|40 1|50 0|51 0.5")); // 0.0087 long
    EXPECT_EQ(AppState.ElementCount, 0);
    EXPECT_EQ(AppState.ImportLeftOut.at("ARC"), 1);
}
