// NestNumbers.h -- the numbers that this room's files share.
#pragma once

#include "shell/ValueFields.h"
#include "state/AppState.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

/// Height of a staggered row: the factor of hexagonal packing, as this rounded value.
inline constexpr double Stagger = 0.866;
inline constexpr std::int16_t FirstStaggeredType = 3;

/// Pixels that the strokes of one copy pass on the picture, about; what lies beside it counts little.
inline double PixelsOfCopy()
{
    constexpr double LongestStroke = 2000.0;
    const double most = LongestStroke * std::max(AppState.ElementCount, std::int32_t{1});
    const double unit = std::fabs(AppState.UnitsPerPixelX);
    const double pixels = unit > 0.0 ? AppState.TotalCutLength / unit : most;
    return pixels >= 1.0 ? std::min(pixels, most) : 1.0;
}

/// Copies that one picture shows at most, and the cells that it tries. More of them would be smaller than its pixels, or
/// would lie on each other; their number stays right, and the picture comes to an end whatever sheet and gaps were typed.
inline std::int64_t CopiesToDraw()
{
    constexpr std::int64_t MostElements = 20000000;
    constexpr std::int64_t Least = 1000;
    constexpr std::int64_t Most = 200000;
    constexpr double MostPixels = 4e7;
    constexpr double LeastOnEachOther = 100.0;
    const auto byElements =
        std::clamp(MostElements / std::max(AppState.ElementCount, std::int32_t{1}), Least, Most);
    const double byPixels = std::max(MostPixels / PixelsOfCopy(), LeastOnEachOther);
    return byPixels < static_cast<double>(byElements) ? static_cast<std::int64_t>(byPixels) : byElements;
}

inline ValueField& NestField(NestingField field)
{
    return AppState.TextNesting[static_cast<std::size_t>(field)];
}

/// Number of a Nesting field. Not yet checked texts come here too, so it is kept where sums and products stay finite.
inline double NestNumber(NestingField field)
{
    constexpr double Beyond = 1e15;
    return std::clamp(FieldNumber(NestField(field)), -Beyond, Beyond);
}
