#include "config/Korvanta_Utility.h"
#include "import/Korvanta_DxfIn.h"
#include "import/Korvanta_IsoIn.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Screen.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/Korvanta_Interface.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

namespace
{
constexpr std::int16_t TabParameters = 0;
constexpr std::int16_t TabCutting = 1;
constexpr std::int16_t TabNesting = 2;
constexpr std::int16_t TabCount = 3;

std::int16_t TabOfScreen()
{
    return static_cast<std::int16_t>(AppState.ScreenState - ScreenParameters);
}

void ShowImportFailure()
{
    bool result = false;
    ShowBox(MessageText(34), MessageText(38), "", false, result);
}

/// A new part begins with its first profile, whatever the field shows of the part before it.
void SelectFirstProfile()
{
    const bool developed = AppState.ShapeId > 0;
    if (AppState.ProfileCount == 0 || (AppState.CurrentProfile != 0 && !developed)) {
        return;
    }
    SelectProfile(1, FlagOff);
    SetText(AppState.TextCutting[FieldProfileNumber], "1");
}

/// The part for the Cutting screen. A shape that was built before from the same opening keeps its leads; a new one
/// starts from the defaults.
bool PreparePart()
{
    AppState.KeepLeadData = ToFlag(AppState.ShapeId > 0 && AppState.DevelopedShape == AppState.ShapeId);
    if (!BuildCurrentPart()) {
        return false;
    }
    AppState.DevelopedShape = AppState.ShapeId;
    InitLeadData();
    SelectFirstProfile();
    return true;
}
} // namespace

bool OpenImport(ImportKind kind, std::string name)
{
    ResetFieldsForPart();
    const bool opened = kind == ImportKind::Drawing ? ImportDxf(name) : ImportIso(name);
    if (!opened) {
        ShowImportFailure();
        EnterInputScreen();
        return false;
    }
    ShowShapeParameters(AppState.ShapeId, FlagOn);
    EnterCamTab(TabParameters);
    return true;
}

void OpenShape(std::int16_t shapeId)
{
    ResetFieldsForPart();
    const ShapeRow* row = FindShape(shapeId);
    if (row == nullptr) {
        return;
    }
    AppState.ShapeId = shapeId;
    AppState.JobName = DashToUnderscore(row->Name);
    AppState.SourceName = AppState.JobName;
    ShowShapeParameters(shapeId, FlagOn);
    EnterCamTab(TabParameters);
}

void EnterCamTab(std::int16_t tab)
{
    switch (tab) {
    case TabParameters:
        EnterParametersScreen();
        break;
    case TabCutting:
        EnterCuttingScreen(AppState.PreviousCamTab != TabNesting);
        break;
    case TabNesting:
        EnterNestingScreen();
        break;
    default:
        return;
    }
    AppState.PreviousCamTab = tab;
}

void NextCamTab()
{
    EnterCamTab(static_cast<std::int16_t>((TabOfScreen() + 1) % TabCount));
}

void PreviousCamTab()
{
    EnterCamTab(static_cast<std::int16_t>((TabOfScreen() + TabCount - 1) % TabCount));
}

void EnterInputScreen()
{
    AppState.ScreenState = ScreenInput;
    AppState.FieldMode = 0;
    ClearNestResults();
}

void EnterParametersScreen()
{
    AppState.ScreenState = ScreenParameters;
    Yield();
    if (AppState.ShapeId > 0) {
        FocusField(AppState.ParamText[0]);
    }
}

void EnterCuttingScreen(bool rebuild)
{
    AppState.ScreenState = ScreenCutting;
    if (rebuild && !PreparePart()) {
        EnterParametersScreen();
        return;
    }
    ShowProfileFields();
    RedrawScreen(FlagOn);
    FocusField(AppState.TextCutting[FieldAngle]);
}

void EnterNestingScreen()
{
    AppState.ScreenState = ScreenNesting;
    RunNesting();
    FocusField(AppState.TextNesting[FieldSheetX]);
}

void ClearNestResults()
{
    SetText(AppState.TextNesting[FieldSheetX], "0");
    SetText(AppState.TextNesting[FieldSheetY], "0");
    AppState.LabelNesting[LabelCountX].clear();
    AppState.LabelNesting[LabelCountY].clear();
    AppState.NestResultX = 0;
    AppState.NestResultY = 0;
}
