// ShapeDrawing.h -- the shapes of the library as their drawings tell them, in a few lines of text each, to be laid beside
// what the builders make.
#pragma once

#include "shapes/Korvanta_Develop.h"
#include "support/Formula.h"

#include <cstdint>
#include <random>
#include <string>
#include <string_view>
#include <vector>

/// One line or arc of an expected contour; it runs to the next one's start, the last one to the contour's end.
struct DrawnMove {
    double X = 0.0;
    double Y = 0.0;
    bool Arc = false;
    double CentreX = 0.0;
    double CentreY = 0.0;
    double Radius = 0.0; ///< signed, above 0 counter-clockwise
};

struct DrawnContour {
    std::int16_t Kind = 0; ///< of its closing record
    double Hint = 0.0;
    std::int16_t Sense = 1;
    std::int16_t ClosingSense = 1;
    bool WithoutLines = false; ///< straight records carry no coefficients
    std::vector<DrawnMove> Moves;
    double EndX = 0.0;
    double EndY = 0.0;
    double Area = 0.0; ///< signed, above 0 counter-clockwise; 0 for an open one
};

struct ShapeDrawing {
    const char* Name; ///< "R-05"; "46" outside the catalogue, whose letters are p1, p2, ...
    const char* Case; ///< "R=0; Di=0": what makes this a case of its own beside the plain one
    /// What the builder refuses, in its order: "A<0.1; 2*R>=B".
    const char* Checks;
    /// What random parameters keep to besides, so that no contour crosses itself: "2*R<A".
    const char* Sane;
    /// Helping values and tangents.
    const char* Where;
    /// Contours, one behind the other: "in" or "out" with the class of the closing record, "sense=s/c" when the records'
    /// or the closing record's sense isn't 1; the start point; then points for lines, "cw" or "ccw" with centre and
    /// radius, and a point, for arcs. Null when Draw tells them.
    const char* Outline;
    /// Signed area of each contour as built, above 0 counter-clockwise; "open" for open ones. Empty when Draw tells them.
    const char* Areas;
    /// Records, closing ones included, for the default values.
    int Records;
    std::vector<DrawnContour> (*Draw)(const FormulaNames& names) = nullptr;
};

/// Identifier of a drawing's shape.
std::int16_t IdOf(const ShapeDrawing& drawing);

/// "R-05 with X=0", as a test calls it.
std::string TitleOf(const ShapeDrawing& drawing);

/// Letters of the shape in field order.
std::vector<std::string> LettersOf(const ShapeDrawing& drawing);

/// The default values with the drawing's case.
FormulaNames DefaultNames(const ShapeDrawing& drawing);

/// Random values that are legal and sane: from a third to twice the defaults, the drawing's case kept.
FormulaNames RandomNames(const ShapeDrawing& drawing, std::mt19937& random);

/// The names of letters as a builder takes them.
ShapeParameters ParametersOf(const ShapeDrawing& drawing, const FormulaNames& names);

/// What the drawing tells for these values.
std::vector<DrawnContour> ContoursOf(const ShapeDrawing& drawing, FormulaNames names);

/// Runs the builder on an emptied table and nothing else. Its error word is the result; the word was `before`.
std::int16_t BuildRaw(std::int16_t shapeId, const ShapeParameters& parameters, std::int16_t before = 0);

/// Types the values into the fields as far as the shape shows them, and develops it. The error word is the result.
std::int16_t DevelopWith(const ShapeDrawing& drawing, const FormulaNames& names);

/// "A=300; R=20", for messages.
std::string ValuesText(const ShapeDrawing& drawing, const FormulaNames& names);
