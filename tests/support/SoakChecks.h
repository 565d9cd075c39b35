// SoakChecks.h -- what holds between any two events, whatever was done to the station.
#pragma once

#include <string>

/// The first rule that AppState breaks, empty when all hold.
std::string BrokenRule();

/// The first rule that the files of the station break: every program is whole, ends as its table tells, and nothing
/// unfinished lies about. Empty when all hold. `afterFault` allows the unfinished program of the run that failed.
std::string BrokenFile(bool afterFault);

/// True for a fault that hard use may end in: copies on one place, a part of too many elements.
bool IsToldFault(const std::string& text);

/// True when a walk over the copies of the nest in force would take long: such a program is nobody's test.
bool WalkIsLong();
