#include "plot/circuit_layout.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "core/number_text.h"
#include "network/network_text.h"
#include "plot/circuit_painter.h"

namespace kelvro {

namespace {

using Side = CircuitDrawing::Side;

constexpr double kSeriesWidth = 104;        // one series element with its label above
constexpr double kShuntWidth = 112;         // one element across with its label beside it
constexpr double kShuntToSeries = 28;       // its label fits below a series element
constexpr double kResonatorWidth = 36;      // from capacitor to inductor
constexpr double kBetweenResonators = 160;  // room for a label of each
constexpr double kLineWidth = 170;
constexpr double kSwitchWidth = 74;     // from a switch on, or up to a winding: room for a label
constexpr double kStringWidth = 78;     // one element of a string
constexpr double kParallelHeight = 44;  // from one series element to the next beside it
constexpr double kSourceWidth = 84;     // from the source to the first node, R1 between
constexpr double kRowEnd = 26;          // from the last node of a row to its break
constexpr double kBetweenDrawings = 34;

QString TextOf(const std::string& text) {
    return QString::fromStdString(text);
}

/// Does an element stand across the path?
bool IsAcross(const LadderElement& element) {
    if (const auto* arm = std::get_if<Arm>(&element.is)) {
        return arm->place == Place::Shunt && !arm->atSupply;
    }
    const auto* line = std::get_if<Line>(&element.is);
    return line && line->form != Line::Form::Through;
}

/// Does it lie in the path, so that its label leaves room below?
bool LiesInPath(const LadderElement& element) {
    const auto* arm = std::get_if<Arm>(&element.is);
    return !IsAcross(element) && (arm ? !arm->atSupply : std::holds_alternative<Line>(element.is));
}

template <typename Kind>
bool Has(const Network& network) {
    return std::ranges::any_of(network.ladder, [](const LadderElement& element) {
        return std::holds_alternative<Kind>(element.is);
    });
}

/// A single arm that is connected at one end only.
bool IsOnePort(const Network& network) {
    return network.source.isNothing() && network.load.isNothing() && network.ladder.size() == 1 &&
           std::holds_alternative<Arm>(network.ladder.front().is);
}

bool IsShort(const Termination& end) {
    const auto* constant = std::get_if<Impedance::Constant>(&end.is);
    return constant && constant->ohm == 0.0;
}

/// "50.00 Ω"; what is no plain resistance as it is written.
QString EndText(const Termination& end) {
    const auto* constant = std::get_if<Impedance::Constant>(&end.is);
    if (constant && constant->ohm.imag() == 0) return ReadableValue(constant->ohm.real(), "Ω");
    return TextOf(ImpedanceText(end, 4));
}

/// Lays one network out, from left to right; a long ladder in so many rows.
class Layout {
  public:
    Layout(const Network& network, int rows, double height)
        : network_(network),
          // Windings face each other, and a stage hangs at its supply: these stay in one row.
          rows_(Has<CoupledCoils>(network) || network.source.isNothing() ? 1 : rows),
          height_(height) {}

    CircuitDrawing drawing() {
        if (IsOnePort(network_)) {
            onePort();
        } else if (IsShort(network_.source) && IsShort(network_.load)) {
            string();
        } else if (Has<Branch>(network_)) {
            split();
        } else {
            ladder();
        }
        if (!network_.caption.empty()) {
            const QRectF box = drawing_.bounds();
            drawing_.label({box.center().x(), box.top()}, Side::Above, TextOf(network_.caption));
        }
        return std::move(drawing_);
    }

  private:
    QPointF top(double x) const { return {x, 0}; }
    QPointF bottom(double x) const { return {x, height_}; }

    // ------------------------------------------------------------ impedances

    void part(const Part& part, QPointF from, QPointF to, Side side, bool core = false) {
        switch (part.kind) {
            case PartKind::Resistor:
                drawing_.resistor(from, to);
                break;
            case PartKind::Inductor:
                drawing_.inductor(from, to, core);
                break;
            case PartKind::Capacitor:
                drawing_.capacitor(from, to);
                break;
        }
        drawing_.label((from + to) / 2, side, TextOf(part.name),
                       ReadableValue(part.value, UnitOf(part.kind)));
    }

    /// What stands between two points: members in series share the way, members in parallel lie
    /// beside each other.
    void impedance(const Impedance& arm, QPointF from, QPointF to, Side side, bool core = false) {
        if (const auto* single = std::get_if<Part>(&arm.is)) {
            return part(*single, from, to, side, core);
        }
        const auto* group = std::get_if<Impedance::Group>(&arm.is);
        if (!group) {
            drawing_.resistor(from, to);
            return drawing_.label((from + to) / 2, side, {}, EndText(arm));
        }
        const auto count = static_cast<double>(group->members.size());
        const QPointF along = (to - from) / count;
        const bool upright = from.x() == to.x();
        const QPointF aside = upright ? QPointF(kShuntWidth, 0) : QPointF(0, -kParallelHeight);
        for (std::size_t i = 0; i < group->members.size(); ++i) {
            const auto n = static_cast<double>(i);
            if (!group->parallel) {
                impedance(group->members[i], from + n * along, from + (n + 1) * along, side);
                continue;
            }
            const QPointF offset = n * aside;
            impedance(group->members[i], from + offset, to + offset, side);
            if (i == 0) continue;
            drawing_.wire(from + offset - aside, from + offset);
            drawing_.wire(to + offset - aside, to + offset);
        }
    }

    // ------------------------------------------------------------ ends

    /// Source with its resistance up to the top rail at x_; a stage begins at ground.
    void source() {
        if (network_.source.isNothing()) {
            x_ = 0;
            return drawing_.ground(bottom(0));
        }
        drawing_.source(top(0), bottom(0));
        const QPointF end = top(kSourceWidth);
        drawing_.resistor(top(0), end);
        drawing_.label((top(0) + end) / 2, Side::Above, "R1", EndText(network_.source));
        drawing_.wire(bottom(0), bottom(kSourceWidth));
        drawing_.ground(bottom(0));
        x_ = kSourceWidth;
    }

    /// A load that is a part of the network stands at its last element.
    void load() {
        if (const auto* own = std::get_if<Part>(&network_.load.is)) {
            return part(*own, top(x_), bottom(x_), Side::Right);
        }
        wires(kRowEnd);
        drawing_.resistor(top(x_), bottom(x_));
        drawing_.label((top(x_) + bottom(x_)) / 2, Side::Right, "R2", EndText(network_.load));
    }

    // ------------------------------------------------------------ elements

    /// Both rails to the right.
    void wires(double width) {
        drawing_.wire(top(x_), top(x_ + width));
        drawing_.wire(bottom(x_), bottom(x_ + width));
        x_ += width;
    }

    /// In the path, with both rails below it.
    void inPath(const LadderElement& element, double width) {
        const auto* arm = std::get_if<Arm>(&element.is);
        if (arm) {
            impedance(arm->impedance, top(x_), top(x_ + width), Side::Above);
        } else {
            const Line& line = std::get<Line>(element.is);
            width = kLineWidth;
            drawing_.line(top(x_), top(x_ + width));
            drawing_.label(top(x_ + width / 2), Side::Above, TextOf(line.name),
                           ReadableValue(line.Z0, "Ω"));
            drawing_.label(top(x_ + width / 2), Side::Below, LengthText(line.length));
        }
        drawing_.wire(bottom(x_), bottom(x_ + width));
        x_ += width;
    }

    static QString LengthText(const LineLength& length) {
        if (length.degrees == 90) return "λ/4";
        if (length.degrees != 0) return QString::number(length.degrees, 'g', 4) + "°";
        return ReadableValue(length.metres, "m");
    }

    /// An element across; its label is beside it.
    void across(const LadderElement& element, Side side) {
        drawing_.node(top(x_));
        drawing_.node(bottom(x_));
        if (const auto* arm = std::get_if<Arm>(&element.is)) {
            return impedance(arm->impedance, top(x_), bottom(x_), side);
        }
        const Line& stub = std::get<Line>(element.is);
        drawing_.line(top(x_), bottom(x_));
        drawing_.label((top(x_) + bottom(x_)) / 2, side, TextOf(stub.name),
                       ReadableValue(stub.Z0, "Ω"));
    }

    /// Members beside each other take more room than one.
    static double extraWidth(const LadderElement& element) {
        const auto* arm = std::get_if<Arm>(&element.is);
        const auto* group = arm ? std::get_if<Impedance::Group>(&arm->impedance.is) : nullptr;
        if (!group || !group->parallel || group->members.empty()) return 0;
        return kShuntWidth * static_cast<double>(group->members.size() - 1);
    }

    /// Between the supply and the path.
    void write(const Arm& choke) {
        const QPointF supply(x_, -height_);
        drawing_.terminal(supply - QPointF(0, 3.5));
        drawing_.label(supply, Side::Right, TextOf(network_.sourceNode));
        impedance(choke.impedance, supply, top(x_), Side::Right, true);
        drawing_.node(top(x_));
    }

    void write(const Switch& element) {
        drawing_.switchSymbol(top(x_), bottom(x_));
        drawing_.label((top(x_) + bottom(x_)) / 2, Side::Right, TextOf(element.name));
        wires(kSwitchWidth);
    }

    void write(const CoupledCoils& coils) {
        windings({TextOf(coils.first.name), TextOf(coils.second.name)},
                 {ReadableValue(coils.first.value, "H"), ReadableValue(coils.second.value, "H")},
                 "k=" + TextOf(FormatFixed(0, 3, coils.k)));
    }

    void write(const Transformer& transformer) {
        windings({}, {}, QString::number(transformer.n, 'g', 4) + ":1");
    }

    /// Two windings that face each other.
    void windings(const std::array<QString, 2>& names, const std::array<QString, 2>& values,
                  const QString& ratio) {
        constexpr double gap = 34;
        const double left = x_ + kSwitchWidth;  // room for the labels of both sides
        drawing_.wire(top(x_), top(left));
        drawing_.wire(bottom(x_), bottom(left));
        drawing_.inductor(bottom(left), top(left));
        drawing_.label((top(left) + bottom(left)) / 2, Side::Left, names[0], values[0]);
        const double right = left + gap;
        drawing_.inductor(top(right), bottom(right));
        drawing_.label((top(right) + bottom(right)) / 2, Side::Right, names[1], values[1]);
        drawing_.wire(bottom(left), bottom(right));
        for (const double x : {left + 9, right - 9}) drawing_.node({x, height_ / 2 - 28});
        drawing_.label(QPointF((left + right) / 2, 4), Side::Above, ratio);
        x_ = right;
        wires(kShuntWidth);
    }

    void write(const MeasuredTwoPort& measured) {
        drawing_.line(top(x_), top(x_ + kLineWidth));
        if (measured.data) {
            drawing_.label(top(x_ + kLineWidth / 2), Side::Above, TextOf(measured.data->name));
        }
        drawing_.wire(bottom(x_), bottom(x_ + kLineWidth));
        x_ += kLineWidth;
    }

    void write(const Line&) {}    // in the path, or across it
    void write(const Branch&) {}  // beside the main path

    /// One element, or the two of a resonator.
    using Group = std::span<const LadderElement>;

    static bool isResonator(const Group& group) { return group.size() == 2; }

    std::vector<Group> groups() const {
        std::vector<Group> groups;
        const Group all(network_.ladder);
        for (std::size_t i = 0; i < all.size(); i += groups.back().size()) {
            const bool two = i + 1 < all.size() && IsAcross(all[i]) && IsAcross(all[i + 1]);
            groups.push_back(all.subspan(i, two ? 2 : 1));
        }
        return groups;
    }

    /// `before` and `behind`: the neighbours in the same row, empty at its ends.
    void ladderGroup(const Group& before, const Group& group, const Group& behind) {
        const bool label = behind.empty() || !LiesInPath(behind[0]);
        if (isResonator(group)) {
            across(group[0], Side::Left);
            wires(kResonatorWidth);
            across(group[1], Side::Right);
            wires(extraWidth(group[1]) + (label ? kShuntWidth : 0));
        } else if (LiesInPath(group[0])) {
            const bool wide = isResonator(before) && isResonator(behind);
            inPath(group[0], wide ? kBetweenResonators : kSeriesWidth);
        } else if (IsAcross(group[0])) {
            across(group[0], Side::Right);
            wires(extraWidth(group[0]) + (label ? kShuntWidth : kShuntToSeries));
        } else {
            std::visit([this](const auto& is) { write(is); }, group[0].is);
        }
    }

    /// Where a row breaks off and where the next one goes on: the same letter.
    void rowEnd(int row) {
        wires(kRowEnd);
        breakMark(row, 1);
    }

    void rowStart(int row) {
        x_ = 0;
        breakMark(row - 1, -1);
        drawing_.ground(bottom(kSourceWidth / 2));
        wires(kSourceWidth);
    }

    void breakMark(int row, int direction) {
        const QPointF outside(3.5 * direction, 0);
        drawing_.terminal(top(x_) + outside);
        drawing_.terminal(bottom(x_) + outside);
        drawing_.label(top(x_), direction > 0 ? Side::Right : Side::Left, QChar('a' + row));
    }

    void ladder() {
        const std::vector<Group> all = groups();
        const auto rows = static_cast<std::size_t>(rows_);
        const std::size_t perRow = (all.size() + rows - 1) / rows;
        std::vector<CircuitDrawing> drawn;
        source();
        for (std::size_t i = 0; i < all.size(); ++i) {
            const bool first = i % perRow == 0;
            const bool last = i % perRow == perRow - 1;
            const int row = static_cast<int>(i / perRow);
            if (first && i > 0) rowStart(row);
            ladderGroup(first ? Group() : all[i - 1], all[i],
                        last || i + 1 == all.size() ? Group() : all[i + 1]);
            if (!last || i + 1 == all.size()) continue;
            rowEnd(row);
            drawn.push_back(std::exchange(drawing_, {}));
        }
        load();
        drawn.push_back(std::move(drawing_));
        drawing_ = Arranged(drawn, true);
    }

    /// One of two paths, from the common input to its output; direction -1 draws upwards.
    void path(const std::vector<LadderElement>& ladder, const Termination& load, double input,
              double direction) {
        const double y = direction * height_;
        double x = input;
        drawing_.wire({x, 0}, {x, y});
        for (const LadderElement& element : ladder) {
            const auto* arm = std::get_if<Arm>(&element.is);
            if (!arm) continue;
            if (arm->place == Place::Series) {
                impedance(arm->impedance, {x, y}, {x + kSeriesWidth, y}, Side::Above);
                x += kSeriesWidth;
                continue;
            }
            drawing_.node({x, y});
            drawing_.node({x, 0});
            impedance(arm->impedance, {x, y}, {x, 0}, Side::Right);
            drawing_.wire({x, y}, {x + kShuntWidth, y});
            drawing_.wire({x, 0}, {x + kShuntWidth, 0});
            x += kShuntWidth;
        }
        drawing_.node({x, 0});
        drawing_.resistor({x, y}, {x, 0});
        drawing_.label({x, y / 2}, Side::Right, "R2", EndText(load));
        drawing_.label({x, y}, Side::Right, direction < 0 ? "+" : "−");
        grounded_ = x;
    }

    /// The main path above the common ground, the branch that leaves it below.
    void split() {
        constexpr double input = kSourceWidth + 20;
        drawing_.source({0, 0}, {0, height_});
        drawing_.ground({0, height_});
        drawing_.resistor({0, 0}, {kSourceWidth, 0});
        drawing_.label({kSourceWidth / 2, 0}, Side::Above, "R1", EndText(network_.source));
        drawing_.wire({kSourceWidth, 0}, {input, 0});
        drawing_.node({input, 0});
        path(network_.ladder, network_.load, input, -1);
        for (const LadderElement& element : network_.ladder) {
            if (const auto* branch = std::get_if<Branch>(&element.is)) {
                path(branch->ladder, branch->load, input, 1);
            }
        }
        drawing_.wire({grounded_, 0}, {grounded_ + 70, 0});
        drawing_.ground({grounded_ + 70, 0});
    }

    /// A string lies: its source on the left, ground on the right, named nodes below.
    void string() {
        double x = 0;
        drawing_.terminal({-3.5, 0});
        drawing_.label({0, 2}, Side::Left, TextOf(network_.sourceNode));
        for (const LadderElement& element : network_.ladder) {
            const auto* arm = std::get_if<Arm>(&element.is);
            if (!arm) continue;
            impedance(arm->impedance, {x, 0}, {x + kStringWidth, 0}, Side::Above);
            x += kStringWidth;
            if (element.node.empty()) continue;
            drawing_.node({x, 0});
            drawing_.wire({x, 0}, {x, 18});
            drawing_.terminal({x, 21.5});
            drawing_.label({x, 15}, Side::Below, TextOf(element.node));
        }
        drawing_.ground({x, 0});
    }

    /// Two terminals on the left; everything that is in parallel from rail to rail. A node with a
    /// name takes a current of its own: "Vbg" that of Ibg.
    void onePort() {
        const Impedance& whole = std::get<Arm>(network_.ladder.front().is).impedance;
        if (!network_.sourceNode.empty()) return fedNode(whole);
        double x = 96;
        const double y2 = 2 * height_;
        drawing_.terminal({-3.5, 0});
        drawing_.terminal({-3.5, y2});
        const auto* group = std::get_if<Impedance::Group>(&whole.is);
        const bool parallel = group && group->parallel;
        const std::span<const Impedance> branches =
            parallel ? std::span(group->members) : std::span(&whole, 1);
        for (const Impedance& branch : branches) {
            const bool first = &branch == &branches.front();
            impedance(branch, {x, 0}, {x, y2}, Side::Right);
            const double before = first ? 0 : x - 130;
            for (const double y : {0.0, y2}) {
                drawing_.wire({before, y}, {x, y});
                if (!first) drawing_.node({before, y});
            }
            x += 130;
        }
    }

    void fedNode(const Impedance& arm) {
        drawing_.arrow({0, 0}, {34, 0});
        drawing_.label({0, 0}, Side::Left, "I" + TextOf(network_.sourceNode).mid(1));
        drawing_.wire({34, 0}, {60, 0});
        impedance(arm, {60, 0}, {60 + kStringWidth, 0}, Side::Above);
        drawing_.node({60, 0});
        drawing_.label({60, -6}, Side::Below, TextOf(network_.sourceNode));
        drawing_.ground({60 + kStringWidth, 0});
    }

    const Network& network_;
    const int rows_;
    const double height_;
    CircuitDrawing drawing_;
    double x_ = 0;
    double grounded_ = 0;
};

}  // namespace

CircuitDrawing Arranged(std::span<const CircuitDrawing> drawings, bool below) {
    CircuitDrawing whole;
    double edge = 0;
    for (const CircuitDrawing& drawing : drawings) {
        const QRectF box = drawing.bounds();
        whole.add(drawing, below ? QPointF(0, edge - box.top()) : QPointF(edge - box.left(), 0));
        edge += kBetweenDrawings + (below ? box.height() : box.width());
    }
    return whole;
}

CircuitDrawing LaidOut(const Network& network, int rows, double height) {
    return Layout(network, rows, height).drawing();
}

}  // namespace kelvro
