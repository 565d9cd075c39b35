#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Screen.h"
#include "post/Simulation.h"
#include "profile/Korvanta_Common.h"
#include "shell/FieldEvents.h"
#include "shell/FieldModes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "shell/Zoom.h"

namespace
{
/// FieldMode of each field.
constexpr std::int32_t NestingModes[NestingFieldCount] = {
    ModeSheet,      // X Sheet
    ModeSheet,      // Y Sheet
    ModeStep,       // Kerf
    ModeStep,       // X Gap
    ModeStep,       // Y Gap
    ModeNestType,   // Nesting
    ModeSimulation, // Simulation
    ModeNone,       // Zoom: ApplyZoom sets ModeZoom
};

ValueField& Field(std::int16_t index)
{
    return AppState.TextNesting[static_cast<std::size_t>(index)];
}

void Validate(std::int16_t index)
{
    ValidateFieldAt(AppState.TextNesting, index, FieldNumber(Field(index)));
}

/// A second digit takes the place of the first, so typing one is enough.
void ChangeNestType()
{
    ValueField& field = Field(FieldNestType);
    if (field.Text.size() > 1) {
        SetText(field, field.Text.substr(field.Text.size() - 1)); // comes back here with the one character
        return;
    }
    Validate(FieldNestType);
    RedrawScreen(FlagOn);
    SelectWholeText(field);
    Yield();
}

/// Applies a changed sheet, else changed gaps. False when nothing was changed.
bool ApplyChanges(std::int16_t index)
{
    if (AppState.SheetFieldChanged != FlagOff) {
        ApplySheetEntries(index);
    } else if (AppState.NestFieldTouched != FlagOff) {
        RebuildNest();
    } else {
        return false;
    }
    return true;
}

void RunZoom(ZoomStep step)
{
    ApplyZoom(Picture::Nesting, step, FieldNumber(Field(FieldNestingZoom)));
}
} // namespace

void NestingFieldChanged(std::int16_t index)
{
    switch (index) {
    case FieldSheetX:
    case FieldSheetY:
        AppState.SheetFieldChanged = FlagOn;
        break;
    case FieldKerf:
    case FieldGapX:
    case FieldGapY:
        AppState.NestFieldTouched = FlagOn;
        break;
    case FieldNestType:
        ChangeNestType();
        break;
    case FieldNestingZoom:
        Validate(index);
        RunZoom(ZoomStep::Change);
        break;
    default: // Simulation
        Validate(index);
        ApplySimulationSpeed();
        break;
    }
}

void NestingFieldEntered(std::int16_t index)
{
    AppState.SheetFieldChanged = FlagOff;
    AppState.NestFieldTouched = FlagOff;
    SelectWholeText(Field(index));
    AppState.CurrentField = index;
    if (index == FieldNestingZoom) {
        RunZoom(ZoomStep::Enter);
    } else {
        AppState.FieldMode = NestingModes[index];
    }
}

void NestingFieldLeft(std::int16_t index)
{
    if (index == FieldNestingZoom) {
        if (AppState.ButtonPressed == FlagOff) {
            RunZoom(ZoomStep::Confirm);
        }
    } else if (index != FieldSimulation && ApplyChanges(index)) {
        RedrawScreen(FlagOn);
    }
    AppState.ButtonPressed = FlagOff;
}

void EndNestingEntry(std::int16_t index)
{
    Validate(index);
    if (index == FieldNestingZoom) {
        return;
    }
    if (AppState.SheetFieldChanged != FlagOff) {
        Yield();
    }
    RedrawScreen(ToFlag(ApplyChanges(index))); // the view of a nest that stays is left as it is
    // What a fixed count wrote into the sheet just now is no entry in the field that has the focus.
    AppState.SheetFieldChanged = FlagOff;
    AppState.NestFieldTouched = FlagOff;
}

std::int16_t NextField(std::int16_t index, std::int16_t fieldCount)
{
    const auto last = static_cast<std::int16_t>(fieldCount - 1); // Zoom
    const auto next = static_cast<std::int16_t>(index + 1);
    return next < last ? next : std::int16_t{0};
}
