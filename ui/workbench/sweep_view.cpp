#include "ui/workbench/sweep_view.h"

#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QMouseEvent>
#include <QToolButton>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "plot/view_edit.h"
#include "ui/fields.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr Rgb kPresentColour{0, 60, 200};
constexpr Rgb kGhostColour{150, 150, 150};
constexpr double kWheelFactor = 1.25;
constexpr double kMarkerReach = 8;  // pixels
constexpr int kMarkersShown = 3;
constexpr double kHighestFrequency = 1e13;
constexpr double kReadingStep = 100;  // to a part of the plot's width

QString FrequencyText(double f) {
    return QString::fromStdString(FormatQuantity(3, f, "Hz"));
}

}  // namespace

SweepView::SweepView(const char* object, const char* trace, NetworkModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      traces_{FindTrace(trace)},
      image_(new PlotImage),
      box_(new QComboBox),
      menu_(new QMenu(this)),
      markerText_(new QLabel) {
    const QString name = QLatin1String(object);
    setObjectName(name);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    buildHead(name);
    image_->setObjectName(name + QStringLiteral("Image"));
    SetHint(*image_, tr("Click or M: marker, right button or Del: remove it, arrows: read, "
                        "wheel: zoom, with Ctrl or beside a value axis its values, L: "
                        "logarithmic frequencies, double-click or 0: fit"));
    column->addWidget(image_, 1);
    connect(&model_, &NetworkModel::changed, this, &SweepView::rebuild);
    connectMouse();
    showTraces();
}

void SweepView::buildHead(const QString& object) {
    auto* head = new QHBoxLayout;
    box_->setObjectName(object + QStringLiteral("Trace"));
    for (const Trace& entry : Traces()) box_->addItem(Shown(entry.title));
    SetHint(*box_, tr("What this plot shows first, on the left axis"));
    connect(box_, &QComboBox::activated, this,
            [this](int index) { setLeading(Traces()[static_cast<std::size_t>(index)]); });
    auto* more = new QToolButton;
    more->setObjectName(object + QStringLiteral("More"));
    more->setText(tr("More"));
    more->setPopupMode(QToolButton::InstantPopup);
    more->setFocusPolicy(Qt::StrongFocus);
    SetHint(*more, tr("What this plot shows beside it, on the right axis where it is of another "
                      "kind"));
    fillTraceMenu(object);
    more->setMenu(menu_);
    markerText_->setObjectName(object + QStringLiteral("Markers"));
    markerText_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    markerText_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    markerText_->hide();
    head->addWidget(box_);
    head->addWidget(more);
    head->addStretch(1);
    auto* column = static_cast<QVBoxLayout*>(layout());
    column->addLayout(head);
    column->addWidget(markerText_);
}

void SweepView::fillTraceMenu(const QString& object) {
    for (const Trace& trace : Traces()) {
        QAction* action = menu_->addAction(Shown(trace.title));
        action->setObjectName(object + '_' + ToQString(trace.key));
        action->setCheckable(true);
        connect(action, &QAction::triggered, this,
                [this, &trace](bool shown) { showTrace(trace, shown); });
    }
    menu_->addSeparator();
    log_ = menu_->addAction(tr("Logarithmic Frequencies"));
    log_->setObjectName(object + QStringLiteral("_logarithmic"));
    log_->setCheckable(true);
    connect(log_, &QAction::triggered, this, &SweepView::setLogarithmic);
}

void SweepView::connectMouse() {
    connect(image_, &PlotImage::mouseMoved, this, [this](const QMouseEvent* event) {
        const QPointF at = event->position();
        if (!image_->frame().contains(at.x(), at.y())) return emit hovered({});
        const double f = image_->frame().toWorld(at.x(), at.y()).x;
        emit hovered(FrequencyText(f) + QStringLiteral(": ") + readings(f));
    });
    connect(image_, &PlotImage::mousePressed, this,
            [this](const QMouseEvent* event) { pressed(*event); });
    connect(image_, &PlotImage::doubleClicked, this, [this](const QMouseEvent* event) {
        if (event->button() != Qt::LeftButton) return;
        // Its first click has set a marker that was not meant.
        removeMarkerNear(event->position().x(), true);
        fit();
    });
    connect(image_, &PlotImage::wheelTurned, this,
            [this](QWheelEvent* event) { wheelTurned(*event); });
    connect(image_, &PlotImage::keyPressed, this, [this](QKeyEvent* event) { keyPressed(*event); });
}

void SweepView::wheelTurned(QWheelEvent& event) {
    const double factor = std::pow(kWheelFactor, -event.angleDelta().y() / 120.0);
    const QPointF at = event.position();
    const PlotRect& plot = image_->frame().plot;
    const bool besideLeft = at.x() < plot.left;
    const bool besideRight = at.x() > plot.right && picture().view.right;
    if (besideLeft || besideRight || event.modifiers().testFlag(Qt::ControlModifier)) {
        zoomValues(at.y(), factor, !besideRight, !besideLeft);
    } else {
        zoom(image_->frame().toWorld(at.x(), 0).x, factor);
    }
    event.accept();
}

void SweepView::pressed(const QMouseEvent& event) {
    const QPointF at = event.position();
    if (!image_->frame().contains(at.x(), at.y())) return;
    if (event.button() == Qt::LeftButton) {
        model_.addMarker(image_->frame().toWorld(at.x(), at.y()).x);
    } else if (event.button() == Qt::RightButton) {
        removeMarkerNear(at.x());
    }
}

void SweepView::keyPressed(QKeyEvent& event) {
    const FrequencyBand shown = range();
    const double f = reading_.value_or(std::clamp(model_.designFrequency(), shown.low, shown.high));
    const bool control = event.modifiers().testFlag(Qt::ControlModifier);
    const double part = (control ? 0.1 : 1) / kReadingStep;
    const double step = logarithmic_ ? f * (std::pow(shown.high / shown.low, part) - 1)
                                     : (shown.high - shown.low) * part;
    const auto zoomed = [&](double factor) {
        const PlotRect& plot = image_->frame().plot;
        if (control) return zoomValues((plot.top + plot.bottom) / 2.0, factor, true, true);
        zoom(f, factor);
    };
    switch (event.key()) {
        case Qt::Key_Left:
            return read(std::max(f - step, shown.low));
        case Qt::Key_Right:
            return read(std::min(f + step, shown.high));
        case Qt::Key_M:
            return model_.addMarker(f);
        case Qt::Key_Delete:
            return removeMarkerNear(image_->frame().xPixel(f));
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return zoomed(1 / kWheelFactor);
        case Qt::Key_Minus:
            return zoomed(kWheelFactor);
        case Qt::Key_L:
            return setLogarithmic(!logarithmic_);
        case Qt::Key_0:
            return fit();
        default:
            event.ignore();
    }
}

void SweepView::removeMarkerNear(double x, bool addedNow) {
    const auto near = [&](double marker) {
        return std::fabs(image_->frame().xPixel(marker) - x) < kMarkerReach;
    };
    model_.removeMarkers(near, addedNow);
}

void SweepView::zoom(double f, double factor) {
    const Axis next = Zoomed(picture().view.x, factor, f, {1e-3 * f, kHighestFrequency});
    zoomed_ = FrequencyBand{next.min, next.max};
    rebuild();
}

void SweepView::zoomValues(double y, double factor, bool left, bool right) {
    constexpr AxisLimits kLimits{-1e12, 1e12};
    const View& view = picture().view;
    const double height = image_->frame().toWorld(image_->frame().plot.left + 1, y).y;
    const auto part = (height - view.y.min) / (view.y.max - view.y.min);
    const auto zoomedRange = [&](const Axis& axis) {
        const Axis next = Zoomed(axis, factor, std::lerp(axis.min, axis.max, part), kLimits);
        return Range{next.min, next.max};
    };
    if (left) values_.left = zoomedRange(view.y);
    if (right && view.right) values_.right = zoomedRange(*view.right);
    rebuild();
}

void SweepView::read(double f) {
    reading_ = f;
    placeCross();
    emit hovered(FrequencyText(f) + QStringLiteral(": ") + readings(f));
}

void SweepView::placeCross() {
    if (!reading_) return image_->setCross(std::nullopt);
    const double y = traces_.front()->value(TraceSource(model_.network()), *reading_);
    const WorldPoint at = image_->frame().place(*reading_, y);
    const bool seen = std::isfinite(y) && image_->frame().contains(at.x, at.y);
    image_->setCross(seen ? std::optional(QPointF(at.x, at.y)) : std::nullopt);
}

const Picture& SweepView::picture() const {
    return image_->picture();
}

QImage SweepView::image(double scale) const {
    return image_->toImage(scale);
}

void SweepView::setTraces(const TraceList& traces) {
    if (traces.empty()) return;
    // A range is one of decibels or ohms.
    if (traces.front()->axis != traces_.front()->axis) values_ = {};
    traces_ = {traces.front()};
    for (const Trace* trace : traces)
        if (trace != traces_.front()) traces_ = WithTrace(std::move(traces_), *trace);
    showTraces();
}

void SweepView::setLeading(const Trace& trace) {
    TraceList next = traces_;
    next.erase(next.begin());
    std::erase(next, &trace);
    next.insert(next.begin(), &trace);
    setTraces(next);
}

void SweepView::showTrace(const Trace& trace, bool shown) {
    if (&trace == traces_.front()) return showTraces();
    if (shown) {
        traces_ = WithTrace(std::move(traces_), trace);
    } else {
        std::erase(traces_, &trace);
    }
    showTraces();
}

void SweepView::showTraces() {
    box_->setCurrentIndex(static_cast<int>(traces_.front() - Traces().data()));
    if (!RightTrace(traces_)) values_.right.reset();
    const auto actions = menu_->actions();
    for (std::size_t k = 0; k < Traces().size(); ++k) {
        const auto i = static_cast<qsizetype>(k);
        const Trace* trace = &Traces()[k];
        actions[i]->setChecked(std::ranges::find(traces_, trace) != traces_.end());
        actions[i]->setEnabled(trace != traces_.front());
    }
    rebuild();
}

void SweepView::setLogarithmic(bool on) {
    logarithmic_ = on;
    log_->setChecked(on);
    rebuild();
}

void SweepView::setValueRanges(const ValueRanges& ranges) {
    values_ = ranges;
    if (!RightTrace(traces_)) values_.right.reset();
    rebuild();
}

void SweepView::setLimit(std::optional<double> dB, bool estimate) {
    limitDb_ = dB;
    limitIsEstimate_ = estimate;
    rebuild();
}

void SweepView::setDark(bool dark) {
    dark_ = dark;
    rebuild();
}

void SweepView::fit() {
    zoomed_.reset();
    values_ = {};
    rebuild();
}

void SweepView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    rebuild();
}

void SweepView::rebuild() {
    // A plot that nobody sees costs nothing while a node is dragged.
    if (!isVisible() && !image_->picture().curves.empty()) return;
    NetworkPlot plot{traces_,          range(),  logarithmic_,     {},
                     model_.markers(), limitDb_, limitIsEstimate_, &held_};
    const bool alone =
        !model_.ghost() && std::ranges::none_of(model_.snapshots(), &Snapshot::shown);
    plot.networks.push_back({&model_.network(), alone ? std::string() : "now", kPresentColour});
    for (const Snapshot& snapshot : model_.snapshots()) {
        if (!snapshot.shown) continue;
        plot.networks.push_back(
            {&snapshot.network, snapshot.name.toStdString(), snapshot.colour, true});
    }
    if (model_.ghost()) plot.networks.push_back({&*model_.ghost(), "ghost", kGhostColour, true});
    Picture picture = NetworkPicture(plot);
    const auto limit = [](Axis& axis, const std::optional<Range>& range) {
        if (!range) return;
        axis = WithRange(axis, range->min, range->max);
        axis.origin = axis.min;
    };
    limit(picture.view.y, values_.left);
    if (picture.view.right) limit(*picture.view.right, values_.right);
    picture.dark = dark_;
    image_->setPicture(std::move(picture));
    placeCross();
    // The plot keeps its height: the first markers' values here, all and the snapshots' as a hint.
    const QStringList lines = markerLines();
    markerText_->setText(lines.mid(0, kMarkersShown).join('\n'));
    markerText_->setToolTip(lines.join('\n'));
    markerText_->setVisible(!model_.markers().empty());
}

QString SweepView::readings(double f) const {
    const auto value = [f](const Trace& trace, const Network& network) {
        return QString::fromStdString(TraceText(trace, trace.value(TraceSource(network), f)));
    };
    QStringList texts;
    for (const Trace* trace : traces_) {
        QStringList others;
        for (const Snapshot& snapshot : model_.snapshots())
            if (snapshot.shown) others << snapshot.name + ' ' + value(*trace, snapshot.network);
        texts << ToQString(trace->symbol) + ' ' + value(*trace, model_.network()) +
                     (others.isEmpty() ? QString()
                                       : " (" + others.join(QStringLiteral(", ")) + ')');
    }
    return texts.join(QStringLiteral(", "));
}

QStringList SweepView::markerLines() const {
    QStringList lines;
    for (std::size_t i = 0; i < model_.markers().size(); ++i)
        lines << QStringLiteral("%1: %2, %3")
                     .arg(i + 1)
                     .arg(FrequencyText(model_.markers()[i]), readings(model_.markers()[i]));
    if (model_.markers().size() == 2)
        lines << tr("Δf %1").arg(
            FrequencyText(std::fabs(model_.markers()[1] - model_.markers()[0])));
    return lines;
}

}  // namespace kelvro
