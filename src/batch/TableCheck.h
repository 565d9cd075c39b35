// TableCheck.h -- what a program of this table and this part can't tell its control. Nobody looks at the program before it
// runs, either.
#pragma once

#include <string>
#include <vector>

/// Warnings, one line each, about the program that GenerateProgram wrote last: compensation that doesn't come or comes late,
/// arcs that a radius word leaves open, marking points that are left out or stand at the wrong place. Leaves the profile
/// table as it was.
std::vector<std::string> ProgramWarnings();
