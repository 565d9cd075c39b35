// Painter.h -- the painting body of the drawing seam as a table of its routines, for a program that paints now and then and
// loads it only when it does: the module korvanta-painter.so beside the program.
#pragma once

#include "platform/Surface.h"

/// The routines of Surface.h by their names there; Resize gives a picture its size in pixels, and makes it white.
struct SurfacePainter {
    void (*Resize)(Picture picture, std::int32_t width, std::int32_t height);
    void (*Size)(Picture picture, std::int32_t& width, std::int32_t& height);
    void (*SetScale)(Picture picture, double left, double top, double width, double height);
    void (*Clear)(Picture picture);
    void (*SetPen)(Picture picture, const SurfacePen& pen);
    void (*Line)(Picture picture, float x1, float y1, float x2, float y2);
    void (*Box)(Picture picture, float x1, float y1, float x2, float y2);
    void (*FillBox)(Picture picture, float x1, float y1, float x2, float y2, std::uint32_t rgb);
    void (*Circle)(Picture picture, float centreX, float centreY, float radius);
    void (*Arc)(Picture picture, float centreX, float centreY, float radius, float start, float end);
    bool (*Bitmap)(Picture picture, std::int32_t width, std::int32_t height, std::string& bytes);
};

/// The one name that the module tells: a routine without arguments that gives the table.
inline constexpr const char* PainterEntry = "KorvantaPainter";
using PainterEntryRoutine = const SurfacePainter* (*)();
