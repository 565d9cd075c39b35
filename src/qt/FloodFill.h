// FloodFill.h -- filling an area of an image up to the strokes around it.
#pragma once

#include <QImage>

#include <cstdint>

/// Fills the area around the pixel (x, y) of an RGB32 image with `rgb`, up to the edges of the image and to strokes of the
/// colour `border`, of which a pixel must be covered by half to count. What smooth strokes cover less is mixed anew, so
/// that no pale seam stays. Nothing when the pixel lies outside or on such a stroke.
void FloodFill(QImage& image, int x, int y, std::uint32_t rgb, std::uint32_t border);
