// Writing key files: one case per rule of the format, bytes before, bytes after.
#include "platform/ProfileStrings.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace
{
using namespace std::string_view_literals;

struct WriteCase {
    const char* Rule;
    std::string Before;
    std::string After;
    std::string Section = "S";
    std::string Key = "K";
    std::string Value = "new";
};

std::string Bytes(std::string_view text)
{
    return std::string(text);
}

void Check(const std::vector<WriteCase>& cases)
{
    StartCase();
    const TempFolder folder;
    int number = 0;
    for (const WriteCase& c : cases) {
        const std::string name = "case" + std::to_string(++number) + ".ini";
        const std::string path = folder.Write(name, c.Before);
        EXPECT_TRUE(WriteProfileString(path, c.Section, c.Key, c.Value)) << c.Rule;
        EXPECT_EQ(folder.Read(name), c.After) << c.Rule;
    }
}

TEST(ProfileWrite, FilesThatAreMissing)
{
    StartCase();
    const TempFolder folder;
    EXPECT_TRUE(WriteProfileString(folder.Path + "\\a.ini", "S", "K", "new"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\nK=new\r\n");
    folder.Write("empty.ini", "");
    EXPECT_TRUE(WriteProfileString(folder.Path + "\\empty.ini", "S", "K", "new"));
    EXPECT_EQ(folder.Read("empty.ini"), "[S]\r\nK=new\r\n");
    EXPECT_FALSE(WriteProfileString(folder.Path + "\\none\\a.ini", "S", "K", "new"));
    EXPECT_FALSE(folder.Holds("none"));
    EXPECT_FALSE(WriteProfileString(folder.Path, "S", "K", "new")) << "a folder is no file";
}

TEST(ProfileWrite, KeysInTheirPlace)
{
    Check({
        {"other lines stay", "; c\r\nhead\r\n[S]\r\nA=1\r\njunk\r\nK=old\r\nB=2\r\n",
         "; c\r\nhead\r\n[S]\r\nA=1\r\njunk\r\nK=new\r\nB=2\r\n"},
        {"other lines keep their form", "[S]\r\n A = 1\r\n\r\n[T]\r\nB=2\r\n",
         "[S]\r\n A = 1\r\nK=new\r\n\r\n[T]\r\nB=2\r\n"},
        {"place and spelling", "[s]\r\nA=1\r\nkEy=old\r\nB=2\r\n", "[s]\r\nA=1\r\nkEy=new\r\nB=2\r\n", "S",
         "KEY"},
        {"blanks, quotes, notes", "[S]\r\n K = \"old\" ; note\r\n", "[S]\r\nK=new\r\n"},
        {"same value", "[S]\r\nK=new\r\n", "[S]\r\nK=new\r\n"},
        {"same value with blanks", "[S]\n K = new \n", "[S]\n K = new \n"},
        {"case of the value", "[S]\r\nK=NEW\r\n", "[S]\r\nK=new\r\n"},
        {"quotes of the value", "[S]\r\nK=\"new\"\r\n", "[S]\r\nK=new\r\n"},
        {"empty value", "[S]\r\nK=old\r\n", "[S]\r\nK=\r\n", "S", "K", ""},
        {"a line without =", "[S]\r\nK\r\nK=v\r\n", "[S]\r\nK=new\r\nK=v\r\n"},
        {"a line without =, empty value", "[S]\r\nK\r\n", "[S]\r\nK=\r\n", "S", "K", ""},
        {"first key", "[S]\r\nK=1\r\nK=2\r\n", "[S]\r\nK=new\r\nK=2\r\n"},
        {"last line without end", "[S]\r\nK=old", "[S]\r\nK=new\r\n"},
        {"name up to its NUL", Bytes("[S]\r\nK\0x=old\r\n"sv), "[S]\r\nK=new\r\n"},
        {"LF of the replaced line", "[S]\nK=old\nB=2\n", "[S]\nK=new\r\nB=2\n"},
    });
}

TEST(ProfileWrite, NewKeysAndSections)
{
    Check({
        {"behind the last key", "[S]\r\nA=1\r\n; c\r\n\r\n[T]\r\nB=2\r\n",
         "[S]\r\nA=1\r\nK=new\r\n; c\r\n\r\n[T]\r\nB=2\r\n"},
        {"no keys", "[S]\r\n[T]\r\nB=2\r\n", "[S]\r\nK=new\r\n[T]\r\nB=2\r\n"},
        {"no keys but a comment", "[S]\r\n;x\r\n", "[S]\r\n;x\r\nK=new\r\n"},
        {"no keys but blank lines", "[S]\r\n\r\n[T]\r\n", "[S]\r\nK=new\r\n\r\n[T]\r\n"},
        {"new section", "[T]\r\nA=1\r\n", "[T]\r\nA=1\r\n[S]\r\nK=new\r\n"},
        {"new section behind a line without end", "[T]\r\nA=1", "[T]\r\nA=1\r\n[S]\r\nK=new\r\n"},
        {"line without end", "[S]\r\nA=1", "[S]\r\nA=1\r\nK=new\r\n"},
        {"header without end", "[S]", "[S]\r\nK=new\r\n"},
        {"first section", "[S]\r\nA=1\r\n[S]\r\nK=2\r\n", "[S]\r\nA=1\r\nK=new\r\n[S]\r\nK=2\r\n"},
        {"comment is no key", "[S]\r\n;K=old\r\n", "[S]\r\n;K=old\r\nK=new\r\n"},
        {"comment written", "[S]\r\nA=1\r\n", "[S]\r\nA=1\r\n;K=new\r\n", "S", ";K"},
        {"LF file", "[S]\nA=1\n", "[S]\nA=1\nK=new\r\n"},
        {"CR file", "[S]\rA=1\r", "[S]\rA=1\rK=new\r\n"},
        {"UTF-8 mark", "\xef\xbb\xbf[S]\r\nK=old\r\n", "\xef\xbb\xbf[S]\r\nK=old\r\n[S]\r\nK=new\r\n"},
    });
}

TEST(ProfileWrite, TextAsGiven)
{
    Check({
        {"blanks of the value", "[S]\r\n", "[S]\r\nK=  new  \r\n", "S", "K", "  new  "},
        {"quotes of the value", "[S]\r\n", "[S]\r\nK=\"q\"\r\n", "S", "K", "\"q\""},
        {"line end in the value", "[S]\r\n", "[S]\r\nK=a\r\nB=2\r\n", "S", "K", "a\r\nB=2"},
        {"spaces of the names", "[T]\r\n", "[T]\r\n[S]\r\nK=new\r\n", " S ", " K "},
        {"brackets of the section", "[T]\r\n", "[T]\r\n[[T]]\r\nK=new\r\n", "[T]"},
        {"= of the key", "[S]\r\n", "[S]\r\nK=L=new\r\n", "S", "K=L"},
        {"empty section", "[T]\r\n", "[T]\r\n[]\r\nK=new\r\n", ""},
        {"empty key", "[S]\r\n", "[S]\r\n=new\r\n", "S", ""},
        {"empty key replaced", "[S]\r\n=old\r\n", "[S]\r\n=new\r\n", "S", ""},
        {"bytes above 127", "[S]\r\n", "[S]\r\nK=\x80\xe9\xff\r\n", "S", "K", "\x80\xe9\xff"},
        {"NUL ends the value", "[S]\r\n", "[S]\r\nK=a\r\n", "S", "K", Bytes("a\0b"sv)},
    });
}

TEST(ProfileWrite, Utf16)
{
    Check({
        {"the mark alone", "\xff\xfe", Bytes("\xff\xfe[\0S\0]\0\r\0\n\0K\0=\0\xe9\0\r\0\n\0"sv), "S", "K",
         "\xe9"},
        {"characters outside the code page stay",
         Bytes("\xff\xfe[\0S\0]\0\n\0A\0=\0\x16\x04\n\0K\0=\0o\0\n\0B\0=\0\x17\x04"sv),
         Bytes("\xff\xfe[\0S\0]\0\n\0A\0=\0\x16\x04\n\0K\0=\0\xac\x20\r\0\n\0B\0=\0\x17\x04"sv), "S", "K",
         "\x80"},
        {"'?' is not the same as a character outside", Bytes("\xff\xfe[\0S\0]\0\n\0K\0=\0\x16\x04\n\0"sv),
         Bytes("\xff\xfe[\0S\0]\0\n\0K\0=\0?\0\r\0\n\0"sv), "S", "K", "?"},
        {"half a character at the end goes", Bytes("\xff\xfe[\0S\0]\0\n\0A\0=\0v\0x"sv),
         Bytes("\xff\xfe[\0S\0]\0\n\0A\0=\0v\0\r\0\n\0K\0=\0n\0\r\0\n\0"sv), "S", "K", "n"},
    });
}

TEST(ProfileWrite, ReadOnlyFiles)
{
    StartCase();
    namespace fs = std::filesystem;
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=old\r\n");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_FALSE(WriteProfileString(path, "S", "K", "new"));
    EXPECT_FALSE(WriteProfileString(path, "S", "K", "old")) << "the same value";
    EXPECT_FALSE(DeleteProfileKey(path, "S", "K"));
    EXPECT_FALSE(DeleteProfileSection(path, "S"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\nK=old\r\n");
}

TEST(ProfileWrite, NoSectionAtAll)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=old\r\n");
    EXPECT_FALSE(WriteProfileString(path, std::string_view(), "K", "new"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\nK=old\r\n");
}

TEST(ProfileWrite, DeletesKeys)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "[S]\r\nK=1\r\nK=2\r\n");
    EXPECT_TRUE(DeleteProfileKey(path, "s", " k "));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\nK=2\r\n");
    EXPECT_TRUE(DeleteProfileKey(path, "S", "K"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\n");
    EXPECT_TRUE(DeleteProfileKey(path, "S", "K"));
    EXPECT_TRUE(DeleteProfileKey(path, "T", "K"));
    EXPECT_EQ(folder.Read("a.ini"), "[S]\r\n");
    EXPECT_TRUE(DeleteProfileKey(folder.Path + "/none.ini", "S", "K"));
    EXPECT_FALSE(folder.Holds("none.ini"));
}

TEST(ProfileWrite, DeletesSections)
{
    StartCase();
    const TempFolder folder;
    const std::string path =
        folder.Write("a.ini", "[A]\r\nX=1\r\n[S]\r\nK=1\r\n; c\r\n[T]\r\nB=2\r\n[S]\r\nK=3\r\n");
    EXPECT_TRUE(DeleteProfileSection(path, "U"));
    EXPECT_TRUE(DeleteProfileSection(path, "S"));
    EXPECT_EQ(folder.Read("a.ini"), "[A]\r\nX=1\r\n; c\r\n[T]\r\nB=2\r\n[S]\r\nK=3\r\n");
    EXPECT_TRUE(DeleteProfileSection(path, "S"));
    EXPECT_EQ(folder.Read("a.ini"), "[A]\r\nX=1\r\n; c\r\n[T]\r\nB=2\r\n");
}
} // namespace
