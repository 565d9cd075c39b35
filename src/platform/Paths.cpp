#include "platform/Paths.h"

#include "state/AppState.h"

#include <cerrno>
#include <dirent.h>
#include <string_view>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr mode_t NewFolderMode = 0777; // the process' mask takes its share

bool Exists(const std::string& native)
{
    struct stat status = {};
    return ::lstat(native.c_str(), &status) == 0;
}

bool IsSeparator(char c)
{
    return c == '\\' || c == '/';
}

char LowerLetter(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

bool BeginsWithDrive(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':' && LowerLetter(path[0]) >= 'a' && LowerLetter(path[0]) <= 'z';
}

/// Case of A to Z and, in UTF-8, of the accented letters of western Europe (U+00C0 to U+00DE, the cross left out).
bool SameFolded(std::string_view a, std::string_view b)
{
    constexpr unsigned char LeadByte = 0xC3;
    if (a.size() != b.size()) {
        return false;
    }
    bool accented = false;
    const auto folded = [&accented](char c) {
        const auto byte = static_cast<unsigned char>(c);
        const bool capital = accented && byte >= 0x80 && byte <= 0x9E && byte != 0x97;
        return capital ? static_cast<char>(byte + 0x20) : LowerLetter(c);
    };
    for (std::size_t i = 0; i < a.size(); ++i) {
        accented = i > 0 && static_cast<unsigned char>(a[i - 1]) == LeadByte && a[i - 1] == b[i - 1];
        if (folded(a[i]) != folded(b[i])) {
            return false;
        }
    }
    return true;
}

std::string Joined(const std::string& folder, std::string_view name)
{
    std::string joined = folder;
    if (!joined.empty() && joined.back() != '/') {
        joined += '/';
    }
    return joined.append(name);
}

/// `folder` + `name`, or the entry of the folder that differs from it by case only (of several the first by name).
std::string FoundIn(const std::string& folder, std::string_view name)
{
    std::string exact = Joined(folder, name);
    if (Exists(exact)) {
        return exact;
    }
    DIR* const entries = ::opendir(folder.empty() ? "." : folder.c_str());
    if (entries == nullptr) {
        return exact;
    }
    std::string found;
    // cppcheck-suppress readdirCalled ; the stream is this call's own
    while (const dirent* const entry = ::readdir(entries)) {
        const std::string_view other = static_cast<const char*>(entry->d_name);
        if (SameFolded(other, name) && (found.empty() || other < found)) {
            found = other;
        }
    }
    ::closedir(entries);
    return found.empty() ? exact : Joined(folder, found);
}

/// Cuts the next component off `rest`; "." and doubled separators are none. False at the end.
bool NextComponent(std::string_view& rest, std::string_view& component)
{
    do {
        while (!rest.empty() && IsSeparator(rest.front())) {
            rest.remove_prefix(1);
        }
        std::size_t length = 0;
        while (length < rest.size() && !IsSeparator(rest[length])) {
            ++length;
        }
        component = rest.substr(0, length);
        rest.remove_prefix(length);
    } while (component == ".");
    return !component.empty();
}

std::string DriveFolder(char letter)
{
    const std::string& beside = AppState.AppPath;
    // A program folder that itself lies on a drive has no place of its own here: its drives lie in the working folder.
    const bool onDrive = BeginsWithDrive(beside) || beside.starts_with('\\');
    return FoundIn(onDrive ? std::string() : NativePath(beside), std::string("drive_") + LowerLetter(letter));
}

/// The native name of what `rest` starts from; takes that part off `rest`.
std::string NativeRoot(std::string_view& rest)
{
    if (rest.front() == '/') {
        return "/";
    }
    if (BeginsWithDrive(rest)) {
        const char letter = rest.front();
        rest.remove_prefix(2);
        return DriveFolder(letter);
    }
    if (rest.front() == '\\') {
        return DriveFolder('c');
    }
    // A program folder without a native name of its own can't lend it to others: they lie in the working folder.
    return AppState.AppPath.starts_with('/') ? NativePath(AppState.AppPath) : std::string();
}

/// The components of `rest` as they are written, behind `native`.
std::string Appended(std::string native, std::string_view rest)
{
    std::string_view component;
    while (NextComponent(rest, component)) {
        native = Joined(native, component);
    }
    return native;
}

/// Where the last component of `path` begins, separators at the end left out.
std::size_t LastComponent(std::string_view path)
{
    std::size_t end = path.size();
    while (end > 0 && IsSeparator(path[end - 1])) {
        --end;
    }
    while (end > 0 && !IsSeparator(path[end - 1])) {
        --end;
    }
    return end == 0 && BeginsWithDrive(path) ? 2 : end;
}
} // namespace

std::string NativePath(const std::string& path)
{
    if (path.empty() || (path.front() == '/' && Exists(path))) {
        return path;
    }
    std::string_view rest = path;
    std::string native = NativeRoot(rest);
    std::string exact = Appended(native, rest);
    if (exact.empty()) {
        return ".";
    }
    if (Exists(exact)) {
        return exact;
    }
    std::string_view component;
    while (NextComponent(rest, component)) {
        native = FoundIn(native, component);
    }
    return native;
}

std::string NativeNewPath(const std::string& path)
{
    if (path.empty()) {
        return path;
    }
    return Appended(NativePath(FolderOf(path)), std::string_view(path).substr(LastComponent(path)));
}

std::string FolderOf(const std::string& path)
{
    const std::size_t start = LastComponent(path);
    return start == 0 ? "." : path.substr(0, start);
}

bool FileExists(const std::string& path)
{
    struct stat status = {};
    return ::stat(NativePath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FolderExists(const std::string& path)
{
    struct stat status = {};
    return ::stat(NativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool DeleteFileIfThere(const std::string& path)
{
    const std::string native = NativePath(path);
    struct stat status = {};
    if (::lstat(native.c_str(), &status) != 0) {
        return errno == ENOENT || errno == ENOTDIR;
    }
    if (!S_ISREG(status.st_mode) && !S_ISLNK(status.st_mode)) {
        errno = S_ISDIR(status.st_mode) ? EISDIR : EEXIST;
        return false;
    }
    return ::unlink(native.c_str()) == 0;
}

bool MakeFolder(const std::string& path)
{
    if (FolderExists(path)) {
        return true;
    }
    if (BeginsWithDrive(path) || path.starts_with('\\')) {
        // A drive is always there: its folder is made with the first one on it.
        ::mkdir(DriveFolder(path.front() == '\\' ? 'c' : path.front()).c_str(), NewFolderMode);
    }
    return ::mkdir(NativePath(path).c_str(), NewFolderMode) == 0 || FolderExists(path);
}

std::vector<std::string> ListFiles(const std::string& folder)
{
    std::vector<std::string> names;
    const std::string native = NativePath(folder);
    DIR* const entries = ::opendir(native.c_str());
    if (entries == nullptr) {
        return names;
    }
    // cppcheck-suppress readdirCalled ; the stream is this call's own
    while (const dirent* const entry = ::readdir(entries)) {
        std::string name = static_cast<const char*>(entry->d_name);
        struct stat status = {};
        const bool known = entry->d_type == DT_REG;
        if (known || (::stat(Joined(native, name).c_str(), &status) == 0 && S_ISREG(status.st_mode))) {
            names.push_back(std::move(name));
        }
    }
    ::closedir(entries);
    return names;
}
