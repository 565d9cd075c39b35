// DrawingText.h -- the drawings' source as text: which statements a shape's drawing has.
//
//   shape R-05  A=200 B=300 X=60 Y=60        values that differ from the defaults, for plain proportions
//   where r = sqrt(A^2+B^2); q = A/2         helping values
//   line (x, y) to (x, y)                    a line beside those of the shape
//   fill (x, y)                              the area around the point
//   A: from (x, y) to (x, y), left           a dimension; formulas in the shape's letters, as its builder takes them
//
// Where a dimension line stands: "left", "right", "above", "below" (with a number the second, third row out), "upright at
// x", "level at y", "straight" from point to point, "beside d" on its left, "arc r about (x, y)". The letter stands on the
// outer side, otherwise on the left of the way; ", letter s" moves it by s along that way. '#' begins a comment.
#pragma once

#include "support/Formula.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

struct DrawnPlace {
    double X = 0.0;
    double Y = 0.0;
};

enum class LinePlace { Left, Right, Above, Below, Upright, Level, Straight, Beside, Arc };

struct DrawnDimension {
    std::string Letter;
    DrawnPlace From;
    DrawnPlace To;
    LinePlace Where = LinePlace::Straight;
    double Measure = 1.0; ///< row, coordinate, distance or radius
    DrawnPlace Centre;    ///< of an arc
    double LetterShift = 0.0;
};

struct DrawnLine {
    DrawnPlace From;
    DrawnPlace To;
};

struct DrawnShape {
    std::string Name;
    std::int16_t ShapeId = 0;
    FormulaNames Values; ///< the parameters', and helping ones
    std::vector<DrawnLine> Lines;
    std::vector<DrawnPlace> Fills;
    std::vector<DrawnDimension> Dimensions;
};

/// Reads a file of drawings. What can't be understood throws std::runtime_error with shape and line.
std::vector<DrawnShape> ReadDrawings(std::string_view text);
