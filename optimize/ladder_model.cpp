#include "optimize/ladder_model.h"

#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

double RealOfProduct(const ComplexRow& A, const ComplexRow& B, std::size_t i) {
    return A.re[i] * B.re[i] - A.im[i] * B.im[i];
}

double ImagOfProduct(const ComplexRow& A, const ComplexRow& B, std::size_t i) {
    return A.re[i] * B.im[i] + A.im[i] * B.re[i];
}

/// A pair whose immittances add up to the row: the row becomes its inverse, and the derivatives of
/// the sum become those of the inverse.
void InvertPair(ComplexRow& row, ComplexRow (&derivative)[2]) {
    Invert(row);
    for (std::size_t i = 0; i < row.size(); ++i) {
        const double squareRe = -(row.re[i] * row.re[i] - row.im[i] * row.im[i]);
        const double squareIm = -2 * row.re[i] * row.im[i];
        for (ComplexRow& d : derivative) {
            const double re = d.re[i];
            d.re[i] = re * squareRe - d.im[i] * squareIm;
            d.im[i] = re * squareIm + d.im[i] * squareRe;
        }
    }
}

}  // namespace

ModelGrid GridOf(const Termination& source, const Termination& load, const SearchLosses& losses,
                 double R0, double f0, std::span<const double> f) {
    ModelGrid grid;
    grid.R0 = R0;
    grid.f0 = f0;
    grid.f.assign(f.begin(), f.end());
    for (ComplexRow* row : {&grid.source, &grid.load, &grid.inductorZ, &grid.inductorY,
                            &grid.capacitorZ, &grid.capacitorY}) {
        row->resize(f.size());
    }
    grid.fourRR.resize(f.size());
    grid.sign.assign(f.size(), 1);
    grid.ceiling.assign(f.size(), 0);
    Part L = Part::L(R0 / (kTwoPi * f0));
    Part C = Part::C(1 / (kTwoPi * f0 * R0));
    L.loss = losses.inductor;
    C.loss = losses.capacitor;
    for (std::size_t i = 0; i < f.size(); ++i) {
        const Cx ZS = impedance(source, f[i]) / R0;
        const Cx ZL = impedance(load, f[i]) / R0;
        grid.source.set(i, ZS);
        grid.load.set(i, ZL);
        grid.fourRR[i] = 4 * ZS.real() * ZL.real();
        const Cx ZInductor = impedance(L, f[i]) / R0;
        const Cx ZCapacitor = impedance(C, f[i]) / R0;
        grid.inductorZ.set(i, ZInductor);
        grid.inductorY.set(i, 1.0 / ZInductor);
        grid.capacitorZ.set(i, ZCapacitor);
        grid.capacitorY.set(i, 1.0 / ZCapacitor);
    }
    return grid;
}

void Gather(const ModelGrid& grid, std::span<const std::size_t> which, ModelGrid& some) {
    some.R0 = grid.R0;
    some.f0 = grid.f0;
    const auto gather = [&](const std::vector<double>& from, std::vector<double>& to) {
        to.resize(which.size());
        for (std::size_t i = 0; i < which.size(); ++i) to[i] = from[which[i]];
    };
    for (const auto row : {&ModelGrid::source, &ModelGrid::load, &ModelGrid::inductorZ,
                           &ModelGrid::inductorY, &ModelGrid::capacitorZ, &ModelGrid::capacitorY}) {
        gather((grid.*row).re, (some.*row).re);
        gather((grid.*row).im, (some.*row).im);
    }
    for (const auto row :
         {&ModelGrid::f, &ModelGrid::fourRR, &ModelGrid::sign, &ModelGrid::ceiling}) {
        gather(grid.*row, some.*row);
    }
}

/// One stage with its parameters, evaluated on a grid.
struct LadderModel::StageAt {
    const ModelGrid& grid;
    const Stage& stage;
    const double* x;  ///< its own parameters

    bool isArm() const {
        return stage.kind != StageKind::Line && stage.kind != StageKind::Transformer;
    }

    void fill(StageRows& rows) const {
        switch (stage.kind) {
            case StageKind::L:
            case StageKind::C:
                return fillSingle(rows);
            case StageKind::LC:
            case StageKind::Trap:
                return fillPair(rows);
            case StageKind::OpenStub:
            case StageKind::ShortedStub:
                return fillStub(rows);
            case StageKind::Line:
                for (std::size_t i = 0; i < grid.size(); ++i) {
                    const double angle = std::exp(x[1]) * grid.f[i] / grid.f0;
                    rows.value.set(i, {std::cos(angle), std::sin(angle)});
                }
                return;
            case StageKind::Transformer:
                return;
        }
    }

    // An inductor's impedance and a capacitor's admittance rise with the parameter, their inverses
    // fall.
    void fillSingle(StageRows& rows) const {
        const bool series = stage.place == Place::Series;
        const bool inductor = stage.kind == StageKind::L;
        const double sign = series == inductor ? 1 : -1;
        const ComplexRow& unit = inductor ? (series ? grid.inductorZ : grid.inductorY)
                                          : (series ? grid.capacitorZ : grid.capacitorY);
        const double size = std::exp(sign * x[0]);
        Scale(rows.value, size, unit);
        Scale(rows.derivative[0], sign * size, unit);
    }

    void fillPair(StageRows& rows) const {
        // Impedances add in a series arm that passes at resonance and in a shunt trap.
        const bool impedances = (stage.place == Place::Series) == (stage.kind == StageKind::LC);
        const double sign = impedances ? 1 : -1;
        const ComplexRow& L = impedances ? grid.inductorZ : grid.inductorY;
        const ComplexRow& C = impedances ? grid.capacitorZ : grid.capacitorY;
        const double sizeL = std::exp(sign * x[0]);
        const double sizeC = std::exp(-sign * x[1]);
        Combine(rows.value, sizeL, L, sizeC, C);
        Scale(rows.derivative[0], sign * sizeL, L);
        Scale(rows.derivative[1], -sign * sizeC, C);
        if (stage.kind == StageKind::Trap) InvertPair(rows.value, rows.derivative);
    }

    void fillStub(StageRows& rows) const {
        const double admittance = std::exp(-x[0]);
        const bool open = stage.kind == StageKind::OpenStub;
        for (std::size_t i = 0; i < grid.size(); ++i) {
            const double angle = std::exp(x[1]) * grid.f[i] / grid.f0;
            const double tangent = std::tan(angle);
            const double B = open ? tangent : -1 / tangent;
            const double slope = open ? 1 + tangent * tangent : 1 + 1 / (tangent * tangent);
            rows.value.set(i, {0, admittance * B});
            rows.derivative[0].set(i, {0, -admittance * B});
            rows.derivative[1].set(i, {0, admittance * slope * angle});
        }
    }

    /// From the waves behind the stage to those in front of it.
    void passBackward(const StageRows& rows, const Wave& behind, Wave& front) const {
        if (stage.kind == StageKind::Transformer) {
            const double n = std::exp(x[0]);
            Scale(front.voltage, n, behind.voltage);
            Scale(front.current, 1 / n, behind.current);
        } else if (stage.kind == StageKind::Line) {
            const double Z0 = std::exp(x[0]);
            turn(rows, Z0, behind.voltage, behind.current, front.voltage);
            turn(rows, 1 / Z0, behind.current, behind.voltage, front.current);
        } else if (stage.place == Place::Series) {
            AddProduct(front.voltage, behind.voltage, rows.value, behind.current);
            front.current = behind.current;
        } else {
            AddProduct(front.current, behind.current, rows.value, behind.voltage);
            front.voltage = behind.voltage;
        }
    }

    /// The adjoint from in front of the stage to behind it.
    void passForward(const StageRows& rows, Wave& adjoint, Wave& scratch) const {
        if (stage.kind == StageKind::Transformer) {
            const double n = std::exp(x[0]);
            Scale(adjoint.voltage, n);
            Scale(adjoint.current, 1 / n);
        } else if (stage.kind == StageKind::Line) {
            const double Z0 = std::exp(x[0]);
            turn(rows, 1 / Z0, adjoint.voltage, adjoint.current, scratch.voltage);
            turn(rows, Z0, adjoint.current, adjoint.voltage, scratch.current);
            std::swap(adjoint, scratch);
        } else if (stage.place == Place::Series) {
            AccumulateProduct(adjoint.current, rows.value, adjoint.voltage);
        } else {
            AccumulateProduct(adjoint.voltage, rows.value, adjoint.current);
        }
    }

    /// Writes the derivatives to the stage's parameters, one column of `gradients` (of `n` columns)
    /// each.
    void addGradients(const StageRows& rows, const Wave& adjoint, const Wave& behind,
                      double* gradients, std::size_t n) const {
        if (stage.kind == StageKind::Transformer) {
            transformerGradient(adjoint, behind, gradients, n);
        } else if (stage.kind == StageKind::Line) {
            lineGradients(rows, adjoint, behind, gradients, n);
        } else if (stage.place == Place::Series) {
            armGradients(rows, adjoint.voltage, behind.current, gradients, n);
        } else {
            armGradients(rows, adjoint.current, behind.voltage, gradients, n);
        }
    }

    void armGradients(const StageRows& rows, const ComplexRow& u, const ComplexRow& w,
                      double* gradients, std::size_t n) const {
        const std::size_t count = stage.parameters();
        for (std::size_t i = 0; i < grid.size(); ++i) {
            const double re = u.re[i] * w.re[i] - u.im[i] * w.im[i];
            const double im = u.re[i] * w.im[i] + u.im[i] * w.re[i];
            for (std::size_t p = 0; p < count; ++p) {
                const ComplexRow& d = rows.derivative[p];
                gradients[i * n + p] = re * d.re[i] - im * d.im[i];
            }
        }
    }

    void transformerGradient(const Wave& adjoint, const Wave& behind, double* gradients,
                             std::size_t n) const {
        const double ratio = std::exp(x[0]);
        for (std::size_t i = 0; i < grid.size(); ++i) {
            gradients[i * n] = ratio * RealOfProduct(adjoint.voltage, behind.voltage, i) -
                               RealOfProduct(adjoint.current, behind.current, i) / ratio;
        }
    }

    void lineGradients(const StageRows& rows, const Wave& adjoint, const Wave& behind,
                       double* gradients, std::size_t n) const {
        const double Z0 = std::exp(x[0]);
        for (std::size_t i = 0; i < grid.size(); ++i) {
            const double angle = std::exp(x[1]) * grid.f[i] / grid.f0;
            const double c = rows.value.re[i];
            const double s = rows.value.im[i];
            // Re(j·z) = -Im z.
            const double acrossZ = -Z0 * ImagOfProduct(adjoint.voltage, behind.current, i);
            const double acrossY = -ImagOfProduct(adjoint.current, behind.voltage, i) / Z0;
            const double through = RealOfProduct(adjoint.voltage, behind.voltage, i) +
                                   RealOfProduct(adjoint.current, behind.current, i);
            gradients[i * n] = s * (acrossZ - acrossY);
            gradients[i * n + 1] = angle * (c * (acrossZ + acrossY) - s * through);
        }
    }

    /// result = cos·A + j·factor·sin·B of a line.
    void turn(const StageRows& rows, double factor, const ComplexRow& A, const ComplexRow& B,
              ComplexRow& result) const {
        for (std::size_t i = 0; i < grid.size(); ++i) {
            const double c = rows.value.re[i];
            const double s = factor * rows.value.im[i];
            result.re[i] = c * A.re[i] - s * B.im[i];
            result.im[i] = c * A.im[i] + s * B.re[i];
        }
    }
};

void LadderModel::backward(const ModelGrid& grid, const Stages& topology,
                           std::span<const double> x) {
    const std::size_t size = grid.size();
    if (waves_.size() < topology.size() + 1) waves_.resize(topology.size() + 1);
    if (stages_.size() < topology.size()) stages_.resize(topology.size());
    for (std::size_t k = 0; k <= topology.size(); ++k) {
        waves_[k].voltage.resize(size);
        waves_[k].current.resize(size);
    }
    for (std::size_t k = 0; k < topology.size(); ++k) {
        stages_[k].value.resize(size);
        stages_[k].derivative[0].resize(size);
        stages_[k].derivative[1].resize(size);
    }
    Wave& load = waves_[topology.size()];
    load.voltage = grid.load;
    load.current.fill(size, 1);
    std::size_t parameter = x.size();
    for (std::size_t k = topology.size(); k-- > 0;) {
        parameter -= topology[k].parameters();
        const StageAt at{grid, topology[k], x.data() + parameter};
        at.fill(stages_[k]);
        at.passBackward(stages_[k], waves_[k + 1], waves_[k]);
    }
    determinant_.resize(size);
    AddProduct(determinant_, waves_[0].voltage, grid.source, waves_[0].current);
}

void LadderModel::values(const ModelGrid& grid, const Stages& topology, std::span<const double> x,
                         std::vector<double>& rows) {
    backward(grid, topology, x);
    rows.resize(grid.size());
    for (std::size_t i = 0; i < grid.size(); ++i) {
        const double size =
            determinant_.re[i] * determinant_.re[i] + determinant_.im[i] * determinant_.im[i];
        rows[i] = grid.sign[i] * (std::log(grid.fourRR[i] / size) - grid.ceiling[i]);
    }
}

void LadderModel::rows(const ModelGrid& grid, const Stages& topology, std::span<const double> x,
                       LinearRows& rows) {
    values(grid, topology, x, rows.values);
    rows.variables = x.size();
    rows.gradients.resize(grid.size() * x.size());
    gradients(grid, topology, x, rows);
}

/// The determinant is bilinear in the waves from either side: its derivative to a stage is the
/// adjoint in front of the stage times the derivative of the stage times the wave behind it.
void LadderModel::gradients(const ModelGrid& grid, const Stages& topology,
                            std::span<const double> x, LinearRows& rows) {
    const std::size_t size = grid.size();
    const std::size_t n = x.size();
    inverse_.resize(size);
    for (std::size_t i = 0; i < size; ++i) {
        const double re = determinant_.re[i];
        const double im = determinant_.im[i];
        const double scale = -2 * grid.sign[i] / (re * re + im * im);
        inverse_.re[i] = re * scale;
        inverse_.im[i] = -im * scale;
    }
    // Started with the factor of every gradient: d ln GT = -2·Re(d determinant/determinant).
    adjoint_.voltage = inverse_;
    adjoint_.current.fill(size, 0);
    AccumulateProduct(adjoint_.current, inverse_, grid.source);
    scratch_.voltage.resize(size);
    scratch_.current.resize(size);
    std::size_t parameter = 0;
    for (std::size_t k = 0; k < topology.size(); ++k) {
        const StageAt at{grid, topology[k], x.data() + parameter};
        at.addGradients(stages_[k], adjoint_, waves_[k + 1], rows.gradients.data() + parameter, n);
        at.passForward(stages_[k], adjoint_, scratch_);
        parameter += topology[k].parameters();
    }
}

}  // namespace kelvro
