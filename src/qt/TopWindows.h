// TopWindows.h -- one station at a time: the windows of the desktop by title, and a local lock beside them for display
// servers that don't tell titles and for two starts in the same moment.
#pragma once

/// Called in the first station when a second start asks it to come to the foreground; null before the window is there.
extern void (*StationRaised)();

/// Lets go of the local lock, ahead of the end of the process.
void ReleaseStationLock();
