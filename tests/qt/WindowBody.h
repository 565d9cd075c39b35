// WindowBody.h -- plays the events of hard use on the real window, on no display.
#pragma once

#include "support/SoakRun.h"

extern const SoakBody WindowBody;
