#include "qt/TopWindows.h"

#include "platform/Screen.h"

void (*StationRaised)() = nullptr;

void ReleaseStationLock() {}

std::vector<TopWindow> ListTopWindows()
{
    return {};
}

void RaiseTopWindow(std::intptr_t) {}
