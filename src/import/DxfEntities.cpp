// One reader per entity type: the groups of a record to a row and its numbers.
#include "import/DrawingReader.h"
#include "import/DxfModel.h"

#include <algorithm>

namespace
{

using EntityReader = void (*)(DxfParser& parser, DxfShape& shape);

constexpr std::size_t ArcNumbers = 9;

/// Stores the value of a point's group (base, base + 10, base + 20) when the group at hand is one.
bool TakePoint(const DxfParser& parser, int base, double* point)
{
    const int offset = parser.Group.Code - base;
    if (offset != 0 && offset != 10 && offset != 20) {
        return false;
    }
    point[offset / 10] = GroupNumber(parser.Group);
    return true;
}

template <std::size_t N>
void StoreNumbers(DxfParser& parser, DxfShape& shape, DxfShapeType type, const double (&numbers)[N])
{
    shape.Type = type;
    parser.Model->Numbers.insert(parser.Model->Numbers.end(), numbers, numbers + N);
}

void ReadNothing(DxfParser& parser, DxfShape& shape)
{
    shape.Type = DxfShapeType::Ignored;
    while (NextField(parser)) {
    }
}

void ReadLine(DxfParser& parser, DxfShape& shape)
{
    double numbers[6] = {};
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 10:
        case 20:
        case 30:
            numbers[parser.Group.Code / 10 - 1] = GroupNumber(parser.Group);
            break;
        case 11:
        case 21:
        case 31:
            numbers[parser.Group.Code / 10 + 2] = GroupNumber(parser.Group);
            break;
        default:
            break;
        }
    }
    StoreNumbers(parser, shape, DxfShapeType::Line, numbers);
}

void ReadPoint(DxfParser& parser, DxfShape& shape)
{
    double numbers[3] = {};
    while (NextField(parser)) {
        TakePoint(parser, 10, numbers);
    }
    StoreNumbers(parser, shape, DxfShapeType::Point, numbers);
}

void ReadRound(DxfParser& parser, DxfShape& shape, DxfShapeType type)
{
    double numbers[ArcNumbers] = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0, 1.0, 0.0, 360.0};
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 40:
            numbers[3] = GroupNumber(parser.Group);
            break;
        case 50:
            numbers[7] = GroupNumber(parser.Group);
            break;
        case 51:
            numbers[8] = GroupNumber(parser.Group);
            break;
        default:
            if (!TakePoint(parser, 10, numbers)) {
                TakePoint(parser, 210, numbers + 4);
            }
        }
    }
    StoreNumbers(parser, shape, type, numbers);
}

void ReadCircle(DxfParser& parser, DxfShape& shape)
{
    ReadRound(parser, shape, DxfShapeType::Circle);
}

void ReadArc(DxfParser& parser, DxfShape& shape)
{
    ReadRound(parser, shape, DxfShapeType::Arc);
}

void ReadEllipse(DxfParser& parser, DxfShape& shape)
{
    constexpr double fullTurn = 6.283185307179586;
    double numbers[12] = {0.0, 0.0, 0.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0, 1.0, 0.0, fullTurn};
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 40:
            numbers[9] = GroupNumber(parser.Group);
            break;
        case 41:
            numbers[10] = GroupNumber(parser.Group);
            break;
        case 42:
            numbers[11] = GroupNumber(parser.Group);
            break;
        default:
            if (!TakePoint(parser, 10, numbers) && !TakePoint(parser, 11, numbers + 3)) {
                TakePoint(parser, 210, numbers + 6);
            }
        }
    }
    StoreNumbers(parser, shape, DxfShapeType::Ellipse, numbers);
}

void ReadLwPolyline(DxfParser& parser, DxfShape& shape)
{
    std::vector<double>& numbers = parser.Model->Numbers;
    shape.Type = DxfShapeType::Polyline;
    numbers.insert(numbers.end(), {0.0, 0.0, 0.0, 1.0});
    while (NextField(parser)) {
        const bool anyVertex = numbers.size() > shape.First + 4;
        switch (parser.Group.Code) {
        case 10:
            numbers.insert(numbers.end(), {GroupNumber(parser.Group), 0.0, 0.0});
            break;
        case 20:
            if (anyVertex) {
                numbers[numbers.size() - 2] = GroupNumber(parser.Group);
            }
            break;
        case 42:
            if (anyVertex) {
                numbers.back() = GroupNumber(parser.Group);
            }
            break;
        case 38:
            numbers[shape.First] = GroupNumber(parser.Group);
            break;
        case 70:
            shape.Closed = (GroupInteger(parser.Group) & 1) != 0;
            break;
        default:
            TakePoint(parser, 210, numbers.data() + shape.First + 1);
        }
    }
}

constexpr int PolylineClosed = 1;
constexpr int Polyline3dFlag = 8;
constexpr int PolylineMeshes = 16 | 64;
constexpr int VertexFrame = 16; ///< control point of a fitted polyline: the fitted vertices are there too
constexpr int VertexMeshes = 64 | 128;

/// Reads one VERTEX and adds it to the polyline's numbers, unless it isn't on the curve.
void ReadVertex(DxfParser& parser, bool spatial)
{
    double point[3] = {};
    double bulge = 0.0;
    int flags = 0;
    BeginRecord(parser);
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 42:
            bulge = GroupNumber(parser.Group);
            break;
        case 70:
            flags = GroupInteger(parser.Group);
            break;
        default:
            TakePoint(parser, 10, point);
        }
    }
    if ((flags & (VertexFrame | VertexMeshes)) == 0) {
        std::vector<double>& numbers = parser.Model->Numbers;
        numbers.insert(numbers.end(), {point[0], point[1], spatial ? point[2] : bulge});
    }
}

void ReadPolyline(DxfParser& parser, DxfShape& shape)
{
    double head[6] = {0.0, 0.0, 0.0, 0.0, 0.0, 1.0}; // point (its z is the elevation), normal
    int flags = 0;
    while (NextField(parser)) {
        if (parser.Group.Code == 70) {
            flags = GroupInteger(parser.Group);
        } else if (!TakePoint(parser, 10, head)) {
            TakePoint(parser, 210, head + 3);
        }
    }
    const bool paper = parser.Paper;
    const bool spatial = (flags & Polyline3dFlag) != 0;
    std::vector<double>& numbers = parser.Model->Numbers;
    shape.Closed = (flags & PolylineClosed) != 0;
    shape.Type = spatial ? DxfShapeType::Polyline3d : DxfShapeType::Polyline;
    if (!spatial) {
        numbers.insert(numbers.end(), head + 2, head + 6);
    }
    while (!parser.AtEnd && GroupText(parser.Group) == "VERTEX") {
        ReadVertex(parser, spatial);
    }
    if (!parser.AtEnd && GroupText(parser.Group) == "SEQEND") {
        BeginRecord(parser);
        while (NextField(parser)) {
        }
    }
    parser.Paper = paper; // the vertices don't decide where the polyline stands
    if ((flags & PolylineMeshes) != 0) {
        shape.Type = DxfShapeType::Ignored;
        shape.Kind = DxfIgnored;
    }
}

/// A list of points whose first coordinates begin them: base, then base + 10 and base + 20 of the last one.
bool TakeListPoint(const DxfParser& parser, int base, std::vector<double>& list)
{
    const int offset = parser.Group.Code - base;
    if (offset == 0) {
        list.insert(list.end(), {GroupNumber(parser.Group), 0.0, 0.0});
        return true;
    }
    if (offset != 10 && offset != 20) {
        return false;
    }
    if (!list.empty()) {
        list[list.size() - static_cast<std::size_t>(3 - offset / 10)] = GroupNumber(parser.Group);
    }
    return true;
}

void ReadSpline(DxfParser& parser, DxfShape& shape)
{
    auto& [knots, controls, weights, fits] = parser.Scratch;
    for (std::vector<double>& list : parser.Scratch) {
        list.clear();
    }
    double head[SplineHead] = {};
    head[SplineDegree] = 3.0;
    while (NextField(parser)) {
        switch (parser.Group.Code) {
        case 40:
            knots.push_back(GroupNumber(parser.Group));
            break;
        case 41:
            weights.push_back(GroupNumber(parser.Group));
            break;
        case 70:
            shape.Closed = (GroupInteger(parser.Group) & 3) != 0; // closed or periodic
            break;
        case 71:
            head[SplineDegree] = GroupNumber(parser.Group);
            break;
        default:
            if (!TakeListPoint(parser, 10, controls) && !TakeListPoint(parser, 11, fits) &&
                !TakePoint(parser, 12, head + SplineStartTangent)) {
                TakePoint(parser, 13, head + SplineEndTangent);
            }
        }
    }
    head[SplineKnots] = static_cast<double>(knots.size());
    head[SplineControls] = static_cast<double>(controls.size()) / 3.0; // three numbers a point
    head[SplineWeights] = static_cast<double>(weights.size());
    head[SplineFits] = static_cast<double>(fits.size()) / 3.0;
    StoreNumbers(parser, shape, DxfShapeType::Spline, head);
    for (const std::vector<double>& list : parser.Scratch) {
        parser.Model->Numbers.insert(parser.Model->Numbers.end(), list.begin(), list.end());
    }
}

void ReadInsert(DxfParser& parser, DxfShape& shape)
{
    double numbers[14] = {0.0, 0.0, 0.0, 1.0, 1.0, 1.0, 0.0, 1.0, 1.0, 0.0, 0.0, 0.0, 0.0, 1.0};
    std::string_view block;
    while (NextField(parser)) {
        const int code = parser.Group.Code;
        switch (code) {
        case 2:
            block = GroupText(parser.Group);
            break;
        case 41:
        case 42:
        case 43:
            numbers[code - 38] = GroupNumber(parser.Group);
            break;
        case 50:
            numbers[6] = GroupNumber(parser.Group);
            break;
        case 70:
        case 71:
            numbers[code - 63] = std::max(1, GroupInteger(parser.Group));
            break;
        case 44:
        case 45:
            numbers[code - 35] = GroupNumber(parser.Group);
            break;
        default:
            if (!TakePoint(parser, 10, numbers)) {
                TakePoint(parser, 210, numbers + 11);
            }
        }
    }
    shape.Block = BlockNumber(*parser.Model, block);
    StoreNumbers(parser, shape, DxfShapeType::Insert, numbers);
}

struct EntityRow {
    std::string_view Name;
    EntityReader Read;
    std::int16_t Kind;
};

constexpr EntityRow EntityRows[] = {
    {"LINE", ReadLine, DxfLine},
    {"ARC", ReadArc, DxfArc},
    {"CIRCLE", ReadCircle, DxfCircle},
    {"LWPOLYLINE", ReadLwPolyline, DxfLwPolyline},
    {"POLYLINE", ReadPolyline, DxfPolyline},
    {"POINT", ReadPoint, DxfPoint},
    {"INSERT", ReadInsert, DxfIgnored},
    {"SPLINE", ReadSpline, DxfCurve},
    {"ELLIPSE", ReadEllipse, DxfCurve},
    {"TEXT", ReadNothing, DxfText},
    {"MTEXT", ReadNothing, DxfMText},
};

/// Name number of a known type, looked up once.
std::uint32_t RowName(DxfParser& parser, std::size_t row)
{
    constexpr std::uint32_t unknown = 0xFFFFFFFFU;
    if (parser.RowNames.empty()) {
        parser.RowNames.assign(std::size(EntityRows), unknown);
    }
    if (parser.RowNames[row] == unknown) {
        parser.RowNames[row] = NameNumber(*parser.Model, EntityRows[row].Name);
    }
    return parser.RowNames[row];
}

/// What belongs to another entity and isn't counted.
bool IsFollower(std::string_view name)
{
    return name == "VERTEX" || name == "SEQEND" || name == "ATTRIB";
}

} // namespace

void BeginRecord(DxfParser& parser)
{
    parser.Paper = false;
    parser.Embedded = false;
    parser.Braces = false;
}

bool NextField(DxfParser& parser)
{
    while (NextGroup(parser.Scanner, parser.Group)) {
        const int code = parser.Group.Code;
        if (code == 0) {
            return false;
        }
        if (parser.Embedded || code >= 1000) {
            continue;
        }
        if (code == 101) {
            parser.Embedded = true;
        } else if (code == 102) {
            parser.Braces = GroupText(parser.Group).substr(0, 1) == "{";
        } else if (parser.Braces) {
            continue;
        } else if (code == 67) {
            parser.Paper = GroupInteger(parser.Group) == 1;
        } else {
            return true;
        }
    }
    parser.AtEnd = true;
    return false;
}

void ReadEntity(DxfParser& parser, bool knownOnly)
{
    const std::string_view name = GroupText(parser.Group);
    const EntityRow* row = EntityRows;
    while (row != std::end(EntityRows) && row->Name != name) {
        ++row;
    }
    const bool known = row != std::end(EntityRows);
    BeginRecord(parser);
    DxfShape shape;
    shape.Kind = known ? row->Kind : DxfIgnored;
    shape.First = parser.Model->Numbers.size();
    if (!known && (knownOnly || IsFollower(name))) {
        ReadNothing(parser, shape);
        return;
    }
    shape.Name =
        known ? RowName(parser, static_cast<std::size_t>(row - EntityRows)) : NameNumber(*parser.Model, name);
    (known ? row->Read : ReadNothing)(parser, shape);
    if (parser.Paper) {
        shape.Type = DxfShapeType::PaperSpace;
    }
    if (shape.Type == DxfShapeType::Ignored || shape.Type == DxfShapeType::PaperSpace) {
        parser.Model->Numbers.resize(shape.First);
    }
    shape.Count = parser.Model->Numbers.size() - shape.First;
    parser.Target->push_back(shape);
}
