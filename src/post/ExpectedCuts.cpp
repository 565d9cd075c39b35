#include "post/ExpectedCuts.h"

#include "geometry/Orbalib.h"
#include "profile/Korvanta_ProfileCut.h"

#include <cmath>

namespace
{
constexpr double LeastAheadOfFlyOff = 1.0; ///< a move must be longer than the fly-off by this to be split

/// Places of the leads in their records.
constexpr std::size_t FirstOfLeadIn = 1;
constexpr std::size_t LastOfLeadIn = 3;
constexpr std::size_t FirstOfLeadOut = 4;

const ProfileElement& Slot(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

std::int16_t CodeOf(std::int16_t kind, double radius)
{
    if (kind != KindArc) {
        return 1;
    }
    return radius > 0.0 ? 3 : 2;
}

/// The moves of the lead records from `first` to the closing one.
void AddLead(ExpectedCut& cut, const LeadRecordArray& leads, std::size_t first, std::int16_t phase)
{
    for (std::size_t i = first; i + 1 < std::size(leads) && leads[i].Kind != KindEnd && leads[i].Kind != 0;
         ++i) {
        ExpectedMove move;
        move.Code = CodeOf(leads[i].Kind, leads[i].Radius);
        move.Phase = phase;
        move.StartX = leads[i].X;
        move.StartY = leads[i].Y;
        move.EndX = leads[i + 1].X;
        move.EndY = leads[i + 1].Y;
        move.CentreX = leads[i].CentreX;
        move.CentreY = leads[i].CentreY;
        move.Radius = leads[i].Radius;
        cut.push_back(move);
    }
}

/// The closing record of a lead-in: the lead point.
const CutMove& LeadPointOf(const LeadRecordArray& leads)
{
    std::size_t i = FirstOfLeadIn;
    while (i < LastOfLeadIn && leads[i].Kind != KindEnd) {
        ++i;
    }
    return leads[i];
}

/// The whole element in `slot`. It ends where the next one begins.
ExpectedMove WholeElement(std::int32_t slot, std::int32_t first)
{
    const ProfileElement& element = Slot(slot);
    ExpectedMove move;
    move.Code = CodeOf(element.Kind, element.GeoC);
    move.Side = element.Sense;
    move.Element = slot - first + 1;
    move.StartX = element.StartX;
    move.StartY = element.StartY;
    move.EndX = Slot(slot + 1).StartX;
    move.EndY = Slot(slot + 1).StartY;
    if (element.Kind == KindArc) {
        move.CentreX = element.GeoA;
        move.CentreY = element.GeoB;
        move.Radius = element.GeoC;
    }
    return move;
}

/// A closed contour from the lead point on element `lead` to the lead point again: the rest of that element, the others
/// in order, and its head. A rest of an arc that is shorter than the tolerance is cut straight, a head that is isn't cut.
void AddClosedContour(ExpectedCut& cut, std::int32_t first, std::int32_t mark, std::int32_t lead,
                      const CutMove& point)
{
    ExpectedMove rest = WholeElement(lead, first);
    const bool fullTurn = dpp(rest.StartX, rest.StartY, rest.EndX, rest.EndY) < Tolerance;
    if (rest.Code != 1 && !fullTurn && dpp(point.X, point.Y, rest.EndX, rest.EndY) < Tolerance) {
        rest.Code = 1;
    }
    rest.StartX = point.X;
    rest.StartY = point.Y;
    cut.push_back(rest);
    for (std::int32_t n = 1; n < mark - first; ++n) {
        cut.push_back(WholeElement(first + (lead - first + n) % (mark - first), first));
    }
    const ExpectedMove head = WholeElement(lead, first);
    if (dpp(head.StartX, head.StartY, point.X, point.Y) >= Tolerance) {
        cut.push_back(head);
    }
}

/// Around the joint of the last and the first element the contour is closed within the tolerance only: each move ends
/// where the next one begins.
void JoinContour(ExpectedCut& cut, std::size_t from, double endX, double endY)
{
    for (std::size_t i = from; i < cut.size(); ++i) {
        const bool last = i + 1 == cut.size();
        cut[i].EndX = last ? endX : cut[i + 1].StartX;
        cut[i].EndY = last ? endY : cut[i + 1].StartY;
    }
}

double LengthOf(const ExpectedMove& move)
{
    return move.Code == 1
               ? dpp(move.StartX, move.StartY, move.EndX, move.EndY)
               : std::fabs(move.Radius) * amparco(move.CentreX, move.CentreY, move.StartX, move.StartY,
                                                  move.EndX, move.EndY, move.Radius > 0.0 ? 1 : -1);
}

/// Splits the last move `flyOff` ahead of its end, when it is long enough.
void SplitForFlyOff(ExpectedCut& cut, double flyOff)
{
    if (!(flyOff >= Tolerance) || cut.empty()) {
        return;
    }
    const ExpectedMove& last = cut.back();
    const double length = LengthOf(last);
    if (!(length > flyOff + LeastAheadOfFlyOff)) {
        return;
    }
    double x = last.EndX - (last.EndX - last.StartX) * flyOff / length;
    double y = last.EndY - (last.EndY - last.StartY) * flyOff / length;
    if (last.Code != 1) {
        const double back =
            std::atan2(last.EndY - last.CentreY, last.EndX - last.CentreX) - flyOff / last.Radius;
        x = last.CentreX + std::fabs(last.Radius) * std::cos(back);
        y = last.CentreY + std::fabs(last.Radius) * std::sin(back);
    }
    ExpectedMove rest = last;
    rest.StartX = x;
    rest.StartY = y;
    cut.back().EndX = x;
    cut.back().EndY = y;
    cut.push_back(rest);
}
} // namespace

ExpectedCut ExpectCut(std::int32_t profile, double flyOff)
{
    ExpectedCut cut;
    const std::int32_t first = FirstElementOf(profile);
    const std::int32_t mark = EndMarkOf(profile);
    if (first < 1 || mark <= first) {
        return cut;
    }
    LeadRecordArray leads{};
    BuildLeads(leads, profile); // sets LeadElement, too
    const std::int32_t lead = AppState.ProfileTable[static_cast<std::size_t>(profile)].LeadElement;
    const CutMove& point = LeadPointOf(leads);
    AddLead(cut, leads, FirstOfLeadIn, PhaseLeadIn);
    const std::size_t contour = cut.size();
    const bool open = Slot(mark).GeoB == 0.0;
    if (open) {
        for (std::int32_t slot = first; slot < mark; ++slot) {
            cut.push_back(WholeElement(slot, first));
        }
    } else {
        AddClosedContour(cut, first, mark, lead, point);
    }
    JoinContour(cut, contour, open ? Slot(mark).StartX : point.X, open ? Slot(mark).StartY : point.Y);
    SplitForFlyOff(cut, flyOff);
    const std::int16_t side = cut.back().Side;
    AddLead(cut, leads, FirstOfLeadOut, PhaseLeadOut);
    for (ExpectedMove& move : cut) {
        move.Side = move.Phase == PhaseProfile ? move.Side : side;
    }
    return cut;
}
