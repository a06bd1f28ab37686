#include "synthesis/candidates.h"

#include <algorithm>
#include <cmath>

#include "core/scalar.h"

namespace kelvro {

namespace {

Place Other(Place place) {
    return place == Place::Series ? Place::Shunt : Place::Series;
}

bool IsArm(const Stage& stage) {
    return stage.kind != StageKind::Line && stage.kind != StageKind::Transformer;
}

/// Do two neighbours merge into one stage?
bool Merge(const Stage& a, const Stage& b) {
    if (a.kind == StageKind::Transformer && b.kind == StageKind::Transformer) return true;
    return IsArm(a) && IsArm(b) && a.place == b.place;
}

/// May a stage stand in a ladder of this shape?
bool FitsShape(const Stage& stage, LadderShape shape) {
    if (shape == LadderShape::Any) return true;
    const bool low = shape == LadderShape::LowPass;
    switch (stage.kind) {
        case StageKind::L:
            return low == (stage.place == Place::Series);
        case StageKind::C:
            return low == (stage.place == Place::Shunt);
        case StageKind::OpenStub:
            return low;
        case StageKind::ShortedStub:
            return !low;
        case StageKind::Line:
        case StageKind::Transformer:
            return true;
        default:
            return false;
    }
}

bool BlocksDc(const Stage& stage) {
    if (stage.kind == StageKind::Transformer) return true;
    return stage.place == Place::Series &&
           (stage.kind == StageKind::C || stage.kind == StageKind::LC);
}

/// A coil across shorts the direct current that is to reach the load.
bool ShortsDc(const Stage& stage) {
    return stage.place == Place::Shunt &&
           (stage.kind == StageKind::L || stage.kind == StageKind::LC ||
            stage.kind == StageKind::ShortedStub);
}

/// All stages that the options allow anywhere.
std::vector<Stage> StagesOf(const SearchOptions& options) {
    std::vector<Stage> stages;
    const SearchKinds& kinds = options.kinds;
    const auto add = [&](bool wanted, Place place, StageKind kind) {
        const Stage stage{place, kind};
        if (!wanted || !FitsShape(stage, options.shape)) return;
        if (options.dc == DcWish::Pass && (BlocksDc(stage) || ShortsDc(stage))) return;
        stages.push_back(stage);
    };
    const bool pairs = kinds.inductors && kinds.capacitors;
    for (const Place place : {Place::Series, Place::Shunt}) {
        add(kinds.inductors, place, StageKind::L);
        add(kinds.capacitors, place, StageKind::C);
        add(pairs, place, StageKind::LC);
        add(pairs && kinds.traps, place, StageKind::Trap);
    }
    add(kinds.stubs, Place::Shunt, StageKind::OpenStub);
    add(kinds.stubs, Place::Shunt, StageKind::ShortedStub);
    add(kinds.lines, Place::Series, StageKind::Line);
    add(kinds.transformers, Place::Series, StageKind::Transformer);
    return stages;
}

bool Absorbs(const Stage& end, const std::optional<AbsorbedPart>& part) {
    if (!part) return true;
    const Place place = part->kind == PartKind::Capacitor ? Place::Shunt : Place::Series;
    return end.place == place && end.kind != StageKind::Trap && end.has(part->kind);
}

bool Fits(const Stages& topology, const SearchOptions& options) {
    if (options.dc == DcWish::Block && std::ranges::none_of(topology, BlocksDc)) return false;
    if (std::ranges::count(topology, StageKind::Transformer, &Stage::kind) > 1) return false;
    return Absorbs(topology.front(), options.atSource) && Absorbs(topology.back(), options.atLoad);
}

void Extend(Stages& topology, int missing, const std::vector<Stage>& stages,
            const SearchOptions& options, std::vector<Stages>& found) {
    if (missing == 0) {
        if (Fits(topology, options)) found.push_back(topology);
        return;
    }
    for (const Stage& stage : stages) {
        if (stage.parts() > missing || (!topology.empty() && Merge(topology.back(), stage))) {
            continue;
        }
        topology.push_back(stage);
        Extend(topology, missing - stage.parts(), stages, options, found);
        topology.pop_back();
    }
}

/// What each parameter of a stage is.
enum class Quantity { Inductance, Capacitance, Impedance, Angle, Turns };

std::vector<Quantity> QuantitiesOf(const Stage& stage) {
    switch (stage.kind) {
        case StageKind::L:
            return {Quantity::Inductance};
        case StageKind::C:
            return {Quantity::Capacitance};
        case StageKind::LC:
        case StageKind::Trap:
            return {Quantity::Inductance, Quantity::Capacitance};
        case StageKind::Transformer:
            return {Quantity::Turns};
        default:
            return {Quantity::Impedance, Quantity::Angle};
    }
}

/// The unit of which a parameter is the logarithm.
double UnitOf(Quantity quantity, double R0, double f0) {
    switch (quantity) {
        case Quantity::Inductance:
            return R0 / (kTwoPi * f0);
        case Quantity::Capacitance:
            return 1 / (kTwoPi * f0 * R0);
        case Quantity::Impedance:
            return R0;
        case Quantity::Angle:
            return kDegreesPerRadian;
        case Quantity::Turns:
            break;
    }
    return 1;
}

ValueLimits LimitsOf(Quantity quantity, const SearchOptions& options) {
    switch (quantity) {
        case Quantity::Inductance:
            return options.inductance;
        case Quantity::Capacitance:
            return options.capacitance;
        case Quantity::Impedance:
            return options.lineImpedance;
        case Quantity::Angle:
            return options.lineDegrees;
        case Quantity::Turns:
            break;
    }
    return options.turns;
}

void RaiseLow(ParameterBox& box, std::size_t first, const Stage& stage,
              const std::optional<AbsorbedPart>& part, double R0, double f0) {
    if (!part) return;
    const auto quantities = QuantitiesOf(stage);
    for (std::size_t i = 0; i < quantities.size(); ++i) {
        const bool same =
            (part->kind == PartKind::Capacitor) == (quantities[i] == Quantity::Capacitance);
        if (!same) continue;
        double& low = box.low[first + i];
        low = std::max(low, std::log(part->atLeast / UnitOf(quantities[i], R0, f0)));
    }
}

/// Logarithm of what an added part has of the reactance that would matter.
constexpr double kHardlyThere = -2.3;

/// Parameter of a part of a stage that changes hardly anything.
double Neutral(const Stage& stage, PartKind part) {
    const bool series = stage.place == Place::Series;
    // A coil in series is to be small; so is, of a trap, the one across. All else mirrors that.
    bool smallCoil = series;
    if (stage.kind == StageKind::Trap) smallCoil = !series;
    const double coil = smallCoil ? kHardlyThere : -kHardlyThere;
    return part == PartKind::Inductor ? coil : -coil;
}

struct Insertion {
    const LadderPoint& from;
    std::vector<LadderPoint> found = {};

    /// Index of the first parameter of a stage.
    std::size_t parameter(std::size_t stage) const {
        std::size_t sum = 0;
        for (std::size_t k = 0; k < stage; ++k) sum += from.topology[k].parameters();
        return sum;
    }

    void between(std::size_t gap, Place place, PartKind part) {
        const Stage stage{place, part == PartKind::Inductor ? StageKind::L : StageKind::C};
        if (gap > 0 && Merge(from.topology[gap - 1], stage)) return;
        if (gap < from.topology.size() && Merge(stage, from.topology[gap])) return;
        LadderPoint more = from;
        more.topology.insert(more.topology.begin() + static_cast<long>(gap), stage);
        more.x.insert(more.x.begin() + static_cast<long>(parameter(gap)), Neutral(stage, part));
        found.push_back(std::move(more));
    }

    void pair(std::size_t at, StageKind kind) {
        const Stage& single = from.topology[at];
        if (single.kind != StageKind::L && single.kind != StageKind::C) return;
        const bool adds = single.kind == StageKind::L;  // the capacitor, behind
        LadderPoint more = from;
        more.topology[at].kind = kind;
        const double neutral =
            Neutral(more.topology[at], adds ? PartKind::Capacitor : PartKind::Inductor);
        const auto place = static_cast<long>(parameter(at)) + (adds ? 1 : 0);
        more.x.insert(more.x.begin() + place, neutral);
        found.push_back(std::move(more));
    }

    /// The two parts of a pair and the new part between them.
    void into(std::size_t at, PartKind part) {
        const Stage& stage = from.topology[at];
        if (stage.kind != StageKind::LC) return;
        const Stage middle{Other(stage.place),
                           part == PartKind::Inductor ? StageKind::L : StageKind::C};
        const std::size_t first = parameter(at);
        for (const bool coilFirst : {true, false}) {
            LadderPoint more = from;
            const Stage coil{stage.place, StageKind::L};
            const Stage capacitor{stage.place, StageKind::C};
            more.topology[at] = coilFirst ? coil : capacitor;
            more.topology.insert(more.topology.begin() + static_cast<long>(at) + 1,
                                 {middle, coilFirst ? capacitor : coil});
            if (!coilFirst) std::swap(more.x[first], more.x[first + 1]);
            more.x.insert(more.x.begin() + static_cast<long>(first) + 1, Neutral(middle, part));
            found.push_back(std::move(more));
        }
    }
};

}  // namespace

std::vector<Stages> CandidatesOf(const SearchOptions& options, int parts) {
    std::vector<Stages> found;
    Stages topology;
    Extend(topology, parts, StagesOf(options), options, found);
    return found;
}

std::optional<ParameterBox> BoxOf(const Stages& topology, const SearchOptions& options, double R0,
                                  double f0, double nepers) {
    ParameterBox box;
    std::size_t last = 0;
    for (const Stage& stage : topology) {
        last = box.low.size();
        for (const Quantity quantity : QuantitiesOf(stage)) {
            const ValueLimits limits = LimitsOf(quantity, options);
            const double unit = UnitOf(quantity, R0, f0);
            const bool bounded = quantity == Quantity::Impedance || quantity == Quantity::Angle;
            const double widest = bounded ? 20 : nepers;
            box.low.push_back(limits.low > 0 ? std::max(std::log(limits.low / unit), -20.0)
                                             : -widest);
            box.high.push_back(std::isfinite(limits.high) ? std::log(limits.high / unit) : widest);
        }
    }
    if (topology.empty()) return box;
    RaiseLow(box, 0, topology.front(), options.atSource, R0, f0);
    RaiseLow(box, last, topology.back(), options.atLoad, R0, f0);
    for (std::size_t i = 0; i < box.low.size(); ++i) {
        // A limit beyond what is sensible moves the other end along.
        if (box.low[i] > box.high[i] && box.high[i] == nepers) box.high[i] = box.low[i] + 1;
        if (box.low[i] > box.high[i] && box.low[i] == -nepers) box.low[i] = box.high[i] - 1;
        if (box.low[i] > box.high[i]) return {};
    }
    return box;
}

std::vector<LadderPoint> OnePartMore(const LadderPoint& ladder) {
    Insertion insertion{ladder};
    for (const PartKind part : {PartKind::Inductor, PartKind::Capacitor}) {
        for (std::size_t gap = 0; gap <= ladder.topology.size(); ++gap) {
            insertion.between(gap, Place::Series, part);
            insertion.between(gap, Place::Shunt, part);
        }
        for (std::size_t at = 0; at < ladder.topology.size(); ++at) insertion.into(at, part);
    }
    for (std::size_t at = 0; at < ladder.topology.size(); ++at) {
        insertion.pair(at, StageKind::LC);
        insertion.pair(at, StageKind::Trap);
    }
    return std::move(insertion.found);
}

std::optional<Stages> OnePartLess(const Stages& topology, int part) {
    Stages less = topology;
    for (std::size_t at = 0; at < less.size(); ++at) {
        Stage& stage = less[at];
        if (part >= stage.parts()) {
            part -= stage.parts();
            continue;
        }
        if (stage.parts() == 2) {
            stage.kind = part == 0 ? StageKind::C : StageKind::L;
            return less;
        }
        less.erase(less.begin() + static_cast<long>(at));
        if (at == 0 || at == less.size() || !Merge(less[at - 1], less[at])) return less;
        Stage& merged = less[at - 1];
        const Stage behind = less[at];
        const bool opposite = (merged.kind == StageKind::L && behind.kind == StageKind::C) ||
                              (merged.kind == StageKind::C && behind.kind == StageKind::L);
        if (!opposite) return {};
        merged.kind = StageKind::LC;
        less.erase(less.begin() + static_cast<long>(at));
        return less;
    }
    return {};
}

std::vector<LadderElement> ElementsOf(const LadderPoint& ladder, const SearchLosses& losses,
                                      double R0, double f0) {
    std::vector<LadderElement> elements;
    std::size_t parameter = 0;
    for (const Stage& stage : ladder.topology) {
        std::vector<double> values;
        for (const Quantity quantity : QuantitiesOf(stage)) {
            values.push_back(std::exp(ladder.x[parameter++]) * UnitOf(quantity, R0, f0));
        }
        const auto coil = [&](double value) {
            Part part = Part::L(value);
            part.loss = losses.inductor;
            return part;
        };
        const auto capacitor = [&](double value) {
            Part part = Part::C(value);
            part.loss = losses.capacitor;
            return part;
        };
        const auto line = [&](Line::Form form) {
            Line piece;
            piece.form = form;
            piece.Z0 = values[0];
            piece.length.degrees = values[1];
            piece.length.atHertz = f0;
            return piece;
        };
        LadderElement element;
        switch (stage.kind) {
            case StageKind::L:
                element.is = Arm{stage.place, coil(values[0])};
                break;
            case StageKind::C:
                element.is = Arm{stage.place, capacitor(values[0])};
                break;
            case StageKind::LC:
            case StageKind::Trap: {
                Impedance::Group group;
                group.parallel = (stage.place == Place::Shunt) == (stage.kind == StageKind::LC);
                group.members = {coil(values[0]), capacitor(values[1])};
                element.is = Arm{stage.place, group};
                break;
            }
            case StageKind::Line:
                element.is = line(Line::Form::Through);
                break;
            case StageKind::OpenStub:
                element.is = line(Line::Form::OpenStub);
                break;
            case StageKind::ShortedStub:
                element.is = line(Line::Form::ShortedStub);
                break;
            case StageKind::Transformer:
                element.is = Transformer{values[0]};
                break;
        }
        elements.push_back(std::move(element));
    }
    return elements;
}

}  // namespace kelvro
