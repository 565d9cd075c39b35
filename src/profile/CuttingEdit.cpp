// The lead fields and keys of the Cutting screen, one profile at a time.
#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "profile/ProfileSlots.h"
#include "shell/ValueFields.h"

#include <algorithm>

namespace
{
constexpr double StartMoveStep = 10.0;
constexpr double LargestMoveStep = 99999.0; ///< of the field
constexpr double LongestLead = 99999.0;     ///< a text beyond any sheet is cut to this
constexpr double BeyondElement = 1.0;       ///< how far into the next element a lead goes

/// One lead field: where its value and its flag live, and the setting that remembers it.
struct LeadFieldRow {
    CuttingField Field;
    double ProfileRecord::*Value;
    Flag ProfileRecord::*On;
    const char* Key;
};

constexpr LeadFieldRow LeadFields[] = {
    // field          value                          flag                           setting
    {FieldLeadInA, &ProfileRecord::LeadInLength, &ProfileRecord::LeadInLineOn, "L_In"},
    {FieldLeadInB, &ProfileRecord::LeadInRadius, &ProfileRecord::LeadInArcOn, "L_InRd"},
    {FieldLeadOutD, &ProfileRecord::LeadOutRadius, &ProfileRecord::LeadOutArcOn, "L_OutRd"},
    {FieldLeadOutC, &ProfileRecord::LeadOutLength, &ProfileRecord::LeadOutLineOn, "L_Out"},
};

ValueField& FieldOf(const LeadFieldRow& row)
{
    return AppState.TextCutting[static_cast<std::size_t>(row.Field)];
}

/// Makes sure that a profile is selected, the one of the field "Profile nr." when there was none. False when the part
/// has no such profile; `span` is that of the current one otherwise.
bool SelectSome(ProfileSpan& span)
{
    if (AppState.CurrentProfile == 0) {
        SelectProfile(RoundAndClampToInt32(FieldNumber(AppState.TextCutting[FieldProfileNumber])), FlagOff);
    }
    return FindSpan(AppState.CurrentProfile, span);
}

void TakeLeadField(const LeadFieldRow& row, ProfileRecord& record, bool open)
{
    const double value = std::min(FieldNumber(FieldOf(row)), LongestLead);
    if (!(value > 0.0) || (open && AppState.OpenShapePart != FlagOff)) {
        record.*row.On = FlagOff;
        record.*row.Value = 0.0;
        return;
    }
    record.*row.On = FlagOn;
    record.*row.Value = value;
    WriteConfig("Lead_CONFIG", row.Key, PlainNumber(value));
}
} // namespace

bool SelectProfile(std::int32_t number, Flag redraw)
{
    std::int32_t selected = number;
    if (number < 1) {
        selected = AppState.ProfileCount;
    } else if (number > AppState.ProfileCount) {
        selected = std::min(AppState.ProfileCount, std::int32_t{1});
    }
    AppState.CurrentProfile = selected;
    if (redraw != FlagOff) {
        ShowProfileFields();
        RedrawScreen(FlagOff);
    }
    return selected != number;
}

void ShowProfileFields()
{
    ProfileSpan span;
    if (SelectSome(span)) {
        const ProfileRecord& record = RecordAt(AppState.CurrentProfile);
        for (const LeadFieldRow& row : LeadFields) {
            SetText(FieldOf(row), record.*row.On == FlagOff ? "0" : FormatNumber(record.*row.Value, 1, 2));
        }
    }
    if (AppState.MoveStep == 0.0) {
        AppState.MoveStep = StartMoveStep;
    }
    SetText(AppState.TextCutting[FieldMoveStep], FormatNumber(AppState.MoveStep, 1, 1));
}

void ApplyLeadValues()
{
    ProfileSpan span;
    if (!SelectSome(span)) {
        return;
    }
    ProfileRecord& record = RecordAt(AppState.CurrentProfile);
    for (const LeadFieldRow& row : LeadFields) {
        TakeLeadField(row, record, span.Open);
    }
    const double step = std::min(FieldNumber(AppState.TextCutting[FieldMoveStep]), LargestMoveStep);
    AppState.MoveStep = step > 0.0 ? step : StartMoveStep;
    ShowProfileFields();
    RedrawScreen(FlagOff);
}

void MoveLead(std::int16_t direction)
{
    ProfileSpan span;
    if (!SelectSome(span)) {
        return;
    }
    ProfileRecord& record = RecordAt(AppState.CurrentProfile);
    record.LeadPosition += direction * AppState.MoveStep;
    if (record.LeadPosition >= record.ProfileLength) {
        record.LeadPosition -= record.ProfileLength;
    }
    if (record.LeadPosition < 0.0) {
        record.LeadPosition += record.ProfileLength;
    }
    RedrawScreen(FlagOff);
}

void MoveLeadNextElement()
{
    ProfileSpan span;
    if (!SelectSome(span)) {
        return;
    }
    ProfileRecord& record = RecordAt(AppState.CurrentProfile);
    const bool found = record.LeadElement >= span.First && record.LeadElement < span.Mark;
    double sum = 0.0;
    for (std::int32_t slot = found ? record.LeadElement : span.First; slot >= span.First; --slot) {
        sum += ElementAt(slot).Length;
    }
    record.LeadPosition = sum + BeyondElement;
    if (record.LeadPosition > record.ProfileLength) {
        record.LeadPosition = 0.0;
    }
    RedrawScreen(FlagOff);
}

void CopyLeadsToAll()
{
    ProfileSpan span;
    if (!SelectSome(span)) {
        return;
    }
    const ProfileRecord from = RecordAt(AppState.CurrentProfile);
    for (std::size_t i = 1; i < AppState.ProfileTable.size(); ++i) {
        ProfileRecord& to = AppState.ProfileTable[i];
        to.LeadInLength = from.LeadInLength;
        to.LeadInAngle = from.LeadInAngle;
        to.LeadInLineOn = from.LeadInLineOn;
        to.LeadInRadius = from.LeadInRadius;
        to.LeadInSpare = from.LeadInSpare;
        to.LeadInArcOn = from.LeadInArcOn;
        to.LeadOutLength = from.LeadOutLength;
        to.LeadOutAngle = from.LeadOutAngle;
        to.LeadOutLineOn = from.LeadOutLineOn;
        to.LeadOutRadius = from.LeadOutRadius;
        to.LeadOutSpare = from.LeadOutSpare;
        to.LeadOutArcOn = from.LeadOutArcOn;
        to.Status = from.Status;
    }
}

void ChangeProfilePath()
{
    ProfileSpan span;
    if (!SelectSome(span) || (span.Open && AppState.OpenShapePart != FlagOff)) {
        return;
    }
    ToggleProfileSense(AppState.CurrentProfile);
    RedrawScreen(FlagOff);
}
