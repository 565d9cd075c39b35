// Exit.h -- the ways out of the program. Nothing is saved on any of them.
#pragma once

#include <cstdint>

/// True for Esc and for its alias. A setting that is no number gives 0, which is no key.
bool IsExitKey(std::int16_t keyCode);

/// Ends the process, after a question when ExitConfirm asks for one.
void ExitProgram();

/// The small file EXIT_LOG_FILE that tells a surrounding system which program the run produced. With `deleteOnly` an old
/// one is removed and none written. A log that can't be written is a RunTimeFault.
void WriteExitLog(bool deleteOnly);
