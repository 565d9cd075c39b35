// Simulation.h -- the head that travels over the nest: a program run without a file, whose writers step it along. All of
// it is the walk of GenerateProgram(SimulationName); these are the routines that its writers and the keys call.
#pragma once

#include <cstdint>

/// What a move leaves behind it.
enum class HeadMode : std::int16_t {
    Rapid, ///< a dotted green track
    Cut,   ///< a thick red line
};

/// The start of the walk: no stop request, the head at 0, 0, settings, the first head, SimRunning.
void BeginHead();

/// The end of the walk, by itself, by a stop, or by a fault: the head stays where it is on the picture, and nothing more
/// is drawn for it.
void EndHead();

/// Moves the head in a straight line, step by step, and lets the window live in between. A move that doesn't touch the
/// view sets the position without a stroke; one of more steps than a picture could show goes to its end in one. Neither
/// is waited for. Nothing after a stop request.
void StepTo(HeadMode mode, double x, double y);

/// The same along an arc as a cut; radius above 0 runs counter-clockwise, 0 draws nothing.
void ArcTo(double startX, double startY, double endX, double endY, double centreX, double centreY,
           double radius);

/// Takes the head from where it stands on the picture to its position, with the trail of the way. Out of the view there is
/// neither. Nothing after a stop request.
void DrawHead(HeadMode mode);

/// SimSpeed and SimStep from SIMSPEED, SIM_DEFRAG and the view.
void LoadSimulationSettings();

/// The speed of the field Simulation becomes the setting, and counts from the next step on.
void ApplySimulationSpeed();

/// Ends a running simulation and draws the nest anew. The walk sees the request after its move.
void StopSimulation();
