// What a picture shows: the part with its axes and sizes, or the sheet with the nest.
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/Strokes.h"

#include <algorithm>

namespace
{
constexpr std::int16_t SceneFont = 15;
constexpr double ShadowPixels = 5.0;
constexpr double AxisBelow = -0.1; ///< of the part's size: where an axis starts
constexpr double AxisAbove = 1.1;  ///< and where it ends
constexpr double HeadReach = 15.0; ///< pixels of the small cross to each side
constexpr double LimitSlack = 1.0; ///< what a drawn copy may stand out of the sheet

void DrawCaption(Picture picture, double x, double y, const std::string& text)
{
    SurfaceText(picture, ToSurface(x), ToSurface(y), text, ColourBlue);
}

/// Upper edge of the texts along the x axis: below it where the margin of the fitted view holds a line, else on it; above
/// the line of the statistics where the part is too flat for both.
double CaptionRow(double line)
{
    constexpr double AboveStatistics = 2.3; ///< lines
    if (line <= -AxisBelow * AppState.MaxY) {
        return 0.0;
    }
    return line < AppState.MaxY ? line : AppState.MaxY + AboveStatistics * line;
}

/// The axes, their names at the ends, the sizes of the part beside them. Texts hang from their upper left corner. However
/// flat or narrow the part, each stays in the fitted view, and clear of the others.
void DrawAxes(Picture picture)
{
    const double endX = AxisAbove * AppState.MaxX;
    const double endY = AxisAbove * AppState.MaxY;
    DrawArrow(picture, AxisBelow * AppState.MaxX, 0.0, endX, 0.0, ColourBlue);
    DrawArrow(picture, 0.0, AxisBelow * AppState.MaxY, 0.0, endY, ColourBlue);
    double letter = 0.0;
    double line = 0.0;
    SurfaceTextSize(picture, "A", letter, line);
    const std::string sizeX = FormatNumber(AppState.PartSizeX);
    const std::string sizeY = FormatNumber(AppState.PartSizeY);
    double width = 0.0;
    SurfaceTextSize(picture, sizeX, width, line);
    const double left = 1.5 * letter <= -AxisBelow * AppState.MaxX ? -1.5 * letter : letter / 2;
    const double row = CaptionRow(line);
    const double placeX = std::max(AppState.MaxX / 2 - width / 2, left + 1.5 * letter);
    const double lastX = std::min(endX, AppState.ViewLeft + AppState.ViewWidth) - 1.5 * letter;
    const double lastY = std::min(endY, AppState.ViewTop);
    DrawCaption(picture, std::max(lastX, placeX + width + letter / 2), row, "x");
    DrawCaption(picture, left, std::max(lastY, row + line), "y");
    DrawCaption(picture, left, row, "o");
    DrawCaption(picture, placeX, row, sizeX);
    DrawCaption(picture, letter / 2, std::max(AppState.MaxY / 2 + line / 2, row), sizeY);
}

/// Rows stand one over the other, column by column.
void DrawStraightNest(Picture picture, const PartStrokes& part)
{
    const double stepX = AppState.PartSizeX + AppState.GapX;
    const double stepY = AppState.PartSizeY + AppState.GapY;
    std::int64_t left = CopiesToDraw();
    for (std::int32_t i = 0; i < AppState.CountX; ++i) {
        for (std::int32_t j = 0; j < AppState.CountY; ++j) {
            if (--left < 0) {
                return;
            }
            DrawStrokes(picture, part, i * stepX + AppState.GapX / 2, j * stepY + AppState.GapY / 2);
        }
    }
}

/// Every second row is shifted by half a step; one row more than counted is tried. Row pitch and limits are those of
/// the picture: the program has its own.
void DrawStaggeredNest(Picture picture, const PartStrokes& part)
{
    const double stepX = AppState.PartSizeX + AppState.GapX;
    const double rowHeight = AppState.PartSizeY * Stagger;
    const double limitX = NestNumber(FieldSheetX) + LimitSlack;
    const double limitY = NestNumber(FieldSheetY) + LimitSlack;
    std::int64_t left = CopiesToDraw();
    for (std::int64_t j = 0; j <= AppState.CountY; ++j) {
        const double shift = j % 2 != 0 ? stepX / 2 : 0.0;
        const double y = static_cast<double>(j) * (rowHeight + AppState.GapY) + AppState.GapY / 2;
        for (std::int32_t i = 0; i < AppState.CountX; ++i) {
            if (--left < 0) {
                return;
            }
            const double x = i * stepX + AppState.GapX / 2 + shift;
            if (x + AppState.PartSizeX <= limitX && y + rowHeight <= limitY) {
                DrawStrokes(picture, part, x, y);
            }
        }
    }
}

/// A single copy stands at 0, 0 with its axes, also on the sheet; the overlay shows where the program has it.
void DrawContent(Picture picture, Flag axes, Flag marker)
{
    if (ShowsNest()) {
        DrawSheet(picture, NestNumber(FieldSheetX), NestNumber(FieldSheetY), ColourWhite);
    }
    if (AppState.CountX == 1 && AppState.CountY == 1) {
        if (axes != FlagOff) {
            DrawAxes(picture);
        }
        DrawPart(picture, 0.0, 0.0, marker);
    } else if (AppState.NestKind < FirstStaggeredType) {
        DrawStraightNest(picture, CollectPart(marker));
    } else {
        DrawStaggeredNest(picture, CollectPart(marker));
    }
}
} // namespace

bool ShowsNest()
{
    return AppState.ScreenState == ScreenNesting || AppState.SaveMode != FlagOff;
}

Picture CurrentPicture()
{
    if (AppState.ScreenState == ScreenCutting) {
        return Picture::Tecno;
    }
    if (AppState.ScreenState == ScreenNesting) {
        return Picture::Nesting;
    }
    return AppState.SaveMode != FlagOff ? Picture::Preview : Picture::Param;
}

void FitScene(Picture picture)
{
    if (ShowsNest()) {
        FitView(picture, NestNumber(FieldSheetX), NestNumber(FieldSheetY));
    } else {
        FitView(picture, 0.0, 0.0);
    }
}

void DrawScene(Picture picture, Flag fit, Flag axes, Flag marker)
{
    const bool shown = PictureShown();
    if (shown) {
        SurfaceClear(picture);
    }
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
    if (AppState.PartSizeX < Tolerance && AppState.PartSizeY < Tolerance) {
        return;
    }
    ComputeLayout();
    if (fit != FlagOff) {
        FitScene(picture);
    }
    if (shown) {
        SurfaceSetFont(picture, SceneFont);
        DrawContent(picture, axes, marker);
    }
}

void DrawSheet(Picture picture, double width, double height, std::uint32_t rgb)
{
    const double shadowX = PixelsX(ShadowPixels);
    const double shadowY = PixelsY(ShadowPixels);
    SurfaceFillBox(picture, ToSurface(shadowX), ToSurface(shadowY), ToSurface(width + shadowX),
                   ToSurface(height + shadowY), ColourPaletteGrey);
    SurfaceFillBox(picture, 0.0F, 0.0F, ToSurface(width), ToSurface(height), rgb);
    SurfaceSetPen(picture, {ColourBlack, 1, false, false});
    SurfaceBox(picture, 0.0F, 0.0F, ToSurface(width), ToSurface(height));
}

void DrawZoomFrame(Picture picture, double factor)
{
    if (!(factor > 0.0)) {
        return;
    }
    const double reachX = AppState.ViewWidth / factor / 2;
    const double reachY = AppState.ViewHeight / factor / 2;
    const double x = AppState.ViewCentreX;
    const double y = AppState.ViewCentreY;
    SurfaceSetPen(picture, {ColourRed, 1, false, true});
    SurfaceBox(picture, ToSurface(x - reachX), ToSurface(y - reachY), ToSurface(x + reachX),
               ToSurface(y + reachY));
    DrawLine(picture, x, AppState.ViewTop, x, AppState.ViewTop + AppState.ViewHeight);
    DrawLine(picture, AppState.ViewLeft, y, AppState.ViewLeft + AppState.ViewWidth, y);
}

void DrawSimulationHead(Picture picture)
{
    const double x = AppState.SimHeadX;
    const double y = AppState.SimHeadY;
    SurfaceSetPen(picture, {ColourBlack, 1, false, true}); // on paper a head of black, on black one of white
    if (AppState.SimHeadCross != FlagOff) {
        DrawLine(picture, x - PixelsX(HeadReach), y, x + PixelsX(HeadReach), y);
        DrawLine(picture, x, y - PixelsY(HeadReach), x, y + PixelsY(HeadReach));
    } else {
        DrawLine(picture, AppState.ViewLeft, y, AppState.ViewLeft + AppState.ViewWidth, y);
        DrawLine(picture, x, AppState.ViewTop, x, AppState.ViewTop + AppState.ViewHeight);
    }
    SurfaceSetPen(picture, {ColourBlack, 1, false, false});
}

void DrawRubberLine(Picture picture)
{
    if (AppState.MeasureLastX == AppState.MeasureStartX && AppState.MeasureLastY == AppState.MeasureStartY) {
        return;
    }
    SurfaceSetPen(picture, {ColourGreen, 1, false, true});
    DrawLine(picture, AppState.MeasureStartX, AppState.MeasureStartY, AppState.MeasureLastX,
             AppState.MeasureLastY);
}
