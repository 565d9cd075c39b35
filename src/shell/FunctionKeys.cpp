#include "shell/FunctionKeys.h"

#include "platform/Screen.h"
#include "post/Simulation.h"
#include "profile/Korvanta_Common.h"
#include "shell/FieldEvents.h"
#include "shell/FieldModes.h"
#include "shell/SimulationRun.h"
#include "shell/ValueFields.h"
#include "shell/Zoom.h"

namespace
{
constexpr double QuarterTurn = 90.0; ///< degrees

/// What a key works on.
struct KeyPress {
    std::int16_t Number;
    FieldArray Fields;
    Picture On;
    std::int16_t Shift;
};

ValueField& FieldOf(const KeyPress& key)
{
    return key.Fields[static_cast<std::size_t>(AppState.CurrentField)];
}

/// The stepped value is selected like that of a field that was just reached: what is typed next replaces it.
void Step(const KeyPress& key, bool increase, double step)
{
    StepField(key.Fields, increase, step);
    SelectWholeText(FieldOf(key));
}

void Plus(const KeyPress& key)
{
    Step(key, true, NoValue);
}

void Minus(const KeyPress& key)
{
    Step(key, false, NoValue);
}

void TurnLeft(const KeyPress& key)
{
    Step(key, true, QuarterTurn);
}

void TurnRight(const KeyPress& key)
{
    Step(key, false, QuarterTurn);
}

/// A stepped lead counts at once; a typed one when its field is left.
void PlusLead(const KeyPress& key)
{
    Plus(key);
    ApplyLeadValues();
}

void MinusLead(const KeyPress& key)
{
    Minus(key);
    ApplyLeadValues();
}

/// Key k writes the code k - 1.
void SetMirror(const KeyPress& key)
{
    ValidateField(key.Fields, key.Number - 1);
}

void LeadForward(const KeyPress&)
{
    MoveLead(1);
}

void LeadBack(const KeyPress&)
{
    MoveLead(-1);
}

void LeadNextElement(const KeyPress&)
{
    MoveLeadNextElement();
}

void CopyLeads(const KeyPress&)
{
    CopyLeadsToAll();
    RedrawScreen(FlagOff);
}

void ChangePath(const KeyPress&)
{
    ChangeProfilePath();
}

void CursorForward(const KeyPress& key)
{
    MovePathCursor(1, key.Shift);
}

void CursorBack(const KeyPress& key)
{
    MovePathCursor(-1, key.Shift);
}

/// Key n is nest type n. A new text redraws by itself.
void SetNestType(const KeyPress& key)
{
    AppState.NestKind = key.Number;
    ValueField& field = AppState.TextNesting[FieldNestType];
    const std::string text = std::to_string(key.Number);
    if (field.Text == text) {
        RedrawScreen(FlagOn);
    } else {
        SetText(field, text);
    }
}

/// One key for both: its picture tells which.
void StartOrStop(const KeyPress&)
{
    if (AppState.SimRunning != FlagOff) {
        StopSimulation();
    } else {
        StartSimulation();
    }
}

/// The field becomes a star with the caret behind it: the number that follows counts columns or rows.
void TypeStar(const KeyPress& key)
{
    SetText(FieldOf(key), "*");
    SelectFieldText(FieldOf(key), 1, 0);
}

void StepZoom(const KeyPress& key)
{
    constexpr ZoomStep Moves[] = {ZoomStep::Right, ZoomStep::Left, ZoomStep::Down, ZoomStep::Up,
                                  ZoomStep::Confirm};
    constexpr int FirstMove = 3; // "Zoom dx"; 1 and 2 step the factor, whose change draws the frame
    ApplyZoom(key.On, Moves[key.Number - FirstMove], FieldNumber(FieldOf(key)));
}

constexpr int KeysOfMode = 7;
using KeyAction = void (*)(const KeyPress& key);

/// By FieldMode and number - 1; null is no key.
constexpr KeyAction Actions[ModeCount][KeysOfMode] = {
    // 0: a field without keys
    {},
    // 1: Scale, Kerf, gaps
    {Plus, Minus},
    // 2: Angle
    {Plus, Minus, TurnLeft, TurnRight},
    // 3: Zoom
    {Plus, Minus, StepZoom, StepZoom, StepZoom, StepZoom, StepZoom},
    // 4: Mirror
    {SetMirror, SetMirror, SetMirror, SetMirror},
    // 5: Move Step and leads
    {PlusLead, MinusLead, LeadForward, LeadBack, LeadNextElement},
    // 6: Nesting
    {SetNestType, SetNestType, SetNestType, SetNestType},
    // 7: Simulation
    {Plus, Minus, StartOrStop},
    // 8: sheet sizes
    {Plus, Minus, TypeStar},
    // 9: Profile nr.
    {Plus, Minus, CopyLeads, ChangePath, CursorForward, CursorBack},
};
} // namespace

void ApplyFunctionKey(std::int16_t number, FieldArray fields, Picture picture, std::int16_t shift)
{
    if (number < 1 || number > KeysOfMode || AppState.FieldMode < 0 || AppState.FieldMode >= ModeCount ||
        AppState.CurrentField < 0 || static_cast<std::size_t>(AppState.CurrentField) >= fields.size()) {
        return;
    }
    const KeyAction action = Actions[AppState.FieldMode][number - 1];
    if (action != nullptr) {
        action({number, fields, picture, shift});
    }
}
