#include "MeasuringSurface.h"

#include "config/Korvanta_Utility.h"
#include "state/Numbers.h"

#include <cmath>
#include <cstdlib>

MeasuredPicture Measured;

namespace
{
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr double LineHeight = 1.17;  ///< of the font's size, as its text is measured
constexpr double CapitalTop = 0.20;  ///< of the font's size, from the top of a line to that of a capital
constexpr double CapitalFoot = 0.93; ///< to its foot
constexpr double TailFoot = 1.13;    ///< to that of a letter with a tail
constexpr double CapitalWidth = 0.70;
constexpr double NarrowWidth = 0.60;
constexpr int ArcPieces = 64;

double PixelX(double x)
{
    return (x - Measured.Left) / Measured.UnitsPerPixel;
}

double PixelY(double y)
{
    return (Measured.Top - y) / Measured.UnitsPerPixel;
}

bool IsNarrow(char c)
{
    return c == ' ' || (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z');
}

/// Bytes behind the first one of a character beyond ASCII count for nothing, that one as a wide letter.
double WidthOf(const std::string& text)
{
    double width = 0.0;
    for (const char c : text) {
        const bool follows = (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
        width += follows ? 0.0 : IsNarrow(c) ? NarrowWidth : CapitalWidth;
    }
    return width * Measured.FontPixels;
}

void AddLine(double x1, double y1, double x2, double y2)
{
    Measured.Lines.push_back(
        {PixelX(x1), PixelY(y1), PixelX(x2), PixelY(y2), Measured.Pen.Width, Measured.Pen.Rgb});
}
} // namespace

bool PictureShown()
{
    return true;
}

void SurfaceSize(Picture, std::int32_t& width, std::int32_t& height)
{
    width = Measured.Width;
    height = Measured.Height;
}

void SurfaceSetScale(Picture, double left, double top, double width, double)
{
    Measured.Left = left;
    Measured.Top = top;
    Measured.UnitsPerPixel = width / Measured.Width;
}

void SurfaceClear(Picture)
{
    Measured.Lines.clear();
    Measured.Texts.clear();
}

void SurfaceSetFont(Picture, std::int16_t points, bool)
{
    Measured.FontPixels = points * PixelsPerPoint;
}

void SurfaceSetPen(Picture, const SurfacePen& pen)
{
    Measured.Pen = pen;
}

void SurfaceLine(Picture, float x1, float y1, float x2, float y2)
{
    AddLine(x1, y1, x2, y2);
}

void SurfaceBox(Picture, float, float, float, float) {}

void SurfaceFillBox(Picture, float, float, float, float, std::uint32_t) {}

void SurfacePixel(Picture, float, float, std::uint32_t) {}

void SurfaceFloodFill(Picture, float, float, std::uint32_t, std::uint32_t) {}

void SurfaceCircle(Picture picture, float centreX, float centreY, float radius)
{
    SurfaceArc(picture, centreX, centreY, radius, 0.0F, static_cast<float>(2 * Pi));
}

void SurfaceArc(Picture, float centreX, float centreY, float radius, float start, float end)
{
    const double from = start;
    const double sweep = end > start ? end - from : end - from + 2 * Pi;
    const double r = radius;
    const auto x = [&](int i) { return centreX + r * std::cos(from + sweep * i / ArcPieces); };
    const auto y = [&](int i) { return centreY + r * std::sin(from + sweep * i / ArcPieces); };
    for (int i = 0; i < ArcPieces; ++i) {
        AddLine(x(i), y(i), x(i + 1), y(i + 1));
    }
}

void SurfaceText(Picture, float x, float y, const std::string& text, std::uint32_t)
{
    const double em = Measured.FontPixels;
    const double left = PixelX(x);
    const double top = PixelY(y);
    const bool tails = text.find_first_of("gjpqyQ") != std::string::npos;
    Measured.Texts.push_back({text, left, top + CapitalTop * em, left + WidthOf(text),
                              top + (tails ? TailFoot : CapitalFoot) * em});
}

void SurfaceTextSize(Picture, const std::string& text, double& width, double& height)
{
    width = WidthOf(text) * Measured.UnitsPerPixel;
    height = LineHeight * Measured.FontPixels * Measured.UnitsPerPixel;
}

bool SurfaceBitmap(Picture, std::int32_t, std::int32_t, std::string&)
{
    return false;
}

void SurfaceSetCrossPointer(Picture, bool) {}
