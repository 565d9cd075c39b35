#include "shapes/Korvanta_Develop.h"

#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Builders.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "state/AppState.h"

#include <cmath>
#include <limits>
#include <tuple>
#include <utility>
#include <vector>

namespace
{
/// Messages of the failure box.
constexpr int MessageFailure = 34;
constexpr int MessageBadPart = 35;

constexpr std::int16_t ShapePanelStroke = FamilyRect + 39;
constexpr std::int16_t ShapeRectangleStroke = FamilyRect + 40;
constexpr std::int16_t ShapeTwinHalves = FamilyRect + 41;
constexpr std::int16_t ShapeTwinCircle = FamilyCircular + 25;
constexpr std::int16_t ShapeTwinRing = FamilyCircular + 26;

/// The visible fields by index; a hidden field counts as 0 whatever its text.
ShapeParameters ReadParameters()
{
    static_assert(ParamFieldCount < std::tuple_size_v<ShapeParameters>, "each field has a parameter");
    ShapeParameters parameters{};
    std::size_t index = 1;
    for (const ValueField& field : AppState.ParamText) {
        parameters[index++] = field.Visible != 0 ? FieldNumber(field) : 0.0;
    }
    return parameters;
}

/// Tables empty. The lead data of the same part stays when asked for.
void ClearForDevelopment()
{
    std::vector<ProfileRecord> records = std::move(AppState.ProfileTable);
    const double moveStep = AppState.MoveStep;
    ClearPart();
    if (AppState.KeepLeadData != 0) {
        AppState.ProfileTable = std::move(records);
        AppState.MoveStep = moveStep;
    }
}

/// What the current shape means for leads and compensation; no shape means nothing.
void SetPartFlags()
{
    const std::int16_t id = AppState.ShapeId;
    const bool stroke = id == ShapePanelStroke || id == ShapeRectangleStroke;
    const bool twin = id == ShapeTwinHalves || id == ShapeTwinCircle || id == ShapeTwinRing;
    AppState.OpenShapePart = ToFlag(stroke || twin);
    AppState.NoKerfCodes = ToFlag(stroke);
}

/// A part that is nothing but a hole is cut in the sense of an inner contour.
void PickWorkingSenses()
{
    const bool hole = AppState.ShapeId >= FamilyHoles;
    AppState.WorkExternalSense = hole ? AppState.InternalPathSense : AppState.ExternalPathSense;
    AppState.WorkInternalSense = hole ? AppState.ExternalPathSense : AppState.InternalPathSense;
}

/// Beyond it there is neither a sheet nor a decimal, and areas and views would pass the largest number.
constexpr double LargestCoordinate = 1e15;

bool IsUsable(const ProfileElement& element)
{
    const double values[] = {element.GeoA,   element.GeoB, element.GeoC, element.StartX,
                             element.StartY, element.EndX, element.EndY, element.Length};
    const double limit =
        IsEndMark(element.Kind) ? std::numeric_limits<double>::max() : LargestCoordinate; // an area
    for (const double value : values) {
        if (!(std::fabs(value) <= limit)) { // NaN fails too
            return false;
        }
    }
    return true;
}

/// Builders leave some divisions unguarded, and no length has an upper limit: what comes out of them must not reach a program.
bool TablesAreSound()
{
    bool elementsSeen = false;
    for (std::int32_t i = 1; i <= AppState.ElementCount; ++i) {
        const ProfileElement& element = AppState.ElementTable[static_cast<std::size_t>(i)];
        if (!IsUsable(element)) {
            return false;
        }
        if (IsEndMark(element.Kind) && !elementsSeen) {
            return false;
        }
        elementsSeen = !IsEndMark(element.Kind);
    }
    return AppState.ElementCount > 0;
}
} // namespace

bool BuildCurrentPart()
{
    std::int16_t err = 0;
    std::vector<ProfileRecord> records;
    if (AppState.ShapeId >= 1) {
        records = AppState.ProfileTable;
        DevelopShape(err);
    } else {
        AppState.ShapeFlagTwin = FlagOff; // of the shape before
        SetPartFlags();
    }
    if (err != 0) {
        if (AppState.KeepLeadData != FlagOff) {
            AppState.ProfileTable = std::move(records); // for the next try: this one may have lost profiles
        }
        bool confirmed = false;
        ShowBox(MessageText(MessageFailure), MessageText(MessageBadPart), "", false, confirmed);
        return false;
    }
    return true;
}

void AdoptShape()
{
    SetPartFlags();
    PickWorkingSenses();
}

void DevelopShape(std::int16_t& err)
{
    err = 0;
    const ShapeParameters parameters = ReadParameters();
    ClearForDevelopment();
    const ShapeBuilder builder = FindBuilder(AppState.ShapeId, parameters);
    if (builder != nullptr) {
        builder(parameters, err);
    } else {
        err = ErrBadShape;
    }
    SetPartFlags();
    AppState.CurrentProfile = 1;
    ShiftToOrigin();
    std::int16_t largest = 0;
    ComputeProfileAreas(largest);
    PickWorkingSenses();
    OrientProfiles();
    MeasureProfiles(FlagOn);
    ApplyTransform(NoValue, -1, -1.0, FlagOff);
    if (err == 0 && !TablesAreSound()) {
        err = ErrBadShape;
    }
}
