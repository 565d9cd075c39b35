// RandomCase.h -- parts, leads and nests by chance, as texts of cases.
#pragma once

#include <random>
#include <string>

/// Triangles, circles and open lines with random leads, in a random nest.
std::string RandomCase(std::mt19937& random);
