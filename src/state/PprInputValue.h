// PprInputValue.h -- one answer that the post-processor table asks of the operator.
#pragma once

#include <string>

inline constexpr int PprInputSlots = 8;

struct PprInputValue {
    char Kind =
        'N'; ///< 'T' list, 'D' free entry, 'N' slot not in use, other letters free entry without focus
    std::string Value;   ///< the answer
    std::string Options; ///< choices separated by '|'
    std::string Label;
};
