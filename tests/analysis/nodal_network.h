#pragma once

#include <cmath>
#include <complex>
#include <utility>
#include <vector>

#include "network/network.h"

namespace kelvro {

/// Independent check of the response: nodal equations of a network between a source
/// of 1 V behind R1 and loads R2, solved by elimination in extended precision.
class NodalNetwork {
  public:
    using Cx = std::complex<long double>;

    /// sL and sC of the stored parts; on mirrored pages the dual circuit's parts have the
    /// impedances that the stored ones have at the mirrored frequency.
    struct Losses {
        double fo;
        double Qc;
        bool mirrored = false;
    };

    NodalNetwork(const Network& network, double R1, double R2, Losses losses)
        : network_(network), R1_(R1), R2_(R2), losses_(losses) {}

    /// 2·V(load)/V(source) at the end of a branch.
    Cx transfer(double f, int branch = 0) {
        assemble(f);
        const auto load = static_cast<std::size_t>(ends_[static_cast<std::size_t>(branch)]);
        return 2.0L * solve()[load];
    }

  private:
    static constexpr long double twoPi = 6.283185307179586L;

    Cx frequency(double f) const {
        return Cx(0, twoPi * f) * Cx(1, -1 / static_cast<long double>(losses_.Qc));
    }

    Cx admittance(const Part& part, double f) const {
        const long double value = part.value;
        const long double w0 = twoPi * losses_.fo;
        // The mirrored s has a negative frequency and a positive real part.
        const Cx s =
            losses_.mirrored ? std::conj(frequency(losses_.fo * losses_.fo / f)) : frequency(f);
        switch (part.kind) {
            case PartKind::Resistor:
                return Cx(1 / value, 0);
            case PartKind::Inductor:
                return losses_.mirrored ? s / (w0 * w0 * value) : 1.0L / (s * value);
            default:
                return losses_.mirrored ? w0 * w0 * value / s : s * value;
        }
    }

    int newNode() {
        for (auto& row : Y_) row.emplace_back();
        Y_.emplace_back(Y_.size() + 1);
        I_.emplace_back();
        return static_cast<int>(Y_.size()) - 1;
    }

    Cx& at(int i, int j) { return Y_[static_cast<std::size_t>(i)][static_cast<std::size_t>(j)]; }

    void connect(int i, int j, Cx y) {
        at(i, i) += y;
        if (j < 0) return;
        at(j, j) += y;
        at(i, j) -= y;
        at(j, i) -= y;
    }

    void addLine(int i, int j, const Line& line, double f) {
        const long double ZL = line.Z0;
        const long double degrees = line.length.degrees;
        const Cx angle = degrees / 360 / line.length.atHertz * frequency(f);
        const Cx own = std::cosh(angle) / (ZL * std::sinh(angle));
        const Cx mutual = -1.0L / (ZL * std::sinh(angle));
        at(i, i) += own;
        at(j, j) += own;
        at(i, j) += mutual;
        at(j, i) += mutual;
    }

    void addCoils(int i, int j, const CoupledCoils& coils, double f) {
        const Cx s = frequency(f);
        const long double L1 = coils.first.value;
        const long double L2 = coils.second.value;
        const long double M = coils.k * std::sqrt(L1 * L2);
        const long double d = L1 * L2 - M * M;
        at(i, i) += L2 / (s * d);
        at(j, j) += L1 / (s * d);
        at(i, j) -= M / (s * d);
        at(j, i) -= M / (s * d);
    }

    void assemble(double f) {
        Y_.clear();
        I_.clear();
        newNode();
        I_[0] = 1 / R1_;
        connect(0, -1, 1 / R1_);
        ends_.assign(1, 0);
        ends_[0] = path(network_.ladder, 0, f);
        for (const int end : ends_) connect(end, -1, 1 / R2_);
    }

    /// The elements one behind the other; gives back the node behind the last.
    int path(const std::vector<LadderElement>& ladder, int end, double f) {
        for (const LadderElement& element : ladder) {
            if (const auto* branch = std::get_if<Branch>(&element.is)) {
                ends_.push_back(path(branch->ladder, end, f));
                continue;
            }
            const auto* arm = std::get_if<Arm>(&element.is);
            if (arm && arm->place == Place::Shunt) {
                connect(end, -1, admittance(std::get<Part>(arm->impedance.is), f));
                continue;
            }
            const int next = newNode();
            if (arm) connect(end, next, admittance(std::get<Part>(arm->impedance.is), f));
            if (const auto* line = std::get_if<Line>(&element.is)) addLine(end, next, *line, f);
            if (const auto* coils = std::get_if<CoupledCoils>(&element.is)) {
                addCoils(end, next, *coils, f);
            }
            end = next;
        }
        return end;
    }

    /// Gauss elimination with row pivoting.
    std::vector<Cx> solve() {
        const std::size_t n = Y_.size();
        for (std::size_t k = 0; k < n; ++k) {
            std::size_t pivot = k;
            for (std::size_t i = k; i < n; ++i) {
                if (std::abs(Y_[i][k]) > std::abs(Y_[pivot][k])) pivot = i;
            }
            std::swap(Y_[k], Y_[pivot]);
            std::swap(I_[k], I_[pivot]);
            for (std::size_t i = k + 1; i < n; ++i) {
                const Cx factor = Y_[i][k] / Y_[k][k];
                for (std::size_t j = k; j < n; ++j) Y_[i][j] -= factor * Y_[k][j];
                I_[i] -= factor * I_[k];
            }
        }
        for (std::size_t k = n; k-- > 0;) {
            for (std::size_t j = k + 1; j < n; ++j) I_[k] -= Y_[k][j] * I_[j];
            I_[k] /= Y_[k][k];
        }
        return I_;
    }

    Network network_;
    long double R1_;
    long double R2_;
    Losses losses_;
    std::vector<std::vector<Cx>> Y_;
    std::vector<Cx> I_;
    std::vector<int> ends_;
};

}  // namespace kelvro
