#include "config/PprValues.h"

#include "config/Korvanta_Utility.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"

#include <algorithm>
#include <array>

namespace
{
constexpr std::size_t LongestValue = 255; // characters: a text for the operator isn't cut within a letter

/// The path of the table. A program reads millions of keys, so paths of usual length are put together in place.
struct TablePath {
    std::array<char, 512> Room; // as far as Text tells
    std::string Long;
    std::string_view Text;

    TablePath()
    {
        const std::string& folder = AppState.AppPath;
        const std::string& name = AppState.PprIniName;
        if (folder.size() + 1 + name.size() > Room.size()) {
            Long = folder + "\\" + name;
            Text = Long;
            return;
        }
        char* end = std::copy(folder.begin(), folder.end(), Room.data());
        *end++ = '\\';
        end = std::copy(name.begin(), name.end(), end);
        Text = {Room.data(), static_cast<std::size_t>(end - Room.data())};
    }
    TablePath(const TablePath&) = delete;
    TablePath& operator=(const TablePath&) = delete;
};
} // namespace

std::string_view FindPprValue(std::string_view section, std::string_view key, std::string_view defaultValue)
{
    if (AppState.PprIniName.empty()) {
        AppState.PprIniName = "PPR.ini";
    }
    const TablePath path;
    // The key file drops the blanks around a key, as it does with those around a section.
    const std::string_view value =
        FindProfileString(path.Text, section, key, defaultValue, BufferFor(LongestValue));
    return FirstCharacters(value.substr(0, value.find('\0')), LongestValue);
}

std::string ReadPprValue(std::string_view section, std::string_view key, std::string_view defaultValue)
{
    return std::string(FindPprValue(section, key, defaultValue));
}

bool ReadIncrementalCentre()
{
    return !Contains(FindPprValue("PartProgram_CONFIG", "INC_CENTER", "NO"), "NO");
}
