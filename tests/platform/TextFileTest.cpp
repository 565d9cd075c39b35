// Whole texts in, texts out; what a full disk or an unwritable folder leaves behind.
#include "platform/TextFile.h"
#include "platform/Fault.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <filesystem>
#include <fstream>
#include <random>
#include <string>
#include <string_view>
#include <sys/resource.h>
#include <sys/stat.h>
#include <vector>

namespace
{
namespace fs = std::filesystem;
using namespace std::string_literals;
using namespace std::string_view_literals;
using testing::AllOf;
using testing::HasSubstr;

std::vector<std::string> Lines(std::string_view text)
{
    std::vector<std::string> lines;
    std::string_view line;
    while (NextLine(text, line)) {
        lines.emplace_back(line);
    }
    return lines;
}

/// The text of the fault that `step` ends with; empty when it ends well.
template <typename Step> std::string FaultOf(Step step)
{
    try {
        step();
    } catch (const RunTimeFault& fault) {
        return fault.what();
    }
    return {};
}

TEST(Lines, EndWithAnyLineEnd)
{
    using List = std::vector<std::string>;
    EXPECT_EQ(Lines(""), List{});
    EXPECT_EQ(Lines("a"), List{"a"});
    EXPECT_EQ(Lines("a\n"), List{"a"});
    EXPECT_EQ(Lines("a\r\nb\nc\rd"), (List{"a", "b", "c", "d"}));
    EXPECT_EQ(Lines("\r\n"), List{""});
    EXPECT_EQ(Lines("\n\r"), (List{"", ""}));
    EXPECT_EQ(Lines("\r\r\n"), (List{"", ""}));
    EXPECT_EQ(Lines("a\0b\r\nc"sv), (List{std::string("a\0b"sv), "c"}));
    EXPECT_EQ(Lines("\r"), List{""});
}

TEST(Lines, LoseNothingButTheirEnds)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string text;
        std::string kept;
        for (unsigned i = 0; i < round % 20U; ++i) {
            text += "\r\nab"[random() % 4];
        }
        for (const char c : text) {
            if (c != '\r' && c != '\n') {
                kept += c;
            }
        }
        std::string joined;
        for (const std::string& line : Lines(text)) {
            EXPECT_EQ(line.find_first_of("\r\n"), std::string::npos);
            joined += line;
        }
        EXPECT_EQ(joined, kept);
    }
}

TEST(TextFiles, AreReadWhole)
{
    StartCase();
    const TempFolder folder;
    const std::string bytes("a\0\r\n\xff\x1a"
                            "b"sv);
    folder.Write("a.txt", bytes);
    std::string content = "old";
    EXPECT_TRUE(ReadWholeFile(folder.Path + "\\A.TXT", content));
    EXPECT_EQ(content, bytes);
    folder.Write("empty", "");
    EXPECT_TRUE(ReadWholeFile(folder.Path + "\\empty", content));
    EXPECT_EQ(content, "");
    const std::string large(3'000'001, 'x');
    folder.Write("large", large);
    EXPECT_TRUE(ReadWholeFile(folder.Path + "\\large", content));
    EXPECT_TRUE(content == large);
    // The system tells the length of these as 0.
    EXPECT_TRUE(ReadWholeFile("/proc/self/status", content));
    EXPECT_THAT(content, HasSubstr("Name:"));
}

TEST(TextFiles, ThatAreNoneAreNotRead)
{
    StartCase();
    const TempFolder folder;
    std::string content = "old";
    EXPECT_FALSE(ReadWholeFile(folder.Path + "\\none", content));
    EXPECT_EQ(content, "");
    EXPECT_FALSE(ReadWholeFile(folder.Path, content));
    EXPECT_FALSE(ReadWholeFile("", content));
    EXPECT_FALSE(ReadWholeFile("/dev/zero", content)) << "endless";
    ASSERT_EQ(::mkfifo((folder.Path + "/pipe").c_str(), 0600), 0);
    EXPECT_FALSE(ReadWholeFile(folder.Path + "\\pipe", content)) << "nobody will ever write to it";
    const std::string huge = folder.Write("huge", "");
    fs::resize_file(huge, std::uintmax_t{1} << 40); // a hole of 1 TB
    EXPECT_FALSE(ReadWholeFile(huge, content));
    EXPECT_EQ(content, "");
}

TEST(TextWriters, GiveTheNameAtTheEnd)
{
    StartCase();
    const TempFolder folder;
    AppState.AppPath = folder.Path;
    folder.Write("drive_c/Nc/plate.nc", "old");
    TextWriter writer;
    OpenText(writer, "C:\\NC\\PLATE.NC");
    EXPECT_FALSE(folder.Holds("drive_c/Nc/plate.nc")) << "the old program is gone at once";
    EXPECT_TRUE(folder.Holds("drive_c/Nc/PLATE.NC.part"));
    WriteTextLine(writer, "N10 G00");
    WriteTextLine(writer, "");
    WriteTextLine(writer, "N20 M30");
    EXPECT_FALSE(folder.Holds("drive_c/Nc/PLATE.NC"));
    CloseText(writer);
    EXPECT_EQ(folder.Read("drive_c/Nc/PLATE.NC"), "N10 G00\r\n\r\nN20 M30\r\n");
    EXPECT_FALSE(folder.Holds("drive_c/Nc/PLATE.NC.part"));
    EXPECT_EQ(writer.Handle, nullptr);
}

TEST(TextWriters, WriteMoreThanTheirBuffer)
{
    StartCase();
    const TempFolder folder;
    TextWriter writer;
    OpenText(writer, folder.Path + "\\a.nc");
    std::string expected;
    for (int i = 0; i < 100'000; ++i) {
        const std::string line = "N" + std::to_string(i) + " G01 X1.000";
        WriteTextLine(writer, line);
        expected += line + "\r\n";
    }
    const std::string longLine(1'000'000, 'L');
    WriteTextLine(writer, longLine);
    CloseText(writer);
    EXPECT_TRUE(folder.Read("a.nc") == expected + longLine + "\r\n");
}

TEST(TextWriters, KeepThePartOfAFault)
{
    StartCase();
    const TempFolder folder;
    TextWriter writer;
    AbandonText(writer); // nothing is open
    OpenText(writer, folder.Path + "\\a.nc");
    WriteTextLine(writer, "N10");
    AbandonText(writer);
    EXPECT_EQ(folder.Read("a.nc.part"), "N10\r\n");
    EXPECT_FALSE(folder.Holds("a.nc"));
    OpenText(writer, folder.Path + "\\a.nc"); // and can go on with another text
    WriteTextLine(writer, "N20");
    CloseText(writer);
    EXPECT_EQ(folder.Read("a.nc"), "N20\r\n");
    EXPECT_FALSE(folder.Holds("a.nc.part"));
}

TEST(TextWriters, TellFileAndReason)
{
    StartCase();
    const TempFolder folder;
    folder.Write("sub/x", "");
    TextWriter writer;
    EXPECT_EQ(FaultOf([&] { OpenText(writer, folder.Path + "\\none\\a.nc"); }),
              "Cannot write " + folder.Path + "/none/a.nc: No such file or directory");
    EXPECT_EQ(FaultOf([&] { OpenText(writer, folder.Path + "\\sub"); }),
              "Cannot write " + folder.Path + "/sub: Is a directory");
    EXPECT_EQ(FaultOf([&] { OpenText(writer, "/dev/null"); }), "Cannot write /dev/null: File exists");
    EXPECT_TRUE(fs::exists("/dev/null")) << "a device is not removed as an old program";
    EXPECT_NE(FaultOf([&] { CloseText(writer); }), "") << "nothing is open";
}

TEST(TextWriters, SeeAFullDisk)
{
    StartCase();
    const TempFolder folder;
    // The unfinished file is a way to the device that is always full.
    fs::create_symlink("/dev/full", folder.Path + "/a.nc.part");
    TextWriter writer;
    OpenText(writer, folder.Path + "\\a.nc");
    WriteTextLine(writer, "N10");
    const std::string atClose = FaultOf([&] { CloseText(writer); });
    EXPECT_EQ(atClose, "Cannot write " + folder.Path + "/a.nc: No space left on device");
    EXPECT_FALSE(folder.Holds("a.nc"));
    EXPECT_EQ(writer.Handle, nullptr);

    OpenText(writer, folder.Path + "\\a.nc");
    const std::string onTheWay = FaultOf([&] {
        for (int i = 0; i < 100'000; ++i) {
            WriteTextLine(writer, "N10 G01 X1.000 Y2.000");
        }
    });
    EXPECT_THAT(onTheWay, HasSubstr("No space left on device"));
    AbandonText(writer); // no harm after a fault
    EXPECT_FALSE(folder.Holds("a.nc"));
    EXPECT_THAT(FaultOf([&] { WriteWholeText(folder.Path + "\\a.nc", "x"); }), HasSubstr("No space left"));
}

TEST(TextWriters, SeeALimitOnFiles)
{
    StartCase();
    const TempFolder folder;
    rlimit before = {};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit tiny = {1000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &tiny), 0);
    const std::string fault =
        FaultOf([&] { WriteWholeText(folder.Path + "\\a.nc", std::string(2000, 'x')); });
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(fault, "Cannot write " + folder.Path + "/a.nc: File too large");
    EXPECT_FALSE(folder.Holds("a.nc"));
    EXPECT_TRUE(folder.Holds("a.nc.part"));
}

TEST(TextWriters, EndTheLinesOfWholeTexts)
{
    StartCase();
    const TempFolder folder;
    const auto written = [&folder](std::string_view content) {
        WriteWholeText(folder.Path + "\\a.txt", content);
        return folder.Read("a.txt");
    };
    EXPECT_EQ(written("one\ntwo\n"), "one\r\ntwo\r\n");
    EXPECT_EQ(written("one\r\ntwo\r\n"), "one\r\ntwo\r\n");
    EXPECT_EQ(written("\n\n\r\n\n"), "\r\n\r\n\r\n\r\n");
    EXPECT_EQ(written("no end"), "no end");
    EXPECT_EQ(written(""), "");
    EXPECT_EQ(written("a\rb"), "a\rb");
}

std::vector<std::string> ReadLines(const std::string& path)
{
    TextReader reader;
    EXPECT_TRUE(OpenForReading(reader, path));
    std::vector<std::string> lines;
    std::string_view line;
    while (ReadTextLine(reader, line)) {
        lines.emplace_back(line);
    }
    EXPECT_EQ(reader.Lines, static_cast<std::int64_t>(lines.size()));
    EXPECT_FALSE(ReadTextLine(reader, line));
    CloseReader(reader);
    return lines;
}

TEST(TextReaders, GiveLineByLine)
{
    StartCase();
    const TempFolder folder;
    using testing::ElementsAre;
    EXPECT_THAT(ReadLines(folder.Write("a.nc", "one\r\ntwo\n\nlast")), ElementsAre("one", "two", "", "last"));
    EXPECT_THAT(ReadLines(folder.Write("b.nc", "one\r\n\r\n")), ElementsAre("one", ""));
    EXPECT_THAT(ReadLines(folder.Write("c.nc", "")), ElementsAre());
    EXPECT_THAT(ReadLines(folder.Write("d.nc", "a\rb\0c\n"sv)), ElementsAre("a\rb\0c"s));
    TextReader reader;
    EXPECT_FALSE(OpenForReading(reader, folder.Path + "/none.nc"));
    EXPECT_FALSE(OpenForReading(reader, folder.Path));
    std::string_view line;
    EXPECT_FALSE(ReadTextLine(reader, line));
}

TEST(TextReaders, MeetLineEndsAtEachPlaceOfTheirBuffer)
{
    StartCase();
    const TempFolder folder;
    constexpr std::size_t block = 65536;
    for (std::size_t length = block - 5; length <= block - 2; ++length) {
        const std::string first(length, 'a');
        const std::string second(length / 2, 'b');
        const std::vector<std::string> wanted = {first, second, first};
        EXPECT_TRUE(ReadLines(folder.Write("a.nc", first + "\r\n" + second + "\r\n" + first)) == wanted)
            << length;
    }
    // longer ones come in pieces, and nothing is lost
    const std::string endless(3 * block + 7, 'x');
    std::string together;
    for (const std::string& piece : ReadLines(folder.Write("b.nc", endless + "\n"))) {
        EXPECT_LE(piece.size(), block);
        together += piece;
    }
    EXPECT_TRUE(together == endless);
}

TEST(TextSums, TellTextsApart)
{
    StartCase();
    const TempFolder folder;
    const auto sumOf = [&folder](std::initializer_list<const char*> lines, bool keep = true) {
        TextWriter writer;
        writer.KeepSum = keep;
        OpenText(writer, folder.Path + "\\a.nc");
        std::uint64_t sum = 0;
        for (const char* line : lines) {
            WriteTextLine(writer, line);
            sum = AddToSum(sum, line);
        }
        CloseText(writer);
        EXPECT_EQ(writer.Sum, keep ? sum : 0);
        return sum;
    };
    const std::uint64_t sum = sumOf({"G00 X1", "M03"});
    EXPECT_EQ(sumOf({"G00 X1", "M03"}), sum);
    EXPECT_NE(sumOf({"G00 X2", "M03"}), sum);
    EXPECT_NE(sumOf({"M03", "G00 X1"}), sum);
    EXPECT_NE(sumOf({"G00 X1M03"}), sum);
    EXPECT_NE(sumOf({"G00 X1", "", "M03"}), sum);
    sumOf({"G00 X1"}, false);
}
} // namespace
