// TempFolder.h -- a folder of its own for a case that needs files; it is gone with the object.
#pragma once

#include <string>
#include <string_view>

struct TempFolder {
    std::string Path; ///< without a trailing separator

    TempFolder();
    ~TempFolder();
    TempFolder(const TempFolder&) = delete;
    TempFolder& operator=(const TempFolder&) = delete;

    /// Writes a file as bytes, folders of `name` included. Its full path is the result.
    std::string Write(const std::string& name, std::string_view content) const;

    /// A file's bytes; a missing one fails the case.
    std::string Read(const std::string& name) const;

    bool Holds(const std::string& name) const;
};
