// DxfChecks.h -- reads bytes as a drawing and holds the reader to its promises: every number finite, neighbours on
// curves apart, no radius below 0, vertex lists of two points and more.
#pragma once

#include "FuzzFiles.h"

#include "import/DrawingReader.h"

#include <cmath>
#include <cstdint>
#include <string_view>

struct FuzzedDrawing {
    bool Opened = false;
    std::int64_t Records = 0;
};

inline int CheckEntity(const DxfEntity& entity, void* context)
{
    constexpr std::int64_t enough = 100'000;
    for (const DxfPoint3* point : {&entity.P1, &entity.P2, &entity.P3, &entity.P4}) {
        for (const float value : *point) {
            Require(std::isfinite(value));
        }
    }
    Require(entity.Kind >= DxfLine && entity.Kind <= DxfPoint);
    const bool list = entity.Kind >= DxfPolyline && entity.Kind <= DxfCurve;
    Require(list ? entity.PointCount >= 2 && entity.Vertices != nullptr : entity.PointCount == 0);
    const float* at = entity.Vertices;
    for (int i = 0; i < entity.PointCount; ++i, at += 2) {
        Require(std::isfinite(at[0]) && std::isfinite(at[1]));
        Require(entity.Kind != DxfCurve || i == 0 ||
                std::hypot(static_cast<double>(at[0]) - static_cast<double>(at[-2]),
                           static_cast<double>(at[1]) - static_cast<double>(at[-1])) > 0.01);
    }
    Require(entity.P2[0] >= 0.0F || entity.Kind == DxfLine);
    return ++static_cast<FuzzedDrawing*>(context)->Records > enough ? 1 : 0;
}

inline FuzzedDrawing ReadFuzzed(std::string_view bytes)
{
    FuzzedDrawing seen;
    Drawing* const drawing = OpenDrawingBytes(bytes);
    if (drawing == nullptr) {
        return seen;
    }
    seen.Opened = true;
    DXFEnum(drawing, 0, CheckEntity, &seen);
    for (const auto& [name, count] : DXFAccount(drawing).Read) {
        Require(count > 0);
    }
    DXFClose(drawing);
    return seen;
}
