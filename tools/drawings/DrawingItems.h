// DrawingItems.h -- from a drawing's statements to the items that the station draws.
#pragma once

#include "DrawingText.h"
#include "state/PictureItem.h"

#include <vector>

/// Outline of the developed shape, then lines, fills and dimensions. A shape that its builder refuses, a parameter without
/// exactly one dimension, and one that the shape doesn't have throw std::runtime_error.
std::vector<PictureItem> ItemsOf(const DrawnShape& shape);
