#include "config/PprValues.h"

#include "config/Korvanta_Utility.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"

#include <algorithm>

namespace
{
constexpr std::size_t PprBufferSize = 256; // 255 characters and their end
} // namespace

std::string ReadPprValue(std::string_view section, std::string_view key, std::string_view defaultValue)
{
    if (AppState.PprIniName.empty()) {
        AppState.PprIniName = "PPR.ini";
    }
    std::string value = ReadProfileString(AppState.AppPath + "\\" + AppState.PprIniName, section, Trim(key),
                                          defaultValue, PprBufferSize);
    value.resize(std::min(value.find('\0'), value.size()));
    return value;
}

bool ReadIncrementalCentre()
{
    return !Contains(ReadPprValue("PartProgram_CONFIG", "INC_CENTER", "NO"), "NO");
}
