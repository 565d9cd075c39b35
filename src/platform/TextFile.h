// TextFile.h -- whole texts in, texts out: files end their lines in CR LF and appear under their name only
// when they are complete.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

/// Reads a whole plain file as bytes, 1 GB at most. False when it can't be read; `content` is then empty.
bool ReadWholeFile(const std::string& path, std::string& content);

/// Cuts the next line off `rest`: CR LF, LF or CR ends it; the last line needs no end. False at the end.
bool NextLine(std::string_view& rest, std::string_view& line);

/// A text being written: to path + ".part" until CloseText gives it its name.
struct TextWriter {
    std::FILE* Handle = nullptr;
    std::string Path;   ///< the finished file's name, as the operator writes it
    std::string Native; ///< the same, native
    std::string Buffer; ///< bytes not yet handed to the system
};

/// Removes an old file of that name, then opens path + ".part" for writing.
/// A failure is a RunTimeFault that names the file and the reason.
void OpenText(TextWriter& writer, const std::string& path);

/// Adds `line` and CR LF. A full disk is a RunTimeFault.
void WriteTextLine(TextWriter& writer, std::string_view line);

/// Writes what is left, closes, and gives the file its finished name. RunTimeFault when any of it fails; the
/// ".part" stays and no finished name appears.
void CloseText(TextWriter& writer);

/// Closes what a fault left open; the ".part" keeps what was written. Does nothing when nothing is open.
void AbandonText(TextWriter& writer) noexcept;

/// Writes a whole text at once under its finished name (through ".part"), each bare LF as CR LF.
/// RunTimeFault on failure.
void WriteWholeText(const std::string& path, std::string_view content);
