#include "platform/ProcessLock.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
/// In a folder that all may write to, another user could have put a file, a link or a pipe of that name there.
bool IsOwnPlainFile(int file)
{
    struct stat status = {};
    return fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_uid == geteuid();
}
} // namespace

LockAnswer TakeProcessLock(const std::string& path, int& handle)
{
    constexpr mode_t OnlyTheUser = 0600;
    handle = -1;
    const int file =
        open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW | O_NONBLOCK | O_NOCTTY, OnlyTheUser);
    if (file < 0) {
        return LockAnswer::Unavailable;
    }
    LockAnswer answer = LockAnswer::Unavailable;
    if (IsOwnPlainFile(file)) {
        if (flock(file, LOCK_EX | LOCK_NB) == 0) {
            handle = file;
            return LockAnswer::Taken;
        }
        answer = errno == EWOULDBLOCK ? LockAnswer::HeldByOther : LockAnswer::Unavailable;
    }
    close(file);
    return answer;
}

void ReleaseProcessLock(int handle)
{
    if (handle >= 0) {
        close(handle);
    }
}

std::uint32_t UserNumber()
{
    return geteuid();
}
