#include "state/AppState.h"

AppStateRecord AppState;

void ResetAppState()
{
    AppState = AppStateRecord();
}
