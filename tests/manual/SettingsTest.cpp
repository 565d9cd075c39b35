// What the manual has to name in full: each setting, and each text of a box.
#include "ManualPages.h"

#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

namespace
{
std::string Whole(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    EXPECT_TRUE(file.is_open()) << path;
    std::ostringstream text;
    text << file.rdbuf();
    return text.str();
}

/// The keys of the shipped settings, those ahead of which a semicolon stands, too.
std::vector<std::string> ShippedKeys()
{
    std::vector<std::string> keys;
    std::istringstream lines(Whole(KORVANTA_SOURCE_DIR "/station/Korvanta.ini"));
    for (std::string line; std::getline(lines, line);) {
        const std::string text = line.starts_with(";") ? line.substr(1) : line;
        const std::size_t sign = text.find('=');
        if (sign != std::string::npos && text.find(' ') > sign) {
            keys.push_back(text.substr(0, sign));
        }
    }
    return keys;
}

/// The English text of a message.
std::string Message(int number)
{
    std::istringstream lines(Whole(KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with(">>") && std::atoi(line.c_str() + 2) == number) {
            std::getline(lines, line);
            return line.ends_with("\r") ? line.substr(0, line.size() - 1) : line;
        }
    }
    ADD_FAILURE() << "no message " << number;
    return "";
}

TEST(ManualWords, NameEachSetting)
{
    const std::string page = Whole(ManualFolder() + "/09-jobs.md");
    const std::vector<std::string> keys = ShippedKeys();
    EXPECT_GE(keys.size(), 25U);
    for (const std::string& key : keys) {
        EXPECT_NE(page.find("`" + key + "`"), std::string::npos) << key;
    }
}

TEST(ManualWords, NameEachTextOfABox)
{
    const std::string page = Whole(ManualFolder() + "/12-trouble.md");
    for (const int number : {3, 4, 32, 34, 35, 37, 38}) {
        EXPECT_NE(page.find(Message(number)), std::string::npos) << Message(number);
    }
    for (const char* text : {"Old file format!", "Critical Error"}) {
        EXPECT_NE(page.find(text), std::string::npos) << text;
    }
}
} // namespace
