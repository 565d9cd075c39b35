#include "config/JobKeys.h"

#include "config/Korvanta_Utility.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"

namespace
{
constexpr std::size_t LongestValue = 49;                 // characters
constexpr std::size_t BufferSize = 4 * LongestValue + 1; // each of up to four bytes, and an end
} // namespace

std::string ReadJobKey(const std::string& file, const std::string& section, const std::string& key,
                       const std::string& defaultValue)
{
    const std::string value =
        ReadProfileString(AppState.NestingPath + file, section, key, defaultValue, BufferSize);
    return ZeroTerminated(FirstCharacters(value, LongestValue));
}
