#include "plot/ladder_thumbnail.h"

#include <QColor>
#include <QPainter>

#include "plot/circuit_drawing.h"

namespace kelvro {

namespace {

constexpr double kStart = 16;   // from the terminal to the first element
constexpr double kStep = 70;    // from element to element
constexpr double kHeight = 84;  // from the upper line to ground

/// Draws elements from left to right along the upper line.
class ThumbnailBuilder {
  public:
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
            symbol(arm.impedance, {x_, 0}, {x_ + kStep, 0});
            x_ += kStep;
        } else {
            across([&](QPointF from, QPointF to) { symbol(arm.impedance, from, to); });
        }
    }

    void add(const Line& line) {
        if (line.form == Line::Form::Through) {
            drawing_.line({x_, 0}, {x_ + kStep, 0});
            x_ += kStep;
        } else {
            const bool grounded = line.form == Line::Form::ShortedStub;
            across([&](QPointF from, QPointF to) { drawing_.line(from, to); }, grounded);
        }
    }

    void add(const Transformer&) { inLine(); }
    void add(const CoupledCoils&) { inLine(); }
    void add(const MeasuredTwoPort&) { inLine(); }
    void add(const Branch&) { inLine(); }
    void add(const Switch&) {
        across([&](QPointF from, QPointF to) { drawing_.switchSymbol(from, to); });
    }

    /// What has no symbol of its own size here: a box in the line.
    void inLine() {
        drawing_.resistor({x_, 0}, {x_ + kStep, 0});
        x_ += kStep;
    }

    template <typename Draw>
    void across(Draw&& draw, bool grounded = true) {
        const double half = kStep / 2;
        drawing_.wire({x_, 0}, {x_ + kStep, 0});
        drawing_.node({x_ + half, 0});
        draw(QPointF(x_ + half, 0), QPointF(x_ + half, kHeight));
        if (grounded) drawing_.ground({x_ + half, kHeight});
        x_ += kStep;
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
    double x_ = kStart;
};

}  // namespace

QImage LadderThumbnail(const std::vector<LadderElement>& ladder, QSize size, QRgb colour,
                       double scale) {
    QImage image(size * scale, QImage::Format_ARGB32_Premultiplied);
    image.setDevicePixelRatio(scale);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    const QColor line = QColor::fromRgb(colour);
    ThumbnailBuilder().build(ladder).paint(painter, QRectF(QPointF(), QSizeF(size)), line, line,
                                           line);
    return image;
}

QRectF ThumbnailPlace(const std::vector<LadderElement>& ladder, QSize size, std::size_t index) {
    // All elements are as wide, and what stands at both ends is alike.
    const double scale = ThumbnailBuilder().build(ladder).scaleIn(QSizeF(size));
    const double middle = static_cast<double>(ladder.size()) / 2;
    const double left = size.width() / 2.0 + (static_cast<double>(index) - middle) * kStep * scale;
    return {left, 0, kStep * scale, static_cast<double>(size.height())};
}

}  // namespace kelvro
