#include "support/TableGeometry.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace
{
constexpr double FullTurn = 2.0 * std::numbers::pi;

const ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

TablePoint StartOf(std::int32_t slot)
{
    return {Element(slot).StartX, Element(slot).StartY};
}

void Widen(TableBox& box, const TablePoint& point)
{
    box.MinX = std::min(box.MinX, point.X);
    box.MinY = std::min(box.MinY, point.Y);
    box.MaxX = std::max(box.MaxX, point.X);
    box.MaxY = std::max(box.MaxY, point.Y);
}

void WidenByArc(TableBox& box, std::int32_t slot)
{
    const ProfileElement& arc = Element(slot);
    const double r = std::fabs(arc.GeoC);
    const double begin = std::atan2(arc.StartY - arc.GeoB, arc.StartX - arc.GeoA);
    const double turn = TurnOf(slot);
    const double low = std::min(begin, begin + turn);
    const double high = std::max(begin, begin + turn);
    for (int quarter = -8; quarter <= 8; ++quarter) {
        const double angle = quarter * FullTurn / 4;
        if (angle >= low && angle <= high) {
            Widen(box, {arc.GeoA + r * std::cos(angle), arc.GeoB + r * std::sin(angle)});
        }
    }
}

constexpr TableBox Nothing{1e30, 1e30, -1e30, -1e30};
} // namespace

std::vector<TableProfile> ProfilesInTable()
{
    std::vector<TableProfile> profiles;
    std::int32_t first = 1;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        if (IsEndMark(Element(slot).Kind)) {
            profiles.push_back({first, slot});
            first = slot + 1;
        }
    }
    return profiles;
}

double TurnOf(std::int32_t slot)
{
    const ProfileElement& arc = Element(slot);
    const TablePoint end = StartOf(slot + 1);
    const double sign = arc.GeoC < 0.0 ? -1.0 : 1.0;
    if (std::hypot(end.X - arc.StartX, end.Y - arc.StartY) < Tolerance) {
        return sign * FullTurn;
    }
    const double begin = std::atan2(arc.StartY - arc.GeoB, arc.StartX - arc.GeoA);
    double turn = sign * (std::atan2(end.Y - arc.GeoB, end.X - arc.GeoA) - begin);
    while (turn < 0.0) {
        turn += FullTurn;
    }
    return sign * turn;
}

double ExactArea(const TableProfile& profile)
{
    double area = 0.0;
    for (std::int32_t slot = profile.First; slot < profile.Mark; ++slot) {
        const TablePoint from = StartOf(slot);
        const TablePoint to = StartOf(slot + 1);
        area += (from.X * to.Y - to.X * from.Y) / 2;
        if (Element(slot).Kind == KindArc) {
            const double turn = TurnOf(slot);
            area += Element(slot).GeoC * Element(slot).GeoC / 2 * (turn - std::sin(turn));
        }
    }
    return area;
}

std::vector<TablePoint> PointsAlong(const TableProfile& profile)
{
    std::vector<TablePoint> points;
    for (std::int32_t slot = profile.First; slot < profile.Mark; ++slot) {
        const ProfileElement& element = Element(slot);
        points.push_back(StartOf(slot));
        if (element.Kind != KindArc) {
            continue;
        }
        const double turn = TurnOf(slot);
        const double begin = std::atan2(element.StartY - element.GeoB, element.StartX - element.GeoA);
        const int steps = 1 + static_cast<int>(std::fabs(turn) * 57.3);
        for (int i = 1; i < steps; ++i) {
            const double angle = begin + turn * i / steps;
            points.push_back({element.GeoA + std::fabs(element.GeoC) * std::cos(angle),
                              element.GeoB + std::fabs(element.GeoC) * std::sin(angle)});
        }
    }
    points.push_back(StartOf(profile.Mark));
    return points;
}

TableBox BoxOf(const TableProfile& profile)
{
    TableBox box = Nothing;
    for (std::int32_t slot = profile.First; slot <= profile.Mark; ++slot) {
        Widen(box, StartOf(slot));
        if (Element(slot).Kind == KindArc) {
            WidenByArc(box, slot);
        }
    }
    return box;
}

TableBox BoxOfTable()
{
    TableBox box = Nothing;
    for (const TableProfile& profile : ProfilesInTable()) {
        const TableBox one = BoxOf(profile);
        Widen(box, {one.MinX, one.MinY});
        Widen(box, {one.MaxX, one.MaxY});
    }
    return box;
}

bool IsInside(const TablePoint& point, const std::vector<TablePoint>& contour)
{
    bool inside = false;
    for (std::size_t i = 0; i < contour.size(); ++i) {
        const TablePoint& a = contour[i];
        const TablePoint& b = contour[(i + 1) % contour.size()];
        if ((a.Y > point.Y) != (b.Y > point.Y) &&
            point.X < a.X + (point.Y - a.Y) / (b.Y - a.Y) * (b.X - a.X)) {
            inside = !inside;
        }
    }
    return inside;
}
