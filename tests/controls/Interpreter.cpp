#include "Interpreter.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdlib>
#include <sstream>
#include <sys/wait.h>

namespace
{
/// Ends of an arc may lie on circles that differ by so much: the program cuts numbers after three decimals, and the
/// interpreter prints four.
constexpr double RoundArc = 0.005;

struct Machine {
    Played Result;
    Spot At;
    bool Millimetres = false;
    bool Torch = false;
    bool Ended = false;
    int Word = 0;
};

/// What stands between the brackets behind `command`; false when the line holds another one.
bool Arguments(const std::string& line, const std::string& command, std::string& arguments)
{
    const std::size_t at = line.find(" " + command + "(");
    if (at == std::string::npos) {
        return false;
    }
    const std::size_t from = at + command.size() + 2;
    arguments = line.substr(from, line.rfind(')') - from);
    return true;
}

std::vector<double> Numbers(const std::string& arguments)
{
    std::vector<double> numbers;
    std::istringstream list(arguments);
    for (std::string number; std::getline(list, number, ',');) {
        numbers.push_back(std::stod(number));
    }
    return numbers;
}

void Fault(Machine& machine, const std::string& what, const std::string& line)
{
    machine.Result.Faults.push_back(what + ": " + line);
}

void Feed(Machine& machine, const Piece& piece, const std::string& line)
{
    if (!machine.Torch || machine.Result.Cuts.empty()) {
        Fault(machine, "a cutting move with the torch off", line);
        return;
    }
    PlayedCut& cut = machine.Result.Cuts.back();
    if (cut.Moves.empty()) {
        cut.Word = machine.Word;
    } else if (cut.Word == 0 && machine.Word != 0) {
        Fault(machine, "compensation comes on within a cut", line);
    } else if (cut.Word != machine.Word) {
        Fault(machine, "compensation changes within a cut", line);
    }
    if (!machine.Millimetres) {
        Fault(machine, "a move in inches", line);
    }
    if (piece.Arc && std::fabs(Far(piece.Start, piece.Centre) - Far(piece.End, piece.Centre)) > RoundArc) {
        Fault(machine, "an arc that misses its end", line);
    }
    cut.Moves.push_back(piece);
    machine.At = piece.End;
}

void Rapid(Machine& machine, const Spot& to, const std::string& line)
{
    if (machine.Torch) {
        Fault(machine, "a rapid with the torch on", line);
    }
    if (machine.Word != 0) {
        Fault(machine, "a rapid under compensation", line);
    }
    if (!machine.Millimetres) {
        Fault(machine, "a rapid in inches", line);
    }
    machine.At = to;
}

/// Words of the torch and of compensation.
void Switch(Machine& machine, const std::string& line)
{
    std::string arguments;
    if (Arguments(line, "START_SPINDLE_CLOCKWISE", arguments)) {
        if (machine.Torch) {
            Fault(machine, "torch on twice", line);
        }
        machine.Torch = true;
        machine.Result.Cuts.emplace_back();
    } else if (Arguments(line, "STOP_SPINDLE_TURNING", arguments)) {
        machine.Torch = false;
    } else if (Arguments(line, "COMMENT", arguments)) {
        if (arguments.find("cutter radius compensation on left") != std::string::npos) {
            machine.Word = 1;
        } else if (arguments.find("cutter radius compensation on right") != std::string::npos) {
            machine.Word = -1;
        } else if (arguments.find("cutter radius compensation off") != std::string::npos) {
            machine.Word = 0;
        }
    } else if (Arguments(line, "SET_AUX_OUTPUT_BIT", arguments)) {
        if (machine.Torch) {
            Fault(machine, "a mark with the torch on", line);
        }
        machine.Result.Marks.push_back(machine.At);
    } else if (Arguments(line, "USE_LENGTH_UNITS", arguments)) {
        machine.Millimetres = arguments == "CANON_UNITS_MM";
    } else if (Arguments(line, "PROGRAM_END", arguments)) {
        machine.Ended = true;
    }
}

void Command(Machine& machine, const std::string& line)
{
    std::string arguments;
    if (Arguments(line, "STRAIGHT_TRAVERSE", arguments)) {
        const std::vector<double> to = Numbers(arguments);
        Rapid(machine, {to[0], to[1]}, line);
    } else if (Arguments(line, "STRAIGHT_FEED", arguments)) {
        const std::vector<double> to = Numbers(arguments);
        Feed(machine, StraightPiece(machine.At, {to[0], to[1]}), line);
    } else if (Arguments(line, "ARC_FEED", arguments)) {
        const std::vector<double> to = Numbers(arguments);
        if (std::fabs(std::fabs(to[4]) - 1.0) > 0.0) {
            Fault(machine, "more than one turn", line);
        }
        Feed(machine, ArcPiece(machine.At, {to[0], to[1]}, {to[2], to[3]}, to[4] > 0.0), line);
    } else {
        Switch(machine, line);
    }
}
} // namespace

Played ReadCommands(const std::string& commands)
{
    Machine machine;
    std::istringstream lines(commands);
    for (std::string line; std::getline(lines, line);) {
        Command(machine, line);
    }
    if (machine.Torch || machine.Word != 0 || !machine.Ended) {
        Fault(machine, "the program ends with the torch on, under compensation, or not at all", "end");
    }
    return machine.Result;
}

Interpreted Interpret(const std::string& program)
{
    const TempFolder folder;
    folder.Write("job.ngc", program);
    // The interpreter keeps its parameters in the home and the working folder: each run has its own.
    const std::string command = "cd '" + folder.Path + "' && HOME='" + folder.Path +
                                "' rs274 -g job.ngc commands >/dev/null 2>errors </dev/null";
    const int status = std::system(command.c_str());
    Interpreted result;
    if (!WIFEXITED(status) || WEXITSTATUS(status) == 127) {
        ADD_FAILURE() << "rs274 isn't installed: it comes with linuxcnc-uspace";
        return result;
    }
    result.Accepted = WEXITSTATUS(status) == 0;
    result.Message = folder.Read("errors");
    if (folder.Holds("commands")) {
        result.Commands = folder.Read("commands");
    }
    if (result.Accepted) {
        result.Moves = ReadCommands(result.Commands);
    }
    return result;
}
