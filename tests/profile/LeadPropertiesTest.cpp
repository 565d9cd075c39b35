// What holds for every part, position, angle, mirror and toggle: random parts with a fixed seed.
#include "config/Korvanta_Configuration.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "support/LeadParts.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace
{
std::mt19937 Random;

double Pick(double low, double high)
{
    return std::uniform_real_distribution<double>(low, high)(Random);
}

int PickWhole(int low, int high)
{
    return std::uniform_int_distribution<int>(low, high)(Random);
}

ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

ProfileRecord& Record(std::int32_t profile)
{
    return AppState.ProfileTable[static_cast<std::size_t>(profile)];
}

/// A star-shaped contour about a centre, of lines and flat arcs, in either direction; now and then a circle.
void AddContour(double centreX, double centreY, double size)
{
    if (PickWhole(0, 4) == 0) {
        const PlanePoint start{centreX + size, centreY};
        AddArc(start, start, {centreX, centreY}, PickWhole(0, 1) == 0 ? size : -size, 0);
        return;
    }
    const int corners = PickWhole(3, 9);
    const bool clockwise = PickWhole(0, 1) == 0;
    std::vector<PlanePoint> points;
    for (int i = 0; i < corners; ++i) {
        const double angle = (clockwise ? -1 : 1) * (i + Pick(-0.2, 0.2)) * 2 * Pi / corners;
        const double radius = size * Pick(0.75, 1.0);
        points.push_back({centreX + radius * std::cos(angle), centreY + radius * std::sin(angle)});
    }
    for (std::size_t i = 0; i < points.size(); ++i) {
        const double bulge = PickWhole(0, 1) == 0 ? 0.0 : Pick(0.02, 0.1) * (PickWhole(0, 1) == 0 ? 1 : -1);
        AddBulge(points[i], points[(i + 1) % points.size()], bulge, 0);
    }
}

/// A plate with holes and perhaps an open cut, as an import leaves it on the way to the Cutting screen.
void MakeRandomPart()
{
    StartCase();
    HoldConfigWrites();
    AppState.ExternalPathSense = -1;
    AppState.InternalPathSense = 1;
    AddContour(0, 0, 120);
    const int holes = PickWhole(0, 4);
    for (int i = 0; i < holes; ++i) {
        AddContour(i % 2 == 0 ? 35 : -35, i < 2 ? 35 : -35, Pick(4, 15));
    }
    if (PickWhole(0, 2) == 0) {
        AddBulge({-10, 0}, {0, 5}, Pick(-0.9, 0.9), 0);
        AddLines({{0, 5}, {10, 0}, {10, -8}}, 0);
    }
    NormaliseImport(ImportSides::Drawing, 0.0, 0.0);
    ApplyTransform(0, 0, 1, FlagOff);
    InitLeadData();
}

void ApplyRandomEdits()
{
    ApplyTransform(Pick(-360, 360), static_cast<std::int16_t>(PickWhole(0, 4)), Pick(0.5, 2.0), FlagOff);
    AppState.MoveStep = Pick(0.1, 20);
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        ProfileRecord& record = Record(profile);
        if (PickWhole(0, 2) == 0) {
            ToggleProfileSense(profile);
        }
        record.CornerSnap = ToFlag(PickWhole(0, 1) == 0);
        record.LeadPosition = Pick(-0.3, 1.3) * record.ProfileLength;
        record.LeadInLineOn = ToFlag(PickWhole(0, 1) == 0);
        record.LeadInArcOn = ToFlag(PickWhole(0, 1) == 0);
        record.LeadInLength = Pick(0, 5);
        record.LeadInRadius = Pick(0, 5);
        record.LeadOutLineOn = ToFlag(PickWhole(0, 1) == 0);
        record.LeadOutArcOn = ToFlag(PickWhole(0, 1) == 0);
        record.LeadOutLength = Pick(0, 5);
        record.LeadOutRadius = Pick(0, 5);
    }
}

/// Distance of a point from a drawn element.
double DistanceFromElement(std::int32_t slot, double x, double y)
{
    const ProfileElement& element = Element(slot);
    const ProfileElement& next = Element(slot + 1);
    const double dx = next.StartX - element.StartX;
    const double dy = next.StartY - element.StartY;
    if (element.Kind == KindLine) {
        const double t = ((x - element.StartX) * dx + (y - element.StartY) * dy) / (dx * dx + dy * dy);
        const double inside = std::fmin(std::fmax(t, 0.0), 1.0);
        return std::hypot(x - element.StartX - inside * dx, y - element.StartY - inside * dy);
    }
    const std::int32_t sign = element.GeoC < 0 ? -1 : 1;
    const bool atStart = std::hypot(x - element.StartX, y - element.StartY) < 0.01;
    const double whole =
        amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, next.StartX, next.StartY, sign);
    const double part =
        atStart ? 0.0 : amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, x, y, sign);
    const double off = std::fabs(std::hypot(x - element.GeoA, y - element.GeoB) - std::fabs(element.GeoC));
    return part <= whole + 1e-9 ? off : 1e9;
}

/// True when the point lies inside the contour of a profile, arcs taken as many chords.
bool IsInside(std::int32_t profile, double x, double y)
{
    bool inside = false;
    const std::int32_t mark = EndMarkOf(profile);
    for (std::int32_t slot = FirstElementOf(profile); slot < mark; ++slot) {
        const ProfileElement& element = Element(slot);
        const ProfileElement& next = Element(slot + 1);
        const int chords = element.Kind == KindArc ? 500 : 1;
        double fromX = element.StartX;
        double fromY = element.StartY;
        const std::int32_t sign = element.GeoC < 0 ? -1 : 1;
        const double sweep = amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, next.StartX,
                                     next.StartY, sign);
        const double start = angolo(element.StartY - element.GeoB, element.StartX - element.GeoA);
        for (int i = 1; i <= chords; ++i) {
            double toX = next.StartX;
            double toY = next.StartY;
            if (element.Kind == KindArc && i < chords) {
                toX = element.GeoA + std::fabs(element.GeoC) * std::cos(start + sign * sweep * i / chords);
                toY = element.GeoB + std::fabs(element.GeoC) * std::sin(start + sign * sweep * i / chords);
            }
            if ((fromY > y) != (toY > y) && x < fromX + (y - fromY) / (toY - fromY) * (toX - fromX)) {
                inside = !inside;
            }
            fromX = toX;
            fromY = toY;
        }
    }
    return inside;
}

constexpr int Rounds = 1500;

TEST(LeadProperties, LeadPointLiesOnItsElement)
{
    Random.seed(531);
    for (int round = 0; round < Rounds; ++round) {
        MakeRandomPart();
        ApplyRandomEdits();
        for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
            double x = 0.0;
            double y = 0.0;
            double outX = 0.0;
            double outY = 0.0;
            double tangent = 0.0;
            FindLeadPoint(x, y, outX, outY, tangent, Record(profile).LeadPosition, profile);
            const std::int32_t slot = Record(profile).LeadElement;
            ASSERT_GE(slot, FirstElementOf(profile)) << "round " << round;
            ASSERT_LT(slot, EndMarkOf(profile)) << "round " << round;
            ASSERT_LT(DistanceFromElement(slot, x, y), 1e-6) << "round " << round << " profile " << profile;
            ASSERT_GE(Record(profile).LeadPosition, -0.3 * Record(profile).ProfileLength);
        }
    }
}

TEST(LeadProperties, MovesCoverTheContourExactlyOnce)
{
    Random.seed(532);
    std::vector<CutMove> list;
    for (int round = 0; round < Rounds; ++round) {
        MakeRandomPart();
        ApplyRandomEdits();
        const double flyOff = PickWhole(0, 1) == 0 ? 0.0 : Pick(0.1, 10);
        for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
            std::int16_t side = 0;
            BuildCutMoves(list, profile, side, flyOff);
            double length = 0.0;
            int marks = 0;
            std::int16_t phases[] = {PhaseLeadIn, PhaseProfile, PhaseLeadOut};
            std::size_t phase = 0;
            for (std::size_t j = 1; j + 1 < list.size(); ++j) {
                ASSERT_TRUE(list[j].Kind == KindLine || list[j].Kind == KindArc);
                length += list[j].Phase == PhaseProfile ? MoveLength(list, j) : 0.0;
                marks += list[j].Mark == MarkFlyOff ? 1 : 0;
                while (phase < 3 && phases[phase] != list[j].Phase) {
                    ++phase;
                }
                ASSERT_LT(phase, 3U) << "lead-in, contour, lead-out, in this order";
            }
            ASSERT_EQ(list.back().Kind, KindEnd);
            // A head below 0.01 is left out, so that much may be missing.
            ASSERT_NEAR(length, Record(profile).ProfileLength, 0.0101)
                << "round " << round << " profile " << profile;
            ASSERT_EQ(marks, flyOff > 0 ? 1 : 0);
        }
    }
}

TEST(LeadProperties, SideIsWhereTheLeadsStandAndTheScrapLies)
{
    Random.seed(533);
    std::vector<CutMove> list;
    int judged = 0;
    for (int round = 0; round < Rounds; ++round) {
        MakeRandomPart();
        ApplyRandomEdits();
        for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
            std::int32_t mark = 0;
            std::int16_t sense = 0;
            std::int16_t side = 9;
            BuildCutMoves(list, profile, side, 0.0);
            if (ProfileArea(profile, mark, sense) == 0.0) {
                ASSERT_EQ(side, 0) << "a drawing tells no side of an open profile";
                continue;
            }
            ASSERT_EQ(side, Record(profile).Side) << "round " << round << " profile " << profile;
            // Just beside the contour, on the side of the leads.
            double x = 0.0;
            double y = 0.0;
            double tangent = 0.0;
            FindLeadPoint(x, y, x, y, tangent, Record(profile).LeadPosition, profile);
            const ProfileElement& element = Element(Record(profile).LeadElement);
            const ProfileElement& next = Element(Record(profile).LeadElement + 1);
            if (dpp(x, y, element.StartX, element.StartY) < 1 || dpp(x, y, next.StartX, next.StartY) < 1) {
                continue; // too near a corner to judge
            }
            const double beside = tangent + Pi / 2 * side;
            const bool inside = IsInside(profile, x + 0.05 * std::cos(beside), y + 0.05 * std::sin(beside));
            ASSERT_EQ(inside, profile != AppState.ProfileCount)
                << "round " << round << " profile " << profile;
            ++judged;
        }
    }
    EXPECT_GT(judged, Rounds);
}

TEST(LeadProperties, TransformsDoNotAccumulate)
{
    Random.seed(534);
    for (int round = 0; round < Rounds / 3; ++round) {
        MakeRandomPart();
        const double angle = Pick(-360, 360);
        const auto mirror = static_cast<std::int16_t>(PickWhole(0, 4));
        const double scale = Pick(0.1, 10);
        ApplyTransform(angle, mirror, scale, FlagOff);
        const std::vector<ProfileElement> once = AppState.ElementTable;
        const double length = AppState.TotalCutLength;
        for (int i = PickWhole(1, 5); i > 0; --i) {
            ApplyRandomEdits();
        }
        ApplyTransform(angle, mirror, scale, FlagOff);
        ASSERT_EQ(AppState.TotalCutLength, length);
        ASSERT_EQ(AppState.ElementTable.size(), once.size());
        for (std::size_t i = 1; i < once.size(); ++i) {
            ASSERT_EQ(AppState.ElementTable[i].StartX, once[i].StartX) << "round " << round;
            ASSERT_EQ(AppState.ElementTable[i].StartY, once[i].StartY);
            ASSERT_EQ(AppState.ElementTable[i].GeoA, once[i].GeoA);
            ASSERT_EQ(AppState.ElementTable[i].GeoC, once[i].GeoC);
            ASSERT_EQ(AppState.ElementTable[i].Sense, once[i].Sense);
            ASSERT_EQ(AppState.ElementTable[i].Length, once[i].Length);
        }
        ASSERT_NEAR(AppState.MinX, 0.0, 1e-9);
        ASSERT_NEAR(AppState.MinY, 0.0, 1e-9);
    }
}

TEST(LeadProperties, CursorStandsOnThePathAtItsDistance)
{
    Random.seed(535);
    std::vector<CutMove> list;
    for (int round = 0; round < Rounds / 3; ++round) {
        MakeRandomPart();
        ApplyRandomEdits();
        AppState.PathCursorProfile = static_cast<std::int16_t>(PickWhole(1, AppState.ProfileCount));
        std::int16_t side = 0;
        BuildCutMoves(list, AppState.PathCursorProfile, side, 0.0);
        // BuildCutMoves may have moved a lead that stood past the end; the cursor sees the list that stays.
        BuildCutMoves(list, AppState.PathCursorProfile, side, 0.0);
        double before = 0.0;
        for (std::size_t j = 1; j + 1 < list.size(); ++j) {
            const double length = MoveLength(list, j);
            AppState.PathCursorDistance = before + length; // the end of each move is the next record
            UpdatePathCursor();
            ASSERT_NEAR(AppState.PathOriginX, list[j + 1].X, 0.011) << "round " << round << " move " << j;
            ASSERT_NEAR(AppState.PathOriginY, list[j + 1].Y, 0.011) << "round " << round << " move " << j;
            before += length;
        }
        AppState.PathCursorDistance = 1e9;
        UpdatePathCursor();
        ASSERT_NEAR(AppState.PathCursorDistance, before, 1e-9);
    }
}
} // namespace
