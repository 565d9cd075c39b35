#include "DxfHelp.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

namespace
{

int Keep(const DxfEntity& entity, void* context)
{
    DxfResult& result = *static_cast<DxfResult*>(context);
    if (entity.Kind == DxfText || entity.Kind == DxfMText || entity.Kind == DxfIgnored) {
        result.Ignored.push_back(entity.Kind);
        return 0;
    }
    DxfRecord record;
    record.Entity = entity;
    DXFConvert(record.Vertices, entity);
    result.Records.push_back(record);
    return 0;
}

DxfResult Enumerate(Drawing* drawing)
{
    DxfResult result;
    if (drawing != nullptr) {
        result.Opened = true;
        result.Complete = DXFProhibitCurvesAsPoly(drawing, 0) != 0 && DXFEnum(drawing, 0, Keep, &result);
        result.Account = DXFAccount(drawing);
        DXFClose(drawing);
    }
    return result;
}

} // namespace

DxfResult ReadDxf(std::string_view bytes)
{
    return Enumerate(OpenDrawingBytes(bytes));
}

DxfResult ReadDxfFile(const std::string& name)
{
    return Enumerate(DXFCreate(std::string(KORVANTA_SOURCE_DIR) + "/tests/data/" + name));
}

std::string Groups(std::string_view text, std::string_view lineEnd)
{
    std::string lines;
    while (!text.empty()) {
        const std::size_t bar = text.find('|');
        const std::string_view group = text.substr(0, bar);
        text.remove_prefix(bar == std::string_view::npos ? text.size() : bar + 1);
        const std::size_t blank = group.find(' ');
        lines.append(group.substr(0, blank)).append(lineEnd);
        lines.append(blank == std::string_view::npos ? std::string_view() : group.substr(blank + 1))
            .append(lineEnd);
    }
    return lines;
}

std::string DrawingOf(std::string_view entities, std::string_view blocks)
{
    std::string text;
    if (!blocks.empty()) {
        text += Groups("0 SECTION|2 BLOCKS") + Groups(blocks) + Groups("0 ENDSEC");
    }
    return text + Groups("0 SECTION|2 ENTITIES") + Groups(entities) + Groups("0 ENDSEC|0 EOF");
}

DxfResult ReadEntities(std::string_view entities, std::string_view blocks)
{
    return ReadDxf(DrawingOf(entities, blocks));
}

double LeastStep(const DxfRecord& record)
{
    double least = 1e30;
    for (std::size_t i = 1; i < record.Vertices.size(); ++i) {
        const auto& a = record.Vertices[i - 1];
        const auto& b = record.Vertices[i];
        least = std::min(least, std::hypot(static_cast<double>(b[0]) - static_cast<double>(a[0]),
                                           static_cast<double>(b[1]) - static_cast<double>(a[1])));
    }
    return least;
}

static double MissOfPiece(const CurvePoint& p, const std::array<float, 2>& a, const std::array<float, 2>& b)
{
    const double ax = a[0];
    const double ay = a[1];
    const double dx = b[0] - ax;
    const double dy = b[1] - ay;
    const double t = std::clamp(((p.X - ax) * dx + (p.Y - ay) * dy) / (dx * dx + dy * dy), 0.0, 1.0);
    return std::hypot(p.X - ax - t * dx, p.Y - ay - t * dy);
}

double LargestMiss(const DxfRecord& record, const std::vector<CurvePoint>& samples)
{
    double largest = 0.0;
    for (const CurvePoint& p : samples) {
        double miss = 1e30;
        for (std::size_t i = 1; i < record.Vertices.size(); ++i) {
            miss = std::min(miss, MissOfPiece(p, record.Vertices[i - 1], record.Vertices[i]));
        }
        largest = std::max(largest, miss);
    }
    return largest;
}

/// Largest distance of the vertices from the way through the samples.
static double LargestStray(const DxfRecord& record, const std::vector<CurvePoint>& samples)
{
    DxfRecord way;
    for (const CurvePoint& p : samples) {
        way.Vertices.push_back({static_cast<float>(p.X), static_cast<float>(p.Y)});
    }
    std::vector<CurvePoint> vertices;
    for (const auto& v : record.Vertices) {
        vertices.push_back({v[0], v[1]});
    }
    return LargestMiss(way, vertices);
}

void ExpectFollows(const DxfRecord& record, const std::vector<CurvePoint>& samples)
{
    EXPECT_EQ(record.Entity.Kind, DxfCurve);
    ASSERT_GE(record.Vertices.size(), 2U);
    EXPECT_LE(LargestMiss(record, samples), 0.005);
    EXPECT_LE(LargestStray(record, samples), 0.002) << "vertices stand on the curve";
    EXPECT_GT(LeastStep(record), 0.01);
    EXPECT_NEAR(record.Vertices.front()[0], samples.front().X, 1e-4);
    EXPECT_NEAR(record.Vertices.front()[1], samples.front().Y, 1e-4);
    EXPECT_NEAR(record.Vertices.back()[0], samples.back().X, 1e-4);
    EXPECT_NEAR(record.Vertices.back()[1], samples.back().Y, 1e-4);
}

void ExpectArc(const DxfRecord& record, std::int16_t kind, CurvePoint centre, double radius, CurvePoint start,
               CurvePoint end)
{
    const DxfEntity& e = record.Entity;
    EXPECT_EQ(e.Kind, kind);
    EXPECT_NEAR(e.P1[0], centre.X, 1e-4);
    EXPECT_NEAR(e.P1[1], centre.Y, 1e-4);
    EXPECT_NEAR(e.P2[0], radius, 1e-4);
    EXPECT_NEAR(e.P3[0], start.X, 1e-4);
    EXPECT_NEAR(e.P3[1], start.Y, 1e-4);
    EXPECT_NEAR(e.P4[0], end.X, 1e-4);
    EXPECT_NEAR(e.P4[1], end.Y, 1e-4);
}

void ExpectRun(const DxfRecord& record, std::int16_t kind, const std::vector<CurvePoint>& points)
{
    EXPECT_EQ(record.Entity.Kind, kind);
    EXPECT_EQ(record.Entity.PointCount, static_cast<std::int16_t>(points.size()));
    ASSERT_EQ(record.Vertices.size(), points.size());
    for (std::size_t i = 0; i < points.size(); ++i) {
        EXPECT_NEAR(record.Vertices[i][0], points[i].X, 1e-4) << "vertex " << i;
        EXPECT_NEAR(record.Vertices[i][1], points[i].Y, 1e-4) << "vertex " << i;
    }
}
