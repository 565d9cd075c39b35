#include "config/Korvanta_Utility.h"
#include "import/Korvanta_DxfIn.h"
#include "import/Korvanta_IsoIn.h"
#include "jobfiles/JobFiles.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "profile/Korvanta_Common.h"
#include "profile/Korvanta_ProfileCut.h"
#include "shapes/Korvanta_Develop.h"
#include "shapes/Korvanta_Parameters.h"
#include "shell/FieldEvents.h"
#include "shell/FieldModes.h"
#include "shell/InputEvents.h"
#include "shell/InputLists.h"
#include "shell/KeyBar.h"
#include "shell/Korvanta_Interface.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"

namespace
{
constexpr int MessageFailed = 34;
constexpr int MessageImport = 38;

/// What stands behind a part for a start, beside the program; shown when the file is there.
constexpr const char* LogoName = "\\IMAGES\\LOGO.BMP";

/// The pictures and frames of the CAM screens: of each group the one of `screen` is shown.
void ShowCamPanels(std::int16_t screen)
{
    ShowPanel(Panel::PicParam, screen == ScreenParameters);
    ShowPanel(Panel::FrameValue, screen == ScreenParameters);
    ShowPanel(Panel::TecnoPic, screen == ScreenCutting);
    ShowPanel(Panel::FrameCutting, screen == ScreenCutting);
    ShowPanel(Panel::NestingPic, screen == ScreenNesting);
    ShowPanel(Panel::FrameNesting, screen == ScreenNesting);
}

void ShowCamTabs()
{
    ShowPanel(Panel::TabInput, false);
    ShowPanel(Panel::TabCam, true);
}

void ShowImportFailure()
{
    bool result = false;
    ShowBox(MessageText(MessageFailed), MessageText(MessageImport), "", false, result);
}

/// What stood on the picture of another screen isn't on this one's.
void StartPicture()
{
    AppState.ZoomFrame = 0.0;
    AppState.MeasureOn = FlagOff;
}

/// The control of the screen before is hidden, and no other one takes the focus from it.
void LeaveHiddenControl()
{
    if (AppState.FocusedSet == FieldSet::FileName) {
        FileNameLeft();
    }
    AppState.FocusedSet = FieldSet::None;
}

/// A new part begins with its first profile, whatever the field shows of the part before it.
void SelectFirstProfile()
{
    const bool developed = AppState.ShapeId > 0;
    if (AppState.ProfileCount == 0) {
        return;
    }
    if (AppState.CurrentProfile == 0 || developed) {
        SelectProfile(1, FlagOff);
    }
    SetText(AppState.TextCutting[FieldProfileNumber], std::to_string(AppState.CurrentProfile));
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
    SetCamTabIcons();
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
    SetCamTabIcons();
    EnterCamTab(TabParameters);
}

void OpenSavedJob(const std::string& name)
{
    ResetFieldsForPart();
    AppState.JobName = name;
    AppState.SourceName = AppState.JobName;
    LoadJob(name);
    ShowShapeParameters(AppState.ShapeId, FlagOff); // the fields hold what was saved
    SetCamTabIcons();
    EnterCamTab(TabParameters);
}

void ShowPanel(Panel panel, bool visible)
{
    AppState.PanelVisible[static_cast<std::size_t>(panel)] = ToFlag(visible);
}

void EnterCamTab(std::int16_t tab)
{
    if (tab < TabParameters || tab >= CamTabCount) {
        return;
    }
    // Straight from Parameters to Nesting, by a click: the nest is that of the part that the parameters tell.
    const bool fromParameters = AppState.ScreenState == ScreenParameters;
    AppState.CamTab = tab;
    switch (tab) {
    case TabParameters:
        EnterParametersScreen();
        if (AppState.ScreenState != ScreenParameters) {
            return;
        }
        if (AppState.ShapeId == 0) {
            DrawScene(Picture::Param, FlagOn, FlagOff, FlagOff);
            PreviewCaption(Picture::Param, 0);
        }
        break;
    case TabCutting:
        EnterCuttingScreen(AppState.PreviousCamTab != TabNesting);
        break;
    case TabNesting:
        if (fromParameters && !PreparePart()) {
            EnterParametersScreen();
            AppState.PreviousCamTab = TabParameters; // the next way to Cutting builds anew
            return;
        }
        EnterNestingScreen();
        break;
    default:
        break;
    }
    AppState.PreviousCamTab = tab;
}

void NextCamTab()
{
    EnterCamTab(static_cast<std::int16_t>((AppState.CamTab + 1) % CamTabCount));
}

void PreviousCamTab()
{
    EnterCamTab(static_cast<std::int16_t>((AppState.CamTab + CamTabCount - 1) % CamTabCount));
}

void EnterInputScreen()
{
    AppState.ScreenState = ScreenInput;
    AppState.FieldMode = ModeNone;
    AppState.FocusedSet = FieldSet::None;
    ShowPanel(Panel::TabInput, true);
    ShowPanel(Panel::TabCam, false);
    RefreshKeyBar();
    ClearNestResults();
    AppState.SaveMode = FlagOff;
    AppState.PreviewNest = FlagOff;
    SetText(AppState.TextFileName, "");
    SetTabIcons();
}

void EnterParametersScreen()
{
    AppState.ScreenState = ScreenParameters;
    AppState.CamTab = TabParameters;
    ShowCamPanels(ScreenParameters);
    const std::string logo = AppState.AppPath + LogoName;
    AppState.LogoFile = FileExists(logo) ? logo : "";
    Yield();
    if (AppState.ScreenState != ScreenParameters) {
        return; // a key has gone on meanwhile
    }
    if (AppState.ShapeId > 0) {
        EnterField(AppState.ParamText, 0);
    } else {
        LeaveHiddenControl();
        AppState.FieldMode = ModeNone; // no field has the focus
    }
    RefreshKeyBar();
}

void EnterCuttingScreen(bool rebuild)
{
    AppState.ScreenState = ScreenCutting;
    StartPicture();
    ShowCamTabs();
    RefreshKeyBar();
    if (rebuild && !PreparePart()) {
        EnterParametersScreen();
        return;
    }
    ShowCamPanels(ScreenCutting);
    ShowProfileFields();
    RedrawScreen(FlagOn);
    EnterField(AppState.TextCutting, FieldAngle);
    SetCamTabIcons();
}

void EnterNestingScreen()
{
    AppState.ScreenState = ScreenNesting;
    StartPicture();
    ShowCamTabs();
    RefreshKeyBar();
    RunNesting();
    ShowCamPanels(ScreenNesting);
    EnterField(AppState.TextNesting, FieldSheetX);
    SetCamTabIcons();
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
