// The walls of the house: which room may include which, and that no includes make a circle.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace
{
namespace fs = std::filesystem;

/// Floors, ground first. A room includes its own and lower floors.
const std::map<std::string, int> Floors = {
    {"state", 0},  {"platform", 1}, {"geometry", 1}, {"config", 2}, {"profile", 3},
    {"shapes", 4}, {"nesting", 4},  {"import", 4},   {"post", 5},   {"jobfiles", 6},
    {"shell", 7},  {"qt", 8},       {"batch", 8},
};

/// Services of the shell that every room may use.
const std::set<std::string> OpenToAll = {"shell/MsgBox_Unicode.h", "shell/ValueFields.h"};

/// Headers from outside the standard library, and the rooms that may see them.
const std::map<std::string, std::set<std::string>> Libraries = {
    {"CLI/", {"batch"}},
    {"nlohmann/", {"batch"}},
    {"Q", {"qt", "batch"}},
    {"unistd.h", {"platform", "batch"}},
    {"sys/", {"platform"}},
    {"fcntl.h", {"platform"}},
    {"dirent.h", {"platform"}},
    {"filesystem", {"platform", "batch"}},
    {"fstream", {"platform", "batch"}},
};

struct Include {
    std::string From; ///< "room/File.h"
    std::string To;
};

std::vector<Include> ReadIncludes(std::vector<Include>& outside)
{
    std::vector<Include> found;
    const fs::path root = fs::path(KORVANTA_SOURCE_DIR) / "src";
    const std::regex quoted("^\\s*#\\s*include\\s*\"([^\"]+)\"");
    const std::regex angled("^\\s*#\\s*include\\s*<([^>]+)>");
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
        const std::string extension = entry.path().extension().string();
        if (extension != ".h" && extension != ".cpp") {
            continue;
        }
        std::ifstream file(entry.path());
        std::string line;
        std::smatch match;
        const std::string from = fs::relative(entry.path(), root).generic_string();
        while (std::getline(file, line)) {
            if (std::regex_search(line, match, quoted)) {
                found.push_back({from, match[1]});
            } else if (std::regex_search(line, match, angled)) {
                outside.push_back({from, match[1]});
            }
        }
    }
    return found;
}

std::string RoomOf(const std::string& file)
{
    return file.substr(0, file.find('/'));
}

TEST(Includes, GoDownOnly)
{
    std::vector<Include> outside;
    const std::vector<Include> includes = ReadIncludes(outside);
    ASSERT_GT(includes.size(), 10U);
    for (const Include& include : includes) {
        const std::string from = RoomOf(include.From);
        const std::string to = RoomOf(include.To);
        ASSERT_TRUE(Floors.contains(from)) << include.From;
        ASSERT_TRUE(Floors.contains(to))
            << include.From << " includes " << include.To << ": name it by its room";
        if (OpenToAll.contains(include.To)) {
            continue;
        }
        const bool down = from == to || Floors.at(to) < Floors.at(from);
        EXPECT_TRUE(down) << include.From << " includes " << include.To;
    }
}

TEST(Includes, MakeNoCircle)
{
    std::vector<Include> outside;
    std::map<std::string, std::vector<std::string>> graph;
    for (const Include& include : ReadIncludes(outside)) {
        graph[include.From].push_back(include.To);
    }
    std::map<std::string, int> state; // 1 on the way, 2 done
    std::function<void(const std::string&)> visit = [&](const std::string& file) {
        state[file] = 1;
        for (const std::string& next : graph[file]) {
            EXPECT_NE(state[next], 1) << file << " and " << next << " include each other";
            if (state[next] == 0) {
                visit(next);
            }
        }
        state[file] = 2;
    };
    std::vector<std::string> files;
    for (const auto& [file, unused] : graph) {
        files.push_back(file);
    }
    for (const std::string& file : files) {
        if (state[file] == 0) {
            visit(file);
        }
    }
}

TEST(Includes, KeepLibrariesInTheirRooms)
{
    std::vector<Include> outside;
    ReadIncludes(outside);
    for (const Include& include : outside) {
        for (const auto& [prefix, rooms] : Libraries) {
            if (include.To.starts_with(prefix)) {
                EXPECT_TRUE(rooms.contains(RoomOf(include.From)))
                    << include.From << " includes <" << include.To << ">";
            }
        }
    }
}
} // namespace
