#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "nesting/Korvanta_CutTecnology.h"
#include "shell/InputEvents.h"
#include "shell/KeyBar.h"
#include "shell/Korvanta_Interface.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "shell/Zoom.h"

namespace
{
/// One caption: a message of the catalogue and what stands behind it.
struct CaptionRow {
    int Message;
    const char* Suffix;
};

constexpr CaptionRow CuttingCaptions[CuttingFieldCount] = {
    {14, ""},    // Angle
    {15, ""},    // Mirror
    {16, ""},    // Scale
    {18, ""},    // Profile nr.
    {19, ""},    // Move Step
    {20, ": A"}, // LeadIn
    {21, ": B"}, // LeadIn
    {22, ": C"}, // LeadOut
    {23, ": D"}, // LeadOut
    {24, ""},    // Zoom
};

constexpr int NestingCaptions[NestingFieldCount] = {
    25, // X Sheet
    26, // Y Sheet
    27, // Kerf
    28, // X Gap
    29, // Y Gap
    30, // Nesting
    31, // Simulation
    24, // Zoom
};

/// Tabs Programs, Rectangular, Circular, Holes; the imports bear the names of what they read.
constexpr int FirstInputCaption = 5;
constexpr std::size_t CatalogueTabs = 4;
constexpr int FirstCamCaption = 11;
constexpr int FileNameCaption = 33;

void SetChangeRoutines()
{
    AppState.TextFileName.Change = FileNameChanged;
    for (ValueField& field : AppState.TextCutting) {
        field.Change = CuttingFieldChanged;
    }
    for (ValueField& field : AppState.TextNesting) {
        field.Change = NestingFieldChanged;
    }
}
} // namespace

void StartStation(const std::string& stationFolder, std::int16_t language)
{
    LoadStation(stationFolder);
    AppState.Language =
        language != 0 ? language : RoundAndClampToInt16(TextToNumber(ReadConfig("SETUP", "LANGUAGE", "1")));
    PrepareScreens();
}

void LoadStation(const std::string& stationFolder)
{
    AppState.ProgramName = "Korvanta";
    AppState.AppPath = stationFolder;
    LoadConfiguration();
}

void PrepareScreens()
{
    ResetFields();
    SetChangeRoutines();
    SetCaptions();
    AppState.Redraw = RedrawScene;
    AppState.RefreshKeys = RefreshKeyBar;
}

void SetCaptions()
{
    for (std::size_t i = 0; i < CuttingFieldCount; ++i) {
        AppState.LabelCutting[i] = MessageText(CuttingCaptions[i].Message) + CuttingCaptions[i].Suffix;
    }
    for (std::size_t i = 0; i < NestingFieldCount; ++i) {
        AppState.LabelNesting[i] = MessageText(NestingCaptions[i]);
    }
    for (std::size_t i = 0; i < CatalogueTabs; ++i) {
        AppState.InputTabCaption[i] = MessageText(FirstInputCaption + static_cast<int>(i));
    }
    AppState.InputTabCaption[TabDxfIn] = " DXF-IN";
    AppState.InputTabCaption[TabIsoIn] = " ISO-IN";
    for (std::size_t i = 0; i < CamTabCount; ++i) {
        AppState.CamTabCaption[i] = MessageText(FirstCamCaption + static_cast<int>(i));
    }
    AppState.LabelFileName = MessageText(FileNameCaption);
}

void ResetFieldsForPart()
{
    SetText(AppState.TextCutting[FieldAngle], "0");
    SetText(AppState.TextCutting[FieldMirror], "0");
    SetText(AppState.TextCutting[FieldScale], "1");
    SetText(AppState.TextNesting[FieldNestType], "1");
    SetText(AppState.TextNesting[FieldSimulation], ReadConfig("SETUP", "SIMSPEED", "15"));
    AppState.LabelNesting[LabelCountX].clear();
    AppState.LabelNesting[LabelCountY].clear();
    AppState.NestResultX = 0;
    AppState.NestResultY = 0;
    ClearZoom();
    AppState.ShapeId = 0;
    AppState.DevelopedShape = 0;
}
