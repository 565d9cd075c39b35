// The path cursor: a point on the cut of one profile, picked by its distance, that becomes the program's zero.
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"
#include "shell/ValueFields.h"

#include "config/Korvanta_Utility.h"

#include <cmath>
#include <vector>

namespace
{
constexpr double EndOfPath = 999999999.0; ///< a distance beyond every path
constexpr std::int16_t CtrlAlone = 2;

double LengthToNext(const CutMove& move, const CutMove& next)
{
    if (move.Kind == KindArc) {
        return std::fabs(move.Radius) * amparco(move.CentreX, move.CentreY, move.X, move.Y, next.X, next.Y,
                                                move.Radius > 0.0 ? 1 : -1);
    }
    return dpp(move.X, move.Y, next.X, next.Y);
}

void SetOriginOnMove(const CutMove& move, const CutMove& next, double distance)
{
    if (move.Kind == KindArc && move.Radius != 0.0) {
        const double angle = angolo(move.Y - move.CentreY, move.X - move.CentreX) + distance / move.Radius;
        AppState.PathOriginX = move.CentreX + std::fabs(move.Radius) * std::cos(angle);
        AppState.PathOriginY = move.CentreY + std::fabs(move.Radius) * std::sin(angle);
        return;
    }
    const double angle = angolo(next.Y - move.Y, next.X - move.X);
    AppState.PathOriginX = move.X + distance * std::cos(angle);
    AppState.PathOriginY = move.Y + distance * std::sin(angle);
}
} // namespace

void MovePathCursor(std::int16_t direction, std::int16_t shift)
{
    if (AppState.CurrentProfile == 0) {
        SelectProfile(RoundAndClampToInt32(FieldNumber(AppState.TextCutting[FieldProfileNumber])), FlagOff);
    }
    if (AppState.CurrentProfile == 0) {
        return; // a part without profiles has no path
    }
    if (AppState.PathOriginSet == FlagOff) {
        AppState.PathCursorDistance = 0.0;
        AppState.PathOriginSet = FlagOn;
    } else if (shift == CtrlAlone) {
        AppState.PathCursorDistance = direction < 1 ? 0.0 : EndOfPath;
    } else {
        AppState.PathCursorDistance += direction * AppState.MoveStep;
    }
    AppState.PathCursorProfile = static_cast<std::int16_t>(AppState.CurrentProfile);
    if (AppState.PathCursorDistance < 0.0) {
        AppState.PathOriginSet = FlagOff;
    } else {
        UpdatePathCursor();
    }
    RedrawScreen(FlagOff);
}

void UpdatePathCursor()
{
    std::vector<CutMove> list;
    std::int16_t side = 0;
    BuildCutMoves(list, AppState.PathCursorProfile, side, 0.0);
    if (list.size() < 2) {
        return;
    }
    if (list.size() == 2) { // nothing but the closing point
        AppState.PathCursorDistance = 0.0;
        AppState.PathOriginX = list[1].X;
        AppState.PathOriginY = list[1].Y;
        return;
    }
    double before = 0.0;
    double length = 0.0;
    std::size_t move = 1;
    for (;; ++move) {
        length = LengthToNext(list[move], list[move + 1]);
        if (before + length >= AppState.PathCursorDistance) {
            break;
        }
        if (move + 2 == list.size()) { // past the end: the stored distance too, so a step back works at once
            AppState.PathCursorDistance = before + length;
            break;
        }
        before += length;
    }
    SetOriginOnMove(list[move], list[move + 1], AppState.PathCursorDistance - before);
}
