#include "shell/KeyBar.h"

#include "shell/FieldModes.h"

#include <algorithm>
#include <array>

namespace
{
constexpr int FirstFieldButton = 2; // F3
constexpr int ScreenCount = 4;

/// The buttons of the Input screen that some of its states leave empty.
constexpr std::size_t ButtonF1 = 0;
constexpr std::size_t ButtonF2 = 1;
constexpr std::size_t ButtonF7 = 6;
constexpr std::size_t ButtonF8 = 7;
constexpr std::size_t ButtonF9 = 8;

/// Image of ImageList_InputState_0 for F9 while a name is asked for: back to the nest.
constexpr std::int16_t ImageBackToNest = 11;

/// Images of ImageList_Common, by what their keys do.
enum CommonImage : std::int16_t {
    Blank,
    ZoomPlus,
    ZoomMinus,
    ZoomRight,
    ZoomLeft,
    ZoomDown,
    ZoomUp,
    PlusKey,
    MinusKey,
    Plus90,
    Minus90,
    NoMirror,
    MirrorX,
    MirrorY,
    MirrorXY,
    ZoomOk,
    MoveLeadPlus,
    MoveLeadMinus,
    NestType1,
    NestType2,
    NestType3,
    NestType4,
    SimStart,
    SimStop,
    MoveLeadNextElement,
    ProfilePathChange,
    PathLeft,
    PathRight,
    CountEntry,
    CopyLeads,
    CommonImageEnd
};
static_assert(CommonImageEnd == 30, "the list holds images 1 to 29");

/// F1 to F10 of each screen: image number, or 0 where the key does nothing or belongs to the focused field.
constexpr std::array<std::array<std::int16_t, KeyButtonCount>, ScreenCount> ScreenImages = {{
    {1, 2, 3, 4, 5, 6, 7, 8, 9, 10}, // Input
    {1, 0, 0, 0, 0, 0, 0, 0, 0, 10}, // Parameters
    {1, 2, 0, 0, 0, 0, 0, 0, 9, 10}, // Cutting
    {1, 2, 0, 0, 0, 0, 0, 8, 9, 10}, // Nesting; F8 simulates
}};

constexpr int MostFieldKeys = 6;
using FieldKeyRow = std::array<CommonImage, MostFieldKeys>;

/// F3 to F8 by FieldMode.
constexpr std::array<FieldKeyRow, ModeCount> FieldKeys = {{
    {},                                                                     // 0
    {PlusKey, MinusKey},                                                    // 1 Scale, Kerf, X Gap, Y Gap
    {PlusKey, MinusKey, Plus90, Minus90},                                   // 2 Angle
    {ZoomPlus, ZoomMinus, ZoomRight, ZoomLeft, ZoomDown, ZoomUp},           // 3 Zoom
    {NoMirror, MirrorY, MirrorX, MirrorXY},                                 // 4 Mirror: code 1 turns Y over
    {PlusKey, MinusKey, MoveLeadPlus, MoveLeadMinus, MoveLeadNextElement},  // 5 Move Step, leads
    {NestType1, NestType2, NestType3, NestType4},                           // 6 Nesting
    {PlusKey, MinusKey, SimStop},                                           // 7 Simulation, while it runs
    {PlusKey, MinusKey, CountEntry},                                        // 8 X Sheet, Y Sheet
    {PlusKey, MinusKey, CopyLeads, ProfilePathChange, PathLeft, PathRight}, // 9 Profile nr.
}};
constexpr std::size_t SimulationKey = 2;

void ShowInputKeys()
{
    if (AppState.InputTab != TabPrograms) {
        AppState.KeyBar[ButtonF7] = {};
        AppState.KeyBar[ButtonF8] = {};
    } else if (AppState.SaveMode != FlagOff) {
        for (const std::size_t button : {ButtonF1, ButtonF2, ButtonF7, ButtonF8}) {
            AppState.KeyBar[button] = {};
        }
        AppState.KeyBar[ButtonF9] = {ImageList::InputState0, ImageBackToNest};
    }
}

void KeyBarForField()
{
    if (AppState.FieldMode < 0 || static_cast<std::size_t>(AppState.FieldMode) >= FieldKeys.size()) {
        return;
    }
    FieldKeyRow row = FieldKeys[static_cast<std::size_t>(AppState.FieldMode)];
    if (AppState.FieldMode == ModeSimulation && AppState.SimRunning == FlagOff) {
        row[SimulationKey] = SimStart;
    }
    for (std::size_t key = 0; key < row.size(); ++key) {
        if (row[key] != Blank) {
            AppState.KeyBar[FirstFieldButton + key] = {ImageList::Common, row[key]};
        }
    }
}
} // namespace

void RefreshKeyBar()
{
    AppState.KeyBar = {};
    if (AppState.ScreenState < ScreenInput || AppState.ScreenState > ScreenNesting) {
        return;
    }
    const auto screen = static_cast<std::size_t>(AppState.ScreenState);
    const auto list =
        static_cast<ImageList>(static_cast<std::int16_t>(ImageList::InputState0) + AppState.ScreenState);
    for (std::size_t button = 0; button < KeyButtonCount; ++button) {
        const std::int16_t image = ScreenImages[screen][button];
        if (image != 0) {
            AppState.KeyBar[button] = {list, image};
        }
    }
    if (AppState.ScreenState == ScreenInput) {
        ShowInputKeys();
    } else {
        KeyBarForField();
    }
}

void HighlightField(FieldArray fields, std::span<std::int32_t> labelColors, std::int16_t index,
                    std::int16_t secondLabel)
{
    for (ValueField& field : fields) {
        field.BackColor = field.Index == index ? ColorYellow : ColorWhite;
    }
    std::fill(labelColors.begin(), labelColors.end(), AppState.WindowBackColor);
    for (const std::int16_t label : {index, secondLabel}) {
        if (label >= 0 && static_cast<std::size_t>(label) < labelColors.size()) {
            labelColors[static_cast<std::size_t>(label)] = ColorYellow;
        }
    }
}
