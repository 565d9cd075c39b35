// StateJson.h -- the state after a run as JSON text.
#pragma once

#include <string>

/// The whole state; `withProgram` when a program was written. Numbers with 17 significant digits in every locale.
/// A nest of millions of copies is a RunTimeFault.
std::string StateJson(bool withProgram);

/// The catalogue of shapes: identifier, name, letters with defaults.
std::string ShapesJson();
