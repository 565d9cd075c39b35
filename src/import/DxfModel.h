// DxfModel.h -- a drawing in memory: every entity that gives geometry as a row and its numbers, blocks as ranges of rows.
// Filled in one pass over the bytes (DxfSections, DxfEntities), walked by DxfWalk.
#pragma once

#include "import/DxfScan.h"

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

/// What a row's numbers mean, in this order. Angles in degrees, parameters of an ellipse in radians.
enum class DxfShapeType : std::uint8_t {
    Ignored,    ///< none
    PaperSpace, ///< none; the entity isn't part of the drawing proper
    Line,       ///< start x y z, end x y z
    Point,      ///< x y z
    Circle,     ///< centre x y z, radius, normal x y z
    Arc,        ///< centre x y z, radius, normal x y z, start angle, end angle
    Ellipse,    ///< centre x y z, major axis x y z, normal x y z, ratio, start and end parameter
    Polyline,   ///< elevation, normal x y z, then x y bulge per vertex
    Polyline3d, ///< x y z per vertex
    Spline,     ///< see SplineNumbers, then knots, control points x y z, weights, fit points x y z
    Insert      ///< place x y z, scale x y z, angle, columns, rows, column step, row step, normal x y z
};

/// The leading numbers of a Spline row.
enum SplineNumbers : std::uint8_t {
    SplineDegree,
    SplineKnots, ///< counts of what follows
    SplineControls,
    SplineWeights,
    SplineFits,
    SplineStartTangent,                        ///< x y z, all 0 when not given
    SplineEndTangent = SplineStartTangent + 3, ///< the same
    SplineHead = SplineEndTangent + 3
};

struct DxfShape {
    DxfShapeType Type = DxfShapeType::Ignored;
    bool Closed = false;     ///< polylines, splines
    std::int16_t Kind = 0;   ///< Kind of the delivered record
    std::uint32_t Name = 0;  ///< index in DxfModel::Names
    std::uint32_t Block = 0; ///< inserts: index in DxfModel::Blocks
    std::size_t First = 0;   ///< its numbers in DxfModel::Numbers
    std::size_t Count = 0;
};

struct DxfBlock {
    bool Defined = false; ///< false while it is only known from an insert
    bool Paper = false;   ///< a paper-space layout
    bool Plain = true;    ///< holds nothing but ignored entities
    double Base[3] = {0.0, 0.0, 0.0};
    std::size_t First = 0; ///< its rows in DxfModel::BlockShapes
    std::size_t End = 0;
};

struct DxfModel {
    std::vector<DxfShape> Entities;
    std::vector<DxfShape> BlockShapes;
    std::vector<double> Numbers;
    std::vector<std::string> Names; ///< DXF type names as met
    std::unordered_map<std::string, std::uint32_t> NameIndex;
    std::vector<DxfBlock> Blocks;
    std::unordered_map<std::string, std::uint32_t> BlockIndex; ///< by name in upper case
    bool Complete = false;                                     ///< its end mark was read
};

/// Reading state. Group is the group that was read last; after a record it is the head (code 0) of the next one.
struct DxfParser {
    DxfScanner Scanner;
    DxfGroup Group;
    DxfModel* Model = nullptr;
    std::vector<DxfShape>* Target = nullptr; ///< where the next row goes: Entities or BlockShapes
    bool AtEnd = false;
    bool Paper = false;    ///< the record at hand carries the paper-space mark
    bool Embedded = false; ///< an embedded object began: its codes mean something else
    bool Braces = false;   ///< within another application's data
    std::vector<double> Scratch[4];
    std::vector<std::uint32_t>
        RowNames; ///< name numbers of the known types, by row; 0xFFFFFFFF before the first
};

/// Starts the fields of a record.
void BeginRecord(DxfParser& parser);

/// The next field of the record at hand; false at the next record's head and at the end. Other applications' data,
/// embedded objects and the paper-space mark are dealt with here.
bool NextField(DxfParser& parser);

/// Index of a type name, made fit for an account: printable ASCII, at most 40 characters.
std::uint32_t NameNumber(DxfModel& model, std::string_view name);

/// Index of a block, made when it isn't known yet. Names are compared without regard to case.
std::uint32_t BlockNumber(DxfModel& model, std::string_view name);

/// Reads the entity whose head is at hand, with all that belongs to it, and adds its row. A name that gives no
/// geometry adds a row too, unless `knownOnly`.
void ReadEntity(DxfParser& parser, bool knownOnly);

/// Reads a whole drawing. False when the bytes are no DXF.
bool ReadDrawing(std::string_view bytes, DxfModel& model);
