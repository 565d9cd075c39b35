// JobFolder.h -- a station of one job for the targets that read job files.
#pragma once

#include "FuzzFiles.h"

#include "shell/Korvanta_Interface.h"
#include "shell/ValueFields.h"
#include "support/RecordingScreen.h"
#include "support/RecordingSurface.h"

#include <filesystem>
#include <fstream>
#include <string>

/// A folder with a catalogue and folders for jobs and programs; one for each target and process.
inline std::string MakeJobStation(const char* target)
{
    namespace fs = std::filesystem;
    const fs::path folder = MakeFuzzFolder(target);
    fs::create_directories(folder / "NEST" / "DATA");
    fs::create_directories(folder / "NC");
    std::ofstream(folder / "Korvanta_MSG.TXT") << ">>0\nA\nA\nA\nA\nA\nA\n";
    std::ofstream(folder / "Korvanta.ini")
        << "[CONFIG]\nNESTING_PATH=" << folder.string() << "\\NEST\nNC_PATH=" << folder.string() << "\\NC\n";
    return folder.string();
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
