#include "DrawingItems.h"

#include "geometry/Orbalib.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Builders.h"
#include "shapes/Korvanta_Parameters.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace
{
// Rows of dimension lines around an outline, as parts of its size.
constexpr double FirstRow = 0.08;
constexpr double RowStep = 0.14;
constexpr double UsualAspect = 1.25; ///< width over height of the picture on the screen

struct OutlineBox {
    double MinX = 0.0;
    double MinY = 0.0;
    double MaxX = 0.0;
    double MaxY = 0.0;
};

const ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

/// The records of the builder, in its own coordinates.
void Develop(const DrawnShape& shape)
{
    const ShapeRow* row = FindShape(shape.ShapeId);
    ShapeParameters parameters{};
    for (int i = 0; i < ParameterCount(*row); ++i) {
        parameters[static_cast<std::size_t>(i) + 1] = shape.Values.at(row->Parameters[i].Letter);
    }
    ClearPart();
    std::int16_t err = 0;
    FindBuilder(shape.ShapeId, parameters)(parameters, err);
    if (err != 0) {
        throw std::runtime_error("its values make no part");
    }
}

PictureItem OutlineItem(const DrawnShape& shape, const ProfileElement& element, const ProfileElement& next)
{
    PictureItem item;
    item.Shape = shape.ShapeId;
    item.ItemKind = element.Kind == KindArc ? ItemArc : ItemLine;
    item.X1 = element.StartX;
    item.Y1 = element.StartY;
    item.X2 = next.StartX;
    item.Y2 = next.StartY;
    if (element.Kind == KindArc) {
        item.V1 = element.GeoA;
        item.V2 = element.GeoB;
        item.V3 = element.GeoC;
    }
    return item;
}

void AddOutline(const DrawnShape& shape, std::vector<PictureItem>& items)
{
    Develop(shape);
    for (std::int32_t slot = 1; slot < AppState.ElementCount; ++slot) {
        if (!IsEndMark(Element(slot).Kind)) {
            items.push_back(OutlineItem(shape, Element(slot), Element(slot + 1)));
        }
    }
    for (const DrawnLine& line : shape.Lines) {
        items.push_back(
            {shape.ShapeId, ItemLine, 1, line.From.X, line.From.Y, line.To.X, line.To.Y, 0, 0, 0, "", 0});
    }
    for (const DrawnPlace& fill : shape.Fills) {
        items.push_back({shape.ShapeId, ItemFill, 1, fill.X, fill.Y, 0, 0, 0, 0, 0, "", 0});
    }
}

OutlineBox BoxOf(const std::vector<PictureItem>& items)
{
    OutlineBox box{HUGE_VAL, HUGE_VAL, -HUGE_VAL, -HUGE_VAL};
    for (const PictureItem& item : items) {
        double maxX = std::max(item.X1, item.X2);
        double maxY = std::max(item.Y1, item.Y2);
        double minX = std::min(item.X1, item.X2);
        double minY = std::min(item.Y1, item.Y2);
        if (item.ItemKind == ItemArc) {
            Quadra_Arco(item.X1, item.Y1, item.X2, item.Y2, item.V1, item.V2, item.V3, maxX, maxY, minX,
                        minY);
        }
        if (item.ItemKind != ItemFill) {
            box = {std::min(box.MinX, minX), std::min(box.MinY, minY), std::max(box.MaxX, maxX),
                   std::max(box.MaxY, maxY)};
        }
    }
    return box;
}

/// The two places in the order that puts the letter on the outer side.
void OrderForLetter(DrawnDimension& dimension)
{
    DrawnPlace& a = dimension.From;
    DrawnPlace& b = dimension.To;
    const bool swap = (dimension.Where == LinePlace::Left && a.Y > b.Y) ||
                      (dimension.Where == LinePlace::Right && a.Y < b.Y) ||
                      (dimension.Where == LinePlace::Above && a.X > b.X) ||
                      (dimension.Where == LinePlace::Below && a.X < b.X);
    if (swap) {
        std::swap(a, b);
    }
}

/// Foot of the first place on the dimension line.
DrawnPlace FootOf(const DrawnDimension& dimension, const OutlineBox& box)
{
    const double size = std::max(box.MaxY - box.MinY, (box.MaxX - box.MinX) / UsualAspect);
    const double off = (FirstRow + (dimension.Measure - 1.0) * RowStep) * size;
    const DrawnPlace& from = dimension.From;
    switch (dimension.Where) {
    case LinePlace::Left:
        return {box.MinX - off, from.Y};
    case LinePlace::Right:
        return {box.MaxX + off, from.Y};
    case LinePlace::Above:
        return {from.X, box.MaxY + off};
    case LinePlace::Below:
        return {from.X, box.MinY - off};
    case LinePlace::Upright:
        return {dimension.Measure, from.Y};
    case LinePlace::Level:
        return {from.X, dimension.Measure};
    case LinePlace::Beside: {
        const double normal = angolo(dimension.To.Y - from.Y, dimension.To.X - from.X) + Pi / 2;
        return {from.X + dimension.Measure * std::cos(normal), from.Y + dimension.Measure * std::sin(normal)};
    }
    default:
        return from;
    }
}

/// What the foot on a line through a point itself can't tell is the line's direction.
void CheckFoot(const DrawnDimension& dimension, const DrawnPlace& foot)
{
    const bool upright = dimension.Where == LinePlace::Left || dimension.Where == LinePlace::Right ||
                         dimension.Where == LinePlace::Upright;
    const bool level = dimension.Where == LinePlace::Above || dimension.Where == LinePlace::Below ||
                       dimension.Where == LinePlace::Level;
    const bool onIt = dpp(dimension.From.X, dimension.From.Y, foot.X, foot.Y) < Tolerance;
    if (onIt &&
        ((upright && dimension.From.X != dimension.To.X) || (level && dimension.From.Y != dimension.To.Y))) {
        throw std::runtime_error("the first point of '" + dimension.Letter +
                                 "' lies on its line: name the other one first");
    }
}

/// A straight dimension is as long as its parameter says. Counts, angles, and a chord (which "beside" measures and is only
/// about that long) have no such length.
void CheckLength(const DrawnShape& shape, const DrawnDimension& dimension)
{
    const double across = std::fabs(dimension.To.X - dimension.From.X);
    const double up = std::fabs(dimension.To.Y - dimension.From.Y);
    double length = std::hypot(across, up);
    switch (dimension.Where) {
    case LinePlace::Left:
    case LinePlace::Right:
    case LinePlace::Upright:
        length = up;
        break;
    case LinePlace::Above:
    case LinePlace::Below:
    case LinePlace::Level:
        length = across;
        break;
    case LinePlace::Straight:
        break;
    case LinePlace::Beside:
    case LinePlace::Arc:
        return;
    }
    const bool count = dimension.Letter == "Nx" || dimension.Letter == "Ny";
    if (!count && !(std::fabs(length - std::fabs(shape.Values.at(dimension.Letter))) < Tolerance)) {
        throw std::runtime_error("'" + dimension.Letter + "' measures something else");
    }
}

PictureItem DimensionItem(const DrawnShape& shape, DrawnDimension dimension, const OutlineBox& box)
{
    CheckLength(shape, dimension);
    OrderForLetter(dimension);
    PictureItem item{shape.ShapeId,
                     ItemDimension,
                     1,
                     dimension.From.X,
                     dimension.From.Y,
                     dimension.To.X,
                     dimension.To.Y,
                     0,
                     0,
                     0,
                     dimension.Letter,
                     0};
    if (dimension.Where == LinePlace::Arc) {
        item.V1 = dimension.Centre.X;
        item.V2 = dimension.Centre.Y;
        item.V3 = dimension.Measure;
        return item;
    }
    const DrawnPlace foot = FootOf(dimension, box);
    CheckFoot(dimension, foot);
    item.V1 = foot.X;
    item.V2 = foot.Y;
    item.V3 = dimension.LetterShift;
    const double first = dpp(item.V1, item.V2, item.X1, item.Y1);
    const double second = dpp(item.V1, item.V2, item.X2, item.Y2);
    if (item.V3 > 0.0 && first >= Tolerance && std::fabs(first - second) < Tolerance) {
        throw std::runtime_error("'" + dimension.Letter + "' would be taken for an arc: move it a little");
    }
    return item;
}

void CheckLetters(const DrawnShape& shape)
{
    const ShapeRow* row = FindShape(shape.ShapeId);
    for (int i = 0; i < ParameterCount(*row); ++i) {
        const std::string letter = row->Parameters[i].Letter;
        const auto count = std::count_if(shape.Dimensions.begin(), shape.Dimensions.end(),
                                         [&](const DrawnDimension& d) { return d.Letter == letter; });
        if (count != 1) {
            throw std::runtime_error("'" + letter + "' has " + std::to_string(count) + " dimensions");
        }
    }
    if (static_cast<int>(shape.Dimensions.size()) != ParameterCount(*row)) {
        throw std::runtime_error("a dimension names a parameter that the shape doesn't have");
    }
}
} // namespace

std::vector<PictureItem> ItemsOf(const DrawnShape& shape)
{
    CheckLetters(shape);
    std::vector<PictureItem> items;
    AddOutline(shape, items);
    const OutlineBox box = BoxOf(items);
    for (const DrawnDimension& dimension : shape.Dimensions) {
        items.push_back(DimensionItem(shape, dimension, box));
    }
    return items;
}
