#include "support/RecordingSurface.h"

#include "platform/Bitmap.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <initializer_list>

SurfaceRecord Drawn;

namespace
{
/// Six digits; what rounding leaves of a 0 is 0.
std::string Number(double value)
{
    constexpr double Nothing = 5e-5;
    char text[32];
    std::snprintf(text, sizeof text, "%.6g", std::fabs(value) < Nothing ? 0.0 : value);
    return text;
}

std::string Colour(std::uint32_t rgb)
{
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(rgb));
    return text;
}

void Record(Picture picture, const std::string& stroke)
{
    if (!Drawn.Kept) {
        return;
    }
    Drawn.Strokes.push_back(stroke);
    Drawn.Pictures.push_back(picture);
}

std::string Joined(const char* what, std::initializer_list<double> numbers)
{
    std::string text;
    if (!Drawn.Kept) {
        Drawn.AllNumbers = Drawn.AllNumbers && std::none_of(numbers.begin(), numbers.end(),
                                                            [](double number) { return std::isnan(number); });
        return text;
    }
    text = what;
    for (const double number : numbers) {
        text += " " + Number(number);
    }
    return text;
}

void RecordInPen(Picture picture, const std::string& stroke)
{
    if (!Drawn.Kept) {
        return;
    }
    Record(picture, stroke + " " + Colour(Drawn.Pen.Rgb) + " " + std::to_string(Drawn.Pen.Width) +
                        (Drawn.Pen.Dashed ? " dashed" : "") + (Drawn.Pen.Inverting ? " inverting" : ""));
}

/// A full turn is 0, on whichever side of it rounding left the angle.
double Degrees(double angle)
{
    constexpr double AlmostFull = 359.9999;
    const double degrees = angle / Pi * 180.0;
    return degrees > AlmostFull ? 0.0 : degrees;
}
} // namespace

std::vector<std::string> TakeStrokes()
{
    std::vector<std::string> taken;
    taken.swap(Drawn.Strokes);
    Drawn.Pictures.clear();
    return taken;
}

std::vector<std::string> TakeStrokesLike(const std::string& start)
{
    std::vector<std::string> taken;
    for (const std::string& stroke : TakeStrokes()) {
        if (stroke.starts_with(start)) {
            taken.push_back(stroke);
        }
    }
    return taken;
}

bool PictureShown()
{
    return Drawn.Shown;
}

void SurfaceSize(Picture, std::int32_t& width, std::int32_t& height)
{
    width = Screen.PictureWidth;
    height = Screen.PictureHeight;
}

void SurfaceSetScale(Picture picture, double left, double top, double width, double height)
{
    if (Drawn.Shown) { // fits of the view come by the thousand where nothing is drawn
        Record(picture, Joined("scale", {left, top, width, height}));
    }
}

void SurfaceClear(Picture picture)
{
    Record(picture, "clear");
}

void SurfaceSetFont(Picture picture, std::int16_t points, bool bold)
{
    Record(picture, "font " + std::to_string(points) + (bold ? " bold" : ""));
}

void SurfaceSetPen(Picture, const SurfacePen& pen)
{
    Drawn.Pen = pen;
}

void SurfaceLine(Picture picture, float x1, float y1, float x2, float y2)
{
    RecordInPen(picture, Joined("line", {x1, y1, x2, y2}));
}

void SurfaceBox(Picture picture, float x1, float y1, float x2, float y2)
{
    RecordInPen(picture, Joined("box", {x1, y1, x2, y2}));
}

void SurfaceFillBox(Picture picture, float x1, float y1, float x2, float y2, std::uint32_t rgb)
{
    Record(picture, Joined("fill", {x1, y1, x2, y2}) + " " + Colour(rgb));
}

void SurfacePixel(Picture picture, float x, float y, std::uint32_t rgb)
{
    Record(picture, Joined("pixel", {x, y}) + " " + Colour(rgb));
}

void SurfaceFloodFill(Picture picture, float x, float y, std::uint32_t rgb, std::uint32_t border)
{
    Record(picture, Joined("flood", {x, y}) + " " + Colour(rgb) + " to " + Colour(border));
}

void SurfaceCircle(Picture picture, float centreX, float centreY, float radius)
{
    RecordInPen(picture, Joined("circle", {centreX, centreY, radius}));
}

void SurfaceArc(Picture picture, float centreX, float centreY, float radius, float start, float end)
{
    RecordInPen(picture, Joined("arc", {centreX, centreY, radius, Degrees(start), Degrees(end)}));
}

void SurfaceText(Picture picture, float x, float y, const std::string& text, std::uint32_t rgb)
{
    Record(picture, Joined("text", {x, y}) + " '" + text + "' " + Colour(rgb));
}

void SurfaceTextSize(Picture, const std::string& text, double& width, double& height)
{
    width = RecordedLetterWidth * static_cast<double>(text.size()) * std::fabs(AppState.UnitsPerPixelX);
    height = RecordedLetterHeight * std::fabs(AppState.UnitsPerPixelY);
}

void SurfaceSetCrossPointer(Picture picture, bool cross)
{
    Record(picture, cross ? "cross pointer" : "normal pointer");
}

bool SurfaceBitmap(Picture picture, std::int32_t width, std::int32_t height, std::string& bytes)
{
    Record(picture, "bitmap " + std::to_string(width) + " " + std::to_string(height));
    if (Drawn.Paints) {
        bytes = BitmapBytes(1, 1, Drawn.Pixel);
    }
    return Drawn.Paints;
}
