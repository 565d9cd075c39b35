#include "profile/Drawing.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "profile/ProfileSlots.h"
#include "profile/Strokes.h"

#include <cmath>

namespace
{
constexpr std::int16_t CurrentProfileWidth = 3;
constexpr double CrossPixels = 5.0;
constexpr double ArrowPixels = 20.0;
constexpr double BarbPixels = 8.0;
constexpr double BarbAngle = 16.0 / 180.0 * Pi;

double InFullTurn(double angle)
{
    const double rest = std::fmod(angle, 2 * Pi);
    return rest < 0.0 ? rest + 2 * Pi : rest;
}

void DrawElement(Picture picture, const ProfileElement& element, double x, double y)
{
    if (element.Kind == KindLine) {
        DrawLine(picture, x + element.StartX, y + element.StartY, x + element.EndX, y + element.EndY);
    } else if (element.Kind == KindArc) {
        DrawArc(picture, x + element.GeoA, y + element.GeoB, x + element.StartX, y + element.StartY,
                x + element.EndX, y + element.EndY, element.GeoC);
    }
}

void DrawCross(Picture picture, double x, double y)
{
    const double reachX = PixelsX(CrossPixels);
    const double reachY = PixelsY(CrossPixels);
    DrawLine(picture, x - reachX, y, x + reachX, y);
    DrawLine(picture, x, y - reachY, x, y + reachY);
}

bool IsMove(const CutMove& record)
{
    return record.Kind == KindLine || record.Kind == KindArc;
}

/// The moves of a chain of at most two, records `first` .. first + 2.
void DrawLead(MoveStep mode, Picture picture, const LeadRecordArray& leads, int first, double x, double y,
              std::int16_t width)
{
    for (int i = first; i < first + 2 && IsMove(leads[i]); ++i) {
        DrawMoveStep(mode, picture, leads[i], leads[i + 1], x, y, width);
    }
}

/// A rapid line from the pen to a point.
void RapidTo(Picture picture, double x, double y)
{
    CutMove from;
    from.X = AppState.PenX;
    from.Y = AppState.PenY;
    from.Kind = KindLine;
    CutMove to;
    to.X = x;
    to.Y = y;
    DrawMoveStep(MoveStep::Rapid, picture, from, to, 0.0, 0.0, 1);
}

SurfacePen PenOf(MoveStep mode, std::int16_t width)
{
    switch (mode) {
    case MoveStep::LeadIn:
        return {ColourPaletteGreen, width, false, false};
    case MoveStep::LeadOut:
        return {ColourPaletteCyan, width, false, false};
    case MoveStep::Profile:
        return {ColourPaletteRed, width, false, false};
    default:
        return {ColourPaletteMagenta, 1, true, false};
    }
}

/// Where the marker of an element stands and the direction of travel there.
struct MarkerFoot {
    double X = 0.0;
    double Y = 0.0;
    double Direction = 0.0;
};

MarkerFoot FootOn(const ProfileElement& element, const ProfileElement& next, double reach)
{
    if (element.Kind == KindArc) {
        const double sign = SignOf(element.GeoC);
        const double sweep = amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, next.StartX,
                                     next.StartY, sign < 0 ? -1 : 1);
        const double angle =
            angolo(element.StartY - element.GeoB, element.StartX - element.GeoA) + sweep / 4 * sign;
        const double r = std::fabs(element.GeoC);
        return {element.GeoA + r * std::cos(angle), element.GeoB + r * std::sin(angle),
                angle + Pi / 2 * sign};
    }
    const double direction = angolo(next.StartY - element.StartY, next.StartX - element.StartX);
    const double length = dpp(element.StartX, element.StartY, next.StartX, next.StartY);
    const double along = length < 2 * reach ? length / 2 : 2 * reach;
    return {element.StartX + along * std::cos(direction), element.StartY + along * std::sin(direction),
            direction};
}

/// Number of the profile that holds a slot.
std::int32_t ProfileOf(std::int32_t slot)
{
    std::int32_t profile = 1;
    while (profile < AppState.ProfileCount && EndMarkOf(profile) < slot) {
        ++profile;
    }
    return profile;
}

/// The marker itself, for callers that know the profile: thin, in the colour of its contour.
void DrawMarker(Picture picture, std::int32_t slot, std::int32_t profile, double x, double y)
{
    if (AppState.ScreenState == ScreenParameters || slot < 1 || slot >= AppState.ElementCount ||
        static_cast<std::size_t>(profile) >= AppState.ProfileTable.size()) {
        return;
    }
    const double reach = PixelsY(std::fabs(TextToNumber(ReadConfig("CONFIG", "KERFPOSDRAW", "5"))));
    if (!(reach > 0.0)) {
        return;
    }
    const std::uint32_t colour = profile == AppState.CurrentProfile ? ColourRed : ColourBlack;
    const MarkerFoot foot = FootOn(ElementAt(slot), ElementAt(slot + 1), reach);
    const double normal = foot.Direction + Pi / 2 * RecordAt(profile).Side;
    const double tipX = x + foot.X + reach * std::cos(normal);
    const double tipY = y + foot.Y + reach * std::sin(normal);
    SurfaceSetPen(picture, {colour, 1, false, false});
    DrawLine(picture, x + foot.X, y + foot.Y, tipX, tipY);
    const double length = PixelsX(ArrowPixels);
    DrawArrow(picture, tipX, tipY, tipX + length * std::cos(foot.Direction),
              tipY + length * std::sin(foot.Direction), colour);
}
} // namespace

void DrawPart(Picture picture, double x, double y, Flag marker)
{
    std::int32_t profile = 1;
    bool first = true;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        const ProfileElement& element = ElementAt(slot);
        const bool current = AppState.CurrentProfile == profile;
        SurfaceSetPen(picture, {current ? ColourRed : ColourBlack,
                                current ? CurrentProfileWidth : std::int16_t{1}, false, false});
        DrawElement(picture, element, x, y);
        if (IsEndMark(element.Kind)) {
            ++profile;
            first = true;
        } else if (first) {
            if (marker != 0) {
                DrawMarker(picture, slot, profile, x, y);
            }
            first = false;
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        DrawCross(picture, x + point.X, y + point.Y);
    }
}

void DrawArc(Picture picture, double centreX, double centreY, double startX, double startY, double endX,
             double endY, double r)
{
    const float cx = ToSurface(centreX);
    const float cy = ToSurface(centreY);
    const float radius = ToSurface(std::fabs(r));
    if (dpp(startX, startY, endX, endY) < Tolerance) {
        SurfaceCircle(picture, cx, cy, radius);
        return;
    }
    double from = InFullTurn(angolo(startY - centreY, startX - centreX));
    double to = InFullTurn(angolo(endY - centreY, endX - centreX));
    if (!(r > 0.0)) {
        SwapValues(from, to);
    }
    SurfaceArc(picture, cx, cy, radius, ToSurface(from), ToSurface(to));
}

void DrawArrow(Picture picture, double x1, double y1, double x2, double y2, std::uint32_t rgb)
{
    SurfaceSetPen(picture, {rgb, 1, false, false});
    DrawLine(picture, x1, y1, x2, y2);
    const double back = angolo(y1 - y2, x1 - x2);
    const double barb = PixelsX(BarbPixels);
    for (const double turn : {BarbAngle, -BarbAngle}) {
        DrawLine(picture, x2, y2, x2 + barb * std::cos(back + turn), y2 + barb * std::sin(back + turn));
    }
}

void DrawMoveStep(MoveStep mode, Picture picture, const CutMove& move, const CutMove& next, double x,
                  double y, std::int16_t width)
{
    SurfaceSetPen(picture, PenOf(mode, width));
    if (move.Kind == KindArc) {
        DrawArc(picture, x + move.CentreX, y + move.CentreY, x + move.X, y + move.Y, x + next.X, y + next.Y,
                move.Radius);
    } else {
        DrawLine(picture, x + move.X, y + move.Y, x + next.X, y + next.Y);
    }
    AppState.PenX = x + next.X;
    AppState.PenY = y + next.Y;
}

void DrawMoves(Picture picture, double x, double y, std::int16_t width)
{
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        RapidTo(picture, x + point.X, y + point.Y);
    }
    for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
        LeadRecordArray leads;
        BuildLeads(leads, profile);
        RapidTo(picture, x + leads[1].X, y + leads[1].Y);
        DrawLead(MoveStep::LeadIn, picture, leads, 1, x, y, width);
        DrawLead(MoveStep::LeadOut, picture, leads, 4, x, y, width);
    }
}

void DrawKerfMarker(Picture picture, std::int32_t slot, double x, double y)
{
    DrawMarker(picture, slot, ProfileOf(slot), x, y);
}
