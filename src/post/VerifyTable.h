// VerifyTable.h -- what the post-processor table says about reading its programs back.
#pragma once

#include <string>
#include <vector>

struct VerifyTable {
    bool Sides = false;             ///< the program has compensation words
    bool SideEndsEarly = false;     ///< a block ahead of the lead-out ends compensation
    bool Marks = false;             ///< marks are places of rapids
    double FlyOff = 0.0;            ///< FLYOFFDIM
    std::string RadiusWord;         ///< address of the radius, empty for none
    std::vector<double> WordsAhead; ///< M words that must stand between the rapid and the first move of a cut
    std::vector<double> WordsBehind; ///< and behind the last move
    std::vector<double> NotAhead;    ///< those that put the torch out, and must not stand there
    std::vector<double> NotBetween;  ///< the same between the moves of a cut
    std::vector<double>
        NotBehind; ///< those that light it, and must not stand between a cut and the next rapid
};

/// Fills `table` from the values that the last program left in AppState and from the blocks. The result tells why programs
/// of the table can't be read back; empty when they can.
std::string ReadVerifyTable(VerifyTable& table);
