// Coverage.h -- which pixels a stroke covers, and how much of each. Strokes of one colour are gathered in a mask and laid
// over the picture at once, so that strokes that meet in a pixel add up instead of covering each other: joints are neither
// light nor dark, and contours of very short elements are as strong as long lines. Knows pixels only, no window system.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <vector>

/// How the strokes to come look, in pixels of the image.
struct StrokeStyle {
    int Width = 1;       ///< at least 1
    bool Smooth = true;  ///< false: a pixel is covered wholly or not at all
    double DashOn = 0.0; ///< length of a dash; 0 draws through
    double DashOff = 0.0;
};

/// The open end of strokes that follow one another, and where they began: corners are closed there.
struct StrokeChain {
    int Width = 0; ///< 0: no chain
    double X = 0.0;
    double Y = 0.0;
    double DirectionX = 0.0;
    double DirectionY = 0.0;
    double StartX = 0.0;
    double StartY = 0.0;
    double StartDirectionX = 0.0;
    double StartDirectionY = 0.0;
};

struct CoverageMask {
    int Width = 0;
    int Height = 0;
    std::vector<std::uint8_t> Cells;    ///< 255: covered wholly; by row * Width + column
    std::vector<std::uint32_t> Touched; ///< the cells above 0, each once
    std::array<StrokeChain, 4> Chains;  ///< the latest: a marker may come between two elements of a contour
    std::size_t LastChain = 0;
};

/// An arc of an ellipse along the axes: the point of an angle is (CentreX + RadiusX * cos, CentreY + RadiusY * sin), the
/// radii may be negative. Runs from Start over Sweep, which is not negative, in radians.
struct PixelArc {
    double CentreX = 0.0;
    double CentreY = 0.0;
    double RadiusX = 0.0;
    double RadiusY = 0.0;
    double Start = 0.0;
    double Sweep = 0.0;
};

/// Pixels around the image, and a pen's width more, in which strokes are still worked out.
inline constexpr double SeenAround = 4.0;

/// Pixels that are added before whole ones are chosen: round sizes often fall on the border between two, where the last
/// digit would decide.
inline constexpr double Slip = 1e-3;

/// An empty mask for an image of so many pixels.
void ResizeMask(CoverageMask& mask, int width, int height);

/// Empties the mask by its list of touched cells, and ends the chains.
void EmptyMask(CoverageMask& mask);

/// A line between two points; pixel (0, 0) spans 0 to 1. Lines along an axis cover whole pixels, the end pixels included.
/// Any numbers may come: what isn't finite covers nothing, what is out of the image costs nothing.
/// `travelled`: length of the stroke ahead of this line, from which its dashes count on.
void CoverLine(CoverageMask& mask, const StrokeStyle& style, double x1, double y1, double x2, double y2,
               double travelled = 0.0);

/// An arc, flattened into chords that nobody can tell from it. Costs no more than the part of it that is in the image.
void CoverArc(CoverageMask& mask, const StrokeStyle& style, const PixelArc& arc);
