// BatchRun.h -- runs the real korvanta-batch in a station of its own.
#pragma once

#include "support/TempFolder.h"

#include <nlohmann/json.hpp>

#include <string>
#include <vector>

/// What a run left.
struct BatchResult {
    int Status = -1;
    std::string Output; ///< standard output
    std::string Errors; ///< standard error
};

/// A station with an English and an Italian catalogue column that can be told apart, plain folders NC and DXF, no
/// post-processor table, and these sources:
/// NC/plate.iso, 100 x 50 with a slot of 20 x 10, drawn counter-clockwise, no sides; NC/box.iso, the plate alone.
struct BatchStation {
    TempFolder Folder;

    BatchStation();

    /// Runs with `arguments` behind "--station FOLDER", in the folder `workFolder` of the station, with the shell text
    /// `prefix` ahead (such as "LC_ALL=de_DE.UTF-8").
    BatchResult Run(const std::vector<std::string>& arguments, const std::string& prefix = "",
                    const std::string& workFolder = ".") const;

    /// The same without naming a station.
    BatchResult RunBare(const std::vector<std::string>& arguments, const std::string& redirect = "") const;

    /// Runs with --json and gives the state; the status must be 0.
    nlohmann::json State(std::vector<std::string> arguments) const;
};
