#include "shell/MsgBox_Unicode.h"

#include "config/Korvanta_Utility.h"
#include "platform/CodePage.h"
#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "platform/TextFile.h"
#include "shell/Exit.h"
#include "shell/KeyCodes.h"
#include "state/AppState.h"

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace
{
constexpr int MessageOk = 1;
constexpr int MessageCancel = 2;
constexpr int MessageSingle = 36;

constexpr std::string_view Utf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view HeaderSign = ">>0";
constexpr std::string_view MessageSign = ">>";
constexpr char32_t Replacement = 0xFFFD;

void AppendUtf8(std::string& out, char32_t c)
{
    const auto byte = [&out](char32_t value) { out += static_cast<char>(static_cast<unsigned char>(value)); };
    if (c < 0x80) {
        byte(c);
    } else if (c < 0x800) {
        byte(0xC0 | (c >> 6));
        byte(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        byte(0xE0 | (c >> 12));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    } else {
        byte(0xF0 | (c >> 18));
        byte(0x80 | ((c >> 12) & 0x3F));
        byte(0x80 | ((c >> 6) & 0x3F));
        byte(0x80 | (c & 0x3F));
    }
}

char32_t ByteAt(std::string_view text, std::size_t at)
{
    return static_cast<unsigned char>(text[at]);
}

std::string FromWestern(std::string_view bytes)
{
    std::string text;
    for (const char c : bytes) {
        AppendUtf8(text, CodePageCharacter(static_cast<unsigned char>(c)));
    }
    return text;
}

/// Double-byte text stored byte by byte, low byte first. A last byte without its partner is left out.
std::string FromPairs(std::string_view bytes)
{
    std::string text;
    const auto unit = [&bytes](std::size_t at) { return ByteAt(bytes, at) | (ByteAt(bytes, at + 1) << 8); };
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2) {
        char32_t c = unit(at);
        if (c >= 0xD800 && c < 0xE000) {
            const bool paired =
                c < 0xDC00 && at + 3 < bytes.size() && unit(at + 2) >= 0xDC00 && unit(at + 2) < 0xE000;
            if (paired) {
                c = 0x10000 + ((c - 0xD800) << 10) + (unit(at + 2) - 0xDC00);
                at += 2;
            } else {
                c = Replacement;
            }
        }
        AppendUtf8(text, c);
    }
    return text;
}

/// Length of the well-formed UTF-8 character at `at`; 0 when there is none.
std::size_t CharacterLength(std::string_view text, std::size_t at)
{
    const char32_t lead = ByteAt(text, at);
    if (lead < 0x80) {
        return 1;
    }
    const std::size_t length = lead >= 0xC2 && lead < 0xE0   ? 2
                               : lead >= 0xE0 && lead < 0xF0 ? 3
                               : lead >= 0xF0 && lead < 0xF5 ? 4
                                                             : 0;
    if (length == 0 || at + length > text.size()) {
        return 0;
    }
    for (std::size_t i = 1; i < length; ++i) {
        if ((ByteAt(text, at + i) & 0xC0) != 0x80) {
            return 0;
        }
    }
    // Overlong forms, surrogates and what lies beyond the last plane show in the second byte.
    const char32_t second = ByteAt(text, at + 1);
    const bool wellFormed = !(lead == 0xE0 && second < 0xA0) && !(lead == 0xED && second > 0x9F) &&
                            !(lead == 0xF0 && second < 0x90) && !(lead == 0xF4 && second > 0x8F);
    return wellFormed ? length : 0;
}

/// UTF-8 with its broken bytes replaced, so that whatever shows a text later can rely on it.
std::string RepairedUtf8(std::string_view bytes)
{
    std::string text;
    for (std::size_t at = 0; at < bytes.size();) {
        const std::size_t length = CharacterLength(bytes, at);
        if (length == 0) {
            AppendUtf8(text, Replacement);
            ++at;
        } else {
            text += bytes.substr(at, length);
            at += length;
        }
    }
    return text;
}

/// The next line, or empty text behind the end: a truncated catalogue has empty messages.
std::string_view LineOrEmpty(std::string_view& rest)
{
    std::string_view line;
    return NextLine(rest, line) ? line : std::string_view();
}

std::string PlainText(std::string_view line, bool utf8)
{
    const std::string trimmed = Trim(line);
    return utf8 ? RepairedUtf8(trimmed) : FromWestern(trimmed);
}

/// A line of a double-byte column. The character behind a "|" is a plain one.
MessageParts DoubleByteText(std::string_view line)
{
    const std::size_t bar = line.find('|');
    if (bar == std::string_view::npos) {
        return {Trim(FromPairs(line)), "", ""};
    }
    const std::string_view behind = line.substr(bar + 1);
    return {FromPairs(line.substr(0, bar)), FromWestern(behind.substr(0, 1)),
            behind.empty() ? "" : FromPairs(behind.substr(1))};
}

void ReadMarks(std::string_view& rest, bool utf8)
{
    for (MessageParts& mark : AppState.MessageTable[0]) {
        mark = {UpperCase(PlainText(LineOrEmpty(rest), utf8)), "", ""};
    }
}

/// The six lines of message `number`. A sign without a number is message 0, whose texts are the marks.
void ReadMessage(std::string_view& rest, std::int32_t number, bool utf8)
{
    if (number < 0 || number >= MessageRows) {
        throw RunTimeFault("message catalogue: there is no message " + std::to_string(number));
    }
    for (std::size_t column = 0; column < LanguageColumns; ++column) {
        const std::string_view line = LineOrEmpty(rest);
        const bool plain = utf8 || AppState.MessageTable[0][column][0] == "A";
        MessageParts& parts = AppState.MessageTable[static_cast<std::size_t>(number)][column];
        parts = plain ? MessageParts{PlainText(line, utf8), "", ""} : DoubleByteText(line);
    }
}

const MessageParts& PartsInLanguage(int number)
{
    if (number < 0 || number >= MessageRows) {
        throw RunTimeFault("there is no message " + std::to_string(number));
    }
    if (AppState.Language < 1 || AppState.Language > LanguageColumns) {
        throw RunTimeFault("there is no language " + std::to_string(AppState.Language) +
                           " in the message catalogue");
    }
    return AppState
        .MessageTable[static_cast<std::size_t>(number)][static_cast<std::size_t>(AppState.Language - 1)];
}
} // namespace

void LoadMessages()
{
    const std::string file = AppState.AppPath + "\\" + AppState.ProgramName + "_MSG.TXT";
    if (!FileExists(file)) {
        RunSystemBox("Critical Error", "File " + file + " not found!");
        EndProcess(1);
    }
    std::string content;
    if (!ReadWholeFile(file, content)) {
        throw RunTimeFault("message catalogue " + file + " can't be read");
    }
    ReadCatalogue(content);
}

void ReadCatalogue(std::string_view content)
{
    AppState.MessageTable = {};
    std::string_view rest = content;
    const bool utf8 = rest.substr(0, Utf8Mark.size()) == Utf8Mark;
    if (utf8) {
        rest.remove_prefix(Utf8Mark.size());
    }
    std::string_view line;
    while (NextLine(rest, line)) {
        if (Contains(line, HeaderSign)) {
            ReadMarks(rest, utf8);
        } else if (line.substr(0, MessageSign.size()) == MessageSign) {
            const double number = TextToNumber(line.substr(MessageSign.size()));
            ReadMessage(rest, RoundToInt32(number, "message catalogue: message number"), utf8);
        }
    }
}

std::string MessageText(int number)
{
    const MessageParts& parts = PartsInLanguage(number);
    return parts[0] + parts[1] + parts[2];
}

bool IsUnicodeLanguage()
{
    return PartsInLanguage(0)[0] == "U";
}

void ShowBox(const std::string& line1, const std::string& line2, const std::string& line3, bool twoButtons,
             bool& result)
{
    result = RunModalBox(line1, line2, line3, twoButtons);
}

void BoxCaptions(bool twoButtons, std::string& ok, std::string& cancel)
{
    ok = twoButtons ? "F10 : " + MessageText(MessageOk) : "";
    cancel = twoButtons ? "F1 : " + MessageText(MessageCancel) : "F10 : " + MessageText(MessageSingle);
}

bool BoxKey(std::int16_t keyCode, bool& result)
{
    if (keyCode == KeyF1) {
        result = false;
        return true;
    }
    if (keyCode == KeyF10 || IsExitKey(keyCode)) {
        result = true;
        return true;
    }
    return false;
}
