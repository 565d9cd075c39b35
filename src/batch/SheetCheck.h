// SheetCheck.h -- which copies stand over an edge of the sheet. Nobody looks at the screen in a run without one.
#pragma once

#include <string>
#include <vector>

/// A sentence for each edge of the sheet that a part of the nest reaches over, leads not counted. None for a program whose
/// zero was put on the path: where its sheet lies only the operator knows.
std::vector<std::string> EdgesOverrun();
