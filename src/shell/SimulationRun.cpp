#include "shell/SimulationRun.h"

#include "post/Korvanta_PostProcessor.h"
#include "post/Simulation.h"
#include "state/AppState.h"

#include <utility>

void StartSimulation()
{
    if (AppState.ScreenState != ScreenNesting || WaitsForSimulation(StartSimulation)) {
        return;
    }
    AppState.ButtonPressed = FlagOff; // a click that started it is over as far as its fields are concerned
    GenerateProgram(SimulationName);
    if (AppState.AfterSimulation) {
        const auto event = std::exchange(AppState.AfterSimulation, nullptr);
        event();
    }
}

bool WaitsForSimulation(const std::function<void()>& event)
{
    if (AppState.SimWalking == FlagOff) {
        return false;
    }
    StopSimulation();
    if (!AppState.AfterSimulation) {
        AppState.AfterSimulation = event;
    }
    return true;
}
