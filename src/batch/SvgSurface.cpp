#include "batch/SvgSurface.h"

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

/// Strokes of one pen are gathered into one path; the picture grows with what is drawn.
struct SvgPicture {
    std::string Paths;
    std::string Strokes; ///< of the pen in use
    SurfacePen Pen;
    double MinX = 0.0;
    double MinY = 0.0;
    double MaxX = 0.0;
    double MaxY = 0.0;
};

SvgPicture Svg;

/// Y grows downward in the file.
void AddPoint(double x, double y)
{
    Svg.MinX = std::min(Svg.MinX, x);
    Svg.MaxX = std::max(Svg.MaxX, x);
    Svg.MinY = std::min(Svg.MinY, y);
    Svg.MaxY = std::max(Svg.MaxY, y);
    Svg.Strokes += FormatNumber(x, 0, NumberPlaces) + " " + FormatNumber(-y, 0, NumberPlaces);
}

void FinishPath()
{
    if (Svg.Strokes.empty()) {
        return;
    }
    const double pixel = std::fabs(AppState.UnitsPerPixelX);
    char style[160];
    std::snprintf(style, sizeof style, "<path stroke=\"#%06x\" stroke-width=\"%s\"",
                  static_cast<unsigned>(Svg.Pen.Rgb),
                  FormatNumber(Svg.Pen.Width * pixel, 0, NumberPlaces).c_str());
    Svg.Paths += style;
    if (Svg.Pen.Dashed) {
        Svg.Paths += " stroke-dasharray=\"" + FormatNumber(DashPixels * pixel, 0, NumberPlaces) + "\"";
    }
    Svg.Paths += " d=\"" + Svg.Strokes + "\"/>\n";
    Svg.Strokes.clear();
}

void AddArc(double radius, bool large, double x, double y)
{
    const std::string size = FormatNumber(radius, 0, NumberPlaces);
    Svg.Strokes +=
        "A" + size + " " + size + " 0 " + (large ? "1" : "0") + " 0 "; // counter-clockwise on the page too
    AddPoint(x, y);
}
} // namespace

void SurfaceSetPen(Picture, const SurfacePen& pen)
{
    if (pen.Rgb != Svg.Pen.Rgb || pen.Width != Svg.Pen.Width || pen.Dashed != Svg.Pen.Dashed) {
        FinishPath();
        Svg.Pen = pen;
    }
}

void SurfaceLine(Picture, float x1, float y1, float x2, float y2)
{
    Svg.Strokes += "M";
    AddPoint(x1, y1);
    Svg.Strokes += "L";
    AddPoint(x2, y2);
}

void SurfaceCircle(Picture, float centreX, float centreY, float radius)
{
    const double x = centreX;
    const double r = radius;
    Svg.Strokes += "M";
    AddPoint(x + r, centreY);
    AddArc(r, false, x - r, centreY);
    AddArc(r, false, x + r, centreY);
    Svg.MinY = std::min(Svg.MinY, centreY - r);
    Svg.MaxY = std::max(Svg.MaxY, centreY + r);
}

void SurfaceArc(Picture, float centreX, float centreY, float radius, float start, float end)
{
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
    FitView(0.0, 0.0);
    AppState.PenX = 0.0;
    AppState.PenY = 0.0;
    DrawPart(Picture::Tecno, 0.0, 0.0, FlagOn);
    DrawMoves(Picture::Tecno, 0.0, 0.0, LeadWidth);
    FinishPath();
    const double margin = MarginPixels * std::fabs(AppState.UnitsPerPixelX);
    const auto number = [](double value) { return FormatNumber(value, 0, NumberPlaces); };
    const double width = Svg.MaxX - Svg.MinX + 2 * margin;
    const double height = Svg.MaxY - Svg.MinY + 2 * margin;
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"" + number(Svg.MinX - margin) + " " +
           number(-Svg.MaxY - margin) + " " + number(width) + " " + number(height) +
           "\" width=\"640\">\n<style>path{fill:none}</style>\n" + Svg.Paths + "</svg>\n";
}
