// On every closed contour of every shape, mirrored or not, the written side, the leads and the scrap lie on one side.
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Drawings.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"
#include "support/TableGeometry.h"

#include <gtest/gtest.h>

#include <cmath>
#include <string>

namespace
{
constexpr double ShortLead = 0.5; ///< fits into the smallest default hole

const ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable.at(static_cast<std::size_t>(slot));
}

/// An outer contour has its scrap outside, every other one inside. That of a hole shape is no outer one, that of the inner
/// ring of C-24 is.
bool ScrapIsInside(std::int16_t shapeId, std::size_t profile, std::int16_t kind)
{
    if (shapeId == FamilyCircular + 24 && profile == 1) {
        return false;
    }
    return kind == KindEnd || shapeId >= FamilyHoles;
}

/// And takes them away from corners, where contours of some classes are entered straight on.
void ShortenLeads()
{
    AppState.MoveStep = 0.01;
    for (std::size_t p = 1; p < AppState.ProfileTable.size(); ++p) {
        AppState.ProfileTable[p].LeadInLength = ShortLead;
        AppState.ProfileTable[p].LeadInRadius = ShortLead;
        AppState.ProfileTable[p].LeadPosition = AppState.ProfileTable[p].ProfileLength * 0.37;
    }
}

void CheckProfile(const std::string& what, std::size_t index, const TableProfile& profile)
{
    if (Element(profile.Mark).GeoB == 0.0) {
        return; // open: the side is the half's own
    }
    const bool inside = ScrapIsInside(AppState.ShapeId, index, Element(profile.Mark).Kind);
    const bool counterClockwise = ExactArea(profile) > 0.0;
    const std::int16_t scrapSide = inside == counterClockwise ? 1 : -1;
    std::vector<CutMove> moves;
    std::int16_t side = 0;
    BuildCutMoves(moves, static_cast<std::int32_t>(index + 1), side, 0.0);
    EXPECT_EQ(side, scrapSide) << what;
    EXPECT_EQ(scrapSide, 1) << what; // with the default senses always the left
    EXPECT_EQ(AppState.ProfileTable.at(index + 1).Side, scrapSide) << what;
    const TablePoint leadStart{moves.at(1).X, moves.at(1).Y};
    EXPECT_EQ(IsInside(leadStart, PointsAlong(profile)), inside) << what;
}

void CheckShape(const char* name, const char* mirror, const char* angle)
{
    StartCase();
    ShapeDrawing drawing{"", "", "", "", "", "", "", 0};
    drawing.Name = name;
    SetText(AppState.TextCutting[FieldMirror], mirror);
    SetText(AppState.TextCutting[FieldAngle], angle);
    ASSERT_EQ(DevelopWith(drawing, DefaultNames(drawing)), 0) << name;
    InitLeadData();
    ShortenLeads();
    const std::vector<TableProfile> profiles = ProfilesInTable();
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        CheckProfile(std::string(name) + " mirror " + mirror + " angle " + angle + " profile " +
                         std::to_string(i + 1),
                     i, profiles[i]);
    }
}
} // namespace

TEST(Sides, TheSideOfEveryClosedContourIsThatOfItsScrap)
{
    for (const ShapeRow& row : ShapeCatalogue()) {
        for (const char* mirror : {"0", "1", "2", "3"}) {
            if (row.ShapeId == FamilyCircular + 24 && mirror[0] != '0') {
                continue;
            }
            CheckShape(row.Name, mirror, "0");
            CheckShape(row.Name, mirror, "33");
        }
    }
    for (const ShapeDrawing& drawing : DrawingsOutside()) {
        CheckShape(drawing.Name, "0", "0");
        CheckShape(drawing.Name, "1", "0");
    }
}

TEST(Sides, TheInnerRingOfC24RunsBackwardsUnderAMirror)
{
    // Its area is stored as that of a hole only once, so any mirror leaves it counter-clockwise, with the scrap on its right,
    // as its records say; its leads stay on the left.
    for (const char* mirror : {"1", "2", "3"}) {
        StartCase();
        ShapeDrawing drawing{"C-24", "", "", "", "", "", "", 0};
        SetText(AppState.TextCutting[FieldMirror], mirror);
        ASSERT_EQ(DevelopWith(drawing, DefaultNames(drawing)), 0);
        InitLeadData();
        ShortenLeads();
        const std::vector<TableProfile> profiles = ProfilesInTable();
        EXPECT_GT(ExactArea(profiles[1]), 0.0);
        EXPECT_EQ(Element(profiles[1].First).Sense, -1);
        EXPECT_EQ(AppState.ProfileTable.at(2).Side, 1.0);
        for (const std::size_t other : {0U, 2U, 3U}) {
            CheckProfile(std::string("mirror ") + mirror, other, profiles[other]);
        }
    }
}

TEST(Sides, TwinHalvesKeepTheirOwnSides)
{
    for (const char* name : {"R-41", "C-25", "C-26"}) {
        StartCase();
        ShapeDrawing drawing{"", "", "", "", "", "", "", 0};
        drawing.Name = name;
        ASSERT_EQ(DevelopWith(drawing, DefaultNames(drawing)), 0);
        InitLeadData();
        std::vector<CutMove> moves;
        std::int16_t side = 0;
        BuildCutMoves(moves, AppState.ProfileCount - 1, side, 0.0);
        EXPECT_EQ(side, 1) << name; // clockwise half, scrap on the left
        BuildCutMoves(moves, AppState.ProfileCount, side, 0.0);
        EXPECT_EQ(side, -1) << name; // counter-clockwise half, scrap on the right
    }
}
