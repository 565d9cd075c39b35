#include "support/LeadParts.h"

#include <cmath>

void AddLines(const std::vector<PlanePoint>& points, std::int16_t sense)
{
    for (std::size_t i = 1; i < points.size(); ++i) {
        const PlanePoint& from = points[i - 1];
        const PlanePoint& to = points[i];
        GeoLine line{};
        std::int16_t err = 0;
        r_pp(line, {0, from[0], from[1], 0}, {0, to[0], to[1], 0}, err);
        AddElement(KindLine, from[0], from[1], line[1], line[2], line[3], to[0], to[1], sense);
    }
}

void AddArc(PlanePoint start, PlanePoint end, PlanePoint centre, double radius, std::int16_t sense)
{
    AddElement(KindArc, start[0], start[1], centre[0], centre[1], radius, end[0], end[1], sense);
}

void AddBulge(PlanePoint start, PlanePoint end, double bulge, std::int16_t sense)
{
    if (bulge == 0.0) {
        AddLines({start, end}, sense);
        return;
    }
    const double dx = end[0] - start[0];
    const double dy = end[1] - start[1];
    const double radius = std::hypot(dx, dy) * (1 + bulge * bulge) / (4 * bulge);
    const double towardsCentre = (1 - bulge * bulge) / (4 * bulge); // in chords, to the left
    AddArc(start, end,
           {(start[0] + end[0]) / 2 - dy * towardsCentre, (start[1] + end[1]) / 2 + dx * towardsCentre},
           radius, sense);
}

void AddEnd(std::int16_t kind, double area, double profileClass)
{
    const ProfileElement last = AppState.ElementTable[static_cast<std::size_t>(AppState.ElementCount)];
    AddElement(kind, last.EndX, last.EndY, 0, area, profileClass, 0, 0, 0);
}

void MakeSquare(double profileClass)
{
    AddLines({{0, 0}, {100, 0}, {100, 100}, {0, 100}, {0, 0}});
    AddEnd(KindOuterEnd, 10000, profileClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
}

void MakeCircle(double signedRadius, double profileClass)
{
    AddArc({20, 10}, {20, 10}, {10, 10}, signedRadius);
    AddEnd(KindOuterEnd, signedRadius * std::fabs(signedRadius) * Pi, profileClass);
    MeasureProfiles(FlagOn);
    InitLeadData();
}

void MakeOpenAngle()
{
    AddLines({{0, 0}, {50, 0}, {50, 30}}, 0);
    AddEnd(KindOuterEnd, 0);
    MeasureProfiles(FlagOn);
    InitLeadData();
}

double MoveLength(const std::vector<CutMove>& list, std::size_t j)
{
    const CutMove& move = list[j];
    const CutMove& next = list[j + 1];
    if (move.Kind == KindArc) {
        return std::fabs(move.Radius) *
               amparco(move.CentreX, move.CentreY, move.X, move.Y, next.X, next.Y, move.Radius < 0 ? -1 : 1);
    }
    return move.Kind == KindLine ? dpp(move.X, move.Y, next.X, next.Y) : 0.0;
}
