#include "import/Korvanta_IsoIn.h"

#include "config/Korvanta_Utility.h"
#include "config/PprValues.h"
#include "geometry/Orbalib.h"
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

/// The words of one line.
struct IsoBlock {
    std::int16_t Code = 0;
    double X = 0.0;
    double Y = 0.0;
    double I = 0.0;
    double J = 0.0;
};

bool InRange(double value)
{
    return std::fabs(value) <= MaxIsoCoordinate;
}

bool Fail(const char* why)
{
    AppState.ImportFailure = why;
    return false;
}

/// Adds one element from the modal position to `block`. `marks` counts the end marks that the split will need.
bool AddMove(std::int16_t kind, const IsoBlock& block, const std::array<double, 3>& geo, std::int16_t side,
             std::int32_t& marks)
{
    if (AppState.ElementCount > 0) {
        const ProfileElement& last = AppState.ElementTable[static_cast<std::size_t>(AppState.ElementCount)];
        if (dpp(last.EndX, last.EndY, AppState.IsoX, AppState.IsoY) > Tolerance) {
            ++marks;
        }
    }
    if (AppState.ElementCount + 1 + marks > MaxElements) {
        return Fail("the program has more moves than the station holds (32767, profile ends included)");
    }
    AddElement(kind, AppState.IsoX, AppState.IsoY, geo[0], geo[1], geo[2], block.X, block.Y, side);
    return true;
}

bool AddStraight(const IsoBlock& block, std::int16_t side, std::int32_t& marks)
{
    if (dpp(AppState.IsoX, AppState.IsoY, block.X, block.Y) <= Tolerance) {
        return true;
    }
    GeoLine line{};
    std::int16_t err = 0;
    r_pp(line, {0.0, AppState.IsoX, AppState.IsoY, 0.0}, {0.0, block.X, block.Y, 0.0}, err);
    return AddMove(KindLine, block, {line[1], line[2], line[3]}, side, marks);
}

/// Turns I and J of `block` into the absolute centre.
bool AddCurve(IsoBlock& block, bool incrementalCentre, std::int16_t side, std::int32_t& marks)
{
    double radius = 0.0;
    if (incrementalCentre) {
        radius = dpp(0.0, 0.0, block.I, block.J);
        block.I += AppState.IsoX;
        block.J += AppState.IsoY;
    } else {
        radius = dpp(AppState.IsoX, AppState.IsoY, block.I, block.J);
    }
    if (!InRange(block.I) || !InRange(block.J) || !InRange(radius)) {
        return false;
    }
    if (radius < NoRadius) {
        return AddStraight(block, side, marks);
    }
    return AddMove(KindArc, block, {block.I, block.J, block.Code == 2 ? -radius : radius}, side, marks);
}

bool AddBlock(IsoBlock& block, bool incrementalCentre, std::int16_t side, std::int32_t& marks)
{
    if (block.Code < 1 || block.Code > 3) {
        return true;
    }
    const bool inRange =
        InRange(AppState.IsoX) && InRange(AppState.IsoY) && InRange(block.X) && InRange(block.Y);
    const bool added = inRange && (block.Code == 1 ? AddStraight(block, side, marks)
                                                   : AddCurve(block, incrementalCentre, side, marks));
    return added ||
           (!AppState.ImportFailure.empty() ? false : Fail("a coordinate of the program is too large"));
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
    AppState.ImportRead.clear();
    AppState.ImportLeftOut.clear();
    AppState.ImportOpen.clear();
    AppState.ImportFailure.clear();
    AppState.IsoMode = 0;
    AppState.IsoX = AppState.IsoY = AppState.IsoI = AppState.IsoJ = 0.0;
    if (ImportMoves(name)) {
        return true;
    }
    ClearPart();
    AppState.ImportOpen.clear();
    return false;
}

bool ReadIsoFile(const std::string& path)
{
    std::string content;
    if (!ReadWholeFile(path, content)) {
        return Fail("the file can't be read");
    }
    const bool incrementalCentre = ReadIncrementalCentre();
    std::int16_t side = 0;
    std::int32_t marks = 1; // the last profile's
    std::string_view rest = content;
    std::string_view line;
    while (NextLine(rest, line)) {
        if (line.find_first_of("GXYIJ") == std::string_view::npos) {
            continue;
        }
        IsoBlock block;
        block.Code = ReadGCode(line);
        side = ReadSide(line, side);
        block.X = ReadWord('X', line);
        block.Y = ReadWord('Y', line);
        block.I = ReadWord('I', line);
        block.J = ReadWord('J', line);
        if (!AddBlock(block, incrementalCentre, side, marks)) {
            return false;
        }
        AppState.IsoX = block.X;
        AppState.IsoY = block.Y;
        AppState.IsoI = block.I;
        AppState.IsoJ = block.J;
        AppState.IsoMode = block.Code;
    }
    return true;
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
    return TextToNumber(behind.substr(0, behind.find_first_not_of("0123456789.+-")));
}
