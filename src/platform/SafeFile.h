// SafeFile.h -- files that are made under a second name beside their own and get their name when they are complete: under
// the name itself there is always the old file or the new one, whole. Each step that fails takes the second name away and is
// a RunTimeFault that names the file and the reason.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// What stands behind a file's name while it is being made.
inline constexpr const char* UnfinishedEnd = ".part";

/// Writes `content` to the second name of `path`, whose folder must be there. What an earlier run left there goes.
void WriteSecondName(const std::string& path, std::string_view content);

/// Adds `content` to what stands under the second name.
void AppendSecondName(const std::string& path, std::string_view content);

/// Reads the file under the second name, `limit` bytes at most. False when it is longer or can't be read.
bool ReadSecondName(const std::string& path, std::string& content, std::size_t limit);

/// Gives the file under the second name its own one. `settle` brings the content to the disk ahead of the name, so that
/// not even a power cut leaves half a file under it; that takes a few milliseconds. An old file of the name goes, also one
/// whose name differs from it by case only; a folder or a device of that name stays and is a fault.
void PutInPlace(const std::string& path, bool settle = true);

/// The step of PutInPlace alone: false, with errno telling why, and the second name stays.
bool TakeName(const std::string& path, bool settle);

/// Gives a finished file the second name instead of its own: nobody takes it for one of use any more. False when it can't
/// be done.
bool TakeNameAway(const std::string& path);

/// Takes the second name away, if it is there.
void DropSecondName(const std::string& path) noexcept;
