// SimulationRun.h -- the simulation as the keys see it: one at a time, and nothing changes the part under it.
#pragma once

#include <functional>

/// Runs the simulation of the nest on the Nesting screen, until its end or a stop. While one is on its way down after a
/// stop, this one waits for it. Off the Nesting screen nothing.
void StartSimulation();

/// False without a simulation. Else it is stopped, and `event` runs as soon as its walk has ended: true.
///
/// The walk stands in the middle of a profile of the part, of a copy of the nest and of a program while it lets keys in. A
/// screen change from there could open another part, start a second walk or write a program inside it, and clear the very
/// request that is to end it. So what leads off the screen waits, which takes no longer than the way out of the walk. Of
/// several such events the first one counts; the window holds back what is typed behind it.
bool WaitsForSimulation(const std::function<void()>& event);
