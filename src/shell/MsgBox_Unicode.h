// MsgBox_Unicode.h -- the text catalogue in six languages and the one modal box.
// One of the few services of the shell that lower rooms may call.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

/// Reads the catalogue beside the program into MessageTable. A missing file shows the system's own box and ends the
/// process; a message number above 50 is a RunTimeFault. Needs AppPath and ProgramName.
void LoadMessages();

/// Reads the bytes of a catalogue into MessageTable, whose old texts go. With a byte-order mark all columns are plain
/// UTF-8; without one an "A" column is code page 1252 and any other holds double-byte text, low byte first. Lines that
/// are missing at the end are empty texts. A message number out of 0 to 50 is a RunTimeFault.
void ReadCatalogue(std::string_view content);

/// The joined text of a message in `Language`. A number above 50 or a language out of 1 to 6: RunTimeFault.
std::string MessageText(int number);

/// True when the mark of the current language's column is "U".
bool IsUnicodeLanguage();

/// The modal box; `result` is true when it closed by OK.
void ShowBox(const std::string& line1, const std::string& line2, const std::string& line3, bool twoButtons,
             bool& result);

/// Captions of the box. With one button that is the cancel button, wide, and `ok` is empty.
void BoxCaptions(bool twoButtons, std::string& ok, std::string& cancel);

/// A key while the box is open. True when it closes the box, with `result` as ShowBox gives it: F1 cancels; F10, Esc and
/// EscAlias are OK.
bool BoxKey(std::int16_t keyCode, bool& result);
