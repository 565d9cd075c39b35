// LeadCheck.h -- which leads would pierce the part itself. Nobody looks at the screen in a run without one.
#pragma once

#include <cstdint>
#include <vector>

/// The closed profiles whose cut begins inside the material of the part, or, where the part is nothing but a hole, in the
/// sheet around it. Leaves the profile table as it was.
std::vector<std::int32_t> LeadsInMaterial();
