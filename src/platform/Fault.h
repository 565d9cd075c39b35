// Fault.h -- what ends the program: a broken promise of a file or a table that no default can mend.
#pragma once

#include <stdexcept>
#include <string>

/// Thrown with a text that says what and where. Only main catches it, prints it and ends with a status.
struct RunTimeFault : std::runtime_error {
    using std::runtime_error::runtime_error;
};
