#include "plot/ladder_thumbnail.h"

#include <QColor>
#include <QPainter>

#include "plot/circuit_drawing.h"

namespace kelvro {

namespace {

constexpr double kStart = 16;       // from the terminal to the first element
constexpr double kStep = 70;        // from element to element
constexpr double kHeight = 84;      // from the upper line to ground
constexpr double kNarrowStep = 30;  // of a symbol across that stands alone
constexpr double kCoilGap = 13;     // from the middle of a transformer to its coils

/// Draws elements from left to right along the upper line.
class ThumbnailBuilder {
  public:
    /// One element, as large as its symbol.
    static CircuitDrawing symbolOf(const LadderElement& element) {
        ThumbnailBuilder builder;
        const auto* arm = std::get_if<Arm>(&element.is);
        const auto* line = std::get_if<Line>(&element.is);
        const bool across = arm    ? arm->place == Place::Shunt
                            : line ? line->form != Line::Form::Through
                                   : std::holds_alternative<Switch>(element.is);
        builder.step_ = across ? kNarrowStep : CircuitDrawing::kSymbolLength;
        builder.height_ = CircuitDrawing::kSymbolLength;
        std::visit([&](const auto& is) { builder.add(is); }, element.is);
        return std::move(builder.drawing_);
    }

    CircuitDrawing build(const std::vector<LadderElement>& ladder) {
        drawing_.terminal({0, 0});
        drawing_.wire({4, 0}, {kStart, 0});
        for (const LadderElement& element : ladder)
            std::visit([this](const auto& is) { add(is); }, element.is);
        drawing_.wire({x_, 0}, {x_ + kStart - 4, 0});
        drawing_.terminal({x_ + kStart, 0});
        return std::move(drawing_);
    }

  private:
    void add(const Arm& arm) {
        if (arm.place == Place::Series) {
            symbol(arm.impedance, {x_, 0}, {x_ + step_, 0});
            x_ += step_;
        } else {
            across([&](QPointF from, QPointF to) { symbol(arm.impedance, from, to); });
        }
    }

    void add(const Line& line) {
        if (line.form == Line::Form::Through) {
            drawing_.line({x_, 0}, {x_ + step_, 0});
            x_ += step_;
        } else {
            const bool grounded = line.form == Line::Form::ShortedStub;
            across([&](QPointF from, QPointF to) { drawing_.line(from, to); }, grounded);
        }
    }

    void add(const Transformer&) { coils(); }
    void add(const CoupledCoils&) { coils(); }
    void add(const MeasuredTwoPort&) {
        drawing_.box({x_, 0}, {x_ + step_, 0});
        x_ += step_;
    }
    /// The other path goes to a terminal of its own.
    void add(const Branch&) {
        across(
            [&](QPointF from, QPointF to) {
                drawing_.wire(from, to);
                drawing_.terminal(to + QPointF(0, 4));
            },
            false);
    }
    void add(const Switch&) {
        across([&](QPointF from, QPointF to) { drawing_.switchSymbol(from, to); });
    }

    /// Two coils to ground, side by side.
    void coils() {
        const double middle = x_ + step_ / 2;
        for (const double side : {-1.0, 1.0}) {
            const QPointF top(middle + side * kCoilGap, 0);
            drawing_.wire({middle + side * step_ / 2, 0}, top);
            drawing_.inductor(top, top + QPointF(0, height_));
            drawing_.ground(top + QPointF(0, height_));
        }
        x_ += step_;
    }

    template <typename Draw>
    void across(Draw&& draw, bool grounded = true) {
        const double half = step_ / 2;
        drawing_.wire({x_, 0}, {x_ + step_, 0});
        drawing_.node({x_ + half, 0});
        draw(QPointF(x_ + half, 0), QPointF(x_ + half, height_));
        if (grounded) drawing_.ground({x_ + half, height_});
        x_ += step_;
    }

    /// A group shows the symbols of its first two members.
    void symbol(const Impedance& impedance, QPointF from, QPointF to) {
        const auto* group = std::get_if<Impedance::Group>(&impedance.is);
        if (!group || group->members.empty()) return part(impedance, from, to);
        const std::size_t count = std::min<std::size_t>(group->members.size(), 2);
        const bool upright = from.x() == to.x();
        for (std::size_t i = 0; i < count; ++i) {
            if (group->parallel) {
                const double off =
                    (static_cast<double>(i) - (static_cast<double>(count) - 1) / 2) * 26;
                const QPointF aside = upright ? QPointF(off, 0) : QPointF(0, off);
                drawing_.wire(from, from + aside);
                part(group->members[i], from + aside, to + aside);
                drawing_.wire(to, to + aside);
            } else {
                const double a = static_cast<double>(i) / static_cast<double>(count);
                const double b = static_cast<double>(i + 1) / static_cast<double>(count);
                part(group->members[i], from + a * (to - from), from + b * (to - from));
            }
        }
    }

    void part(const Impedance& impedance, QPointF from, QPointF to) {
        const auto* leaf = std::get_if<Part>(&impedance.is);
        switch (leaf ? leaf->kind : PartKind::Resistor) {
            case PartKind::Resistor:
                return drawing_.resistor(from, to);
            case PartKind::Inductor:
                return drawing_.inductor(from, to);
            case PartKind::Capacitor:
                return drawing_.capacitor(from, to);
        }
    }

    CircuitDrawing drawing_;
    double step_ = kStep;
    double height_ = kHeight;
    double x_ = kStart;
};

QImage Painted(const CircuitDrawing& drawing, QSize size, QRgb colour, double scale) {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QColor line = QColor::fromRgb(colour);
    drawing.paint(painter, QRectF(QPointF(), QSizeF(size)), line, line, line);
    return image;
}

}  // namespace

QImage LadderThumbnail(const std::vector<LadderElement>& ladder, QSize size, QRgb colour,
                       double scale) {
    return Painted(ThumbnailBuilder().build(ladder), size, colour, scale);
}

QImage ElementSymbol(const LadderElement& element, QSize size, QRgb colour, double scale) {
    return Painted(ThumbnailBuilder::symbolOf(element), size, colour, scale);
}

QRectF ThumbnailPlace(const std::vector<LadderElement>& ladder, QSize size, std::size_t index) {
    // All elements are as wide, and what stands at both ends is alike.
    const double scale = ThumbnailBuilder().build(ladder).scaleIn(QSizeF(size));
    const double middle = static_cast<double>(ladder.size()) / 2;
    const double left = size.width() / 2.0 + (static_cast<double>(index) - middle) * kStep * scale;
    return {left, 0, kStep * scale, static_cast<double>(size.height())};
}

}  // namespace kelvro
