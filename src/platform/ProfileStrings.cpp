#include "platform/ProfileStrings.h"

#include "platform/KeyText.h"
#include "platform/Paths.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <fcntl.h>
#include <limits>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
constexpr std::int64_t Second = 1'000'000'000; // all times are in nanoseconds
constexpr std::int64_t SteadySpan = 2'000'000;
/// A file that changed so shortly before it was parsed may change again under the same time stamp.
constexpr std::int64_t StampSpan = 50'000'000;
constexpr std::int64_t CoarseStampSpan =
    2 * Second + StampSpan; // on memory sticks stamps are whole seconds, even ones
constexpr std::int64_t LongAgo = std::numeric_limits<std::int64_t>::min() / 2;
constexpr std::size_t KeptFileCount = 4;
constexpr mode_t NewFileMode = 0666; // the process' mask takes its share
constexpr mode_t AnyWriteMode = 0222;

/// What tells a file from its earlier self. All 0 for none.
struct FileStamp {
    dev_t Device = 0;
    ino_t Inode = 0;
    off_t Size = 0;
    std::int64_t Written = 0;
    std::int64_t Changed = 0;

    bool operator==(const FileStamp&) const = default;
};

struct KeptFile {
    std::string Path; ///< as the caller writes it
    bool Parsed = false;
    bool MayHideChange = false; ///< parsed too shortly after its last change: the stamp is no proof
    FileStamp Stamp;
    KeyText Text;
    std::int64_t LookedAt = LongAgo; ///< steady time of the last look at the stamp
    std::uint64_t LastUse = 0;
};

// The one memory outside AppState.
std::vector<KeptFile> KeptFiles;
std::size_t LastKept = 0;
std::uint64_t UseCount = 0;
bool SteadyReads = false;

std::int64_t Nanoseconds(const timespec& time)
{
    return static_cast<std::int64_t>(time.tv_sec) * Second + time.tv_nsec;
}

std::int64_t Clock(clockid_t which)
{
    timespec now = {};
    ::clock_gettime(which, &now);
    return Nanoseconds(now);
}

/// Coarse is fine for a span of milliseconds, and many times as fast.
std::int64_t SteadyTime()
{
    return Clock(CLOCK_MONOTONIC_COARSE);
}

/// The stamp of a plain file that may be a key file; all 0 for none.
FileStamp StampOf(const std::string& native)
{
    struct stat status = {};
    if (::stat(native.c_str(), &status) != 0 || !S_ISREG(status.st_mode) ||
        status.st_size > static_cast<off_t>(LargestKeyText)) {
        return {};
    }
    return {status.st_dev, status.st_ino, status.st_size, Nanoseconds(status.st_mtim),
            Nanoseconds(status.st_ctim)};
}

bool MayHideChange(const FileStamp& stamp, std::int64_t now)
{
    const std::int64_t span = stamp.Written % Second == 0 ? CoarseStampSpan : StampSpan;
    return now - std::max(stamp.Written, stamp.Changed) < span;
}

/// Brings the kept text up to the file on disk.
void Refresh(KeptFile& file)
{
    const std::string native = NativePath(file.Path);
    const std::int64_t now = Clock(CLOCK_REALTIME);
    // First the stamp, then the bytes: a change between the two makes the next stamp differ.
    const FileStamp stamp = StampOf(native);
    if (file.Parsed && !file.MayHideChange && stamp == file.Stamp) {
        return;
    }
    file.Parsed = false;
    std::string bytes;
    const bool there = stamp != FileStamp();
    const bool read = there && ReadWholeFile(native, bytes);
    file.Text = ParseKeyText(std::move(bytes));
    file.Stamp = stamp;
    file.MayHideChange = there && (!read || MayHideChange(stamp, now));
    file.Parsed = true;
}

KeptFile& KeptFileOf(std::string_view path)
{
    if (LastKept < KeptFiles.size() && KeptFiles[LastKept].Path == path) {
        return KeptFiles[LastKept];
    }
    auto at = std::find_if(KeptFiles.begin(), KeptFiles.end(),
                           [path](const KeptFile& file) { return file.Path == path; });
    if (at == KeptFiles.end()) {
        if (KeptFiles.size() < KeptFileCount) {
            at = KeptFiles.emplace(KeptFiles.end());
        } else {
            at = std::min_element(KeptFiles.begin(), KeptFiles.end(),
                                  [](const KeptFile& a, const KeptFile& b) { return a.LastUse < b.LastUse; });
            *at = KeptFile();
        }
        at->Path = path;
    }
    at->LastUse = ++UseCount;
    LastKept = static_cast<std::size_t>(at - KeptFiles.begin());
    return *at;
}

const KeyText& CurrentText(std::string_view path)
{
    KeptFile& file = KeptFileOf(path);
    if (!SteadyReads) {
        Refresh(file);
        return file.Text;
    }
    const std::int64_t now = SteadyTime();
    if (now - file.LookedAt >= SteadySpan) {
        Refresh(file);
        file.LookedAt = now;
    }
    return file.Text;
}

void ForgetKeptFiles()
{
    for (KeptFile& file : KeptFiles) {
        file.Parsed = false;
        file.LookedAt = LongAgo;
    }
}

bool WriteAt(int file, std::size_t at, std::string_view bytes)
{
    while (!bytes.empty()) {
        const ssize_t written = ::pwrite(file, bytes.data(), bytes.size(), static_cast<off_t>(at));
        if (written < 0 && errno == EINTR) {
            continue;
        }
        if (written <= 0) {
            return false;
        }
        at += static_cast<std::size_t>(written);
        bytes.remove_prefix(static_cast<std::size_t>(written));
    }
    return true;
}

bool SetLength(int file, std::size_t length)
{
    return ::ftruncate(file, static_cast<off_t>(length)) == 0;
}

/// Asks for the room of a longer file ahead, so that a full disk leaves the old text as it is. A file system that can't
/// tell is taken at its word later.
bool HasRoom(int file, std::size_t length)
{
    const int error = ::posix_fallocate(file, 0, static_cast<off_t>(length));
    return error == 0 || error == EINVAL || error == EOPNOTSUPP;
}

/// Changes the file to `after` from the first differing byte on. It keeps its identity, owner and mode.
bool ReplaceBytes(int file, std::string_view before, std::string_view after)
{
    const auto differ = std::mismatch(before.begin(), before.end(), after.begin(), after.end());
    const auto same = static_cast<std::size_t>(differ.first - before.begin());
    const bool room = after.size() <= before.size() || HasRoom(file, after.size());
    if (room && WriteAt(file, same, after.substr(same)) && SetLength(file, after.size())) {
        return true;
    }
    // As it was, as far as the disk lets us.
    static_cast<void>(WriteAt(file, same, before.substr(same)));
    static_cast<void>(SetLength(file, before.size()));
    return false;
}

bool CreateFile(const std::string& path, std::string_view bytes)
{
    const std::string native = NativeNewPath(path);
    const int file = ::open(native.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, NewFileMode);
    if (file < 0) {
        return false;
    }
    const bool done = ReplaceBytes(file, {}, bytes);
    const bool closed = ::close(file) == 0;
    if (!done || !closed) {
        ::unlink(native.c_str());
    }
    return done && closed;
}

/// Runs `edit` (bytes before -> bytes after) on a file. False when it may not be written.
template <typename Edit> bool EditFile(const std::string& path, Edit edit)
{
    const std::string native = NativePath(path);
    struct stat status = {};
    if (::stat(native.c_str(), &status) != 0) {
        const bool missing = errno == ENOENT;
        const std::string bytes = edit(std::string());
        if (bytes.empty()) { // nothing to delete
            return missing && FolderExists(FolderOf(path));
        }
        return missing && CreateFile(path, bytes);
    }
    if (!S_ISREG(status.st_mode) || (status.st_mode & AnyWriteMode) == 0 ||
        status.st_size > static_cast<off_t>(LargestKeyText)) {
        return false;
    }
    const int file = ::open(native.c_str(), O_RDWR | O_CLOEXEC);
    if (file < 0) {
        return false;
    }
    std::string before;
    bool done = ReadWholeFile(native, before);
    if (done) {
        const std::string after = edit(before);
        done = after == before || ReplaceBytes(file, before, after);
    }
    return ::close(file) == 0 && done;
}

/// A list as the calls deliver it into a buffer of `size`.
std::string CutList(std::string names, std::size_t size)
{
    if (size < 2) {
        return {};
    }
    if (names.size() > size - 1) {
        names.resize(size - 2);
    }
    return names;
}
} // namespace

std::string_view FindProfileString(std::string_view path, std::string_view section, std::string_view key,
                                   std::string_view defaultValue, std::size_t size)
{
    std::string_view value;
    if (FindKeyValue(CurrentText(path), section, key, value)) {
        return DeliveredValue(value, size);
    }
    return DeliveredDefault(defaultValue, size);
}

std::string ReadProfileString(const std::string& path, std::string_view section, std::string_view key,
                              std::string_view defaultValue, std::size_t size)
{
    return std::string(FindProfileString(path, section, key, defaultValue, size));
}

std::string ReadProfileKeys(const std::string& path, std::string_view section, std::size_t size)
{
    return CutList(ListKeys(CurrentText(path), section), size);
}

std::string ReadProfileSections(const std::string& path, std::size_t size)
{
    return CutList(ListSections(CurrentText(path)), size);
}

bool WriteProfileString(const std::string& path, std::string_view section, std::string_view key,
                        std::string_view value)
{
    if (section.data() == nullptr) {
        return false;
    }
    const bool done =
        EditFile(path, [&](const std::string& bytes) { return WithKeySet(bytes, section, key, value); });
    ForgetKeptFiles();
    return done;
}

bool DeleteProfileKey(const std::string& path, std::string_view section, std::string_view key)
{
    const bool done =
        EditFile(path, [&](const std::string& bytes) { return WithoutKey(bytes, section, key); });
    ForgetKeptFiles();
    return done;
}

bool DeleteProfileSection(const std::string& path, std::string_view section)
{
    const bool done =
        EditFile(path, [&](const std::string& bytes) { return WithoutSection(bytes, section); });
    ForgetKeptFiles();
    return done;
}

void BeginSteadyReads()
{
    SteadyReads = true;
    ForgetKeptFiles();
}

void EndSteadyReads() noexcept
{
    SteadyReads = false;
}
