#include "qt/PaintSurface.h"

#include "platform/Bitmap.h"
#include "qt/Coverage.h"
#include "qt/FloodFill.h"

#include <QFontMetricsF>
#include <QGuiApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

SurfaceListeners SurfaceListener;

namespace
{
constexpr double DashPixels = 6.0; ///< device-independent, as the widths of pens are
constexpr double GapPixels = 4.0;
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr double LineShare = 0.032; ///< of a picture's height: the most that a letter's size takes
constexpr double LeastFontPixels = 10.0;
constexpr double HaloPixels = 4.0;  ///< half of it around each letter
constexpr double WidestPen = 200.0; ///< pixels of the image
constexpr std::uint32_t ColourBits = 0xFFFFFF;
constexpr std::uint32_t Opaque = 0xFF000000;

struct PaintedPicture {
    QImage Image;
    QSize Size; ///< device-independent
    qreal PixelRatio = 1.0;
    double Left = 0.0; ///< world coordinates of the upper left corner
    double Top = 0.0;
    double Width = 0.0; ///< world; 0: no scale yet
    double Height = 0.0;
    double PixelsPerUnitX = 0.0; ///< of the image; 0 without an image or a scale
    double PixelsPerUnitY = 0.0;
    SurfacePen Pen;
    StrokeStyle Style; ///< of the pen
    std::int16_t FontPoints = 15;
    bool FontBold = false;
    bool Told = false; ///< the listener knows that the image is old
};

/// Strokes of one colour on one picture that are not yet in its image.
struct StrokeBatch {
    PaintedPicture* On = nullptr;
    std::uint32_t Rgb = 0;
    CoverageMask Mask;
};

std::array<PaintedPicture, 4> Pictures;
StrokeBatch Batch;

PaintedPicture& PictureOf(Picture picture)
{
    return Pictures[static_cast<std::size_t>(picture)];
}

bool HasScale(const PaintedPicture& painted)
{
    return painted.PixelsPerUnitX != 0.0 && painted.PixelsPerUnitY != 0.0;
}

/// Pixels of the image for a world coordinate.
double PixelX(const PaintedPicture& painted, double x)
{
    return (x - painted.Left) * painted.PixelsPerUnitX;
}

double PixelY(const PaintedPicture& painted, double y)
{
    return (y - painted.Top) * painted.PixelsPerUnitY;
}

std::uint32_t Mixed(std::uint32_t under, std::uint32_t over, std::uint32_t share)
{
    std::uint32_t mixed = Opaque;
    for (int shift = 0; shift < 24; shift += 8) {
        const std::uint32_t low = (under >> shift) & 0xFFU;
        const std::uint32_t high = (over >> shift) & 0xFFU;
        mixed |= ((low * (255 - share) + high * share + 127) / 255) << shift;
    }
    return mixed;
}

/// Lays the strokes of the batch over their image.
void FlushBatch()
{
    if (Batch.Mask.Touched.empty()) {
        return;
    }
    auto* pixels = reinterpret_cast<std::uint32_t*>(Batch.On->Image.bits()); // rows of RGB32 have no gaps
    for (const std::uint32_t cell : Batch.Mask.Touched) {
        const std::uint32_t share = Batch.Mask.Cells[cell];
        pixels[cell] = share == 255 ? Opaque | Batch.Rgb : Mixed(pixels[cell], Batch.Rgb, share);
    }
    EmptyMask(Batch.Mask);
}

/// Exclusive-or with the complement of the colour: on white that is the colour itself, on black its complement, and on
/// itself white. Two times the same gives what was there.
void InvertBatch()
{
    auto* pixels = reinterpret_cast<std::uint32_t*>(Batch.On->Image.bits());
    for (const std::uint32_t cell : Batch.Mask.Touched) {
        pixels[cell] ^= ~Batch.Rgb & ColourBits;
    }
    EmptyMask(Batch.Mask);
}

/// Plainly: the image's own fill leaves the wide registers of some processors in a state that halves the speed of all
/// that is worked out afterwards.
void Whiten(PaintedPicture& painted)
{
    for (int y = 0; y < painted.Image.height(); ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(painted.Image.scanLine(y));
        std::fill(row, row + painted.Image.width(), Opaque | ColourBits);
    }
}

void TellTouched(Picture picture)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!painted.Told && !painted.Image.isNull()) {
        painted.Told = true;
        if (SurfaceListener.Touched != nullptr) {
            SurfaceListener.Touched(picture);
        }
    }
}

/// The mask for a stroke in the pen; null where it can't be seen.
CoverageMask* BeginStroke(Picture picture)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!HasScale(painted)) {
        return nullptr;
    }
    TellTouched(picture);
    if (Batch.On != &painted || Batch.Rgb != painted.Pen.Rgb || painted.Pen.Inverting) {
        FlushBatch();
        EmptyMask(Batch.Mask);
        Batch.On = &painted;
        Batch.Rgb = painted.Pen.Rgb;
        if (Batch.Mask.Width != painted.Image.width() || Batch.Mask.Height != painted.Image.height()) {
            ResizeMask(Batch.Mask, painted.Image.width(), painted.Image.height());
        }
    }
    return &Batch.Mask;
}

/// Inverting strokes can't be gathered: two that meet cancel, and so they must when one of them is taken away.
void EndStroke(Picture picture)
{
    if (PictureOf(picture).Pen.Inverting) {
        InvertBatch();
    }
}

void UpdateScale(PaintedPicture& painted)
{
    const bool scaled = painted.Width != 0.0 && painted.Height != 0.0;
    painted.PixelsPerUnitX = scaled ? painted.Image.width() / painted.Width : 0.0;
    painted.PixelsPerUnitY = scaled ? painted.Image.height() / painted.Height : 0.0;
}

void UpdateStyle(PaintedPicture& painted)
{
    const auto pixels = [&painted](double length) { return std::round(length * painted.PixelRatio); };
    painted.Style.Width = static_cast<int>(std::clamp(pixels(painted.Pen.Width), 1.0, WidestPen));
    painted.Style.Smooth = !painted.Pen.Inverting;
    painted.Style.DashOn = painted.Pen.Dashed ? std::max(1.0, pixels(DashPixels)) : 0.0;
    painted.Style.DashOff = painted.Pen.Dashed ? std::max(1.0, pixels(GapPixels)) : 0.0;
}

void StrokeArc(Picture picture, float centreX, float centreY, float radius, double start, double sweep)
{
    CoverageMask* mask = BeginStroke(picture);
    if (mask == nullptr) {
        return;
    }
    const PaintedPicture& painted = PictureOf(picture);
    CoverArc(*mask, painted.Style,
             {PixelX(painted, centreX), PixelY(painted, centreY), radius * painted.PixelsPerUnitX,
              radius * painted.PixelsPerUnitY, start, sweep});
    EndStroke(picture);
}

/// An edge of a box; one on the border of the image is brought in whole, so that a box as large as the view is seen.
double EdgeWithin(double edge, int pixels, int penWidth)
{
    constexpr double Slack = 0.5;
    const double half = penWidth / 2.0;
    if (edge > -Slack && edge < half) {
        return half;
    }
    return edge < pixels + Slack && edge > pixels - half ? pixels - half : edge;
}

/// First pixel of a filled area whose border lies at `edge`, within the image.
int FillEdge(double edge, int pixels)
{
    return static_cast<int>(std::clamp(std::floor(edge + 0.5 + Slip), 0.0, static_cast<double>(pixels)));
}

/// The size asked for, or what leaves a line its room above the part in a low picture. The letters of a shape's drawing
/// are in proportion to it as they come.
int FontPixels(const PaintedPicture& painted)
{
    if (&painted == &Pictures[static_cast<std::size_t>(Picture::Param)]) {
        return static_cast<int>(std::lround(std::max(painted.FontPoints * PixelsPerPoint, 1.0)));
    }
    const double height = painted.Size.height();
    const double room = std::max(height * LineShare, LeastFontPixels);
    return static_cast<int>(std::lround(std::clamp(painted.FontPoints * PixelsPerPoint, 1.0, room)));
}

QFont FontOf(const PaintedPicture& painted)
{
    QFont font = QGuiApplication::font();
    font.setPixelSize(FontPixels(painted));
    font.setBold(painted.FontBold);
    font.setStyleStrategy(QFont::NoSubpixelAntialias); // no coloured fringes
    return font;
}

/// The ground around letters, so that they are read where they stand on strokes.
void DrawHalo(QPainter& painter, QPointF base, const QString& text)
{
    QPainterPath letters;
    letters.addText(base, painter.font(), text);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(letters, QPen(Qt::white, HaloPixels, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.restore();
}
} // namespace

bool PictureShown()
{
    return true;
}

void ResizeSurface(Picture picture, QSize size, qreal pixelRatio)
{
    PaintedPicture& painted = PictureOf(picture);
    const qreal ratio = pixelRatio > 0.0 ? pixelRatio : 1.0;
    if (painted.Size == size && painted.PixelRatio == ratio) {
        return;
    }
    FlushBatch();
    Batch.On = nullptr;
    painted.Size = size.isEmpty() ? QSize(0, 0) : size;
    painted.PixelRatio = ratio;
    painted.Image = size.isEmpty() ? QImage() : QImage(size * ratio, QImage::Format_RGB32);
    painted.Image.setDevicePixelRatio(ratio);
    Whiten(painted);
    UpdateScale(painted);
    UpdateStyle(painted);
    TellTouched(picture);
}

const QImage& SurfaceImage(Picture picture)
{
    PaintedPicture& painted = PictureOf(picture);
    if (Batch.On == &painted) {
        FlushBatch();
    }
    painted.Told = false;
    return painted.Image;
}

void SurfaceWorldOf(Picture picture, QPointF point, double& x, double& y)
{
    const PaintedPicture& painted = PictureOf(picture);
    x = painted.Left;
    y = painted.Top;
    if (!painted.Image.isNull()) {
        x += point.x() / painted.Size.width() * painted.Width;
        y += point.y() / painted.Size.height() * painted.Height;
    }
}

void SurfaceSize(Picture picture, std::int32_t& width, std::int32_t& height)
{
    width = PictureOf(picture).Size.width();
    height = PictureOf(picture).Size.height();
}

void SurfaceSetScale(Picture picture, double left, double top, double width, double height)
{
    PaintedPicture& painted = PictureOf(picture);
    const bool usable =
        std::isfinite(left) && std::isfinite(top) && std::isfinite(width) && std::isfinite(height);
    painted.Left = usable ? left : 0.0;
    painted.Top = usable ? top : 0.0;
    painted.Width = usable ? width : 0.0;
    painted.Height = usable ? height : 0.0;
    UpdateScale(painted);
}

void SurfaceClear(Picture picture)
{
    PaintedPicture& painted = PictureOf(picture);
    if (Batch.On == &painted) {
        EmptyMask(Batch.Mask);
    }
    Whiten(painted);
    TellTouched(picture);
}

void SurfaceSetFont(Picture picture, std::int16_t points, bool bold)
{
    PictureOf(picture).FontPoints = points;
    PictureOf(picture).FontBold = bold;
}

void SurfaceSetPen(Picture picture, const SurfacePen& pen)
{
    PaintedPicture& painted = PictureOf(picture);
    painted.Pen = pen;
    painted.Pen.Rgb &= ColourBits;
    UpdateStyle(painted);
}

void SurfaceLine(Picture picture, float x1, float y1, float x2, float y2)
{
    CoverageMask* mask = BeginStroke(picture);
    if (mask == nullptr) {
        return;
    }
    const PaintedPicture& painted = PictureOf(picture);
    CoverLine(*mask, painted.Style, PixelX(painted, x1), PixelY(painted, y1), PixelX(painted, x2),
              PixelY(painted, y2));
    EndStroke(picture);
}

void SurfaceBox(Picture picture, float x1, float y1, float x2, float y2)
{
    CoverageMask* mask = BeginStroke(picture);
    if (mask == nullptr) {
        return;
    }
    const PaintedPicture& painted = PictureOf(picture);
    const StrokeStyle& style = painted.Style;
    const double left = EdgeWithin(PixelX(painted, x1), mask->Width, style.Width);
    const double right = EdgeWithin(PixelX(painted, x2), mask->Width, style.Width);
    const double top = EdgeWithin(PixelY(painted, y1), mask->Height, style.Width);
    const double bottom = EdgeWithin(PixelY(painted, y2), mask->Height, style.Width);
    CoverLine(*mask, style, left, top, right, top);
    CoverLine(*mask, style, right, top, right, bottom);
    CoverLine(*mask, style, right, bottom, left, bottom);
    CoverLine(*mask, style, left, bottom, left, top);
    EndStroke(picture);
}

void SurfaceFillBox(Picture picture, float x1, float y1, float x2, float y2, std::uint32_t rgb)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!HasScale(painted)) {
        return;
    }
    const auto [left, right] = std::minmax({PixelX(painted, x1), PixelX(painted, x2)});
    const auto [top, bottom] = std::minmax({PixelY(painted, y1), PixelY(painted, y2)});
    if (!std::isfinite(right - left) || !std::isfinite(bottom - top)) {
        return;
    }
    TellTouched(picture);
    FlushBatch();
    const int width = painted.Image.width();
    const int first = FillEdge(left, width);
    const int last = FillEdge(right, width);
    for (int y = FillEdge(top, painted.Image.height()); y < FillEdge(bottom, painted.Image.height()); ++y) {
        auto* row = reinterpret_cast<std::uint32_t*>(painted.Image.scanLine(y));
        std::fill(row + first, row + last, Opaque | (rgb & ColourBits));
    }
}

void SurfacePixel(Picture picture, float x, float y, std::uint32_t rgb)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!HasScale(painted)) {
        return;
    }
    const double left = std::floor(PixelX(painted, x));
    const double top = std::floor(PixelY(painted, y));
    if (!(left >= 0.0 && left < painted.Image.width() && top >= 0.0 && top < painted.Image.height())) {
        return;
    }
    TellTouched(picture);
    FlushBatch();
    const int reach = static_cast<int>(std::max(1.0, std::round(painted.PixelRatio)));
    const QRect dot(static_cast<int>(left), static_cast<int>(top), reach, reach);
    const QRect seen = dot.intersected(QRect(QPoint(), painted.Image.size()));
    auto* pixels = reinterpret_cast<std::uint32_t*>(painted.Image.bits());
    for (int row = seen.top(); row <= seen.bottom(); ++row) {
        const auto line = static_cast<std::ptrdiff_t>(row) * painted.Image.width();
        std::fill_n(pixels + line + seen.left(), seen.width(), Opaque | (rgb & ColourBits));
    }
}

void SurfaceFloodFill(Picture picture, float x, float y, std::uint32_t rgb, std::uint32_t border)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!HasScale(painted)) {
        return;
    }
    const double column = std::floor(PixelX(painted, x));
    const double row = std::floor(PixelY(painted, y));
    if (column >= 0.0 && column < painted.Image.width() && row >= 0.0 && row < painted.Image.height()) {
        TellTouched(picture);
        FlushBatch();
        FloodFill(painted.Image, static_cast<int>(column), static_cast<int>(row), rgb, border);
    }
}

void SurfaceCircle(Picture picture, float centreX, float centreY, float radius)
{
    StrokeArc(picture, centreX, centreY, radius, 0.0, 2 * std::numbers::pi);
}

void SurfaceArc(Picture picture, float centreX, float centreY, float radius, float start, float end)
{
    const double sweep = static_cast<double>(end) - static_cast<double>(start);
    // Equal angles are two points on a large circle that are too close for the angles to tell.
    StrokeArc(picture, centreX, centreY, radius, start, sweep < 0.0 ? sweep + 2 * std::numbers::pi : sweep);
}

void SurfaceText(Picture picture, float x, float y, const std::string& text, std::uint32_t rgb)
{
    PaintedPicture& painted = PictureOf(picture);
    if (!HasScale(painted)) {
        return;
    }
    constexpr double FarOff =
        1e5; ///< pixels: no text reaches from there, and the painter can still count them
    const double left = PixelX(painted, x) / painted.PixelRatio;
    const double top = PixelY(painted, y) / painted.PixelRatio;
    if (!(std::fabs(left) < FarOff) || !(std::fabs(top) < FarOff)) {
        return;
    }
    TellTouched(picture);
    FlushBatch();
    QPainter painter(&painted.Image);
    painter.setFont(FontOf(painted));
    painter.setPen(QColor::fromRgb(Opaque | rgb));
    // Whole pixels: letters on broken ones are blurred.
    const QPointF corner(std::round(left), std::round(top));
    const QPointF base = corner + QPointF(0.0, QFontMetricsF(painter.font(), &painted.Image).ascent());
    DrawHalo(painter, base, QString::fromStdString(text));
    painter.drawText(base, QString::fromStdString(text));
}

void SurfaceTextSize(Picture picture, const std::string& text, double& width, double& height)
{
    const PaintedPicture& painted = PictureOf(picture);
    width = height = 0.0;
    if (!HasScale(painted)) {
        return;
    }
    QImage device(1, 1, QImage::Format_RGB32); // the resolution of the images, none of which need be copied
    device.setDevicePixelRatio(painted.PixelRatio);
    const QFontMetricsF metrics(FontOf(painted), &device);
    width = metrics.horizontalAdvance(QString::fromStdString(text)) / painted.Size.width() *
            std::fabs(painted.Width);
    height = metrics.height() / painted.Size.height() * std::fabs(painted.Height);
}

void SurfaceSetCrossPointer(Picture picture, bool cross)
{
    if (SurfaceListener.Pointer != nullptr) {
        SurfaceListener.Pointer(picture, cross);
    }
}

bool SurfaceBitmap(Picture picture, std::int32_t width, std::int32_t height, std::string& bytes)
{
    constexpr std::int32_t Largest = 10000; // a setting beyond it is no size of a picture
    const QImage& painted = SurfaceImage(picture);
    const QSize size(std::clamp(width, 1, Largest), std::clamp(height, 1, Largest));
    if (painted.isNull()) {
        return false;
    }
    // A box is as large as the window lets it, and a screen of fine pixels paints more of them.
    const QImage image = painted.size() == size
                             ? painted
                             : painted.scaled(size, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    const QImage pixels = image.convertToFormat(QImage::Format_RGB32);
    const auto count = static_cast<std::size_t>(pixels.width()) * static_cast<std::size_t>(pixels.height());
    // Rows of 32-bit pixels have no gaps.
    bytes = BitmapBytes(pixels.width(), pixels.height(),
                        {reinterpret_cast<const std::uint32_t*>(pixels.constBits()), count});
    return true;
}
