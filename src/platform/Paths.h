// Paths.h -- the operator's folder names on this machine's file system; the only room that touches files.
// A '\' separates; "X:\" is the folder drive_x beside the program; a name that begins with '/' stands as it is;
// each component is found without regard to case when it exists under another one.
#pragma once

#include <string>
#include <vector>

/// The native name of `path`. Reads AppState.AppPath for drive letters.
std::string NativePath(const std::string& path);

bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);

/// Deletes a file; a missing one is no error. False when it stays.
bool DeleteFileIfThere(const std::string& path);

/// Creates one folder level. False when it can't be made.
bool MakeFolder(const std::string& path);

/// Names (not paths) of the plain files of a folder, in the order of the file system; empty when unreadable.
std::vector<std::string> ListFiles(const std::string& folder);
