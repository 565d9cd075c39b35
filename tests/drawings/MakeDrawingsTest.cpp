// make_drawings, the program that makes the drawings' file: what it refuses, and by which words.
#include "support/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>

namespace
{
namespace fs = std::filesystem;
using testing::HasSubstr;

class MakeDrawings : public testing::Test
{
protected:
    TempFolder Folder;
    std::string Told; ///< on the error output
    int Status = 0;

    void SetUp() override
    {
        fs::copy(KORVANTA_SOURCE_DIR "/station/drawings", Folder.Path + "/drawings");
    }

    /// Puts `by` in the place of `what`, which stands once in a family's text.
    void Change(const std::string& family, const std::string& what, const std::string& by) const
    {
        const std::string name = "drawings/" + family + ".txt";
        std::string text = Folder.Read(name);
        const std::size_t at = text.find(what);
        ASSERT_NE(at, std::string::npos) << what;
        ASSERT_EQ(text.find(what, at + 1), std::string::npos) << what;
        Folder.Write(name, text.replace(at, what.size(), by));
    }

    void Run()
    {
        const std::string command = KORVANTA_BINARY_DIR "/bin/make_drawings " + Folder.Path +
                                    "/drawings " KORVANTA_SOURCE_DIR "/station/Korvanta_MSG.TXT " +
                                    Folder.Path + "/out.DBG 2>&1";
        std::FILE* pipe = popen(command.c_str(), "r");
        ASSERT_NE(pipe, nullptr);
        std::array<char, 512> piece{};
        Told.clear();
        while (std::fgets(piece.data(), piece.size(), pipe) != nullptr) {
            Told += piece.data();
        }
        Status = pclose(pipe);
    }

    void ExpectRefused(const std::string& words)
    {
        Run();
        EXPECT_NE(Status, 0);
        EXPECT_THAT(Told, HasSubstr(words));
        EXPECT_FALSE(Folder.Holds("out.DBG")) << "no half file";
    }
};

TEST_F(MakeDrawings, MakesTheShippedOnes)
{
    Run();
    EXPECT_EQ(Status, 0) << Told;
    EXPECT_EQ(Told, "");
    std::ifstream built(KORVANTA_BINARY_DIR "/Korvanta.DBG", std::ios::binary);
    std::ostringstream bytes;
    bytes << built.rdbuf();
    EXPECT_EQ(Folder.Read("out.DBG"), bytes.str());
}

TEST_F(MakeDrawings, AMissingParameterIsNamed)
{
    Change("circular", "P: from (cos(u)*B/2, sin(u)*A/2) to (cos(v)*B/2, sin(v)*A/2), beside 20\n", "");
    ExpectRefused("C-22: 'P' has 0 dimensions");
}

TEST_F(MakeDrawings, AParameterThatTheShapeDoesNotHaveIsNamed)
{
    Change("circular", "shape C-01\n", "shape C-01\nB: from (0, 0) to (A, 0), above\n");
    ExpectRefused("C-01: a dimension names a parameter that the shape doesn't have");
}

TEST_F(MakeDrawings, TwoDimensionsForOneParameterAreTooMany)
{
    Change("circular", "shape C-01\n", "shape C-01\nA: from (0, 0) to (A, 0), above\n");
    ExpectRefused("C-01: 'A' has 2 dimensions");
}

TEST_F(MakeDrawings, ADimensionOfAnotherLength)
{
    Change("circular", "shape C-01\nA: from (0, A/2) to (A, A/2), below", // the radius
           "shape C-01\nA: from (A/2, A/2) to (A, A/2), below");
    Change("rectangular",
           "A: from (0, 0) to (0, A), left\nB: from (0, 0) to (B, 0), below\nC: from (D, A) to",
           "A: from (0, 0) to (B, 0), below 2\nB: from (0, 0) to (B, 0), below\nC: from (D, A) to");
    Change("holes", "R: from (c, m) to (c+R, m), straight", "R: from (c, m) to (c+R, m+R), straight");
    ExpectRefused("C-01: 'A' measures something else");
    EXPECT_THAT(Told, HasSubstr("R-18: 'A' measures something else"));
    EXPECT_THAT(Told, HasSubstr("H-03: 'R' measures something else"));
}

TEST_F(MakeDrawings, ALetterOverALetter)
{
    Change("rectangular", "F: from (0, 0) to (F, E), below 2",
           "F: from (0, 0) to (F, E), below 3, letter -75");
    ExpectRefused("R-25: 'B' lies over 'F'");
}

TEST_F(MakeDrawings, ALetterOverTheOutline)
{
    Change("circular", "D: from (B/2-q*D/2, B/2+q*D/2) to (B/2+q*D/2, B/2-q*D/2), straight",
           "D: from (B/2-q*D/2, B/2+q*D/2) to (B/2+q*D/2, B/2-q*D/2), straight, letter 40");
    ExpectRefused("C-08: 'D' lies over the outline");
}

TEST_F(MakeDrawings, ALetterOverADimensionLine)
{
    Change("rectangular",
           "R: from (B-R, A-R) to (B-R+q*R, A-R+q*R), straight\nC: from (0, 0) to (D, C), left\n",
           "R: from (B-R, A-R) to (B-R+q*R, A-R+q*R), straight\nC: from (0, 0) to (D, C), left 1.7\n");
    ExpectRefused("R-02: 'C' lies over a dimension line");
}

TEST_F(MakeDrawings, AShapeWithoutADrawing)
{
    const std::string text = Folder.Read("drawings/holes.txt");
    Folder.Write("drawings/holes.txt", text.substr(text.find("shape H-02")));
    ExpectRefused("H-01: it has no drawing");
}

TEST_F(MakeDrawings, ADrawingForAShapeThatTheProgramDraws)
{
    Change("circular", "shape C-01\n", "shape C-25\nA: from (0, 0) to (A, 0), above\nshape C-01\n");
    ExpectRefused("C-25: it has another drawing already");
}

TEST_F(MakeDrawings, ValuesThatMakeNoPart)
{
    Change("circular", "shape C-02 A=200 B=110", "shape C-02 A=200 B=210");
    ExpectRefused("C-02: its values make no part");
}

TEST_F(MakeDrawings, WhatIsNotUnderstoodIsToldWithItsLine)
{
    Change("circular", "shape C-01\n", "shape C-01\nwidth of the disc\n");
    ExpectRefused("C-01, line");
}
} // namespace
