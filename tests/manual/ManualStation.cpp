#include "ManualStation.h"

#include <cstdlib>
#include <filesystem>
#include <sys/wait.h>

std::string ShellWord(const std::string& text)
{
    std::string quoted = "'";
    for (const char c : text) {
        quoted += c == '\'' ? std::string("'\\''") : std::string(1, c);
    }
    return quoted + "'";
}

void MakeManualStation(const std::string& folder)
{
    namespace fs = std::filesystem;
    fs::copy(KORVANTA_SOURCE_DIR "/station", folder, fs::copy_options::recursive);
    for (const char* name : {"bin/korvanta-batch", "bin/korvanta-painter.so", "Korvanta.DBG"}) {
        const fs::path from = fs::path(KORVANTA_BINARY_DIR) / name;
        if (fs::exists(from)) {
            fs::copy_file(from, fs::path(folder) / from.filename());
        }
    }
}

bool RunInStation(const std::string& folder, const std::string& command, const std::string& errors)
{
    const std::string whole = "cd " + ShellWord(folder) +
                              " && export LC_ALL=C.UTF-8 PATH=" + ShellWord(folder) + ":\"$PATH\" && { " +
                              command + "\n} </dev/null 2>" + ShellWord(errors);
    const int status = std::system(whole.c_str());
    return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}
