// MsgBox_Unicode.h -- the text catalogue in six languages and the one modal box.
// One of the few services of the shell that lower rooms may call.
#pragma once

#include <string>

/// Reads the catalogue beside the program into MessageTable. A missing file shows the system's own box and ends the
/// process; a message number above 50 is a RunTimeFault. Needs AppPath and ProgramName.
void LoadMessages();

/// The joined text of a message in `Language`. A number above 50 or a language out of 1 to 6: RunTimeFault.
std::string MessageText(int number);

/// True when the mark of the current language's column is "U".
bool IsUnicodeLanguage();

/// The modal box; `result` is true when it closed by OK.
void ShowBox(const std::string& line1, const std::string& line2, const std::string& line3, bool twoButtons,
             bool& result);
