// SoakStation.h -- the folder of the station that hard use works in: the shipped files, drawings and programs, and files
// that are none; and what somebody else does to it meanwhile.
#pragma once

#include "support/SoakEvents.h"
#include "support/TempFolder.h"

void MakeSoakStation(const TempFolder& station, const SoakSettings& settings);

/// One of a few changes to the files of the station in AppState: a job, a drawing or a program goes, a companion of a job is
/// cut off, a folder goes.
void DisturbFiles(std::int32_t number);
