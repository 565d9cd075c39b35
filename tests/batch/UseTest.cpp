// korvanta-batch as a command: sources, exit statuses, texts, JSON, and failures that must not look like success.
#include "BatchRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <regex>
#include <sstream>

using nlohmann::json;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

namespace
{
TEST(Use, HelpTeaches)
{
    const BatchStation station;
    const BatchResult result = station.RunBare({"--help"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_THAT(result.Output, AllOf(HasSubstr("--set"), HasSubstr("LeadOut : D"), HasSubstr("PrfPathChange"),
                                     HasSubstr("Examples:"), HasSubstr("Exit status")));
    EXPECT_EQ(station.RunBare({"--version"}).Output, "korvanta-batch, Korvanta V2.28\n");
}

/// The commands below "Examples:" of the help text, each in one line.
std::vector<std::string> HelpExamples(const std::string& help)
{
    std::istringstream text(
        std::regex_replace(help.substr(help.find("Examples:")), std::regex(R"(\\\n *)"), ""));
    std::vector<std::string> examples;
    for (std::string line; std::getline(text, line);) {
        const std::size_t start = line.find_first_not_of(' ');
        if (start != std::string::npos && line.substr(start).starts_with("korvanta-batch ")) {
            examples.push_back(line.substr(start));
        }
    }
    return examples;
}

/// The shipped station with the program in it, and beside it a drawing, an ISO program and the folder to work in.
struct ExampleStation {
    TempFolder Folder;

    ExampleStation()
    {
        namespace fs = std::filesystem;
        fs::copy(KORVANTA_SOURCE_DIR "/station", Folder.Path + "/station", fs::copy_options::recursive);
        fs::copy_file(KORVANTA_BINARY_DIR "/bin/korvanta-batch", Folder.Path + "/station/korvanta-batch");
        const fs::path painter = KORVANTA_BINARY_DIR "/bin/korvanta-painter.so";
        if (fs::exists(painter)) {
            fs::copy_file(painter, Folder.Path + "/station/korvanta-painter.so");
        }
        Folder.Write("desk/old.iso", "G0 X0 Y0\nG1 X100\nY50\nX0\nY0\n");
        TakeDrawing("BRACKET.dxf");
    }

    void TakeDrawing(const std::string& name) const
    {
        std::filesystem::copy_file(KORVANTA_SOURCE_DIR "/station/DXF/" + name,
                                   Folder.Path + "/desk/plate.dxf",
                                   std::filesystem::copy_options::overwrite_existing);
    }

    void ExpectQuiet(const std::string& command) const
    {
        SCOPED_TRACE(command);
        const std::string line = "cd '" + Folder.Path + "/desk' && PATH='" + Folder.Path +
                                 "/station':$PATH && " + command + " >../output.txt 2>../errors.txt";
        EXPECT_EQ(std::system(line.c_str()), 0);
        std::string errors = Folder.Read("errors.txt");
        if (!Folder.Holds("station/korvanta-painter.so")) { // a build without the window has none
            errors = std::regex_replace(errors, std::regex("warning: no preview of the job[^\n]*\n"), "");
        }
        EXPECT_EQ(errors, "");
    }
};

TEST(Use, TheExamplesOfTheHelpRunWithoutAWarning)
{
    const BatchStation bare;
    const std::string help = bare.RunBare({"--help"}).Output;
    const std::vector<std::string> examples = HelpExamples(help);
    ASSERT_EQ(examples.size(), 8U);
    EXPECT_THAT(examples.front(), HasSubstr("bracket.dxf"));
    EXPECT_THAT(examples[1], HasSubstr("bracket.dxf"));
    EXPECT_THAT(examples.back(), AllOf(HasSubstr("bracket.dxf"), HasSubstr("--verify")));
    const ExampleStation station;
    for (const std::string& example : examples) {
        station.ExpectQuiet(example);
    }
    station.TakeDrawing("FLANGE.dxf");
    station.ExpectQuiet(examples[2]);
}

TEST(Use, TheExamplesOfTheHelpFitATerminal)
{
    const BatchStation station;
    const std::string help = station.RunBare({"--help"}).Output;
    std::istringstream text(help.substr(help.find("Examples:")));
    for (std::string line; std::getline(text, line);) {
        EXPECT_LE(line.size(), 80U) << line;
    }
}

struct WrongCase {
    std::vector<std::string> Arguments;
    const char* Text; ///< part of the message
};

const WrongCase WrongCases[] = {
    {{}, "SOURCE"},
    {{""}, "SOURCE"},
    {{"box.iso", "second.iso"}, "second.iso"},
    {{"box.iso", "--bogus"}, "--bogus"},
    {{"box.iso", "--set", "Width=5"}, "LeadIn : A"},
    {{"box.iso", "--set", "Angle"}, "CAPTION=VALUE"},
    {{"--set", "Angle", "box.iso"}, "CAPTION=VALUE"},
    {{"box.iso", "--set"}, "--set"},
    {{"box.iso", "--key", "F3"}, "MoveLeadNextElem"},
    {{"box.iso", "--input", "9=a"}, "N=VALUE"},
    {{"box.iso", "--input", "0=a"}, "N=VALUE"},
    {{"box.iso", "--input", "1"}, "N=VALUE"},
    {{"box.iso", "--input", "12=a"}, "N=VALUE"},
    {{"box.iso", "--language", "7"}, "--language"},
    {{"box.iso", "--language", "it"}, "--language"},
    {{"box.iso", "--program", ""}, "--program"},
    {{"box.iso", "--program", ".nc"}, "--program"},
    {{"box.iso", "--program", "SIMULA"}, "simulation"},
};

TEST(Use, WrongUseIsStatus2WithAHint)
{
    const BatchStation station;
    for (const WrongCase& c : WrongCases) {
        const BatchResult result = station.Run(c.Arguments);
        EXPECT_EQ(result.Status, 2) << c.Text;
        EXPECT_THAT(result.Errors, AllOf(HasSubstr(c.Text), HasSubstr("--help")));
        EXPECT_EQ(result.Output, "") << c.Text;
    }
}

TEST(Use, APlainNameLiesInAFolderOfTheStation)
{
    const BatchStation station;
    EXPECT_EQ(station.State({"BOX.ISO"})["ElementCount"], 5) << "found in any case";
    station.Folder.Write("work/mine.iso", "G1 X5\n");
    const BatchResult missing = station.Run({"mine.iso"}, "", "work");
    EXPECT_EQ(missing.Status, 1);
    EXPECT_THAT(missing.Errors, AllOf(HasSubstr("doesn't exist"), HasSubstr("write ./mine.iso")));
}

TEST(Use, ANameThatIsNothingPointsToTheShapes)
{
    const BatchStation station;
    EXPECT_THAT(station.Run({"R-5"}).Errors, HasSubstr("/NC/R-5 doesn't exist; the names of shapes"));
    EXPECT_THAT(station.Run({"./R-5"}).Errors, Not(HasSubstr("shapes")));
}

TEST(Use, APathIsTakenAsItIs)
{
    const BatchStation station;
    const std::string path = station.Folder.Write("work/deep/mine.iso", "G1 X5\n");
    const BatchResult relative = station.Run({"deep/mine.iso", "--json", "-"}, "", "work");
    ASSERT_EQ(relative.Status, 0) << relative.Errors;
    const json state = json::parse(relative.Output);
    EXPECT_EQ(state["SourceName"], path);
    EXPECT_EQ(state["JobName"], "mine.iso");
    EXPECT_EQ(station.State({path})["ElementCount"], 2);
    EXPECT_EQ(station.Run({"./mine.iso"}, "", "work/deep").Status, 0);
}

TEST(Use, AFailedImportShowsTheStationsMessageAndWhy)
{
    const BatchStation station;
    const BatchResult missing = station.Run({"none.iso", "--json", "s.json", "--program", "P"});
    EXPECT_EQ(missing.Status, 1);
    EXPECT_EQ(missing.Errors, "No part. The import failed.\nkorvanta-batch: " + station.Folder.Path +
                                  "/NC/none.iso doesn't exist\n");
    EXPECT_FALSE(station.Folder.Holds("s.json"));
    EXPECT_FALSE(station.Folder.Holds("NC/P"));
    EXPECT_THAT(station.Run({"none.iso", "--language", "2"}).Errors,
                HasSubstr("Nessun pezzo. Importazione fallita."));
    station.Folder.Write("NC/rapid.iso", "G0 X10\n");
    EXPECT_THAT(station.Run({"rapid.iso"}).Errors, HasSubstr("no move that cuts"));
    const BatchResult folder = station.Run({station.Folder.Path + "/NC"});
    EXPECT_EQ(folder.Status, 1) << "a folder is no program";
    EXPECT_THAT(folder.Errors, HasSubstr(station.Folder.Path + "/NC is a folder\n"));
}

TEST(Use, ADrawingIsFoundByItsExtension)
{
    const BatchStation station;
    station.Folder.Write("DXF/bad.DXF", "no drawing at all");
    const BatchResult bad = station.Run({"bad.DXF"});
    EXPECT_EQ(bad.Status, 1);
    EXPECT_THAT(bad.Errors, AllOf(HasSubstr("The import failed."), HasSubstr("/DXF/bad.DXF")));
    station.Folder.Write("DXF/part.dwg", "AC1015");
    const BatchResult dwg = station.Run({"part.dwg"});
    EXPECT_EQ(dwg.Status, 1);
    EXPECT_THAT(dwg.Errors, AllOf(HasSubstr("The import failed."), HasSubstr("save the drawing as DXF")));
}

TEST(Use, ADrawingGoesTheWholeRoad)
{
    const BatchStation station;
    station.Folder.Write("DXF/square.dxf", "0\nSECTION\n2\nENTITIES\n"
                                           "0\nLINE\n8\n0\n10\n0\n20\n0\n11\n40\n21\n0\n"
                                           "0\nLINE\n8\n0\n10\n40\n20\n0\n11\n40\n21\n40\n"
                                           "0\nLINE\n8\n0\n10\n0\n20\n40\n11\n40\n21\n40\n"
                                           "0\nLINE\n8\n0\n10\n0\n20\n40\n11\n0\n21\n0\n"
                                           "0\nPOINT\n8\n0\n10\n20\n20\n30\n"
                                           "0\nTEXT\n8\n0\n10\n5\n20\n5\n40\n3\n1\nhello\n"
                                           "0\nENDSEC\n0\nEOF\n");
    const json state = station.State({"square.dxf", "--program", "SQUARE"});
    EXPECT_EQ(state["ProfileCount"], 1);
    EXPECT_EQ(state["TotalCutLength"], 160.0);
    EXPECT_EQ(state["MarkPoints"], json::parse("[[20.0,30.0]]"));
    EXPECT_EQ(state["JobName"], "square.dxf");
    EXPECT_EQ(state["Import"]["Read"], (json{{"LINE", 4}, {"POINT", 1}}));
    EXPECT_EQ(state["Import"]["LeftOut"], (json{{"TEXT", 1}}));
    EXPECT_EQ(state["Import"]["Open"], json::array());
    EXPECT_EQ(state["CutMoves"][0]["side"], 1);
    EXPECT_EQ(state["Program"]["Lines"], 5);
}

TEST(Use, AMissingStationIsNamed)
{
    const BatchStation station;
    const TempFolder empty;
    const BatchResult result = station.RunBare({"--station", empty.Path, "box.iso"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, AllOf(HasSubstr("Korvanta_MSG.TXT"), HasSubstr("not found")));
}

TEST(Use, TheStateHoldsEveryMember)
{
    const BatchStation station;
    const json state = station.State({"plate.iso"});
    std::vector<std::string> names;
    for (const auto& member : state.items()) {
        names.push_back(member.key());
    }
    std::vector<std::string> wanted = {
        "ShapeId",    "SourceName",   "JobName",  "ElementCount", "ProfileCount", "TotalCutLength",
        "MinX",       "MaxX",         "MinY",     "MaxY",         "ElementTable", "ShadowElements",
        "MarkPoints", "ProfileTable", "CutMoves", "TextCutting",  "TextNesting",  "LabelNesting",
        "Nest",       "Program",      "Import"};
    EXPECT_THAT(names, testing::UnorderedElementsAreArray(wanted));
    EXPECT_EQ(state["ShapeId"], 0);
    EXPECT_EQ(state["ElementTable"].size(), 10U);
    EXPECT_EQ(state["ShadowElements"].size(), 10U);
    EXPECT_EQ(state["ProfileTable"].size(), 2U);
    EXPECT_EQ(state["ElementTable"][0].size(), 11U);
    EXPECT_EQ(state["ProfileTable"][0].size(), 21U);
    EXPECT_EQ(state["ProfileTable"][0]["LeadInLineOn"], -1) << "flags are -1 and 0";
    EXPECT_EQ(state["ProfileTable"][0]["LeadOutLineOn"], 0);
    ASSERT_EQ(state["CutMoves"].size(), 2U);
    EXPECT_EQ(state["CutMoves"][0]["moves"].size(), 6U) << "lead-in, four sides, the end";
    EXPECT_EQ(state["CutMoves"][0]["moves"][0].size(), 8U);
    EXPECT_EQ(state["CutMoves"][0]["moves"][5]["Kind"], 3);
}

TEST(Use, NumbersHaveSeventeenDigits)
{
    const BatchStation station;
    const BatchResult result = station.Run({"box.iso", "--set", "X Gap=0.1", "--json", "-"});
    EXPECT_THAT(result.Output, AllOf(HasSubstr("\"GapX\":0.10000000000000001,"), HasSubstr("\"GapY\":10,")));
}

TEST(Use, FlyOffOfTheTableIsInTheMoves)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_CONFIG]\nFLYOFFDIM=4\n");
    const json state = station.State({"box.iso"});
    const json& moves = state["CutMoves"][0]["moves"];
    // The last side, from (100, 0) to the corner, is cut in two 4 ahead of its end.
    ASSERT_EQ(moves.size(), 7U);
    EXPECT_EQ(moves[5]["Mark"], 3);
    EXPECT_NEAR(moves[5]["X"], 4.0, 1e-9);
}

TEST(Use, JsonOnStandardOutputStandsAlone)
{
    const BatchStation station;
    const BatchResult result = station.Run({"box.iso", "--json", "-"});
    EXPECT_FALSE(json::parse(result.Output, nullptr, false).is_discarded());
    EXPECT_THAT(result.Errors, HasSubstr("Copies: 1"));
}

TEST(Use, JsonOfNamesThatAreNoText)
{
    const BatchStation station;
    station.Folder.Write("NC/\xff\"odd\".iso", "G1 X5\n");
    const json state = station.State({"\xff\"odd\".iso"});
    ASSERT_FALSE(state.is_discarded());
    EXPECT_THAT(state["JobName"].get<std::string>(), HasSubstr("\"odd\".iso"));
}

TEST(Use, AFaultLeavesNoProgram)
{
    const BatchStation station;
    station.Folder.Write("NC/F", "an older program");
    station.Folder.Write("PPR.ini", "[PartProgram_EndCUT]\nLINE1=(cut)\nLINE2=(profile_nr)\n");
    const BatchResult result = station.Run({"box.iso", "--program", "F", "--json", "s.json"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors,
                AllOf(HasSubstr("PartProgram_EndCUT"), HasSubstr("LINE2"), HasSubstr("profile_nr")));
    EXPECT_FALSE(station.Folder.Holds("NC/F"));
    EXPECT_THAT(station.Folder.Read("NC/F.part"), HasSubstr("(cut)"));
    EXPECT_FALSE(station.Folder.Holds("s.json"));
}

TEST(Use, ABadInputBlockIsNamed)
{
    const BatchStation station;
    station.Folder.Write("PPR.ini", "[PartProgram_INPUT]\n#V1=Plate,D\n");
    const BatchResult result = station.Run({"box.iso", "--program", "F"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_THAT(result.Errors, HasSubstr("#V1"));
    EXPECT_FALSE(station.Folder.Holds("NC/F"));
}

TEST(Use, AFolderThatCannotBeMadeIsNamed)
{
    const BatchStation station;
    const BatchResult result =
        station.Run({"box.iso", "--program", "P", "--out", station.Folder.Path + "/NC/box.iso/x"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors, "korvanta-batch: folder " + station.Folder.Path + "/NC/box.iso can't be made\n");
}

TEST(Use, AFileThatCannotBeWrittenIsNamedAsOnDisk)
{
    const BatchStation station;
    station.Folder.Write("NC/P/x", "a folder in the way");
    const BatchResult result = station.Run({"box.iso", "--program", "P"});
    EXPECT_EQ(result.Status, 1);
    EXPECT_EQ(result.Errors,
              "korvanta-batch: Cannot write " + station.Folder.Path + "/NC/P: Is a directory\n");
}

TEST(Use, OptionsWithoutAProgramAreTold)
{
    const BatchStation station;
    const BatchResult result = station.Run({"box.iso", "--out", "there", "--input", "1=5"});
    EXPECT_EQ(result.Status, 0);
    EXPECT_EQ(result.Errors, "warning: --out has no effect without --program or --save\n"
                             "warning: --input has no effect without --program or --save\n");
    EXPECT_FALSE(station.Folder.Holds("there"));
}

TEST(Use, AFullDiskIsToldEverywhere)
{
    const BatchStation station;
    EXPECT_EQ(station.Run({"box.iso", "--json", "/dev/full"}).Status, 1);
    const BatchResult full = station.RunBare({"--station", station.Folder.Path, "box.iso"}, ">/dev/full");
    EXPECT_EQ(full.Status, 1);
    EXPECT_THAT(full.Errors, HasSubstr("can't write to standard output"));
    // A file size limit stands for the full disk: 8 blocks of 512 bytes, less than the program.
    const BatchResult limited =
        station.Run({"plate.iso", "--set", "X Sheet=*20", "--program", "P"}, "ulimit -f 8; trap '' XFSZ;");
    EXPECT_EQ(limited.Status, 1);
    EXPECT_THAT(limited.Errors, HasSubstr("P"));
    EXPECT_FALSE(station.Folder.Holds("NC/P"));
}

TEST(Use, EveryNumberThatAnOperatorCanTypeEndsWell)
{
    const BatchStation station;
    for (const char* caption : {"Angle", "Mirror", "Scale", "Profile nr.", "Move Step", "LeadIn : A",
                                "LeadOut : D", "X Sheet", "Kerf", "X Gap", "Nesting"}) {
        for (const char* value : {"1e308", "-1e308", "", "x", "*", "*-1", "*1e9", "0", "1e-300"}) {
            const BatchResult result =
                station.Run({"box.iso", "--set", std::string(caption) + "=" + value, "--quiet"});
            EXPECT_TRUE(result.Status == 0 || (result.Status == 1 && !result.Errors.empty()))
                << caption << "=" << value << ": " << result.Status << " " << result.Errors;
        }
    }
}
} // namespace
