// Any bytes as a key file: the index finds what a walk over the lines finds, and what is written is read back, in memory
// and on the disk.
// The first line of the input is section, key and value with tabs between them; the file follows.
#include "FuzzFiles.h"

#include "platform/KeyText.h"
#include "platform/ProfileStrings.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace
{
constexpr std::size_t BufferSize = 50;
constexpr std::size_t KeysLookedUp = 50; // of a large file: each one costs a walk

std::string_view CutAt(std::string_view& rest, char end)
{
    const std::size_t at = std::min(rest.find(end), rest.size());
    const std::string_view part = rest.substr(0, at);
    rest.remove_prefix(std::min(at + 1, rest.size()));
    return part;
}

bool FindPlainly(const KeyText& text, std::string_view section, std::string_view key, std::string_view& value)
{
    section = NameArgument(section);
    key = NameArgument(key);
    std::string_view rest = text.Text;
    KeyTextLine line;
    bool inSection = false;
    while (NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header) {
            if (inSection) {
                return false;
            }
            inSection = IsNamed(text, line.Name, section);
        } else if (inSection && line.Kind == KeyTextKind::Key && IsNamed(text, line.Name, key)) {
            value = line.Value;
            return line.HasValue;
        }
    }
    return false;
}

/// A name or value that comes back as it was written.
bool IsPlain(std::string_view text)
{
    return std::all_of(text.begin(), text.end(), [](char c) {
        return (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z') || c == '_' ||
               c == '.';
    });
}

void CheckLookUp(const KeyText& text, std::string_view section, std::string_view key)
{
    std::string_view value;
    std::string_view plain;
    const bool found = FindKeyValue(text, section, key, value);
    Require(found == FindPlainly(text, section, key, plain));
    Require(!found || value == plain);
    Require(DeliveredValue(value, BufferSize).size() < BufferSize);
}

void CheckChanges(const std::string& bytes, std::string_view section, std::string_view key,
                  std::string_view value)
{
    const std::string after = WithKeySet(bytes, section, key, value);
    const KeyText text = ParseKeyText(after);
    std::string_view back;
    const bool found = FindKeyValue(text, section, key, back);
    if (IsPlain(section) && IsPlain(key) && IsPlain(value)) {
        Require(found && back == value);
        Require(WithKeySet(after, section, key, value) == after);
    }
    Require(WithoutKey(bytes, section, key).size() <= bytes.size());
    Require(WithoutSection(bytes, section).size() <= bytes.size());
}
/// What a read of the disk delivers, by the text in memory.
std::string Delivered(const std::string& bytes, std::string_view section, std::string_view key,
                      std::string_view defaultValue)
{
    const KeyText text = ParseKeyText(bytes);
    std::string_view value;
    return std::string(FindKeyValue(text, section, key, value) ? DeliveredValue(value, BufferSize)
                                                               : DeliveredDefault(defaultValue, BufferSize));
}

std::string BytesOf(const std::string& path)
{
    std::string bytes;
    Require(ReadWholeFile(path, bytes));
    return bytes;
}

/// The calls on a file do what the routines of the text do.
void CheckFile(const std::string& path, const std::string& bytes, std::string_view section,
               std::string_view key, std::string_view value)
{
    WriteBytes(path, bytes);
    Require(ReadProfileString(path, section, key, value, BufferSize) ==
            Delivered(bytes, section, key, value));
    Require(ReadProfileKeys(path, section, BufferSize).size() < BufferSize);
    Require(ReadProfileSections(path, BufferSize).size() < BufferSize);
    Require(WriteProfileString(path, section, key, value));
    Require(BytesOf(path) == WithKeySet(bytes, section, key, value));
    WriteBytes(path, bytes);
    Require(DeleteProfileKey(path, section, key) && BytesOf(path) == WithoutKey(bytes, section, key));
    WriteBytes(path, bytes);
    Require(DeleteProfileSection(path, section) && BytesOf(path) == WithoutSection(bytes, section));
}

/// A file that isn't there is made by a key, and by nothing else.
void CheckNewFile(const std::string& path, std::string_view section, std::string_view key,
                  std::string_view value)
{
    std::remove(path.c_str());
    Require(DeleteProfileSection(path, section));
    BeginSteadyReads();
    Require(ReadProfileString(path, section, key, value, BufferSize) == DeliveredDefault(value, BufferSize));
    EndSteadyReads();
    const std::string after = WithKeySet("", section, key, value);
    Require(WriteProfileString(path, section, key, value));
    Require(after.empty() || BytesOf(path) == after);
    Require(!WriteProfileString(path, std::string_view(), key, value)); // no section at all
    Require(!WriteProfileString("/nowhere/NEW.ini", section, key, "1"));
    Require(!DeleteProfileKey("/nowhere/NEW.ini", section, key));
    for (const char* const other :
         {"/1", "/2", "/3", "/4"}) { // as many as are kept in mind: then `path` is read anew
        Require(ReadProfileKeys(path + other, section, BufferSize).empty());
    }
    Require(ReadProfileKeys(path, section, 1).empty());
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    std::string_view rest(reinterpret_cast<const char*>(data), size);
    std::string_view names = CutAt(rest, '\n');
    const std::string_view section = CutAt(names, '\t');
    const std::string_view key = CutAt(names, '\t');
    const std::string bytes(rest);
    const KeyText text = ParseKeyText(bytes);
    CheckLookUp(text, section, key);
    const std::size_t step = text.Keys.size() / KeysLookedUp + 1;
    for (std::size_t i = 0; i < text.Keys.size(); i += step) {
        const KeyLine& line = text.Keys[i];
        const std::string_view whole = text.Text;
        const SectionLine& header = text.Sections[line.Section];
        CheckLookUp(text, whole.substr(header.NameStart, header.NameLength),
                    whole.substr(line.NameStart, line.NameLength));
    }
    Require(ListKeys(text, section).size() <= text.Text.size() + 1);
    Require(ListSections(text).size() <= text.Text.size() + 1);
    CheckChanges(bytes, section, key, names);
    static const std::string folder = MakeFuzzFolder("key_files");
    CheckFile(folder + "/KEYS.ini", bytes, section, key, names);
    CheckNewFile(folder + "/NEW.ini", section, key, names);
    return 0;
}
