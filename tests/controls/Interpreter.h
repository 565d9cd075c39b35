// Interpreter.h -- LinuxCNC's own interpreter, run on a program; what it would have the machine do is read from its list of
// canonical commands.
#pragma once

#include "Played.h"

struct Interpreted {
    bool Accepted = false;
    std::string Message; ///< why it was refused
    std::string Commands;
    Played Moves;
};

/// Fails the case when the interpreter isn't installed.
Interpreted Interpret(const std::string& program);

/// The reader of the list alone.
Played ReadCommands(const std::string& commands);
