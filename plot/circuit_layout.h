#pragma once

#include <span>

#include "network/network.h"
#include "plot/circuit_drawing.h"

namespace kelvro {

/// One network from left to right, the rails `height` units apart; a long ladder in so many rows.
CircuitDrawing LaidOut(const Network& network, int rows, double height);

/// Drawings beside or, with the left ends in line, below each other.
CircuitDrawing Arranged(std::span<const CircuitDrawing> drawings, bool below);

}  // namespace kelvro
