// TestFolder.h -- an empty folder of a case's own, removed with it, and files as bytes.
#pragma once

#include <string>
#include <string_view>

struct TestFolder {
    std::string Path; ///< native, without a trailing separator

    TestFolder();
    ~TestFolder();
    TestFolder(const TestFolder&) = delete;
    TestFolder& operator=(const TestFolder&) = delete;

    /// Native name of a file or folder in it.
    std::string Name(std::string_view relative) const;
};

/// Writes a file with exactly these bytes, with the folders that it needs. Native names. Throws when it can't.
void WriteBytes(const std::string& nativePath, std::string_view content);

/// All bytes of a file. Throws when it can't be read.
std::string ReadBytes(const std::string& nativePath);

/// True when there is such a folder under exactly this native name.
bool IsFolder(const std::string& nativePath);
