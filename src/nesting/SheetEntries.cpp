// From the entries of the Nesting screen to the counts, gaps and sheet sizes in force.
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"
#include "platform/Fault.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shell/ValueFields.h"

#include <algorithm>
#include <cmath>

namespace
{
constexpr std::int16_t FirstNestType = 1;
constexpr std::int16_t LastNestType = 4;
constexpr double SmallestPitch = 1e-6; ///< what rounding may leave of a pitch of 0

double BoxX()
{
    return std::fabs(AppState.MaxX - AppState.MinX);
}

double BoxY()
{
    return std::fabs(AppState.MaxY - AppState.MinY);
}

/// Height of a row by the nest type, as a part of the copy's own height.
double RowFactor()
{
    return AppState.NestKind < FirstStaggeredType ? 1.0 : Stagger;
}

void CheckPitch(double pitch, const char* axis)
{
    if (std::fabs(pitch) < SmallestPitch) {
        throw RunTimeFault(std::string("nest: the gap in ") + axis +
                           " puts every copy on the same place (the distance from copy to copy is 0)");
    }
}

void SetNumber(NestingField field, double value)
{
    SetText(NestField(field), FormatNumber(value));
}

/// One sheet entry: "*n", and never below one cell.
void ApplyEntry(NestingField field, NestingField label, double pitch, bool entered, std::int32_t& fixedCount)
{
    std::int32_t count = 0;
    SetText(NestField(field), ParseCountEntry(NestField(field).Text, pitch, count));
    if (count > 0) {
        fixedCount = count;
        AppState.LabelNesting[static_cast<std::size_t>(label)] = std::to_string(count);
    } else if (count == 0 && entered) {
        fixedCount = 0;
    }
    if (NestNumber(field) < pitch) {
        SetNumber(field, pitch);
    }
}

std::int32_t AtLeastOne(std::int32_t count)
{
    return std::max(count, std::int32_t{1});
}
} // namespace

void RunNesting()
{
    AppState.NestKind = RoundAndClampToInt16(FieldNumber(NestField(FieldNestType)));
    ComputeBounds();
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
    // One Kerf here, two in ApplySheetEntries: the sheet of an untouched entry may be narrower than one cell.
    const double leastX = AppState.PartSizeX + NestNumber(FieldGapX) + NestNumber(FieldKerf);
    if (leastX > NestNumber(FieldSheetX)) {
        SetNumber(FieldSheetX, leastX);
    }
    const double leastY = AppState.PartSizeY + NestNumber(FieldGapY) + NestNumber(FieldKerf);
    if (leastY > NestNumber(FieldSheetY)) {
        SetNumber(FieldSheetY, leastY);
    }
    RebuildNest();
    AppState.CurrentProfile = 0;
    RedrawScreen(FlagOn);
}

void RebuildNest()
{
    const double kerf = NestNumber(FieldKerf);
    if (AppState.NestResultX > 0) {
        SetNumber(FieldSheetX, AppState.NestResultX * (BoxX() + NestNumber(FieldGapX) + 2 * kerf));
    }
    if (AppState.NestResultY > 0) {
        const double gap = NestNumber(FieldGapY);
        SetNumber(FieldSheetY, AppState.NestResultY * (BoxY() + gap + kerf) * RowFactor() + gap);
    }
    AppState.NestFieldTouched = FlagOff;
}

std::string ParseCountEntry(const std::string& text, double pitch, std::int32_t& count)
{
    count = 0;
    if (text.empty() || text[0] != '*') {
        return text;
    }
    CheckPitch(pitch, "X or Y");
    count = CutAndClampToInt32(TextToNumber(std::string_view(text).substr(1)));
    return FormatNumber(std::ceil(count * pitch));
}

void ApplySheetEntries(std::int16_t field)
{
    const double kerf = NestNumber(FieldKerf);
    ApplyEntry(FieldSheetX, LabelCountX, BoxX() + NestNumber(FieldGapX) + 2 * kerf, field == FieldSheetX,
               AppState.NestResultX);
    ApplyEntry(FieldSheetY, LabelCountY, BoxY() + NestNumber(FieldGapY) + 2 * kerf, field == FieldSheetY,
               AppState.NestResultY);
    if (AppState.NestResultX == 0) {
        AppState.LabelNesting[LabelCountX].clear();
    }
    if (AppState.NestResultY == 0) {
        AppState.LabelNesting[LabelCountY].clear();
    }
}

void ComputeLayout()
{
    if (!ShowsNest()) {
        AppState.CountX = AppState.CountY = 1;
        AppState.GapX = AppState.GapY = 0.0;
        return;
    }
    AppState.NestKind =
        std::clamp(RoundAndClampToInt16(NestNumber(FieldNestType)), FirstNestType, LastNestType);
    const double kerf = NestNumber(FieldKerf);
    AppState.GapX = NestNumber(FieldGapX) + 2 * kerf;
    AppState.GapY = NestNumber(FieldGapY) + 2 * kerf;

    const double pitchX = AppState.PartSizeX + AppState.GapX;
    CheckPitch(pitchX, "X");
    const double columns = NestNumber(FieldSheetX) / pitchX;
    // A sheet made from a fixed count is a whole number of columns but for the rounding of its text.
    AppState.CountX =
        AtLeastOne(AppState.NestResultX == 0 ? CutAndClampToInt32(columns) : RoundAndClampToInt32(columns));
    AppState.LabelNesting[LabelCountX] = std::to_string(AppState.CountX);

    const double pitchY = AppState.PartSizeY * RowFactor() + AppState.GapY;
    if (AppState.NestResultY > 0) {
        CheckPitch(AppState.PartSizeY + AppState.GapY, "Y"); // of the program: nothing here divides by it
        SetNumber(FieldSheetY, std::trunc((AppState.NestResultY - 1) * pitchY + AppState.PartSizeY +
                                          2 * NestNumber(FieldGapY)));
        AppState.CountY = AppState.NestResultY;
    } else {
        CheckPitch(pitchY, "Y");
        AppState.CountY = AtLeastOne(CutAndClampToInt32(NestNumber(FieldSheetY) / pitchY));
    }
    AppState.LabelNesting[LabelCountY] = std::to_string(AppState.CountY);
}
