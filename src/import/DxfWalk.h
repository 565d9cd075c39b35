// DxfWalk.h -- last stage of the drawing reader: goes over the rows of a drawing, through its inserts, and hands out records.
#pragma once

#include "import/DrawingReader.h"
#include "import/DxfCurves.h"
#include "import/DxfModel.h"
#include "import/DxfPlane.h"

#include <cstdint>
#include <vector>

/// Largest coordinate or radius of a drawing; an entity beyond it is left out.
inline constexpr double MaxCoordinate = 1e10;

/// What the first of the two walks learns.
struct DrawingBounds {
    bool Any = false;
    double MinX = 0.0; ///< box of the points on the geometry
    double MinY = 0.0;
    double MaxX = 0.0;
    double MaxY = 0.0;
    double Reach = 0.0; ///< largest coordinate by size, arc centres included
};

struct DxfWalk {
    const DxfModel* Model = nullptr;
    bool Measuring = false; ///< the first walk: fills Bounds, hands out nothing
    DrawingBounds Bounds;
    double OffsetX = 0.0; ///< whole numbers taken off every coordinate
    double OffsetY = 0.0;
    DxfCallback Callback = nullptr;
    void* Context = nullptr;
    bool Ended = false;             ///< by the callback
    bool Exhausted = false;         ///< the inserts or curves multiply beyond any use
    std::int64_t Budget = 0;        ///< steps left for inserts and curves
    std::vector<std::int64_t> Read; ///< counts by name number
    std::vector<std::int64_t> LeftOut;
    std::vector<char> OpenBlocks; ///< blocks being inserted, by number
    int Depth = 0;
    bool Delivered = false;       ///< the shape at hand gave a record
    std::int64_t ShapesGiven = 0; ///< shapes that did, so far
    CurvePieces Pieces;           // scratch, from here on
    std::vector<PlanePoint> Points;
    std::vector<PlanePoint> Straight;
    std::vector<PlanePoint> Run;
    std::vector<float> Floats;
};

/// Walks the whole drawing once. The caller sets up the members above.
void WalkDrawing(DxfWalk& walk);

// --- what the shapes are made of (DxfEmit.cpp): each measures or hands out -----------------------------------

/// False for what isn't a number or is absurdly far away.
bool IsUsable(const PlanePoint& point);

void EmitLine(DxfWalk& walk, const PlanePoint& a, const PlanePoint& b);
void EmitPoint(DxfWalk& walk, const PlanePoint& point);

/// A kind that gives no geometry.
void EmitIgnored(DxfWalk& walk, std::int16_t kind);

/// Points in a row, as a vertex list of that kind; long ones in several records that share their joint.
void EmitRun(DxfWalk& walk, std::int16_t kind, const std::vector<PlanePoint>& points);

/// An arc or ellipse centre + axis1 cos t + axis2 sin t, t from `start` over `sweep` (radians, above 0; 2 pi with `full`).
struct RoundShape {
    PlanePoint Centre;
    PlanePoint Axis1;
    PlanePoint Axis2;
    double Start = 0.0;
    double Sweep = 0.0;
    bool Full = false;
    bool OwnStart = false;   ///< a full turn starts at its own start, even a circle
    bool Parametric = false; ///< a full turn that is no circle starts at its own start
    bool HasEnds = false;    ///< From and To are the exact ends
    PlanePoint From;
    PlanePoint To;
};

/// As a true arc of `kind` when it is round, else as vertices.
void EmitRound(DxfWalk& walk, std::int16_t kind, const RoundShape& round);

/// walk.Pieces, flattened.
void EmitPieces(DxfWalk& walk);

// --- DxfShapes.cpp ---------------------------------------------------------------------------------------------

/// One shape that isn't an insert. Sets walk.Delivered when it gave geometry.
void WalkShape(DxfWalk& walk, const DxfShape& shape, const DxfMatrix& matrix);

/// A SPLINE (DxfSplines.cpp).
void WalkSpline(DxfWalk& walk, const DxfShape& shape, const DxfMatrix& matrix);
