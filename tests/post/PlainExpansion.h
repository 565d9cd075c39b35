// PlainExpansion.h -- the template language step by step as it is defined: the judge of ExpandLine.
#pragma once

#include "post/Korvanta_PostProcessor.h"

/// The same contract as ExpandLine. Writes nothing for *write_collection but takes the buffer.
Flag PlainExpandLine(std::int16_t file, std::string& line, std::string_view vector,
                     const BlockCounters& counters, Flag isInternal);
