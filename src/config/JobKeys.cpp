#include "config/JobKeys.h"

#include "config/Korvanta_Utility.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"

namespace
{
constexpr std::size_t JobBufferSize = 50; // 49 characters and their end
} // namespace

std::string ReadJobKey(const std::string& file, const std::string& section, const std::string& key,
                       const std::string& defaultValue)
{
    return ZeroTerminated(
        ReadProfileString(AppState.NestingPath + file, section, key, defaultValue, JobBufferSize));
}
