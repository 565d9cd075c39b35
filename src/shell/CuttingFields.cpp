#include "config/Korvanta_Utility.h"
#include "platform/Screen.h"
#include "profile/Korvanta_Common.h"
#include "shell/FieldEvents.h"
#include "shell/FieldModes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "shell/Zoom.h"

namespace
{
/// FieldMode of each field.
constexpr std::int32_t CuttingModes[CuttingFieldCount] = {
    ModeAngle,   // Angle
    ModeMirror,  // Mirror
    ModeStep,    // Scale
    ModeProfile, // Profile nr.
    ModeLead,    // Move Step
    ModeLead,    // LeadIn : A
    ModeLead,    // LeadIn : B
    ModeLead,    // LeadOut : C
    ModeLead,    // LeadOut : D
    ModeNone,    // Zoom: ApplyZoom sets ModeZoom
};

ValueField& Field(std::int16_t index)
{
    return AppState.TextCutting[static_cast<std::size_t>(index)];
}

void Validate(std::int16_t index)
{
    ValidateFieldAt(AppState.TextCutting, index, FieldNumber(Field(index)));
}

void ChangeTransform()
{
    ApplyTransform(FieldNumber(Field(FieldAngle)), RoundAndClampToInt16(FieldNumber(Field(FieldMirror))),
                   FieldNumber(Field(FieldScale)), FlagOn);
}

/// Selects the typed profile. Past an end the number of the one that came instead is shown, selected.
void ChangeProfile()
{
    if (AppState.ProfileCount == 0) {
        return;
    }
    ValueField& field = Field(FieldProfileNumber);
    const bool wrapped = SelectProfile(RoundAndClampToInt32(FieldNumber(field)), FlagOn);
    SetText(field, PlainNumber(AppState.CurrentProfile));
    const auto length = static_cast<std::int32_t>(field.Text.size());
    SelectFieldText(field, wrapped ? 0 : length, wrapped ? length : 0);
}

void RunZoom(ZoomStep step)
{
    ApplyZoom(Picture::Tecno, step, FieldNumber(Field(FieldCuttingZoom)));
}
} // namespace

void CuttingFieldChanged(std::int16_t index)
{
    switch (index) {
    case FieldAngle:
    case FieldMirror:
    case FieldScale:
        ChangeTransform();
        break;
    case FieldProfileNumber:
        ChangeProfile();
        break;
    case FieldCuttingZoom:
        Validate(index);
        RunZoom(ZoomStep::Change);
        break;
    default:
        break;
    }
}

void CuttingFieldEntered(std::int16_t index)
{
    SelectWholeText(Field(index));
    AppState.CurrentField = index;
    if (index == FieldCuttingZoom) {
        RunZoom(ZoomStep::Enter);
    } else {
        AppState.FieldMode = CuttingModes[index];
    }
}

void CuttingFieldLeft(std::int16_t index)
{
    if (index >= FieldMoveStep && index <= FieldLeadOutD) {
        Validate(index);
        ApplyLeadValues();
    } else if (index == FieldCuttingZoom && AppState.ButtonPressed == FlagOff) {
        RunZoom(ZoomStep::Confirm);
    }
    AppState.ButtonPressed = FlagOff;
}

void EndCuttingEntry(std::int16_t index)
{
    Validate(index);
}
