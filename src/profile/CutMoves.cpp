// The move list of one profile: lead-in, contour from the lead point round to it again, fly-off, lead-out.
#include "config/Korvanta_Utility.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <cmath>

namespace
{
constexpr double LeastAheadOfFlyOff = 1.0; ///< a move must be longer than the fly-off by this to be split

struct Place {
    double X = 0.0;
    double Y = 0.0;
};

/// The record that the drawn element in `slot` gives when its move starts at `start`.
CutMove ContourMove(std::int32_t slot, const Place& start)
{
    const ProfileElement& element = ElementAt(slot);
    CutMove move;
    move.Phase = PhaseProfile;
    move.CentreX = element.GeoA;
    move.CentreY = element.GeoB;
    move.Radius = element.GeoC;
    move.X = start.X;
    move.Y = start.Y;
    move.Kind = element.Kind;
    return move;
}

Place StartOf(std::int32_t slot)
{
    return {ElementAt(slot).StartX, ElementAt(slot).StartY};
}

bool Coincide(const Place& a, const Place& b)
{
    return dpp(a.X, a.Y, b.X, b.Y) < Tolerance;
}

/// The rest of the lead element behind the lead point. A rest of an arc below the tolerance becomes straight: its ends
/// would be taken for those of a full turn.
CutMove TailMove(std::int32_t slot, const Place& lead)
{
    CutMove move = ContourMove(slot, lead);
    const bool fullTurn = Coincide(StartOf(slot), StartOf(slot + 1));
    if (move.Kind == KindArc && !fullTurn && Coincide(lead, StartOf(slot + 1))) {
        move.Kind = KindLine;
        move.CentreX = move.CentreY = move.Radius = 0.0;
    }
    return move;
}

double MoveLength(const CutMove& move, const Place& end)
{
    if (move.Kind == KindArc) {
        return std::fabs(move.Radius) *
               amparco(move.CentreX, move.CentreY, move.X, move.Y, end.X, end.Y, move.Radius > 0.0 ? 1 : -1);
    }
    return dpp(move.X, move.Y, end.X, end.Y);
}

/// Marks the place from which the torch may go out: `flyOff` ahead of the end of the last move, which is split
/// there when it is long enough.
void MarkFlyOffPlace(std::vector<CutMove>& list, const Place& end, double flyOff)
{
    CutMove& last = list.back();
    if (!(MoveLength(last, end) > flyOff + LeastAheadOfFlyOff)) {
        last.Mark = MarkFlyOff;
        return;
    }
    CutMove rest = last;
    rest.Mark = MarkFlyOff;
    if (last.Kind == KindArc) {
        const double angle = angolo(end.Y - last.CentreY, end.X - last.CentreX) - flyOff / last.Radius;
        rest.X = last.CentreX + std::fabs(last.Radius) * std::cos(angle);
        rest.Y = last.CentreY + std::fabs(last.Radius) * std::sin(angle);
    } else {
        const double angle = angolo(end.Y - last.Y, end.X - last.X);
        rest.X = end.X - flyOff * std::cos(angle);
        rest.Y = end.Y - flyOff * std::sin(angle);
    }
    list.push_back(rest);
}

/// From the lead point once round the contour. An open profile has its lead element first and no head to come back
/// to, so the same walk ends at its last element.
void AppendContour(std::vector<CutMove>& list, const ProfileSpan& span, std::int32_t leadElement,
                   const Place& lead, std::int16_t& side)
{
    list.push_back(TailMove(leadElement, lead));
    side = ElementAt(leadElement).Sense;
    for (std::int32_t slot = leadElement + 1;; ++slot) {
        if (slot == span.Mark) {
            slot = span.First;
        }
        const bool head = slot == leadElement;
        if (!head || !Coincide(StartOf(slot), lead)) {
            list.push_back(ContourMove(slot, StartOf(slot)));
            side = ElementAt(slot).Sense;
        }
        if (head) {
            return;
        }
    }
}
} // namespace

void BuildCutMoves(std::vector<CutMove>& list, std::int32_t profile, std::int16_t& side, double flyOff)
{
    list.clear();
    list.emplace_back();
    side = 0;
    ProfileSpan span;
    if (!FindSpan(profile, span)) {
        return;
    }
    const ProfileRecord& record = RecordAt(profile);
    side = RoundAndClampToInt16(record.Side);
    LeadRecordArray leads;
    BuildLeads(leads, profile);
    std::size_t i = 1;
    for (; i < 3 && leads[i].Kind != KindEnd; ++i) {
        list.push_back(leads[i]);
        list.back().Phase = PhaseLeadIn;
    }
    const Place lead{leads[i].X, leads[i].Y};
    const Place end = span.Open ? StartOf(span.Mark) : lead;
    if (span.First < span.Mark) {
        AppendContour(list, span, record.LeadElement, lead, side);
        if (flyOff >= Tolerance) {
            MarkFlyOffPlace(list, end, flyOff);
        }
    }
    if (leads[4].Kind == KindEnd) { // no lead-out
        CutMove closing;
        closing.Kind = KindEnd;
        closing.X = end.X;
        closing.Y = end.Y;
        list.push_back(closing);
        return;
    }
    for (i = 4; i <= 6; ++i) {
        if (leads[i].Kind != 0) {
            list.push_back(leads[i]);
            list.back().Phase = PhaseLeadOut;
        }
    }
}
