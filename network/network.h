#pragma once

#include <complex>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "network/part.h"
#include "network/port_data.h"

// The one description of a circuit: a source, a ladder of elements from source to load, a load.
// Plain values with ==, in SI units; response, picture, netlist, listing, Touchstone, tolerance
// groups, Smith path and search all read it.

namespace kelvro {

/// An impedance as people write it: parts, constants and measured data in series and in parallel.
struct Impedance {
    /// The same number of ohms at every frequency.
    struct Constant {
        std::complex<double> ohm;
        bool operator==(const Constant&) const = default;
    };
    /// Measured data. Port 0 of a two-port is port 1 with port 2 grounded (Z = 1/Y11); port 1 or 2
    /// is the reflection there with the reference at the other port.
    struct Measured {
        std::shared_ptr<const PortData> data;
        int port = 0;
        bool conjugate = false;
        bool operator==(const Measured& other) const;
    };
    struct Group {
        bool parallel = false;  ///< else in series
        std::vector<Impedance> members;
        bool operator==(const Group&) const = default;
    };

    std::variant<Constant, Part, Measured, Group> is = Constant{{50, 0}};

    Impedance() = default;
    Impedance(std::complex<double> ohm) : is(Constant{ohm}) {}
    Impedance(double ohm) : is(Constant{{ohm, 0}}) {}
    Impedance(Part part) : is(std::move(part)) {}
    Impedance(Measured measured) : is(std::move(measured)) {}
    Impedance(Group group) : is(std::move(group)) {}

    static Impedance InSeries(std::vector<Impedance> members) {
        return Group{false, std::move(members)};
    }
    static Impedance InParallel(std::vector<Impedance> members) {
        return Group{true, std::move(members)};
    }
    /// No connection: an open.
    static Impedance Nothing() { return InParallel({}); }
    bool isNothing() const;

    bool operator==(const Impedance&) const = default;
};

/// At f > 0; NaN where measured data end. An empty group in series is a short, in parallel an open.
Immittance immittance(const Impedance& of, double f);
/// The same in ohm.
std::complex<double> impedance(const Impedance& of, double f);

/// What ends a network at either side.
using Termination = Impedance;

/// Length of a line: an angle at a frequency, or metres and εr.
struct LineLength {
    double degrees = 0;  ///< at `atHertz`; 0 where metres count
    double atHertz = 0;
    double metres = 0;
    double er = 1;
    bool operator==(const LineLength&) const = default;

    /// Radians at f.
    double angle(double f) const;
    /// In metres, whichever form was given.
    double length() const;
};

/// A piece of line: between the terminals, or a stub across them.
struct Line {
    enum class Form : std::uint8_t { Through, OpenStub, ShortedStub };

    Form form = Form::Through;
    double Z0 = 50;
    LineLength length;
    double attenuation = 0;  ///< dB/m at `attenuationAtHertz`, proportional to √f
    double attenuationAtHertz = 0;
    double tangent = 0;  ///< γl = angle·(tangent + j), as the pages reckon
    std::string name = {};
    double tolerance = 0;  ///< ± percent of Z0; 0: that of all lines
    bool operator==(const Line&) const = default;
};

/// An impedance in series with, or across, the main path.
struct Arm {
    Place place = Place::Series;
    Impedance impedance;
    /// A shunt arm that hangs at the supply, which is ground for signals: the choke of a stage.
    bool atSupply = false;
    bool operator==(const Arm&) const = default;
};

/// Ideal transformer: n to 1 turns from source side to load side.
struct Transformer {
    double n = 1;
    bool operator==(const Transformer&) const = default;
};

/// Two coils with common ground, M = k·√(L1·L2).
struct CoupledCoils {
    Part first;
    Part second;
    double k = 1;
    bool operator==(const CoupledCoils&) const = default;
};

/// A measured two-port in line, port 1 towards the source.
struct MeasuredTwoPort {
    std::shared_ptr<const PortData> data;
    bool operator==(const MeasuredTwoPort& other) const;
};

/// A switch to ground; open for signals.
struct Switch {
    std::string name;
    bool operator==(const Switch&) const = default;
};

struct LadderElement;

/// A second path that leaves the main one here and ends at a load of its own: the other output of a
/// balun.
struct Branch {
    std::vector<LadderElement> ladder;
    Termination load;
    bool operator==(const Branch&) const;
};

struct LadderElement {
    std::variant<Arm, Line, Transformer, CoupledCoils, MeasuredTwoPort, Switch, Branch> is = Arm{};
    std::string node = {};  ///< name of the node behind it, towards the load; empty: numbered

    bool operator==(const LadderElement&) const = default;
};

/// A frequency range in which the network has to work.
struct FrequencyBand {
    double low = 0;   ///< Hz
    double high = 0;  ///< Hz, above low
    bool operator==(const FrequencyBand&) const = default;
};

struct Network {
    Termination source;
    std::vector<LadderElement> ladder;  ///< from source to load
    Termination load;
    double designFrequency = 0;  ///< Hz, of Smith paths and one-frequency matches; 0: none chosen
    std::vector<FrequencyBand> bands = {};
    std::string caption = {};     ///< "Pi", where a design has two networks
    std::string sourceNode = {};  ///< name of the node between source and ladder; empty: unnamed

    bool operator==(const Network&) const = default;
};

/// Ladder elements in one word.
LadderElement SeriesArm(Impedance arm, std::string node = {});
LadderElement ShuntArm(Impedance arm);

/// All parts of a ladder from source to load, groups included, branches behind the main path; not
/// the loads. Pointers into it.
std::vector<const Part*> PartsOf(const std::vector<LadderElement>& ladder);
std::vector<Part*> PartsOf(std::vector<LadderElement>& ladder);

/// A part as lists show it; of a line its characteristic impedance.
struct ListedPart {
    PartKind kind;
    bool line;      ///< `kind` is Resistor then
    bool atSupply;  ///< a choke, in series with the supply
    bool branch;    ///< on a branch of the main path
    Place place;    ///< among its neighbours: of a group by how its members stand together
    std::string name;
    double value;

    std::string_view unit() const { return UnitOf(kind); }
};
/// What the ladder consists of, in the order of PartsOf, and the parts with a name that end it.
std::vector<ListedPart> ListOf(const Network& network);
/// The value behind each of the list's rows.
std::vector<double*> ValuesOf(Network& network);

/// Does another path leave the main one?
bool HasBranch(const Network& network);

/// The ladder with inductors and capacitors interchanged: each value becomes 1/(ω²·value), each
/// name changes its letter, page losses turn to their mirrored form. Where all losses are the
/// page's, its response is that of the ladder at the mirrored frequency -f0²/f.
std::vector<LadderElement> Dual(std::vector<LadderElement> ladder, double f0);
Network Dual(Network network, double f0);

/// 1/Q of the page's loss law, the largest of all parts and lines; 0 where none has it.
double PageTangent(const Network& network);

}  // namespace kelvro
