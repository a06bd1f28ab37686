#pragma once

#include <complex>
#include <memory>
#include <variant>
#include <vector>

#include "network/network.h"
#include "network/part_form.h"

// A network prepared for evaluation: every law worked into coefficients, every arm's way of being
// evaluated chosen. Plain numbers where no division can blow up, pairs of voltage and current where
// one could (lossless resonances, measured data).

namespace kelvro {

/// An impedance, prepared.
struct ImpedanceForm {
    struct Group {
        bool parallel;
        std::vector<ImpedanceForm> members;
    };
    std::variant<PartForm, std::complex<double>, Impedance::Measured, Group> is;
    bool passive = false;        ///< Re Z >= 0 for certain
    bool lossy = false;          ///< Re Z > 0 for certain, Z finite
    bool hasImpedance = false;   ///< Z is finite for certain
    bool hasAdmittance = false;  ///< 1/Z is

    static ImpedanceForm Of(const Impedance& impedance);
};

struct LadderStep;

/// Arm in series evaluated as impedance, or across as admittance; else as a pair.
struct ArmStep {
    Place place;
    bool pair;
    ImpedanceForm arm;
};
/// γl = rootLoss·√ω + (tangent + j)·delay·ω.
struct LineStep {
    Line::Form form;
    double Z0;
    double delay;
    double rootLoss;
    double tangent;
};
struct TransformerStep {
    double n;
};
/// Impedances of the coils and of the mutual inductance.
struct CoilsStep {
    PartForm first, second, mutual;
    double
        leakage;  ///< 1 - k² where all three have the same law, else 0: Z1·Z2 - Zm² is to be taken
    bool sameLaw;
};
struct BranchStep {
    std::vector<LadderStep> ladder;
    ImpedanceForm load;
};

struct LadderStep {
    std::variant<ArmStep, LineStep, TransformerStep, CoilsStep, MeasuredTwoPort, BranchStep> is;
    std::size_t element;  ///< of the network's ladder
};

struct LadderProgram {
    ImpedanceForm source, load;
    std::vector<LadderStep> steps;  ///< from source to load

    static LadderProgram Of(const Network& network);
};

}  // namespace kelvro
