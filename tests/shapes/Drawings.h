// Drawings.h -- the drawings of all shapes, by family half. Whoever adds a shape draws it here.
#pragma once

#include "support/ShapeDrawing.h"

#include <span>

std::span<const ShapeDrawing> DrawingsRect01To20();
std::span<const ShapeDrawing> DrawingsRect21To41();
std::span<const ShapeDrawing> DrawingsCircular();
std::span<const ShapeDrawing> DrawingsHoles();
std::span<const ShapeDrawing> DrawingsOutside();
