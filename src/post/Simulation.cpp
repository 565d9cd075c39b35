#include "post/Simulation.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "geometry/Orbalib.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Screen.h"
#include "profile/Korvanta_Common.h"
#include "profile/Strokes.h"
#include "shell/ValueFields.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr const char* Section = "SETUP";
constexpr const char* SpeedKey = "SIMSPEED";
constexpr std::int16_t UsualSpeed = 3;
constexpr double UsualFragments = 5.0;
constexpr double MostSteps = 1e6; ///< of one move; no picture has so many pixels
constexpr std::int16_t TrailWidth = 3;
constexpr SurfacePen TrailPen{ColourRed, TrailWidth, false, false};
constexpr SurfacePen PlainPen{ColourBlack, 1, false, false};

// --- pace -----------------------------------------------------------------------------------------------------
// The length of a step follows the view, so the steps of a second make the speed on the screen: at speed 3 a sheet of
// 600 pixels takes three seconds to cross, at 25 an eighth of one. A clock sets the pace, whatever the machine takes to
// draw: steps that are late come without a wait.

constexpr double StepsAtLeast = 250.0; ///< of a second
constexpr double StepsPerSpeed = 30.0;
constexpr double FrameSeconds = 1.0 / 60.0; ///< shorter pauses are gathered
constexpr double LongestFrame = 2.0 / 60.0; ///< without a pause; a late machine is to show what it does, too
constexpr double LongestDelay = 0.5;        ///< a question stood open: what is later isn't made up for

/// Adds the time for a piece of way to the time that the head is due. A piece longer than a step is a jump.
void Spend(double way)
{
    if (AppState.SimStep > 0.0) {
        const double steps = std::min(1.0, way / AppState.SimStep);
        AppState.SimDue += steps / (StepsAtLeast + StepsPerSpeed * AppState.SimSpeed);
    }
}

void LiftHead()
{
    if (AppState.SimHeadShown != FlagOff) {
        AppState.SimHeadShown = FlagOff;
        if (PictureShown()) {
            DrawSimulationHead(Picture::Nesting);
        }
    }
}

void PutHead()
{
    AppState.SimHeadShown = FlagOn;
    if (PictureShown()) {
        DrawSimulationHead(Picture::Nesting);
    }
}

/// What the operator is about to see: the trail never hides the statistics.
void ShowStatistics()
{
    if (AppState.SimTextTouched == FlagOff) {
        return;
    }
    AppState.SimTextTouched = FlagOff;
    const bool shown = AppState.SimHeadShown != FlagOff;
    LiftHead();
    RaiseStatistics(Picture::Nesting);
    if (shown) {
        PutHead();
    }
}

/// Waits until the head is due. Keys arrive here, and with them all that they bring about.
void KeepPace()
{
    const double now = ClockSeconds();
    if (now - AppState.SimDue > LongestDelay) {
        AppState.SimDue = now;
    }
    const double ahead = AppState.SimDue - now;
    if (ahead < FrameSeconds && now - AppState.SimSeen < LongestFrame) {
        return;
    }
    ShowStatistics();
    Pause(ahead < FrameSeconds ? 0.0 : ahead);
    AppState.SimSeen = ClockSeconds();
}

// --- the view -------------------------------------------------------------------------------------------------

double ViewRight()
{
    return AppState.ViewLeft + AppState.ViewWidth;
}

double ViewBottom()
{
    return AppState.ViewTop + AppState.ViewHeight;
}

bool InView(double x, double y)
{
    return x > AppState.ViewLeft && x < ViewRight() && y > ViewBottom() && y < AppState.ViewTop;
}

/// Cuts the part from `first` to `last` of a way to where start + part * length lies between two limits. False when
/// nothing is left.
bool CutToRange(double start, double length, double low, double high, double& first, double& last)
{
    if (length == 0.0) {
        return start >= low && start <= high;
    }
    const auto [nearer, farther] = std::minmax({(low - start) / length, (high - start) / length});
    first = std::max(first, nearer);
    last = std::min(last, farther);
    return first <= last;
}

bool LineTouchesView(double x1, double y1, double x2, double y2)
{
    double first = 0.0;
    double last = 1.0;
    return CutToRange(x1, x2 - x1, AppState.ViewLeft, ViewRight(), first, last) &&
           CutToRange(y1, y2 - y1, ViewBottom(), AppState.ViewTop, first, last);
}

bool BoxTouchesView(double left, double bottom, double right, double top)
{
    return right >= AppState.ViewLeft && left <= ViewRight() && top >= ViewBottom() &&
           bottom <= AppState.ViewTop;
}

/// True when a piece of trail runs over the statistics.
bool TouchesStatistics(double x1, double y1, double x2, double y2)
{
    const double aside = PixelsX(TrailWidth);
    const double above = PixelsY(TrailWidth);
    return std::max(x1, x2) + aside >= AppState.StatisticsLeft &&
           std::min(x1, x2) - aside <= AppState.StatisticsRight &&
           std::max(y1, y2) + above >= AppState.StatisticsBottom &&
           std::min(y1, y2) - above <= AppState.StatisticsTop;
}

// --- head and trail -------------------------------------------------------------------------------------------

/// HEADTYPE 0 is the small cross, and so is what lies below; all else the cross-hair.
Flag ReadHeadCross()
{
    return ToFlag(RoundAndClampToInt16(TextToNumber(ReadConfig(Section, "HEADTYPE", "1"))) <= 0);
}

/// The trail from the head before to this one. A rubber line that is being drawn would lose the exact way back where the
/// trail runs under it, so it is lifted too.
void DrawTrail(HeadMode mode)
{
    const bool measuring = AppState.MeasureOn != FlagOff;
    if (measuring) {
        DrawRubberLine(Picture::Nesting);
    }
    if (mode == HeadMode::Cut) {
        SurfaceSetPen(Picture::Nesting, TrailPen);
        DrawLine(Picture::Nesting, AppState.SimPrevX, AppState.SimPrevY, AppState.SimX, AppState.SimY);
    } else {
        SurfacePixel(Picture::Nesting, ToSurface(AppState.SimX), ToSurface(AppState.SimY), ColourGreen);
    }
    if (TouchesStatistics(AppState.SimPrevX, AppState.SimPrevY, AppState.SimX, AppState.SimY)) {
        AppState.SimTextTouched = FlagOn;
    }
    if (measuring) {
        DrawRubberLine(Picture::Nesting);
    }
    SurfaceSetPen(Picture::Nesting, PlainPen);
}

void SetPosition(double x, double y)
{
    AppState.SimX = x;
    AppState.SimY = y;
}

/// The trail of a move begins where the move does: what came before may have brought the head there unseen.
void BeginTrail()
{
    AppState.SimPrevX = AppState.SimX;
    AppState.SimPrevY = AppState.SimY;
}

/// The end of a move that isn't shown. A nest of many of them is to let keys in, too.
void MoveUnseen(double x, double y)
{
    SetPosition(x, y);
    KeepPace();
}

/// Steps that a way takes; 0 when it can't be stepped. A window that became another size has another view.
double StepsOf(double way)
{
    if (AppState.SimStepView != AppState.UnitsPerPixelX) {
        LoadSimulationSettings();
    }
    const double steps = AppState.SimStep > 0.0 ? way / AppState.SimStep : 0.0;
    return steps <= MostSteps ? steps : 0.0;
}

void ShowKeys()
{
    if (AppState.RefreshKeys != nullptr) {
        AppState.RefreshKeys();
    }
}
} // namespace

void LoadSimulationSettings()
{
    const std::int16_t speed = RoundAndClampToInt16(TextToNumber(ReadConfig(Section, SpeedKey, "3")));
    const double fragments = TextToNumber(ReadConfig(Section, "SIM_DEFRAG", "5"));
    AppState.SimSpeed = speed > 0 ? speed : UsualSpeed;
    AppState.SimStepView = AppState.UnitsPerPixelX;
    AppState.SimStep = std::fabs(AppState.UnitsPerPixelX) / (fragments > 0.0 ? fragments : UsualFragments) *
                       AppState.SimSpeed;
}

void ApplySimulationSpeed()
{
    const std::string text = Trim(AppState.TextNesting[FieldSimulation].Text);
    if (ReadConfig(Section, SpeedKey, "") != text) {
        WriteConfig(Section, SpeedKey, text);
    }
    LoadSimulationSettings();
}

void BeginHead()
{
    AppState.SimStop = FlagOff;
    AppState.SimHeadShown = FlagOff;
    AppState.SimTextTouched = FlagOff;
    SetPosition(0.0, 0.0);
    BeginTrail();
    LoadSimulationSettings();
    AppState.SimDue = AppState.SimSeen = ClockSeconds();
    AppState.SimRunning = FlagOn;
    ShowKeys();
    DrawHead(HeadMode::Rapid);
}

void EndHead()
{
    if (AppState.SimStop == FlagOff) {
        ShowStatistics();
    }
    AppState.SimHeadShown = FlagOff;
    AppState.SimRunning = FlagOff;
    ShowKeys();
}

void StopSimulation()
{
    if (AppState.SimRunning == FlagOff) {
        return;
    }
    AppState.SimStop = FlagOn;
    AppState.SimRunning = FlagOff;
    AppState.SimHeadShown = FlagOff; // the redraw takes it away
    SurfaceSetPen(Picture::Nesting, PlainPen);
    ShowKeys();
    RedrawScreen(FlagOff);
}

void DrawHead(HeadMode mode)
{
    if (AppState.SimStop != FlagOff) {
        return;
    }
    // What is painted under a head on inverting strokes would stay behind in false colours: it is lifted first.
    LiftHead();
    if (InView(AppState.SimX, AppState.SimY)) {
        if (PictureShown()) {
            DrawTrail(mode);
        }
        AppState.SimHeadCross = ReadHeadCross();
        AppState.SimHeadX = AppState.SimX;
        AppState.SimHeadY = AppState.SimY;
        PutHead();
    } else {
        AppState.SimDue =
            std::min(AppState.SimDue, ClockSeconds()); // nothing to be seen, nothing to wait for
    }
    BeginTrail();
    KeepPace();
}

void StepTo(HeadMode mode, double x, double y)
{
    if (AppState.SimStop != FlagOff) {
        return;
    }
    if (!LineTouchesView(AppState.SimX, AppState.SimY, x, y)) {
        MoveUnseen(x, y);
        return;
    }
    BeginTrail();
    const double angle = angolo(y - AppState.SimY, x - AppState.SimX);
    const double way = dpp(AppState.SimX, AppState.SimY, x, y);
    const double alongX = std::cos(angle);
    const double alongY = std::sin(angle);
    double gone = 0.0;
    // A step that would pass the end isn't shown: it would leave thorns at the corners of short moves.
    while (StepsOf(way - gone) > 1.0) {
        gone += AppState.SimStep;
        SetPosition(AppState.SimX + AppState.SimStep * alongX, AppState.SimY + AppState.SimStep * alongY);
        Spend(AppState.SimStep);
        DrawHead(mode);
        if (AppState.SimStop != FlagOff) {
            return;
        }
    }
    SetPosition(x, y);
    Spend(std::max(way - gone, 0.0));
    DrawHead(mode);
}

void ArcTo(double startX, double startY, double endX, double endY, double centreX, double centreY,
           double radius)
{
    if (AppState.SimStop != FlagOff) {
        return;
    }
    double right = 0.0;
    double top = 0.0;
    double left = 0.0;
    double bottom = 0.0;
    Quadra_Arco(startX, startY, endX, endY, centreX, centreY, radius, right, top, left, bottom);
    if (radius == 0.0 || !BoxTouchesView(left, bottom, right, top)) {
        MoveUnseen(endX, endY);
        return;
    }
    BeginTrail();
    const std::int32_t direction = radius > 0.0 ? 1 : -1;
    const double size = std::fabs(radius);
    const double start = angolo(startY - centreY, startX - centreX);
    const double way = size * amparco(centreX, centreY, startX, startY, endX, endY, direction);
    double gone = 0.0;
    while (StepsOf(way - gone) > 1.0) {
        gone += AppState.SimStep;
        const double angle = start + direction * gone / size;
        SetPosition(centreX + size * std::cos(angle), centreY + size * std::sin(angle));
        Spend(AppState.SimStep);
        DrawHead(HeadMode::Cut);
        if (AppState.SimStop != FlagOff) {
            return;
        }
    }
    SetPosition(endX, endY);
    Spend(std::max(way - gone, 0.0));
    DrawHead(HeadMode::Cut);
}
