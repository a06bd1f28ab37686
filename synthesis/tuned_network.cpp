#include "synthesis/tuned_network.h"

#include <algorithm>
#include <cmath>

#include "network/ladder_response.h"

namespace kelvro {

TunedNetwork::TunedNetwork(const Network& network, std::vector<Tunable> tunables,
                           std::span<const double> f)
    : network_(network), tunables_(std::move(tunables)), f_(f.begin(), f.end()) {
    for (ComplexRow* row : {&source_, &load_, &voltage_, &current_, &scratch_}) {
        row->resize(f.size());
    }
    GT_.resize(f.size());
    fourRR_.resize(f.size());
    for (std::size_t i = 0; i < f.size(); ++i) {
        const auto ZS = impedance(network.source, f[i]);
        const auto ZL = impedance(network.load, f[i]);
        source_.set(i, ZS);
        load_.set(i, ZL);
        fourRR_[i] = 4 * ZS.real() * ZL.real();
    }
    for (const Tunable& tunable : tunables_) nominal_.push_back(ValueOf(network.ladder, tunable));
    values_ = nominal_;
    stages_.resize(network.ladder.size());
    for (std::size_t i = 0; i < tunables_.size(); ++i) {
        stages_[tunables_[i].element].tunables.push_back(i);
    }
    for (std::size_t element = 0; element < stages_.size(); ++element) {
        Stage& stage = stages_[element];
        stage.scaled = prepareScaled(stage, element);
        if (stage.scaled) {
            stage.arm.resize(f.size());
            update(element, nominal_);
        } else {
            for (ComplexRow* row : {&stage.A, &stage.B, &stage.C, &stage.D}) row->resize(f.size());
            evaluateChain(element);
        }
    }
}

/// Can the element be scaled: an arm of one part, or of parts in series or in parallel, all of them
/// with an impedance proportional to their value?
bool TunedNetwork::prepareScaled(Stage& stage, std::size_t element) {
    const auto* arm = std::get_if<Arm>(&network_.ladder[element].is);
    if (!arm) return false;
    stage.place = arm->place;
    bool parallel = arm->place == Place::Shunt;
    std::vector<const Part*> parts;
    if (const auto* part = std::get_if<Part>(&arm->impedance.is)) {
        parts.push_back(part);
    } else if (const auto* group = std::get_if<Impedance::Group>(&arm->impedance.is)) {
        parallel = group->parallel;
        for (const Impedance& member : group->members) {
            parts.push_back(std::get_if<Part>(&member.is));
        }
    }
    if (parts.empty()) return false;
    stage.inverted = parallel != (arm->place == Place::Shunt);
    for (std::size_t i = 0; i < parts.size(); ++i) {
        if (!parts[i] || parts[i]->loss.ESR != 0 || !(parts[i]->value > 0)) return false;
        Scaled scaled{{}, -1, parts[i]->kind == PartKind::Capacitor ? -1.0 : 1.0};
        if (parallel) scaled.exponent = -scaled.exponent;
        scaled.nominal.resize(f_.size());
        for (std::size_t k = 0; k < f_.size(); ++k) {
            const auto Z = impedance(*parts[i], f_[k]);
            scaled.nominal.set(k, parallel ? 1.0 / Z : Z);
        }
        for (const std::size_t at : stage.tunables) {
            if (tunables_[at].part == i) scaled.tunable = static_cast<int>(at);
        }
        stage.parts.push_back(std::move(scaled));
    }
    return true;
}

void TunedNetwork::evaluateChain(std::size_t element) {
    Stage& stage = stages_[element];
    const LadderResponse response(Network{
        .source = network_.source, .ladder = {network_.ladder[element]}, .load = network_.load});
    for (std::size_t i = 0; i < f_.size(); ++i) {
        const Matrix2 chain = response.chain(f_[i]);
        stage.A.set(i, chain.m[0]);
        stage.B.set(i, chain.m[1]);
        stage.C.set(i, chain.m[2]);
        stage.D.set(i, chain.m[3]);
    }
}

void TunedNetwork::update(std::size_t element, std::span<const double> values) {
    Stage& stage = stages_[element];
    if (!stage.scaled) {
        for (const std::size_t at : stage.tunables) {
            SetValue(network_.ladder, tunables_[at], values[at]);
        }
        evaluateChain(element);
        return;
    }
    stage.arm.fill(f_.size(), 0);
    for (const Scaled& part : stage.parts) {
        double factor = 1;
        if (part.tunable >= 0) {
            const auto at = static_cast<std::size_t>(part.tunable);
            factor = part.exponent > 0 ? values[at] / nominal_[at] : nominal_[at] / values[at];
        }
        Accumulate(stage.arm, factor, part.nominal);
    }
    if (stage.inverted) Invert(stage.arm);
}

std::span<const double> TunedNetwork::GT(std::span<const double> values) {
    for (std::size_t element = 0; element < stages_.size(); ++element) {
        const bool changed = std::ranges::any_of(
            stages_[element].tunables, [&](std::size_t at) { return values[at] != values_[at]; });
        if (changed) update(element, values);
    }
    std::ranges::copy(values, values_.begin());
    voltage_ = load_;
    current_.fill(f_.size(), 1);
    for (std::size_t element = stages_.size(); element-- > 0;) {
        const Stage& stage = stages_[element];
        if (!stage.scaled) {
            scratch_.fill(f_.size(), 0);
            AccumulateProduct(scratch_, stage.A, voltage_);
            AccumulateProduct(scratch_, stage.B, current_);
            std::swap(voltage_, scratch_);
            // The wave before is in the scratch row now.
            ComplexRow behind = current_;
            current_.fill(f_.size(), 0);
            AccumulateProduct(current_, stage.C, scratch_);
            AccumulateProduct(current_, stage.D, behind);
        } else if (stage.place == Place::Series) {
            AccumulateProduct(voltage_, stage.arm, current_);
        } else {
            AccumulateProduct(current_, stage.arm, voltage_);
        }
    }
    AccumulateProduct(voltage_, source_, current_);
    for (std::size_t i = 0; i < f_.size(); ++i) {
        const double square = voltage_.re[i] * voltage_.re[i] + voltage_.im[i] * voltage_.im[i];
        GT_[i] = fourRR_[i] / square;
    }
    return GT_;
}

double TunedNetwork::worstGT(std::span<const double> values) {
    return std::ranges::min(GT(values));
}

Network TunedNetwork::with(std::span<const double> values) const {
    Network network = network_;
    for (std::size_t i = 0; i < tunables_.size(); ++i) {
        SetValue(network.ladder, tunables_[i], values[i]);
    }
    return network;
}

}  // namespace kelvro
