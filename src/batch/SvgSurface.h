// SvgSurface.h -- the body of the drawing seam that writes a vector file, and the picture of the part drawn on it.
#pragma once

#include <string>

/// The current part with its leads, rapid lines and markers of direction, as an SVG text: the strokes of the screens.
std::string PartSvg();
