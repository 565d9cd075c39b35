#include "batch/SvgSurface.h"

#include "batch/PreviewPainter.h"
#include "config/Korvanta_Utility.h"
#include "platform/Surface.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_Common.h"

#include <algorithm>
#include <cmath>
#include <cstdio>

namespace
{
constexpr double MarginPixels = 12.0;
constexpr double DashPixels = 5.0;
constexpr std::int16_t LeadWidth = 2;
constexpr std::int16_t NumberPlaces = 3;
constexpr double PixelsPerPoint = 96.0 / 72.0;
constexpr double LetterWidth = 0.6; ///< of the font's height, about
constexpr double LineHeight = 1.2;
constexpr std::int32_t WidthPixels = 640;
constexpr std::int32_t HeightPixels = 480;

/// Strokes of one pen are gathered into one path; the picture grows with what is drawn.
struct SvgPicture {
    bool Open = false; ///< a picture is being made
    std::string Paths;
    std::string Strokes; ///< of the pen in use
    SurfacePen Pen;
    double FontPixels = 12.0;
    double MinX = 0.0;
    double MinY = 0.0;
    double MaxX = 0.0;
    double MaxY = 0.0;
};

SvgPicture Svg;

std::string Number(double value)
{
    return FormatNumber(value, 0, NumberPlaces);
}

std::string ColourText(std::uint32_t rgb)
{
    char text[16];
    std::snprintf(text, sizeof text, "#%06x", static_cast<unsigned>(rgb));
    return text;
}

void Cover(double x, double y)
{
    Svg.MinX = std::min(Svg.MinX, x);
    Svg.MaxX = std::max(Svg.MaxX, x);
    Svg.MinY = std::min(Svg.MinY, y);
    Svg.MaxY = std::max(Svg.MaxY, y);
}

/// Y grows downward in the file.
void AddPoint(double x, double y)
{
    Cover(x, y);
    Svg.Strokes += Number(x) + " " + Number(-y);
}

void FinishPath()
{
    if (Svg.Strokes.empty()) {
        return;
    }
    const double pixel = std::fabs(AppState.UnitsPerPixelX);
    Svg.Paths += "<path stroke=\"" + ColourText(Svg.Pen.Rgb) + "\" stroke-width=\"" +
                 Number(Svg.Pen.Width * pixel) + "\"";
    if (Svg.Pen.Dashed) {
        Svg.Paths += " stroke-dasharray=\"" + Number(DashPixels * pixel) + "\"";
    }
    Svg.Paths += " d=\"" + Svg.Strokes + "\"/>\n";
    Svg.Strokes.clear();
}

void AddArc(double radius, bool large, double x, double y)
{
    const std::string size = Number(radius);
    Svg.Strokes +=
        "A" + size + " " + size + " 0 " + (large ? "1" : "0") + " 0 "; // counter-clockwise on the page too
    AddPoint(x, y);
}
} // namespace

bool PictureShown()
{
    return Svg.Open || Painter() != nullptr;
}

void SurfaceSize(Picture picture, std::int32_t& width, std::int32_t& height)
{
    if (Painter() != nullptr) {
        Painter()->Size(picture, width, height);
        return;
    }
    width = WidthPixels;
    height = HeightPixels;
}

void SurfaceSetScale(Picture picture, double left, double top, double width, double height)
{
    if (Painter() != nullptr) {
        Painter()->SetScale(picture, left, top, width, height);
    } // the file is in world units
}

void SurfaceClear(Picture picture)
{
    if (Painter() != nullptr) {
        Painter()->Clear(picture);
        return;
    }
    Svg.Strokes.clear();
    Svg.Paths.clear();
}

void SurfaceSetFont(Picture, std::int16_t points, bool)
{
    Svg.FontPixels = points * PixelsPerPoint;
}

void SurfaceBox(Picture picture, float x1, float y1, float x2, float y2)
{
    if (Painter() != nullptr) {
        Painter()->Box(picture, x1, y1, x2, y2);
        return;
    }
    Svg.Strokes += "M";
    AddPoint(x1, y1);
    Svg.Strokes += "L";
    AddPoint(x2, y1);
    Svg.Strokes += "L";
    AddPoint(x2, y2);
    Svg.Strokes += "L";
    AddPoint(x1, y2);
    Svg.Strokes += "Z";
}

void SurfacePixel(Picture, float, float, std::uint32_t) {} // nothing runs along a picture here

void SurfaceFillBox(Picture picture, float x1, float y1, float x2, float y2, std::uint32_t rgb)
{
    if (Painter() != nullptr) {
        Painter()->FillBox(picture, x1, y1, x2, y2, rgb);
        return;
    }
    FinishPath();
    Cover(x1, y1);
    Cover(x2, y2);
    Svg.Paths += "<rect x=\"" + Number(std::min(x1, x2)) + "\" y=\"" + Number(-std::max(y1, y2)) +
                 "\" width=\"" + Number(std::fabs(x2 - x1)) + "\" height=\"" + Number(std::fabs(y2 - y1)) +
                 "\" fill=\"" + ColourText(rgb) + "\"/>\n";
}

void SurfaceFloodFill(Picture, float, float, std::uint32_t, std::uint32_t) {
} // a file of strokes has no pixels

void SurfaceText(Picture picture, float x, float y, const std::string& text, std::uint32_t rgb)
{
    FinishPath();
    double width = 0.0;
    double height = 0.0;
    SurfaceTextSize(picture, text, width, height);
    Cover(x, y);
    Cover(x + width, y - height);
    const double size = Svg.FontPixels * std::fabs(AppState.UnitsPerPixelY);
    Svg.Paths += "<text x=\"" + Number(x) + "\" y=\"" + Number(-y + size) + "\" font-size=\"" + Number(size) +
                 "\" font-family=\"sans-serif\" fill=\"" + ColourText(rgb) + "\">" + text + "</text>\n";
}

void SurfaceTextSize(Picture, const std::string& text, double& width, double& height)
{
    width =
        static_cast<double>(text.size()) * LetterWidth * Svg.FontPixels * std::fabs(AppState.UnitsPerPixelX);
    height = LineHeight * Svg.FontPixels * std::fabs(AppState.UnitsPerPixelY);
}

void SurfaceSetCrossPointer(Picture, bool) {} // nobody points at a file

bool SurfaceBitmap(Picture picture, std::int32_t width, std::int32_t height, std::string& bytes)
{
    return Painter() != nullptr && Painter()->Bitmap(picture, width, height, bytes);
}

void SurfaceSetPen(Picture picture, const SurfacePen& pen)
{
    if (Painter() != nullptr) {
        Painter()->SetPen(picture, pen);
        return;
    }
    if (pen.Rgb != Svg.Pen.Rgb || pen.Width != Svg.Pen.Width || pen.Dashed != Svg.Pen.Dashed) {
        FinishPath();
        Svg.Pen = pen;
    }
}

void SurfaceLine(Picture picture, float x1, float y1, float x2, float y2)
{
    if (Painter() != nullptr) {
        Painter()->Line(picture, x1, y1, x2, y2);
        return;
    }
    Svg.Strokes += "M";
    AddPoint(x1, y1);
    Svg.Strokes += "L";
    AddPoint(x2, y2);
}

void SurfaceCircle(Picture picture, float centreX, float centreY, float radius)
{
    if (Painter() != nullptr) {
        Painter()->Circle(picture, centreX, centreY, radius);
        return;
    }
    const double x = centreX;
    const double r = radius;
    Svg.Strokes += "M";
    AddPoint(x + r, centreY);
    AddArc(r, false, x - r, centreY);
    AddArc(r, false, x + r, centreY);
    Svg.MinY = std::min(Svg.MinY, centreY - r);
    Svg.MaxY = std::max(Svg.MaxY, centreY + r);
}

void SurfaceArc(Picture picture, float centreX, float centreY, float radius, float start, float end)
{
    if (Painter() != nullptr) {
        Painter()->Arc(picture, centreX, centreY, radius, start, end);
        return;
    }
    const double r = radius;
    const double sweep =
        end > start ? static_cast<double>(end) - start : static_cast<double>(end) - start + 2 * Pi;
    Svg.Strokes += "M";
    AddPoint(centreX + r * std::cos(start), centreY + r * std::sin(start));
    // In two pieces: the half way point keeps nearly full turns unmistakable and the picture's box true.
    AddArc(r, sweep / 2 > Pi, centreX + r * std::cos(start + sweep / 2),
           centreY + r * std::sin(start + sweep / 2));
    AddArc(r, sweep / 2 > Pi, centreX + r * std::cos(end), centreY + r * std::sin(end));
}

std::string PartSvg()
{
    Svg = SvgPicture();
    Svg.MaxX = AppState.MaxX;
    Svg.MaxY = AppState.MaxY;
    FitView(Picture::Tecno, 0.0, 0.0);
    AppState.PenX = 0.0;
    AppState.PenY = 0.0;
    DrawPart(Picture::Tecno, 0.0, 0.0, FlagOn);
    DrawMoves(Picture::Tecno, 0.0, 0.0, LeadWidth);
    FinishPath();
    const double margin = MarginPixels * std::fabs(AppState.UnitsPerPixelX);
    const double width = Svg.MaxX - Svg.MinX + 2 * margin;
    const double height = Svg.MaxY - Svg.MinY + 2 * margin;
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + Number(Svg.MinX - margin) + " " +
           Number(-Svg.MaxY - margin) + " " + Number(width) + " " + Number(height) + "\" width=\"" +
           std::to_string(WidthPixels) + "\">\n<style>path{fill:none}</style>\n" + Svg.Paths + "</svg>\n";
}
