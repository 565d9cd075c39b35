#include "Pieces.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double FullTurn = 6.283185307179586477;
constexpr double SamePoint = 1e-9;

double AngleOf(const Spot& spot, const Spot& centre)
{
    return std::atan2(spot.Y - centre.Y, spot.X - centre.X);
}

/// `angle` brought into 0 .. 2 pi.
double Turned(double angle)
{
    const double rest = std::fmod(angle, FullTurn);
    return rest < 0.0 ? rest + FullTurn : rest;
}

double DistanceToStraight(const Spot& spot, const Spot& a, const Spot& b)
{
    const double dx = b.X - a.X;
    const double dy = b.Y - a.Y;
    const double square = dx * dx + dy * dy;
    const double along = square == 0.0 ? 0.0 : ((spot.X - a.X) * dx + (spot.Y - a.Y) * dy) / square;
    const double held = std::clamp(along, 0.0, 1.0);
    return Far(spot, {a.X + held * dx, a.Y + held * dy});
}
} // namespace

double Far(const Spot& a, const Spot& b)
{
    return std::hypot(a.X - b.X, a.Y - b.Y);
}

Piece StraightPiece(const Spot& start, const Spot& end)
{
    return {false, false, start, end, {}};
}

Piece ArcPiece(const Spot& start, const Spot& end, const Spot& centre, bool counterClockwise)
{
    return {true, counterClockwise, start, end, centre};
}

double ArcRadius(const Piece& piece)
{
    return Far(piece.Start, piece.Centre);
}

double ArcSweep(const Piece& piece)
{
    if (Far(piece.Start, piece.End) < SamePoint) {
        return FullTurn;
    }
    const double from = AngleOf(piece.Start, piece.Centre);
    const double to = AngleOf(piece.End, piece.Centre);
    return Turned(piece.CounterClockwise ? to - from : from - to);
}

double LengthOf(const Piece& piece)
{
    return piece.Arc ? ArcRadius(piece) * ArcSweep(piece) : Far(piece.Start, piece.End);
}

Spot PointOn(const Piece& piece, double along)
{
    if (!piece.Arc) {
        return {piece.Start.X + along * (piece.End.X - piece.Start.X),
                piece.Start.Y + along * (piece.End.Y - piece.Start.Y)};
    }
    const double turn = along * ArcSweep(piece) * (piece.CounterClockwise ? 1.0 : -1.0);
    const double angle = AngleOf(piece.Start, piece.Centre) + turn;
    const double r = ArcRadius(piece);
    return {piece.Centre.X + r * std::cos(angle), piece.Centre.Y + r * std::sin(angle)};
}

Spot DirectionOn(const Piece& piece, double along)
{
    if (!piece.Arc) {
        const double length = Far(piece.Start, piece.End);
        return length == 0.0
                   ? Spot{}
                   : Spot{(piece.End.X - piece.Start.X) / length, (piece.End.Y - piece.Start.Y) / length};
    }
    const Spot at = PointOn(piece, along);
    const double r = ArcRadius(piece);
    const double sign = piece.CounterClockwise ? 1.0 : -1.0;
    return {-sign * (at.Y - piece.Centre.Y) / r, sign * (at.X - piece.Centre.X) / r};
}

double Distance(const Spot& spot, const Piece& piece)
{
    if (!piece.Arc) {
        return DistanceToStraight(spot, piece.Start, piece.End);
    }
    const double from = AngleOf(piece.Start, piece.Centre);
    const double to = AngleOf(spot, piece.Centre);
    if (Turned(piece.CounterClockwise ? to - from : from - to) <= ArcSweep(piece)) {
        return std::fabs(Far(spot, piece.Centre) - ArcRadius(piece));
    }
    return std::min(Far(spot, piece.Start), Far(spot, piece.End));
}

double Distance(const Spot& spot, const std::vector<Piece>& pieces)
{
    double least = HUGE_VAL;
    for (const Piece& piece : pieces) {
        least = std::min(least, Distance(spot, piece));
    }
    return least;
}

std::vector<Sample> Samples(const std::vector<Piece>& pieces, double step)
{
    std::vector<Sample> samples;
    double before = 0.0;
    for (const Piece& piece : pieces) {
        const double length = LengthOf(piece);
        const int parts = std::max(1, static_cast<int>(std::ceil(length / step)));
        for (int i = 0; i <= parts; ++i) {
            const double along = static_cast<double>(i) / parts;
            samples.push_back({PointOn(piece, along), DirectionOn(piece, along), before + along * length});
        }
        before += length;
    }
    return samples;
}

std::vector<Spot> Polygon(const std::vector<Piece>& pieces, double step)
{
    std::vector<Spot> corners;
    for (const Sample& sample : Samples(pieces, step)) {
        corners.push_back(sample.At);
    }
    return corners;
}

double SignedArea(const std::vector<Piece>& pieces)
{
    constexpr double Step = 0.5;
    const std::vector<Spot> corners = Polygon(pieces, Step);
    double area = 0.0;
    for (std::size_t i = 0; i < corners.size(); ++i) {
        const Spot& a = corners[i];
        const Spot& b = corners[(i + 1) % corners.size()];
        area += (a.X * b.Y - b.X * a.Y) / 2.0;
    }
    return area;
}

bool Inside(const Spot& spot, const std::vector<Spot>& polygon)
{
    bool inside = false;
    if (polygon.empty()) {
        return inside;
    }
    for (std::size_t i = 0, j = polygon.size() - 1; i < polygon.size(); j = i++) {
        const Spot& a = polygon[i];
        const Spot& b = polygon[j];
        if ((a.Y > spot.Y) != (b.Y > spot.Y) && spot.X < (b.X - a.X) * (spot.Y - a.Y) / (b.Y - a.Y) + a.X) {
            inside = !inside;
        }
    }
    return inside;
}
