// Options.h -- the command line of korvanta-batch as a record.
#pragma once

#include "state/AppState.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// One `--set` or `--key`, to be done on `Screen`.
struct BatchStep {
    std::int16_t Screen = ScreenCutting;
    std::int16_t Field = 0;      ///< index of the field of a `--set`
    std::string Value;           ///< its text
    void (*Key)(void) = nullptr; ///< routine of a `--key`; null for a `--set`
};

/// One `--param`: the value of the field of that index.
struct BatchParameter {
    std::size_t Field = 0;
    std::string Value;
};

struct BatchOptions {
    std::string Source;
    std::int16_t ShapeId = 0;               ///< of a source that names a shape of the catalogue, else 0
    std::vector<BatchParameter> Parameters; ///< in the order given
    bool ListShapes = false;                ///< print the catalogue and nothing else
    std::string Station;                    ///< absolute, without a trailing separator
    std::int16_t Language = 0;              ///< 0: as the configuration says
    std::vector<BatchStep> Steps;           ///< in the order given
    std::array<std::optional<std::string>, PprInputSlots + 1> Inputs; ///< slots from 1
    std::string Program;                                              ///< empty: none is written
    std::string Save;                                                 ///< name of a job; empty: none is saved
    std::string Delete;  ///< name of a job to delete, and nothing else
    std::string Out;     ///< absolute; empty: NC_PATH
    std::string Json;    ///< absolute, or "-"; empty: none
    std::string Svg;     ///< absolute; empty: none
    bool Verify = false; ///< read each written program back and compare it with the part
    bool Remember = false;
    bool Quiet = false;
};

/// Exit statuses.
inline constexpr int StatusDone = 0;
inline constexpr int StatusFailed = 1;     ///< the part or its program could not be made
inline constexpr int StatusWrongUse = 2;   ///< the command line makes no sense
inline constexpr int StatusUnverified = 3; ///< written, but --verify can't read programs of this table

/// The folder that the running program lies in, without a trailing separator.
std::string ProgramFolder();

/// Fills `options`. False when the run ends here (help, version, wrong use): the text is out, `status` is set.
bool ReadOptions(int argc, const char* const* argv, BatchOptions& options, int& status);
