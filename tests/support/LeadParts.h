// LeadParts.h -- parts for tests of leads, written element by element.
#pragma once

#include "profile/Korvanta_ProfileCut.h"

#include <array>
#include <cstdint>
#include <vector>

using PlanePoint = std::array<double, 2>;

/// Profile classes, as an end mark carries them: leads of imported profiles snap onto corners.
inline constexpr double ImportedClass = 0.0;
inline constexpr double LibraryClass = 2.0;

/// Straight elements from each point to the next.
void AddLines(const std::vector<PlanePoint>& points, std::int16_t sense = 1);

/// One arc; radius above 0 counter-clockwise.
void AddArc(PlanePoint start, PlanePoint end, PlanePoint centre, double radius, std::int16_t sense = 1);

/// A straight element for bulge 0, else the arc whose bulge this is: tangent of a quarter of the sweep, above 0
/// counter-clockwise.
void AddBulge(PlanePoint start, PlanePoint end, double bulge, std::int16_t sense = 1);

/// An end mark where the last element ends. `area` is the signed area, 0 for an open profile.
void AddEnd(std::int16_t kind, double area, double profileClass = ImportedClass);

/// The square (0, 0) to (100, 100), counter-clockwise from its low corner, alone and measured, with lead records.
void MakeSquare(double profileClass);

/// A circle about (10, 10) of radius 10 from (20, 10), alone and measured, with a lead record.
void MakeCircle(double signedRadius, double profileClass = LibraryClass);

/// Two lines (0, 0) to (50, 0) to (50, 30), open, alone and measured, with a lead record.
void MakeOpenAngle();

/// Length of move j of a list.
double MoveLength(const std::vector<CutMove>& list, std::size_t j);
