// Korvanta_Parameters.h -- the catalogue of the seventy shapes: identifiers, parameter letters, defaults.
#pragma once

#include "state/Flag.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

/// Offsets of the families in ShapeId.
inline constexpr std::int16_t FamilyRect = 1000;
inline constexpr std::int16_t FamilyCircular = 2000;
inline constexpr std::int16_t FamilyHoles = 3000;

inline constexpr int MaxShapeParameters = 12;

/// Words of the two parameters that are captioned with a message instead of a letter.
inline constexpr std::string_view TailLetter = "Tail";
inline constexpr std::string_view SwapLetter = "Swap";

struct ShapeParameterRow {
    const char* Letter = nullptr; ///< null behind the last parameter
    double Default = 0.0;
};

struct ShapeRow {
    std::int16_t ShapeId;
    const char* Name; ///< "R-05"
    ShapeParameterRow Parameters[MaxShapeParameters];
};

/// All rows, in the order of the lists: R, C, H.
std::span<const ShapeRow> ShapeCatalogue();

/// The row of an identifier, null when there is none.
const ShapeRow* FindShape(std::int16_t shapeId);

/// The identifier of a list text such as "R-05", 0 when it names no shape of the catalogue.
std::int16_t ShapeIdOfName(std::string_view name);

/// How many parameters a row has.
int ParameterCount(const ShapeRow& row);

/// What stands beside the field of a parameter: its letter, or its word in the current language.
std::string ParameterCaption(std::string_view letter);

/// Shows as many parameter fields as the shape has, each with its caption; with `withDefaults` also its default
/// value, otherwise the texts stay. An identifier without a row shows none. Then draws the shape's dimensioned drawing.
void ShowShapeParameters(std::int16_t shapeId, Flag withDefaults);
