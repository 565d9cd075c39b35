// Played.h -- what a control does with a program, cut by cut, and the checks that hold for every control.
#pragma once

#include "Job.h"

#include <string>
#include <vector>

/// From torch on to torch off.
struct PlayedCut {
    std::vector<Piece> Moves;
    int Word = 0; ///< compensation that the cut was made with: 1 left, -1 right, 0 none
};

struct Played {
    std::vector<PlayedCut> Cuts;
    std::vector<Spot> Marks;         ///< where the marker went down
    std::vector<std::string> Faults; ///< what no program may do: rapids with the torch on, a broken arc, ...
};

/// How far the path of the torch may be off, and how far beside the contour it runs.
struct Expected {
    double Radius = 0.0; ///< 0 for the programmed path
    double Tolerance = 0.01;
    bool Words = true; ///< closed profiles carry the word of the scrap's side
};

/// Lays each cut beside its contour: on the scrap side at the radius all the way but the leads, and no piece of the
/// contour left out. The result is empty, or tells what is wrong.
std::string Differences(const Job& job, const Played& played, const Expected& expected);
