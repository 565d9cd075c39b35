#include "shapes/DimensionDrawing.h"

#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "profile/Drawing.h"
#include "profile/Strokes.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace
{
constexpr double FreeShare = 0.2;     ///< of the drawing's box, on each side
constexpr double MarkDivisor = 200.0; ///< a mark's arm is that part of the view's width
constexpr double LargerFont = 1.5;    ///< of a highlighted letter
constexpr double FontDivisor = 36.0;  ///< pixels of the picture for a point of the font
constexpr double LeastFont = 8.0;     ///< points
constexpr double LargestFont = 32.0;  ///< points
constexpr double LettersUp = 0.6;     ///< of its height, from a text's point to its upper edge
constexpr double LettersLeft = 1.1;   ///< of its width, to its left edge
constexpr double LetterShare = 0.7;   ///< of a text's height that the letters fill
constexpr double LetterGap = 0.25;    ///< of a text's height, between a letter and its line
constexpr double ExtensionShare =
    0.5; ///< of a barb: so far an extension line keeps off its point, and overshoots
constexpr double CrampedBarbs = 3.5;     ///< on a line that is shorter the arrows come from outside
constexpr double TailBarbs = 2.5;        ///< length of an arrow's shaft there, and on an arc
constexpr double MarkedTurn = Pi - 0.01; ///< arcs from there on show their centre
constexpr std::int16_t OutlineWidth = 2;
constexpr std::uint32_t DimensionColour = ColourBlack;
constexpr std::uint32_t HighlightColour = ColourRed;

struct PlanePoint {
    double X = 0.0;
    double Y = 0.0;
};

struct DrawingBox {
    double MinX = std::numeric_limits<double>::infinity();
    double MinY = std::numeric_limits<double>::infinity();
    double MaxX = -std::numeric_limits<double>::infinity();
    double MaxY = -std::numeric_limits<double>::infinity();
};

/// A dimension line with the points that it measures: straight from Foot1 to Foot2, or counter-clockwise about a centre.
struct DimensionLine {
    PlanePoint Point1;
    PlanePoint Point2;
    PlanePoint Foot1;
    PlanePoint Foot2;
    PlanePoint Middle;    ///< where the letter stands
    double LetterWay = 0; ///< direction from the line to the letter
};

PlanePoint Along(const PlanePoint& from, double direction, double length)
{
    return {from.X + length * std::cos(direction), from.Y + length * std::sin(direction)};
}

double Direction(const PlanePoint& from, const PlanePoint& to)
{
    return angolo(to.Y - from.Y, to.X - from.X);
}

double Distance(const PlanePoint& a, const PlanePoint& b)
{
    return dpp(a.X, a.Y, b.X, b.Y);
}

void Cover(DrawingBox& box, double x, double y)
{
    box.MinX = minimo(box.MinX, x);
    box.MinY = minimo(box.MinY, y);
    box.MaxX = massimo(box.MaxX, x);
    box.MaxY = massimo(box.MaxY, y);
}

void CoverArc(DrawingBox& box, const PlanePoint& start, const PlanePoint& end, const PlanePoint& centre,
              double radius)
{
    double maxX = 0.0;
    double maxY = 0.0;
    double minX = 0.0;
    double minY = 0.0;
    Quadra_Arco(start.X, start.Y, end.X, end.Y, centre.X, centre.Y, radius, maxX, maxY, minX, minY);
    Cover(box, minX, minY);
    Cover(box, maxX, maxY);
}

/// True for a dimension that measures along an arc.
bool MeasuresArc(const PictureItem& item)
{
    const double first = dpp(item.V1, item.V2, item.X1, item.Y1);
    const double second = dpp(item.V1, item.V2, item.X2, item.Y2);
    return item.V3 > 0.0 && first >= Tolerance && std::fabs(first - second) < Tolerance;
}

// --- dimension lines ----------------------------------------------------------------------------------------

/// Direction of a straight dimension line: square to the way from point 1 to its foot; without one from point to point.
double DirectionOfLine(const PlanePoint& point1, const PlanePoint& point2, const PlanePoint& foot)
{
    if (Distance(point1, foot) < Tolerance) {
        return Direction(point1, point2);
    }
    const double direction = Direction(point1, foot) - Pi / 2;
    const double ahead =
        (point2.X - point1.X) * std::cos(direction) + (point2.Y - point1.Y) * std::sin(direction);
    return ahead < 0.0 ? direction + Pi : direction;
}

DimensionLine StraightLine(const PictureItem& item)
{
    DimensionLine line{
        {item.X1, item.Y1}, {item.X2, item.Y2}, {item.V1, item.V2}, {item.X2, item.Y2}, {}, 0.0};
    const double direction = DirectionOfLine(line.Point1, line.Point2, line.Foot1);
    const PlanePoint ahead = Along(line.Foot1, direction, 1.0);
    GeoLine through{};
    std::int16_t err = 0;
    r_pp(through, {0.0, line.Foot1.X, line.Foot1.Y}, {0.0, ahead.X, ahead.Y}, err);
    if (err == 0) {
        const double off = dpr(item.X2, item.Y2, through[1], through[2], through[3]);
        const bool left = through[1] * item.X2 + through[2] * item.Y2 + through[3] > 0.0;
        line.Foot2 = Along(line.Point2, direction + (left ? -Pi / 2 : Pi / 2), off);
    }
    line.Middle = {(line.Foot1.X + line.Foot2.X) / 2, (line.Foot1.Y + line.Foot2.Y) / 2};
    line.Middle = Along(line.Middle, direction, item.V3);
    line.LetterWay = direction + Pi / 2;
    return line;
}

DimensionLine ArcLine(const PictureItem& item)
{
    const PlanePoint centre{item.V1, item.V2};
    DimensionLine line{{item.X1, item.Y1}, {item.X2, item.Y2}, {}, {}, {}, 0.0};
    const double start = Direction(centre, line.Point1);
    line.Foot1 = Along(centre, start, item.V3);
    line.Foot2 = Along(centre, Direction(centre, line.Point2), item.V3);
    line.LetterWay = start + amparco(centre.X, centre.Y, item.X1, item.Y1, item.X2, item.Y2, 1) / 2;
    line.Middle = Along(centre, line.LetterWay, item.V3);
    return line;
}

/// From the object to the dimension line and a little beyond; nothing where they touch.
void DrawExtension(Picture picture, const PlanePoint& point, const PlanePoint& foot)
{
    const double gap = BarbLength() * ExtensionShare;
    if (Distance(point, foot) < 2 * gap) {
        return;
    }
    const double direction = Direction(point, foot);
    const PlanePoint from = Along(point, direction, gap);
    const PlanePoint to = Along(foot, direction, gap);
    DrawLine(picture, from.X, from.Y, to.X, to.Y);
}

void DrawStraightLine(Picture picture, const DimensionLine& line, std::uint32_t rgb)
{
    const PlanePoint& a = line.Foot1;
    const PlanePoint& b = line.Foot2;
    const double direction = Direction(a, b);
    const double tail = TailBarbs * BarbLength();
    if (Distance(a, b) >= CrampedBarbs * BarbLength()) {
        const PlanePoint middle{(a.X + b.X) / 2, (a.Y + b.Y) / 2};
        DrawArrow(picture, middle.X, middle.Y, a.X, a.Y, rgb);
        DrawArrow(picture, middle.X, middle.Y, b.X, b.Y, rgb);
        return;
    }
    const PlanePoint before = Along(a, direction, -tail);
    const PlanePoint behind = Along(b, direction, tail);
    DrawLine(picture, a.X, a.Y, b.X, b.Y);
    DrawArrow(picture, before.X, before.Y, a.X, a.Y, rgb);
    DrawArrow(picture, behind.X, behind.Y, b.X, b.Y, rgb);
}

/// The arrows begin on the arc, a little before its ends.
void DrawArcLine(Picture picture, const PictureItem& item, const DimensionLine& line, std::uint32_t rgb)
{
    const PlanePoint centre{item.V1, item.V2};
    DrawArc(picture, centre.X, centre.Y, line.Foot1.X, line.Foot1.Y, line.Foot2.X, line.Foot2.Y, item.V3);
    const double turn = TailBarbs * BarbLength() / item.V3;
    const PlanePoint first = Along(centre, Direction(centre, line.Foot1) + turn, item.V3);
    const PlanePoint last = Along(centre, Direction(centre, line.Foot2) - turn, item.V3);
    DrawArrow(picture, first.X, first.Y, line.Foot1.X, line.Foot1.Y, rgb);
    DrawArrow(picture, last.X, last.Y, line.Foot2.X, line.Foot2.Y, rgb);
}

// --- letters ------------------------------------------------------------------------------------------------

/// Points of the font: it grows with the picture, so that letters and drawing keep their proportion.
std::int16_t FontPoints(Picture picture, bool highlighted)
{
    std::int32_t width = 0;
    std::int32_t height = 0;
    SurfaceSize(picture, width, height);
    const double points =
        std::clamp(std::floor(std::min(width, height) / FontDivisor), LeastFont, LargestFont);
    return static_cast<std::int16_t>(highlighted ? points * LargerFont : points);
}

/// The letter beside the middle of its line, clear of it.
void DrawDimensionLetter(Picture picture, const PictureItem& item, const DimensionLine& line,
                         bool highlighted)
{
    double width = 0.0;
    double height = 0.0;
    SurfaceSetFont(picture, FontPoints(picture, highlighted));
    SurfaceTextSize(picture, Trim(item.Label), width, height);
    SurfaceSetFont(picture, FontPoints(picture, false));
    const double reach = std::fabs(std::cos(line.LetterWay)) * width / 2 +
                         std::fabs(std::sin(line.LetterWay)) * height * LetterShare / 2;
    const PlanePoint centre = Along(line.Middle, line.LetterWay, reach + LetterGap * height);
    DrawItemText(picture, item, centre.X + (LettersLeft - 0.5) * width, centre.Y - (LettersUp - 0.5) * height,
                 highlighted);
}

// --- items --------------------------------------------------------------------------------------------------

void DrawItemArc(Picture picture, const PictureItem& item)
{
    SurfaceSetPen(picture, {item.ItemColor, OutlineWidth, false, false});
    DrawArc(picture, item.V1, item.V2, item.X1, item.Y1, item.X2, item.Y2, item.V3);
    const double turn = amparco(item.V1, item.V2, item.X1, item.Y1, item.X2, item.Y2, item.V3 > 0.0 ? 1 : -1);
    if (turn > MarkedTurn) {
        DrawCentreMark(picture, item.V1, item.V2, item.ItemColor);
    }
}

void DrawItem(Picture picture, const PictureItem& item, const std::string& caption)
{
    const bool highlighted = !caption.empty() && Trim(item.Label) == caption;
    switch (item.ItemKind) {
    case ItemLine:
        SurfaceSetPen(picture, {item.ItemColor, OutlineWidth, false, false});
        DrawLine(picture, item.X1, item.Y1, item.X2, item.Y2);
        break;
    case ItemArc:
        DrawItemArc(picture, item);
        break;
    case ItemFill:
        SurfaceFloodFill(picture, ToSurface(item.X1), ToSurface(item.Y1), ColourCgaBrown, item.ItemColor);
        break;
    case ItemLetter:
        DrawItemText(picture, item, item.X1, item.Y1, highlighted);
        break;
    case ItemDimension:
        DrawItemDimension(picture, item, highlighted);
        break;
    default:
        break;
    }
}

void CoverItem(DrawingBox& box, const PictureItem& item)
{
    const PlanePoint point1{item.X1, item.Y1};
    const PlanePoint point2{item.X2, item.Y2};
    const PlanePoint third{item.V1, item.V2};
    if (item.ItemKind == ItemArc) {
        CoverArc(box, point1, point2, third, item.V3);
    } else if (item.ItemKind == ItemLine || item.ItemKind == ItemDimension) {
        Cover(box, item.X1, item.Y1);
        Cover(box, item.X2, item.Y2);
    }
    if (item.ItemKind == ItemDimension && MeasuresArc(item)) {
        const DimensionLine line = ArcLine(item);
        CoverArc(box, line.Foot1, line.Foot2, third, item.V3);
    } else if (item.ItemKind == ItemDimension) {
        Cover(box, item.V1, item.V2);
    }
}

/// The view of a box that is `width` by `height` about (x, y), one to one.
void SetView(Picture picture, double x, double y, double width, double height)
{
    std::int32_t pixelsX = 0;
    std::int32_t pixelsY = 0;
    SurfaceSize(picture, pixelsX, pixelsY);
    const double across = std::max(pixelsX, std::int32_t{1});
    const double down = std::max(pixelsY, std::int32_t{1});
    const double pixel = std::max(width / across, height / down);
    AppState.ViewLeft = x - pixel * across / 2;
    AppState.ViewTop = y + pixel * down / 2;
    AppState.ViewWidth = pixel * across;
    AppState.ViewHeight = -pixel * down;
    AppState.UnitsPerPixelX = pixel;
    AppState.UnitsPerPixelY = -pixel;
    AppState.ViewCentreX = x;
    AppState.ViewCentreY = y;
    SurfaceSetScale(picture, AppState.ViewLeft, AppState.ViewTop, AppState.ViewWidth, AppState.ViewHeight);
}
} // namespace

void DrawShapePicture(Picture picture, std::int16_t highlighted)
{
    if (!PictureShown()) {
        return;
    }
    const auto field = static_cast<std::size_t>(highlighted) - 1;
    const std::string caption =
        highlighted >= 1 && field < AppState.ParamLabel.size() ? Trim(AppState.ParamLabel[field]) : "";
    SurfaceClear(picture);
    SurfaceSetFont(picture, FontPoints(picture, false));
    FitPictureScale(picture);
    for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
        DrawItem(picture, AppState.PictureItems[i], caption);
    }
}

void HighlightParameter(std::int16_t number)
{
    for (std::size_t i = 0; i < AppState.ParamText.size(); ++i) {
        ValueField& field = AppState.ParamText[i];
        const bool focused = i + 1 == static_cast<std::size_t>(number);
        if (field.Visible != FlagOff) {
            AppState.ParamLabelColor[i] = focused ? ColorYellow : AppState.WindowBackColor;
            field.BackColor = focused ? ColorYellow : ColorWhite;
        }
    }
    DrawShapePicture(Picture::Param, number);
}

std::int16_t FocusedParameter()
{
    const bool focused = AppState.FocusedSet == FieldSet::Param;
    return static_cast<std::int16_t>(focused ? AppState.CurrentField + 1 : 0);
}

void FitPictureScale(Picture picture)
{
    DrawingBox box;
    for (std::size_t i = 1; i < AppState.PictureItems.size(); ++i) {
        CoverItem(box, AppState.PictureItems[i]);
    }
    const double width = box.MaxX - box.MinX;
    const double height = box.MaxY - box.MinY;
    if (!(std::max(width, height) > 0.0) || !std::isfinite(width) || !std::isfinite(height)) {
        return; // nothing that has a size
    }
    constexpr double Whole = 1.0 + 2 * FreeShare;
    SetView(picture, (box.MinX + box.MaxX) / 2, (box.MinY + box.MaxY) / 2, width * Whole, height * Whole);
}

void DrawItemDimension(Picture picture, const PictureItem& item, bool highlighted)
{
    const std::uint32_t rgb = highlighted ? HighlightColour : DimensionColour;
    const bool arc = MeasuresArc(item);
    const DimensionLine line = arc ? ArcLine(item) : StraightLine(item);
    SurfaceSetPen(picture, {rgb, 1, false, false});
    DrawExtension(picture, line.Point1, line.Foot1);
    DrawExtension(picture, line.Point2, line.Foot2);
    if (arc) {
        DrawArcLine(picture, item, line, rgb);
    } else {
        DrawStraightLine(picture, line, rgb);
    }
    DrawDimensionLetter(picture, item, line, highlighted);
}

void DrawItemText(Picture picture, const PictureItem& item, double x, double y, bool highlighted)
{
    const std::string text = Trim(item.Label);
    double width = 0.0;
    double height = 0.0;
    SurfaceSetFont(picture, FontPoints(picture, highlighted));
    SurfaceTextSize(picture, text, width, height);
    SurfaceText(picture, ToSurface(x - LettersLeft * width), ToSurface(y + LettersUp * height), text,
                highlighted ? HighlightColour : DimensionColour);
    SurfaceSetFont(picture, FontPoints(picture, false));
}

void DrawCentreMark(Picture picture, double x, double y, std::uint32_t rgb)
{
    const double arm = std::fabs(AppState.ViewWidth) / MarkDivisor;
    SurfaceSetPen(picture, {rgb, 1, false, false});
    DrawLine(picture, x - arm, y, x + arm, y);
    DrawLine(picture, x, y - arm, x, y + arm);
}
