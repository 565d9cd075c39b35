#include "qt/ShapePictures.h"

#include "geometry/Orbalib.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Builders.h"
#include "shapes/Korvanta_Parameters.h"
#include "state/AppState.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QTransform>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

namespace
{
constexpr QColor FillColour(0x8F, 0xA9, 0xC0);
constexpr QColor EdgeColour(0x2B, 0x40, 0x57);

constexpr double EdgeWidth = 1.5;     ///< device-independent pixels
constexpr double LongestMiter = 2.0;  ///< by the width of the pen
constexpr double MarginShare = 0.06;  ///< of the picture, on each side
constexpr double GiveWayShare = 0.04; ///< by so much a picture may shrink to meet the pixels
constexpr double PixelPrice = 0.02;   ///< what a pixel less must gain in sharpness

/// No screen is wider, in its own pixels: a larger picture is a mistake of its caller.
constexpr int LargestPicture = 8192;

/// Values beyond it are no shape any more.
constexpr double LargestMeasure = 1e9;

/// The plate that stands for a shape without a picture of its own.
constexpr QRectF PlainPlateBox(0.0, 0.0, 3.0, 2.0);

/// A part in its own units, Y downward as in a picture.
struct PartOutline {
    QPainterPath Filled; ///< closed contours, by even and odd
    QPainterPath Cuts;   ///< cuts that enclose no part
};

/// Where a part goes, in pixels of the screen.
struct Placement {
    double Scale = 0.0;
    double Left = 0.0;
    double Top = 0.0;
};

/// What a builder writes in AppState, put aside as long as this lives.
struct PartAside {
    std::vector<ProfileElement> Elements{1};
    std::vector<std::int32_t> Ends;
    std::int32_t ElementCount = 0;
    std::int32_t ProfileCount = 0;
    Flag Twin = FlagOff;

    PartAside()
    {
        Exchange();
    }
    ~PartAside()
    {
        Exchange();
    }
    PartAside(const PartAside&) = delete;
    PartAside& operator=(const PartAside&) = delete;

    void Exchange()
    {
        std::swap(AppState.ElementTable, Elements);
        std::swap(AppState.ProfileEnds, Ends);
        std::swap(AppState.ElementCount, ElementCount);
        std::swap(AppState.ProfileCount, ProfileCount);
        std::swap(AppState.ShapeFlagTwin, Twin);
    }
};

const ProfileElement& Element(std::int32_t slot)
{
    return AppState.ElementTable[static_cast<std::size_t>(slot)];
}

/// Builders leave some divisions unguarded.
bool IsUsable(const ProfileElement& element)
{
    const double values[] = {element.GeoA, element.GeoB, element.GeoC, element.StartX, element.StartY};
    return std::all_of(std::begin(values), std::end(values),
                       [](double value) { return std::fabs(value) < LargestMeasure; }); // no NaN passes
}

/// Adds the line or arc of a slot, up to the start of the next one.
void AddToPath(QPainterPath& path, std::int32_t slot)
{
    const ProfileElement& element = Element(slot);
    const ProfileElement& next = Element(slot + 1);
    if (element.Kind == KindArc) {
        const double r = std::fabs(element.GeoC);
        const int sign = element.GeoC < 0.0 ? -1 : 1;
        const double from = angolo(element.StartY - element.GeoB, element.StartX - element.GeoA);
        const double sweep = amparco(element.GeoA, element.GeoB, element.StartX, element.StartY, next.StartX,
                                     next.StartY, sign);
        path.arcTo(element.GeoA - r, -element.GeoB - r, 2 * r, 2 * r, from * 180.0 / Pi,
                   sign * sweep * 180.0 / Pi);
    }
    path.lineTo(next.StartX, -next.StartY);
}

/// The table as a picture: filled when its outer contour is closed. Otherwise every contour is a cut, for a hole in an
/// outline that stays open is no material. Empty when a number in the table is unusable.
PartOutline OutlineOfTable()
{
    PartOutline outline;
    bool outerClosed = false;
    std::int32_t first = 1;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        const ProfileElement& mark = Element(slot);
        if (!IsUsable(mark)) {
            return {};
        }
        if (!IsEndMark(mark.Kind)) {
            continue;
        }
        QPainterPath contour(QPointF(Element(first).StartX, -Element(first).StartY));
        for (std::int32_t i = first; i < slot; ++i) {
            AddToPath(contour, i);
        }
        const bool closed =
            dpp(Element(first).StartX, Element(first).StartY, mark.StartX, mark.StartY) < Tolerance;
        if (closed) {
            contour.closeSubpath();
        }
        (closed ? outline.Filled : outline.Cuts).addPath(contour);
        outerClosed = outerClosed || (closed && mark.Kind == KindOuterEnd);
        first = slot + 1;
    }
    if (!outerClosed) {
        outline.Cuts.addPath(outline.Filled);
        outline.Filled = QPainterPath();
    }
    return outline;
}

QRectF BoxOf(const PartOutline& outline)
{
    return outline.Cuts.isEmpty()     ? outline.Filled.boundingRect()
           : outline.Filled.isEmpty() ? outline.Cuts.boundingRect()
                                      : outline.Cuts.boundingRect().united(outline.Filled.boundingRect());
}

/// The plain plate when the builder is missing or refuses the values.
PartOutline OutlineOfShape(std::int16_t shapeId, const ShapeParameters& parameters)
{
    PartOutline outline;
    if (const ShapeBuilder builder = FindBuilder(shapeId, parameters)) {
        const PartAside aside;
        std::int16_t err = 0;
        builder(parameters, err);
        if (err == 0) {
            outline = OutlineOfTable();
        }
    }
    const QRectF box = BoxOf(outline);
    if (!(std::max(box.width(), box.height()) > Tolerance)) {
        outline = PartOutline();
        outline.Cuts.addRect(PlainPlateBox);
    }
    return outline;
}

/// The largest scale for a box that leaves the margins, `around` pixels wider and higher on the screen than the box.
double LargestScale(QSizeF box, QSize picture, double around)
{
    const auto fit = [around](double length, int pixels) {
        const double room = std::max(pixels * (1.0 - 2.0 * MarginShare) - around, 1.0);
        return length > 0.0 ? room / length : std::numeric_limits<double>::infinity();
    };
    return std::min(fit(box.width(), picture.width()), fit(box.height(), picture.height()));
}

/// Centres a box so that its edges lie between two pixels of the screen: the longer side takes whole pixels, and of the
/// sizes near the largest one that wins whose other side comes next to whole pixels, too.
Placement PlaceBox(const QRectF& box, QSize picture, double around)
{
    const double largest = LargestScale(box.size(), picture, around);
    const double longer = std::max(box.width(), box.height());
    const double other = std::min(box.width(), box.height());
    const double most = std::floor(longer * largest + around);
    double scale = largest;
    double leastCost = std::numeric_limits<double>::infinity();
    for (int less = 0; less <= std::max(1.0, most * GiveWayShare) && most - less - around > 0.0; ++less) {
        const double tried = (most - less - around) / longer;
        const double pixels = other * tried + around;
        const double cost = std::fabs(pixels - std::round(pixels)) + less * PixelPrice;
        if (cost < leastCost) {
            leastCost = cost;
            scale = tried;
        }
    }
    const auto begin = [scale, around](int pixels, double length) {
        return std::round((pixels - (length * scale + around)) / 2) + around / 2;
    };
    return {scale, begin(picture.width(), box.width()) - box.left() * scale,
            begin(picture.height(), box.height()) - box.top() * scale};
}

/// Square corners; sharp ones are cut off, so that no tip grows out of the picture.
QPen EdgePen(double width)
{
    QPen pen(EdgeColour, width, Qt::SolidLine, Qt::FlatCap, Qt::SvgMiterJoin);
    pen.setMiterLimit(LongestMiter);
    return pen;
}

/// Paints into an image in pixels of the screen.
void PaintOutline(QImage& image, PartOutline outline, double edge)
{
    const QRectF box = BoxOf(outline);
    const double thin = std::min(box.width(), box.height()) * LargestScale(box.size(), image.size(), 0.0);
    if (thin < edge) { // a fill would fade away
        outline.Cuts.addPath(outline.Filled);
        outline.Filled = QPainterPath();
    }
    const Placement place = PlaceBox(box, image.size(), outline.Cuts.isEmpty() ? 0.0 : edge);
    const QTransform toPixels(place.Scale, 0.0, 0.0, place.Scale, place.Left, place.Top);

    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QPainterPath filled = toPixels.map(outline.Filled);
    filled.setFillRule(Qt::OddEvenFill);
    painter.fillPath(filled, FillColour);
    // The edge stays on the material: twice as wide and painted where the fill is, it neither narrows a small hole nor
    // makes the part larger.
    painter.setCompositionMode(QPainter::CompositionMode_SourceAtop);
    painter.strokePath(filled, EdgePen(2 * edge));
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.strokePath(toPixels.map(outline.Cuts), EdgePen(edge));
}
} // namespace

QPixmap ShapePicture(std::int16_t shapeId, QSize size, qreal pixelRatio)
{
    const ShapeRow* row = FindShape(shapeId);
    if (row == nullptr) {
        return {};
    }
    ShapeParameters parameters{};
    for (int i = 0; i < ParameterCount(*row); ++i) {
        parameters[static_cast<std::size_t>(i) + 1] = row->Parameters[i].Default;
    }
    return ShapePictureOf(shapeId, parameters, size, pixelRatio);
}

QPixmap ShapePictureOf(std::int16_t shapeId, const ShapeParameters& parameters, QSize size, qreal pixelRatio)
{
    const QSizeF pixels = QSizeF(size) * pixelRatio;
    const double longer = std::max(pixels.width(), pixels.height());
    if (size.isEmpty() || !(pixelRatio > 0.0) || !(longer <= LargestPicture)) {
        return {};
    }
    QImage image(pixels.toSize().expandedTo(QSize(1, 1)), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    PaintOutline(image, OutlineOfShape(shapeId, parameters), EdgeWidth * pixelRatio);
    image.setDevicePixelRatio(pixelRatio);
    return QPixmap::fromImage(image);
}
