// The redraw of the Cutting and Nesting screens: the scene, and the statistics walk over its copies, which finds the
// lead points on its way.
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"
#include "profile/Drawing.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/Strokes.h"

#include <algorithm>
#include <limits>
#include <string>

namespace
{
constexpr std::int16_t OverlayWidth = 2; ///< of the leads, in pixels
constexpr double OriginBefore = 5.0;     ///< pixels of an arrow of the origin mark, ahead of its point
constexpr double OriginAfter = 35.0;     ///< and behind it
constexpr double FirstTextLine = 1.1;    ///< text heights above the part
constexpr double SecondTextLine = 1.2;

bool HasStatistics()
{
    return AppState.ScreenState == ScreenCutting || ShowsNest();
}

/// The members of the view.
struct PictureView {
    double UnitsX;
    double UnitsY;
    double Left;
    double Top;
    double Width;
    double Height;
    double CentreX;
    double CentreY;
};

PictureView CurrentView()
{
    return {AppState.UnitsPerPixelX, AppState.UnitsPerPixelY, AppState.ViewLeft,    AppState.ViewTop,
            AppState.ViewWidth,      AppState.ViewHeight,     AppState.ViewCentreX, AppState.ViewCentreY};
}

void PutBack(const PictureView& view)
{
    AppState.UnitsPerPixelX = view.UnitsX;
    AppState.UnitsPerPixelY = view.UnitsY;
    AppState.ViewLeft = view.Left;
    AppState.ViewTop = view.Top;
    AppState.ViewWidth = view.Width;
    AppState.ViewHeight = view.Height;
    AppState.ViewCentreX = view.CentreX;
    AppState.ViewCentreY = view.CentreY;
}

bool PartHasSize()
{
    return !(AppState.PartSizeX < Tolerance && AppState.PartSizeY < Tolerance);
}

/// Where the first copy stands in the walk.
void WalkOrigin(double& x, double& y)
{
    const double kerf = NestNumber(FieldKerf);
    x = ShowsNest() ? kerf + NestNumber(FieldGapX) / 2 : 0.0;
    y = ShowsNest() ? kerf + NestNumber(FieldGapY) / 2 : 0.0;
}

/// Copies that find their leads anew. All that a copy leaves behind is the lead point, in Status, LeadElement and
/// LeadPosition of the records, and LeadPosition is written in one case only: when it lies past the end of the contour it
/// becomes half the length of the last element. The first copy may do that and still leave the lead in the middle of the
/// last element; the second finds the half length as a plain distance from the first point. That lies on the contour (no
/// contour is shorter than half its last element), or is 0 on a contour without length, which writes 0 again. From then on
/// the input of the search stays the same, so a third copy has the leads of the second.
constexpr std::int64_t CopiesThatMatter = 2;

struct OverlayWalk {
    Picture On;
    std::int16_t Width;
    std::int64_t Left;      ///< copies still to be drawn
    std::int64_t Drawn = 0; ///< copies drawn
    PartLeads Leads = {};   ///< of the copy before
};

bool DrawCopyMoves(double x, double y, void* context)
{
    auto& walk = *static_cast<OverlayWalk*>(context);
    if (walk.Drawn < CopiesThatMatter) {
        CollectLeads(walk.Leads);
    }
    ++walk.Drawn;
    DrawLeads(walk.On, walk.Leads, x, y, walk.Width);
    return --walk.Left > 0;
}

/// Where the two lines of text begin.
struct TextPlace {
    double X;
    double FirstY;
    double SecondY;
};

/// The Y scale is negative, and so are the heights that are taken off: the texts stand above the part. Where the view ends
/// too close above it they stand below its upper edge, and where it ends sooner than the text they begin further left.
TextPlace PlaceOfStatistics(double letter, double line, double length)
{
    TextPlace place{2 * letter, AppState.PartSizeY + FirstTextLine * line,
                    AppState.PartSizeY + SecondTextLine * line};
    if (place.SecondY > AppState.ViewTop && AppState.PartSizeY <= AppState.ViewTop) {
        const double down = (SecondTextLine + (SecondTextLine - FirstTextLine)) * line;
        place.FirstY -= down;
        place.SecondY -= down;
    }
    const double right = AppState.ViewLeft + AppState.ViewWidth;
    if (place.X >= AppState.ViewLeft && place.X < right) {
        place.X = std::max(std::min(place.X, right - length), AppState.ViewLeft);
    }
    return place;
}

/// The two texts and their places. The second line goes on where the first ends.
struct StatisticsText {
    std::string Shapes;
    std::string Cuts;
    double Width = 0.0; ///< of the first
    TextPlace Place{};
};

StatisticsText FormStatistics(Picture picture, std::int64_t copies)
{
    StatisticsText text;
    text.Shapes = "Shape:" + NumberText(static_cast<double>(copies)) + "; ";
    text.Cuts =
        "Piercing:" + NumberText(static_cast<double>(AppState.ProfileCount) * static_cast<double>(copies)) +
        "; Cutting (mm): " + FormatNumber(static_cast<double>(copies) * AppState.TotalCutLength);
    double letter = 0.0;
    double line = 0.0;
    double rest = 0.0;
    SurfaceTextSize(picture, "A", letter, line);
    SurfaceTextSize(picture, text.Cuts, rest, line);
    SurfaceTextSize(picture, text.Shapes, text.Width, line);
    text.Place = PlaceOfStatistics(letter, line, text.Width + rest);
    AppState.StatisticsLeft = text.Place.X;
    AppState.StatisticsRight = text.Place.X + text.Width + rest;
    AppState.StatisticsTop = std::max(text.Place.FirstY, text.Place.SecondY);
    AppState.StatisticsBottom = std::min(text.Place.FirstY, text.Place.SecondY) - line;
    return text;
}

void DrawStatisticsText(Picture picture, const StatisticsText& text)
{
    const TextPlace& place = text.Place;
    SurfaceText(picture, ToSurface(place.X), ToSurface(place.FirstY), text.Shapes, ColourBlack);
    SurfaceText(picture, ToSurface(place.X + text.Width), ToSurface(place.SecondY), text.Cuts, ColourBlack);
}

/// What the walk does to the leads, without a stroke.
void FindLeadsOfCopies(std::int64_t copies)
{
    PartLeads leads;
    for (std::int64_t copy = 0; copy < std::min(copies, CopiesThatMatter); ++copy) {
        CollectLeads(leads);
    }
}
} // namespace

void DrawStatistics(Picture picture, std::int16_t width)
{
    if (!HasStatistics()) {
        return;
    }
    AppState.PenX = 0.0;
    AppState.PenY = 0.0;
    double originX = 0.0;
    double originY = 0.0;
    WalkOrigin(originX, originY);
    // Off the Nesting screen there is the part alone, whatever nest type and sheet another part has left.
    const std::int64_t copies = ShowsNest() ? CountCopies(originX, originY) : 1;
    constexpr std::int64_t Most = std::numeric_limits<std::int32_t>::max();
    AppState.CopiesDrawn = static_cast<std::int32_t>(std::min(copies, Most));
    if (!PictureShown() || !PartHasSize()) {
        FindLeadsOfCopies(copies);
        return;
    }
    OverlayWalk walk{picture, width, CopiesToDraw()};
    if (ShowsNest()) {
        WalkCopies(originX, originY, DrawCopyMoves, &walk);
    } else {
        DrawCopyMoves(originX, originY, &walk);
    }
    DrawStatisticsText(picture, FormStatistics(picture, copies));
    DrawOriginMark(picture);
}

void RaiseStatistics(Picture picture)
{
    double originX = 0.0;
    double originY = 0.0;
    WalkOrigin(originX, originY);
    DrawStatisticsText(picture, FormStatistics(picture, CountCopies(originX, originY)));
}

void DrawOriginMark(Picture picture)
{
    const bool cursor = AppState.PathOriginSet != FlagOff;
    const double x = AppState.GapX / 2 + (cursor ? AppState.PathOriginX : 0.0);
    const double y = AppState.GapY / 2 + (cursor ? AppState.PathOriginY : 0.0);
    DrawArrow(picture, x - PixelsX(OriginBefore), y, x + PixelsX(OriginAfter), y, ColourBlue);
    DrawArrow(picture, x, y - PixelsY(OriginBefore), x, y + PixelsY(OriginAfter), ColourBlue);
}

void DrawNestPreview()
{
    const PictureView nesting = CurrentView();
    DrawScene(Picture::Preview, FlagOn, FlagOff, FlagOff);
    PutBack(nesting); // a program may tell its size
}

void RedrawCurrent(std::int16_t width, Flag fit)
{
    if (!HasStatistics()) {
        return;
    }
    const Picture picture = CurrentPicture();
    if (picture == Picture::Preview) {
        DrawNestPreview();
        return;
    }
    DrawScene(picture, fit, FlagOn, FlagOn);
    DrawStatistics(picture, width);
    if (!PictureShown()) {
        return;
    }
    if (AppState.ZoomFrame > 0.0) {
        DrawZoomFrame(picture, AppState.ZoomFrame);
    }
    if (AppState.MeasureOn != FlagOff) {
        DrawRubberLine(picture);
    }
    if (AppState.SimHeadShown != FlagOff) {
        DrawSimulationHead(picture);
    }
}

void RedrawScene(Flag fit)
{
    RedrawCurrent(OverlayWidth, fit);
}

void RefreshPart(Picture picture)
{
    ComputeBounds();
    FitView(picture, 0.0, 0.0);
    DrawScene(picture, FlagOn, FlagOn, FlagOn);
}
