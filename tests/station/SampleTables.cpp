#include "SampleTables.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <sstream>

std::string StationFile(const std::string& name)
{
    std::string path = std::string(KORVANTA_SOURCE_DIR) + "/station/" + name;
    std::replace(path.begin(), path.end(), '\\', '/');
    return path;
}

std::string TableLabel(const std::string& table)
{
    std::string label = table;
    std::replace_if(
        label.begin(), label.end(), [](char c) { return c == '.' || c == '\\'; }, '_');
    return label;
}

std::string StationBytes(const std::string& name)
{
    std::ifstream file(StationFile(name), std::ios::binary);
    EXPECT_TRUE(file.is_open()) << name;
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

std::vector<TableKey> ReadTable(const std::string& name)
{
    std::vector<TableKey> keys;
    std::istringstream lines(StationBytes(name));
    std::string section;
    std::string line;
    while (std::getline(lines, line)) {
        if (!line.empty() && line.back() == '\r') {
            line.pop_back();
        }
        const std::size_t equals = line.find('=');
        if (line.empty() || line.front() == ';') {
            continue;
        }
        if (line.front() == '[' && line.back() == ']') {
            section = line.substr(1, line.size() - 2);
        } else if (equals != std::string::npos && !section.empty()) {
            keys.push_back({section, line.substr(0, equals), line.substr(equals + 1)});
        } else {
            ADD_FAILURE() << name << ": neither comment, section nor key: " << line;
        }
    }
    return keys;
}
