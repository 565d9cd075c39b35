// The lead record of each profile: its defaults, the lead point on the contour, and the lead geometry.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr double StartLeadPosition = 10.0; ///< of a closed profile
constexpr double SnapSteps = 1.5;          ///< a lead within this many steps behind a corner jumps onto it
constexpr double LongestLead = 99999.0;    ///< a hand-written setting beyond any sheet is cut to this
constexpr double QuarterTurn = Pi / 2;

/// The lead values that a new record starts with.
struct LeadDefaults {
    double InLength = 0.0;
    double InRadius = 0.0;
    double OutLength = 0.0;
    double OutRadius = 0.0;
};

struct Place {
    double X = 0.0;
    double Y = 0.0;
};

double ReadLeadSetting(const char* key, const char* defaultValue)
{
    return std::clamp(TextToNumber(ReadConfig("Lead_CONFIG", key, defaultValue)), 0.0, LongestLead);
}

LeadDefaults ReadLeadDefaults()
{
    return {ReadLeadSetting("L_In", "10"), ReadLeadSetting("L_InRd", "5"), ReadLeadSetting("L_Out", "0"),
            ReadLeadSetting("L_OutRd", "0")};
}

void InitRecord(std::int32_t profile, const LeadDefaults& defaults)
{
    ProfileSpan span;
    if (!FindSpan(profile, span) || RecordAt(profile).Status > LeadUnset) {
        return;
    }
    ProfileRecord& record = RecordAt(profile);
    // The rest of the record was measured and stays; whatever leads it held before are gone.
    ProfileRecord fresh;
    fresh.ProfileLength = record.ProfileLength;
    fresh.CornerSnap = record.CornerSnap;
    fresh.Status = LeadNormal;
    fresh.RecordNumber = static_cast<std::int16_t>(profile);
    fresh.LeadElement = 1;
    fresh.Side = AppState.InternalPathSense;
    fresh.LeadInLineOn = FlagOn;
    if (!span.Open) {
        fresh.LeadPosition = StartLeadPosition;
        fresh.LeadInLength = defaults.InLength;
        fresh.LeadInArcOn = FlagOn;
        fresh.LeadInRadius = defaults.InRadius;
        fresh.LeadOutLength = defaults.OutLength;
        fresh.LeadOutLineOn = ToFlag(defaults.OutLength > 0.0);
        fresh.LeadOutRadius = defaults.OutRadius;
        fresh.LeadOutArcOn = ToFlag(defaults.OutRadius > 0.0);
    }
    record = fresh;
}

Place PlaceAt(const Place& from, double distance, double angle)
{
    return {from.X + distance * std::cos(angle), from.Y + distance * std::sin(angle)};
}

/// The point at `distance` along the element in `slot`, and the direction of travel there. A line runs to the start
/// of the next slot. Distance 0 is the start as it stands: a rounded arc may begin a little beside its circle, and
/// the way from there to the circle is none.
Place PlaceOnElement(std::int32_t slot, double distance, double& tangent)
{
    const ProfileElement& element = ElementAt(slot);
    const Place start{element.StartX, element.StartY};
    if (element.Kind != KindArc) {
        const ProfileElement& next = ElementAt(slot + 1);
        tangent = angolo(next.StartY - start.Y, next.StartX - start.X);
        return PlaceAt(start, distance, tangent);
    }
    const double radius = element.GeoC;
    double angle = angolo(start.Y - element.GeoB, start.X - element.GeoA);
    if (radius != 0.0) {
        angle += distance / radius;
    }
    tangent = angle + QuarterTurn * SignOf(radius);
    return distance == 0.0 ? start : PlaceAt({element.GeoA, element.GeoB}, std::fabs(radius), angle);
}

/// A position before the first point counts back from the end of the contour, so that the lead never leaves it. (Big
/// steps on a small profile bring this about; with CornerSnap the first corner takes it.)
double PositionOnContour(double position, double length)
{
    if (!(position < 0.0)) {
        return position;
    }
    const double wrapped = length > 0.0 ? std::fmod(position, length) + length : 0.0;
    return wrapped < length ? wrapped : 0.0;
}

CutMove LeadPoint(std::int16_t kind, const Place& place)
{
    CutMove record;
    record.Kind = kind;
    record.X = place.X;
    record.Y = place.Y;
    return record;
}

CutMove LeadArc(const Place& start, const Place& centre, double radius)
{
    CutMove record = LeadPoint(KindArc, start);
    record.CentreX = centre.X;
    record.CentreY = centre.Y;
    record.Radius = radius;
    return record;
}

/// An arc below the tolerance would be read as a full turn, so it counts as off.
bool ArcIsOn(Flag on, double radius)
{
    return on != FlagOff && radius >= Tolerance;
}

void BuildNormalLeadIn(LeadRecordArray& leads, const ProfileRecord& record, const Place& in, double tangent)
{
    const double side = record.Side;
    std::size_t next = 1;
    Place arcStart = in;
    CutMove arc;
    const bool arcOn = ArcIsOn(record.LeadInArcOn, record.LeadInRadius);
    if (arcOn) {
        const double radius = record.LeadInRadius;
        const double towardsCentre = tangent + QuarterTurn * side;
        const Place centre = PlaceAt(in, radius, towardsCentre);
        arcStart = PlaceAt(centre, radius, towardsCentre + QuarterTurn * side);
        arc = LeadArc(arcStart, centre, side * radius);
    }
    if (record.LeadInLineOn != FlagOff) {
        const double outwards = (QuarterTurn + record.LeadInAngle) * side + tangent;
        leads[next++] = LeadPoint(KindLine, PlaceAt(arcStart, record.LeadInLength, outwards));
    } else if (!arcOn) {
        leads[next++] = LeadPoint(KindLine, in);
    }
    if (arcOn) {
        leads[next++] = arc;
    }
    leads[next] = LeadPoint(KindEnd, in);
}

void BuildNormalLeadOut(LeadRecordArray& leads, const ProfileRecord& record, const Place& out, double tangent)
{
    const double side = record.Side;
    std::size_t next = 4;
    Place end = out;
    if (ArcIsOn(record.LeadOutArcOn, record.LeadOutRadius)) {
        const double radius = record.LeadOutRadius;
        const double towardsCentre = tangent + QuarterTurn * side;
        const Place centre = PlaceAt(out, radius, towardsCentre);
        leads[next++] = LeadArc(out, centre, side * radius);
        end = PlaceAt(centre, radius, towardsCentre - QuarterTurn * side);
    }
    if (record.LeadOutLineOn != FlagOff) {
        const double outwards = (QuarterTurn - record.LeadOutAngle) * side + tangent;
        leads[next++] = LeadPoint(KindLine, end);
        end = PlaceAt(end, record.LeadOutLength, outwards);
    }
    leads[next] = LeadPoint(KindEnd, end);
}

/// The direction in which the cut arrives at the end of a straight-led profile.
double ArrivalDirection(const ProfileSpan& span, std::int32_t leadElement)
{
    const bool fromLast = span.Open || leadElement - 1 < span.First;
    const ProfileElement& last = ElementAt(fromLast ? span.Mark - 1 : leadElement - 1);
    const ProfileElement& target = ElementAt(span.Open ? span.Mark : leadElement);
    if (last.Kind == KindArc) {
        return angolo(last.EndY - last.GeoB, last.EndX - last.GeoA) + QuarterTurn * SignOf(last.GeoC);
    }
    return angolo(target.StartY - last.StartY, target.StartX - last.StartX);
}

void BuildStraightLeads(LeadRecordArray& leads, const ProfileRecord& record, const ProfileSpan& span,
                        const Place& in, const Place& out, double tangent)
{
    const double inLength = (record.LeadInArcOn != FlagOff ? record.LeadInRadius : 0.0) +
                            (record.LeadInLineOn != FlagOff ? record.LeadInLength : 0.0);
    const double outLength = (record.LeadOutArcOn != FlagOff ? record.LeadOutRadius : 0.0) +
                             (record.LeadOutLineOn != FlagOff ? record.LeadOutLength : 0.0);
    std::size_t next = 1;
    if (inLength >= Tolerance) {
        leads[next++] = LeadPoint(KindLine, PlaceAt(in, inLength, tangent + Pi));
    }
    leads[next] = LeadPoint(KindEnd, in);
    next = 4;
    Place end = out;
    if (outLength >= Tolerance) {
        leads[next++] = LeadPoint(KindLine, out);
        end = PlaceAt(out, outLength, ArrivalDirection(span, record.LeadElement));
    }
    leads[next] = LeadPoint(KindEnd, end);
}
} // namespace

void InitLeadData()
{
    const LeadDefaults defaults = ReadLeadDefaults();
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        InitRecord(profile, defaults); // passes over what is initialised, with KeepLeadData and without
    }
}

void InitProfileRecord(std::int32_t profile)
{
    InitRecord(profile, ReadLeadDefaults());
}

void FindLeadPoint(double& inX, double& inY, double& outX, double& outY, double& tangent,
                   double& leadPosition, std::int32_t profile)
{
    inX = inY = outX = outY = tangent = 0.0;
    ProfileSpan span;
    if (!FindSpan(profile, span)) {
        return;
    }
    ProfileRecord& record = RecordAt(profile);
    const ProfileElement& mark = ElementAt(span.Mark);
    if (span.Open) {
        const ProfileElement& first = ElementAt(span.First);
        inX = first.StartX;
        inY = first.StartY;
        outX = mark.StartX;
        outY = mark.StartY;
        record.Status = LeadStraight;
        if (span.First < span.Mark) {
            PlaceOnElement(span.First, 0.0, tangent);
            record.LeadElement = static_cast<std::int16_t>(span.First);
        }
        return;
    }
    const bool snaps = record.CornerSnap != FlagOff;
    double position = snaps ? leadPosition : PositionOnContour(leadPosition, record.ProfileLength);
    double sum = 0.0;
    std::int32_t slot = span.First;
    for (; slot < span.Mark; ++slot) {
        sum += ElementAt(slot).Length;
        if (position < sum) {
            break;
        }
    }
    if (slot == span.Mark) { // past the end: the lead jumps to the middle of the last element
        slot = std::max(span.Mark - 1, span.First);
        sum = ElementAt(slot).Length;
        position = leadPosition = sum / 2;
    }
    double distance = position - sum + ElementAt(slot).Length;
    record.Status = LeadNormal;
    if (snaps && AppState.MoveStep * SnapSteps > distance) {
        distance = 0.0;
        record.Status = LeadStraight;
    }
    const Place place = PlaceOnElement(slot, distance, tangent);
    inX = outX = place.X;
    inY = outY = place.Y;
    record.LeadElement = static_cast<std::int16_t>(slot);
}

void BuildLeads(LeadRecordArray& leads, std::int32_t profile)
{
    std::fill(std::begin(leads), std::end(leads), CutMove());
    ProfileSpan span;
    if (!FindSpan(profile, span)) {
        return;
    }
    ProfileRecord& record = RecordAt(profile);
    Place in;
    Place out;
    double tangent = 0.0;
    FindLeadPoint(in.X, in.Y, out.X, out.Y, tangent, record.LeadPosition, profile);
    if (span.First == span.Mark) {
        leads[1] = LeadPoint(KindEnd, in);
        leads[4] = LeadPoint(KindEnd, out);
    } else if (record.Status == LeadStraight) {
        BuildStraightLeads(leads, record, span, in, out, tangent);
    } else {
        BuildNormalLeadIn(leads, record, in, tangent);
        BuildNormalLeadOut(leads, record, out, tangent);
    }
}
