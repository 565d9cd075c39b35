// KeyText.h -- the text of a sectioned key file in memory: its lines, its names, and changes to it in place. Knows
// nothing of files; ProfileStrings brings them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

/// The first line of a key name within its section.
struct KeyLine {
    std::uint32_t Hash = 0;
    std::uint32_t Section = 0; ///< index in KeyText.Sections
    std::uint32_t NameStart = 0;
    std::uint32_t NameLength = 0;
    std::uint32_t ValueStart = 0;
    std::uint32_t ValueLength = 0;
    bool HasValue = false; ///< there is a '='; a line without one hides later lines of its name
};

/// The first header of a section name.
struct SectionLine {
    std::uint32_t Hash = 0;
    std::uint32_t NameStart = 0;
    std::uint32_t NameLength = 0;
};

/// Tables of places: each holds an index + 1 at a place found from the hash of the name, 0 where it is free.
using NamePlaces = std::vector<std::uint32_t>;

struct KeyText {
    /// One byte per character in code page 1252. UTF-16 files are brought to it, '?' for what it does not hold.
    std::string Text;
    std::string Wide; ///< the bytes of a UTF-16 file behind its mark; otherwise empty
    bool IsWide = false;
    std::vector<SectionLine> Sections;
    std::vector<KeyLine> Keys;
    NamePlaces SectionPlaces;
    NamePlaces KeyPlaces;
};

/// Texts beyond this are no key files: they count as missing, and their memory stays bounded.
inline constexpr std::size_t LargestKeyText = std::size_t{64} << 20;

/// Takes the bytes of a file apart, in linear time. Any bytes will do.
KeyText ParseKeyText(std::string bytes);

/// The value as it stands in the file, trimmed, quotes included; false when section, key or '=' is missing. The view
/// is valid as long as `text`.
bool FindKeyValue(const KeyText& text, std::string_view section, std::string_view key,
                  std::string_view& value);

/// What a read call delivers of a value or default: one pair of quotes removed, at most size - 1 bytes.
std::string_view DeliveredValue(std::string_view value, std::size_t size);

/// What a read call makes of its default: cut at NUL, spaces at its end dropped, then as DeliveredValue.
std::string_view DeliveredDefault(std::string_view defaultValue, std::size_t size);

/// All key names of the first section of that name / all section names, in file order, a NUL behind each.
std::string ListKeys(const KeyText& text, std::string_view section);
std::string ListSections(const KeyText& text);

/// The file with the key set to `value`: replaced in its place, or added behind the last key of its section, or in a
/// new section at the end. The same bytes when it has this value already.
std::string WithKeySet(const std::string& bytes, std::string_view section, std::string_view key,
                       std::string_view value);

/// The file without the first key of that name / without the header and keys of the first section of that name, whose
/// comments and blank lines stay.
std::string WithoutKey(const std::string& bytes, std::string_view section, std::string_view key);
std::string WithoutSection(const std::string& bytes, std::string_view section);

// --- for the two bodies, KeyText.cpp and KeyTextEdit.cpp ----------------------------------------------------------

enum class KeyTextKind { Blank, Comment, Header, Key };

/// One line of a key text. Views point into the text.
struct KeyTextLine {
    KeyTextKind Kind = KeyTextKind::Blank;
    std::string_view Whole; ///< its end included
    std::string_view Name;  ///< of a header or key
    std::string_view Value; ///< of a key
    bool HasValue = false;
    bool Ended = false; ///< false for a last line without end
};

/// Cuts the next line off `rest` and tells what it is. False at the end.
bool NextKeyTextLine(std::string_view& rest, KeyTextLine& line);

/// Splits the bytes of a file into Text and Wide.
void DecodeKeyText(std::string bytes, KeyText& text);

/// True for the same name, case of A to Z aside. A name of a UTF-16 file that holds a character outside the code page is
/// the same as no other.
bool IsNamed(const KeyText& text, std::string_view nameInText, std::string_view name);

/// A name given to a call: up to its first NUL, without the spaces at both ends.
std::string_view NameArgument(std::string_view name);

/// `text` (code page 1252) as UTF-16 little endian.
std::string Widened(std::string_view text);
