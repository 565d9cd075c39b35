// Angle, mirror and scale of the part: each change starts from the untransformed copy, so nothing accumulates.
#include "config/Korvanta_Utility.h"
#include "profile/ElementSteps.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"
#include "shell/ValueFields.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

namespace
{
constexpr double LargestScale =
    99999.0; ///< of the field; a text beyond it must not lead to infinite coordinates
constexpr std::int16_t MirrorX = 1;
constexpr std::int16_t MirrorY = 2;
constexpr std::int16_t MirrorXY = 3;

void RotatePoint(double& x, double& y, double cosine, double sine)
{
    const double turnedX = cosine * x - sine * y;
    y = cosine * y + sine * x;
    x = turnedX;
}

void RotatePart(double angle)
{
    const double cosine = std::cos(angle);
    const double sine = std::sin(angle);
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        ProfileElement& element = ElementAt(slot);
        RotatePoint(element.StartX, element.StartY, cosine, sine);
        RotatePoint(element.EndX, element.EndY, cosine, sine);
        if (element.Kind == KindLine) {
            RenewLine(element);
        } else if (element.Kind == KindArc) {
            RotatePoint(element.GeoA, element.GeoB, cosine, sine);
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        RotatePoint(point.X, point.Y, cosine, sine);
    }
}

/// Lines keep their coefficients here: the scale step or a reversal renews them. A mirror over one axis exchanges left
/// and right, so the sides of the drawn elements change too.
void MirrorPart(double factorX, double factorY)
{
    const double turn = factorX * factorY;
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        ProfileElement& element = ElementAt(slot);
        element.StartX *= factorX;
        element.StartY *= factorY;
        element.EndX *= factorX;
        element.EndY *= factorY;
        if (element.Kind == KindArc) {
            element.GeoA *= factorX;
            element.GeoB *= factorY;
            element.GeoC *= turn;
        }
        if (turn < 0.0 && !IsEndMark(element.Kind)) {
            element.Sense = static_cast<std::int16_t>(-element.Sense);
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        point.X *= factorX;
        point.Y *= factorY;
    }
}

/// How an arc reads by the distance of its ends: closer than the tolerance is a full turn.
enum class ArcTurn { Full, Partial, Unclear };

/// The end stands twice, in the arc and as the start of the next slot; some routines read the one, some the other.
ArcTurn TurnOf(std::int32_t slot)
{
    const ProfileElement& arc = ElementAt(slot);
    const ProfileElement& next = ElementAt(std::min(slot + 1, AppState.ElementCount));
    const bool byEnd = dpp(arc.StartX, arc.StartY, arc.EndX, arc.EndY) < Tolerance;
    const bool byNext = dpp(arc.StartX, arc.StartY, next.StartX, next.StartY) < Tolerance;
    return byEnd != byNext ? ArcTurn::Unclear : byEnd ? ArcTurn::Full : ArcTurn::Partial;
}

/// The tolerance doesn't scale with the part. An arc that shrank below it must not read as a full turn now: it is
/// straight. A full turn whose ends grew apart must not shrink to the bit between them: it is closed.
void KeepTurn(std::int32_t slot, ArcTurn before)
{
    const ArcTurn after = TurnOf(slot);
    ProfileElement& arc = ElementAt(slot);
    if (before == ArcTurn::Partial && after != ArcTurn::Partial) {
        arc.Kind = KindLine;
        arc.GeoA = arc.GeoB = arc.GeoC = 0.0;
        RenewLine(arc);
    } else if (before == ArcTurn::Full && after != ArcTurn::Full) {
        arc.EndX = arc.StartX;
        arc.EndY = arc.StartY;
        if (slot < AppState.ElementCount) {
            ElementAt(slot + 1).StartX = arc.StartX;
            ElementAt(slot + 1).StartY = arc.StartY;
        }
    }
}

/// TurnOf of every arc, ahead of a scale.
std::vector<ArcTurn> CollectTurns()
{
    std::vector<ArcTurn> turns(static_cast<std::size_t>(AppState.ElementCount) + 1, ArcTurn::Unclear);
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        if (ElementAt(slot).Kind == KindArc) {
            turns[static_cast<std::size_t>(slot)] = TurnOf(slot);
        }
    }
    return turns;
}

void ScalePart(double scale)
{
    const std::vector<ArcTurn> turns = CollectTurns();
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        ProfileElement& element = ElementAt(slot);
        element.StartX *= scale;
        element.StartY *= scale;
        element.EndX *= scale;
        element.EndY *= scale;
        if (element.Kind == KindLine) {
            RenewLine(element);
        } else if (element.Kind == KindArc) {
            element.GeoA *= scale;
            element.GeoB *= scale;
            element.GeoC *= scale;
        }
    }
    for (std::int32_t slot = 1; slot <= AppState.ElementCount; ++slot) {
        if (ElementAt(slot).Kind == KindArc) {
            KeepTurn(slot, turns[static_cast<std::size_t>(slot)]);
        }
    }
    for (std::int32_t i = 1; i <= AppState.MarkPointCount; ++i) {
        MarkPoint& point = AppState.MarkPoints[static_cast<std::size_t>(i)];
        point.X *= scale;
        point.Y *= scale;
    }
}
} // namespace

void ApplyTransform(double angleDeg, std::int16_t mirror, double scale, Flag redraw)
{
    if (AppState.ElementCount == 0) {
        return;
    }
    if (IsNoValue(angleDeg)) {
        angleDeg = FieldNumber(AppState.TextCutting[FieldAngle]);
    }
    if (mirror == -1) {
        mirror = RoundAndClampToInt16(FieldNumber(AppState.TextCutting[FieldMirror]));
    }
    if (scale == -1.0) { // exactly: "not given"
        scale = FieldNumber(AppState.TextCutting[FieldScale]);
    }
    RestoreShadow();
    for (std::size_t i = 1; i < AppState.ProfileTable.size(); ++i) {
        AppState.ProfileTable[i].Side = 1.0;
    }
    TransformPart(ToRadians(angleDeg), mirror, std::min(scale, LargestScale));
    if (mirror > 0) {
        std::int16_t largest = 0;
        ComputeProfileAreas(largest);
        OrientProfiles();
    }
    ShiftToOrigin();
    ComputeBounds();
    if (redraw != FlagOff) {
        RedrawScreen(FlagOn);
    }
}

void TransformPart(double angle, std::int16_t mirror, double scale)
{
    if (angle != 0.0) {
        RotatePart(angle);
    }
    if (mirror == MirrorX) {
        MirrorPart(1.0, -1.0);
    } else if (mirror == MirrorY) {
        MirrorPart(-1.0, 1.0);
    } else if (mirror == MirrorXY) {
        MirrorPart(-1.0, -1.0);
    }
    if (scale > 0.0) {
        ScalePart(scale);
        MeasureProfiles(FlagOff);
    }
}
