#include "plot/smith_path.h"

#include <algorithm>
#include <cmath>

#include "core/scalar.h"
#include "network/ladder_response.h"
#include "plot/smith_frame.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr int kPointsPerStep = 48;

/// A path in the making: where it stands, and the steps so far.
class Walk {
  public:
    Walk(const Network& network, double f)
        : network_(network),
          f_(f),
          source_(impedance(network.source, f)),
          Z_(impedance(network.load, f)) {}

    bool possible() const { return std::isfinite(source_.real()) && std::isfinite(Z_.real()); }

    std::vector<PathStep> steps() {
        for (std::size_t i = network_.ladder.size(); i-- > 0;) {
            element_ = i;
            std::visit([this](const auto& is) { pass(is); }, network_.ladder[i].is);
        }
        return std::move(steps_);
    }

  private:
    using Quantity = Tunable::Quantity;

    /// A step along Z(t), t from 0 to 1.
    template <typename ImpedanceAt>
    void step(std::optional<Tunable> tunable, std::string name, ImpedanceAt&& at) {
        PathStep step{element_, tunable, std::move(name), {}, Z_, at(1.0)};
        for (int i = 0; i <= kPointsPerStep; ++i)
            step.gamma.push_back(ChartGamma(at(i / double{kPointsPerStep}), source_));
        Z_ = step.after;
        steps_.push_back(std::move(step));
    }

    std::string nameOf(const Tunable& tunable) const { return NameOf(network_.ladder, tunable); }

    void pass(const Arm& arm) {
        std::size_t part = 0;
        passMember(arm.place, arm.impedance, part);
    }

    /// Members of a group in the direction of the arm have steps of their own; `part` counts the
    /// parts that the arm has had.
    void passMember(Place place, const Impedance& member, std::size_t& part) {
        const auto* group = std::get_if<Impedance::Group>(&member.is);
        if (group && group->parallel == (place == Place::Shunt)) {
            for (const Impedance& inner : group->members) passMember(place, inner, part);
            return;
        }
        std::optional<Tunable> tunable;
        std::string name = "Z";
        if (std::holds_alternative<Part>(member.is)) {
            tunable = Tunable{element_, part++, Quantity::PartValue};
            name = nameOf(*tunable);
        } else if (group) {
            const Tunable first{element_, part, Quantity::PartValue};
            part += PartsOf({LadderElement{Arm{place, member, false}, {}}}).size();
            name = PartAt(network_.ladder, first) ? nameOf(first) : name;
        }
        scaled(place, impedance(member, f_), tunable, std::move(name));
    }

    /// The part's impedance in series, or its admittance across, grows from nothing to what it is.
    void scaled(Place place, Cx own, std::optional<Tunable> tunable, std::string name) {
        const Cx Z = Z_;
        if (place == Place::Series)
            return step(tunable, name, [=](double t) { return Z + t * own; });
        const Cx Y = 1.0 / own;
        step(tunable, name, [=](double t) { return Z / (1.0 + t * Y * Z); });
    }

    void pass(const Line& line) {
        const Quantity quantity =
            line.length.atHertz > 0 ? Quantity::LineAngle : Quantity::LineLength;
        const Tunable tunable{element_, 0, quantity};
        if (line.form != Line::Form::Through) {
            const std::vector<LadderElement> stub{network_.ladder[element_]};
            return scaled(Place::Shunt, seen({}, stub), tunable, nameOf(tunable));
        }
        const Cx Z = Z_;
        step(tunable, nameOf(tunable), [&](double t) {
            Line piece = line;
            piece.length.degrees *= t;
            piece.length.metres *= t;
            return t == 0 ? Z : seen(Z, {LadderElement{piece, {}}});
        });
    }

    void pass(const Transformer& transformer) {
        const Cx Z = Z_;
        const Tunable tunable{element_, 0, Quantity::Turns};
        step(tunable, nameOf(tunable),
             [=](double t) { return Z * std::pow(transformer.n, 2 * t); });
    }

    void pass(const CoupledCoils& coils) {
        straight({}, coils.first.name + ", " + coils.second.name);
    }
    void pass(const MeasuredTwoPort& device) { straight({}, device.data ? device.data->name : ""); }
    void pass(const Branch&) {
        // Only what hangs across: the load of the ladder alone is left open.
        const std::vector<LadderElement> branch{network_.ladder[element_]};
        scaled(Place::Shunt, seen({}, branch), std::nullopt, "branch");
    }
    void pass(const Switch&) {}

    /// What has no natural way between: the straight line on the chart.
    void straight(std::optional<Tunable> tunable, std::string name) {
        const Cx after = seen(Z_, {network_.ladder[element_]});
        PathStep step{element_, tunable, std::move(name), {}, Z_, after};
        step.gamma = {ChartGamma(Z_, source_), ChartGamma(after, source_)};
        Z_ = after;
        steps_.push_back(std::move(step));
    }

    /// Impedance into a ladder that ends in Z; without Z it stays open.
    Cx seen(std::optional<Cx> Z, std::vector<LadderElement> ladder) const {
        Network piece;
        piece.ladder = std::move(ladder);
        const Matrix2 chain = LadderResponse(piece).chain(f_);
        const auto& [A, B, C, D] = chain.m;
        return Z ? (A * *Z + B) / (C * *Z + D) : A / C;
    }

    const Network& network_;
    const double f_;
    const Cx source_;
    Cx Z_;
    std::size_t element_ = 0;
    std::vector<PathStep> steps_;
};

/// The value between the ends of a range at which a rising quantity reaches what is wanted; the
/// nearer end where it never does. Decades apart, the search halves the logarithm.
template <typename QuantityOf>
double Solve(ValueRange range, double wanted, QuantityOf&& quantity) {
    constexpr int halvings = 80;
    double low = std::log(range.low);
    double high = std::log(range.high);
    for (int i = 0; i < halvings; ++i) {
        const double middle = (low + high) / 2;
        (quantity(std::exp(middle)) < wanted ? low : high) = middle;
    }
    return std::exp((low + high) / 2);
}

/// Series or across: what of the cursor's place a part takes, and the quantity of its value.
double DraggedPart(const Network& network, const PathStep& step, Cx cursor, double f) {
    const Arm& arm = std::get<Arm>(network.ladder[step.element].is);
    Part part = *PartAt(network.ladder, *step.tunable);
    const bool series = arm.place == Place::Series;
    const bool resistor = part.kind == PartKind::Resistor;
    const Cx added = series ? cursor - step.before : 1.0 / cursor - 1.0 / step.before;
    const ValueRange range = RangeOf(network.ladder, *step.tunable);
    if (resistor) {
        const double wanted = series ? added.real() : 1 / std::max(added.real(), 1e-12);
        return Clamp(wanted, range.low, range.high);
    }
    // Reactances and susceptances of both kinds rise with the value.
    return Solve(range, added.imag(), [&](double value) {
        part.value = value;
        const Cx own = impedance(part, f);
        return (series ? own : 1.0 / own).imag();
    });
}

/// Angle of a line's input reflection about its own impedance.
double DraggedLine(const Network& network, const PathStep& step, Cx cursor, double f) {
    const Line& line = std::get<Line>(network.ladder[step.element].is);
    const auto phase = [&](Cx Z) { return std::arg((Z - line.Z0) / (Z + line.Z0)); };
    const double wholeTurn = kTwoPi;
    const double full = ValueOf(network.ladder, *step.tunable) / line.length.angle(f);
    double angle = 0;
    if (line.form == Line::Form::Through) {
        // Both angles turn at twice the electrical length; a value a turn away is as good.
        angle = phase(step.before) - phase(cursor);
        angle -= wholeTurn * std::floor(angle / wholeTurn);
        angle /= 2;
    } else {
        const double b = (1.0 / cursor - 1.0 / step.before).imag() * line.Z0;
        angle = line.form == Line::Form::OpenStub ? std::atan(b) : std::atan2(1, -b);
        if (angle <= 0) angle += wholeTurn / 2;
    }
    const ValueRange range = RangeOf(network.ladder, *step.tunable);
    return Clamp(angle * full, range.low, range.high);
}

}  // namespace

std::vector<PathStep> SmithPath(const Network& network, double f) {
    Walk walk(network, f);
    return walk.possible() ? walk.steps() : std::vector<PathStep>();
}

double DraggedValue(const Network& network, const PathStep& step, Cx gamma, double f) {
    const Cx cursor = ChartImpedance(gamma, impedance(network.source, f));
    switch (step.tunable->quantity) {
        case Tunable::Quantity::PartValue:
            return DraggedPart(network, step, cursor, f);
        case Tunable::Quantity::LineAngle:
        case Tunable::Quantity::LineLength:
            return DraggedLine(network, step, cursor, f);
        default:
            break;
    }
    // Turns: the modulus of the impedance.
    const ValueRange range = RangeOf(network.ladder, *step.tunable);
    return Clamp(std::sqrt(std::abs(cursor) / std::abs(step.before)), range.low, range.high);
}

std::optional<std::size_t> NodeNear(const std::vector<PathStep>& path, Cx gamma, double reach) {
    std::optional<std::size_t> nearest;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (!path[i].tunable) continue;
        const double distance = std::abs(path[i].gamma.back() - gamma);
        if (distance > reach) continue;
        if (nearest && std::abs(path[*nearest].gamma.back() - gamma) <= distance) continue;
        nearest = i;
    }
    return nearest;
}

}  // namespace kelvro
