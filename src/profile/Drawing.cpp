#include "profile/Drawing.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "profile/ProfileSlots.h"
#include "profile/Strokes.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr std::int16_t CurrentProfileWidth = 3;
constexpr double CrossPixels = 5.0;
constexpr double ArrowPixels = 20.0;
constexpr double BarbDivisor = 80.0; ///< a barb is that part of the view's height
constexpr double BarbAngle = 16.0 / 180.0 * Pi;

double InFullTurn(double angle)
{
    const double rest = std::fmod(angle, 2 * Pi);
    return rest < 0.0 ? rest + 2 * Pi : rest;
}

PartStroke LineStroke(double x1, double y1, double x2, double y2)
{
    return {{}, StrokeKind::Line, 0.0F, 0.0F, x1, y1, x2, y2};
}

/// Angles that 32-bit floats can't tell apart would be taken for a full turn: so little of an arc is its chord.
PartStroke ArcStroke(double centreX, double centreY, double startX, double startY, double endX, double endY,
                     double r)
{
    PartStroke stroke{{}, StrokeKind::Circle, 0.0F, 0.0F, centreX, centreY, std::fabs(r), 0.0};
    if (dpp(startX, startY, endX, endY) < Tolerance) {
        return stroke;
    }
    double from = InFullTurn(angolo(startY - centreY, startX - centreX));
    double to = InFullTurn(angolo(endY - centreY, endX - centreX));
    if (!(r > 0.0)) {
        SwapValues(from, to);
    }
    stroke.From = ToSurface(from);
    stroke.To = ToSurface(to);
    if (stroke.From != stroke.To) {
        stroke.Kind = StrokeKind::Arc;
    } else if (to >= from) { // else almost a full turn
        return LineStroke(startX, startY, endX, endY);
    }
    return stroke;
}

/// A stroke without its pen.
void DrawStroke(Picture picture, const PartStroke& stroke, double x, double y)
{
    switch (stroke.Kind) {
    case StrokeKind::Line:
        DrawLine(picture, x + stroke.X1, y + stroke.Y1, x + stroke.X2, y + stroke.Y2);
        break;
    case StrokeKind::Circle:
        SurfaceCircle(picture, ToSurface(x + stroke.X1), ToSurface(y + stroke.Y1), ToSurface(stroke.X2));
        break;
    case StrokeKind::Arc:
        SurfaceArc(picture, ToSurface(x + stroke.X1), ToSurface(y + stroke.Y1), ToSurface(stroke.X2),
                   stroke.From, stroke.To);
        break;
    }
}

bool SamePen(const SurfacePen& a, const SurfacePen& b)
{
    return a.Rgb == b.Rgb && a.Width == b.Width && a.Dashed == b.Dashed && a.Inverting == b.Inverting;
}

void Add(PartStrokes& strokes, const SurfacePen& pen, PartStroke stroke)
{
    stroke.Pen = pen;
    strokes.push_back(stroke);
}

void AddElementStroke(PartStrokes& strokes, const SurfacePen& pen, const ProfileElement& element)
{
    if (element.Kind == KindLine) {
        Add(strokes, pen, LineStroke(element.StartX, element.StartY, element.EndX, element.EndY));
    } else if (element.Kind == KindArc) {
        Add(strokes, pen,
            ArcStroke(element.GeoA, element.GeoB, element.StartX, element.StartY, element.EndX, element.EndY,
                      element.GeoC));
    }
}

void AddCross(PartStrokes& strokes, const SurfacePen& pen, const MarkPoint& point)
{
    const double reachX = PixelsX(CrossPixels);
    const double reachY = PixelsY(CrossPixels);
    Add(strokes, pen, LineStroke(point.X - reachX, point.Y, point.X + reachX, point.Y));
    Add(strokes, pen, LineStroke(point.X, point.Y - reachY, point.X, point.Y + reachY));
}

void AddArrow(PartStrokes& strokes, const SurfacePen& pen, double x1, double y1, double x2, double y2)
{
    Add(strokes, pen, LineStroke(x1, y1, x2, y2));
    const double back = angolo(y1 - y2, x1 - x2);
    const double barb = BarbLength();
    for (const double turn : {BarbAngle, -BarbAngle}) {
        Add(strokes, pen,
            LineStroke(x2, y2, x2 + barb * std::cos(back + turn), y2 + barb * std::sin(back + turn)));
    }
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

/// Reach of the markers, 0 where none are drawn.
double MarkerReach()
{
    if (AppState.ScreenState == ScreenParameters) {
        return 0.0;
    }
    return PixelsY(std::fabs(TextToNumber(ReadConfig("CONFIG", "KERFPOSDRAW", "5"))));
}

/// The marker itself, for callers that know the profile: thin, in the colour of its contour.
void AddMarker(PartStrokes& strokes, std::int32_t slot, std::int32_t profile, double reach)
{
    if (!(reach > 0.0) || slot < 1 || slot >= AppState.ElementCount ||
        static_cast<std::size_t>(profile) >= AppState.ProfileTable.size()) {
        return;
    }
    const SurfacePen pen{profile == AppState.CurrentProfile ? ColourRed : ColourBlack, 1, false, false};
    const MarkerFoot foot = FootOn(ElementAt(slot), ElementAt(slot + 1), reach);
    const double normal = foot.Direction + Pi / 2 * RecordAt(profile).Side;
    const double tipX = foot.X + reach * std::cos(normal);
    const double tipY = foot.Y + reach * std::sin(normal);
    Add(strokes, pen, LineStroke(foot.X, foot.Y, tipX, tipY));
    const double length = PixelsX(ArrowPixels);
    AddArrow(strokes, pen, tipX, tipY, tipX + length * std::cos(foot.Direction),
             tipY + length * std::sin(foot.Direction));
}
} // namespace

PartStrokes CollectPart(Flag marker)
{
    PartStrokes strokes;
    const double reach = marker != FlagOff ? MarkerReach() : 0.0;
    SurfacePen pen{ColourBlack, 1, false, false};
    std::int32_t profile = 1;
    bool first = true;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        const ProfileElement& element = ElementAt(slot);
        const bool current = AppState.CurrentProfile == profile;
        pen.Rgb = current ? ColourRed : ColourBlack;
        pen.Width = current ? CurrentProfileWidth : std::int16_t{1};
        AddElementStroke(strokes, pen, element);
        if (IsEndMark(element.Kind)) {
            ++profile;
            first = true;
        } else if (first) {
            AddMarker(strokes, slot, profile, reach);
            first = false;
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        AddCross(strokes, pen, AppState.MarkPoints[static_cast<std::size_t>(i)]);
    }
    return strokes;
}

void DrawStrokes(Picture picture, const PartStrokes& strokes, double x, double y)
{
    const PartStroke* before = nullptr;
    for (const PartStroke& stroke : strokes) {
        if (before == nullptr || !SamePen(before->Pen, stroke.Pen)) {
            SurfaceSetPen(picture, stroke.Pen);
        }
        DrawStroke(picture, stroke, x, y);
        before = &stroke;
    }
}

void DrawPart(Picture picture, double x, double y, Flag marker)
{
    DrawStrokes(picture, CollectPart(marker), x, y);
}

void DrawArc(Picture picture, double centreX, double centreY, double startX, double startY, double endX,
             double endY, double r)
{
    DrawStroke(picture, ArcStroke(centreX, centreY, startX, startY, endX, endY, r), 0.0, 0.0);
}

double BarbLength()
{
    return std::fabs(AppState.ViewHeight) / BarbDivisor;
}

void DrawArrow(Picture picture, double x1, double y1, double x2, double y2, std::uint32_t rgb)
{
    PartStrokes strokes;
    AddArrow(strokes, {rgb, 1, false, false}, x1, y1, x2, y2);
    DrawStrokes(picture, strokes, 0.0, 0.0);
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

void CollectLeads(PartLeads& leads)
{
    leads.resize(static_cast<std::size_t>(std::max(AppState.ProfileCount, std::int32_t{0})));
    std::int32_t profile = 1;
    for (ProfileLeads& lead : leads) {
        BuildLeads(lead.Records, profile++);
    }
}

void DrawLeads(Picture picture, const PartLeads& leads, double x, double y, std::int16_t width)
{
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        const MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        RapidTo(picture, x + point.X, y + point.Y);
    }
    for (const ProfileLeads& lead : leads) {
        RapidTo(picture, x + lead.Records[1].X, y + lead.Records[1].Y);
        DrawLead(MoveStep::LeadIn, picture, lead.Records, 1, x, y, width);
        DrawLead(MoveStep::LeadOut, picture, lead.Records, 4, x, y, width);
    }
}

void DrawMoves(Picture picture, double x, double y, std::int16_t width)
{
    PartLeads leads;
    CollectLeads(leads);
    DrawLeads(picture, leads, x, y, width);
}

void DrawKerfMarker(Picture picture, std::int32_t slot, double x, double y)
{
    PartStrokes strokes;
    AddMarker(strokes, slot, ProfileOf(slot), MarkerReach());
    DrawStrokes(picture, strokes, x, y);
}
