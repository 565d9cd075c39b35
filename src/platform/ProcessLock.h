// ProcessLock.h -- a lock file that one process of a user can hold, and that the system frees with the process.
#pragma once

#include <cstdint>
#include <string>

enum class LockAnswer {
    Taken,       ///< by this call
    HeldByOther, ///< another process lives and holds it
    Unavailable  ///< the file can't be made, isn't this user's own, or its file system knows no locks
};

/// Takes the lock of the file `path` (native), which is made when it is missing and stays behind: its presence says
/// nothing. Does not wait. `handle` is what ReleaseProcessLock needs, -1 unless taken.
/// Programs started later don't inherit the lock, and it is free as soon as this process is gone, however it ended.
LockAnswer TakeProcessLock(const std::string& path, int& handle);

/// Frees a lock; -1 is no lock.
void ReleaseProcessLock(int handle);

/// The number of the user this process works for.
std::uint32_t UserNumber();
