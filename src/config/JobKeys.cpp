#include "config/JobKeys.h"

#include "config/Korvanta_Utility.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"

namespace
{
constexpr std::size_t LongestValue = 49; // characters
} // namespace

std::string ReadJobKey(const std::string& file, const std::string& section, const std::string& key,
                       const std::string& defaultValue)
{
    const std::string value =
        ReadProfileString(AppState.NestingPath + file, section, key, defaultValue, BufferFor(LongestValue));
    return ZeroTerminated(FirstCharacters(value, LongestValue));
}
