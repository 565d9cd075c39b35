#include "platform/TextFile.h"

#include "platform/Fault.h"
#include "platform/Paths.h"
#include "platform/SafeFile.h"

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <new>
#include <sys/stat.h>
#include <unistd.h>

namespace
{
constexpr std::size_t WriteBufferSize = std::size_t{256} * 1024;
constexpr std::size_t ReadBlockSize = std::size_t{64} * 1024;

/// Ends a failed step of `writer`: closes it and throws. errno tells the reason.
[[noreturn]] void FailWriting(TextWriter& writer)
{
    const std::string reason = std::strerror(errno);
    writer.Buffer.clear(); // part of it may be on the disk: not a second time
    AbandonText(writer);
    throw RunTimeFault("Cannot write " + NativeNewPath(writer.Path) + ": " + reason);
}

bool Flush(TextWriter& writer)
{
    if (writer.Handle == nullptr) {
        errno = EBADF;
        return false;
    }
    const std::size_t written = std::fwrite(writer.Buffer.data(), 1, writer.Buffer.size(), writer.Handle);
    const bool done = written == writer.Buffer.size();
    if (done) {
        writer.Buffer.clear();
    }
    return done;
}

void FlushWhenFull(TextWriter& writer)
{
    if (writer.Buffer.size() >= WriteBufferSize && !Flush(writer)) {
        FailWriting(writer);
    }
}

/// Reads from `file` to its end. False when it holds more than `limit` bytes or can't be read.
bool ReadToEnd(int file, std::string& content, std::size_t expected, std::size_t limit)
{
    std::size_t length = 0;
    content.resize(expected + 1); // one more, so that the end is met without another round
    for (;;) {
        const ssize_t got = ::read(file, content.data() + length, content.size() - length);
        if (got < 0 && errno == EINTR) {
            continue;
        }
        if (got < 0) {
            return false;
        }
        length += static_cast<std::size_t>(got);
        if (got == 0) {
            content.resize(length);
            return length <= limit;
        }
        if (length == content.size()) { // it grew since it was measured
            if (length > limit) {
                return false;
            }
            content.resize(length + length / 2 + ReadBlockSize);
        }
    }
}
} // namespace

bool ReadWholeFile(const std::string& path, std::string& content, std::size_t limit)
{
    content.clear();
    // Not blocking: a pipe of that name must not hang the program before it is seen to be none of our files.
    const int file = ::open(NativePath(path).c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0) {
        return false;
    }
    struct stat status = {};
    bool done = ::fstat(file, &status) == 0 && S_ISREG(status.st_mode) && status.st_size >= 0 &&
                static_cast<std::size_t>(status.st_size) <= limit;
    try {
        done = done && ReadToEnd(file, content, static_cast<std::size_t>(status.st_size), limit);
    } catch (const std::bad_alloc&) {
        done = false;
    }
    ::close(file);
    if (!done) {
        content = std::string();
    }
    return done;
}

bool NextLine(std::string_view& rest, std::string_view& line)
{
    if (rest.empty()) {
        return false;
    }
    const char* const start = rest.data();
    const char* const end = start + rest.size();
    const char* at = start;
    while (at != end && *at != '\n' && *at != '\r') {
        ++at;
    }
    line = std::string_view(start, static_cast<std::size_t>(at - start));
    if (at != end) {
        at += *at == '\r' && at + 1 != end && at[1] == '\n' ? 2 : 1;
    }
    rest.remove_prefix(static_cast<std::size_t>(at - start));
    return true;
}

void OpenText(TextWriter& writer, const std::string& path, OldFile old)
{
    AbandonText(writer);
    writer.Path = path;
    writer.Sum = 0;
    writer.Buffer.clear();
    writer.Buffer.reserve(WriteBufferSize + WriteBufferSize / 4);
    if (old == OldFile::Removed && !DeleteFileIfThere(path)) {
        FailWriting(writer);
    }
    writer.Old = old;
    writer.Handle = std::fopen((NativeNewPath(path) + UnfinishedEnd).c_str(), "wbe");
    if (writer.Handle == nullptr) {
        FailWriting(writer);
    }
    std::setvbuf(writer.Handle, nullptr, _IONBF, 0); // Buffer is the buffer
}

void WriteTextLine(TextWriter& writer, std::string_view line)
{
    if (writer.KeepSum) {
        writer.Sum = AddToSum(writer.Sum, line);
    }
    writer.Buffer.append(line).append("\r\n", 2);
    FlushWhenFull(writer);
}

void CloseText(TextWriter& writer)
{
    if (!Flush(writer)) {
        FailWriting(writer);
    }
    std::FILE* const handle = writer.Handle;
    writer.Handle = nullptr;
    if (std::fclose(handle) != 0) {
        FailWriting(writer);
    }
    if (!TakeName(writer.Path, writer.Old == OldFile::Stays)) {
        FailWriting(writer);
    }
}

void AbandonText(TextWriter& writer) noexcept
{
    if (writer.Handle == nullptr) {
        return;
    }
    Flush(writer);
    std::fclose(writer.Handle);
    writer.Handle = nullptr;
    writer.Buffer.clear();
}

void WriteWholeText(const std::string& path, std::string_view content)
{
    TextWriter writer;
    OpenText(writer, path);
    std::size_t from = 0;
    for (std::size_t at = content.find('\n'); at != std::string_view::npos; at = content.find('\n', at + 1)) {
        if (at == 0 || content[at - 1] != '\r') {
            writer.Buffer.append(content.substr(from, at - from)).append("\r", 1);
            from = at;
            FlushWhenFull(writer);
        }
    }
    writer.Buffer.append(content.substr(from));
    CloseText(writer);
}

std::uint64_t AddToSum(std::uint64_t sum, std::string_view line)
{
    constexpr std::uint64_t prime = 0x100000001B3U; // 64-bit FNV-1a
    sum ^= 0xCBF29CE484222325U;
    for (const char c : line) {
        sum = (sum ^ static_cast<unsigned char>(c)) * prime;
    }
    return (sum ^ '\n') * prime;
}

bool OpenForReading(TextReader& reader, const std::string& path)
{
    CloseReader(reader);
    reader = TextReader();
    if (!FileExists(path)) {
        return false;
    }
    reader.Handle = std::fopen(NativePath(path).c_str(), "rbe");
    if (reader.Handle != nullptr) {
        std::setvbuf(reader.Handle, nullptr, _IONBF, 0); // Buffer is the buffer
    }
    return reader.Handle != nullptr;
}

bool ReadTextLine(TextReader& reader, std::string_view& line)
{
    std::size_t end = reader.Buffer.find('\n', reader.At);
    while (end == std::string::npos && reader.Buffer.size() - reader.At < ReadBlockSize) {
        reader.Buffer.erase(0, reader.At);
        reader.At = 0;
        const std::size_t held = reader.Buffer.size();
        reader.Buffer.resize(held + ReadBlockSize);
        const std::size_t got = reader.Handle == nullptr ? 0
                                                         : std::fread(reader.Buffer.data() + held, 1,
                                                                      ReadBlockSize, reader.Handle);
        reader.Buffer.resize(held + got);
        if (got == 0) {
            break;
        }
        end = reader.Buffer.find('\n', held);
    }
    if (reader.At == reader.Buffer.size()) {
        return false;
    }
    const std::size_t limit = std::min(reader.Buffer.size(), reader.At + ReadBlockSize);
    const std::size_t stop = std::min(end, limit);
    line = std::string_view(reader.Buffer).substr(reader.At, stop - reader.At);
    reader.At = stop + (stop == end ? 1 : 0);
    if (line.ends_with('\r')) {
        line.remove_suffix(1);
    }
    ++reader.Lines;
    return true;
}

void CloseReader(TextReader& reader) noexcept
{
    if (reader.Handle != nullptr) {
        std::fclose(reader.Handle);
        reader.Handle = nullptr;
    }
}
