#include "shell/Korvanta_VELInterface.h"

#include "platform/Host.h"
#include "platform/Screen.h"
#include "state/AppState.h"

namespace
{
constexpr std::int32_t LastHostLanguage = 5;

/// The number that goes with a call; hosts know no other.
constexpr std::int32_t CallNumber = 1;
} // namespace

/// The host is asked twice, and its second answer counts: a host that has just come up may have settled meanwhile.
std::int16_t HostLanguage()
{
    std::int32_t index = 0;
    if (!ReadHostLanguage(index) || !ReadHostLanguage(index)) {
        RunSystemBox("Critical Error", "VELCOMLib non found!");
        EndProcess(1);
    }
    const bool known = index >= 0 && index <= LastHostLanguage;
    return static_cast<std::int16_t>(known ? index + 1 : 1);
}

void HostAnnounce()
{
    AnnounceToHost(CallNumber);
}

void HostOpenProgram(const std::string& fileName)
{
    OpenAtHost(AppState.NcPath + fileName, CallNumber);
}
