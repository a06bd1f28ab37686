#pragma once

#include <map>
#include <set>
#include <string>

#include "io/spice_deck.h"
#include "network/network.h"

namespace kelvro {

/// Writes parts, measured data and ladders of a network between named nodes of a netlist, with
/// their losses over frequency. Measured data become tables over `hertz` that ngspice joins by
/// straight lines, as linear interpolation does; other interpolations are sampled finely.
class NetworkNetlist {
  public:
    /// Tables hold what [low, high] needs.
    NetworkNetlist(SpiceDeck& deck, double low, double high)
        : deck_(deck), low_(low), high_(high) {}

    /// An impedance between two nodes; nothing where it is open at every frequency.
    void impedance(const Impedance& impedance, const std::string& from, const std::string& to);
    /// A ladder from a node on; gives back its last node.
    std::string ladder(const std::vector<LadderElement>& ladder, std::string node);

  private:
    void part(const Part& part, const std::string& from, const std::string& to);
    void reactance(const Part& part, const std::string& name, const std::string& from,
                   const std::string& to);
    void group(const Impedance::Group& group, const std::string& from, const std::string& to);
    void constant(std::complex<double> ohm, const std::string& from, const std::string& to);
    void measured(const Impedance::Measured& measured, const std::string& from,
                  const std::string& to);
    void shortCircuit(const std::string& from, const std::string& to);

    std::string element(const LadderElement& element, const std::string& node);
    std::string line(const Line& line, const std::string& node);
    std::string transformer(const Transformer& transformer, const std::string& node);
    std::string coils(const CoupledCoils& coils, const std::string& node);
    struct TwoPortNodes {
        std::string first;
        std::string second;
        std::string ground;
    };
    /// turn is -1 where the parameters are conjugated, else 1.
    void twoPort(const PortData& data, const TwoPortNodes& nodes, double turn);

    /// A port with a wave that goes out: its nodes.
    struct WavePort {
        std::string in;      ///< voltage of the wave that comes in
        std::string turned;  ///< j·f/f0 times that
        std::string out;     ///< voltage of the wave that goes out
    };
    WavePort wavePort(double reference, const std::string& from, const std::string& to);
    std::string waveTerm(const std::string& re, const std::string& im, const WavePort& port) const;
    /// Table over hertz of a value of the data.
    template <typename Value>
    std::string table(const PortData& data, const Value& value) const;

    std::string newNode() { return "n" + std::to_string(++nodes_); }
    /// A name of this letter that is not taken: that of a part, or a number.
    std::string newName(char letter, std::string_view wanted = {});

    SpiceDeck& deck_;
    double low_;
    double high_;
    int nodes_ = 0;
    std::set<std::string> names_;
    std::map<char, int> numbers_;
};

}  // namespace kelvro
