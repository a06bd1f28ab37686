#include "network/ladder_program.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kDecibelsPerNeper = 20 / std::numbers::ln10;

ImpedanceForm FormOf(const Impedance::Constant& constant) {
    const std::complex<double> Z = constant.ohm;
    const bool finite = std::isfinite(Z.real()) && std::isfinite(Z.imag());
    return {Z, Z.real() >= 0, finite && Z.real() > 0, finite, finite && Z != 0.0};
}

ImpedanceForm FormOf(const Part& part) {
    const PartForm form = PartForm::Of(part);
    return {form, form.passive(), form.lossy(), form.hasImpedance(), form.hasAdmittance()};
}

ImpedanceForm FormOf(const Impedance::Measured& measured) {
    return {measured};
}

ImpedanceForm FormOf(const Impedance::Group& group) {
    std::vector<ImpedanceForm> members;
    for (const Impedance& member : group.members) members.push_back(ImpedanceForm::Of(member));
    const bool passive = std::ranges::all_of(members, &ImpedanceForm::passive);
    // A loss in the circuit keeps its sum away from 0, and so its other form finite.
    const bool lossy = passive && std::ranges::any_of(members, &ImpedanceForm::lossy);
    const auto kept = group.parallel ? &ImpedanceForm::hasAdmittance : &ImpedanceForm::hasImpedance;
    const bool sum = std::ranges::all_of(members, kept);
    const bool inverse = sum && lossy;
    return {ImpedanceForm::Group{group.parallel, std::move(members)}, passive, inverse,
            group.parallel ? inverse : sum, group.parallel ? sum : inverse};
}

ArmStep StepOf(Place place, const Impedance& impedance) {
    ImpedanceForm arm = ImpedanceForm::Of(impedance);
    const bool plain = place == Place::Series ? arm.hasImpedance : arm.hasAdmittance;
    return {place, !plain, std::move(arm)};
}

LineStep StepOf(const Line& line) {
    const double perRoot =
        line.attenuation == 0 ? 0 : line.attenuation / std::sqrt(kTwoPi * line.attenuationAtHertz);
    return {line.form, line.Z0, line.length.angle(1) / kTwoPi,
            perRoot * line.length.length() / kDecibelsPerNeper, line.tangent};
}

/// The mutual inductance shares the page's loss; other losses are those of the windings.
CoilsStep StepOf(const CoupledCoils& coils, const Part& first, const Part& second) {
    Part mutual = Part::L(coils.k * std::sqrt(first.value * second.value));
    const bool page = first.loss.law == PartLoss::Law::Page ||
                      first.loss.law == PartLoss::Law::PageMirrored ||
                      first.loss.law == PartLoss::Law::Lossless;
    const bool sameLaw = page && first.loss == second.loss && first.loss.ESR == 0;
    if (sameLaw) mutual.loss = first.loss;
    return {PartForm::Of(first), PartForm::Of(second), PartForm::Of(mutual), 1 - coils.k * coils.k,
            sameLaw};
}

void Add(const std::vector<LadderElement>& ladder, std::vector<LadderStep>& steps);

/// The capacitance that makes a coil self-resonant stands beside the coupled coils.
void Add(const CoupledCoils& coils, std::size_t element, std::vector<LadderStep>& steps) {
    const auto own = [](const Part& coil) {
        const double omega = kTwoPi * coil.loss.SRF;
        return omega > 0 && coil.value != 0 ? 1 / (omega * omega * coil.value) : 0;
    };
    const auto bare = [](Part coil) {
        coil.loss.SRF = 0;
        return coil;
    };
    const auto across = [&](const Part& coil) {
        if (own(coil) > 0) steps.push_back({StepOf(Place::Shunt, Part::C(own(coil))), element});
    };
    across(coils.first);
    steps.push_back({StepOf(coils, bare(coils.first), bare(coils.second)), element});
    across(coils.second);
}

void Add(const LadderElement& from, std::size_t element, std::vector<LadderStep>& steps) {
    if (const auto* arm = std::get_if<Arm>(&from.is)) {
        steps.push_back({StepOf(arm->place, arm->impedance), element});
    } else if (const auto* line = std::get_if<Line>(&from.is)) {
        steps.push_back({StepOf(*line), element});
    } else if (const auto* transformer = std::get_if<Transformer>(&from.is)) {
        steps.push_back({TransformerStep{transformer->n}, element});
    } else if (const auto* coils = std::get_if<CoupledCoils>(&from.is)) {
        Add(*coils, element, steps);
    } else if (const auto* measured = std::get_if<MeasuredTwoPort>(&from.is)) {
        steps.push_back({*measured, element});
    } else if (const auto* branch = std::get_if<Branch>(&from.is)) {
        BranchStep step{{}, ImpedanceForm::Of(branch->load)};
        Add(branch->ladder, step.ladder);
        steps.push_back({std::move(step), element});
    }
    // A switch is open for signals.
}

void Add(const std::vector<LadderElement>& ladder, std::vector<LadderStep>& steps) {
    steps.reserve(steps.size() + ladder.size());
    for (std::size_t i = 0; i < ladder.size(); ++i) Add(ladder[i], i, steps);
}

}  // namespace

ImpedanceForm ImpedanceForm::Of(const Impedance& impedance) {
    return std::visit([](const auto& form) { return FormOf(form); }, impedance.is);
}

LadderProgram LadderProgram::Of(const Network& network) {
    LadderProgram program{ImpedanceForm::Of(network.source), ImpedanceForm::Of(network.load), {}};
    Add(network.ladder, program.steps);
    return program;
}

}  // namespace kelvro
