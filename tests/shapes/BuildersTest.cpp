// Every shape beside its drawing: from the default values and from random legal ones, as built and as developed.
#include "shapes/Builders.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Drawings.h"
#include "shapes/Korvanta_Parameters.h"
#include "support/RecordingScreen.h"
#include "support/TableGeometry.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <string>
#include <utility>

namespace
{
constexpr int RandomSets = 500;
constexpr unsigned RandomSeed = 20260301;
constexpr double Near = 1e-6;

const ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable.at(static_cast<std::size_t>(slot));
}

bool Differ(double a, double b)
{
    return !(std::fabs(a - b) <= Near * (1.0 + std::fabs(b) / 1000));
}

/// R-25 starts two of its holes off their circles, and is to.
bool MayBeginOffItsCircle(const ShapeDrawing& drawing)
{
    return std::string_view(drawing.Name) == "R-25";
}

/// "" or what is wrong with a drawn record that should be `move` and end at (endX, endY).
std::string WrongMove(std::int32_t slot, const DrawnMove& move, const DrawnContour& contour, double endX,
                      double endY)
{
    const ProfileElement& element = Element(slot);
    if (element.Kind != (move.Arc ? KindArc : KindLine)) {
        return "kind";
    }
    if (Differ(element.StartX, move.X) || Differ(element.StartY, move.Y)) {
        return "start";
    }
    if (Differ(element.EndX, endX) || Differ(element.EndY, endY)) {
        return "end";
    }
    if (element.Sense != contour.Sense || element.Closing != 0 || element.Length != 0.0) {
        return "sense";
    }
    double geometry[3] = {move.CentreX, move.CentreY, move.Radius};
    if (!move.Arc) {
        // (a, b) is the unit normal on the left, c makes both points lie on the line.
        const double d = std::hypot(endX - move.X, endY - move.Y);
        geometry[0] = contour.WithoutLines ? 0.0 : (move.Y - endY) / d;
        geometry[1] = contour.WithoutLines ? 0.0 : (endX - move.X) / d;
        geometry[2] = contour.WithoutLines ? 0.0 : -(geometry[0] * endX + geometry[1] * endY);
    }
    if (Differ(element.GeoA, geometry[0]) || Differ(element.GeoB, geometry[1]) ||
        Differ(element.GeoC, geometry[2])) {
        return "geometry";
    }
    return "";
}

std::string WrongMark(std::int32_t slot, const DrawnContour& contour)
{
    const ProfileElement& mark = Element(slot);
    if (mark.Kind != contour.Kind || mark.Sense != contour.ClosingSense || mark.Closing != 1) {
        return "closing record";
    }
    if (mark.GeoA != 0.0 || mark.GeoB != 0.0 || mark.GeoC != contour.Hint || mark.Length != 0.0) {
        return "values of the closing record";
    }
    if (Differ(mark.StartX, contour.EndX) || Differ(mark.StartY, contour.EndY)) {
        return "start of the closing record";
    }
    return "";
}

/// "" or the first place in which the raw table isn't what the drawing tells.
std::string WrongTable(const std::vector<DrawnContour>& contours)
{
    std::int32_t slot = 1;
    for (const DrawnContour& contour : contours) {
        const std::int32_t first = slot;
        for (std::size_t i = 0; i < contour.Moves.size(); ++i, ++slot) {
            const bool last = i + 1 == contour.Moves.size();
            const std::string wrong =
                slot > AppState.ElementCount
                    ? "missing"
                    : WrongMove(slot, contour.Moves[i], contour, last ? contour.EndX : contour.Moves[i + 1].X,
                                last ? contour.EndY : contour.Moves[i + 1].Y);
            if (!wrong.empty()) {
                return wrong + " of record " + std::to_string(slot);
            }
        }
        const std::string wrong = slot > AppState.ElementCount ? "missing" : WrongMark(slot, contour);
        if (!wrong.empty()) {
            return wrong + " " + std::to_string(slot);
        }
        const double area = contour.Area == 0.0 ? 0.0 : ExactArea({first, slot});
        if (std::fabs(area - contour.Area) > 1e-7 * (1.0 + std::fabs(contour.Area))) {
            return "area " + std::to_string(area) + " of the contour that ends at " + std::to_string(slot);
        }
        ++slot;
    }
    if (slot - 1 != AppState.ElementCount || std::cmp_not_equal(contours.size(), AppState.ProfileCount)) {
        return "count of records";
    }
    return "";
}

/// "" or the first record that doesn't join the next one, or whose ends don't lie on its circle.
std::string WrongJoint(const ShapeDrawing& drawing)
{
    for (const TableProfile& profile : ProfilesInTable()) {
        for (std::int32_t slot = profile.First; slot < profile.Mark; ++slot) {
            const ProfileElement& element = Element(slot);
            const ProfileElement& next = Element(slot + 1);
            if (std::hypot(element.EndX - next.StartX, element.EndY - next.StartY) > Near) {
                return "joint at " + std::to_string(slot);
            }
            if (element.Kind != KindArc || MayBeginOffItsCircle(drawing)) {
                continue;
            }
            const double r = std::fabs(element.GeoC);
            const double atStart = std::hypot(element.StartX - element.GeoA, element.StartY - element.GeoB);
            const double atEnd = std::hypot(element.EndX - element.GeoA, element.EndY - element.GeoB);
            if (std::fabs(atStart - r) > Near || std::fabs(atEnd - r) > Near) {
                return "ends off their circle at " + std::to_string(slot);
            }
        }
    }
    return "";
}

/// The raw start points of a contour in the order of travel, closing one included.
std::vector<TablePoint> PointsOf(const DrawnContour& contour, bool reversed)
{
    std::vector<TablePoint> points;
    for (const DrawnMove& move : contour.Moves) {
        points.push_back({move.X, move.Y});
    }
    points.push_back({contour.EndX, contour.EndY});
    if (reversed) {
        std::reverse(points.begin(), points.end());
    }
    return points;
}

/// What development makes of one contour: the same moved to the origin, turned when it ran against its sense, the area and
/// the side on its records.
std::string WrongProfile(const TableProfile& profile, const DrawnContour& contour, bool hole,
                         const TablePoint& shift)
{
    const bool open = contour.Area == 0.0;
    const bool ring = contour.ClosingSense < 0 && !open; // an outer contour in another one's hole
    const bool outside = contour.Kind == KindOuterEnd && !hole;
    const double wanted = outside ? -1.0 : 1.0;
    const bool reversed = !open && !ring && contour.Area * wanted < 0.0;
    const std::vector<TablePoint> points = PointsOf(contour, reversed);
    std::int32_t slot = profile.First;
    for (const TablePoint& point : points) {
        const ProfileElement& element = Element(slot);
        if (Differ(element.StartX, point.X - shift.X) || Differ(element.StartY, point.Y - shift.Y)) {
            return "place of record " + std::to_string(slot);
        }
        if (slot < profile.Mark && element.Sense != (open ? contour.Sense : 1)) {
            return "side of record " + std::to_string(slot);
        }
        ++slot;
    }
    const ProfileElement& mark = Element(profile.Mark);
    if (slot - 1 != profile.Mark || mark.Kind != contour.Kind ||
        mark.Sense != (open ? contour.ClosingSense : 1)) {
        return "closing record " + std::to_string(profile.Mark);
    }
    // Areas are summed over chords of sqrt(0.4 / r) radians; an arc of length s then lacks s / 30 at most.
    const double stored = open ? 0.0 : wanted * std::fabs(contour.Area);
    return std::fabs(mark.GeoB - stored) <= AppState.TotalCutLength / 30 + Near ? "" : "stored area";
}

std::string WrongDevelopment(const ShapeDrawing& drawing, const std::vector<DrawnContour>& contours,
                             const TableBox& raw)
{
    const std::vector<TableProfile> profiles = ProfilesInTable();
    if (profiles.size() != contours.size()) {
        return "count of profiles";
    }
    const TableBox box = BoxOfTable();
    if (Differ(box.MinX, 0.0) || Differ(box.MinY, 0.0)) {
        return "low corner";
    }
    const bool hole = IdOf(drawing) >= FamilyHoles;
    for (std::size_t i = 0; i < profiles.size(); ++i) {
        const std::string wrong = WrongProfile(profiles[i], contours[i], hole, {raw.MinX, raw.MinY});
        if (!wrong.empty()) {
            return wrong;
        }
    }
    double length = 0.0;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        length += Element(slot).Length;
    }
    return Differ(length, AppState.TotalCutLength) ? "length" : "";
}

/// Builds and develops the drawing for these values; "" or what is wrong.
std::string WrongShape(const ShapeDrawing& drawing, const FormulaNames& names)
{
    const std::vector<DrawnContour> contours = ContoursOf(drawing, names);
    const std::int16_t err = BuildRaw(IdOf(drawing), ParametersOf(drawing, names));
    if (err != 0) {
        return "error word " + std::to_string(err) + " as built";
    }
    const TableBox raw = BoxOfTable();
    std::string wrong = WrongTable(contours);
    if (wrong.empty()) {
        wrong = WrongJoint(drawing);
    }
    if (!wrong.empty()) {
        return wrong + " as built";
    }
    if (DevelopWith(drawing, names) != 0) {
        return "error word of the development";
    }
    wrong = WrongDevelopment(drawing, contours, raw);
    if (wrong.empty()) {
        wrong = WrongJoint(drawing);
    }
    return wrong.empty() ? "" : wrong + " as developed";
}

void CheckAll(std::span<const ShapeDrawing> drawings, void (*check)(const ShapeDrawing&))
{
    for (const ShapeDrawing& drawing : drawings) {
        StartCase();
        check(drawing);
    }
}

void CheckDefaults(const ShapeDrawing& drawing)
{
    const FormulaNames names = DefaultNames(drawing);
    EXPECT_EQ(WrongShape(drawing, names), "") << ValuesText(drawing, names);
    EXPECT_EQ(AppState.ElementCount, drawing.Records) << TitleOf(drawing);
}

void CheckRandom(const ShapeDrawing& drawing)
{
    std::mt19937 random(RandomSeed);
    for (int i = 0; i < RandomSets; ++i) {
        const FormulaNames names = RandomNames(drawing, random);
        const std::string wrong = WrongShape(drawing, names);
        ASSERT_EQ(wrong, "") << ValuesText(drawing, names);
    }
}

/// The contour round the part: the last profile, with its twin half run backwards before it.
std::vector<TablePoint> Outside(const std::vector<TableProfile>& profiles)
{
    std::vector<TablePoint> points;
    for (const TableProfile& profile : profiles) {
        if (Element(profile.Mark).Kind == KindOuterEnd) {
            std::reverse(points.begin(), points.end());
            const std::vector<TablePoint> more = PointsAlong(profile);
            points.insert(points.end(), more.begin(), more.end());
        }
    }
    return points;
}

/// Holes inside the plate, for the default values.
void CheckHolesInside(const ShapeDrawing& drawing)
{
    ASSERT_EQ(DevelopWith(drawing, DefaultNames(drawing)), 0) << TitleOf(drawing);
    const std::vector<TableProfile> profiles = ProfilesInTable();
    const std::vector<TablePoint> outside = Outside(profiles);
    for (const TableProfile& profile : profiles) {
        if (Element(profile.Mark).Kind == KindOuterEnd) {
            continue;
        }
        const ProfileElement& first = Element(profile.First);
        for (const TablePoint& point : PointsAlong(profile)) {
            const bool start = point.X == first.StartX && point.Y == first.StartY;
            if (!start || !MayBeginOffItsCircle(drawing)) {
                ASSERT_TRUE(IsInside(point, outside))
                    << TitleOf(drawing) << " at " << point.X << ", " << point.Y;
            }
        }
    }
}
} // namespace

TEST(Builders, RectanglesTo20FromDefaults)
{
    CheckAll(DrawingsRect01To20(), CheckDefaults);
}

TEST(Builders, RectanglesFrom21FromDefaults)
{
    CheckAll(DrawingsRect21To41(), CheckDefaults);
}

TEST(Builders, CircularFromDefaults)
{
    CheckAll(DrawingsCircular(), CheckDefaults);
}

TEST(Builders, HolesFromDefaults)
{
    CheckAll(DrawingsHoles(), CheckDefaults);
}

TEST(Builders, OutsideTheCatalogueFromDefaults)
{
    CheckAll(DrawingsOutside(), CheckDefaults);
}

TEST(Builders, RectanglesTo20FromRandomValues)
{
    CheckAll(DrawingsRect01To20(), CheckRandom);
}

TEST(Builders, RectanglesFrom21FromRandomValues)
{
    CheckAll(DrawingsRect21To41(), CheckRandom);
}

TEST(Builders, CircularFromRandomValues)
{
    CheckAll(DrawingsCircular(), CheckRandom);
}

TEST(Builders, HolesFromRandomValues)
{
    CheckAll(DrawingsHoles(), CheckRandom);
}

TEST(Builders, OutsideTheCatalogueFromRandomValues)
{
    CheckAll(DrawingsOutside(), CheckRandom);
}

TEST(Builders, DefaultHolesLieInsideTheirPlate)
{
    CheckAll(DrawingsRect01To20(), CheckHolesInside);
    CheckAll(DrawingsRect21To41(), CheckHolesInside);
    CheckAll(DrawingsCircular(), CheckHolesInside);
    CheckAll(DrawingsOutside(), CheckHolesInside);
}

TEST(Builders, EveryShapeOfTheCatalogueIsDrawnHere)
{
    std::set<std::string> drawn;
    for (const auto drawings : {DrawingsRect01To20(), DrawingsRect21To41(), DrawingsCircular(),
                                DrawingsHoles(), DrawingsOutside()}) {
        for (const ShapeDrawing& drawing : drawings) {
            if (std::string_view(drawing.Case).empty()) {
                EXPECT_TRUE(drawn.insert(drawing.Name).second) << drawing.Name;
            }
        }
    }
    for (const ShapeRow& row : ShapeCatalogue()) {
        EXPECT_EQ(drawn.count(row.Name), 1U) << row.Name;
    }
    EXPECT_EQ(drawn.size(), 70U + 9U);
}

TEST(Builders, ABuilderNeverClearsAnEarlierErrorWord)
{
    StartCase();
    for (const auto drawings : {DrawingsRect01To20(), DrawingsRect21To41(), DrawingsCircular(),
                                DrawingsHoles(), DrawingsOutside()}) {
        for (const ShapeDrawing& drawing : drawings) {
            const ShapeParameters parameters = ParametersOf(drawing, DefaultNames(drawing));
            EXPECT_EQ(BuildRaw(IdOf(drawing), parameters, 7), 7) << TitleOf(drawing);
        }
    }
}
