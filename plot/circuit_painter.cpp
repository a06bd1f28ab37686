#include "plot/circuit_painter.h"

#include <algorithm>
#include <cmath>
#include <span>
#include <utility>

#include "core/number_text.h"
#include "plot/circuit_drawing.h"

namespace kelvro {

namespace {

using Side = CircuitDrawing::Side;

constexpr double kHeight = 116;         // between the rails
constexpr double kCompactHeight = 84;   // the same where networks or rows lie one below the other
constexpr double kSeriesWidth = 104;    // one series element with its label above
constexpr double kShuntWidth = 112;     // one element across with its label beside it
constexpr double kShuntToSeries = 28;   // its label fits below a series element
constexpr double kResonatorWidth = 36;  // from capacitor to inductor
constexpr double kBetweenResonators = 160;  // room for a label of each
constexpr double kLineWidth = 170;
constexpr double kSourceWidth = 84;  // from the source to the first node, R1 between
constexpr double kRowEnd = 26;       // from the last node of a row to its break
constexpr double kBetweenDrawings = 34;
constexpr int kMostRows = 3;

QString NameOf(const Element& element) {
    return QString::fromStdString(element.name);
}

QString ValueOf(const Element& element) {
    return element.kind == ElementKind::Switch ? QString()
                                               : ReadableValue(element.value, element.unit());
}

/// Drawings beside or, with the left ends in line, below each other.
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

/// Lays one topology out, from left to right; a ladder in so many rows.
class Layout {
  public:
    Layout(const Circuit& circuit, const CircuitEnds& ends, int rows, double height)
        : circuit_(circuit), ends_(ends), rows_(rows), height_(height) {}

    CircuitDrawing drawing() {
        switch (circuit_.topology) {
            case Topology::Ladder:
                ladder();
                break;
            case Topology::CoupledCoils:
                coupledCoils();
                break;
            case Topology::Balun:
                balun();
                break;
            case Topology::ClassE:
                classE();
                break;
            case Topology::Divider:
                divider();
                break;
            case Topology::Tank:
            case Topology::OnePort:
                onePort();
                break;
            case Topology::None:
                break;
        }
        if (!circuit_.caption.empty()) {
            const QRectF box = drawing_.bounds();
            drawing_.label({box.center().x(), box.top()}, Side::Above,
                           QString::fromStdString(std::string(circuit_.caption)));
        }
        return std::move(drawing_);
    }

  private:
    QPointF top(double x) const { return {x, 0}; }
    QPointF bottom(double x) const { return {x, height_}; }

    void symbol(ElementKind kind, QPointF from, QPointF to) {
        switch (kind) {
            case ElementKind::Resistor:
                return drawing_.resistor(from, to);
            case ElementKind::Inductor:
                return drawing_.inductor(from, to);
            case ElementKind::Choke:
                return drawing_.inductor(from, to, true);
            case ElementKind::Capacitor:
                return drawing_.capacitor(from, to);
            case ElementKind::Line:
                return drawing_.line(from, to);
            case ElementKind::Switch:
                return drawing_.switchSymbol(from, to);
        }
    }

    void element(const Element& part, QPointF from, QPointF to, Side side) {
        symbol(part.kind, from, to);
        drawing_.label((from + to) / 2, side, NameOf(part), ValueOf(part));
    }

    /// Source with R1 up to the top rail at x_.
    void source() {
        drawing_.source(top(0), bottom(0));
        const QPointF end = top(kSourceWidth);
        drawing_.resistor(top(0), end);
        drawing_.label((top(0) + end) / 2, Side::Above, "R1", ReadableValue(ends_.R1, "Ω"));
        drawing_.wire(bottom(0), bottom(kSourceWidth));
        drawing_.ground(bottom(0));
        x_ = kSourceWidth;
    }

    void load() {
        wires(kRowEnd);
        drawing_.resistor(top(x_), bottom(x_));
        drawing_.label((top(x_) + bottom(x_)) / 2, Side::Right, "R2", ReadableValue(ends_.R2, "Ω"));
    }

    /// Both rails to the right.
    void wires(double width) {
        drawing_.wire(top(x_), top(x_ + width));
        drawing_.wire(bottom(x_), bottom(x_ + width));
        x_ += width;
    }

    void series(const Element& part, double width = kSeriesWidth) {
        if (part.kind == ElementKind::Line) width = kLineWidth;
        element(part, top(x_), top(x_ + width), Side::Above);
        drawing_.wire(bottom(x_), bottom(x_ + width));
        if (part.kind == ElementKind::Line) {
            drawing_.label(top(x_ + width / 2), Side::Below, "λ/4");
        }
        x_ += width;
    }

    /// An element across; its label is beside it.
    void across(const Element& part, Side side) {
        drawing_.node(top(x_));
        drawing_.node(bottom(x_));
        element(part, top(x_), bottom(x_), side);
    }

    void shunt(const Element& part, double width = kShuntWidth) {
        across(part, Side::Right);
        wires(width);
    }

    /// One element, or the two of a resonator.
    using Group = std::span<const Element>;

    static bool isResonator(const Group& group) { return group.size() == 2; }

    std::vector<Group> groups() const {
        std::vector<Group> groups;
        const Group all(circuit_.elements);
        for (std::size_t i = 0; i < all.size(); i += groups.back().size()) {
            const bool two = i + 1 < all.size() && all[i].place == Place::Shunt &&
                             all[i + 1].place == Place::Shunt;
            groups.push_back(all.subspan(i, two ? 2 : 1));
        }
        return groups;
    }

    /// `before` and `behind`: the neighbours in the same row, empty at its ends.
    void ladderGroup(const Group& before, const Group& group, const Group& behind) {
        const bool label = behind.empty() || behind[0].place == Place::Shunt;
        const double width = label ? kShuntWidth : kShuntToSeries;
        if (isResonator(group)) {
            across(group[0], Side::Left);
            wires(kResonatorWidth);
            across(group[1], Side::Right);
            if (label) wires(kShuntWidth);
        } else if (group[0].place == Place::Series) {
            const bool wide = isResonator(before) && isResonator(behind);
            series(group[0], wide ? kBetweenResonators : kSeriesWidth);
        } else {
            shunt(group[0], width);
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

    /// C1 and L1 on the source side, L2 and C2 on the load side; the windings face each other.
    void coupledCoils() {
        const auto& parts = circuit_.elements;
        if (parts.size() != 4) return ladder();
        constexpr double gap = 34;
        source();
        shunt(parts[0]);
        const double left = x_ + 74;  // room for the labels of C1 and L1
        drawing_.wire(top(x_), top(left));
        drawing_.wire(bottom(x_), bottom(left));
        drawing_.inductor(bottom(left), top(left));
        drawing_.label((top(left) + bottom(left)) / 2, Side::Left, NameOf(parts[1]),
                       ValueOf(parts[1]));
        const double right = left + gap;
        drawing_.inductor(top(right), bottom(right));
        drawing_.label((top(right) + bottom(right)) / 2, Side::Right, NameOf(parts[2]),
                       ValueOf(parts[2]));
        drawing_.wire(bottom(left), bottom(right));
        for (const double x : {left + 9, right - 9}) drawing_.node({x, height_ / 2 - 28});
        drawing_.label(QPointF((left + right) / 2, 4), Side::Above,
                       "k=" + QString::fromStdString(FormatFixed(0, 3, circuit_.coupling)));
        x_ = right;
        drawing_.wire(top(x_), top(x_ + kShuntWidth));
        drawing_.wire(bottom(x_), bottom(x_ + kShuntWidth));
        x_ += kShuntWidth;
        shunt(parts[3]);
        load();
    }

    /// One branch of the balun, from the common input to its output; direction -1 draws upwards.
    void balunBranch(int branch, double input, double direction) {
        const double y = direction * height_;
        double x = input;
        drawing_.wire({x, 0}, {x, y});
        for (const Element& part : circuit_.elements) {
            if (part.branch != branch) continue;
            if (part.place == Place::Series) {
                element(part, {x, y}, {x + kSeriesWidth, y}, Side::Above);
                x += kSeriesWidth;
                continue;
            }
            drawing_.node({x, y});
            drawing_.node({x, 0});
            element(part, {x, y}, {x, 0}, Side::Right);
            drawing_.wire({x, y}, {x + kShuntWidth, y});
            drawing_.wire({x, 0}, {x + kShuntWidth, 0});
            x += kShuntWidth;
        }
        drawing_.resistor({x, y}, {x, 0});
        drawing_.label({x, y / 2}, Side::Right, "R2", ReadableValue(ends_.R2, "Ω"));
        drawing_.label({x, y}, Side::Right, direction < 0 ? "+" : "−");
        grounded_ = x;
    }

    void balun() {
        constexpr double input = kSourceWidth + 20;
        drawing_.source({0, 0}, {0, height_});
        drawing_.ground({0, height_});
        drawing_.resistor({0, 0}, {kSourceWidth, 0});
        drawing_.label({kSourceWidth / 2, 0}, Side::Above, "R1", ReadableValue(ends_.R1, "Ω"));
        drawing_.wire({kSourceWidth, 0}, {input, 0});
        drawing_.node({input, 0});
        balunBranch(0, input, -1);
        balunBranch(1, input, 1);
        drawing_.wire({grounded_, 0}, {grounded_ + 70, 0});
        drawing_.ground({grounded_ + 70, 0});
    }

    /// Supply choke upwards, switch across, the rest as a ladder that ends in R.
    void classE() {
        x_ = 0;
        drawing_.ground(bottom(0));
        for (const Element& part : circuit_.elements) {
            if (part.kind == ElementKind::Choke) {
                const QPointF supply(x_, -height_);
                drawing_.terminal(supply - QPointF(0, 3.5));
                drawing_.label(supply, Side::Right, "Ub");
                element(part, supply, top(x_), Side::Right);
                drawing_.node(top(x_));
            } else if (part.kind == ElementKind::Switch) {
                element(part, top(x_), bottom(x_), Side::Right);
                drawing_.wire(top(x_), top(x_ + 74));
                drawing_.wire(bottom(x_), bottom(x_ + 74));
                x_ += 74;
            } else if (&part == &circuit_.elements.back()) {
                element(part, top(x_), bottom(x_), Side::Right);
            } else if (part.place == Place::Shunt) {
                shunt(part, kShuntToSeries);
            } else {
                series(part);
            }
        }
    }

    /// The string lies: Vref on the left, ground on the right, taps below.
    void divider() {
        constexpr double width = 78;
        constexpr const char* taps[] = {"Vhi2", "Vhi1", "Vmid2", "Vmid1", "Vlow2", "Vlow1"};
        double x = 0;
        std::size_t tap = 0;
        drawing_.terminal({-3.5, 0});
        drawing_.label({0, 2}, Side::Left, "Vref");
        for (const Element& part : circuit_.elements) {  // from Vref down to ground
            if (part.branch != 0) continue;
            element(part, {x, 0}, {x + width, 0}, Side::Above);
            x += width;
            if (tap == std::size(taps)) continue;
            drawing_.node({x, 0});
            drawing_.wire({x, 0}, {x, 18});
            drawing_.terminal({x, 21.5});
            drawing_.label({x, 15}, Side::Below, taps[tap++]);
        }
        drawing_.ground({x, 0});
        for (const Element& part : circuit_.elements) {
            if (part.branch != 1) continue;
            constexpr double start = 96;
            drawing_.arrow({0, start}, {34, start});
            drawing_.label({0, start}, Side::Left, "Ibg");
            drawing_.wire({34, start}, {60, start});
            element(part, {60, start}, {60 + width, start}, Side::Above);
            drawing_.node({60, start});
            drawing_.label({60, start - 6}, Side::Below, "Vbg");
            drawing_.ground({60 + width, start});
        }
    }

    /// Two terminals on the left; every branch from rail to rail.
    void onePort() {
        double x = 96;
        const double y2 = 2 * height_;
        drawing_.terminal({-3.5, 0});
        drawing_.terminal({-3.5, y2});
        const int branches = 1 + std::ranges::max(circuit_.elements, {}, &Element::branch).branch;
        for (int branch = 0; branch < branches; ++branch) {
            std::vector<Element> parts;
            std::ranges::copy_if(circuit_.elements, std::back_inserter(parts),
                                 [&](const Element& part) { return part.branch == branch; });
            const double step = y2 / static_cast<double>(parts.size());
            for (std::size_t i = 0; i < parts.size(); ++i) {
                const double y = step * static_cast<double>(i);
                element(parts[i], {x, y}, {x, y + step}, Side::Right);
            }
            const double before = branch == 0 ? 0 : x - 130;
            for (const double y : {0.0, y2}) {
                drawing_.wire({before, y}, {x, y});
                if (branch > 0) drawing_.node({before, y});
            }
            x += 130;
        }
    }

    const Circuit& circuit_;
    const CircuitEnds ends_;
    const int rows_;
    const double height_;
    CircuitDrawing drawing_;
    double x_ = 0;
    double grounded_ = 0;
};

/// The networks beside or below each other, in one row or several: whatever comes out largest.
CircuitDrawing LargestDrawing(std::span<const Circuit> circuits, const CircuitEnds& ends,
                              const QSizeF& area) {
    CircuitDrawing largest;
    double scale = 0;
    for (int rows = 1; rows <= kMostRows; ++rows) {
        for (const bool below : {false, true}) {
            const double height = below || rows > 1 ? kCompactHeight : kHeight;
            std::vector<CircuitDrawing> drawings;
            for (const Circuit& circuit : circuits)
                if (!circuit.elements.empty())
                    drawings.push_back(Layout(circuit, ends, rows, height).drawing());
            CircuitDrawing arranged = Arranged(drawings, below);
            if (arranged.bounds().isEmpty() || arranged.scaleIn(area) <= scale) continue;
            scale = arranged.scaleIn(area);
            largest = std::move(arranged);
        }
    }
    return largest;
}

}  // namespace

void PaintCircuits(QPainter& painter, const QRectF& area, std::span<const Circuit> circuits,
                   const CircuitEnds& ends, const CircuitColours& colours) {
    LargestDrawing(circuits, ends, area.size())
        .paint(painter, area, colours.wire, colours.name, colours.value);
}

QString ReadableValue(double value, std::string_view unit) {
    if (!std::isfinite(value) || value == 0) return {};
    QString text = QString::fromStdString(FormatEng(0, 2, value));
    const QChar suffix = text.back();
    text.chop(1);
    const QString prefix = suffix == '0' ? QString() : suffix == 'u' ? QString("µ") : suffix;
    return text + ' ' + prefix +
           QString::fromUtf8(unit.data(), static_cast<qsizetype>(unit.size()));
}

}  // namespace kelvro
