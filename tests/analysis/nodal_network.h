#pragma once

#include <cmath>
#include <complex>
#include <utility>
#include <vector>

#include "design/circuit.h"

namespace kelvro {

/// Independent check of the response: nodal equations of a circuit description between a source
/// of 1 V behind R1 and loads R2, solved by elimination in extended precision.
class NodalNetwork {
  public:
    using Cx = std::complex<long double>;

    /// sL and sC of the stored elements; on mirrored pages the dual circuit's parts have the
    /// impedances that the stored ones have at the mirrored frequency.
    struct Losses {
        double fo;
        double Qc;
        bool mirrored = false;
    };

    NodalNetwork(const Circuit& circuit, double R1, double R2, Losses losses)
        : circuit_(circuit), R1_(R1), R2_(R2), losses_(losses) {}

    /// 2·V(load)/V(source) at the end of a branch.
    Cx transfer(double f, int branch = 0) {
        assemble(f);
        const int load = branch == 0 ? ends_[0] : ends_[1];
        return 2.0L * solve()[static_cast<std::size_t>(load)];
    }

  private:
    static constexpr long double twoPi = 6.283185307179586L;

    Cx frequency(double f) const {
        return Cx(0, twoPi * f) * Cx(1, -1 / static_cast<long double>(losses_.Qc));
    }

    Cx admittance(const Element& element, double f) const {
        const long double value = element.value;
        const long double w0 = twoPi * losses_.fo;
        // The mirrored s has a negative frequency and a positive real part.
        const Cx s =
            losses_.mirrored ? std::conj(frequency(losses_.fo * losses_.fo / f)) : frequency(f);
        switch (element.kind) {
            case ElementKind::Resistor:
                return Cx(1 / value, 0);
            case ElementKind::Inductor:
            case ElementKind::Choke:
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

    void addLine(int i, int j, const Element& line, double f) {
        const long double ZL = line.value;
        const Cx angle = circuit_.lineAngleFo / (twoPi * losses_.fo) * frequency(f);
        const Cx own = std::cosh(angle) / (ZL * std::sinh(angle));
        const Cx mutual = -1.0L / (ZL * std::sinh(angle));
        at(i, i) += own;
        at(j, j) += own;
        at(i, j) += mutual;
        at(j, i) += mutual;
    }

    void addCoils(int i, int j, long double L1, long double L2, double f) {
        const Cx s = frequency(f);
        const long double M = circuit_.coupling * std::sqrt(L1 * L2);
        const long double d = L1 * L2 - M * M;
        at(i, i) += L2 / (s * d);
        at(j, j) += L1 / (s * d);
        at(i, j) -= M / (s * d);
        at(j, i) -= M / (s * d);
    }

    void assembleCoils(double f) {
        const auto& parts = circuit_.elements;
        const int load = newNode();
        connect(0, -1, admittance(parts[0], f));
        addCoils(0, load, parts[1].value, parts[2].value, f);
        connect(load, -1, admittance(parts[3], f));
        ends_ = {load, load};
    }

    void assemble(double f) {
        Y_.clear();
        I_.clear();
        newNode();
        I_[0] = 1 / R1_;
        connect(0, -1, 1 / R1_);
        ends_ = {0, 0};
        if (circuit_.topology == Topology::CoupledCoils) {
            assembleCoils(f);
        } else {
            for (const Element& element : circuit_.elements) place(element, f);
        }
        connect(ends_[0], -1, 1 / R2_);
        if (circuit_.topology == Topology::Balun) connect(ends_[1], -1, 1 / R2_);
    }

    void place(const Element& element, double f) {
        int& end = ends_[static_cast<std::size_t>(element.branch)];
        if (element.place == Place::Shunt) return connect(end, -1, admittance(element, f));
        const int next = newNode();
        if (element.kind == ElementKind::Line) {
            addLine(end, next, element, f);
        } else {
            connect(end, next, admittance(element, f));
        }
        end = next;
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

    Circuit circuit_;
    long double R1_;
    long double R2_;
    Losses losses_;
    std::vector<std::vector<Cx>> Y_;
    std::vector<Cx> I_;
    std::vector<int> ends_;
};

}  // namespace kelvro
