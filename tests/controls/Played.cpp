#include "Played.h"

#include <algorithm>
#include <cmath>
#include <sstream>

namespace
{
constexpr double Step = 0.4;
constexpr double QuarterTurn = 1.570796326794896619;

std::string Where(const Spot& spot)
{
    std::ostringstream text;
    text << spot.X << ", " << spot.Y;
    return text.str();
}

/// The side of the contour's own direction on which the scrap lies: 1 left, -1 right, 0 for a stroke.
int ScrapSide(const Contour& contour)
{
    constexpr double Beside = 0.05;
    if (contour.Boundary.empty()) {
        return 0;
    }
    const std::vector<Piece>& pieces = contour.Pieces;
    const Piece& longest =
        *std::max_element(pieces.begin(), pieces.end(),
                          [](const Piece& a, const Piece& b) { return LengthOf(a) < LengthOf(b); });
    const Spot at = PointOn(longest, 0.5);
    const Spot along = DirectionOn(longest, 0.5);
    const bool leftInside = Inside({at.X - Beside * along.Y, at.Y + Beside * along.X}, contour.Boundary);
    return leftInside == contour.ScrapInside ? 1 : -1;
}

/// Places of the path that belong neither to the contour nor to a lead.
std::string StrayPlaces(const PlayedCut& cut, const Contour& contour, const std::vector<Piece>& pieces,
                        const Spot& copy, const Leads& leads, double radius, double tolerance)
{
    const std::vector<Sample> path = Samples(cut.Moves, Step);
    const double length = path.back().Along;
    const double leadIn = leads.InLine + leads.InArc * QuarterTurn + contour.Entry + 2 * radius + Step;
    const double leadOut = leads.OutLine + leads.OutArc * QuarterTurn + 2 * radius + Step;
    const bool hasOut = leads.OutLine > 0.0 || leads.OutArc > 0.0;
    for (const Sample& sample : path) {
        const double off = std::fabs(Distance(sample.At, pieces) - radius);
        const Spot inPart{sample.At.X - copy.X, sample.At.Y - copy.Y};
        const bool scrap = radius == 0.0 || Inside(inPart, contour.Boundary) == contour.ScrapInside;
        const bool lead = sample.Along <= leadIn || (hasOut && sample.Along >= length - leadOut);
        if (!lead && !(off <= tolerance)) {
            return "off the contour by " + std::to_string(off) + " at " + Where(sample.At);
        }
        if (!lead && !scrap) {
            return "in the part at " + Where(sample.At);
        }
    }
    return "";
}

/// Places that the torch must pass, for nothing of the contour is nearer there, and doesn't.
std::string MissedPlaces(const PlayedCut& cut, const std::vector<Piece>& pieces, int side, double entry,
                         double radius, double tolerance)
{
    for (const Sample& sample : Samples(pieces, Step)) {
        if (entry > 0.0 && sample.Along < entry + radius) {
            continue; // along the entry the torch steps aside
        }
        const Spot place{sample.At.X - side * radius * sample.Direction.Y,
                         sample.At.Y + side * radius * sample.Direction.X};
        if (Distance(place, pieces) < radius - tolerance / 2) {
            continue; // in an inner corner
        }
        const double off = Distance(place, cut.Moves);
        if (!(off <= tolerance)) {
            return "passes the contour at " + Where(sample.At) + " in a distance of " + std::to_string(off);
        }
    }
    return "";
}

std::string CutDifference(const PlayedCut& cut, const Contour& contour, const Spot& copy, const Leads& leads,
                          const Expected& expected)
{
    if (cut.Moves.empty()) {
        return "nothing is cut";
    }
    const std::vector<Piece> pieces = Moved(contour.Pieces, copy);
    const int side = ScrapSide(contour);
    const int word = expected.Words ? side : 0;
    if (cut.Word != word) {
        return "compensation " + std::to_string(cut.Word) + " instead of " + std::to_string(word);
    }
    const double radius = word == 0 ? 0.0 : expected.Radius;
    const std::string stray = StrayPlaces(cut, contour, pieces, copy, leads, radius, expected.Tolerance);
    return stray.empty() ? MissedPlaces(cut, pieces, side, contour.Entry, radius, expected.Tolerance) : stray;
}
} // namespace

std::string Differences(const Job& job, const Played& played, const Expected& expected)
{
    if (!played.Faults.empty()) {
        return played.Faults.front();
    }
    const std::size_t profiles = job.Contours.size();
    if (played.Cuts.size() != profiles * job.Copies.size()) {
        return std::to_string(played.Cuts.size()) + " cuts instead of " +
               std::to_string(profiles * job.Copies.size());
    }
    for (std::size_t i = 0; i < played.Cuts.size(); ++i) {
        const std::string difference = CutDifference(played.Cuts[i], job.Contours[i % profiles],
                                                     job.Copies[i / profiles], job.LeadsUsed, expected);
        if (!difference.empty()) {
            return "cut " + std::to_string(i + 1) + " (profile " + std::to_string(i % profiles + 1) +
                   "): " + difference;
        }
    }
    return "";
}
