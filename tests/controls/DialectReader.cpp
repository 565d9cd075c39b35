#include "DialectReader.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <map>
#include <sstream>

namespace
{
constexpr std::size_t GrblLine = 79; ///< characters that GRBL's line buffer holds
constexpr long GrblLineNumber = 9999999;
constexpr double RoundArc = 0.005;

struct Word {
    char Letter = 0;
    double Value = 0.0;
    std::string Name; ///< "G41", "M3": leading zeros dropped
};

struct Block {
    std::string Line;
    std::vector<Word> Words;
};

struct Control {
    const Dialect& Kind;
    PlayedDialect Result;
    std::vector<Block> Blocks;
    std::map<long, std::size_t> Labels;
    std::vector<std::size_t> Returns;
    Spot At;
    int Motion = -1;
    double Feed = 0.0;
    bool Incremental = false;
    bool Absolute = false; ///< G90 or G91 was said
    bool Millimetres = false;
    bool Torch = false;
    bool Ended = false;
    int Side = 0;
    std::string Said; ///< since the last move
};

void Fault(Control& control, const std::string& what, const std::string& line)
{
    control.Result.Moves.Faults.push_back(what + ": " + line);
}

/// The line without comments and blanks, which mean nothing to a control.
std::string Bare(const std::string& line)
{
    std::string bare;
    bool comment = false;
    for (const char c : line) {
        if (c == '(' || c == ';') {
            comment = true;
        }
        if (!comment && c != ' ' && c != '\r') {
            bare += c;
        }
        if (c == ')') {
            comment = false;
        }
    }
    return bare;
}

std::string PlainName(char letter, const std::string& number)
{
    const std::size_t first = number.find_first_not_of('0');
    return letter + (first == std::string::npos || number[first] == '.' ? "0" : std::string()) +
           (first == std::string::npos ? std::string() : number.substr(first));
}

void ReadBlock(Control& control, const std::string& line)
{
    const std::string bare = Bare(line);
    if (control.Kind.Grbl && line.size() - std::count(line.begin(), line.end(), '\r') > GrblLine) {
        Fault(control, "longer than GRBL's buffer", line);
    }
    Block block{line, {}};
    for (std::size_t at = 0; at < bare.size();) {
        const char letter = bare[at++];
        std::size_t end = at;
        while (end < bare.size() && std::string("0123456789.+-").find(bare[end]) != std::string::npos) {
            ++end;
        }
        const std::string number = bare.substr(at, end - at);
        if (letter < 'A' || letter > 'Z' || number.empty()) {
            Fault(control, "no word", line);
            return;
        }
        block.Words.push_back({letter, std::strtod(number.c_str(), nullptr), PlainName(letter, number)});
        at = end;
    }
    if (block.Words.empty()) {
        return;
    }
    if (block.Words.front().Letter == 'O') {
        const long label = std::lround(block.Words.front().Value);
        if (!control.Labels.emplace(label, control.Blocks.size()).second) {
            Fault(control, "a second sub-program of that number", line);
        }
    }
    control.Blocks.push_back(block);
}

/// The lines of the tape: between the first % and the second, or all when there is none.
void ReadTape(Control& control, const std::string& program)
{
    std::istringstream lines(program);
    int ends = 0;
    for (std::string line; std::getline(lines, line) && ends < 2;) {
        if (Bare(line) == "%") {
            ++ends;
            if (control.Kind.Grbl) {
                Fault(control, "GRBL knows no %", line);
            }
            continue;
        }
        ReadBlock(control, line);
    }
}

const Word* Find(const Block& block, char letter)
{
    const auto found = std::find_if(block.Words.begin(), block.Words.end(),
                                    [&](const Word& word) { return word.Letter == letter; });
    return found == block.Words.end() ? nullptr : &*found;
}

bool Has(const Block& block, const std::string& name)
{
    return std::any_of(block.Words.begin(), block.Words.end(),
                       [&](const Word& word) { return word.Name == name; });
}

double Value(const Block& block, char letter, double otherwise)
{
    const Word* word = Find(block, letter);
    return word == nullptr ? otherwise : word->Value;
}

void CheckArc(Control& control, const Piece& piece, const std::string& line)
{
    const double off = std::fabs(Far(piece.Start, piece.Centre) - Far(piece.End, piece.Centre));
    const double radius = ArcRadius(piece);
    // GRBL refuses more than half a millimetre, or more than both 0.005 and a thousandth of the radius.
    const bool refused =
        control.Kind.Grbl ? off > 0.5 || (off > 0.005 && off > 0.001 * radius) : off > RoundArc;
    if (refused || radius < 1e-6) {
        Fault(control, "an arc that misses its end", line);
    }
}

void Cut(Control& control, const Piece& piece, const std::string& line)
{
    if (!control.Torch) {
        Fault(control, "a cutting move with the torch off", line);
        return;
    }
    if (!(control.Feed > 0.0)) {
        Fault(control, "a cutting move without a feed", line);
    }
    PlayedDialect& result = control.Result;
    PlayedCut& cut = result.Moves.Cuts.back();
    if (cut.Moves.empty()) {
        cut.Word = control.Side;
        result.Setups.push_back(control.Said);
        result.Withins.emplace_back();
        result.Feeds.push_back(0.0);
    } else if (cut.Word != control.Side) {
        Fault(control, "compensation changes within a cut", line);
    }
    if (!cut.Moves.empty()) {
        result.Withins.back() += control.Said;
    }
    control.Said.clear();
    result.Feeds.back() = control.Feed;
    cut.Moves.push_back(piece);
}

void Move(Control& control, const Block& block)
{
    const double baseX = control.Incremental ? control.At.X : 0.0;
    const double baseY = control.Incremental ? control.At.Y : 0.0;
    const Word* x = Find(block, 'X');
    const Word* y = Find(block, 'Y');
    const Spot to{x == nullptr ? control.At.X : baseX + x->Value,
                  y == nullptr ? control.At.Y : baseY + y->Value};
    if (!control.Absolute || !control.Millimetres || control.Motion < 0) {
        Fault(control, "a move without unit, G90 or motion word", block.Line);
    }
    if (control.Motion == 0) {
        if (control.Torch || control.Side != 0) {
            Fault(control, "a rapid with the torch on or under compensation", block.Line);
        }
        if (control.Result.Ends.size() < control.Result.Moves.Cuts.size()) {
            control.Result.Ends.push_back(control.Said);
        }
        control.Said.clear();
    } else if (control.Motion == 1) {
        Cut(control, StraightPiece(control.At, to), block.Line);
    } else {
        if (Find(block, 'I') == nullptr || Find(block, 'J') == nullptr || x == nullptr || y == nullptr) {
            Fault(control, "an arc without its words", block.Line);
        }
        const Spot centre{control.At.X + Value(block, 'I', 0.0), control.At.Y + Value(block, 'J', 0.0)};
        const Piece piece = ArcPiece(control.At, to, centre, control.Motion == 3);
        CheckArc(control, piece, block.Line);
        Cut(control, piece, block.Line);
    }
    control.At = to;
}

void Say(Control& control, const std::string& word)
{
    control.Said += (control.Said.empty() ? "" : " ") + word;
}

/// G words that aren't motions. False for an unknown one.
bool Mode(Control& control, const Block& block, const Word& word)
{
    if (word.Name == "G90" || word.Name == "G91") {
        control.Incremental = word.Name == "G91";
        control.Absolute = true;
    } else if (word.Name == "G21") {
        control.Millimetres = true;
    } else if (word.Name == "G40") {
        control.Side = 0;
        Say(control, word.Name);
    } else if (!control.Kind.Grbl && (word.Name == "G41" || word.Name == "G42")) {
        control.Side = word.Name == "G41" ? 1 : -1;
        if (!Has(block, "G1")) {
            Fault(control, "compensation comes on along a straight move only", block.Line);
        }
    } else if (word.Name == "G4") {
        const Word* seconds = Find(block, 'P');
        if (seconds == nullptr) {
            Fault(control, "a dwell without a time", block.Line);
        }
        Say(control, "G4" + (seconds == nullptr ? std::string() : seconds->Name));
    } else {
        return word.Name == "G17" || (control.Kind.Grbl && word.Name == "G91.1") ||
               control.Kind.Known.count(word.Name) > 0;
    }
    return true;
}

void SwitchTorch(Control& control, const Block& block, bool on)
{
    if (on && control.Torch) {
        Fault(control, "torch on twice", block.Line);
    }
    if (on) {
        control.Result.Moves.Cuts.emplace_back();
    }
    control.Torch = on;
}

/// M words. False for an unknown one.
bool Switch(Control& control, const Block& block, const Word& word)
{
    if (control.Kind.TorchOn.count(word.Name) > 0) {
        SwitchTorch(control, block, true);
    } else if (control.Kind.TorchOff.count(word.Name) > 0) {
        SwitchTorch(control, block, false);
    } else if (word.Name == "M2" || word.Name == "M30") {
        control.Ended = true;
        return true;
    } else if (control.Kind.Known.count(word.Name) == 0) {
        return false;
    }
    Say(control, word.Name);
    return true;
}

/// Two words of one modal group in a block are an error of GRBL.
void CheckGroups(Control& control, const Block& block)
{
    static const std::map<std::string, int> Groups = {
        {"G0", 1},   {"G1", 1},  {"G2", 1},  {"G3", 1},  {"G17", 2}, {"G90", 3},
        {"G91", 3},  {"G94", 5}, {"G20", 6}, {"G21", 6}, {"G40", 7}, {"M2", 14},
        {"M30", 14}, {"M3", 17}, {"M4", 17}, {"M5", 17}, {"M8", 18}, {"M9", 18}};
    std::set<int> seen;
    for (const Word& word : block.Words) {
        const auto group = Groups.find(word.Name);
        if (group != Groups.end() && !seen.insert(group->second).second) {
            Fault(control, "two words of one group", block.Line);
        }
        if (std::string("FGIJKLMNPRSTXYZ").find(word.Letter) == std::string::npos) {
            Fault(control, "a letter that GRBL doesn't know", block.Line);
        }
        if (word.Letter == 'N' && word.Value > GrblLineNumber) {
            Fault(control, "a line number beyond GRBL's", block.Line);
        }
    }
}

/// Plays one block; the number of the next one.
std::size_t Play(Control& control, std::size_t at)
{
    const Block& block = control.Blocks[at];
    std::size_t next = at + 1;
    if (control.Kind.Grbl) {
        CheckGroups(control, block);
    }
    if (const Word* feed = Find(block, 'F')) {
        control.Feed = feed->Value;
        Say(control, feed->Name);
    }
    for (const Word& word : block.Words) {
        if (word.Letter == 'G' && word.Name.size() == 2 && word.Name[1] <= '3') {
            control.Motion = word.Name[1] - '0';
        } else if (word.Name == "M98") {
            const auto label = control.Labels.find(std::lround(Value(block, 'P', -1.0)));
            if (label == control.Labels.end()) {
                Fault(control, "a sub-program that isn't there", block.Line);
                continue;
            }
            control.Returns.push_back(next);
            next = label->second + 1;
        } else if (word.Name == "M99") {
            if (control.Returns.empty()) {
                Fault(control, "a return without a call", block.Line);
                continue;
            }
            next = control.Returns.back();
            control.Returns.pop_back();
        } else if ((word.Letter == 'G' && !Mode(control, block, word)) ||
                   (word.Letter == 'M' && !Switch(control, block, word))) {
            Fault(control, "an unknown word", block.Line);
        } else if (word.Letter == 'O') {
            Fault(control, "the main program runs into a sub-program", block.Line);
        }
    }
    if (Find(block, 'X') != nullptr || Find(block, 'Y') != nullptr) {
        Move(control, block);
    }
    return next;
}
} // namespace

PlayedDialect PlayDialect(const std::string& program, const Dialect& dialect)
{
    constexpr std::size_t MostBlocks = 1000000;
    Control control{dialect, {}, {}, {}, {}, {}, -1, 0.0, false, false, false, false, false, 0, {}};
    ReadTape(control, program);
    std::size_t played = 0;
    for (std::size_t at = 0; at < control.Blocks.size() && !control.Ended && played < MostBlocks; ++played) {
        at = Play(control, at);
    }
    if (!control.Ended || control.Torch || control.Side != 0 || !control.Returns.empty()) {
        Fault(control, "no end, or with the torch on, under compensation, or in a sub-program", "end");
    }
    control.Result.Ends.push_back(control.Said);
    return control.Result;
}
