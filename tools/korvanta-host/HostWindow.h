// HostWindow.h -- the host's window: the language, and a line for each thing that it was told.
#pragma once

#include <QWidget>

#include <memory>

/// Makes and shows it. A `barHeight` above 0 makes it a bar of that many pixels along the upper edge of the screen, in
/// front of all windows, that never takes the keys away.
std::unique_ptr<QWidget> ShowHostWindow(int barHeight);
