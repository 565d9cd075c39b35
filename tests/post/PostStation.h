// PostStation.h -- a station of a case's own: its table, its folders, and what it wrote.
#pragma once

#include "post/Korvanta_PostProcessor.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <functional>
#include <string>
#include <string_view>
#include <vector>

using Lines = std::vector<std::string>;

struct PostStation {
    TempFolder Folder;

    /// Empties all state; `table` becomes PPR.ini.
    explicit PostStation(std::string_view table = "");

    void WriteTable(std::string_view table) const;

    /// What `write` sends to the program file.
    Lines Written(const std::function<void()>& write) const;

    /// The lines of a program in the NC folder. A line that doesn't end in CR LF fails the case.
    Lines Program(const std::string& name) const;
};

/// Lines of a text whose lines all end in CR LF.
Lines SplitLines(const std::string& text);

/// The text of the RunTimeFault that `action` ends with; a case fails without one.
std::string FaultOf(const std::function<void()>& action);
