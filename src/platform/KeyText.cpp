#include "platform/KeyText.h"

#include "platform/CodePage.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <cstring>

namespace
{
constexpr std::string_view WideMark = "\xFF\xFE";
constexpr std::size_t LongestValue = 65535; // a longer one arrives with its length modulo one more

bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\x0b' || c == '\x0c' || c == '\x1a';
}

std::string_view TrimBlanks(std::string_view text)
{
    while (!text.empty() && IsBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && IsBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

std::string_view UpToNul(std::string_view text)
{
    return text.substr(0, text.find('\0'));
}

char Folded(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

/// Eight characters at once, A to Z as a to z.
std::uint64_t FoldedWord(std::uint64_t word)
{
    constexpr std::uint64_t Each = 0x0101010101010101;
    constexpr std::uint64_t HighBits = Each * 0x80;
    const std::uint64_t low = word & ~HighBits;
    const std::uint64_t fromA = low + Each * (0x80 - 'A'); // high bit set from 'A' on
    const std::uint64_t pastZ = low + Each * (0x7F - 'Z'); // and here from the one behind 'Z' on
    const std::uint64_t capital = (fromA ^ pastZ) & ~word & HighBits;
    return word | capital >> 2; // 0x80 becomes the 0x20 between the cases
}

bool SameName(std::string_view a, std::string_view b)
{
    return a.size() == b.size() && (a == b || std::equal(a.begin(), a.end(), b.begin(), [](char x, char y) {
                                        return Folded(x) == Folded(y);
                                    }));
}

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word)
{
    constexpr std::uint64_t Factor = 0x9E3779B97F4A7C15;
    hash = (hash ^ FoldedWord(word)) * Factor;
    return hash ^ hash >> 32;
}

/// The same for names of the same letters; look-ups are made by the million, so it takes eight characters a step.
std::uint32_t NameHash(std::string_view name, std::uint32_t start)
{
    std::uint64_t word = 0;
    std::uint64_t hash = Mixed(start, name.size());
    for (; name.size() >= sizeof word; name.remove_prefix(sizeof word)) {
        std::memcpy(&word, name.data(), sizeof word);
        hash = Mixed(hash, word);
    }
    word = 0;
    for (const char c : name) {
        word = word << 8 | static_cast<unsigned char>(c);
    }
    return static_cast<std::uint32_t>(Mixed(hash, word));
}

char16_t WideUnit(std::string_view wide, std::size_t index)
{
    return static_cast<char16_t>(static_cast<unsigned char>(wide[2 * index]) |
                                 static_cast<unsigned char>(wide[2 * index + 1]) << 8);
}

char NarrowUnit(char16_t unit)
{
    const auto* const found = std::find(CodePageRow.begin(), CodePageRow.end(), unit);
    if (found != CodePageRow.end()) {
        return static_cast<char>(FirstOfRow + static_cast<unsigned>(found - CodePageRow.begin()));
    }
    const bool same = unit < FirstOfRow || (unit > LastOfRow && unit <= 0xFF);
    return same ? static_cast<char>(unit) : '?';
}

/// True when a '?' of this part of the text stands for a character outside the code page.
bool HoldsForeign(const KeyText& text, std::string_view part)
{
    if (!text.IsWide) {
        return false;
    }
    const auto start = static_cast<std::size_t>(part.data() - text.Text.data());
    for (std::size_t i = 0; i < part.size(); ++i) {
        if (part[i] == '?' && WideUnit(text.Wide, start + i) != u'?') {
            return true;
        }
    }
    return false;
}

std::string_view PartOf(const KeyText& text, std::uint32_t start, std::uint32_t length)
{
    return std::string_view(text.Text).substr(start, length);
}

std::uint32_t OffsetIn(const KeyText& text, std::string_view part)
{
    return part.empty() ? 0 : static_cast<std::uint32_t>(part.data() - text.Text.data());
}

/// The place of the row that `isIt` accepts, or the free place where it belongs.
template <typename Row, typename Test>
std::size_t FindPlace(const NamePlaces& places, const std::vector<Row>& rows, std::uint32_t hash, Test isIt)
{
    const std::size_t mask = places.size() - 1;
    std::size_t at = hash & mask;
    while (places[at] != 0) {
        const Row& row = rows[places[at] - 1];
        if (row.Hash == hash && isIt(row)) {
            break;
        }
        at = (at + 1) & mask;
    }
    return at;
}

/// Doubles the table when it is half full.
template <typename Row> void GrowPlaces(NamePlaces& places, const std::vector<Row>& rows)
{
    constexpr std::size_t FirstSize = 16;
    if (2 * (rows.size() + 1) <= places.size()) {
        return;
    }
    NamePlaces wider(std::max(FirstSize, places.size() * 2), 0);
    for (std::size_t i = 0; i < rows.size(); ++i) {
        wider[FindPlace(wider, rows, rows[i].Hash, [](const Row&) { return false; })] =
            static_cast<std::uint32_t>(i + 1);
    }
    places.swap(wider);
}

std::size_t SectionPlace(const KeyText& text, std::string_view name, std::uint32_t hash)
{
    return FindPlace(text.SectionPlaces, text.Sections, hash, [&](const SectionLine& row) {
        return SameName(PartOf(text, row.NameStart, row.NameLength), name);
    });
}

std::size_t KeyPlace(const KeyText& text, std::uint32_t section, std::string_view name, std::uint32_t hash)
{
    return FindPlace(text.KeyPlaces, text.Keys, hash, [&](const KeyLine& row) {
        return row.Section == section && SameName(PartOf(text, row.NameStart, row.NameLength), name);
    });
}

/// False when a section of that name is known already: its second one is not searched.
bool AddSection(KeyText& text, std::string_view name)
{
    GrowPlaces(text.SectionPlaces, text.Sections);
    const std::uint32_t hash = NameHash(name, 0);
    const std::size_t place = SectionPlace(text, name, hash);
    if (HoldsForeign(text, name) || text.SectionPlaces[place] != 0) {
        return false;
    }
    text.Sections.push_back({hash, OffsetIn(text, name), static_cast<std::uint32_t>(name.size())});
    text.SectionPlaces[place] = static_cast<std::uint32_t>(text.Sections.size());
    return true;
}

void AddKey(KeyText& text, std::uint32_t section, const KeyTextLine& line)
{
    GrowPlaces(text.KeyPlaces, text.Keys);
    const std::uint32_t hash = NameHash(line.Name, section);
    const std::size_t place = KeyPlace(text, section, line.Name, hash);
    if (HoldsForeign(text, line.Name) || text.KeyPlaces[place] != 0) {
        return;
    }
    text.Keys.push_back({hash, section, OffsetIn(text, line.Name),
                         static_cast<std::uint32_t>(line.Name.size()), OffsetIn(text, line.Value),
                         static_cast<std::uint32_t>(line.Value.size()), line.HasValue});
    text.KeyPlaces[place] = static_cast<std::uint32_t>(text.Keys.size());
}
} // namespace

std::string_view NameArgument(std::string_view name)
{
    name = UpToNul(name);
    while (!name.empty() && name.front() == ' ') {
        name.remove_prefix(1);
    }
    while (!name.empty() && name.back() == ' ') {
        name.remove_suffix(1);
    }
    return name;
}

bool NextKeyTextLine(std::string_view& rest, KeyTextLine& line)
{
    const std::string_view before = rest;
    std::string_view content;
    if (!NextLine(rest, content)) {
        return false;
    }
    line = KeyTextLine();
    line.Whole = before.substr(0, before.size() - rest.size());
    line.Ended = line.Whole.size() > content.size();
    content = TrimBlanks(content);
    if (content.empty()) {
        return true;
    }
    if (content.front() == '[') {
        line.Kind = KeyTextKind::Header;
        line.Name = UpToNul(TrimBlanks(content.substr(1, content.find(']') - 1)));
        return true;
    }
    if (content.front() == ';' || content.front() == '\0') {
        line.Kind = KeyTextKind::Comment;
        return true;
    }
    const std::size_t equals = content.find('=');
    line.Kind = KeyTextKind::Key;
    line.Name = UpToNul(TrimBlanks(content.substr(0, equals)));
    line.HasValue = equals != std::string_view::npos;
    line.Value = line.HasValue ? UpToNul(TrimBlanks(content.substr(equals + 1))) : std::string_view();
    return true;
}

void DecodeKeyText(std::string bytes, KeyText& text)
{
    text.IsWide = bytes.starts_with(WideMark);
    if (!text.IsWide) {
        text.Text = std::move(bytes);
        return;
    }
    text.Wide = bytes.substr(WideMark.size());
    text.Text.resize(text.Wide.size() / 2);
    for (std::size_t i = 0; i < text.Text.size(); ++i) {
        text.Text[i] = NarrowUnit(WideUnit(text.Wide, i));
    }
}

std::string Widened(std::string_view text)
{
    std::string wide;
    wide.reserve(2 * text.size());
    for (const char c : text) {
        const char16_t unit = CodePageCharacter(static_cast<unsigned char>(c));
        wide += static_cast<char>(unit & 0xFF);
        wide += static_cast<char>(unit >> 8);
    }
    return wide;
}

bool IsNamed(const KeyText& text, std::string_view nameInText, std::string_view name)
{
    return SameName(nameInText, name) && !HoldsForeign(text, nameInText);
}

KeyText ParseKeyText(std::string bytes)
{
    KeyText text;
    if (bytes.size() > LargestKeyText) {
        return text;
    }
    DecodeKeyText(std::move(bytes), text);
    std::string_view rest = text.Text;
    KeyTextLine line;
    bool searched = false; // lines ahead of the first header belong to no section
    while (NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header) {
            searched = AddSection(text, line.Name);
        } else if (line.Kind == KeyTextKind::Key && searched) {
            AddKey(text, static_cast<std::uint32_t>(text.Sections.size() - 1), line);
        }
    }
    return text;
}

bool FindKeyValue(const KeyText& text, std::string_view section, std::string_view key,
                  std::string_view& value)
{
    if (text.Sections.empty() || text.Keys.empty()) {
        return false;
    }
    section = NameArgument(section);
    key = NameArgument(key);
    const std::size_t place = SectionPlace(text, section, NameHash(section, 0));
    if (text.SectionPlaces[place] == 0) {
        return false;
    }
    const std::uint32_t number = text.SectionPlaces[place] - 1;
    const std::uint32_t keyNumber = text.KeyPlaces[KeyPlace(text, number, key, NameHash(key, number))];
    if (keyNumber == 0 || !text.Keys[keyNumber - 1].HasValue) {
        return false;
    }
    const KeyLine& line = text.Keys[keyNumber - 1];
    value = PartOf(text, line.ValueStart, line.ValueLength);
    return true;
}

std::string_view DeliveredValue(std::string_view value, std::size_t size)
{
    if (value.size() > LongestValue) {
        value = value.substr(0, value.size() % (LongestValue + 1));
    }
    if (value.size() >= 2 && (value.front() == '"' || value.front() == '\'') &&
        value.back() == value.front()) {
        value = value.substr(1, value.size() - 2);
    }
    return value.substr(0, size == 0 ? 0 : size - 1);
}

std::string_view DeliveredDefault(std::string_view defaultValue, std::size_t size)
{
    defaultValue = UpToNul(defaultValue);
    while (!defaultValue.empty() && defaultValue.back() == ' ') {
        defaultValue.remove_suffix(1);
    }
    return DeliveredValue(defaultValue, size);
}

std::string ListKeys(const KeyText& text, std::string_view section)
{
    section = NameArgument(section);
    std::string names;
    std::string_view rest = text.Text;
    KeyTextLine line;
    bool inSection = false;
    while (NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header) {
            if (inSection) {
                break; // only the first section of a name is searched
            }
            inSection = IsNamed(text, line.Name, section);
        } else if (inSection && line.Kind == KeyTextKind::Key && line.HasValue && !line.Name.empty()) {
            names.append(line.Name).append(1, '\0');
        }
    }
    return names;
}

std::string ListSections(const KeyText& text)
{
    std::string names;
    std::string_view rest = text.Text;
    KeyTextLine line;
    while (NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header && !line.Name.empty()) {
            names.append(line.Name).append(1, '\0');
        }
    }
    return names;
}
