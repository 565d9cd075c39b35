// PreviewPainter.h -- the painter of the preview: loaded for a save, and only then.
#pragma once

#include "platform/Painter.h"

#include <string>

/// The painter that paints at the moment, null when none does.
const SurfacePainter* Painter();

/// Loads the painter and gives the preview its size; pictures are painted from here on. False, with a line that tells why,
/// when there is none: the program was built or copied without it.
bool StartPainter(std::int32_t width, std::int32_t height, std::string& reason);

/// Pictures aren't painted any more. The module stays loaded.
void StopPainter();
