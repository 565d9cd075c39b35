// CheckDrawing.h -- whether a drawing can be read: at every usual size of the picture, and whichever letter stands out.
#pragma once

#include "state/PictureItem.h"

#include <cstdint>
#include <string>
#include <vector>

/// What is wrong with the drawing of a shape, each thing once: a letter over a letter, over the outline, over a dimension
/// line, over the logo, or out of the picture.
std::vector<std::string> FaultsOf(std::int16_t shapeId, const std::vector<PictureItem>& items);
