// NestNumbers.h -- the numbers that this room's files share.
#pragma once

#include "shell/ValueFields.h"
#include "state/AppState.h"

#include <algorithm>
#include <cstddef>

/// Height of a staggered row: the factor of hexagonal packing, as this rounded value.
inline constexpr double Stagger = 0.866;
inline constexpr std::int16_t FirstStaggeredType = 3;

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
