// StationFolder.h -- which folder the station runs in. A program that lies with its texts around it (a plain folder, a memory
// stick) runs there. One that is installed for all users (prefix/bin beside prefix/share/korvanta/station) runs in a folder of
// the user's own, which is made from that template on the first start and gets what later versions bring.
#pragma once

#include <string>

/// The environment variable that names the user's folder in place of Korvanta in the home folder; programs that aren't
/// installed don't look at it.
inline constexpr const char* StationVariable = "KORVANTA_STATION";

/// The folder of the station for a program that lies in `programFolder` (native, no trailing separator); made or brought up to
/// date when it is a user's own. A folder that can't be found, made or written is a RunTimeFault that says which and why.
std::string FindStationFolder(const std::string& programFolder);

/// The installed template that belongs to a program in `programFolder`; empty for a program with its catalogue beside it, and
/// where there is none.
std::string InstalledTemplate(const std::string& programFolder);

/// Makes `folder` (absolute) from the template, whole or not at all, or, where it is there, adds and renews what the template
/// holds anew since the last time. What the operator changed or took away stays so; only the message catalogue and the shapes'
/// drawings are always those of the program: a changed one is kept as NAME.old. Several starts at once wait for each other.
void PrepareUserStation(const std::string& templateFolder, const std::string& folder);
