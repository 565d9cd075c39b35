// Strokes.h -- what every drawing shares: colours by name, and strokes from doubles.
#pragma once

#include "platform/Surface.h"
#include "state/AppState.h"

#include <cmath>
#include <cstdint>

inline constexpr std::uint32_t ColourBlack = 0x000000;
inline constexpr std::uint32_t ColourWhite = 0xFFFFFF;
inline constexpr std::uint32_t ColourRed = 0xFF0000;
inline constexpr std::uint32_t ColourGreen = 0x00FF00;
inline constexpr std::uint32_t ColourBlue = 0x0000FF;

// Of the basic palette of 16.
inline constexpr std::uint32_t ColourPaletteGreen = 0x008000;   ///< 2
inline constexpr std::uint32_t ColourPaletteCyan = 0x008080;    ///< 3
inline constexpr std::uint32_t ColourPaletteRed = 0x800000;     ///< 4
inline constexpr std::uint32_t ColourPaletteMagenta = 0x800080; ///< 5
inline constexpr std::uint32_t ColourPaletteGrey = 0x808080;    ///< 8

// Of the colour graphics adapter's palette of 16.
inline constexpr std::uint32_t ColourCgaBrown = 0xAA5500;     ///< 6
inline constexpr std::uint32_t ColourCgaLightBlue = 0x5555FF; ///< 9

/// A coordinate as the surface takes it. What no picture could show is cut to its edge, and no number is 0.
inline float ToSurface(double value)
{
    constexpr double Beyond = 1e30;
    if (!(std::fabs(value) <= Beyond)) {
        return static_cast<float>(value > 0.0 ? Beyond : value < 0.0 ? -Beyond : 0.0);
    }
    return static_cast<float>(value);
}

inline void DrawLine(Picture picture, double x1, double y1, double x2, double y2)
{
    SurfaceLine(picture, ToSurface(x1), ToSurface(y1), ToSurface(x2), ToSurface(y2));
}

/// World units of so many pixels, positive.
inline double PixelsX(double pixels)
{
    return pixels * std::fabs(AppState.UnitsPerPixelX);
}

inline double PixelsY(double pixels)
{
    return pixels * std::fabs(AppState.UnitsPerPixelY);
}
