#include "import/Korvanta_IsoIn.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "geometry/Orbalib.h"
#include "import/IsoDoubts.h"
#include "platform/Paths.h"
#include "platform/TextFile.h"
#include "profile/Korvanta_ProfileCut.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace
{
/// An arc whose centre is closer than this to its start has no direction of its own.
constexpr double NoRadius = 1e-9;

constexpr std::string_view NumberCharacters = "0123456789.+-";

bool InRange(double value)
{
    return std::fabs(value) <= MaxIsoCoordinate;
}

bool Fail(const std::string& why)
{
    AppState.ImportFailure = why;
    return false;
}

/// Adds the element of `move`. `marks` counts the end marks that the split will need.
bool AddMove(std::int16_t kind, const IsoMove& move, const std::array<double, 3>& geo, std::int32_t& marks)
{
    if (AppState.ElementCount > 0) {
        const ProfileElement& last = AppState.ElementTable[static_cast<std::size_t>(AppState.ElementCount)];
        if (dpp(last.EndX, last.EndY, move.StartX, move.StartY) > Tolerance) {
            ++marks;
        }
    }
    if (AppState.ElementCount + 1 + marks > MaxElements) {
        return Fail("the program has more moves than the station holds (32767, profile ends included)");
    }
    AddElement(kind, move.StartX, move.StartY, geo[0], geo[1], geo[2], move.EndX, move.EndY, move.Side);
    return true;
}

bool AddStraight(const IsoMove& move, std::int32_t& marks)
{
    if (dpp(move.StartX, move.StartY, move.EndX, move.EndY) <= Tolerance) {
        return true;
    }
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, move.StartX, move.StartY, 0.0}, {0.0, move.EndX, move.EndY, 0.0}, err);
    return AddMove(KindLine, move, {line[1], line[2], line[3]}, marks);
}

bool MoveInRange(const IsoMove& move)
{
    const bool ends =
        InRange(move.StartX) && InRange(move.StartY) && InRange(move.EndX) && InRange(move.EndY);
    return ends && (move.Code == 1 || (InRange(move.I) && InRange(move.J) && InRange(move.Radius)));
}

/// The element of a line, when it has one.
bool AddLine(const IsoMove& move, std::int32_t& marks)
{
    if (move.Code < 1 || move.Code > 3) {
        return true;
    }
    if (!MoveInRange(move)) {
        return Fail("a coordinate of the program is too large");
    }
    if (move.Code == 1 || std::fabs(move.Radius) < NoRadius) {
        return AddStraight(move, marks);
    }
    return AddMove(KindArc, move, {move.I, move.J, move.Radius}, marks);
}

/// The file name without folders of either kind.
std::string DisplayName(const std::string& name)
{
    const std::size_t separator = name.find_last_of("\\/");
    return separator == std::string::npos ? name : name.substr(separator + 1);
}

bool ImportMoves(const std::string& name)
{
    if (Trim(name).empty()) {
        return Fail("no file name was given");
    }
    const std::string path = name.front() == '/' ? name : AppState.NcPath + name;
    if (!FileExists(path)) {
        return Fail("the file doesn't exist");
    }
    AppState.SourceName = name;
    AppState.JobName = DisplayName(name);
    if (!ReadIsoFile(path)) {
        return false;
    }
    if (!NormaliseImport(ImportSides::Program, 0.0, 0.0)) {
        return false;
    }
    return AppState.TotalCutLength > 0.0 || Fail("the program holds no move that cuts");
}
} // namespace

bool ImportIso(const std::string& name)
{
    ClearPart();
    ClearImportAccount();
    StartIsoModes();
    if (ImportMoves(name)) {
        return true;
    }
    const std::string why = AppState.ImportFailure;
    ClearPart();
    ClearImportAccount();
    return Fail(why);
}

void StartIsoModes()
{
    AppState.IsoMode = 0;
    AppState.IsoX = AppState.IsoY = AppState.IsoI = AppState.IsoJ = 0.0;
}

bool ReadIsoFile(const std::string& path)
{
    std::string content;
    if (!ReadWholeFile(path, content)) {
        return Fail("the file can't be read");
    }
    const bool incrementalCentre = ReadIncrementalCentre();
    IsoMove move;
    std::int32_t marks = 1; // the last profile's
    std::int64_t number = 0;
    std::string_view rest = content;
    std::string_view line;
    while (NextLine(rest, line)) {
        ++number;
        if (line.find_first_of("GXYIJ") == std::string_view::npos) {
            continue;
        }
        ReadIsoLine(line, incrementalCentre, move);
        if (!AddLine(move, marks)) {
            return false;
        }
        NoteDoubts(line, number, move, incrementalCentre);
    }
    return true;
}

void ReadIsoLine(std::string_view line, bool incrementalCentre, IsoMove& move)
{
    move.Code = ReadGCode(line);
    move.Side = ReadSide(line, move.Side);
    move.StartX = AppState.IsoX;
    move.StartY = AppState.IsoY;
    move.EndX = ReadWord('X', line);
    move.EndY = ReadWord('Y', line);
    move.I = ReadWord('I', line);
    move.J = ReadWord('J', line);
    move.Radius = 0.0;
    if (move.Code == 2 || move.Code == 3) {
        if (incrementalCentre) {
            move.Radius = dpp(0.0, 0.0, move.I, move.J);
            move.I += move.StartX;
            move.J += move.StartY;
        } else {
            move.Radius = dpp(move.StartX, move.StartY, move.I, move.J);
        }
        move.Radius = move.Code == 2 ? -move.Radius : move.Radius;
    }
    AppState.IsoX = move.EndX;
    AppState.IsoY = move.EndY;
    AppState.IsoI = move.I;
    AppState.IsoJ = move.J;
    AppState.IsoMode = move.Code;
}

std::int16_t ReadGCode(std::string_view line)
{
    constexpr std::array<std::int16_t, 7> accepted = {0, 1, 2, 3, 40, 41, 42};
    for (std::size_t at = line.find('G'); at != std::string_view::npos; at = line.find('G')) {
        const double number = ReadWord('G', line);
        for (const std::int16_t code : accepted) {
            if (number == code) {
                return code;
            }
        }
        line.remove_prefix(at + 1);
    }
    return AppState.IsoMode;
}

bool HoldsGCode(std::string_view line, double code)
{
    for (std::size_t at = line.find('G'); at != std::string_view::npos; at = line.find('G')) {
        const std::string_view behind = line.substr(at + 1);
        if (!behind.empty() && Contains(NumberCharacters, behind.substr(0, 1)) &&
            ReadWord('G', line) == code) {
            return true;
        }
        line = behind;
    }
    return false;
}

std::int16_t ReadSide(std::string_view line, std::int16_t side)
{
    struct SideRow {
        const char* Word;
        std::int16_t Side;
    };
    constexpr std::array<SideRow, 3> rows = {{{"G40", 0}, {"G41", 1}, {"G42", -1}}};
    for (const SideRow& row : rows) {
        if (Contains(line, row.Word)) {
            return row.Side;
        }
    }
    return side;
}

double ReadWord(char letter, std::string_view line)
{
    const std::size_t at = line.find(letter);
    if (at == std::string_view::npos) {
        switch (letter) {
        case 'X':
            return AppState.IsoX;
        case 'Y':
            return AppState.IsoY;
        case 'I':
            return AppState.IsoI;
        case 'J':
            return AppState.IsoJ;
        default:
            return 0.0;
        }
    }
    const std::string_view behind = line.substr(at + 1);
    return TextToNumber(behind.substr(0, behind.find_first_not_of(NumberCharacters)));
}
