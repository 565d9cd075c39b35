// Surface.h -- the seam to drawing: pictures in world units with Y upward. The body that is linked paints, writes a
// vector file, or records the strokes for a test. Coordinates arrive as 32-bit floats.
#pragma once

#include <cstdint>
#include <string>

/// The drawing boxes by role.
enum class Picture : std::int16_t {
    Param,   ///< PicParam, the part on the Parameters screen
    Tecno,   ///< TecnoPic, the Cutting screen
    Nesting, ///< NestingPic, the sheet
    Preview, ///< PictureNestingBmp, the preview on the Input screen
};

/// What the next strokes look like. Width in pixels.
struct SurfacePen {
    std::uint32_t Rgb = 0; ///< 0xRRGGBB
    std::int16_t Width = 1;
    bool Dashed = false;
    bool Inverting = false; ///< exclusive-or with what is there: drawn a second time the stroke is gone
};

/// False when nobody sees the pictures: scenes then leave out their strokes, and do all the rest.
bool PictureShown();

/// Size of a picture in pixels.
void SurfaceSize(Picture picture, std::int32_t& width, std::int32_t& height);

/// The user scale: world coordinates of the left and top edges, world width, and world height, which is negative.
void SurfaceSetScale(Picture picture, double left, double top, double width, double height);

/// Takes every stroke away.
void SurfaceClear(Picture picture);

/// Font of the texts to come, its size in points.
void SurfaceSetFont(Picture picture, std::int16_t points, bool bold = false);

void SurfaceSetPen(Picture picture, const SurfacePen& pen);

void SurfaceLine(Picture picture, float x1, float y1, float x2, float y2);

/// The outline of a box between two corners, in the pen; each pixel once.
void SurfaceBox(Picture picture, float x1, float y1, float x2, float y2);

/// A box filled with one colour, without an outline.
void SurfaceFillBox(Picture picture, float x1, float y1, float x2, float y2, std::uint32_t rgb);

/// One pixel in one colour, whatever the pen.
void SurfacePixel(Picture picture, float x, float y, std::uint32_t rgb);

/// Fills the area around (x, y) up to strokes of the colour `border`, and up to the edges of the picture. Nothing when the
/// point lies outside the picture or on such a stroke.
void SurfaceFloodFill(Picture picture, float x, float y, std::uint32_t rgb, std::uint32_t border);

/// A full circle.
void SurfaceCircle(Picture picture, float centreX, float centreY, float radius);

/// An arc, always counter-clockwise from `start` to `end`, angles in radians from 0 to 2 pi.
void SurfaceArc(Picture picture, float centreX, float centreY, float radius, float start, float end);

/// A text whose upper left corner stands at (x, y).
void SurfaceText(Picture picture, float x, float y, const std::string& text, std::uint32_t rgb);

/// Size of a text in world units, both positive.
void SurfaceTextSize(Picture picture, const std::string& text, double& width, double& height);

/// The picture as it stands, as the bytes of a bitmap file of so many pixels. False where nobody paints.
bool SurfaceBitmap(Picture picture, std::int32_t width, std::int32_t height, std::string& bytes);

/// The pointer over a picture: a cross while something is measured, else the normal one.
void SurfaceSetCrossPointer(Picture picture, bool cross);
