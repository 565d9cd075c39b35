#include "platform/SafeFile.h"

#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/TextFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr mode_t NewFileMode = 0666; // the process' mask takes its share

std::string SecondNameOf(const std::string& path)
{
    return NativeNewPath(path) + UnfinishedEnd;
}

/// Ends a failed step; `error` tells the reason.
[[noreturn]] void Fail(const std::string& path, int error)
{
    DropSecondName(path);
    throw RunTimeFault("Cannot write " + NativeNewPath(path) + ": " + std::strerror(error));
}

bool WriteAll(int file, std::string_view content)
{
    while (!content.empty()) {
        const ssize_t written = ::write(file, content.data(), content.size());
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        content.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

void WriteWith(const std::string& path, std::string_view content, int flags)
{
    const int file = ::open(SecondNameOf(path).c_str(), O_WRONLY | O_CLOEXEC | flags, NewFileMode);
    if (file < 0) {
        Fail(path, errno);
    }
    const int error = WriteAll(file, content) ? 0 : errno;
    const int closeError = ::close(file) == 0 ? 0 : errno;
    if (error != 0 || closeError != 0) {
        Fail(path, error != 0 ? error : closeError);
    }
}

/// The content reaches the disk ahead of the name: whatever happens then, the name never stands for half a file.
bool Settle(const std::string& native)
{
    const int file = ::open(native.c_str(), O_RDONLY | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    const bool done = ::fdatasync(file) == 0 || errno == EINVAL; // some file systems have nothing to settle
    const int error = errno;
    ::close(file);
    errno = error;
    return done;
}

/// False, with errno set, for what is neither a file nor a link nor missing.
bool MayBeReplaced(const std::string& native)
{
    struct stat status = {};
    if (::lstat(native.c_str(), &status) != 0 || S_ISREG(status.st_mode) || S_ISLNK(status.st_mode)) {
        return true;
    }
    errno = S_ISDIR(status.st_mode) ? EISDIR : EEXIST;
    return false;
}
} // namespace

void WriteSecondName(const std::string& path, std::string_view content)
{
    WriteWith(path, content, O_CREAT | O_TRUNC);
}

void AppendSecondName(const std::string& path, std::string_view content)
{
    WriteWith(path, content, O_APPEND);
}

bool ReadSecondName(const std::string& path, std::string& content, std::size_t limit)
{
    return ReadWholeFile(SecondNameOf(path), content, limit);
}

bool TakeName(const std::string& path, bool settle)
{
    const std::string old = NativePath(path);
    const std::string native = NativeNewPath(path);
    const std::string second = native + UnfinishedEnd;
    if (!MayBeReplaced(old) || (settle && !Settle(second)) ||
        std::rename(second.c_str(), native.c_str()) != 0) {
        return false;
    }
    if (old != native) {
        ::unlink(old.c_str());
    }
    return true;
}

void PutInPlace(const std::string& path, bool settle)
{
    if (!TakeName(path, settle)) {
        Fail(path, errno);
    }
}

bool TakeNameAway(const std::string& path)
{
    return std::rename(NativePath(path).c_str(), SecondNameOf(path).c_str()) == 0;
}

void DropSecondName(const std::string& path) noexcept
{
    try {
        ::unlink(SecondNameOf(path).c_str());
    } catch (...) { // no memory for the name: it stays
    }
}
