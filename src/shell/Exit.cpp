#include "shell/Exit.h"

#include "config/Korvanta_Configuration.h"
#include "config/Korvanta_Utility.h"
#include "platform/Paths.h"
#include "platform/Screen.h"
#include "platform/TextFile.h"
#include "shell/KeyCodes.h"
#include "shell/MsgBox_Unicode.h"
#include "state/AppState.h"

#include <string>

namespace
{
constexpr int MessageLeave = 32;

/// A name without a folder lies beside the program.
std::string ExitLogPath()
{
    std::string path = ReadConfig("SETUP", "EXIT_LOG_FILE", "");
    const bool isNative = path.starts_with('/');
    if (path.empty() || isNative || Contains(path, "\\")) {
        return path;
    }
    return AppState.AppPath + "\\" + path;
}
} // namespace

bool IsExitKey(std::int16_t keyCode)
{
    return keyCode == KeyEsc || (keyCode != 0 && keyCode == AppState.EscAlias);
}

void ExitProgram()
{
    if (AppState.ExitConfirm != FlagOff) {
        bool confirmed = false;
        ShowBox(MessageText(MessageLeave), "", "", true, confirmed);
        if (!confirmed) {
            return;
        }
    }
    EndProcess(0);
}

void WriteExitLog(bool deleteOnly)
{
    const std::string path = ExitLogPath();
    if (path.empty()) {
        return;
    }
    if (deleteOnly) {
        static_cast<void>(DeleteFileIfThere(path));
        return;
    }
    WriteWholeText(path, BaseName(AppState.JobName, ".") + "\n" + AppState.NcPath + "\n");
}
