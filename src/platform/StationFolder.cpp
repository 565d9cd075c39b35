#include "platform/StationFolder.h"

#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"
#include "platform/TextFile.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <filesystem>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;

constexpr const char* CatalogueName = "Korvanta_MSG.TXT";
constexpr const char* DrawingsName = "Korvanta.DBG";
constexpr const char* SettingsName = "Korvanta.ini";
constexpr const char* PicturesFolder = "IMAGES/";
constexpr const char* RecordName =
    ".korvanta"; ///< in the user's folder: what was handed out, by name and sum
constexpr const char* OldEnd = ".old";
constexpr mode_t NewFolderMode = 0777; // the process' mask takes its share

/// One file of the template.
struct HandedFile {
    std::uint64_t Sum = 0;
    std::string Name; ///< below the folder, with '/'
    bool operator==(const HandedFile&) const = default;
};

/// Of exactly that name: a folder "korvanta" in somebody's home is something else.
bool IsFolder(const std::string& folder)
{
    std::error_code unreadable;
    return fs::is_directory(folder, unreadable);
}

[[noreturn]] void Fail(const std::string& what, const std::string& folder, int error)
{
    throw RunTimeFault(what + " " + folder + ": " + std::strerror(error));
}

/// Tells an edited file from one that is as it was handed out (FNV-1a); nobody has a reason to forge it.
std::uint64_t SumOf(const std::string& content)
{
    constexpr std::uint64_t Start = 14695981039346656037U;
    constexpr std::uint64_t Prime = 1099511628211U;
    std::uint64_t sum = Start;
    for (const char c : content) {
        sum = (sum ^ static_cast<unsigned char>(c)) * Prime;
    }
    return sum;
}

std::string ContentOf(const std::string& path)
{
    std::string content;
    if (!ReadWholeFile(path, content)) {
        throw RunTimeFault("Cannot read " + path);
    }
    return content;
}

/// All plain files of the template, by name.
std::vector<HandedFile> ListTemplate(const std::string& templateFolder)
{
    std::vector<HandedFile> files;
    std::error_code error;
    for (fs::recursive_directory_iterator at(templateFolder, error), end; !error && at != end;
         at.increment(error)) {
        if (at->is_regular_file()) {
            files.push_back({SumOf(ContentOf(at->path().string())),
                             at->path().lexically_relative(templateFolder).generic_string()});
        }
    }
    if (error) {
        Fail("Cannot read", templateFolder, error.value());
    }
    std::sort(files.begin(), files.end(),
              [](const HandedFile& a, const HandedFile& b) { return a.Name < b.Name; });
    return files;
}

std::string RecordText(const std::vector<HandedFile>& files)
{
    constexpr std::size_t SumSize = 24;
    std::string text;
    for (const HandedFile& file : files) {
        char sum[SumSize] = "";
        std::snprintf(sum, sizeof sum, "%016llx ", static_cast<unsigned long long>(file.Sum));
        text += sum + file.Name + "\n";
    }
    return text;
}

/// Lines that are none of ours are passed over; a missing or broken record says that nothing was handed out.
std::vector<HandedFile> ReadRecord(const std::string& folder)
{
    constexpr std::size_t SumDigits = 16;
    constexpr int Hexadecimal = 16;
    std::string text;
    static_cast<void>(ReadWholeFile(folder + "/" + RecordName, text));
    std::vector<HandedFile> files;
    std::string_view rest = text;
    std::string_view line;
    while (NextLine(rest, line)) {
        if (line.size() > SumDigits + 1 && line[SumDigits] == ' ') {
            const std::string digits(line.substr(0, SumDigits));
            files.push_back({std::strtoull(digits.c_str(), nullptr, Hexadecimal),
                             std::string(line.substr(SumDigits + 1))});
        }
    }
    return files;
}

void WriteFile(const std::string& path, const std::string& content)
{
    WriteSecondName(path, content);
    PutInPlace(path);
}

void HandOut(const std::string& templateFolder, const std::string& name, const std::string& folder)
{
    for (std::size_t end = name.find('/'); end != std::string::npos; end = name.find('/', end + 1)) {
        const std::string part = folder + "/" + name.substr(0, end);
        if (!MakeFolder(part)) {
            Fail("Cannot make the folder", part, errno);
        }
    }
    WriteFile(folder + "/" + name, ContentOf(templateFolder + "/" + name));
}

bool IsProgramData(const std::string& name)
{
    return name == CatalogueName || name == DrawingsName;
}

/// A folder that is opened and locked, so that a second start waits here until the first one is through. Where the file
/// system knows no locks for folders nobody waits; what two starts at once can spoil there the next one mends.
struct HeldFolder {
    int Handle = -1;

    explicit HeldFolder(const std::string& folder)
        : Handle(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC))
    {
        while (Handle >= 0 && ::flock(Handle, LOCK_EX) != 0 && errno == EINTR) {
        }
    }
    ~HeldFolder()
    {
        if (Handle >= 0) {
            ::close(Handle);
        }
    }
    HeldFolder(const HeldFolder&) = delete;
    HeldFolder& operator=(const HeldFolder&) = delete;

    /// The name still stands for the folder that was opened, and the folder is this user's.
    bool IsOwnAt(const std::string& folder) const
    {
        struct stat held = {};
        struct stat named = {};
        return Handle >= 0 && ::fstat(Handle, &held) == 0 && ::lstat(folder.c_str(), &named) == 0 &&
               held.st_dev == named.st_dev && held.st_ino == named.st_ino && held.st_uid == ::geteuid();
    }
};

void Empty(const std::string& folder)
{
    for (const fs::directory_entry& entry : fs::directory_iterator(folder)) {
        fs::remove_all(entry.path());
    }
}

void FillSecondFolder(const std::string& templateFolder, const std::string& second)
{
    Empty(second); // an earlier start was cut off here
    const std::vector<HandedFile> files = ListTemplate(templateFolder);
    for (const HandedFile& file : files) {
        HandOut(templateFolder, file.Name, second);
    }
    WriteFile(second + "/" + RecordName, RecordText(files));
}

/// One try to make the folder under its second name and to give it its own. False when another start came first.
bool TryToMake(const std::string& templateFolder, const std::string& folder)
{
    const std::string second = folder + UnfinishedEnd;
    if (::mkdir(second.c_str(), NewFolderMode) != 0 && errno != EEXIST) {
        Fail("Cannot make the station folder", folder, errno);
    }
    const HeldFolder held(second);
    if (!held.IsOwnAt(second)) {
        return false;
    }
    std::error_code ignored;
    try {
        FillSecondFolder(templateFolder, second);
    } catch (...) {
        fs::remove_all(second, ignored);
        throw;
    }
    if (std::rename(second.c_str(), folder.c_str()) == 0) {
        return true;
    }
    const int error = errno;
    fs::remove_all(second, ignored);
    if (error != EEXIST && error != ENOTEMPTY) {
        Fail("Cannot make the station folder", folder, error);
    }
    return false;
}

void MakeUserStation(const std::string& templateFolder, const std::string& folder)
{
    constexpr int Tries = 10; // each one but the first follows another start that came first
    for (int i = 0; i < Tries && !IsFolder(folder); ++i) {
        if (TryToMake(templateFolder, folder)) {
            return;
        }
    }
    if (!IsFolder(folder)) {
        throw RunTimeFault("Cannot make the station folder " + folder + ": " + folder + UnfinishedEnd +
                           " is in the way");
    }
}

/// Catalogue and drawings belong to the program and must fit its version; what an operator made of them is kept aside.
void RenewProgramData(const std::string& templateFolder, const HandedFile& file, const HandedFile* handed,
                      const std::string& folder)
{
    const std::string path = NativePath(folder + "/" + file.Name);
    const std::uint64_t sum = SumOf(ContentOf(path));
    if (sum == file.Sum) {
        return;
    }
    if ((handed == nullptr || sum != handed->Sum) &&
        std::rename(path.c_str(), (path + OldEnd).c_str()) != 0) {
        Fail("Cannot keep the changed", path, errno);
    }
    HandOut(templateFolder, file.Name, folder);
}

/// What holds for one file of a newer template. Names are compared without case, as the station finds them.
void RenewFile(const std::string& templateFolder, const HandedFile& file, const HandedFile* handed,
               const std::string& folder)
{
    const std::string path = folder + "/" + file.Name;
    if (!FileExists(path)) {
        // What an operator took away doesn't come back, but for what the program can't do without.
        if (handed == nullptr || IsProgramData(file.Name)) {
            HandOut(templateFolder, file.Name, folder);
        }
    } else if (IsProgramData(file.Name)) {
        RenewProgramData(templateFolder, file, handed, folder);
    } else if (file.Name.starts_with(PicturesFolder) && handed != nullptr && handed->Sum != file.Sum &&
               SumOf(ContentOf(NativePath(path))) == handed->Sum) {
        HandOut(templateFolder, file.Name, folder); // a logo of the operator's own stays
    }
    // Settings, tables and samples are the operator's from the moment they are there: a table that was proven on a machine
    // doesn't change its programs by an update, not even for the better.
}

bool IsUpToDate(const std::vector<HandedFile>& files, const std::string& folder)
{
    return ReadRecord(folder) == files &&
           std::all_of(files.begin(), files.end(), [&folder](const HandedFile& file) {
               return !IsProgramData(file.Name) || FileExists(folder + "/" + file.Name);
           });
}

/// A folder that merely bears the name isn't filled: it may be anything.
void RefuseForeignFolder(const std::string& folder)
{
    std::error_code error;
    const bool empty = fs::is_empty(folder, error);
    if (error) {
        Fail("Cannot read the station folder", folder, error.value());
    }
    const bool station = FileExists(folder + "/" + RecordName) || FileExists(folder + "/" + SettingsName) ||
                         FileExists(folder + "/" + CatalogueName);
    if (!empty && !station) {
        throw RunTimeFault("The folder " + folder + " is no station: it holds neither " + SettingsName +
                           " nor " + CatalogueName + ". Move it away, or name another folder in " +
                           StationVariable);
    }
}

void BringUpToDate(const std::string& templateFolder, const std::string& folder)
{
    const std::vector<HandedFile> files = ListTemplate(templateFolder);
    if (IsUpToDate(files, folder)) {
        return;
    }
    RefuseForeignFolder(folder);
    const HeldFolder held(folder);
    const std::vector<HandedFile> record = ReadRecord(folder);
    for (const HandedFile& file : files) {
        const auto handed = std::find_if(record.begin(), record.end(),
                                         [&file](const HandedFile& h) { return h.Name == file.Name; });
        RenewFile(templateFolder, file, handed == record.end() ? nullptr : &*handed, folder);
    }
    WriteFile(folder + "/" + RecordName, RecordText(files)); // last: what is cut off before begins again
}

/// The value of an environment variable that names a folder, without separators at its end.
std::string FolderVariable(const char* name)
{
    const char* const value = std::getenv(name);
    std::string folder = value == nullptr ? "" : value;
    while (folder.size() > 1 && folder.back() == '/') {
        folder.pop_back();
    }
    if (!folder.empty() && folder.front() != '/') {
        throw RunTimeFault(std::string(name) + " must name a folder that begins with /, not " + folder);
    }
    return folder;
}

std::string UserStation()
{
    std::string named = FolderVariable(StationVariable);
    if (!named.empty()) {
        return named;
    }
    const std::string home = FolderVariable("HOME");
    if (home.empty()) {
        throw RunTimeFault(std::string("No folder for the station: neither HOME nor ") + StationVariable +
                           " is set");
    }
    return (home == "/" ? "" : home) + "/Korvanta";
}
} // namespace

std::string InstalledTemplate(const std::string& programFolder)
{
    const std::string folder =
        (fs::path(programFolder).parent_path() / "share" / "korvanta" / "station").string();
    const bool plain = FileExists(programFolder + "/" + CatalogueName);
    return !plain && FileExists(folder + "/" + CatalogueName) ? folder : std::string();
}

std::string FindStationFolder(const std::string& programFolder)
{
    const std::string templateFolder = InstalledTemplate(programFolder);
    if (templateFolder.empty()) {
        return programFolder;
    }
    std::string folder = UserStation();
    PrepareUserStation(templateFolder, folder);
    return folder;
}

void PrepareUserStation(const std::string& templateFolder, const std::string& folder)
{
    try {
        if (!IsFolder(folder)) {
            MakeUserStation(templateFolder, folder);
        }
        BringUpToDate(templateFolder, folder);
    } catch (const fs::filesystem_error& error) {
        throw RunTimeFault(std::string("Cannot prepare the station folder ") + folder + ": " + error.what());
    }
}
