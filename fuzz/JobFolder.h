// JobFolder.h -- a station of one job for the targets that read job files.
#pragma once

#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <unistd.h>

inline void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// A folder with a catalogue and folders for jobs and programs; one for each target and process.
inline std::string MakeJobStation(const char* target)
{
    namespace fs = std::filesystem;
    // In memory where that is to be had: every save waits for its disk.
    const fs::path memory = "/dev/shm";
    const fs::path folder = (fs::exists(memory) ? memory : fs::temp_directory_path()) /
                            ("korvanta_fuzz_" + std::string(target) + std::to_string(getpid()));
    fs::create_directories(folder / "NEST" / "DATA");
    fs::create_directories(folder / "NC");
    std::ofstream(folder / "Korvanta_MSG.TXT") << ">>0\nA\nA\nA\nA\nA\nA\n";
    std::ofstream(folder / "Korvanta.ini")
        << "[CONFIG]\nNESTING_PATH=" << folder.string() << "\\NEST\nNC_PATH=" << folder.string() << "\\NC\n";
    return folder.string();
}

inline void WriteBytes(const std::string& path, std::string_view bytes)
{
    std::remove(path.c_str()); // rewriting in place waits for the disk on some file systems
    std::FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    std::fclose(file);
}

/// The station as it is started; nothing is left of the input before.
inline void StartJobStation(const std::string& station)
{
    static const AppStateRecord started = [&station] {
        StartCase();
        StartStation(station, 1);
        return AppState;
    }();
    AppState = started;
    Screen = ScreenRecord();
    Drawn = SurfaceRecord();
}
