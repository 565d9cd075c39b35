// What a redraw of the Cutting and Nesting screens does to the numbers: layout, fit of the view, and the statistics
// walk that finds the lead points.
#include "nesting/Korvanta_CutTecnology.h"
#include "nesting/NestNumbers.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"

#include <algorithm>
#include <limits>

namespace
{
void LayOutScene(Flag fit)
{
    AppState.PartSizeX = AppState.MaxX - AppState.MinX;
    AppState.PartSizeY = AppState.MaxY - AppState.MinY;
    if (AppState.PartSizeX < Tolerance && AppState.PartSizeY < Tolerance) {
        return;
    }
    ComputeLayout();
    if (fit == FlagOff) {
        return;
    }
    if (AppState.ScreenState == ScreenNesting) {
        FitView(NestNumber(FieldSheetX), NestNumber(FieldSheetY));
    } else {
        FitView(0.0, 0.0);
    }
}

/// Each drawn copy builds the leads of each profile. All that outlives this is the lead point, in Status, LeadElement
/// and LeadPosition of the records, and LeadPosition is written in one case only: when it lies past the end of the
/// contour it becomes half the length of the last element. The first copy may do that and still leave the lead
/// in the middle of the last element; the second finds the half length as a plain distance from the first point. That
/// lies on the contour (no contour is shorter than half its last element), or is 0 on a contour without length,
/// which writes 0 again. From then on the input of the search stays the same, so a third copy leaves what the second
/// left, and the rest only need counting.
void WalkStatistics()
{
    constexpr std::int64_t CopiesThatMatter = 2;
    const bool nesting = AppState.ScreenState == ScreenNesting;
    const double kerf = NestNumber(FieldKerf);
    const double originX = nesting ? kerf + NestNumber(FieldGapX) / 2 : 0.0;
    const double originY = nesting ? kerf + NestNumber(FieldGapY) / 2 : 0.0;
    const std::int64_t copies = CountCopies(originX, originY);
    for (std::int64_t copy = 0; copy < std::min(copies, CopiesThatMatter); ++copy) {
        for (std::int32_t profile = 1; profile <= AppState.ProfileCount; ++profile) {
            LeadRecordArray leads;
            BuildLeads(leads, profile);
        }
    }
    constexpr std::int64_t Most = std::numeric_limits<std::int32_t>::max();
    AppState.CopiesDrawn = static_cast<std::int32_t>(std::min(copies, Most));
}
} // namespace

void RedrawCurrent(Flag fit)
{
    if (AppState.ScreenState != ScreenCutting && AppState.ScreenState != ScreenNesting) {
        return;
    }
    LayOutScene(fit);
    WalkStatistics();
}
