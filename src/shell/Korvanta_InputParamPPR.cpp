#include "shell/Korvanta_InputParamPPR.h"

#include "platform/Screen.h"
#include "shell/KeyCodes.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <algorithm>

namespace
{
constexpr int MessageButton = 36;
constexpr char KindList = 'T';
constexpr char KindText = 'D';
constexpr char KindUnused = 'N';
constexpr std::int16_t FirstSlot = 1;

std::vector<std::string> SplitOptions(const std::string& options)
{
    std::vector<std::string> parts;
    std::size_t from = 0;
    while (from <= options.size()) {
        const std::size_t bar = std::min(options.find('|', from), options.size());
        parts.push_back(options.substr(from, bar - from));
        from = bar + 1;
    }
    return parts;
}

char KindOf(std::int16_t slot)
{
    return slot > PprInputSlots ? KindUnused : AppState.PprInput[static_cast<std::size_t>(slot)].Kind;
}

/// Enter goes to the next slot, behind the last one in use back to the first. A row that is neither list nor free entry
/// leaves the focus where it is.
void EnterInRow(std::int16_t slot)
{
    const auto next = static_cast<std::int16_t>(slot + 1);
    switch (KindOf(next)) {
    case KindUnused:
        FocusInputRow(FirstSlot);
        break;
    case KindList:
    case KindText:
        FocusInputRow(next);
        break;
    default:
        break;
    }
}
} // namespace

void OpenInputDialog(const std::string& title)
{
    AppState.InputDialogTitle = title;
    AppState.InputDialogButton = "F10 : " + MessageText(MessageButton);
    for (std::size_t slot = FirstSlot; slot <= PprInputSlots; ++slot) {
        const PprInputValue& input = AppState.PprInput[slot];
        InputRow& row = AppState.InputDialogRows[slot];
        row = InputRow();
        row.Visible = ToFlag(input.Kind != KindUnused);
        row.IsList = ToFlag(input.Kind == KindList);
        row.Text = input.Value;
        if (row.IsList != FlagOff) {
            row.Options = SplitOptions(input.Options);
        }
    }
}

bool InputDialogKey(std::int16_t slot, std::int16_t keyCode)
{
    if (keyCode == KeyF8 || keyCode == KeyF10) {
        return true;
    }
    if (keyCode == KeyEnter && slot >= FirstSlot && slot <= PprInputSlots) {
        EnterInRow(slot);
    }
    return false;
}

void InputRowEntered(std::int16_t slot)
{
    if (AppState.InputDialogRows[static_cast<std::size_t>(slot)].IsList == FlagOff) {
        SelectInputRow(slot);
    }
}

void InputButtonEntered()
{
    FocusInputRow(FirstSlot);
}

void CloseInputDialog()
{
    for (std::size_t slot = FirstSlot; slot <= PprInputSlots; ++slot) {
        PprInputValue& input = AppState.PprInput[slot];
        input.Value = input.Kind == KindUnused ? "" : AppState.InputDialogRows[slot].Text;
    }
}
