// NestNumbers.h -- the numbers that this room's files share.
#pragma once

#include "shell/ValueFields.h"
#include "state/AppState.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

/// Height of a staggered row: the factor of hexagonal packing, as this rounded value.
inline constexpr double Stagger = 0.866;
inline constexpr std::int16_t FirstStaggeredType = 3;

/// Copies that one picture shows at most, and the cells that it tries. More of them would be smaller than its pixels;
/// their number stays right, and the picture comes to an end whatever sheet was typed.
inline std::int64_t CopiesToDraw()
{
    constexpr std::int64_t MostElements = 20000000;
    constexpr std::int64_t Least = 1000;
    constexpr std::int64_t Most = 200000;
    return std::clamp(MostElements / std::max(AppState.ElementCount, std::int32_t{1}), Least, Most);
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
