#include "design/class_e.h"

#include <Eigen/LU>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <unsupported/Eigen/MatrixFunctions>

#include "core/scalar.h"

namespace kelvro {

namespace {

constexpr double kPi = std::numbers::pi;

// ---------------------------------------------------------------- normalized network

/// The stage in units of R, 1/ω and the swing Ub - Usat; voltages count from Usat.
struct Network {
    double Q;       ///< ω·L2/R
    double b1;      ///< ω·R·C1
    double x2;      ///< 1/(ω·R·C2)
    double g;       ///< R/(ω·Lc), 0 for an infinite choke
    double r1 = 0;  ///< resistance in series with C1
    double r2 = 0;  ///< resistance in series with C2 and L2
};

/// The state variables. The choke's current is I0 + g·flux, so that an infinite choke is no special
/// case: what makes it periodic, no mean voltage across the choke, is the same equation for all.
/// The last two never change and drive the others.
enum Index { kFlux, kV1, kCharge2, kLoad, kI0, kSupply, kSize };
using Vector = Eigen::Matrix<double, kSize, 1>;
using Matrix = Eigen::Matrix<double, kSize, kSize>;

double ChokeCurrent(const Network& n, const Vector& y) {
    return y[kI0] + n.g * y[kFlux];
}

/// Into C1 while the switch is open.
double CurrentC1(const Network& n, const Vector& y) {
    return ChokeCurrent(n, y) - y[kLoad];
}

Matrix OpenRates(const Network& n) {
    Vector current = Vector::Zero();  // into C1
    current[kFlux] = n.g;
    current[kI0] = 1;
    current[kLoad] = -1;
    Vector voltage = n.r1 * current;  // across the switch
    voltage[kV1] += 1;
    Matrix rates = Matrix::Zero();
    rates.row(kFlux) = -voltage;
    rates(kFlux, kSupply) += 1;
    rates.row(kV1) = current / n.b1;
    rates(kCharge2, kLoad) = 1;
    rates.row(kLoad) = voltage / n.Q;
    rates(kLoad, kCharge2) -= n.x2 / n.Q;
    rates(kLoad, kLoad) -= (1 + n.r2) / n.Q;
    return rates;
}

/// Without C1, which the closed switch parts from the rest.
Matrix ClosedRates(const Network& n) {
    Matrix rates = Matrix::Zero();
    rates(kFlux, kSupply) = 1;
    rates(kCharge2, kLoad) = 1;
    rates(kLoad, kCharge2) = -n.x2 / n.Q;
    rates(kLoad, kLoad) = -(1 + n.r2) / n.Q;
    return rates;
}

Matrix OpenFor(const Network& n, double time) {
    return (OpenRates(n) * time).exp();
}

/// C1 empties through its own resistance alone: at once where it has none.
Matrix ClosedFor(const Network& n, double time) {
    Matrix step = (ClosedRates(n) * time).exp();
    step(kV1, kV1) = n.r1 > 0 ? std::exp(-time / (n.b1 * n.r1)) : 0;
    return step;
}

/// The periodic state when the switch opens; nothing where the equations have no solution.
std::optional<Vector> PeriodicState(const Matrix& open, const Matrix& closed) {
    Matrix equations = closed * open - Matrix::Identity();
    // The flux starts from 0; the four others are unknown.
    const Eigen::Matrix4d left = equations.block<4, 4>(kFlux, kV1);
    const Eigen::Vector4d right = -equations.block<4, 1>(kFlux, kSupply);
    const Eigen::Vector4d unknown = left.partialPivLu().solve(right);
    if (!unknown.allFinite()) return std::nullopt;
    Vector y;
    y << 0, unknown, 1;
    return y;
}

// ---------------------------------------------------------------- design

/// What the capacitors are to bring to zero when the switch closes: its voltage and the current
/// into C1. The second unknown is how far the reactance of C2 falls short of that of L2: unlike C2
/// itself it stays between 0.5 and 1.8 for every Q.
std::optional<Eigen::Vector2d> TurnOn(double Q, double g, const Eigen::Vector2d& unknown) {
    const Network n{.Q = Q, .b1 = unknown[0], .x2 = Q - unknown[1], .g = g};
    const Matrix open = OpenFor(n, kPi);
    const auto start = PeriodicState(open, ClosedFor(n, kPi));
    if (!start) return std::nullopt;
    const Vector end = open * *start;
    return Eigen::Vector2d(end[kV1], CurrentC1(n, end));
}

/// Near enough for Newton's iteration: C1 by Sokal's fit for an infinite choke, the other by one of
/// the same kind to the exact solutions, and how both move with a finite choke.
Eigen::Vector2d FirstGuess(double Q, double g) {
    const double b1 = (0.99866 + 0.91424 / Q - 1.03175 / (Q * Q)) / ((kPi * kPi / 4 + 1) * kPi / 2);
    const double shortfall = 1.1525 + 0.53 / (Q - 1);
    return {b1 + 0.58 * g / (1 + 0.4 * g), shortfall / (1 + 2 * g)};
}

/// Central differences; the residuals are of the order of 1, as are the unknowns.
std::optional<Eigen::Matrix2d> TurnOnSlopes(double Q, double g, const Eigen::Vector2d& unknown) {
    constexpr double step = 1e-6;
    Eigen::Matrix2d slopes;
    for (int k = 0; k < 2; ++k) {
        const auto above = TurnOn(Q, g, unknown + step * Eigen::Vector2d::Unit(k));
        const auto below = TurnOn(Q, g, unknown - step * Eigen::Vector2d::Unit(k));
        if (!above || !below) return std::nullopt;
        slopes.col(k) = (*above - *below) / (2 * step);
    }
    return slopes;
}

/// Newton's iteration, its steps halved until they bring both nearer to zero. Four or five steps do
/// from any Q and choke that pages take.
std::optional<Network> Solve(double Q, double g) {
    constexpr int mostSteps = 30;
    constexpr double tolerance = 1e-11;  // in units of the swing and of swing/R
    Eigen::Vector2d unknown = FirstGuess(Q, g);
    auto residual = TurnOn(Q, g, unknown);
    for (int i = 0; i < mostSteps && residual && !(residual->norm() < tolerance); ++i) {
        const auto slopes = TurnOnSlopes(Q, g, unknown);
        if (!slopes) return std::nullopt;
        Eigen::Vector2d change = -slopes->partialPivLu().solve(*residual);
        std::optional<Eigen::Vector2d> next;
        for (; change.norm() > 1e-12; change /= 2) {
            if (unknown[0] + change[0] > 0) next = TurnOn(Q, g, unknown + change);
            if (next && next->norm() < residual->norm()) break;
            next.reset();
        }
        if (!next) return std::nullopt;
        unknown += change;
        residual = next;
    }
    if (!residual || !(residual->norm() < tolerance)) return std::nullopt;
    return Network{.Q = Q, .b1 = unknown[0], .x2 = Q - unknown[1], .g = g};
}

// ---------------------------------------------------------------- waves

/// Steps of one position of the switch; even, for Simpson's rule.
constexpr int kSteps = 256;
constexpr double kStep = kPi / kSteps;

/// The states of one period, each half with both its ends.
struct Period {
    std::array<Vector, kSteps + 1> closed;
    std::array<Vector, kSteps + 1> open;
};

std::optional<Period> PeriodOf(const Network& n) {
    const Matrix openStep = OpenFor(n, kStep);
    const Matrix closedStep = ClosedFor(n, kStep);
    const auto start = PeriodicState(OpenFor(n, kPi), ClosedFor(n, kPi));
    if (!start) return std::nullopt;
    Period period;
    const auto follow = [](auto& states, const Matrix& step) {
        for (std::size_t i = 0; i + 1 < states.size(); ++i) states[i + 1] = step * states[i];
    };
    period.open.front() = *start;
    follow(period.open, openStep);
    period.closed.front() = period.open.back();
    follow(period.closed, closedStep);
    return period;
}

/// Mean over the period of what `value` reads from a state and the time since the switch closed.
template <typename Value>
double Mean(const Period& period, Value&& value) {
    double sum = 0;
    for (int i = 0; i <= kSteps; ++i) {
        const double weight = i == 0 || i == kSteps ? 1 : (i % 2 == 1 ? 4 : 2);
        const auto at = static_cast<std::size_t>(i);
        sum += weight * value(period.closed[at], i * kStep);
        sum += weight * value(period.open[at], kPi + i * kStep);
    }
    return sum / (6 * kSteps);
}

/// Largest value of a smooth row, between its points by a parabola.
template <typename Value>
double Peak(const std::array<Vector, kSteps + 1>& states, Value&& value) {
    const auto top = std::ranges::max_element(states, {}, value);
    const double middle = value(*top);
    if (top == states.begin() || top == states.end() - 1) return middle;
    const double left = value(*(top - 1));
    const double right = value(*(top + 1));
    const double bend = left - 2 * middle + right;
    return bend < 0 ? middle - (right - left) * (right - left) / (8 * bend) : middle;
}

double SwitchVoltage(const Network& n, const Vector& open) {
    return open[kV1] + n.r1 * CurrentC1(n, open);
}

/// What flows through the closed switch; the charge that C1 keeps at turn-on is not in it.
double SwitchCurrent(const Network& n, const Vector& closed) {
    return ChokeCurrent(n, closed) - closed[kLoad];
}

Network Normalized(const ClassEStage& stage) {
    const double omega = kTwoPi * stage.fo;
    return {.Q = omega * stage.L2 / stage.R,
            .b1 = omega * stage.R * stage.C1,
            .x2 = 1 / (omega * stage.R * stage.C2),
            .g = stage.R / (omega * stage.choke),
            .r1 = stage.lossC1 / stage.R,
            .r2 = stage.loss / stage.R};
}

std::vector<ClassEInstant> Waves(const Network& n, const Period& period, double swing,
                                 const ClassEStage& stage) {
    const double amperes = swing / stage.R;
    std::vector<ClassEInstant> waves;
    waves.reserve(2 * (kSteps + 1));
    for (int i = 0; i <= kSteps; ++i) {
        const Vector& y = period.closed[static_cast<std::size_t>(i)];
        waves.push_back({0.5 * i / kSteps, stage.saturation, amperes * SwitchCurrent(n, y),
                         amperes * y[kLoad]});
    }
    for (int i = 0; i <= kSteps; ++i) {
        const Vector& y = period.open[static_cast<std::size_t>(i)];
        waves.push_back({0.5 + 0.5 * i / kSteps, stage.saturation + swing * SwitchVoltage(n, y), 0,
                         amperes * y[kLoad]});
    }
    return waves;
}

/// Amplitude of the load current's k-th harmonic.
double Harmonic(const Period& period, int k) {
    const double cosine =
        Mean(period, [k](const Vector& y, double t) { return y[kLoad] * std::cos(k * t); });
    const double sine =
        Mean(period, [k](const Vector& y, double t) { return y[kLoad] * std::sin(k * t); });
    return 2 * std::hypot(cosine, sine);
}

void PutMeans(const Network& n, const Period& period, const ClassEStage& stage,
              ClassEOperation& result) {
    const double swing = stage.supply - stage.saturation;
    const double amperes = swing / stage.R;
    result.outputPower =
        swing * amperes * Mean(period, [](const Vector& y, double) { return y[kLoad] * y[kLoad]; });
    result.supplyCurrent =
        amperes * Mean(period, [&](const Vector& y, double) { return ChokeCurrent(n, y); });
    result.efficiency = result.outputPower / (stage.supply * result.supplyCurrent);
    for (int k = 1; k <= kClassEHarmonics; ++k) {
        result.harmonics[static_cast<std::size_t>(k - 1)] = amperes * Harmonic(period, k);
    }
}

bool IsPositive(double x) {
    return std::isfinite(x) && x > 0;
}

}  // namespace

Result<ClassEStage> DesignClassEStage(const ClassERequest& request) {
    const auto& [power, supply, saturation, fo, Q, choke] = request;
    if (saturation >= supply) return Status::Failure("It must be Ub>Usat!");
    if (!(Q > kSmallestClassEQ)) return Status::Failure("Q must be larger than 1.79!");
    if (!IsPositive(power) || !IsPositive(fo) || !(choke > 0)) {
        return Status::Failure("Power, frequency and choke must be positive!");
    }
    const auto network = Solve(Q, 1 / choke);
    const auto period = network ? PeriodOf(*network) : std::nullopt;
    if (!period || !(network->x2 > 0)) {
        return Status::Failure("No class-E stage was found for this Q and choke!");
    }
    // Nothing is lost: the load takes what the supply gives.
    const double swing = supply - saturation;
    const double gain =
        Mean(*period, [&](const Vector& y, double) { return ChokeCurrent(*network, y); });
    const double R = gain * swing * swing / power;
    const double omega = kTwoPi * fo;
    return ClassEStage{.fo = fo,
                       .supply = supply,
                       .saturation = saturation,
                       .R = R,
                       .C1 = network->b1 / (omega * R),
                       .C2 = 1 / (network->x2 * omega * R),
                       .L2 = Q * R / omega,
                       .choke = choke * R / omega};
}

Result<ClassEOperation> OperateClassE(const ClassEStage& stage) {
    const bool usable = IsPositive(stage.fo) && IsPositive(stage.R) && IsPositive(stage.C1) &&
                        IsPositive(stage.C2) && IsPositive(stage.L2) && stage.choke > 0 &&
                        stage.supply > stage.saturation && stage.lossC1 >= 0 && stage.loss >= 0;
    const Network n = Normalized(stage);
    const auto period = usable ? PeriodOf(n) : std::nullopt;
    if (!period) return Status::Failure("These parts have no steady state!");

    const double swing = stage.supply - stage.saturation;
    const double amperes = swing / stage.R;
    ClassEOperation result;
    PutMeans(n, *period, stage, result);
    const Vector& closing = period->open.back();
    result.turnOnVoltage = swing * SwitchVoltage(n, closing);
    result.peakVoltage = stage.saturation + swing * Peak(period->open, [&](const Vector& y) {
                                                return SwitchVoltage(n, y);
                                            });
    result.peakCurrent =
        amperes * Peak(period->closed, [&](const Vector& y) { return SwitchCurrent(n, y); });
    result.chokeCurrent = amperes * ChokeCurrent(n, closing);
    result.voltageC1 = stage.saturation + swing * closing[kV1];
    result.voltageC2 = stage.saturation + swing * closing[kCharge2] * n.x2;
    result.currentL2 = amperes * closing[kLoad];
    result.waves = Waves(n, *period, swing, stage);
    return result;
}

double ClassEOperation::harmonicDb(int n) const {
    return 20 * std::log10(harmonics.at(static_cast<std::size_t>(n - 1)) / harmonics.front());
}

}  // namespace kelvro
