// The examples of the chapter on tables: each piece of a table gives the lines that stand behind it, and no key, block or tag
// that the program knows is without an example that shows what it does.
#include "TableExamples.h"

#include <gtest/gtest-spi.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <set>

namespace
{
namespace fs = std::filesystem;

struct KnownKey {
    const char* Section;
    const char* Key;
};

constexpr KnownKey KnownKeys[] = {
    {"PartProgram_CONFIG", "FILE_EXTENSION"},
    {"PartProgram_CONFIG", "LINENUMBER"},
    {"PartProgram_CONFIG", "LINENUMBER_START"},
    {"PartProgram_CONFIG", "LINENUMBER_STEP"},
    {"PartProgram_CONFIG", "X_AXIS"},
    {"PartProgram_CONFIG", "Y_AXIS"},
    {"PartProgram_CONFIG", "I_AXIS"},
    {"PartProgram_CONFIG", "J_AXIS"},
    {"PartProgram_CONFIG", "RADIUS"},
    {"PartProgram_CONFIG", "SPACEBETWEENCODE"},
    {"PartProgram_CONFIG", "INC_CENTER"},
    {"PartProgram_CONFIG", "KERF_LEFT"},
    {"PartProgram_CONFIG", "KERF_RIGHT"},
    {"PartProgram_CONFIG", "KERF_OFF"},
    {"PartProgram_CONFIG", "FLYOFFDIM"},
    {"PartProgram_CONFIG", "SUBPROGRAMS"},
    {"PartProgram_CONFIG", "SUBPROGRAMSBYPROFILE"},
    {"PartProgram_CONFIG", "INC_SUBPROGRAM"},
    {"PartProgram_CONFIG", "BEFORESUBPROGRAMS"},
    {"PartProgram_RapidMOVE", "GCODE"},
    {"PartProgram_RapidMOVE", "INIT_LINE"},
    {"PartProgram_RapidMOVE", "END_LINE"},
    {"PartProgram_LinearMOVE", "GCODE"},
    {"PartProgram_LinearMOVE", "INIT_LINE"},
    {"PartProgram_LinearMOVE", "END_LINE"},
    {"PartProgram_CircularMOVE", "CW_GCODE"},
    {"PartProgram_CircularMOVE", "CCW_GCODE"},
    {"PartProgram_CircularMOVE", "INIT_LINE"},
    {"PartProgram_CircularMOVE", "END_LINE"},
    {"PartProgram_FirstMOVE", "KERF_ON"},
    {"PartProgram_FirstMOVE", "END_LINE"},
    {"PartProgram_INPUT", "#V1"},
    {"PartProgram_INPUT", "#V2"},
    {"PartProgram_INPUT", "#V3"},
    {"PartProgram_INPUT", "#V4"},
    {"PartProgram_INPUT", "#V5"},
    {"PartProgram_INPUT", "#V6"},
    {"PartProgram_INPUT", "#V7"},
    {"PartProgram_INPUT", "#V8"},
};

constexpr const char* KnownBlocks[] = {
    "PartProgram_BEGIN",     "PartProgram_END",      "MainProgram_BEGIN",         "MainProgram_END",
    "PartProgram_PartHead",  "PartProgram_PartEnd",  "PartProgram_StartCUT",      "PartProgram_EndCUT",
    "PartProgram_EndLeadIn", "PartProgram_FLYOFF",   "PartProgram_EndProfileCut", "PartProgram_StartPOINT",
    "PartProgram_POINT",     "PartProgram_EndPOINT", "SubProgram_CALLHEAD",       "SubProgram_CALL",
    "SubProgram_BEGIN",      "SubProgram_END",
};

constexpr const char* KnownTags[] = {
    "*write_collection",
    "*SIZ",
    "*RAPID_MOVE",
    "*KERF_ON",
    "*KERF_OFF",
    "*RPT:",
    "*part_nr",
    "*profile_nr",
    "*trace_nr",
    "*filename",
    "*part_xmin",
    "*part_ymin",
    "*part_xmax",
    "*part_ymax",
    "*tracks_list",
    "*xsheet",
    "*xsh",
    "*ysheet",
    "*ysh",
    "*ifintprf:",
    "*ifextprf:",
    "*subprogram_nr",
    "#V1",
    "#V2",
    "#V3",
    "#V4",
    "#V5",
    "#V6",
    "#V7",
    "#V8",
};

/// Words in capitals that the sources hold and that are no keys of a table: values, keys of Korvanta.ini, names of vectors.
const std::set<std::string> OtherWords = {
    "YES",      "NO",     "ON",      "NULL",  "NO_RAPID", "INI_PROG", "END_PROG",   "END_SUB",  "INIPOINT",
    "ENDPOINT", "CONFIG", "FTBLCNC", "SETUP", "SIMSPEED", "SIMULA",   "SIM_DEFRAG", "HEADTYPE",
};

bool IsBlock(const std::string& section)
{
    return std::any_of(std::begin(KnownBlocks), std::end(KnownBlocks),
                       [&section](const char* block) { return section == block; });
}

bool HasKey(const TableSections& piece, const std::string& section, const std::string& key)
{
    return std::any_of(piece.begin(), piece.end(), [&](const auto& each) {
        return each.first == section &&
               (key.empty() || std::any_of(each.second.begin(), each.second.end(),
                                           [&key](const auto& pair) { return pair.first == key; }));
    });
}

bool HasText(const TableSections& piece, const std::string& text)
{
    return std::any_of(piece.begin(), piece.end(), [&text](const auto& each) {
        return std::any_of(each.second.begin(), each.second.end(),
                           [&text](const auto& pair) { return pair.second.find(text) != std::string::npos; });
    });
}

void CheckExample(const TableChapter& chapter, const TableExample& example)
{
    const std::string program = chapter.Program(example.Job, example.Piece);
    EXPECT_TRUE(MatchesLines(example.Lines, program))
        << PlaceOf(chapter.Page, example.Line) << ", " << example.Job << ", gives\n"
        << program;
}

/// True when an example with the key, or with any key of the section, gives another program without it.
bool KeyIsShown(const TableChapter& chapter, const std::string& section, const std::string& key)
{
    return std::any_of(chapter.Examples.begin(), chapter.Examples.end(), [&](const TableExample& example) {
        return HasKey(example.Piece, section, key) &&
               chapter.Program(example.Job, example.Piece) !=
                   chapter.Program(example.Job, Without(example.Piece, section, key));
    });
}

/// True when an example with the tag gives more than the tag's own text.
bool TagIsShown(const TableChapter& chapter, const std::string& tag)
{
    std::string text = "~" + tag.substr(1);
    std::replace(text.begin(), text.end(), '_', '-'); // a profile_nr without its star would end the run
    return std::any_of(chapter.Examples.begin(), chapter.Examples.end(), [&](const TableExample& example) {
        if (!HasText(example.Piece, tag)) {
            return false;
        }
        std::string plain = chapter.Program(example.Job, WithText(example.Piece, tag, text));
        for (std::size_t at = plain.find(text); at != std::string::npos; at = plain.find(text, at + 1)) {
            plain.replace(at, text.size(), tag);
        }
        return plain != chapter.Program(example.Job, example.Piece);
    });
}

TEST(TableExamples, GiveTheLinesBehindThem)
{
    const TableChapter chapter;
    ASSERT_GT(chapter.Examples.size(), 50U);
    std::set<std::string> jobs;
    for (const TableExample& example : chapter.Examples) {
        CheckExample(chapter, example);
        jobs.insert(example.Job);
    }
    EXPECT_EQ(jobs.size(), chapter.Jobs.size()) << "a job that no example uses";
}

TEST(TableExamples, UseOnlyWhatTheProgramKnows)
{
    const TableChapter chapter;
    for (const TableExample& example : chapter.Examples) {
        for (const auto& [section, keys] : example.Piece) {
            for (const auto& [key, value] : keys) {
                const bool known =
                    IsBlock(section)
                        ? key.starts_with("LINE") || key.starts_with("COLLECTION")
                        : std::any_of(std::begin(KnownKeys), std::end(KnownKeys),
                                      [&wantedSection = section, &wantedKey = key](const KnownKey& each) {
                                          return wantedSection == each.Section && wantedKey == each.Key;
                                      });
                EXPECT_TRUE(known) << PlaceOf(chapter.Page, example.Line) << ": [" << section << "] " << key;
            }
        }
    }
}

TEST(TableExamples, ShowWhatEachKeyBlockAndTagDoes)
{
    const TableChapter chapter;
    for (const KnownKey& each : KnownKeys) {
        EXPECT_TRUE(KeyIsShown(chapter, each.Section, each.Key)) << each.Section << " " << each.Key;
    }
    for (const char* block : KnownBlocks) {
        EXPECT_TRUE(KeyIsShown(chapter, block, "")) << block;
    }
    EXPECT_TRUE(KeyIsShown(chapter, "PartProgram_EndCUT", "COLLECTION1"));
    for (const char* tag : KnownTags) {
        EXPECT_TRUE(TagIsShown(chapter, tag)) << tag;
    }
}

/// A piece whose lines are others, a key that does nothing and a tag that nobody replaces are found.
TEST(TableExamples, AWrongExampleIsFound)
{
    TableChapter chapter;
    TableExample wrong = chapter.Examples.front();
    wrong.Lines.replace(wrong.Lines.find("G03"), 3, "G02");
    EXPECT_NONFATAL_FAILURE(CheckExample(chapter, wrong), "08-post-processor.md");
    wrong = chapter.Examples.front();
    wrong.Lines.replace(wrong.Lines.find(" \n"), 2, "\n"); // the blank at the end of a feed line
    EXPECT_NONFATAL_FAILURE(CheckExample(chapter, wrong), "08-post-processor.md");
    chapter.Examples = {{"the plate",
                         ReadTablePiece("[PartProgram_CONFIG]\nFLYOFFDIM=0\n[PartProgram_BEGIN]\nLINE1=*x\n"),
                         "", 1}};
    EXPECT_FALSE(KeyIsShown(chapter, "PartProgram_CONFIG", "FLYOFFDIM"));
    EXPECT_TRUE(KeyIsShown(chapter, "PartProgram_BEGIN", "LINE1"));
    EXPECT_FALSE(TagIsShown(chapter, "*x"));
}

// --- the lists above against the sources ----------------------------------------------------------------------

std::string LowerCased(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return text;
}

/// The string literals of a source, comments left out.
void AddLiterals(const fs::path& path, std::set<std::string>& literals)
{
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        for (std::size_t i = 0; i < line.size() && line.compare(i, 2, "//") != 0; ++i) {
            if (line[i] == '\'') {
                i += line[i + 1] == '\\' ? 3 : 2;
            } else if (line[i] == '"') {
                const std::size_t begin = i + 1;
                for (++i; i < line.size() && line[i] != '"'; ++i) {
                    i += line[i] == '\\' ? 1 : 0;
                }
                literals.insert(line.substr(begin, i - begin));
            }
        }
    }
}

bool InCapitals(const std::string& text)
{
    return text.size() > 1 &&
           std::all_of(text.begin(), text.end(), [](char c) { return (c >= 'A' && c <= 'Z') || c == '_'; });
}

TEST(TableExamples, TheListsHoldWhatTheSourcesRead)
{
    std::set<std::string> literals;
    for (const fs::directory_entry& entry : fs::directory_iterator(KORVANTA_SOURCE_DIR "/src/post")) {
        AddLiterals(entry.path(), literals);
    }
    AddLiterals(KORVANTA_SOURCE_DIR "/src/config/PprValues.cpp", literals);

    std::set<std::string> sections(std::begin(KnownBlocks), std::end(KnownBlocks));
    std::set<std::string> keys = {"LINE", "COLLECTION"};
    for (const KnownKey& each : KnownKeys) {
        sections.insert(each.Section);
        if (each.Key[0] != '#') {
            keys.insert(each.Key);
        }
    }
    std::set<std::string> tags;
    for (const char* tag : KnownTags) {
        tags.insert(tag[0] == '#' ? "#v" : LowerCased(tag));
    }
    std::set<std::string> readSections;
    std::set<std::string> readKeys;
    std::set<std::string> readTags;
    for (const std::string& text : literals) {
        if (text.find("Program_") != std::string::npos) {
            readSections.insert(text);
        } else if (text == "#V" ||
                   (text.size() > 2 && text.front() == '*' && text.find(' ') == std::string::npos)) {
            readTags.insert(LowerCased(text));
        } else if (InCapitals(text) && OtherWords.count(text) == 0) {
            readKeys.insert(text);
        }
    }
    EXPECT_EQ(sections, readSections);
    EXPECT_EQ(keys, readKeys);
    EXPECT_EQ(tags, readTags);
}
} // namespace
