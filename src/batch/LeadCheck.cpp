#include "batch/LeadCheck.h"

#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Parameters.h"

#include <algorithm>
#include <cmath>

namespace
{
struct Point {
    double X;
    double Y;
};

/// A closed profile as a polygon with its box.
struct Outline {
    std::vector<Point> Corners;
    double MinX = NoValue;
    double MinY = NoValue;
    double MaxX = -NoValue;
    double MaxY = -NoValue;
};

constexpr double ChordAngle = Pi / 32;

void AddCorner(Outline& outline, double x, double y)
{
    outline.Corners.push_back({x, y});
    outline.MinX = std::min(outline.MinX, x);
    outline.MinY = std::min(outline.MinY, y);
    outline.MaxX = std::max(outline.MaxX, x);
    outline.MaxY = std::max(outline.MaxY, y);
}

void AddCorners(Outline& outline, const ProfileElement& element)
{
    AddCorner(outline, element.StartX, element.StartY);
    if (element.Kind != KindArc) {
        return;
    }
    const double sign = element.GeoC < 0 ? -1.0 : 1.0;
    const double sweep = amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, element.EndX,
                                 element.EndY, static_cast<std::int32_t>(sign));
    const double start = angolo(element.StartY - element.GeoB, element.StartX - element.GeoA);
    const double r = std::fabs(element.GeoC);
    for (double along = ChordAngle; along < sweep; along += ChordAngle) {
        const double angle = start + sign * along;
        AddCorner(outline, element.GeoA + r * std::cos(angle), element.GeoB + r * std::sin(angle));
    }
}

std::vector<Outline> ClosedOutlines()
{
    std::vector<Outline> outlines;
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        Outline outline;
        const std::int32_t mark = EndMarkOf(profile);
        if (AppState.ElementTable[static_cast<std::size_t>(mark)].GeoB != 0.0) {
            for (std::int32_t slot = FirstElementOf(profile); slot < mark; ++slot) {
                AddCorners(outline, AppState.ElementTable[static_cast<std::size_t>(slot)]);
            }
        }
        outlines.push_back(std::move(outline)); // an open profile leaves an empty one
    }
    return outlines;
}

bool Contains(const Outline& outline, double x, double y)
{
    if (x <= outline.MinX || x >= outline.MaxX || y <= outline.MinY || y >= outline.MaxY) {
        return false;
    }
    bool inside = false;
    const std::vector<Point>& corners = outline.Corners;
    for (std::size_t i = 0, j = corners.size() - 1; i < corners.size(); j = i++) {
        const Point& a = corners[i];
        const Point& b = corners[j];
        if ((a.Y > y) != (b.Y > y) && x < (b.X - a.X) * (y - a.Y) / (b.Y - a.Y) + a.X) {
            inside = !inside;
        }
    }
    return inside;
}
} // namespace

std::vector<std::int32_t> LeadsInMaterial()
{
    std::vector<std::int32_t> found;
    const bool isHole = AppState.ShapeId >= FamilyHoles; // the material is all that lies outside
    const std::vector<Outline> outlines = ClosedOutlines();
    if (outlines.empty() || outlines.back().Corners.empty()) {
        return found; // without a closed outline nothing tells where the material is
    }
    const std::vector<ProfileRecord> kept =
        AppState.ProfileTable; // to find a lead point may change its record
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        LeadRecordArray leads;
        BuildLeads(leads, profile);
        const bool hasLead = leads[1].Kind == KindLine || leads[1].Kind == KindArc;
        const bool closed = !outlines[static_cast<std::size_t>(profile - 1)].Corners.empty();
        const double length = dpp(leads[1].X, leads[1].Y, leads[2].X, leads[2].Y);
        if (!hasLead || !closed || length < Tolerance) {
            continue;
        }
        const auto around = std::count_if(outlines.begin(), outlines.end(), [&](const Outline& outline) {
            return Contains(outline, leads[1].X, leads[1].Y);
        });
        if ((around % 2 == 1) != isHole) {
            found.push_back(profile);
        }
    }
    AppState.ProfileTable = kept;
    return found;
}
