// TopWindows.h -- one station at a time on a display: the windows of the desktop by title, and a local lock beside
// them for display servers that don't tell titles and for two starts in the same moment.
//
// The first call of ListTopWindows takes the lock of this user and this display. When another station holds it, one
// more window with the program's name stands at the end of the list; to raise it asks that station to come forward.
// The lock ends with the process that holds it, however it ended. Where it can't be had, titles alone decide.
#pragma once

/// Called in the first station, from its event loop, when a second start asks it to come to the foreground; null
/// before the window is there. On Wayland XDG_ACTIVATION_TOKEN then holds the right to do so, if the starter had it.
extern void (*StationRaised)();

/// Lets go of the local lock, ahead of the end of the process. Does nothing when it isn't held.
void ReleaseStationLock();
