// MeasuringSurface.h -- a body of the drawing seam that keeps strokes and texts as figures in pixels, with letters of a
// usual screen font.
#pragma once

#include "platform/Surface.h"

#include <cstdint>
#include <string>
#include <vector>

struct MeasuredLine {
    double X1, Y1, X2, Y2; ///< pixels, Y downward; arcs come as short pieces
    std::int16_t Width;
    std::uint32_t Rgb;
};

struct MeasuredText {
    std::string Text;
    double Left, Top, Right, Bottom; ///< what its letters cover
};

struct MeasuredPicture {
    std::int32_t Width = 640;
    std::int32_t Height = 480;
    double Left = 0.0;
    double Top = 0.0;
    double UnitsPerPixel = 1.0;
    double FontPixels = 16.0;
    SurfacePen Pen;
    std::vector<MeasuredLine> Lines;
    std::vector<MeasuredText> Texts;
};

extern MeasuredPicture Measured;
