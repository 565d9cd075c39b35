#include "shell/KeyDispatcher.h"

#include "platform/Screen.h"
#include "shell/Exit.h"
#include "shell/FieldEvents.h"
#include "shell/FieldModes.h"
#include "shell/FunctionKeys.h"
#include "shell/InputLists.h"
#include "shell/InputScreen.h"
#include "shell/KeyCodes.h"
#include "shell/Korvanta_Interface.h"
#include "shell/SimulationRun.h"
#include "shell/ValueFields.h"
#include "shell/Zoom.h"

#include <span>

namespace
{
struct KeyEvent {
    std::int16_t KeyCode = 0;
    std::int16_t Shift = 0;
    FieldArray Fields;
    Picture Box = Picture::Param;
};

/// One row of a screen's table: the first row with the key whose condition holds runs.
struct KeyRow {
    std::int16_t KeyCode;
    bool (*Applies)(); ///< null: always
    void (*Run)(const KeyEvent& event);
};

// --- Input screen -----------------------------------------------------------------------------------------

bool Saving()
{
    return AppState.SaveMode != FlagOff;
}

bool NotSaving()
{
    return !Saving();
}

bool OnJobs()
{
    return NotSaving() && AppState.InputTab == TabPrograms;
}

void NextInputTab(const KeyEvent&)
{
    SelectInputTab(static_cast<std::int16_t>((AppState.InputTab + 1) % InputTabCount));
}

void PreviousInputTab(const KeyEvent&)
{
    SelectInputTab(static_cast<std::int16_t>((AppState.InputTab + InputTabCount - 1) % InputTabCount));
}

void StepRight(const KeyEvent&)
{
    MoveListCursor("Dx");
}

void StepLeft(const KeyEvent&)
{
    MoveListCursor("Sx");
}

void StepDown(const KeyEvent&)
{
    MoveListCursor("Dw");
}

void StepUp(const KeyEvent&)
{
    MoveListCursor("Up");
}

bool OnJobsOfHost()
{
    return OnJobs() && AppState.HostMode == Hosted;
}

void HandOverSelected(const KeyEvent&)
{
    const ListItem* item = SelectedItem(TabPrograms);
    if (item != nullptr) {
        HandOverJob(item->Text);
    }
}

void DeleteSelected(const KeyEvent&)
{
    const ListItem* item = SelectedItem(TabPrograms);
    if (item != nullptr) {
        DeleteJob(std::string(item->Text)); // a copy: the list is filled anew
    }
}

void Leave(const KeyEvent&)
{
    ExitProgram();
}

void BackToNest(const KeyEvent&)
{
    LeaveSaveMode();
}

void Save(const KeyEvent&)
{
    SaveCurrentJob();
}

void OpenSelectedJob(const KeyEvent&)
{
    const ListItem* item = SelectedItem(TabPrograms);
    if (item != nullptr) {
        SetText(AppState.TextFileName, std::string(item->Text));
        OpenJob();
    }
}

void Open(const KeyEvent&)
{
    OpenJob();
}

constexpr KeyRow InputKeys[] = {
    // key      condition  action
    {KeyF1, NotSaving, NextInputTab},
    {KeyPad3, NotSaving, NextInputTab},
    {KeyF2, NotSaving, PreviousInputTab},
    {KeyPad9, NotSaving, PreviousInputTab},
    {KeyF3, nullptr, StepRight},
    {KeyF4, nullptr, StepLeft},
    {KeyF5, nullptr, StepDown},
    {KeyF6, nullptr, StepUp},
    {KeyF7, OnJobsOfHost, HandOverSelected},
    {KeyF8, OnJobs, DeleteSelected},
    {KeyD, OnJobs, DeleteSelected},
    {KeyDelete, OnJobs, DeleteSelected},
    {KeyF9, NotSaving, Leave},
    {KeyF9, Saving, BackToNest},
    {KeyEnter, Saving, Save},
    {KeyF10, Saving, Save},
    {KeyEnter, OnJobs, OpenSelectedJob},
    {KeyF10, OnJobs, OpenSelectedJob},
    {KeyEnter, NotSaving, Open},
    {KeyF10, NotSaving, Open},
};

// --- CAM screens: a screen is left by leaving its focused field first -----------------------------------------

void DropPart(const KeyEvent&)
{
    LeaveFocusedField();
    EnterInputScreen();
}

void NextTab(const KeyEvent&)
{
    LeaveFocusedField();
    NextCamTab();
}

void PreviousTab(const KeyEvent&)
{
    LeaveFocusedField();
    PreviousCamTab();
}

void FinishNest(const KeyEvent&)
{
    LeaveFocusedField();
    EnterSaveMode();
}

void JumpToZoom(const KeyEvent&)
{
    const FieldArray fields = ScreenFields();
    FocusField(AppState.FieldMode != ModeZoom ? fields.back() : fields.front());
}

void RunFieldKey(const KeyEvent& event)
{
    if (!event.Fields.empty()) {
        ApplyFunctionKey(static_cast<std::int16_t>(event.KeyCode - FieldKeyBase), event.Fields, event.Box,
                         event.Shift);
    }
}

bool InZoom()
{
    return AppState.FieldMode == ModeZoom;
}

void Simulate(const KeyEvent&)
{
    FocusField(AppState.TextNesting[FieldSimulation]);
    Yield();
    if (AppState.SimRunning == FlagOff) {
        StartSimulation();
    }
}

constexpr KeyRow ParameterKeys[] = {
    {KeyF1, nullptr, DropPart},
    {KeyF10, nullptr, NextTab},
};

constexpr KeyRow CuttingKeys[] = {
    {KeyF1, nullptr, DropPart},    {KeyF2, nullptr, JumpToZoom},  {KeyF3, nullptr, RunFieldKey},
    {KeyF4, nullptr, RunFieldKey}, {KeyF5, nullptr, RunFieldKey}, {KeyF6, nullptr, RunFieldKey},
    {KeyF7, nullptr, RunFieldKey}, {KeyF8, nullptr, RunFieldKey}, {KeyF9, nullptr, PreviousTab},
    {KeyF10, nullptr, NextTab},
};

constexpr KeyRow NestingKeys[] = {
    {KeyF1, nullptr, DropPart},    {KeyF2, nullptr, JumpToZoom},  {KeyF3, nullptr, RunFieldKey},
    {KeyF4, nullptr, RunFieldKey}, {KeyF5, nullptr, RunFieldKey}, {KeyF6, nullptr, RunFieldKey},
    {KeyF7, nullptr, RunFieldKey}, {KeyF8, InZoom, RunFieldKey},  {KeyF8, nullptr, Simulate},
    {KeyF9, nullptr, PreviousTab}, {KeyF10, nullptr, FinishNest},
};

std::span<const KeyRow> KeysOfScreen()
{
    switch (AppState.ScreenState) {
    case ScreenInput:
        return InputKeys;
    case ScreenParameters:
        return ParameterKeys;
    case ScreenCutting:
        return CuttingKeys;
    case ScreenNesting:
        return NestingKeys;
    default:
        return {};
    }
}

/// Keys that lead off the Nesting screen. What they bring about, a simulation can't bear.
bool LeavesNesting(std::int16_t keyCode)
{
    return AppState.ScreenState == ScreenNesting &&
           (keyCode == KeyF1 || keyCode == KeyF9 || keyCode == KeyF10);
}

bool OnFieldScreen()
{
    return AppState.ScreenState == ScreenCutting || AppState.ScreenState == ScreenNesting;
}

// --- clicks -------------------------------------------------------------------------------------------------

void FocusCurrentField()
{
    const FieldArray fields = ScreenFields();
    const auto current = static_cast<std::size_t>(AppState.CurrentField);
    FocusField(current < fields.size() ? fields[current] : fields.front());
}

/// F2 by a click: out of the Zoom field its value counts, which the lost focus alone doesn't bring about.
void ClickZoomButton()
{
    const FieldArray fields = ScreenFields();
    if (AppState.FieldMode == ModeZoom) {
        ApplyZoom(FieldNumber(fields.back()));
        FocusField(fields.front());
    } else {
        ValueFieldKey(fields, AppState.CurrentField, KeyF2, 0);
    }
}

/// Where the focus stands on the Input and Parameters screens.
void FocusByState()
{
    if (AppState.ScreenState == ScreenInput) {
        FocusInputControl();
    } else if (AppState.ScreenState == ScreenParameters && AppState.ShapeId > 0) {
        FocusField(AppState.ParamText[0]);
    }
}
} // namespace

FieldArray ScreenFields()
{
    switch (AppState.ScreenState) {
    case ScreenParameters:
        return AppState.ParamText;
    case ScreenCutting:
        return AppState.TextCutting;
    case ScreenNesting:
        return AppState.TextNesting;
    default:
        return {};
    }
}

Picture ScreenPicture()
{
    switch (AppState.ScreenState) {
    case ScreenCutting:
        return Picture::Tecno;
    case ScreenNesting:
        return Picture::Nesting;
    default:
        return Picture::Param;
    }
}

void KeyDispatcher(std::int16_t keyCode, std::int16_t shift, FieldArray fields, Picture picture)
{
    const std::span<const KeyRow> rows = KeysOfScreen();
    if (rows.empty()) {
        return;
    }
    if (IsExitKey(keyCode)) {
        ExitProgram();
        return;
    }
    if (LeavesNesting(keyCode) && WaitsForSimulation([keyCode, shift] { KeyDispatcher(keyCode, shift); })) {
        return;
    }
    for (const KeyRow& row : rows) {
        if (row.KeyCode == keyCode && (row.Applies == nullptr || row.Applies())) {
            row.Run({keyCode, shift, fields, picture});
            return;
        }
    }
}

void ClickFunctionButton(std::int16_t button)
{
    if (button < 0 || button >= KeyButtonCount) {
        return;
    }
    AppState.ButtonPressed = FlagOn;
    const auto keyCode = static_cast<std::int16_t>(KeyF1 + button);
    if (!OnFieldScreen()) {
        KeyDispatcher(keyCode, 0);
        FocusByState();
    } else if (keyCode == KeyF2) {
        ClickZoomButton();
    } else {
        const std::int16_t before = AppState.ScreenState;
        KeyDispatcher(keyCode, 0, ScreenFields(), ScreenPicture());
        if (AppState.ScreenState == before) { // else the screen that was entered has set the focus
            FocusCurrentField();
        }
    }
    AppState.ButtonPressed = FlagOff;
}

void ClickCamTab(std::int16_t tab)
{
    if (WaitsForSimulation([tab] { ClickCamTab(tab); })) {
        return;
    }
    LeaveFocusedField();
    EnterCamTab(tab);
}
