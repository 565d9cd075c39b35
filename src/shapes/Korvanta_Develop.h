// Korvanta_Develop.h -- from the parameter fields of the current shape to a normalised element table.
#pragma once

#include <array>
#include <cstdint>

/// [i] is field i, from 1; what lies behind the fields in use is 0.
using ShapeParameters = std::array<double, 21>;

/// Error word of a builder's own failed check. Other words come from the geometry.
inline constexpr std::int16_t ErrBadShape = 1;

/// The current part, ready to be cut. A shape is developed from its fields; a part that was imported (ShapeId 0) stands
/// as it is; only the flags of a shape before it are cleared. False after the failure box; the lead data
/// that were to be kept are there then.
bool BuildCurrentPart();

/// What the current shape means for senses, leads and compensation: for a part whose tables came from a file.
void AdoptShape();

/// Empties the part's tables and develops ShapeId from the visible fields of ParamText. `err` 0 is success. No NaN and
/// no empty profile leaves without the word being set.
void DevelopShape(std::int16_t& err);

/// The eight records of a rounded rectangle about (cx, cy), counter-clockwise from the bottom edge's left end; the caller
/// closes it. Unless 2 r is below width and height: ErrBadShape and nothing is added.
void RoundedRectangle(const double& cx, const double& cy, const double& width, const double& height,
                      const double& r, std::int16_t& err);
