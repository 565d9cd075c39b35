// Measure.h -- measuring with the mouse on the drawings of the Cutting and Nesting screens: a rubber line while the button
// is down, then the line with its length. Positions in world units of the picture.
#pragma once

#include "platform/Surface.h"

/// The left button went down.
void PressMeasure(Picture picture, double x, double y);

/// The pointer moved; without the button down nothing.
void MoveMeasure(Picture picture, double x, double y);

/// A button went up: the left one draws the line in blue with its lengths, any puts the normal pointer back.
void ReleaseMeasure(Picture picture, bool left);
