// Jobs in the real window, by keys alone: saved, left, opened by another start, changed, saved again; and their pictures.
#include "WindowStation.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>

namespace
{
namespace fs = std::filesystem;

constexpr const char* Names[] = {"PROGRAM/JOB.nc", "NEST/JOB.nst", "NEST/DATA/JOB.bmp", "NEST/DATA/JOB.drw"};

using JobFiles = std::array<std::string, 4>;

JobFiles Read(const WindowStation& station)
{
    JobFiles files;
    for (std::size_t i = 0; i < files.size(); ++i) {
        files[i] = station.Folder.Read(Names[i]);
    }
    return files;
}

/// From the nest: saves over the job whose name is offered, and waits for the last of its files.
void SaveAgain(const WindowStation& station)
{
    const std::string last = station.Folder.Path + "/" + Names[3];
    const auto before = fs::last_write_time(last);
    station.Press({"F10", "Return"});
    station.AwaitBox();
    station.Press({"F10"});
    ASSERT_TRUE(WaitFor(10, [&] { return fs::exists(last) && fs::last_write_time(last) != before; }));
}

void Quit(WindowStation& station)
{
    station.Press({"Escape"});
    station.ExpectEnd(0);
}

/// Starts the program and opens the only job.
void StartWithJob(WindowStation& station)
{
    station.Start();
    station.GoToTab(ProgramsTab);
    station.Open();
}

TEST(WindowJobs, ComeBackInAnotherStart)
{
    WindowStation station;
    const Road road = {{"Angle", "90"},      {"Move Step", "1"}, {"LeadIn : A", "3"}, {"LeadIn : B", "1.5"},
                       {"key", "CopyLeads"}, {"X Sheet", "*3"},  {"Y Sheet", "*2"}};
    station.Start();
    station.GoToTab(DxfTab);
    station.Press({"Down"}); // from BRACKET to FLANGE, which has no marking points: a job holds none
    station.Open();
    station.Walk(road);
    station.Save("JOB");
    ASSERT_TRUE(WaitFor(10, [&] { return station.Folder.Holds(Names[3]); }));
    Quit(station);
    const JobFiles first = Read(station);
    EXPECT_EQ(first[2].size(), 54U + 360 * 155) << "120 x 155 pixels of three bytes";

    StartWithJob(station);
    station.Walk({});
    SaveAgain(station);
    Quit(station);
    const JobFiles second = Read(station);
    EXPECT_EQ(second[0], first[0]);
    EXPECT_EQ(second[3], first[3]);

    const Road change = {{"LeadIn : A", "4"}};
    const std::string expected = station.Reference("JOB.nst", {}, change, "JOB");
    StartWithJob(station);
    station.Walk(change);
    SaveAgain(station);
    Quit(station);
    const JobFiles third = Read(station);
    EXPECT_EQ(third[0], expected);
    EXPECT_NE(third[0], second[0]);
    EXPECT_EQ(third[3].size(), second[3].size());
    for (std::size_t at = 0; at < third[3].size(); ++at) {
        const bool isLead = at >= 198 + 6 && at < 198 + 14; // of profile 1, in record 2
        EXPECT_TRUE(isLead || third[3][at] == second[3][at]) << at;
    }

    StartWithJob(station);
    station.Walk({});
    SaveAgain(station);
    Quit(station);
    EXPECT_EQ(Read(station), third) << "byte for byte, the picture too";
}

TEST(WindowJobs, OfAnOldFormatEndTheProgram)
{
    WindowStation station;
    station.Start();
    station.Open();
    station.Walk({});
    station.Save("JOB");
    ASSERT_TRUE(WaitFor(10, [&] { return station.Folder.Holds(Names[3]); }));
    std::string text = station.Folder.Read(Names[1]);
    station.Folder.Write(Names[1], text.replace(text.find("VL=3.00"), 7, "VL=2.00"));
    station.Press({"F10"});
    station.AwaitBox();
    station.Press({"F10"});
    station.ExpectEnd(1);
}

TEST(WindowJobs, ShowTheirPictures)
{
    // Red, as no drawing is: a bitmap of 2 x 2 pixels, 3 bytes each, rows of 8 bytes.
    const std::string header("BM\x46\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\2\0\0\0\2\0\0\0\1\0\x18\0\0\0\0\0"
                             "\x10\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0",
                             54);
    const std::string row("\x12\x34\xFE\x12\x34\xFE\0\0", 8);
    constexpr std::uint32_t Red = 0xFE3412;
    WindowStation station;
    for (const char* name : {"A", "B", "C", "D"}) {
        station.Folder.Write(std::string("NEST/") + name + ".nst", "");
    }
    station.Folder.Write("NEST/DATA/B.bmp", header + row + row);
    station.Folder.Write("NEST/DATA/C.BMP", "no picture at all");
    station.Start();
    station.GoToTab(ProgramsTab);
    const auto shows = [&](bool red) {
        return WaitFor(5, [&] { return (CountColor(station.Look(), Red) > 1000) == red; });
    };
    EXPECT_TRUE(shows(false)) << "A has none";
    station.Press({"Down"});
    EXPECT_TRUE(shows(true)) << "B";
    station.Press({"Down"});
    EXPECT_TRUE(shows(false)) << "C";
    station.Press({"Up"});
    EXPECT_TRUE(shows(true)) << "B";
    station.Press({"Delete"});
    station.AwaitBox();
    station.Press({"F10"});
    station.AwaitNoBox();
    EXPECT_TRUE(shows(false));
    EXPECT_FALSE(station.Folder.Holds("NEST/DATA/B.bmp"));
    EXPECT_TRUE(station.Lives());
}
} // namespace
