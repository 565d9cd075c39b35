#include "support/TestFolder.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <stdexcept>

namespace files = std::filesystem;

TestFolder::TestFolder()
{
    // Cases run side by side in processes of their own.
    std::random_device random;
    files::path folder;
    do {
        folder = files::path(KORVANTA_BINARY_DIR) / "test-folders" / std::to_string(random());
    } while (!files::create_directories(folder));
    Path = folder.string();
}

TestFolder::~TestFolder()
{
    std::error_code ignored;
    files::remove_all(Path, ignored);
}

std::string TestFolder::Name(std::string_view relative) const
{
    return Path + "/" + std::string(relative);
}

void WriteBytes(const std::string& nativePath, std::string_view content)
{
    files::create_directories(files::path(nativePath).parent_path());
    std::ofstream file(nativePath, std::ios::binary);
    file.write(content.data(), static_cast<std::streamsize>(content.size()));
    if (!file.flush()) {
        throw std::runtime_error("can't write " + nativePath);
    }
}

std::string ReadBytes(const std::string& nativePath)
{
    std::ifstream file(nativePath, std::ios::binary);
    if (!file) {
        throw std::runtime_error("can't read " + nativePath);
    }
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

bool IsFolder(const std::string& nativePath)
{
    return files::is_directory(nativePath);
}
