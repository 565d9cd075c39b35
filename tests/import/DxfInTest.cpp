#include "import/Korvanta_DxfIn.h"

#include "DxfHelp.h"
#include "state/AppState.h"
#include "support/RecordingScreen.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace
{

}
