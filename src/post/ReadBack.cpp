#include "post/ReadBack.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"

#include <algorithm>
#include <array>

namespace
{
constexpr std::array<char, 4> Coordinates = {'X', 'Y', 'I', 'J'};
constexpr std::string_view NumberCharacters = "0123456789.+-";
constexpr double AbsoluteCentre = 90.1;
constexpr double RelativeCentre = 91.1;
constexpr double EndOfProgram = 2.0;
constexpr double EndOfTape = 30.0;

/// A letter with a number behind it, as a coordinate has it.
bool HoldsCoordinate(std::string_view line)
{
    for (std::size_t at = 0; at + 1 < line.size(); ++at) {
        if (std::find(Coordinates.begin(), Coordinates.end(), line[at]) != Coordinates.end() &&
            NumberCharacters.find(line[at + 1]) != std::string_view::npos) {
            return true;
        }
    }
    return false;
}

bool IsLetter(char c)
{
    return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
}

void AddWord(std::vector<double>& words, double word)
{
    if (!HoldsMWord(words, word)) {
        words.push_back(word);
    }
}

void MoveWords(std::vector<double>& from, std::vector<double>& to)
{
    for (const double word : from) {
        AddWord(to, word);
    }
    from.clear();
}

/// Modes that a line sets, with a coordinate or without.
void TakeModes(ReadBack& program, std::string_view line)
{
    if (HoldsGCode(line, 91)) {
        program.Incremental = true;
    } else if (HoldsGCode(line, 90)) {
        program.Incremental = false;
    }
    if (HoldsGCode(line, AbsoluteCentre) || HoldsGCode(line, RelativeCentre)) {
        program.OtherCentre = HoldsGCode(line, RelativeCentre) != program.IncrementalCentre;
    }
}

/// Whether a control stops at the line. The % ahead of a program is none: nothing has moved yet.
bool EndsProgram(const ReadBack& program, const std::string& line)
{
    std::vector<double> words;
    AddMWords(line, words);
    return HoldsMWord(words, EndOfProgram) || HoldsMWord(words, EndOfTape) ||
           (program.Moved && line.find('%') != std::string::npos && Trim(line) == "%");
}

/// One line without comments. False when it begins the next cut.
bool TakeLine(ReadBack& program, FoundCut& cut)
{
    constexpr double dwell = 4;
    const std::string& line = program.Line;
    TakeModes(program, line);
    AddMWords(line, cut.Moves.empty() ? cut.WordsAhead : cut.WordsBehind);
    if (!HoldsCoordinate(line) || HoldsGCode(line, dwell)) {
        program.Modal.Side = ReadSide(line, program.Modal.Side);
        AppState.IsoMode = ReadGCode(line);
        return true;
    }
    ReadIsoLine(line, program.IncrementalCentre, program.Modal);
    program.Moved = true;
    if (program.Modal.Code >= 1 && program.Modal.Code <= 3) {
        MoveWords(cut.WordsBehind, cut.WordsBetween);
        cut.Moves.push_back(
            {program.Modal, program.Text.Lines, program.Incremental, program.OtherCentre, line});
        return true;
    }
    const FoundRapid rapid{program.Modal.EndX, program.Modal.EndY, program.Modal.Side, program.Text.Lines,
                           program.Incremental};
    if (!cut.Moves.empty()) {
        program.Held = {rapid};
        return false;
    }
    MoveWords(cut.WordsAhead, cut.WordsEarly);
    cut.Rapids.push_back(rapid);
    return true;
}
} // namespace

bool OpenReadBack(ReadBack& program, const std::string& path)
{
    program.IncrementalCentre = ReadIncrementalCentre();
    StartIsoModes();
    return OpenForReading(program.Text, path);
}

bool ReadCut(ReadBack& program, FoundCut& cut)
{
    cut.Rapids = program.Held;
    cut.WordsEarly.clear();
    cut.WordsAhead.clear();
    cut.WordsBetween.clear();
    cut.WordsBehind.clear();
    cut.Moves.clear();
    program.Held.clear();
    std::string_view line;
    while (ReadTextLine(program.Text, line)) {
        program.Sum = AddToSum(program.Sum, line);
        if (program.Ended) {
            continue;
        }
        DropComments(line, program.Line);
        program.Ended = EndsProgram(program, program.Line);
        if (!TakeLine(program, cut)) {
            return true;
        }
    }
    return !cut.Moves.empty();
}

bool HoldsMWord(const std::vector<double>& words, double word)
{
    return std::find(words.begin(), words.end(), word) != words.end();
}

void AddMWords(std::string_view line, std::vector<double>& words)
{
    for (std::size_t at = line.find('M'); at != std::string_view::npos; at = line.find('M', at + 1)) {
        const std::string_view behind = line.substr(at + 1);
        const bool word = (at == 0 || !IsLetter(line[at - 1])) && !behind.empty() && behind.front() >= '0' &&
                          behind.front() <= '9';
        if (word) {
            AddWord(words, TextToNumber(behind.substr(0, behind.find_first_not_of(NumberCharacters))));
        }
    }
}

void DropComments(std::string_view line, std::string& rest)
{
    rest.clear();
    bool comment = false;
    for (const char c : line) {
        if (!comment && c == ';') {
            return;
        }
        comment = comment || c == '(';
        if (!comment) {
            rest += c;
        }
        comment = comment && c != ')';
    }
}
