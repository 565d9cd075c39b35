// Korvanta_PostProcessor.h -- from the current nest to an NC program: the post-processor table, its templates, the
// block writers and the walk that calls them.
#pragma once

#include "config/PprValues.h" // ReadPprValue
#include "platform/TextFile.h"
#include "state/AppState.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

// --- the table ------------------------------------------------------------------------------------------

/// Values of a program run, the input block with its dialog, and an empty collection buffer. A #V key of fewer than
/// four fields: RunTimeFault that names it.
void LoadPostProcessorValues();

/// LINENUMBER, LINENUMBER_START, LINENUMBER_STEP.
void LoadLineNumbering();

/// Fields 1 to 15 of a block vector; slot 0 is not used.
using VectorFields = std::array<std::string_view, 16>;

/// Splits at `delimiter`: the text trimmed, each rest left-trimmed. More than 15 fields: RunTimeFault.
void SplitVector(std::string_view text, char delimiter, VectorFields& fields, std::int16_t& count);

// --- templates --------------------------------------------------------------------------------------------

/// The four counters and four limits that reach the tags of a block.
struct BlockCounters {
    std::int32_t PartNr = 0;
    std::int32_t SubprogramNr = 0;
    std::int32_t ProfileNr = 0;
    std::int32_t TraceNr = 0;
    double XMin = 0.0;
    double YMin = 0.0;
    double XMax = 0.0;
    double YMax = 0.0;
};

/// File numbers of the writers.
inline constexpr std::int16_t FileNone = 0;        ///< simulation
inline constexpr std::int16_t FileProgram = 1;     ///< the open program
inline constexpr std::int16_t FileCollection = -1; ///< the collection buffer

/// The program being written; closed outside GenerateProgram.
extern TextWriter ProgramFile;

/// Text of a suppressed line.
inline constexpr std::string_view DontPrint = "don'tprint";

/// Where a template line stands in the table, for the text of a fault.
struct TemplatePlace {
    std::string_view Section;
    std::string_view Key;
};

/// Expands one template line in place. Result: the line is to be written. A template that can't be expanded is a
/// RunTimeFault that names `place` and the tag.
Flag ExpandLine(std::int16_t file, std::string& line, std::string_view vector, const BlockCounters& counters,
                Flag isInternal, const TemplatePlace& place = {});

/// Numbers `text` when asked to and sends it to its destination. A line number beyond 32 bits: RunTimeFault.
void WriteLine(std::int16_t file, std::string_view text, bool numbered);

/// The lines of a block from LINE1 on, as the table has them but for the mark of a numbered line.
std::vector<std::string> BlockLines(std::string_view section);

/// Whether a line of the block holds `text`, letters as they stand.
bool BlockHolds(std::string_view section, std::string_view text);

/// Writes LINE1.. to the file and COLLECTION1.. to the buffer; only the latter see the limits. `isInternal` is
/// ignored: every line is expanded as internal. A fault names section, line and tag.
void WriteBlock(std::int16_t file, std::string_view section, std::string_view vector,
                const BlockCounters& counters, Flag isInternal);

// --- block writers -----------------------------------------------------------------------------------------
// Each splits its vector, turns fields into counters and writes its block. A counter beyond 32 bits: RunTimeFault.

/// A real program: values, numbering, block, compensation off. A simulation: the head at its start.
void WriteProgramBegin(std::int16_t file);
/// Also stores the speed of the last simulation, or marks the simulation as stopped.
void WriteProgramEnd(std::int16_t file, std::string_view vector);
void WriteMainBegin(std::int16_t file, std::string_view vector);
void WriteMainEnd(std::int16_t file, std::string_view vector);
void WritePartHead(std::int16_t file, std::string_view vector);
void WritePartEnd(std::int16_t file, std::string_view vector);
void WriteStartCut(std::int16_t file, std::string_view vector);
void WriteEndCut(std::int16_t file, std::string_view vector);
void WriteEndLeadIn(std::int16_t file);
void WriteEndProfileCut(std::int16_t file);
void WriteFlyOff(std::int16_t file);
void WriteStartPoint(std::int16_t file, std::string_view vector);
void WritePoint(std::int16_t file, std::string_view vector);
void WriteEndPoint(std::int16_t file, std::string_view vector);
void WriteCallHead(std::int16_t file, std::string_view vector);
void WriteCall(std::int16_t file, std::string_view vector);
void WriteSubBegin(std::int16_t file, std::string_view vector);
void WriteSubEnd(std::int16_t file, std::string_view vector);
/// The two moves have no template: the line is composed of the words of the table.
void WriteLinear(std::int16_t file, std::string_view vector);
void WriteCircular(std::int16_t file, std::string_view vector);

// --- the walk ------------------------------------------------------------------------------------------------

/// Position of the nest's first cell in the program: within the edge, or with the path cursor's point at zero.
void ProgramOrigin(double& x, double& y);

/// The name of a program that is a simulation.
inline constexpr const char* SimulationName = "SIMULA";

/// Note for the control beside the program, with FTBLCNC=YES: the name of the last program.
inline constexpr const char* HandOverFile = "ftblcnc.dat";

/// File name of the program of job `name`: folders and all from the first "." cut, FILE_EXTENSION added.
std::string ProgramFileName(const std::string& name);

/// Writes the program of the current nest into `NcPath`; SimulationName walks without a file and shows the head, and one
/// at a time: keys that arrive meanwhile must not start another run, nor touch the part. Sets ProgramPath, ProgramLines,
/// ProgramCopies. Any failure is a RunTimeFault; the unfinished program then stays under its name + ".part". `old` is what
/// becomes of an earlier program of that name meanwhile.
void GenerateProgram(const std::string& name, OldFile old = OldFile::Removed);
