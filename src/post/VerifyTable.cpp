#include "post/VerifyTable.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "import/Korvanta_IsoIn.h"
#include "post/Korvanta_PostProcessor.h"
#include "post/ReadBack.h"

#include <algorithm>

namespace
{
constexpr std::string_view RapidTag = "*RAPID_MOVE";
constexpr const char* ConfigSection = "PartProgram_CONFIG";
constexpr const char* StartCutSection = "PartProgram_StartCUT";
constexpr std::int16_t NoCode = -1;
constexpr std::int16_t LastMotion = 3;

/// How a section, or with a key a place of the table, is named.
std::string Place(const std::string& section, const std::string& key = "")
{
    return "[" + section + "] " + key;
}

/// The code that the reader finds at the head of a move; NoCode for none.
std::int16_t CodeOfMove(const std::string& section, const std::string& code)
{
    AppState.IsoMode = NoCode;
    return ReadGCode(ReadPprValue(section, "INIT_LINE", "") + code);
}

std::string UnknownCode()
{
    struct CodeRow {
        const char* Section;
        const char* Key;
        const std::string& Code;
    };
    const CodeRow rows[] = {
        {"PartProgram_RapidMOVE", "GCODE", AppState.RapidCode},
        {"PartProgram_LinearMOVE", "GCODE", AppState.LinearCode},
        {"PartProgram_CircularMOVE", "CW_GCODE", AppState.ClockwiseCode},
        {"PartProgram_CircularMOVE", "CCW_GCODE", AppState.CounterClockwiseCode},
    };
    for (const CodeRow& row : rows) {
        const std::int16_t code = CodeOfMove(row.Section, row.Code);
        if (code < 0 || code > LastMotion) {
            return Place(row.Section, row.Key) + "=" + row.Code +
                   ": no motion code that ISO-IN knows (G00, G01, G02, G03)";
        }
    }
    return {};
}

std::string UnknownAddress()
{
    struct AddressRow {
        const char* Key;
        const std::string& Address;
        const char* Known;
    };
    const AddressRow rows[] = {{"X_AXIS", AppState.AxisX, "X"},
                               {"Y_AXIS", AppState.AxisY, "Y"},
                               {"I_AXIS", AppState.AxisI, "I"},
                               {"J_AXIS", AppState.AxisJ, "J"}};
    for (const AddressRow& row : rows) {
        if (row.Address != row.Known) {
            return Place(ConfigSection, row.Key) + "=" + row.Address + ": ISO-IN knows no address but " +
                   row.Known;
        }
    }
    return {};
}

/// Whether moves or blocks turn compensation on; with words, which must be known.
std::string ReadSides(VerifyTable& table)
{
    const std::string left = Trim(AppState.KerfLeftWord);
    const std::string right = Trim(AppState.KerfRightWord);
    const bool byBlock =
        BlockHolds(StartCutSection, "*KERF_ON") || BlockHolds("PartProgram_EndLeadIn", "*KERF_ON");
    table.Sides = (AppState.FirstMoveKerfOn != 0 || byBlock) && !(left.empty() && right.empty());
    if (!table.Sides) {
        return {};
    }
    for (const std::string& word : {left, right}) {
        if (ReadSide(word, 0) == 0) {
            return "compensation word \"" + word + "\": none that ISO-IN knows (G41, G42)";
        }
    }
    table.Sides = AppState.NoKerfCodes == FlagOff;
    return {};
}

using Words = std::vector<double>;

/// Takes out the words whose number a tag completes: M0#V1.
void DropOpenWords(std::string& line)
{
    constexpr std::string_view digits = "0123456789";
    for (std::size_t at = line.find('M'); at != std::string::npos; at = line.find('M', at)) {
        const std::size_t end = line.find_first_not_of(digits, at + 1);
        if (end != std::string::npos && (line[end] == '#' || line[end] == '*')) {
            line.erase(at, end - at);
        } else {
            ++at;
        }
    }
}

/// The M words of a line of the table. One that may be left out of the program doesn't count.
void AddTableWords(const std::string& line, Words& words)
{
    std::string bare;
    DropComments(line, bare);
    if (!Contains(LowerCase(bare), "*ifextprf:")) {
        DropOpenWords(bare);
        AddMWords(bare, words);
    }
}

Words BlockWords(std::initializer_list<const char*> sections)
{
    Words words;
    for (const char* section : sections) {
        for (const std::string& line : BlockLines(section)) {
            AddTableWords(line, words);
        }
    }
    return words;
}

/// The words of the texts around moves.
Words MoveWords()
{
    Words words;
    for (const char* section :
         {"PartProgram_LinearMOVE", "PartProgram_CircularMOVE", "PartProgram_FirstMOVE"}) {
        AddTableWords(ReadPprValue(section, "INIT_LINE", ""), words);
        AddTableWords(ReadPprValue(section, "END_LINE", ""), words);
    }
    return words;
}

Words Without(const Words& words, std::initializer_list<Words> others)
{
    Words rest;
    for (const double word : words) {
        if (std::none_of(others.begin(), others.end(),
                         [word](const Words& other) { return HoldsMWord(other, word); })) {
            rest.push_back(word);
        }
    }
    return rest;
}

/// The M words around a cut. Which of them lights the torch nobody tells; but what stands only ahead of cuts has no
/// place behind them, and the other way round.
void ReadWords(VerifyTable& table)
{
    bool rapid = false;
    for (const std::string& line : BlockLines(StartCutSection)) {
        if (Contains(line, RapidTag)) {
            rapid = true;
            table.WordsAhead.clear();
        } else if (rapid) {
            AddTableWords(line, table.WordsAhead);
        }
    }
    table.WordsBehind = BlockWords({"PartProgram_EndCUT"});
    const Words start = BlockWords({StartCutSection});
    const Words within =
        BlockWords({"PartProgram_EndLeadIn", "PartProgram_FLYOFF", "PartProgram_EndProfileCut"});
    const Words frame = BlockWords({"PartProgram_BEGIN", "MainProgram_BEGIN", "PartProgram_PartHead",
                                    "PartProgram_StartPOINT", "PartProgram_POINT", "PartProgram_EndPOINT",
                                    "PartProgram_PartEnd", "MainProgram_END", "PartProgram_END"});
    // Without a lead-in the block behind it comes ahead of the first move.
    table.NotAhead = Without(table.WordsBehind, {start, BlockWords({"PartProgram_EndLeadIn"}), MoveWords()});
    table.NotBetween = Without(table.WordsBehind, {within, MoveWords()});
    table.NotBehind = Without(table.WordsAhead, {table.WordsBehind, frame, MoveWords()});
}
} // namespace

std::string ReadVerifyTable(VerifyTable& table)
{
    if (ReadPprValue(ConfigSection, "SUBPROGRAMS", "NO") == "YES") {
        return "the table writes sub-programs (SUBPROGRAMS=YES), which ISO-IN doesn't call";
    }
    for (const std::string& reason : {UnknownCode(), UnknownAddress(), ReadSides(table)}) {
        if (!reason.empty()) {
            return reason;
        }
    }
    if (!BlockHolds(StartCutSection, RapidTag)) {
        return Place(StartCutSection) + "has no *RAPID_MOVE: the program doesn't tell where its cuts begin";
    }
    table.SideEndsEarly = BlockHolds("PartProgram_EndProfileCut", "*KERF_OFF") ||
                          BlockHolds("PartProgram_EndProfileCut", "G40");
    table.Marks = BlockHolds("PartProgram_POINT", RapidTag);
    table.FlyOff = TextToNumber(ReadPprValue(ConfigSection, "FLYOFFDIM", "0"));
    table.RadiusWord = AppState.RadiusWord == "NULL" ? "" : AppState.RadiusWord;
    ReadWords(table);
    return {};
}
