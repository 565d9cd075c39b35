// The fit of the view to the part or the sheet, in numbers, and the way to the screen's redraw.
#include "profile/Korvanta_Common.h"

#include <algorithm>

namespace
{
constexpr double MarginBelow = 0.1; ///< of the part's size, left and below
constexpr double RoomAbove = 1.05;  ///< of the box, to the right and above
} // namespace

void FitView(Picture picture, double boxX, double boxY)
{
    std::int32_t pixelsX = 0;
    std::int32_t pixelsY = 0;
    SurfaceSize(picture, pixelsX, pixelsY);
    const double width = std::max(pixelsX, std::int32_t{1});
    const double height = std::max(pixelsY, std::int32_t{1});
    const double aspect = width / height;
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
    const bool fitPart = !(boxX > 0.0) || !(boxY > 0.0);
    const double fittedX = fitPart ? AppState.PartSizeX : boxX;
    const double fittedY = fitPart ? AppState.PartSizeY : boxY;
    const double left = AppState.MinX - MarginBelow * AppState.PartSizeX;
    const double bottom = AppState.MinY - MarginBelow * AppState.PartSizeY;
    double worldWidth = RoomAbove * fittedX - left;
    double worldHeight = RoomAbove * fittedY - bottom;
    double top = RoomAbove * fittedY;
    if (fittedX >= aspect * fittedY) { // the width decides
        worldHeight = worldWidth / aspect;
        top = worldHeight - MarginBelow * AppState.PartSizeY;
    } else {
        worldWidth = worldHeight * aspect;
    }
    AppState.ViewLeft = left;
    AppState.ViewTop = top;
    AppState.ViewWidth = worldWidth;
    AppState.ViewHeight = -worldHeight;
    SurfaceSetScale(picture, AppState.ViewLeft, AppState.ViewTop, AppState.ViewWidth, AppState.ViewHeight);
    AppState.UnitsPerPixelX = worldWidth / width;
    AppState.UnitsPerPixelY = -worldHeight / height;
    AppState.ViewCentreX = left + worldWidth / 2;
    AppState.ViewCentreY = top - worldHeight / 2;
}

void RedrawScreen(Flag fit)
{
    if (AppState.Redraw != nullptr) {
        AppState.Redraw(fit);
    }
}
