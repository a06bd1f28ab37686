#include "ui/workbench/element_palette.h"

#include <QApplication>
#include <QHBoxLayout>
#include <QMouseEvent>
#include <QPainter>
#include <array>
#include <cmath>
#include <numbers>

#include "plot/ladder_thumbnail.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

LadderElement LineOf(Line::Form form, double f, double R) {
    Line line;
    line.form = form;
    line.Z0 = R;
    line.length = {form == Line::Form::Through ? 90.0 : 45.0, f, 0, 1};
    return {line, {}};
}

constexpr std::array kKinds = {
    ElementKind{"ButtonSeriesL", QT_TRANSLATE_NOOP("kelvro", "Series L"),
                QT_TRANSLATE_NOOP("kelvro", "Add an inductor in series"),
                [](double f, double R) { return SeriesArm(Part::L(InductanceOf(R, f))); }},
    ElementKind{"ButtonSeriesC", QT_TRANSLATE_NOOP("kelvro", "Series C"),
                QT_TRANSLATE_NOOP("kelvro", "Add a capacitor in series"),
                [](double f, double R) { return SeriesArm(Part::C(CapacitanceOf(R, f))); }},
    ElementKind{"ButtonShuntL", QT_TRANSLATE_NOOP("kelvro", "Shunt L"),
                QT_TRANSLATE_NOOP("kelvro", "Add an inductor across the line"),
                [](double f, double R) { return ShuntArm(Part::L(InductanceOf(R, f))); }},
    ElementKind{"ButtonShuntC", QT_TRANSLATE_NOOP("kelvro", "Shunt C"),
                QT_TRANSLATE_NOOP("kelvro", "Add a capacitor across the line"),
                [](double f, double R) { return ShuntArm(Part::C(CapacitanceOf(R, f))); }},
    ElementKind{"ButtonSeriesR", QT_TRANSLATE_NOOP("kelvro", "Series R"),
                QT_TRANSLATE_NOOP("kelvro", "Add a resistor in series"),
                [](double, double R) { return SeriesArm(Part::R(R)); }},
    ElementKind{"ButtonShuntR", QT_TRANSLATE_NOOP("kelvro", "Shunt R"),
                QT_TRANSLATE_NOOP("kelvro", "Add a resistor across the line"),
                [](double, double R) { return ShuntArm(Part::R(R)); }},
    ElementKind{"ButtonLine", QT_TRANSLATE_NOOP("kelvro", "Line"),
                QT_TRANSLATE_NOOP("kelvro", "Add a line, a quarter wave long"),
                [](double f, double R) { return LineOf(Line::Form::Through, f, R); }},
    ElementKind{"ButtonOpenStub", QT_TRANSLATE_NOOP("kelvro", "Open stub"),
                QT_TRANSLATE_NOOP("kelvro", "Add an open stub across the line"),
                [](double f, double R) { return LineOf(Line::Form::OpenStub, f, R); }},
    ElementKind{"ButtonShortStub", QT_TRANSLATE_NOOP("kelvro", "Shorted stub"),
                QT_TRANSLATE_NOOP("kelvro", "Add a shorted stub across the line"),
                [](double f, double R) { return LineOf(Line::Form::ShortedStub, f, R); }},
    ElementKind{"ButtonTransformer", QT_TRANSLATE_NOOP("kelvro", "Transformer"),
                QT_TRANSLATE_NOOP("kelvro", "Add an ideal transformer"),
                [](double, double) {
                    return LadderElement{Transformer{2}, {}};
                }},
};

/// What a part of that kind has to have to stand for an impedance; nothing to go by: R.
double SizeFor(PartKind kind, std::complex<double> Z, double R) {
    const double size = std::abs(kind == PartKind::Resistor ? Z : Z.imag());
    return size > 0 && std::isfinite(size) ? size : R;
}

}  // namespace

std::span<const ElementKind> ElementKinds() {
    return kKinds;
}

double InductanceOf(double X, double f) {
    return X / (2 * std::numbers::pi * f);
}

double CapacitanceOf(double X, double f) {
    return 1 / (2 * std::numbers::pi * f * X);
}

LadderElement InPlaceOf(const ElementKind& kind, const LadderElement& old, double f, double R) {
    LadderElement next = kind.make(f, R);
    const auto* oldArm = std::get_if<Arm>(&old.is);
    if (const auto* arm = std::get_if<Arm>(&next.is); arm && oldArm) {
        const PartKind part = std::get<Part>(arm->impedance.is).kind;
        next = kind.make(f, SizeFor(part, impedance(oldArm->impedance, f), R));
    }
    const auto* oldLine = std::get_if<Line>(&old.is);
    if (auto* line = std::get_if<Line>(&next.is); line && oldLine) {
        const Line::Form form = line->form;
        *line = *oldLine;
        line->form = form;
    }
    next.node = old.node;
    return next;
}

// ---------------------------------------------------------------- one kind

ElementTile::ElementTile(const ElementKind& kind, QWidget* parent)
    : QToolButton(parent), kind_(kind) {
    setObjectName(QLatin1String(kind.object) + QStringLiteral("Tile"));
    setAccessibleName(Shown(kind.caption));
    setAutoRaise(true);
    // The Add button has the same for the keyboard.
    setFocusPolicy(Qt::NoFocus);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    setMinimumWidth(sizeHint().width());
    SetHint(*this, tr("%1: drag it onto an element to replace that, beside one to add it there; a "
                      "click adds it behind the chosen element")
                       .arg(Shown(kind.caption)));
}

void ElementTile::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->position().toPoint();
    QToolButton::mousePressEvent(event);
}

void ElementTile::mouseMoveEvent(QMouseEvent* event) {
    const int way = (event->position().toPoint() - pressed_).manhattanLength();
    if (!isDown() || way < QApplication::startDragDistance())
        return QToolButton::mouseMoveEvent(event);
    setDown(false);  // no click
    emit dragged();
}

void ElementTile::paintEvent(QPaintEvent* event) {
    QToolButton::paintEvent(event);
    QPainter painter(this);
    painter.drawImage(
        0, 0,
        ElementSymbol(kind_.make(1, 1), size(), palette().color(QPalette::ButtonText).rgb(),
                      devicePixelRatioF()));
}

// ---------------------------------------------------------------- all of them

ElementPalette::ElementPalette(QWidget* parent) : QWidget(parent) {
    setObjectName(QStringLiteral("ElementPalette"));
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    for (const ElementKind& kind : kKinds) {
        auto* tile = new ElementTile(kind);
        connect(tile, &QToolButton::clicked, this, [this, &kind] { emit chosen(kind); });
        connect(tile, &ElementTile::dragged, this, [this, &kind] { emit dragged(kind); });
        row->addWidget(tile);
    }
}

}  // namespace kelvro
