#include "shell/FieldEvents.h"

#include "platform/Screen.h"
#include "post/Simulation.h"
#include "shapes/DimensionDrawing.h"
#include "shell/FieldModes.h"
#include "shell/FunctionKeys.h"
#include "shell/KeyBar.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"

#include <algorithm>

namespace
{
/// Keys of the Zoom field by their function-key number.
constexpr std::int16_t NumberZoomRight = 3;
constexpr std::int16_t NumberZoomLeft = 4;
constexpr std::int16_t NumberZoomDown = 5;
constexpr std::int16_t NumberZoomUp = 6;
constexpr std::int16_t NumberZoomOk = 7;

FieldSet SetOf(FieldArray fields)
{
    if (fields.data() == AppState.TextCutting.data()) {
        return FieldSet::Cutting;
    }
    if (fields.data() == AppState.TextNesting.data()) {
        return FieldSet::Nesting;
    }
    return fields.data() == AppState.ParamText.data() ? FieldSet::Param : FieldSet::None;
}

Picture PictureOf(FieldSet set)
{
    return set == FieldSet::Cutting ? Picture::Tecno : Picture::Nesting;
}

bool IsZoom(FieldArray fields, std::int16_t index)
{
    return SetOf(fields) != FieldSet::Param && static_cast<std::size_t>(index) + 1 == fields.size();
}

// --- focus ------------------------------------------------------------------------------------------------

void ParamFieldArrived(std::int16_t index)
{
    SelectWholeText(AppState.ParamText[static_cast<std::size_t>(index)]);
    HighlightParameter(static_cast<std::int16_t>(index + 1));
    AppState.FieldMode = ModeNone;
    AppState.CurrentField = index;
}

void CuttingFieldArrived(std::int16_t index)
{
    HighlightField(AppState.TextCutting, AppState.LabelCuttingColor, index, -1);
    CuttingFieldEntered(index);
}

void NestingFieldArrived(std::int16_t index)
{
    if (index != FieldSimulation) {
        StopSimulation();
    }
    const bool sheet = index == FieldSheetX || index == FieldSheetY;
    const auto count = static_cast<std::int16_t>(sheet ? index + LabelCountX : -1);
    HighlightField(AppState.TextNesting, AppState.LabelNestingColor, index, count);
    NestingFieldEntered(index);
}

// --- keys -------------------------------------------------------------------------------------------------

/// Number of the function key that a key in the Zoom field stands for, 0 for none.
std::int16_t ZoomNumber(std::int16_t keyCode)
{
    switch (keyCode) {
    case KeyEnter:
        return NumberZoomOk;
    case KeyDown:
        return NumberZoomDown;
    case KeyUp:
        return NumberZoomUp;
    case KeyLeft:
        return NumberZoomLeft;
    case KeyRight:
        return NumberZoomRight;
    default:
        return 0;
    }
}

/// The field before; from the first one to the last but Zoom.
std::int16_t FieldBefore(FieldArray fields, std::int16_t index)
{
    return static_cast<std::int16_t>(index == 0 ? static_cast<std::int16_t>(fields.size()) - 2 : index - 1);
}

void MoveToField(FieldArray fields, std::int16_t from, std::int16_t to)
{
    FocusField(fields[static_cast<std::size_t>(to)]);
    if (SetOf(fields) == FieldSet::Cutting) {
        EndCuttingEntry(from);
    } else {
        EndNestingEntry(from);
    }
}

/// Up from the first parameter goes to the last one shown; where all are shown it stays.
std::int16_t ParamBefore(std::int16_t index)
{
    if (index != 0) {
        return static_cast<std::int16_t>(index - 1);
    }
    const auto hidden = std::find_if(AppState.ParamText.begin() + 1, AppState.ParamText.end(),
                                     [](const ValueField& field) { return field.Visible == FlagOff; });
    if (hidden == AppState.ParamText.end()) {
        return 0;
    }
    return static_cast<std::int16_t>(hidden - AppState.ParamText.begin() - 1);
}

std::int16_t ParamAfter(std::int16_t index)
{
    const auto next = static_cast<std::size_t>(index) + 1;
    const bool shown = next < AppState.ParamText.size() && AppState.ParamText[next].Visible != FlagOff;
    return shown ? static_cast<std::int16_t>(next) : std::int16_t{0};
}

void ParamFieldKey(std::int16_t index, std::int16_t keyCode, std::int16_t shift)
{
    switch (keyCode) {
    case KeyEnter:
    case KeyDown:
        FocusField(AppState.ParamText[static_cast<std::size_t>(ParamAfter(index))]);
        break;
    case KeyUp:
        FocusField(AppState.ParamText[static_cast<std::size_t>(ParamBefore(index))]);
        break;
    default:
        KeyDispatcher(keyCode, shift);
        break;
    }
}
} // namespace

void SelectWholeText(const ValueField& field)
{
    const auto isCharacter = [](char byte) { return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U; };
    const auto length = std::count_if(field.Text.begin(), field.Text.end(), isCharacter);
    SelectFieldText(field, 0, static_cast<std::int32_t>(length));
}

void FieldArrived(FieldArray fields, std::int16_t index)
{
    const FieldSet set = SetOf(fields);
    switch (set) {
    case FieldSet::Cutting:
        CuttingFieldArrived(index);
        break;
    case FieldSet::Nesting:
        NestingFieldArrived(index);
        break;
    case FieldSet::Param:
        ParamFieldArrived(index);
        break;
    default:
        return;
    }
    AppState.FocusedSet = set;
    RefreshKeyBar();
}

void EnterField(FieldArray fields, std::int16_t index)
{
    FocusField(fields[static_cast<std::size_t>(index)]);
    if (AppState.FocusedSet != SetOf(fields) || AppState.CurrentField != index) {
        FieldArrived(fields, index);
    }
}

void FieldGone(FieldArray fields, std::int16_t index)
{
    const FieldSet set = SetOf(fields);
    if (set != FieldSet::None && AppState.FocusedSet == set && AppState.CurrentField == index) {
        LeaveFocusedField();
    }
}

void LeaveFocusedField()
{
    const FieldSet set = AppState.FocusedSet;
    const std::int16_t index = AppState.CurrentField;
    AppState.FocusedSet = FieldSet::None;
    if (set == FieldSet::Cutting) {
        CuttingFieldLeft(index);
    } else if (set == FieldSet::Nesting) {
        NestingFieldLeft(index);
        if (index == FieldSimulation) {
            StopSimulation();
        }
    }
    AppState.ButtonPressed = FlagOff;
}

void ValueFieldKey(FieldArray fields, std::int16_t index, std::int16_t keyCode, std::int16_t shift)
{
    const FieldSet set = SetOf(fields);
    if (set == FieldSet::Param) {
        ParamFieldKey(index, keyCode, shift);
        return;
    }
    const Picture picture = PictureOf(set);
    if (IsZoom(fields, index) && ZoomNumber(keyCode) != 0) {
        ApplyFunctionKey(ZoomNumber(keyCode), fields, picture, shift);
        return;
    }
    switch (keyCode) {
    case KeyEnter:
    case KeyDown:
        MoveToField(fields, index, NextField(index, static_cast<std::int16_t>(fields.size())));
        break;
    case KeyUp:
        MoveToField(fields, index, FieldBefore(fields, index));
        break;
    default:
        KeyDispatcher(keyCode, shift, fields, picture);
        break;
    }
}
