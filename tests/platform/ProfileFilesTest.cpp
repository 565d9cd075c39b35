// Key files on disk: what is kept must never hide a change, and broken or huge files do no harm.
#include "platform/KeyText.h"
#include "platform/Paths.h"
#include "platform/ProfileStrings.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <filesystem>
#include <random>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <thread>

namespace
{
namespace fs = std::filesystem;
using namespace std::string_view_literals;

std::string Read(const std::string& path)
{
    return ReadProfileString(path, "S", "K", "DEF", 255);
}

/// Sets the time of the last change back, so that the stamp is an old one.
void MakeOld(const std::string& path)
{
    fs::last_write_time(path, fs::file_time_type::clock::now() - std::chrono::hours(1));
}

TEST(ProfileFiles, ChangesOfTheSameSizeAreSeenAtOnce)
{
    StartCase();
    const TempFolder folder;
    for (int i = 0; i < 300; ++i) { // many within one tick of the time stamps
        const std::string value = std::to_string(100 + i);
        const std::string path = folder.Write("a.ini", "[S]\r\nK=" + value + "\r\n");
        ASSERT_EQ(Read(path), value);
    }
}

TEST(ProfileFiles, ChangesBehindAnOldTimeStampAreSeen)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=old\r\n");
    const auto time = fs::file_time_type::clock::now() - std::chrono::hours(1);
    fs::last_write_time(path, time);
    EXPECT_EQ(Read(path), "old");
    folder.Write("a.ini", "[S]\r\nK=new\r\n");
    fs::last_write_time(path, time); // as a copying tool does: same size, same time, same file
    EXPECT_EQ(Read(path), "new");
}

TEST(ProfileFiles, AnotherFileUnderTheNameIsSeen)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=old\r\n");
    const std::string other = folder.Write("b.ini", "[S]\r\nK=new\r\n");
    MakeOld(path);
    MakeOld(other);
    EXPECT_EQ(Read(path), "old");
    fs::rename(other, path);
    EXPECT_EQ(Read(path), "new");
    fs::remove(path);
    EXPECT_EQ(Read(path), "DEF");
    folder.Write("A.INI", "[S]\r\nK=upper\r\n");
    EXPECT_EQ(Read(path), "upper") << "found under another case";
}

TEST(ProfileFiles, OwnWritesAreSeenAtOnce)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=0\r\n");
    for (const bool steady : {false, true}) {
        if (steady) {
            BeginSteadyReads();
        }
        for (int i = 1; i < 50; ++i) {
            ASSERT_TRUE(WriteProfileString(path, "S", "K", std::to_string(i)));
            ASSERT_EQ(Read(path), std::to_string(i));
        }
        EXPECT_TRUE(DeleteProfileKey(path, "S", "K"));
        EXPECT_EQ(Read(path), "DEF");
    }
    EndSteadyReads();
}

TEST(ProfileFiles, SteadyReadsSeeAChangeSoon)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=old\r\n");
    BeginSteadyReads();
    EXPECT_EQ(Read(path), "old");
    folder.Write("a.ini", "[S]\r\nK=new\r\n");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(Read(path), "new");
    EXPECT_EQ(Read(folder.Path + "/b.ini"), "DEF");
    folder.Write("b.ini", "[S]\r\nK=came\r\n");
    std::this_thread::sleep_for(std::chrono::milliseconds(20));
    EXPECT_EQ(Read(folder.Path + "/b.ini"), "came");
    folder.Write("a.ini", "[S]\r\nK=end\r\n");
    EndSteadyReads();
    EXPECT_EQ(Read(path), "end") << "at once, now that they are over";
    folder.Write("a.ini", "[S]\r\nK=two\r\n");
    BeginSteadyReads();
    EXPECT_EQ(Read(path), "two") << "the first look is always fresh";
    EndSteadyReads();
}

TEST(ProfileFiles, ManyFilesAreToldApart)
{
    StartCase();
    const TempFolder folder;
    for (int round = 0; round < 2; ++round) {
        for (int i = 0; i < 20; ++i) {
            const std::string name = "f" + std::to_string(i) + ".ini";
            const std::string value = std::to_string(100 * round + i);
            const std::string path = folder.Write(name, "[S]\r\nK=" + value + "\r\n");
            EXPECT_EQ(Read(path), value);
            EXPECT_EQ(Read(folder.Path + "/f0.ini"), std::to_string(100 * round));
        }
    }
}

TEST(ProfileFiles, FindAndReadAgree)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK= 'va lue' \r\nL=\r\n");
    EXPECT_EQ(FindProfileString(path, "s", "k", "DEF", 255), "va lue");
    EXPECT_EQ(FindProfileString(path, "S", "L", "DEF", 255), "");
    EXPECT_EQ(FindProfileString(path, "S", "M", "'DEF' ", 255), "DEF");
    EXPECT_EQ(FindProfileString(path, "S", "K", "DEF", 3), "va");
}

TEST(ProfileFiles, AFullDiskLeavesTheOldText)
{
    StartCase();
    const TempFolder folder;
    const std::string before = "[S]\r\nK=old\r\n;" + std::string(900, 'c') + "\r\n";
    const std::string path = folder.Write("a.ini", before);
    rlimit old = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &old), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tiny = {1000, old.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const bool grown = WriteProfileString(path, "S", "K", std::string(500, 'v'));
    const bool made = WriteProfileString(folder.Path + "\\b.ini", "S", "K", std::string(2000, 'v'));
    const bool same = WriteProfileString(path, "S", "K", "new");
    ::setrlimit(RLIMIT_FSIZE, &old);
    std::signal(SIGXFSZ, handler);
    EXPECT_FALSE(grown);
    EXPECT_FALSE(made);
    EXPECT_FALSE(folder.Holds("b.ini"));
    EXPECT_TRUE(same);
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\nK=new\r\n;" + std::string(900, 'c') + "\r\n");
}

TEST(ProfileFiles, KeepTheirIdentity)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("real.ini", "[S]\r\nK=old\r\nB=2\r\n");
    fs::create_symlink("real.ini", folder.Path + "/link.ini");
    fs::permissions(path, fs::perms::owner_read | fs::perms::owner_write);
    EXPECT_TRUE(WriteProfileString(folder.Path + "\\link.ini", "S", "K", "longer"));
    EXPECT_TRUE(fs::is_symlink(folder.Path + "/link.ini"));
    EXPECT_EQ(folder.Read("real.ini"), "[S]\r\nK=longer\r\nB=2\r\n");
    EXPECT_EQ(fs::status(path).permissions(), fs::perms::owner_read | fs::perms::owner_write);
}

TEST(ProfileFiles, ThatAreNoneGiveTheDefault)
{
    StartCase();
    const TempFolder folder;
    EXPECT_EQ(Read(folder.Path), "DEF");
    EXPECT_EQ(Read("/dev/zero"), "DEF");
    EXPECT_EQ(Read(""), "DEF");
    ASSERT_EQ(::mkfifo((folder.Path + "/pipe").c_str(), 0600), 0);
    EXPECT_EQ(Read(folder.Path + "\\pipe"), "DEF");
    EXPECT_FALSE(WriteProfileString(folder.Path + "\\pipe", "S", "K", "new"));
    const std::string huge = folder.Write("huge.ini", "[S]\r\nK=v\r\n");
    fs::resize_file(huge, std::uintmax_t{1} << 40);
    EXPECT_EQ(Read(huge), "DEF");
    EXPECT_FALSE(WriteProfileString(huge, "S", "K", "new"));
    EXPECT_EQ(fs::file_size(huge), std::uintmax_t{1} << 40);
}

TEST(ProfileFiles, OfAnySizeAreTakenApart)
{
    StartCase();
    std::string bytes = "[S]\n";
    constexpr int Keys = 300'000;
    for (int i = 0; i < Keys; ++i) {
        bytes += "key" + std::to_string(i) + "=" + std::to_string(i * 2) + "\n";
    }
    for (int i = 0; i < Keys; ++i) {
        bytes += "[s" + std::to_string(i) + "]\nK=" + std::to_string(i) + "\n";
    }
    const KeyText text = ParseKeyText(bytes);
    std::string_view value;
    for (int i = 0; i < Keys; i += 777) {
        ASSERT_TRUE(FindKeyValue(text, "S", "KEY" + std::to_string(i), value));
        ASSERT_EQ(value, std::to_string(i * 2));
        ASSERT_TRUE(FindKeyValue(text, "S" + std::to_string(i), "k", value));
        ASSERT_EQ(value, std::to_string(i));
    }
    EXPECT_FALSE(FindKeyValue(text, "S", "K", value));
    EXPECT_FALSE(FindKeyValue(text, "S1", "key1", value));
    EXPECT_EQ(ParseKeyText(std::string(LargestKeyText + 1, 'x')).Keys.size(), 0U);
}

/// The plain way: walk the lines for each question.
bool FindPlainly(const KeyText& text, std::string_view section, std::string_view key, std::string_view& value)
{
    std::string_view rest = text.Text;
    KeyTextLine line;
    bool inSection = false;
    while (NextKeyTextLine(rest, line)) {
        if (line.Kind == KeyTextKind::Header) {
            if (inSection) {
                return false;
            }
            inSection = IsNamed(text, line.Name, section);
        } else if (inSection && line.Kind == KeyTextKind::Key && IsNamed(text, line.Name, key)) {
            value = line.HasValue ? line.Value : value;
            return line.HasValue;
        }
    }
    return false;
}

bool FoldedEqual(std::string_view a, std::string_view b)
{
    const auto lower = [](std::string text) {
        for (char& c : text) {
            c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
        }
        return text;
    };
    return lower(std::string(a)) == lower(std::string(b));
}

std::string RandomText(std::mt19937& random, std::size_t length)
{
    constexpr std::string_view Alphabet = "[]==;ssSkKtT \r\n\n\n\"'\0\x1a\xff\xfe?"sv;
    constexpr std::string_view Heads[] = {"", "[s]\n", "[S]\r\nK=1\n", "\xff\xfe"};
    std::string text(Heads[random() % 4]);
    while (text.size() < length) {
        text += Alphabet[random() % Alphabet.size()];
        if (text.starts_with("\xff\xfe") && random() % 8 != 0) {
            text += '\0';
        }
    }
    return text;
}

TEST(ProfileFiles, TheIndexFindsWhatAWalkFinds)
{
    std::mt19937 random(11);
    const std::string_view names[] = {"", "s", "S", "k", "K", "t", "sk", "?", "ss"};
    int found = 0;
    for (int round = 0; round < 20'000; ++round) {
        const KeyText text = ParseKeyText(RandomText(random, random() % 80));
        for (const std::string_view section : names) {
            for (const std::string_view key : names) {
                std::string_view value = "none";
                std::string_view plain = "none";
                ASSERT_EQ(FindKeyValue(text, section, key, value), FindPlainly(text, section, key, plain))
                    << text.Text;
                ASSERT_EQ(value, plain) << text.Text;
                found += value == "none" ? 0 : 1;
            }
        }
    }
    EXPECT_GT(found, 1000);
}

TEST(ProfileFiles, WhatIsWrittenIsReadBack)
{
    std::mt19937 random(13);
    const std::string_view names[] = {"s", "S", "k", "t", "tk", "s k"};
    for (int round = 0; round < 20'000; ++round) {
        const std::string before = RandomText(random, random() % 60);
        const std::string_view section = names[random() % 6];
        const std::string_view key = names[random() % 6];
        const std::string expected = std::to_string(random() % 100);
        const std::string after = WithKeySet(before, section, key, expected);
        std::string_view value;
        const KeyText text = ParseKeyText(after);
        ASSERT_TRUE(FindKeyValue(text, section, key, value)) << before << " -> " << after;
        ASSERT_EQ(value, expected);
        ASSERT_EQ(WithKeySet(after, section, key, expected), after) << "a second time changes nothing";

        // The other keys of the file keep their values.
        const KeyText old = ParseKeyText(before);
        for (const std::string_view otherSection : names) {
            for (const std::string_view otherKey : names) {
                std::string_view was = "none";
                std::string_view is = "none";
                static_cast<void>(FindKeyValue(old, otherSection, otherKey, was));
                static_cast<void>(FindKeyValue(text, otherSection, otherKey, is));
                const bool same = FoldedEqual(otherSection, section) && FoldedEqual(otherKey, key);
                ASSERT_TRUE(same || was == is) << before << " -> " << after;
            }
        }
        const std::string sections = ListSections(text);
        const std::string fewer = ListSections(ParseKeyText(WithoutSection(after, section)));
        ASSERT_EQ(std::count(fewer.begin(), fewer.end(), '\0') + 1,
                  std::count(sections.begin(), sections.end(), '\0'))
            << after;
    }
}
} // namespace
