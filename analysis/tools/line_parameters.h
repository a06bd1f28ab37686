#pragma once

#include <cstdint>
#include <string_view>
#include <vector>

// Characteristic impedance and effective permittivity of transmission lines from their cross
// section, and the strip width for an impedance. Lengths in metres. What makes no line is NaN.

namespace kelvro {

enum class LineType : std::uint8_t { Coax, Microstrip, Stripline, Coplanar, GroundedCoplanar };

/// Cross section of a line.
struct LineShape {
    LineType type = LineType::Coax;
    double width = 0;      ///< of the strip; coax: diameter of the inner conductor
    double height = 0;     ///< of the substrate; coax: inside diameter of the outer conductor;
                           ///< stripline: distance of the ground planes
    double gap = 0;        ///< coplanar lines: between strip and ground, each side
    double thickness = 0;  ///< of the metal; read for microstrip and stripline
    double permittivity = 1;
};

/// Quasi-static parameters.
struct LineParameters {
    double impedance;
    double permittivity;  ///< effective
};

LineParameters Analyse(const LineShape& shape);

/// Effective permittivity at a frequency: microstrip lines disperse, the others do not.
double EffectivePermittivity(const LineShape& shape, double f);

/// The width that gives the impedance while all else stays; `shape.width` is not read.
double WidthFor(LineShape shape, double impedance);

/// Frequency at which the next mode begins to propagate; NaN where no formula is known.
double ModeLimit(const LineShape& shape);

/// Why a result is doubtful; empty within the range of validity.
std::string_view Caution(const LineShape& shape, double f);

/// What windows and reports say of a type; unused dimensions have an empty label.
struct LineDescription {
    LineType type;
    std::string_view caption;
    std::string_view widthLabel;
    std::string_view heightLabel;
    std::string_view gapLabel;
    std::string_view thicknessLabel;
    std::string_view source;  ///< of the formulas, with their range
};
const std::vector<LineDescription>& LineTypes();

/// Primary and derived values of a line of known impedance and effective permittivity.
struct LineConstants {
    double velocity;     ///< m/s
    double inductance;   ///< H/m
    double capacitance;  ///< F/m
};
LineConstants ConstantsOf(const LineParameters& line);

}  // namespace kelvro
