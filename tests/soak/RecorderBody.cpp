#include "RecorderBody.h"

#include "platform/Fault.h"
#include "shell/Exit.h"
#include "shell/FieldEvents.h"
#include "shell/InputEvents.h"
#include "shell/KeyCodes.h"
#include "shell/KeyDispatcher.h"
#include "shell/Korvanta_InputParamPPR.h"
#include "shell/Korvanta_Interface.h"
#include "shell/Measure.h"
#include "shell/MsgBox_Unicode.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"
#include "support/SoakChecks.h"
#include "support/SoakStation.h"

#include <algorithm>

namespace
{
constexpr int LeaveQuestion = 32;
constexpr int MostYields = 200; ///< of a simulation, before its stop key is pressed

/// What has the focus: a field or the name, a list, or the window itself.
struct FocusRecord {
    const ValueField* Field = nullptr;
    bool OnList = false;
};
FocusRecord Focus;
int Yields = 0;
bool WalkPrevented = false;

FieldArray ArrayOf(const ValueField& field)
{
    for (const FieldArray fields : {FieldArray(AppState.ParamText), FieldArray(AppState.TextCutting),
                                    FieldArray(AppState.TextNesting)}) {
        if (&field >= fields.data() && &field < fields.data() + fields.size()) {
            return fields;
        }
    }
    return {};
}

const ValueField* FieldOfShell()
{
    const auto index = static_cast<std::size_t>(AppState.CurrentField);
    switch (AppState.FocusedSet) {
    case FieldSet::Param:
        return &AppState.ParamText[index];
    case FieldSet::Cutting:
        return &AppState.TextCutting[index];
    case FieldSet::Nesting:
        return &AppState.TextNesting[index];
    case FieldSet::FileName:
        return &AppState.TextFileName;
    default:
        return nullptr;
    }
}

/// A window leaves the old control, then arrives on the new one, unless leaving has sent the focus elsewhere. A field that
/// the shell has left, though it kept the focus, is arrived at again.
void MoveFocus(const ValueField* field, bool onList)
{
    const ValueField* old = Focus.Field;
    const bool here = old == field && Focus.OnList == onList;
    if (here && (field == nullptr || field == &AppState.TextFileName || field == FieldOfShell())) {
        return;
    }
    Focus = {field, onList};
    if (old == &AppState.TextFileName) {
        FileNameLeft();
    } else if (old != nullptr) {
        FieldGone(ArrayOf(*old), old->Index);
    }
    if (Focus.Field != field || field == nullptr) {
        return;
    }
    if (field == &AppState.TextFileName) {
        FileNameEntered();
    } else {
        FieldArrived(ArrayOf(*field), field->Index);
    }
}

bool Shown(Panel panel)
{
    return AppState.PanelVisible[static_cast<std::size_t>(panel)] != FlagOff;
}

bool IsShown(const ValueField& field)
{
    if (&field == &AppState.TextFileName) {
        return Shown(Panel::TabInput) && AppState.FrontList == TabPrograms;
    }
    const FieldArray fields = ArrayOf(field);
    const Panel frame = fields.data() == AppState.ParamText.data()     ? Panel::FrameValue
                        : fields.data() == AppState.TextCutting.data() ? Panel::FrameCutting
                                                                       : Panel::FrameNesting;
    return Shown(Panel::TabCam) && Shown(frame) && field.Visible != FlagOff;
}

/// A hidden control can't keep the focus; then the window itself takes the keys.
void KeepFocus()
{
    if ((Focus.Field != nullptr && !IsShown(*Focus.Field)) || (Focus.OnList && !Shown(Panel::TabInput))) {
        Focus = FocusRecord();
    }
}

// --- events ---------------------------------------------------------------------------------------------------

void PressKey(std::int16_t code, std::int16_t shift)
{
    KeepFocus();
    if (Focus.OnList) {
        ListKey(AppState.InputTab, code, shift);
    } else if (Focus.Field == nullptr) {
        KeyDispatcher(code, shift);
    } else if (Focus.Field == &AppState.TextFileName) {
        FileNameKey(code, shift);
    } else {
        ValueFieldKey(ArrayOf(*Focus.Field), Focus.Field->Index, code, shift);
    }
}

std::int32_t ItemOf(std::int32_t number)
{
    const auto count =
        static_cast<std::int32_t>(AppState.Lists[static_cast<std::size_t>(AppState.FrontList)].Items.size());
    return number % (count + 1) - 1;
}

void UseList(const SoakEvent& event)
{
    const std::int16_t tab = AppState.FrontList;
    const std::int32_t item = ItemOf(event.A);
    if (!Shown(Panel::TabInput)) {
        return;
    }
    if (event.Do == SoakDo::ListMove) {
        if (Focus.OnList && item >= 0) {
            ListSelectionMoved(tab, item);
        }
        return;
    }
    MoveFocus(nullptr, true);
    ListClicked(tab, item);
    if (event.Do == SoakDo::ListDouble && item >= 0 && Focus.OnList) {
        ListDoubleClicked(tab);
    }
}

void ClickField(std::int32_t number)
{
    const FieldArray fields = ScreenFields();
    const ValueField& field =
        fields.empty() ? AppState.TextFileName : fields[static_cast<std::size_t>(number) % fields.size()];
    if (IsShown(field)) {
        MoveFocus(&field, false);
    }
}

/// The field with the focus, to be written to.
ValueField* FocusedField()
{
    if (Focus.Field == nullptr) {
        return nullptr;
    }
    return Focus.Field == &AppState.TextFileName
               ? &AppState.TextFileName
               : &ArrayOf(*Focus.Field)[static_cast<std::size_t>(Focus.Field->Index)];
}

/// Character by character, as long as the same field has the focus; a long text is pasted.
void TypeText(const SoakEvent& event)
{
    constexpr std::size_t LongestTyped = 12;
    KeepFocus();
    ValueField* field = FocusedField();
    if (field == nullptr) {
        return;
    }
    if (event.Text.empty() || event.Text.size() > LongestTyped) {
        SetText(*field, (event.B == 1 ? field->Text : "") + event.Text);
        return;
    }
    if (event.B == 0) {
        SetText(*field, "");
    }
    for (std::size_t i = 0; i < event.Text.size() && FocusedField() == field; ++i) {
        std::string typed(1, event.Text[i]);
        while (i + 1 < event.Text.size() &&
               (static_cast<unsigned char>(event.Text[i + 1]) & 0xC0U) == 0x80U) {
            typed += event.Text[++i];
        }
        SetText(*field, field->Text + typed);
    }
}

void UseMouse(const SoakEvent& event)
{
    constexpr double Hundred = 100.0;
    if (AppState.ScreenState != ScreenCutting && AppState.ScreenState != ScreenNesting) {
        return;
    }
    const double x = AppState.ViewLeft + AppState.ViewWidth * event.A / Hundred;
    const double y = AppState.ViewTop + AppState.ViewHeight * event.B / Hundred;
    if (event.Do == SoakDo::MouseDown) {
        PressMeasure(ScreenPicture(), x, y);
    } else if (event.Do == SoakDo::MouseMove) {
        MoveMeasure(ScreenPicture(), x, y);
    } else {
        ReleaseMeasure(ScreenPicture(), event.B % 4 != 0);
    }
}

/// The simulation of a nest that nobody can cut isn't started from its field.
bool WouldSimulateLong(const SoakEvent& event)
{
    constexpr std::int32_t ModeSimulation = 7;
    return (event.Do == SoakDo::Key || event.Do == SoakDo::Button) && AppState.ScreenState == ScreenNesting &&
           AppState.FieldMode == ModeSimulation &&
           event.A >= (event.Do == SoakDo::Key ? KeyF3 : KeyF3 - KeyF1) &&
           event.A <= (event.Do == SoakDo::Key ? KeyF8 : KeyF8 - KeyF1) && WalkIsLong();
}

/// A program of such a nest isn't written: in SaveMode no key comes through that could do so.
bool WouldSaveLong(const SoakEvent& event)
{
    if (AppState.SaveMode == FlagOff || !WalkIsLong()) {
        return false;
    }
    const bool saves = event.Do == SoakDo::ListDouble ||
                       (event.Do == SoakDo::Key && (event.A == KeyEnter || event.A == KeyF10)) ||
                       (event.Do == SoakDo::Button && event.A == KeyF10 - KeyF1);
    return saves;
}

void CatchUp(const SoakEvent& event)
{
    ++Yields;
    Screen.OnYield = [&event] { CatchUp(event); };
    // No window lets a key in while a typed text is being dealt with, and none starts a walk that nobody waits for.
    const bool save = AppState.SaveMode != FlagOff && WalkIsLong();
    if (Yields == 1 && event.AtYield != 0 && event.Do != SoakDo::Type && !save) {
        PressKey(event.AtYield, 0);
    }
    if (AppState.SimRunning == FlagOff && WalkIsLong() && AppState.ScreenState == ScreenNesting) {
        AppState.SimRunning = FlagOn; // the simulation that a key may be about to start
        WalkPrevented = true;
    } else if (AppState.SimRunning != FlagOff && !WalkPrevented && Yields > MostYields) {
        AppState.SimStop = FlagOn;
    }
}

void RunEvent(const SoakEvent& event)
{
    const auto number = static_cast<std::int16_t>(event.A);
    switch (event.Do) {
    case SoakDo::Key:
        PressKey(number, static_cast<std::int16_t>(event.B));
        break;
    case SoakDo::Button:
        ClickFunctionButton(number);
        break;
    case SoakDo::InputTab:
        if (Shown(Panel::TabInput) && number != AppState.InputTab) {
            ClickInputTab(number);
        }
        break;
    case SoakDo::CamTab:
        if (Shown(Panel::TabCam) && number != AppState.CamTab) {
            ClickCamTab(number);
        }
        break;
    case SoakDo::Field:
        ClickField(event.A);
        break;
    case SoakDo::Type:
        TypeText(event);
        break;
    case SoakDo::Activate:
        WindowActivated();
        break;
    case SoakDo::Resize:
        Screen.Metrics = {6 * event.A, 4 * event.B, 50, 20};
        break;
    case SoakDo::Files:
        DisturbFiles(event.A);
        break;
    case SoakDo::MouseDown:
    case SoakDo::MouseMove:
    case SoakDo::MouseUp:
        UseMouse(event);
        break;
    default:
        UseList(event);
        break;
    }
}

/// Each row gets an answer; the keys go the way through the rows and out.
void AnswerDialog()
{
    OpenInputDialog("Korvanta [" + AppState.JobName + "]");
    for (std::int16_t slot = 1; slot <= PprInputSlots; ++slot) {
        InputRow& row = AppState.InputDialogRows[static_cast<std::size_t>(slot)];
        if (row.Visible == FlagOff) {
            continue;
        }
        InputRowEntered(slot);
        row.Text = row.IsList != FlagOff ? row.Options.back() : "A " + std::to_string(Yields);
        InputDialogKey(slot, KeyEnter);
    }
    InputDialogKey(1, KeyF10);
    CloseInputDialog();
}

// --- the body ---------------------------------------------------------------------------------------------------

void Start(const std::string& folder, const SoakSettings& settings)
{
    StartCase();
    Focus = FocusRecord();
    Screen.Metrics = {300, 100, 50, 20};
    Screen.OnFocus = [](const ValueField* field) { MoveFocus(field, field == nullptr); };
    Screen.InputDialog = AnswerDialog;
    StartWindow(folder, std::to_string(settings.Language));
    Drawn.Shown = settings.Shown;
    Drawn.Kept = false;
}

void Play(const SoakEvent& event)
{
    Screen.Calls.clear();
    Yields = 0;
    WalkPrevented = false;
    Screen.OnBox = [&event](const std::string& line1) {
        const bool stays = event.Answer == SoakAnswer::OkButStay && line1 == MessageText(LeaveQuestion);
        return event.Answer != SoakAnswer::Cancel && !stays;
    };
    Screen.OnYield = [&event] { CatchUp(event); };
    try {
        if (!WouldSaveLong(event) && !WouldSimulateLong(event)) {
            RunEvent(event);
        }
        KeepFocus();
    } catch (const RunTimeFault& fault) {
        TellSoakFault(fault.what());
    } catch (const ProcessEnded&) {
        TellSoakLeft();
    }
    if (WalkPrevented) {
        AppState.SimRunning = FlagOff;
    }
}

std::string FieldText(const ValueField* field)
{
    return field == nullptr ? "none" : std::string(field->ControlName) + " " + std::to_string(field->Index);
}

std::string Broken()
{
    const ValueField* field = FieldOfShell();
    if (field != nullptr && field != Focus.Field) {
        return "the shell takes " + FieldText(field) + " for the focused field, the window has it on " +
               FieldText(Focus.Field);
    }
    if (AppState.ScreenState == ScreenInput && Focus.Field == nullptr && !Focus.OnList) {
        return "no control of the Input screen has the focus";
    }
    return Drawn.AllNumbers ? BrokenRule() : "a stroke with a number that is none";
}

void End()
{
    StartCase();
}
} // namespace

const SoakBody RecorderBody = {Start, Play, Broken, End};
