// RecordingSurface.h -- the body of the drawing seam for tests: each stroke becomes a line of text.
#pragma once

#include "platform/Surface.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

struct SurfaceRecord {
    bool Shown = false; ///< what PictureShown answers; most cases need no strokes

    bool Kept = true;       ///< off, strokes are only looked at: for nests of millions of them
    bool AllNumbers = true; ///< with Kept off: no stroke so far was at a place that is none

    /// "line 0 0 10 0 #000000 1", "box ...", "circle x y r ...", "arc x y r 0 90 ..." (degrees), each with colour and
    /// width of the pen, then " dashed", " inverting"; "fill 0 0 10 5 #ffffff"; "flood 3 4 #ffffff to
    /// #000000"; "pixel 3 4 #00ff00";
    /// "text 1 2 'abc' #000000"; "clear", "scale left top width height", "font 15", "font 15 bold", "bitmap 120 155",
    /// "cross pointer", "normal pointer".
    std::vector<std::string> Strokes;
    std::vector<Picture> Pictures; ///< of each stroke
    SurfacePen Pen;
    bool Paints = true;                            ///< what SurfaceBitmap answers: a picture of one pixel
    std::array<std::uint32_t, 1> Pixel{0x00FF00U}; ///< its colour
};

extern SurfaceRecord Drawn;

/// Pixels of the recorder's letters: a text measures 8 per character and 20 in height.
inline constexpr double RecordedLetterWidth = 8.0;
inline constexpr double RecordedLetterHeight = 20.0;

/// The strokes so far, which are then forgotten.
std::vector<std::string> TakeStrokes();

/// Those of them that begin with `start`.
std::vector<std::string> TakeStrokesLike(const std::string& start);
