// RecorderBody.h -- plays the events of hard use on the shell, with the window's focus played along.
#pragma once

#include "support/SoakRun.h"

extern const SoakBody RecorderBody;
