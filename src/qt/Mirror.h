// Mirror.h -- from the records to the controls: each shows what AppState says, and is touched only where it differs.
#pragma once

#include "state/ScreenRecords.h"

/// Shows the records on all controls; lays the window out anew when a caption or size asks for it. Focus changes and
/// texts that this brings about are reported to nobody.
void MirrorRecords();

/// Size of a list and its first item on the screen, in device-independent pixels. The size along which the items are
/// counted is the one that gives the items that really stand side by side, or one below the other.
ListMetrics MeasureShownList(std::int16_t tab);
