// Verification.h -- reads a written program back, line by line with the reader of ISO-IN, and compares it with the part.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

enum class VerifyOutcome {
    Same,      ///< every move of every copy is the part's
    Different, ///< Differences tells where it isn't
    Unreadable ///< the table makes programs that ISO-IN can't read; nothing was compared, Reason tells why
};

/// Differences beyond these are counted, not named.
inline constexpr std::size_t DifferencesNamed = 10;

struct Verification {
    VerifyOutcome Outcome = VerifyOutcome::Same;
    std::string Reason;
    std::vector<std::string> Differences; ///< one line each: copy, profile, element, expected and found
    std::int64_t DifferenceCount = 0;
    std::int64_t Copies = 0; ///< what the nest and the part ask for
    std::int64_t Cuts = 0;
    std::int64_t Moves = 0; ///< moves that were compared
    bool Sides = false;     ///< compensation was compared, too; a table without its words has none
};

/// Compares the program that GenerateProgram has just written (ProgramPath, ProgramLines, ProgramCopies, and ProgramSum
/// when it was kept) with the part and the nest in force: each move of each cut in order, its place within the three
/// decimals that are cut off, its direction, its centre, the side and the end of the compensation, the marks, and the
/// M words that the table puts around a cut. Needs the part, the nest, the fields and the table as they were for the
/// program; changes none of them, but the modal values of ISO-IN. Memory doesn't grow with the nest.
Verification VerifyProgram();

/// Takes a program that was found wrong out of use: it stands under its name + ".part" then, and the hand-over note for
/// the control goes. False when it keeps its name.
bool WithdrawProgram();
