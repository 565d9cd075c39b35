// WindowBody.h -- plays the events of hard use on the real window: on no display, and on that of DISPLAY.
#pragma once

#include "support/SoakRun.h"

extern const SoakBody WindowBody;
extern const SoakBody WindowOnDisplayBody;
