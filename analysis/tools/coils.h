#pragma once

#include <cstdint>
#include <string_view>

// Inductance of air coils and of toroids, and the turns that an inductance needs. Lengths in
// metres. Every function answers NaN for dimensions that make no coil and for an inductance out of
// reach.

namespace kelvro {

/// A single-layer coil of round wire.
struct Solenoid {
    /// What stays when the number of turns changes.
    enum class Keeps : std::uint8_t { Length, Pitch };

    double diameter = 0;  ///< from wire centre to wire centre
    double wire = 0;      ///< diameter of the bare wire; 0 is an ideal current sheet
    Keeps keeps = Keeps::Length;
    double extent = 0;  ///< length of the winding, or pitch of the turns
    double turns = 1;

    double length() const { return keeps == Keeps::Length ? extent : extent * turns; }
    double pitch() const { return keeps == Keeps::Pitch ? extent : extent / turns; }
    double wireLength() const;
};

double Inductance(const Solenoid& coil);
/// Turns for an inductance with the other dimensions as given; `coil.turns` is not read.
double Turns(Solenoid coil, double inductance);
/// Why a result is doubtful; empty within the range of validity.
std::string_view Caution(const Solenoid& coil);

/// A flat spiral of flat conductor.
struct Spiral {
    enum class Shape : std::uint8_t { Square, Hexagon, Octagon, Circle };

    Shape shape = Shape::Circle;
    double inner = 0;  ///< free diameter inside the first turn, across flats
    double width = 0;  ///< of the conductor
    double gap = 0;    ///< between neighbouring turns
    double turns = 1;

    double outer() const { return inner + 2 * turns * width + 2 * (turns - 1) * gap; }
    double mean() const { return (outer() + inner) / 2; }
    /// (outer - inner)/(outer + inner): near 0 for a ring, 1 for a disc wound to its centre.
    double fill() const { return (outer() - inner) / (outer() + inner); }
    double wireLength() const;
};

double Inductance(const Spiral& coil);
double Turns(Spiral coil, double inductance);
std::string_view Caution(const Spiral& coil);

/// A toroid of rectangular section wound all around.
struct Toroid {
    double permeability = 1;  ///< of the core, relative
    double outer = 0;         ///< outside diameter
    double inner = 0;         ///< diameter of the hole
    double height = 0;

    /// Length of one turn laid close to the core.
    double turnLength() const { return outer - inner + 2 * height; }
};

/// Inductance of one turn, the A_L of data sheets, in H; L = A_L·N².
double InductanceFactor(const Toroid& core);
/// Turns on a core with this A_L.
double ToroidTurns(double inductanceFactor, double inductance);

}  // namespace kelvro
