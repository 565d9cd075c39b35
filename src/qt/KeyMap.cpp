#include "qt/KeyMap.h"

#include "shell/KeyCodes.h"

namespace
{
constexpr std::int16_t ShiftHeld = 1;
constexpr std::int16_t CtrlHeld = 2;
constexpr std::int16_t AltHeld = 4;
constexpr std::int16_t KeyPad0 = 96;

struct KeyRow {
    int Key;
    std::int16_t Code;
};

constexpr KeyRow NamedKeys[] = {
    {Qt::Key_Return, KeyEnter}, {Qt::Key_Enter, KeyEnter}, {Qt::Key_Escape, KeyEsc},
    {Qt::Key_Space, KeySpace},  {Qt::Key_Left, KeyLeft},   {Qt::Key_Up, KeyUp},
    {Qt::Key_Right, KeyRight},  {Qt::Key_Down, KeyDown},   {Qt::Key_Delete, KeyDelete},
    {Qt::Key_Backspace, 8},     {Qt::Key_Tab, 9},          {Qt::Key_Pause, 19},
    {Qt::Key_PageUp, 33},       {Qt::Key_PageDown, 34},    {Qt::Key_End, 35},
    {Qt::Key_Home, 36},         {Qt::Key_Insert, 45},      {Qt::Key_Backtab, 9},
    {Qt::Key_Clear, 12},        {Qt::Key_Shift, 16},       {Qt::Key_Control, 17},
    {Qt::Key_Alt, 18},          {Qt::Key_CapsLock, 20},    {Qt::Key_Print, 44},
    {Qt::Key_Help, 47},         {Qt::Key_Meta, 91},        {Qt::Key_Menu, 93},
    {Qt::Key_NumLock, 144},     {Qt::Key_ScrollLock, 145}, {Qt::Key_Plus, 187},
    {Qt::Key_Comma, 188},       {Qt::Key_Minus, 189},      {Qt::Key_Period, 190},
};

/// The keypad: its page keys are those without the number lock.
constexpr KeyRow PadKeys[] = {
    {Qt::Key_PageDown, KeyPad3}, {Qt::Key_PageUp, KeyPad9}, {Qt::Key_Asterisk, 106}, {Qt::Key_Plus, 107},
    {Qt::Key_Minus, 109},        {Qt::Key_Period, 110},     {Qt::Key_Comma, 110},    {Qt::Key_Slash, 111},
};

std::int16_t Offset(std::int16_t base, int key, int firstKey)
{
    return static_cast<std::int16_t>(base + (key - firstKey));
}
} // namespace

std::int16_t KeyCodeOf(const QKeyEvent& event)
{
    const int key = event.key();
    if (event.modifiers().testFlag(Qt::KeypadModifier)) {
        if (key >= Qt::Key_0 && key <= Qt::Key_9) {
            return Offset(KeyPad0, key, Qt::Key_0);
        }
        for (const KeyRow& row : PadKeys) {
            if (row.Key == key) {
                return row.Code;
            }
        }
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F24) {
        return Offset(KeyF1, key, Qt::Key_F1);
    }
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return static_cast<std::int16_t>(key); // the codes are those of the capital letters and digits
    }
    for (const KeyRow& row : NamedKeys) {
        if (row.Key == key) {
            return row.Code;
        }
    }
    return 0;
}

std::int16_t ShiftOf(const QKeyEvent& event)
{
    const Qt::KeyboardModifiers held = event.modifiers();
    return static_cast<std::int16_t>((held.testFlag(Qt::ShiftModifier) ? ShiftHeld : 0) +
                                     (held.testFlag(Qt::ControlModifier) ? CtrlHeld : 0) +
                                     (held.testFlag(Qt::AltModifier) ? AltHeld : 0));
}

bool IsTextKey(const QKeyEvent& event)
{
    switch (event.key()) {
    case Qt::Key_Left:
    case Qt::Key_Right:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_Backspace:
    case Qt::Key_Delete:
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        return false;
    default:
        break;
    }
    const bool shortcut = event.matches(QKeySequence::Copy) || event.matches(QKeySequence::Cut) ||
                          event.matches(QKeySequence::Paste) || event.matches(QKeySequence::SelectAll) ||
                          event.matches(QKeySequence::Undo) || event.matches(QKeySequence::Redo);
    return shortcut || (!event.text().isEmpty() && event.text().front().isPrint());
}
