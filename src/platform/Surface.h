// Surface.h -- the seam to drawing: pictures in world units with Y upward. The body that is linked paints, writes a
// vector file, or records the strokes for a test. Coordinates arrive as 32-bit floats.
#pragma once

#include <cstdint>

/// The drawing boxes by role.
enum class Picture : std::int16_t {
    Param,   ///< PicParam, the part on the Parameters screen
    Tecno,   ///< TecnoPic, the Cutting screen
    Nesting, ///< NestingPic, the sheet
};

/// What the next strokes look like. Width in pixels.
struct SurfacePen {
    std::uint32_t Rgb = 0; ///< 0xRRGGBB
    std::int16_t Width = 1;
    bool Dashed = false;
};

void SurfaceSetPen(Picture picture, const SurfacePen& pen);

void SurfaceLine(Picture picture, float x1, float y1, float x2, float y2);

/// A full circle.
void SurfaceCircle(Picture picture, float centreX, float centreY, float radius);

/// An arc, always counter-clockwise from `start` to `end`, angles in radians from 0 to 2 pi.
void SurfaceArc(Picture picture, float centreX, float centreY, float radius, float start, float end);
