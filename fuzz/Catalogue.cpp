// Any bytes as a message catalogue: a table of well-formed texts, or a fault.
#include "platform/Fault.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
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
                if (!IsUtf8(part)) {
                    std::abort();
                }
            }
        }
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    try {
        ReadCatalogue(std::string_view(reinterpret_cast<const char*>(data), size));
        for (std::int16_t language = 1; language <= LanguageColumns; ++language) {
            AppState.Language = language;
            IsUnicodeLanguage();
            for (int number = 0; number < MessageRows; ++number) {
                MessageText(number);
            }
        }
    } catch (const RunTimeFault&) {
        // A number beyond the table is refused; what was read before it must still be whole.
    }
    CheckTable();
    return 0;
}
