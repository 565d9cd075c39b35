// Bitmap.h -- pixels as the bytes of a picture file.
#pragma once

#include <cstdint>
#include <span>
#include <string>

/// A bitmap file of 24 bits a pixel. `pixels` are 0xRRGGBB (higher bits don't count), rows from the top, width * height of
/// them.
std::string BitmapBytes(std::int32_t width, std::int32_t height, std::span<const std::uint32_t> pixels);
