// ProfileStrings.h -- sectioned key files: [section] lines and key=value lines, found without regard to case.
// Reading sees the file as it is at that moment; the parsed text of an unchanged file is kept, and that is the one
// memory that lives outside AppState.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The value of `key` in the first section of that name, or `defaultValue`. At most size - 1 bytes are delivered;
/// size 0 delivers nothing. One pair of equal quotes around the value is removed.
std::string ReadProfileString(const std::string& path, std::string_view section, std::string_view key,
                              std::string_view defaultValue, std::size_t size);

/// The same without a copy, for the walk of a program. The view points into the kept text or into `defaultValue`: it is
/// valid until the next call of this header or until `defaultValue` goes. During steady reads (below) a look-up allocates
/// nothing but when the file is looked at again.
std::string_view FindProfileString(std::string_view path, std::string_view section, std::string_view key,
                                   std::string_view defaultValue, std::size_t size);

/// The names of all keys of the first section of that name, in file order, a NUL behind each (the call with no key).
/// Lines without '=' and the empty key are left out. A list longer than size - 1 is cut to size - 2 bytes.
std::string ReadProfileKeys(const std::string& path, std::string_view section, std::size_t size);

/// The same for the names of all sections, repeated ones too (the call with no section).
std::string ReadProfileSections(const std::string& path, std::size_t size);

/// Replaces or adds a key in place, keeping all other lines; makes the file when its folder is there. False, and nothing
/// changed, when the file can't be written, and for a section without data (std::string_view(), no section at all).
/// Read-only is what nobody may write: it holds for the superuser too.
bool WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value);

/// Deletes the first key of that name / header and keys of the first section of that name. One that is missing is no
/// error. False when the file can't be written.
bool DeleteProfileKey(const std::string& path, std::string_view section, std::string_view key);
bool DeleteProfileSection(const std::string& path, std::string_view section);

/// Between these two calls the files are looked at for changes only every few milliseconds, the resolution of
/// their time stamps: for the walk of a program, which reads its table millions of times.
void BeginSteadyReads();
void EndSteadyReads() noexcept;
