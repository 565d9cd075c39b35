// Reading key files: one case per rule of the format, bytes in, delivered text out.
#include "platform/ProfileStrings.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace
{
using namespace std::string_view_literals;

struct ReadCase {
    const char* Rule;
    std::string Bytes;
    std::string Expected;
    std::string Section = "S";
    std::string Key = "K";
    std::string Default = "DEF";
    std::size_t Size = 255;
};

std::string Bytes(std::string_view text)
{
    return std::string(text);
}

std::string Digits(std::size_t count)
{
    std::string digits;
    while (digits.size() < count) {
        digits += static_cast<char>('0' + digits.size() % 10);
    }
    return digits;
}

void Check(const std::vector<ReadCase>& cases)
{
    StartCase();
    const TempFolder folder;
    int number = 0;
    for (const ReadCase& c : cases) {
        const std::string path = folder.Write("case" + std::to_string(++number) + ".ini", c.Bytes);
        EXPECT_EQ(ReadProfileString(path, c.Section, c.Key, c.Default, c.Size), c.Expected)
            << c.Rule << ", case " << number;
    }
}

TEST(ProfileRead, LinesOfTheFile)
{
    Check({
        {"mixed line ends", "[S]\r\nA=1\nB=2\rK=3\r\nC=4", "3"},
        {"CR CR LF", "[S]\r\r\nK=3\r\r\n", "3"},
        {"last line without end", "[S]\r\nK=v", "v"},
        {"no continuation", "[S]\r\nK=one\\\r\ntwo\r\n", "one\\"},
        {"0Bh, 0Ch, 85h end no line", "[S]\r\nA=1\x0bK=2\r\nB=1\x0cK=2\r\nC=1\x85K=2\r\n", "DEF"},
        {"blanks around lines", "[S]\r\n \r\n\t\r\n\t K=v \r\n", "v"},
        {"which are blanks", "[S]\r\nK=\x0c\xa0v\x01\x0b\r\n", "\xa0v\x01"},
        {"Ctrl-Z goes on",
         "[S]\r\nA=1\r\n\x1a\r\nK=a\x1a"
         "b\r\n",
         "a\x1a"
         "b"},
        {"NUL in a value", Bytes("[S]\r\nA=1\0\r\nK=a\0b\r\n"sv), "a"},
        {"NUL in a key", Bytes("[S]\r\nK\0x=v\r\n"sv), "v"},
        {"NUL in a header", Bytes("[S\0x]\r\nK=v\r\n"sv), "v"},
        {"NUL ahead of a header", Bytes("\0[S]\r\nK=v\r\n"sv), "DEF"},
        {"NUL ahead of a key", Bytes("[S]\r\n\0K=no\r\nK=v\r\n"sv), "v"},
        {"NUL ahead is no empty key", Bytes("[S]\r\n\0=no\r\n=v\r\n"sv), "v", "S", ""},
        {"bytes above 127", "[S]\r\nK=\x80\x81\xe9\xff\r\n", "\x80\x81\xe9\xff"},
        {"UTF-8 mark on the header", "\xef\xbb\xbf[S]\r\nK=v\r\n", "DEF"},
        {"UTF-8 mark on a comment", "\xef\xbb\xbf;c\r\n[S]\r\nK=v\r\n", "v"},
        {"long value", "[S]\r\nK=" + std::string(5000, 'x') + "\r\n", std::string(5000, 'x'), "S", "K", "DEF",
         6000},
        {"long comment", "[S]\r\n;" + std::string(70000, 'c') + "\r\nK=v\r\n", "v"},
        {"65535 characters", "[S]\r\nK=" + std::string(65535, 'x'), std::string(65535, 'x'), "S", "K", "DEF",
         100000},
        {"65536 characters", "[S]\r\nK=" + std::string(65536, 'x'), "", "S", "K", "DEF", 100000},
        {"65539 characters", "[S]\r\nK=" + Digits(65539), "012", "S", "K", "DEF", 100000},
        {"empty file", "", "DEF"},
    });
}

TEST(ProfileRead, Utf16)
{
    Check({
        {"little endian", Bytes("\xff\xfe[\0S\0]\0\r\0\n\0K\0=\0\xe9\0\x16\x04\r\0\n\0"sv), "\xe9?"},
        {"half a character at the end", Bytes("\xff\xfe[\0S\0]\0\n\0K\0=\0v\0x"sv), "v"},
        {"euro and the five open places", Bytes("\xff\xfe[\0S\0]\0\n\0K\0=\0\xac\x20\x81\0\x9d\0\x60\x01"sv),
         "\x80\x81\x9d\x8a"},
        {"a name outside the code page is no '?'",
         Bytes("\xff\xfe[\0S\0]\0\n\0\x16\x04=\0n\0\n\0?\0=\0y\0"sv), "y", "S", "?"},
        {"a section outside the code page is no '?'",
         Bytes("\xff\xfe[\0\x16\x04]\0\n\0K\0=\0n\0\n\0[\0?\0]\0\n\0K\0=\0y\0"sv), "y", "?"},
        {"the mark alone", "\xff\xfe", "DEF"},
        {"big endian", Bytes("\xfe\xff\0[\0S\0]\0\r\0\n\0K\0=\0v\0\r\0\n"sv), "DEF"},
    });
}

TEST(ProfileRead, Sections)
{
    Check({
        {"first ] ends", "[S]]\r\nK=v\r\n", "v"},
        {"no ]", "[S\r\nK=v\r\n", "v"},
        {"text behind", "[S] ; see [T]\r\nK=v\r\n", "v"},
        {"[ makes no key", "[S]\r\n[X=5\r\nK=2\r\n", "DEF", "S", "[X"},
        {"key behind ]", "[S] K=inline\r\n", "DEF"},
        {"comment behind ]", "[S];comment\r\nK=v\r\n", "v"},
        {"blanks around", " [ S\t] \r\nK=v\r\n", "v"},
        {"blanks inside", "[A  B]\r\nK=v\r\n", "DEF", "A B"},
        {"second [", "[[S]\r\nK=v\r\n", "v", "[S"},
        {"quotes", "[\"S\"]\r\nK=v\r\n", "DEF"},
        {"semicolon", "[;S]\r\nK=v\r\n", "v", ";S"},
        {"[ further right", "[A]\r\nX=[S]\r\nK=v\r\n", "v", "A"},
        {"S] is none", "S]\r\nK=v\r\n", "DEF"},
        {"x [S] is none", "x [S]\r\nK=v\r\n", "DEF"},
        {";[S] is none", ";[S]\r\nK=v\r\n", "DEF"},
        {"#[S] is none", "#[S]\r\nK=v\r\n", "DEF"},
        {"case", "[setup]\r\nPreviewPic.w=200\r\n", "200", "SETUP", "PREVIEWPIC.W"},
        {"whole names", "[S]\r\nP10=ten\r\nP1=one\r\n", "one", "S", "P1"},
        {"whole section names", "[SS]\r\nK=1\r\n[S]\r\nK=2\r\n", "2"},
        {"letters above 127", "[S]\r\n\xe9=v\r\n", "DEF", "S", "\xc9"},
        {"@ and ` are no case of each other", "[S]\r\n@=v\r\n", "DEF", "S", "`"},
        {"first section only", "[S]\r\nA=1\r\n[T]\r\n[s]\r\nK=2\r\n", "DEF"},
        {"ahead of the first header", "K=v\r\n[S]\r\nB=2\r\n", "DEF", ""},
        {"empty name", "[]\r\nK=v\r\n", "v", ""},
        {"spaces of the argument", "[S]\r\nK=v\r\n", "v", " S "},
        {"tabs of the argument", "[S]\r\nK=v\r\n", "DEF", "\tS"},
        {"brackets of the argument", "[S]\r\nK=v\r\n", "DEF", "[S]"},
        {"NUL of the argument", "[S]\r\nK=v\r\n", "v", Bytes("S\0T"sv)},
    });
}

TEST(ProfileRead, Keys)
{
    Check({
        {"first = ends", "[S]\r\nK=a=b\r\n", "a=b"},
        {"two =", "[S]\r\nK==b\r\n", "=b"},
        {"blanks around", "[S]\r\n \t K \t = \t a \t b \t \r\n", "a \t b"},
        {"blank inside", "[S]\r\na b=v\r\n", "v", "S", "a b"},
        {"#", "[S]\r\n#V1=N,0,1,Label\r\n", "N,0,1,Label", "S", "#V1"},
        {"; inside", "[S]\r\nkey ;x=v\r\n", "v", "S", "key ;x"},
        {"quotes", "[S]\r\n\"K\"=v\r\n", "DEF"},
        {"comment", "[S]\r\n\t;K=no\r\nK=yes\r\n", "yes"},
        {"comment asked for", "[S]\r\n;K=no\r\n", "DEF", "S", ";K"},
        {"// is no comment", "[S]\r\n//K=c\r\n", "c", "S", "//K"},
        {"REM is no comment", "[S]\r\nREM K=c\r\n", "c", "S", "REM K"},
        {"; in a value", "[S]\r\nK=a ;b\r\n", "a ;b"},
        {"; heads a value", "[S]\r\nK=;b\r\n", ";b"},
        {"first key counts", "[S]\r\nK=1\r\nk=2\r\n", "1"},
        {"first key counts though empty", "[S]\r\nK=\r\nK=v\r\n", ""},
        {"empty value", "[S]\r\nK=\r\n", ""},
        {"blank value", "[S]\r\nK=  \r\n", ""},
        {"no =", "[S]\r\nK\r\n", "DEF"},
        {"no = hides", "[S]\r\nK\r\nK=v\r\n", "DEF"},
        {"colon", "[S]\r\nK:v\r\n", "DEF"},
        {"empty key", "[S]\r\n=v\r\n", "v", "S", ""},
        {"empty line is no key", "[S]\r\n\r\nK=v\r\n", "DEF", "S", ""},
        {"spaces of the argument", "[S]\r\n K =v\r\n", "v", "S", " K "},
        {"tabs of the argument", "[S]\r\nK=v\r\n", "DEF", "S", "\tK"},
    });
}

TEST(ProfileRead, Values)
{
    Check({
        {"pair of quotes", "[S]\r\nK= \" v \" \r\n", " v "},
        {"pair of single quotes", "[S]\r\nK=''\r\n", ""},
        {"one pair only", "[S]\r\nK=\"\"v\"\"\r\n", "\"v\""},
        {"quote inside", "[S]\r\nK=\"a\"b\"\r\n", "a\"b"},
        {"one side", "[S]\r\nK=\"v\r\n", "\"v"},
        {"two kinds", "[S]\r\nK=\"v'\r\n", "\"v'"},
        {"text behind", "[S]\r\nK=\"v\" x\r\n", "\"v\" x"},
        {"a single one", "[S]\r\nK=\"\r\n", "\""},
        {"no escapes", "[S]\r\nK=%PATH%\\n\\\\\r\n", "%PATH%\\n\\\\"},
        {"header in it", "[S]\r\nK=[T] Ab\r\n", "[T] Ab"},
        {"size 50", "[S]\r\nK=" + Digits(60) + "\r\n", Digits(49), "S", "K", "DEF", 50},
        {"size 255", "[S]\r\nK=" + Digits(255) + "\r\n", Digits(254)},
        {"quotes go first", "[S]\r\nK=\"abc\"\r\n", "abc", "S", "K", "DEF", 4},
        {"blank at the cut", "[S]\r\nK=ab cd\r\n", "ab ", "S", "K", "DEF", 4},
        {"size 1", "[S]\r\nK=abcd\r\n", "", "S", "K", "DEF", 1},
        {"size 0", "[S]\r\nK=abcd\r\n", "", "S", "K", "DEF", 0},
    });
}

TEST(ProfileRead, Defaults)
{
    Check({
        {"no section", "[T]\r\nK=1\r\n", "DEF"},
        {"no key", "[S]\r\nX=1\r\n", "DEF"},
        {"trailing spaces", "[S]\r\n", " abc", "S", "K", " abc  "},
        {"tab stays", "[S]\r\n", "abc\t", "S", "K", "abc\t"},
        {"spaces only", "[S]\r\n", "", "S", "K", "  "},
        {"cut", "[S]\r\n", "ab", "S", "K", "abc", 3},
        {"quotes", "[S]\r\n", "def", "S", "K", "\"def\""},
        {"NUL ends it", "[S]\r\n", "a", "S", "K", Bytes("a \0b"sv)},
        {"size 0", "[S]\r\n", "", "S", "K", "DEF", 0},
    });
    const TempFolder folder;
    EXPECT_EQ(ReadProfileString(folder.Path + "/none.ini", "S", "K", "DEF", 255), "DEF");
    EXPECT_EQ(ReadProfileString(folder.Path + "/none/none.ini", "S", "K", "DEF", 255), "DEF");
    const std::string path = folder.Write("S.ini", "[S]\r\nX=1\r\n");
    EXPECT_EQ(ReadProfileString(path, "S", "K", std::string_view(), 255), "");
}

TEST(ProfileRead, ListsOfNames)
{
    StartCase();
    const TempFolder folder;
    const std::string path = folder.Write("a.ini", "X=0\r\n[S]\r\nA=1\r\nC\r\n;D=4\r\nB=2\r\nA=3\r\n=5\r\n"
                                                   "[T]\r\nK=1\r\n[]\r\n[s]\r\nE=1\r\n");
    EXPECT_EQ(ReadProfileKeys(path, "s", 255), "A\0B\0A\0"sv);
    EXPECT_EQ(ReadProfileKeys(path, "S", 7), "A\0B\0A\0"sv); // 6 and the closing NUL
    EXPECT_EQ(ReadProfileKeys(path, "S", 6), "A\0B\0"sv);
    EXPECT_EQ(ReadProfileKeys(path, "S", 5), "A\0B"sv);
    EXPECT_EQ(ReadProfileKeys(path, "S", 2), "");
    EXPECT_EQ(ReadProfileKeys(path, "S", 0), "");
    EXPECT_EQ(ReadProfileKeys(path, "U", 255), "");
    EXPECT_EQ(ReadProfileSections(path, 255), "S\0T\0s\0"sv);
    EXPECT_EQ(ReadProfileSections(path, 4), "S\0"sv);
    EXPECT_EQ(ReadProfileSections(folder.Path + "/none.ini", 255), "");

    const std::string example = folder.Write("b.ini", "[S]\r\nA=1\r\nC\r\n;D=4\r\nB=2\r\n[T]\r\n");
    EXPECT_EQ(ReadProfileKeys(example, "S", 255), "A\0B\0"sv);
}
} // namespace
