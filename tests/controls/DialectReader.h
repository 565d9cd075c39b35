// DialectReader.h -- a control of the tests' own for programs in plain ISO words and in those of GRBL 1.1: it plays a
// program word by word, calls sub-programs, and refuses what such a control refuses. It shares nothing with the program.
#pragma once

#include "Played.h"

#include <set>
#include <string>

/// What tells one control from another.
struct Dialect {
    std::set<std::string> TorchOn;  ///< "M3"
    std::set<std::string> TorchOff; ///< "M5"
    std::set<std::string> Known;    ///< G and M words without a meaning for the path, "G94", "M8"
    bool Grbl = false;              ///< with GRBL's own limits
};

/// The path as it is programmed, and for each cut what was said beside the moves: G and M words but those of the motion, and
/// feeds.
struct PlayedDialect {
    Played Moves;
    std::vector<std::string> Setups;  ///< from the rapid to the first move, "M24 M22 G4P25 M3 G4P1.5 F250"
    std::vector<std::string> Withins; ///< between the moves
    std::vector<std::string> Ends;    ///< from the last move to the next rapid or the end, "M5 M25 G40"
    std::vector<double> Feeds;        ///< of the last move
};

PlayedDialect PlayDialect(const std::string& program, const Dialect& dialect);
