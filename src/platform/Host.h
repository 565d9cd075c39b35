// Host.h -- the seam to the host of a CNC control under whose screen the station runs: three operations on two objects
// of the host, each made when it is first needed and kept until the end. The body that is linked decides: the session
// bus behind the window, none in the batch tool, or the recorder of the tests.
#pragma once

#include <cstdint>
#include <string>

/// The first object's language index. False when there is no host or none that answers; `index` is then left alone.
bool ReadHostLanguage(std::int32_t& index);

/// Tells the first object that the station is there. What it answers is dropped. RunTimeFault without an answer.
void AnnounceToHost(std::int32_t number);

/// Hands an NC program, a path as the operator writes it, to the second object. What it answers is dropped. RunTimeFault
/// without an answer.
void OpenAtHost(const std::string& path, std::int32_t number);
