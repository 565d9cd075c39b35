// DrawingReader.h -- reads a DXF drawing and hands out its entities: lines, arcs, vertex lists and points, in drawing
// order, blocks resolved, projected to the plane.
#pragma once

#include <array>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// Values of DxfEntity::Kind.
inline constexpr std::int16_t DxfLine = 6;
inline constexpr std::int16_t DxfArc = 8;
inline constexpr std::int16_t DxfCircle = 9;
inline constexpr std::int16_t DxfPolyline = 10;
inline constexpr std::int16_t DxfLwPolyline = 11;
inline constexpr std::int16_t DxfCurve = 12; ///< SPLINE and ELLIPSE as vertices
inline constexpr std::int16_t DxfText = 15;
inline constexpr std::int16_t DxfMText = 16;
inline constexpr std::int16_t DxfIgnored = 17;
inline constexpr std::int16_t DxfArcPiece = 18; ///< arc of a bulged polyline, circular ELLIPSE
inline constexpr std::int16_t DxfPoint = 19;

using DxfPoint3 = std::array<float, 3>;

/// What the callback sees. Coordinates are less the drawing's offset (see DrawingAccount).
struct DxfEntity {
    std::int16_t Kind = 0;
    std::int16_t PointCount = 0;     ///< vertices of kinds 10 to 12; longer lists come in several entities
    DxfPoint3 P1{};                  ///< line start, arc centre, the point
    DxfPoint3 P2{};                  ///< line end; P2[0] is an arc's radius
    DxfPoint3 P3{};                  ///< arc start, counter-clockwise
    DxfPoint3 P4{};                  ///< arc end
    const float* Vertices = nullptr; ///< PointCount pairs, for DXFConvert
};

/// What was met in a drawing, for the account of an import.
struct DrawingAccount {
    std::map<std::string, std::int64_t>
        Read; ///< entities by DXF type name, contents of inserts per insertion
    std::map<std::string, std::int64_t> LeftOut; ///< the same for what gives no geometry
    double OffsetX = 0.0;                        ///< whole number subtracted from every coordinate
    double OffsetY = 0.0;
    bool CutOff = false; ///< there is no EOF at the end
};

struct Drawing;

/// Returns 0 to go on, anything else ends the enumeration.
using DxfCallback = int (*)(const DxfEntity& entity, void* context);

/// Opens a drawing; null when it can't be read or is no DXF. ".dwg" gives null.
Drawing* DXFCreate(const std::string& path);

/// The same for a drawing in memory; the bytes aren't needed afterwards.
Drawing* OpenDrawingBytes(std::string_view bytes);

/// Why DXFCreate gave null for that path, in one line.
std::string DrawingRefusal(const std::string& path);

/// Curves stay curves (flag 0, the only mode). Non-zero on success.
int DXFProhibitCurvesAsPoly(Drawing* drawing, int flag);

/// Hands each entity to the callback, in drawing order, what stands in an insert at the insert's place. Entities that give no
/// geometry come too, by their kind alone; those of paper space don't. False when inserts or curves multiply beyond any
/// use: the walk ends there.
bool DXFEnum(Drawing* drawing, int flag, DxfCallback callback, void* context);

/// The vertices of a polyline kind, n x 2.
void DXFConvert(std::vector<std::array<float, 2>>& vertices, const DxfEntity& entity);

/// The account so far; complete after DXFEnum.
const DrawingAccount& DXFAccount(const Drawing* drawing);

/// Releases the drawing; null is allowed.
void DXFClose(Drawing* drawing);
