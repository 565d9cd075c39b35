#include "support/TempFolder.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <stdexcept>

TempFolder::TempFolder()
{
    std::string name = (std::filesystem::temp_directory_path() / "korvanta_XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) {
        throw std::runtime_error("no temporary folder");
    }
    Path = name;
}

TempFolder::~TempFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(Path, ignored);
}

std::string TempFolder::Write(const std::string& name, std::string_view content) const
{
    const std::filesystem::path path = std::filesystem::path(Path) / name;
    std::filesystem::create_directories(path.parent_path());
    std::filesystem::remove(
        path); // some file systems put a file that is cut and rewritten on the disk at once: slow
    std::ofstream file(path, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    return path.string();
}

std::string TempFolder::Read(const std::string& name) const
{
    std::ifstream file(std::filesystem::path(Path) / name, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name << " is missing";
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool TempFolder::Holds(const std::string& name) const
{
    return std::filesystem::exists(std::filesystem::path(Path) / name);
}
