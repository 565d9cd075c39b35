// Korvanta_IsoIn.h -- ISO-IN: turns the moves of a G-code file into the current part.
#pragma once

#include "state/AppState.h"

#include <cstdint>
#include <string>
#include <string_view>

/// Imports `name` from NcPath; a name that begins with '/' is taken as it stands. False when the file is missing, gives
/// no length to cut, or would not fit; the tables are then empty and ImportFailure says why. On success ElementTable
/// holds measured profiles with their shadow, SourceName is `name` and JobName its file name. Elements stand in
/// program order, so nothing is chained. Called by OpenImport.
bool ImportIso(const std::string& name);

/// The reader: adds the moves of the file to ElementTable, without end marks, and doubtful lines to ImportDoubts. Lengths as
/// the file gives them. False
/// with ImportFailure when the file can't be read, a coordinate is beyond MaxIsoCoordinate, or the elements with the
/// end marks that the split will insert pass MaxElements. Needs empty tables and the modal values at 0.
bool ReadIsoFile(const std::string& path);

/// What a line makes of the modal values: its move, when Code is 1 to 3.
struct IsoMove {
    std::int16_t Code = 0; ///< the modal code when the line has none of its own
    std::int16_t Side = 0; ///< of the line; before the call that of the line before
    double StartX = 0.0;   ///< the modal position before the line
    double StartY = 0.0;
    double EndX = 0.0;
    double EndY = 0.0;
    double I = 0.0; ///< of codes 2 and 3 the absolute centre
    double J = 0.0;
    double Radius = 0.0; ///< of codes 2 and 3, > 0 counter-clockwise
};

/// Puts the modal values to 0, as they are ahead of the first line.
void StartIsoModes();

/// Reads one line into `move` and takes it into the modal values. Adds no element and leaves nothing out: short moves
/// and large numbers are the caller's. Called by ReadIsoFile for each line that holds a word, and by the verification.
void ReadIsoLine(std::string_view line, bool incrementalCentre, IsoMove& move);

/// Largest size of a coordinate or radius of an element. The box of a part ends at 100000; a number a hundred times
/// that is a damaged file, and such numbers squared would no longer hold the tolerance.
inline constexpr double MaxIsoCoordinate = 1e7;

/// Code of a line: the first G word that is 0 to 3 or 40 to 42, IsoMode without one.
std::int16_t ReadGCode(std::string_view line);

/// True when G with that number stands anywhere in the line, in a comment, too.
bool HoldsGCode(std::string_view line, double code);

/// Compensation side of a line: 0, 1 or -1 by G40, G41, G42, looked for in this order; `side` without any.
std::int16_t ReadSide(std::string_view line, std::int16_t side);

/// Number behind the first `letter` of the line, 0 when no digits follow. Without the letter the modal value of X, Y, I
/// or J, 0 for any other letter.
double ReadWord(char letter, std::string_view line);
