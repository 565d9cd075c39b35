// Road.h -- the road of one part from its source to its program, as an operator would walk it.
#pragma once

#include "batch/Options.h"

/// Start, open, fields, screens, save, results. The exit status; what can't be made and has no box is a RunTimeFault.
int RunRoad(const BatchOptions& options);

/// Deletes the job that --delete names, with all that belongs to it. The exit status.
int DeleteSavedJob(const BatchOptions& options);

/// The catalogue of shapes as text lines, or as JSON where --json says. The exit status.
int ListShapes(const BatchOptions& options);
