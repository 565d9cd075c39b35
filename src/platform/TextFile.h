// TextFile.h -- whole texts in, texts out: files end their lines in CR LF and appear under their name only
// when they are complete.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>

/// Beyond it a file is broken or nothing of ours.
inline constexpr std::size_t LargestFile = std::size_t{1} << 30;

/// Reads a whole plain file as bytes, `limit` of them at most. False when it is longer or can't be read; `content` is
/// then empty.
bool ReadWholeFile(const std::string& path, std::string& content, std::size_t limit = LargestFile);

/// Cuts the next line off `rest`: CR LF, LF or CR ends it; the last line needs no end. False at the end.
bool NextLine(std::string_view& rest, std::string_view& line);

/// What becomes of an old file of the name that is being written.
enum class OldFile {
    Removed, ///< at once: a failed run leaves nothing that could be taken for its result
    Stays,   ///< whole, until the new one takes its place
};

/// A text being written: to path + ".part" until CloseText gives it its name.
struct TextWriter {
    std::FILE* Handle = nullptr;
    std::string Path; ///< the finished file's name, as the operator writes it
    OldFile Old = OldFile::Removed;
    std::string Buffer;    ///< bytes not yet handed to the system
    bool KeepSum = false;  ///< asked for before the file is opened; WriteTextLine keeps Sum then
    std::uint64_t Sum = 0; ///< of all lines so far, see AddToSum
};

/// Opens path + ".part" for writing. A failure is a RunTimeFault that names the file and the reason.
void OpenText(TextWriter& writer, const std::string& path, OldFile old = OldFile::Removed);

/// Adds `line` and CR LF. A full disk is a RunTimeFault.
void WriteTextLine(TextWriter& writer, std::string_view line);

/// Writes what is left, closes, and gives the file its finished name. RunTimeFault when any of it fails; the
/// ".part" stays and no new file appears under the finished name.
void CloseText(TextWriter& writer);

/// Closes what a fault left open; the ".part" keeps what was written. Does nothing when nothing is open.
void AbandonText(TextWriter& writer) noexcept;

/// Writes a whole text at once under its finished name (through ".part"), each bare LF as CR LF.
/// RunTimeFault on failure.
void WriteWholeText(const std::string& path, std::string_view content);

/// The sum of a text with one more line: two texts with the same sum are the same, by all human measure.
std::uint64_t AddToSum(std::uint64_t sum, std::string_view line);

/// A text being read line by line, so that its size doesn't matter.
struct TextReader {
    std::FILE* Handle = nullptr;
    std::string Buffer; ///< bytes read and not yet handed out, from At on
    std::size_t At = 0;
    std::int64_t Lines = 0; ///< handed out so far
};

/// Opens a plain file; what `reader` had open is closed. False when it can't be read.
bool OpenForReading(TextReader& reader, const std::string& path);

/// The next line without its LF or CR LF; it holds until the next call. A line beyond 64 KiB with its end comes in pieces. False at
/// the end.
bool ReadTextLine(TextReader& reader, std::string_view& line);

void CloseReader(TextReader& reader) noexcept;
