// ManualStation.h -- the station in which the examples of the manual run: a copy of the shipped one with the programs in it.
#pragma once

#include <string>

/// `text` as one word of a shell command.
std::string ShellWord(const std::string& text);

/// A fresh copy of the shipped station in `folder`, which must not be there yet.
void MakeManualStation(const std::string& folder);

/// Runs `command`, a shell command, in the station's folder with its programs on the path. Standard error goes to the file
/// `errors`. True when it ends with status 0.
bool RunInStation(const std::string& folder, const std::string& command, const std::string& errors);
