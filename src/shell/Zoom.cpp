#include "shell/Zoom.h"

#include "nesting/Korvanta_CutTecnology.h"
#include "profile/Korvanta_Common.h"
#include "shell/FieldModes.h"
#include "shell/ValueFields.h"

#include <algorithm>

namespace
{
constexpr double LeastFactor = 1.0;
constexpr double LargestFactor = 30.0;
constexpr double MovesPerFrame = 4.0;

double InLimits(double factor)
{
    return factor >= LeastFactor ? std::min(factor, LargestFactor) : LeastFactor;
}

void DrawFrame(Picture picture, double factor)
{
    AppState.ZoomFrame = factor;
    if (PictureShown()) {
        DrawZoomFrame(picture, factor);
    }
}

void EraseFrame(Picture picture)
{
    if (AppState.ZoomFrame > 0.0 && PictureShown()) {
        DrawZoomFrame(picture, AppState.ZoomFrame);
    }
    AppState.ZoomFrame = 0.0;
}

/// The value, not beyond the two ends of a view.
double Between(double end1, double end2, double value)
{
    return std::max(std::min(end1, end2), std::min(std::max(end1, end2), value));
}

/// Puts the centre of the frame to a point of the view.
void PutCentre(double x, double y)
{
    AppState.ViewCentreX = Between(AppState.ViewLeft, AppState.ViewLeft + AppState.ViewWidth, x);
    AppState.ViewCentreY = Between(AppState.ViewTop, AppState.ViewTop + AppState.ViewHeight, y);
}

/// The whole picture, with the centre where the frame stood: that is lost by the fit.
void ShowWhole(Picture picture, double centreX, double centreY)
{
    AppState.ZoomFrame = 0.0;
    FitScene(picture);
    if (!IsNoValue(centreX)) {
        PutCentre(centreX, centreY); // a zoom of the other screen may lie beside this one's view
    }
    RedrawScreen(FlagOff);
}

/// A frame is moved and sized on the whole picture: where a zoomed part fills it, the whole comes first.
void NeedFrame(Picture picture)
{
    if (!(AppState.ZoomFrame > 0.0)) {
        ShowWhole(picture, AppState.ViewCentreX, AppState.ViewCentreY);
    }
}

void MoveFrame(Picture picture, double factor, double dx, double dy)
{
    NeedFrame(picture);
    EraseFrame(picture);
    PutCentre(AppState.ViewCentreX + dx * AppState.ViewWidth / (MovesPerFrame * factor),
              AppState.ViewCentreY + dy * AppState.ViewHeight / (MovesPerFrame * factor));
    DrawFrame(picture, factor);
}

/// The view that the frame holds on the whole picture.
void FillWithFrame(Picture picture, double factor)
{
    const double x = AppState.ViewCentreX;
    const double y = AppState.ViewCentreY;
    FitScene(picture);
    AppState.ViewWidth /= factor;
    AppState.ViewHeight /= factor;
    AppState.ViewLeft = x - AppState.ViewWidth / 2;
    AppState.ViewTop = y - AppState.ViewHeight / 2;
    AppState.UnitsPerPixelX /= factor;
    AppState.UnitsPerPixelY /= factor;
    AppState.ViewCentreX = x;
    AppState.ViewCentreY = y;
    SurfaceSetScale(picture, AppState.ViewLeft, AppState.ViewTop, AppState.ViewWidth, AppState.ViewHeight);
    AppState.SavedCentreX = x;
    AppState.SavedCentreY = y;
}

void ConfirmZoom(Picture picture, double factor)
{
    AppState.ZoomFrame = 0.0; // the redraw takes it away
    if (factor > LeastFactor) {
        FillWithFrame(picture, factor);
        RedrawScreen(FlagOff);
    } else {
        RedrawScreen(FlagOn);
    }
}

void EnterZoom(Picture picture, double factor)
{
    if (AppState.FieldMode == ModeZoom) {
        return;
    }
    AppState.FieldMode = ModeZoom;
    ShowWhole(picture, AppState.SavedCentreX, AppState.SavedCentreY);
    DrawFrame(picture, factor);
}
} // namespace

void ApplyZoom(Picture picture, ZoomStep step, double fieldFactor)
{
    const double factor = InLimits(fieldFactor);
    if (step == ZoomStep::Enter) {
        EnterZoom(picture, factor);
        return;
    }
    if (AppState.FieldMode != ModeZoom) {
        return;
    }
    switch (step) {
    case ZoomStep::Right:
        MoveFrame(picture, factor, 1.0, 0.0);
        break;
    case ZoomStep::Left:
        MoveFrame(picture, factor, -1.0, 0.0);
        break;
    case ZoomStep::Down: // the view's height is negative
        MoveFrame(picture, factor, 0.0, 1.0);
        break;
    case ZoomStep::Up:
        MoveFrame(picture, factor, 0.0, -1.0);
        break;
    case ZoomStep::Confirm:
        ConfirmZoom(picture, factor);
        break;
    default: // Change
        MoveFrame(picture, factor, 0.0, 0.0);
        break;
    }
}

void ApplyZoom(double factor)
{
    ApplyZoom(CurrentPicture(), ZoomStep::Confirm, factor);
}

void ClearZoom()
{
    AppState.SavedCentreX = NoValue;
    AppState.SavedCentreY = NoValue;
    AppState.ZoomFrame = 0.0;
}
