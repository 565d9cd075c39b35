// Jobs through the real program: saved, opened, saved again, deleted.
#include "BatchRun.h"

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

using nlohmann::json;
using testing::HasSubstr;

namespace
{
namespace fs = std::filesystem;

const std::vector<std::string> NestOfSix = {
    "plate.iso",    "--set", "Angle=90", "--set", "LeadIn : A=3", "--set", "Profile nr.=2", "--key",
    "MoveLeadPlus", "--set", "Kerf=0.5", "--set", "X Sheet=*3",   "--set", "Y Sheet=*2"};

bool HasPainter()
{
    return fs::exists(KORVANTA_BINARY_DIR "/bin/korvanta-painter.so");
}

std::vector<std::string> With(std::vector<std::string> arguments, const std::vector<std::string>& more)
{
    arguments.insert(arguments.end(), more.begin(), more.end());
    return arguments;
}

TEST(Jobs, LeaveTheFourFiles)
{
    const BatchStation station;
    station.Folder.Write("Korvanta.ini",
                         station.Folder.Read("Korvanta.ini") +
                             "[SETUP]\r\nPREVIEWPIC.W=90\r\nPREVIEWPIC.H=70\r\nEXIT_PROGRAM=YES\r\n");
    const BatchResult result = station.Run(With(NestOfSix, {"--save", "folder/six.nst"}));
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Output,
              "Copies: 6\nPierces: 12\nCutting length: 2160\nProgram: " + station.Folder.Path + "/NC/SIX\n");
    EXPECT_EQ(result.Errors.find("preview") == std::string::npos, HasPainter()) << result.Errors;
    EXPECT_THAT(station.Folder.Read("NEST/SIX.nst"), HasSubstr("[0001]\r\nS=0\r\nF=plate.iso\r\nP0=\r\n"));
    EXPECT_THAT(station.Folder.Read("NEST/SIX.nst"), HasSubstr("Rx=3\r\nRy=2\r\n[0004]\r\n"));
    EXPECT_EQ(station.Folder.Read("NEST/DATA/SIX.drw").size(), 10U * 198);
    EXPECT_TRUE(station.Folder.Holds("NC/SIX"));
    if (HasPainter()) {
        const std::string picture = station.Folder.Read("NEST/DATA/SIX.bmp");
        ASSERT_EQ(picture.size(), 54U + 272 * 70) << "90 pixels of 3 bytes, filled up to a multiple of 4";
        EXPECT_EQ(picture.substr(0, 2), "BM");
        EXPECT_EQ(picture.substr(18, 8), std::string("\x5A\0\0\0\x46\0\0\0", 8));
        EXPECT_NE(picture.substr(54).find('\0'), std::string::npos) << "something is drawn";
    }
}

TEST(Jobs, ComeBackAndAreSavedTheSame)
{
    const BatchStation station;
    ASSERT_EQ(station.Run(With(NestOfSix, {"--save", "A"})).Status, 0);
    const std::string drawing = station.Folder.Read("NEST/DATA/A.drw");
    const std::string program = station.Folder.Read("NC/A");
    ASSERT_EQ(station.Run({"a.nst", "--save", "A"}).Status, 0);
    const std::string text = station.Folder.Read("NEST/A.nst");
    EXPECT_EQ(station.Folder.Read("NEST/DATA/A.drw"), drawing);
    EXPECT_EQ(station.Folder.Read("NC/A"), program);
    ASSERT_EQ(station.Run({"A.NST", "--save", "a"}).Status, 0);
    EXPECT_EQ(station.Folder.Read("NEST/A.nst"), text);
    EXPECT_EQ(station.Folder.Read("NEST/DATA/A.drw"), drawing);
    EXPECT_EQ(station.Folder.Read("NC/A"), program);
}

TEST(Jobs, OfShapesAreDevelopedAgain)
{
    const BatchStation station;
    ASSERT_EQ(
        station
            .Run({"R-05", "--param", "A=300", "--set", "Move Step=4", "--key", "MoveLeadPlus", "--save", "S"})
            .Status,
        0);
    const json state = station.State({"S.nst", "--program", "AGAIN"});
    EXPECT_EQ(state["ShapeId"], 1005);
    EXPECT_EQ(state["SourceName"], "R_05");
    EXPECT_EQ(state["JobName"], "S.nst");
    EXPECT_EQ(state["ProfileTable"][0]["LeadPosition"], 14.0);
    EXPECT_EQ(state["TextCutting"][4], "4");
    EXPECT_EQ(station.Folder.Read("NC/AGAIN"), station.Folder.Read("NC/S"));
}

TEST(Jobs, OnAPathHaveTheirCompanionsBeside)
{
    const BatchStation station;
    ASSERT_EQ(station.Run(With(NestOfSix, {"--save", "A"})).Status, 0);
    fs::rename(station.Folder.Path + "/NEST", station.Folder.Path + "/kept");
    const BatchResult result = station.Run({"./kept/A.nst", "--save", "B"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_TRUE(station.Folder.Holds("NEST/B.nst")) << "saved in the folder of the station";
    EXPECT_EQ(station.Folder.Read("NEST/DATA/B.drw"), station.Folder.Read("kept/DATA/A.drw"));
    EXPECT_EQ(station.Folder.Read("NC/B"), station.Folder.Read("NC/A"));
    EXPECT_FALSE(station.Folder.Holds("kept/B.nst"));
}

TEST(Jobs, KeepTheAnswers)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Thickness,D,,10\n#V2=Gas,T,O2|N2,O2\n"
                                    "[PartProgram_BEGIN]\nLINE1=(#V1 #V2)\n");
    ASSERT_EQ(station.Run({"box.iso", "--input", "1=12.5", "--input", "2=n2", "--save", "A"}).Status, 0);
    EXPECT_THAT(station.Folder.Read("NEST/A.nst"), HasSubstr("[0004]\r\nV1=12.5\r\nV2=N2\r\nV3=\r\n"));
    const std::string program = station.Folder.Read("NC/A");
    EXPECT_EQ(program.substr(0, 9), "(12.5 N2)");
    ASSERT_EQ(station.Run({"A.nst", "--save", "A"}).Status, 0);
    EXPECT_EQ(station.Folder.Read("NC/A"), program);
    ASSERT_EQ(station.Run({"A.nst", "--program", "P", "--save", "B"}).Status, 0);
    EXPECT_EQ(station.Folder.Read("NC/P"), program);
    EXPECT_EQ(station.Folder.Read("NC/B").substr(0, 7), "(10 O2)") << "the answers belong to the name";
}

TEST(Jobs, AreDeletedWithAllThatIsTheirs)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_CONFIG]\nFILE_EXTENSION=nc\n");
    ASSERT_EQ(station.Run({"box.iso", "--save", "A"}).Status, 0);
    ASSERT_EQ(station.Run({"box.iso", "--save", "AB"}).Status, 0);
    station.Folder.Write("NEST/DATA/A.bmp", "");
    station.Folder.Write("NC/A", "a program without the extension");
    const BatchResult result = station.Run({"--delete", "a.nst"});
    EXPECT_EQ(result.Status, 0) << result.Errors;
    EXPECT_EQ(result.Output, "Deleted: " + station.Folder.Path + "/NEST/A.nst\n");
    for (const char* gone : {"NEST/A.nst", "NEST/DATA/A.bmp", "NEST/DATA/A.drw", "NC/A.nc"}) {
        EXPECT_FALSE(station.Folder.Holds(gone)) << gone;
    }
    for (const char* stays : {"NC/A", "NEST/AB.nst", "NEST/DATA/AB.drw", "NC/AB.nc"}) {
        EXPECT_TRUE(station.Folder.Holds(stays)) << stays;
    }
    const BatchResult again = station.Run({"--delete", "A"});
    EXPECT_EQ(again.Status, 1);
    EXPECT_EQ(again.Errors, "korvanta-batch: " + station.Folder.Path + "/NEST/A.nst doesn't exist\n");
}

TEST(Jobs, ThatCantBeOpenedTellWhy)
{
    const BatchStation station;
    const std::string nest = station.Folder.Path + "/NEST/";
    const auto errors = [&station](const std::string& source) {
        const BatchResult result = station.Run({source});
        EXPECT_EQ(result.Status, 1);
        return result.Errors;
    };
    EXPECT_EQ(errors("none.nst"), "korvanta-batch: " + nest + "none.nst doesn't exist\n");
    ASSERT_EQ(station.Run({"box.iso", "--save", "A"}).Status, 0);
    const std::string text = station.Folder.Read("NEST/A.nst");
    station.Folder.Write("NEST/A.nst", "[0000]\nVL=2.00\n");
    EXPECT_EQ(errors("A.nst"), "korvanta-batch: No part. Old file format!\n");
    station.Folder.Write("NEST/A.nst", text);
    station.Folder.Write("NEST/DATA/A.drw", "no geometry");
    EXPECT_THAT(errors("A.nst"), HasSubstr(nest + "A.nst: the geometry of the job"));
}

TEST(Jobs, AreWrittenWholeOrNotAtAll)
{
    const BatchStation station;
    ASSERT_EQ(station.Run({"box.iso", "--save", "A"}).Status, 0);
    const std::string drawing = station.Folder.Read("NEST/DATA/A.drw");
    fs::create_symlink("/dev/full", station.Folder.Path + "/NEST/DATA/A.drw.part");
    const BatchResult result = station.Run({"plate.iso", "--save", "A"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("korvanta-batch: Cannot write " + station.Folder.Path +
                                         "/NEST/DATA/A.drw: No space left on device\n"));
    EXPECT_EQ(station.Folder.Read("NEST/DATA/A.drw"), drawing);
}

TEST(Jobs, WrongUse)
{
    const BatchStation station;
    const std::vector<std::vector<std::string>> cases = {
        {"box.iso", "--save", ""},        {"box.iso", "--save", "simula"},
        {"box.iso", "--save", ".nst"},    {"box.iso", "--delete", "A"},
        {"--delete", "A", "--save", "B"}, {"--delete", ""},
        {"A.nst", "--param", "A=3"},      {"--save", "A"}};
    for (const std::vector<std::string>& arguments : cases) {
        EXPECT_EQ(station.Run(arguments).Status, 2) << arguments[0] << " " << arguments[1];
    }
}
} // namespace
