// Paths.h -- the operator's folder names on this machine's file system; the only room that touches files.
// A '\' separates; "X:\" is the folder drive_x beside the program, and so is a "\" at the beginning with drive c; a
// name that begins with '/' stands as it is; any other one lies in the program's folder. Each component is found
// without regard to case when it exists under another one.
#pragma once

#include <string>
#include <vector>

/// The native name of `path`. Reads AppState.AppPath for drives and plain names; without one they lie in the working
/// folder.
std::string NativePath(const std::string& path);

/// The native name of a file that is to be made: its folder as above, the name itself as it is written.
std::string NativeNewPath(const std::string& path);

/// The folder part of a path, its last separator or drive included; "." when it has none.
std::string FolderOf(const std::string& path);

/// A plain file; a folder or a device of that name is none.
bool FileExists(const std::string& path);
bool FolderExists(const std::string& path);

/// Deletes a plain file; a missing one is no error. False when it stays (a folder or a device always does);
/// errno tells why.
bool DeleteFileIfThere(const std::string& path);

/// Creates one folder level, and the folder of its drive; one that is there already will do. False when it can't be made.
bool MakeFolder(const std::string& path);

/// Names (not paths) of the plain files of a folder, in the order of the file system; empty when unreadable.
std::vector<std::string> ListFiles(const std::string& folder);
