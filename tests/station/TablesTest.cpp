// The shipped post-processor tables: their form, and that every key and tag in them is one that the program knows and
// that has a value where it stands.
#include "SampleTables.h"
#include "config/PprValues.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cctype>
#include <map>
#include <set>

namespace
{
constexpr std::size_t LongestValue = 255;

enum : unsigned { // what reaches the tags of a block
    PartNr = 1,
    SubprogramNr = 2,
    ProfileNr = 4,
    TraceNr = 8,
    Limits = 16, // in COLLECTION lines only
    Position = 32
};

struct BlockRow {
    const char* Section;
    unsigned Reaches;
};

constexpr BlockRow Blocks[] = {
    {"PartProgram_BEGIN", 0},
    {"PartProgram_END", 0},
    {"MainProgram_BEGIN", 0},
    {"MainProgram_END", 0},
    {"PartProgram_PartHead", PartNr},
    {"PartProgram_PartEnd", PartNr | Limits},
    {"PartProgram_StartCUT", PartNr | ProfileNr | TraceNr | Position},
    {"PartProgram_EndLeadIn", 0},
    {"PartProgram_EndProfileCut", 0},
    {"PartProgram_EndCUT", PartNr | ProfileNr | TraceNr},
    {"PartProgram_FLYOFF", 0},
    {"PartProgram_StartPOINT", 0},
    {"PartProgram_POINT", Position},
    {"PartProgram_EndPOINT", 0},
    {"SubProgram_CALLHEAD", PartNr},
    {"SubProgram_CALL", PartNr | SubprogramNr | ProfileNr | TraceNr | Position},
    {"SubProgram_BEGIN", SubprogramNr},
    {"SubProgram_END", 0},
};

struct TagRow {
    const char* Tag;
    unsigned Needs;
};

/// Longer names ahead of those that they begin with.
constexpr TagRow Tags[] = {
    {"*write_collection", 0},
    {"*SIZ", 0},
    {"*RAPID_MOVE", Position},
    {"*KERF_OFF", 0},
    {"*RPT:", 0},
    {"*part_nr", PartNr},
    {"*subprogram_nr", SubprogramNr},
    {"*trace_nr", TraceNr},
    {"*profile_nr", ProfileNr},
    {"*part_xmin", Limits},
    {"*part_ymin", Limits},
    {"*part_xmax", Limits},
    {"*part_ymax", Limits},
    {"*tracks_list", 0},
    {"*filename", 0},
    {"*xsheet", 0},
    {"*xsh", 0},
    {"*ysheet", 0},
    {"*ysh", 0},
    {"*ifintprf:", 0},
    {"*ifextprf:", 0},
};

const std::map<std::string, std::set<std::string>> PlainKeys = {
    {"PartProgram_CONFIG",
     {"KERF_LEFT", "KERF_RIGHT", "KERF_OFF", "X_AXIS", "Y_AXIS", "I_AXIS", "J_AXIS", "RADIUS",
      "SPACEBETWEENCODE", "LINENUMBER", "LINENUMBER_START", "LINENUMBER_STEP", "FILE_EXTENSION",
      "SUBPROGRAMS", "INC_SUBPROGRAM", "SUBPROGRAMSBYPROFILE", "BEFORESUBPROGRAMS", "INC_CENTER",
      "FLYOFFDIM"}},
    {"PartProgram_RapidMOVE", {"GCODE", "INIT_LINE", "END_LINE"}},
    {"PartProgram_LinearMOVE", {"GCODE", "INIT_LINE", "END_LINE"}},
    {"PartProgram_CircularMOVE", {"CW_GCODE", "CCW_GCODE", "INIT_LINE", "END_LINE"}},
    {"PartProgram_FirstMOVE", {"KERF_ON", "END_LINE"}},
    {"PartProgram_INPUT", {"#V1", "#V2", "#V3", "#V4", "#V5", "#V6", "#V7", "#V8"}},
};

const BlockRow* FindBlock(const std::string& section)
{
    const auto* found = std::find_if(std::begin(Blocks), std::end(Blocks),
                                     [&](const BlockRow& row) { return section == row.Section; });
    return found == std::end(Blocks) ? nullptr : found;
}

/// Number behind `word` in a key such as LINE12; 0 when the key is another one.
int KeyNumber(const std::string& key, const std::string& word)
{
    const std::string digits = key.compare(0, word.size(), word) == 0 ? key.substr(word.size()) : "";
    const bool plain =
        !digits.empty() && digits.front() != '0' &&
        std::all_of(digits.begin(), digits.end(), [](unsigned char c) { return std::isdigit(c) != 0; });
    return plain ? std::stoi(digits) : 0;
}

std::vector<TableKey> KeysOf(const std::vector<TableKey>& keys, const std::string& section)
{
    std::vector<TableKey> found;
    std::copy_if(keys.begin(), keys.end(), std::back_inserter(found),
                 [&](const TableKey& key) { return key.Section == section; });
    return found;
}

/// Checks the star words of one template line against what reaches its block.
void CheckTags(const std::string& where, const std::string& text, unsigned reaches)
{
    std::map<std::string, int> uses;
    for (std::size_t at = text.find('*'); at != std::string::npos; at = text.find('*', at + 1)) {
        const auto* tag = std::find_if(std::begin(Tags), std::end(Tags), [&](const TagRow& row) {
            return text.compare(at, std::string(row.Tag).size(), row.Tag) == 0;
        });
        ASSERT_NE(tag, std::end(Tags)) << where << ": " << text.substr(at);
        EXPECT_EQ(tag->Needs & ~reaches, 0U) << where << ": no value reaches " << tag->Tag;
        ++uses[tag->Tag];
    }
    for (const auto& [tag, count] : uses) {
        EXPECT_TRUE(count == 1 || tag == "*profile_nr") << where << ": only the first " << tag << " counts";
    }
    for (const char* whole : {"*RAPID_MOVE", "*SIZ", "*write_collection"}) {
        if (uses.count(whole) != 0) {
            EXPECT_TRUE(text == whole || text == "_" + std::string(whole))
                << where << ": the tag takes the line";
        }
    }
    for (std::size_t at = text.find("profile_nr"); at != std::string::npos;
         at = text.find("profile_nr", at + 1)) {
        EXPECT_TRUE(at > 0 && text[at - 1] == '*') << where << ": profile_nr without a star ends the run";
    }
}

class Tables : public testing::TestWithParam<std::string>
{
};
INSTANTIATE_TEST_SUITE_P(Shipped, Tables, testing::ValuesIn(SampleTables),
                         [](const auto& row) { return TableLabel(row.param); });

TEST_P(Tables, AreAsciiWithCrLfAndShortValues)
{
    const std::string bytes = StationBytes(GetParam());
    ASSERT_FALSE(bytes.empty());
    EXPECT_EQ(bytes.substr(bytes.size() - 2), "\r\n");
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        const auto byte = static_cast<unsigned char>(bytes[i]);
        const bool lineFeed = byte == '\n';
        ASSERT_TRUE(lineFeed || byte == '\r' || (byte >= ' ' && byte < 127)) << "byte " << i;
        ASSERT_EQ(lineFeed, i > 0 && bytes[i - 1] == '\r') << "line end at byte " << i;
    }
    for (const TableKey& key : ReadTable(GetParam())) {
        EXPECT_LE(key.Value.size(), LongestValue) << key.Name;
        EXPECT_EQ(key.Value.find(" ;"), std::string::npos)
            << key.Name << ": a comment behind a value is text";
        EXPECT_FALSE(key.Value.empty() || key.Value.front() == ' ' || key.Value.back() == ' ') << key.Name;
    }
}

TEST_P(Tables, HoldKnownSectionsAndKeysOnceEach)
{
    std::set<std::string> seen;
    for (const TableKey& key : ReadTable(GetParam())) {
        EXPECT_TRUE(seen.insert(key.Section + "]" + key.Name).second) << key.Section << " " << key.Name;
        const auto plain = PlainKeys.find(key.Section);
        if (plain != PlainKeys.end()) {
            EXPECT_EQ(plain->second.count(key.Name), 1U) << key.Section << " " << key.Name;
        } else {
            EXPECT_NE(FindBlock(key.Section), nullptr) << key.Section;
            EXPECT_GT(KeyNumber(key.Name, "LINE") + KeyNumber(key.Name, "COLLECTION"), 0)
                << key.Section << " " << key.Name;
        }
    }
}

TEST_P(Tables, OpenEachSectionOnce)
{
    const std::string bytes = StationBytes(GetParam());
    std::set<std::string> seen;
    for (std::size_t at = bytes.find("\n["); at != std::string::npos; at = bytes.find("\n[", at + 1)) {
        const std::string header = bytes.substr(at + 1, bytes.find(']', at) - at);
        EXPECT_TRUE(seen.insert(header).second) << header << ": only the first section of a name is read";
    }
    EXPECT_GT(seen.size(), 5U);
}

TEST_P(Tables, NumberTheirLinesWithoutHoles)
{
    const std::vector<TableKey> keys = ReadTable(GetParam());
    for (const BlockRow& block : Blocks) {
        for (const char* word : {"LINE", "COLLECTION"}) {
            std::set<int> numbers;
            for (const TableKey& key : KeysOf(keys, block.Section)) {
                const int number = KeyNumber(key.Name, word);
                if (number > 0) {
                    numbers.insert(number);
                }
            }
            const int last = numbers.empty() ? 0 : *numbers.rbegin();
            EXPECT_EQ(static_cast<int>(numbers.size()), last) << block.Section << " " << word;
        }
    }
}

TEST_P(Tables, UseTagsThatHaveAValueWhereTheyStand)
{
    for (const TableKey& key : ReadTable(GetParam())) {
        const BlockRow* block = FindBlock(key.Section);
        const std::string where = key.Section + " " + key.Name;
        if (block != nullptr) {
            const bool line = KeyNumber(key.Name, "LINE") > 0;
            CheckTags(where, key.Value,
                      line ? block->Reaches & ~static_cast<unsigned>(Limits) : block->Reaches);
        } else if (key.Section == "PartProgram_FirstMOVE" && key.Name == "END_LINE") {
            CheckTags(where, key.Value, 0);
        } else {
            EXPECT_EQ(key.Value.find('*'), std::string::npos) << where << ": tags aren't read here";
        }
    }
}

TEST_P(Tables, AskForEachInputValueTheyUse)
{
    const std::vector<TableKey> keys = ReadTable(GetParam());
    std::set<std::string> asked;
    for (const TableKey& key : KeysOf(keys, "PartProgram_INPUT")) {
        EXPECT_EQ(key.Name, "#V" + std::to_string(asked.size() + 1)) << "the slots are filled from 1 on";
        EXPECT_EQ(std::count(key.Value.begin(), key.Value.end(), ','), 3) << key.Name;
        EXPECT_NE(key.Value.back(), ',') << key.Name << ": each slot has a default";
        asked.insert(key.Name);
    }
    for (const TableKey& key : keys) {
        for (std::size_t at = key.Value.find("#V"); at != std::string::npos;
             at = key.Value.find("#V", at + 1)) {
            EXPECT_EQ(asked.count(key.Value.substr(at, 3)), 1U) << key.Section << " " << key.Name;
        }
    }
}

TEST_P(Tables, LeaveTheCompensationWordToTheMovesAndEndEachCutWithout)
{
    const std::vector<TableKey> keys = ReadTable(GetParam());
    if (GetParam() == TableWithoutCompensation) {
        EXPECT_NE(StationBytes(GetParam()).find("THE CONTROL DOESN'T COMPENSATE THE KERF"),
                  std::string::npos);
        const std::vector<TableKey> first = KeysOf(keys, "PartProgram_FirstMOVE");
        ASSERT_EQ(first.size(), 1U);
        EXPECT_EQ(first[0].Name + "=" + first[0].Value, "KERF_ON=NO");
        EXPECT_EQ(
            std::count_if(keys.begin(), keys.end(),
                          [](const TableKey& key) { return key.Value.find("*KERF") != std::string::npos; }),
            0);
        return;
    }
    for (const TableKey& key : keys) {
        EXPECT_NE(key.Name, "KERF_ON");
        EXPECT_EQ(key.Value.find("*KERF_ON"), std::string::npos) << key.Section;
    }
    const std::vector<TableKey> end = KeysOf(keys, "PartProgram_EndCUT");
    ASSERT_FALSE(end.empty());
    EXPECT_NE(end.back().Value.find("*KERF_OFF"), std::string::npos);
    EXPECT_NE(StationBytes(GetParam()).find("KERF_ON is left at its default"), std::string::npos)
        << "the table tells the site engineer why";
}

TEST_P(Tables, AreFoundByTheProgram)
{
    StartCase();
    AppState.AppPath = std::string(KORVANTA_SOURCE_DIR) + "/station";
    AppState.PprIniName = GetParam();
    for (const TableKey& key : ReadTable(GetParam())) {
        EXPECT_EQ(ReadPprValue(key.Section, key.Name, "missing"), key.Value)
            << key.Section << " " << key.Name;
    }
}
} // namespace
