#include "shell/Measure.h"

#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Strokes.h"

#include <algorithm>
#include <string>

namespace
{
/// A position on a picture; what isn't one would make no number text.
double Usable(double value)
{
    constexpr double Beyond = 1e15;
    return value >= -Beyond ? std::min(value, Beyond) : -Beyond;
}

struct TextCorner {
    double X;
    double Y;
};

/// Where a text at the end of the line begins: there, or as much further left or up as brings it whole into the view.
TextCorner CornerWithinView(Picture picture, const std::string& text, double x, double y)
{
    if (!(AppState.ViewWidth > 0.0)) { // nothing was fitted yet
        return {x, y};
    }
    double width = 0.0;
    double height = 0.0;
    SurfaceTextSize(picture, text, width, height);
    const double right = AppState.ViewLeft + AppState.ViewWidth;
    const double bottom = AppState.ViewTop + AppState.ViewHeight; // the height is negative
    return {std::max(std::min(x, right - width), AppState.ViewLeft),
            std::min(std::max(y, bottom + height), AppState.ViewTop)};
}
} // namespace

void PressMeasure(Picture picture, double x, double y)
{
    AppState.MeasureOn = FlagOn;
    AppState.MeasureStartX = AppState.MeasureLastX = Usable(x);
    AppState.MeasureStartY = AppState.MeasureLastY = Usable(y);
    SurfaceSetCrossPointer(picture, true);
}

void MoveMeasure(Picture picture, double x, double y)
{
    if (AppState.MeasureOn == FlagOff) {
        return;
    }
    DrawRubberLine(picture);
    AppState.MeasureLastX = Usable(x);
    AppState.MeasureLastY = Usable(y);
    DrawRubberLine(picture);
}

void ReleaseMeasure(Picture picture, bool left)
{
    if (left && AppState.MeasureOn != FlagOff) {
        const double startX = AppState.MeasureStartX;
        const double startY = AppState.MeasureStartY;
        const double endX = AppState.MeasureLastX;
        const double endY = AppState.MeasureLastY;
        SurfaceSetPen(picture, {ColourBlue, 1, false, false});
        DrawLine(picture, startX, startY, endX, endY);
        const std::string lengths = "d=" + FormatNumber(dpp(startX, startY, endX, endY), 0, 2) +
                                    " dx:" + FormatNumber(endX - startX, 0, 2) +
                                    " dy:" + FormatNumber(endY - startY, 0, 2);
        const TextCorner corner = CornerWithinView(picture, lengths, endX, endY);
        SurfaceText(picture, ToSurface(corner.X), ToSurface(corner.Y), lengths, ColourBlue);
        AppState.MeasureOn = FlagOff;
    }
    SurfaceSetCrossPointer(picture, false);
}
