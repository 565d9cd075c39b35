// Any bytes as a message catalogue: a table of well-formed texts, or a fault. The box shows what it holds.
#include "FuzzFiles.h"

#include "platform/Fault.h"
#include "shell/KeyCodes.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace
{
/// Length of each character follows from its lead byte; trail bytes stand nowhere else.
bool IsUtf8(std::string_view text)
{
    std::size_t trailing = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        if ((byte & 0xC0) == 0x80) {
            if (trailing == 0) {
                return false;
            }
            --trailing;
            continue;
        }
        if (trailing != 0 || byte == 0xC0 || byte == 0xC1 || byte > 0xF4) {
            return false;
        }
        trailing = byte < 0x80 ? 0 : (byte < 0xE0 ? 1 : (byte < 0xF0 ? 2 : 3));
    }
    return trailing == 0;
}

/// The parts of a text are whole characters each, so each is looked at by itself.
void CheckTable()
{
    for (const auto& row : AppState.MessageTable) {
        for (const MessageParts& parts : row) {
            for (const std::string& part : parts) {
                Require(IsUtf8(part));
            }
        }
    }
}

/// The box with a text, its captions and its keys.
void CheckBox(int number)
{
    const std::string text = MessageText(number);
    std::string ok;
    std::string cancel;
    bool closed = false;
    for (const bool twoButtons : {true, false}) {
        BoxCaptions(twoButtons, ok, cancel);
        Require(IsUtf8(ok) && IsUtf8(cancel) && ok.empty() != twoButtons);
        ShowBox(text, "", "", twoButtons, closed);
        Require(closed && Screen.Calls.back().find(text) != std::string::npos);
    }
    Require(BoxKey(KeyF1, closed) && !closed);
    Require(BoxKey(KeyF10, closed) && closed);
    Require(!BoxKey(KeyF2, closed));
}

/// There is no message behind the last one and no language before the first.
void CheckRefused(std::int16_t language, int number)
{
    AppState.Language = language;
    try {
        MessageText(number);
    } catch (const RunTimeFault&) {
        return;
    }
    Require(false);
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static const std::string station = MakeFuzzFolder("catalogue");
    StartCase();
    AppState.AppPath = station;
    WriteBytes(station + "/Korvanta_MSG.TXT", {reinterpret_cast<const char*>(data), size});
    try {
        LoadMessages();
        for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
            AppState.Language = language;
            IsUnicodeLanguage();
            for (int number = 0; number < MessageRows; ++number) {
                MessageText(number);
            }
            CheckBox(language);
        }
    } catch (const RunTimeFault&) {
        // A number beyond the table is refused; what was read before it must still be whole.
    }
    CheckTable();
    CheckRefused(1, MessageRows);
    CheckRefused(0, 1);
    return 0;
}
