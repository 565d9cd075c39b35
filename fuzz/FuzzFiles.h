// FuzzFiles.h -- what the targets share: a folder for the files that they read, and a promise that must hold.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <string_view>
#include <unistd.h>

inline void Require(bool holds)
{
    if (!holds) {
        std::abort();
    }
}

/// An empty folder for one target in this process, below TMPDIR: in memory is fastest, as every save waits for its disk.
/// Its name is short, for a setting takes 49 characters.
inline std::string MakeFuzzFolder(const char* target)
{
    namespace fs = std::filesystem;
    const fs::path folder = fs::temp_directory_path() / (target + std::to_string(getpid()));
    constexpr std::size_t longest = 42; // "\\NEST" comes behind it
    Require(folder.string().size() <= longest);
    fs::create_directories(folder);
    return folder.string();
}

inline void WriteBytes(const std::string& path, std::string_view bytes)
{
    std::remove(path.c_str()); // rewriting in place waits for the disk on some file systems
    std::FILE* file = std::fopen(path.c_str(), "wb");
    Require(file != nullptr);
    Require(std::fwrite(bytes.data(), 1, bytes.size(), file) == bytes.size());
    std::fclose(file);
}
