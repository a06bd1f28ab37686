#include "ui/workbench/smith_view.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "plot/device_contours.h"
#include "plot/smith_painter.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr double kReachPixels = 12;    // how near a click has to be to a node
constexpr double kWheelFactor = 1.25;  // of one notch
constexpr double kFineDrag = 0.1;      // of the cursor's way, with Ctrl
constexpr double kKeyStep = 0.01;      // of the value, for one press of an arrow
constexpr int kSweepPoints = 201;
constexpr Rgb kTraceColour{192, 0, 0};
constexpr Rgb kContourColour{120, 120, 160};

QString FrequencyText(double f) {
    return QString::fromStdString(FormatQuantity(3, f, "Hz"));
}

}  // namespace

double NearestOfSeries(Series series, double value) {
    if (series == Series::None || !(value > 0)) return value;
    return ParseValue(SeriesNearest(series, value));
}

double SeriesStep(Series series, double value, int direction) {
    if (series == Series::None || !(value > 0)) return value * (1 + direction * kKeyStep);
    // Off by a hair, so that a value of the series gives its neighbour.
    const double from = value * (1 + direction * 1e-3);
    return ParseValue(direction > 0 ? SeriesAbove(series, from) : SeriesBelow(series, from));
}

SmithView::SmithView(NetworkModel& model, QWidget* parent) : QWidget(parent), model_(model) {
    setObjectName(QStringLiteral("SmithView"));
    setAccessibleName(tr("Smith chart"));
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    connect(&model_, &NetworkModel::changed, this, &SmithView::rebuild);
    connect(&model_, &NetworkModel::selectionChanged, this, &SmithView::rebuild);
    rebuild();
}

ChartFrame SmithView::frame() const {
    return {double(width()), double(height()), picture_.view};
}

QPointF SmithView::nodePosition(std::size_t step) const {
    const auto [x, y] = frame().place(picture_.path.at(step).gamma.back());
    return {x, y};
}

void SmithView::setGrids(ChartGrids grids) {
    picture_.grids = grids;
    update();
}

void SmithView::setDark(bool dark) {
    picture_.dark = dark;
    rebuild();
}

void SmithView::setVswrCircles(std::vector<double> values) {
    vswrCircles_ = std::move(values);
    rebuild();
}

void SmithView::setQualityCircles(std::vector<double> values) {
    qualityCircles_ = std::move(values);
    rebuild();
}

void SmithView::showDeviceCircles(DeviceSide side, bool on) {
    std::erase(deviceSides_, side);
    if (on) deviceSides_.push_back(side);
    rebuild();
}

void SmithView::setContours(std::vector<ChartContour> contours) {
    contours_ = std::move(contours);
    rebuild();
}

void SmithView::fit() {
    picture_.view = {};
    update();
}

std::complex<double> SmithView::source() const {
    return impedance(model_.network().source, model_.designFrequency());
}

// ---------------------------------------------------------------- what is shown

std::vector<Cx> SmithView::sweepOf(const Network& network) const {
    const FrequencyBand range = model_.plotRange();
    std::vector<double> f(kSweepPoints);
    for (int i = 0; i < kSweepPoints; ++i) {
        f[static_cast<std::size_t>(i)] =
            std::lerp(range.low, range.high, i / double{kSweepPoints - 1});
    }
    LadderResponse response(network);
    const NetworkSweep& sweep = response.sweep(f);
    std::vector<Cx> trace;
    trace.reserve(sweep.size());
    for (std::size_t i = 0; i < sweep.size(); ++i)
        trace.emplace_back(sweep.gammaInRe[i], sweep.gammaInIm[i]);
    return trace;
}

void SmithView::holdTraces() {
    const FrequencyBand range = model_.plotRange();
    std::vector<HeldTrace> next;
    for (const Snapshot& snapshot : model_.snapshots()) {
        if (!snapshot.shown) continue;
        const auto known = std::ranges::find_if(held_, [&](const HeldTrace& one) {
            return one.network == snapshot.network && one.range == range;
        });
        auto trace = known != held_.end() ? known->trace : sweepOf(snapshot.network);
        next.push_back({snapshot.network, range, std::move(trace)});
    }
    held_ = std::move(next);
}

void SmithView::addContours() {
    picture_.contours = contours_;
    for (const double s : vswrCircles_) {
        picture_.contours.push_back({VswrCircle(s), "VSWR " + FormatShortest(s), kContourColour});
    }
    for (const double Q : qualityCircles_) {
        for (const double q : {Q, -Q}) {
            const auto arc = QualityCircle(q, source());
            const std::string label = q > 0 ? "Q " + FormatShortest(Q) : "";
            if (arc) picture_.contours.push_back({*arc, label, kContourColour});
        }
    }
    for (const DeviceSide side : deviceSides_) {
        auto circles = DeviceContours(model_.network(), model_.designFrequency(), side);
        for (ChartContour& circle : circles) {
            circle.label = Shown(circle.label).toStdString();
            picture_.contours.push_back(std::move(circle));
        }
    }
}

/// The ends of the bands and the numbered markers on the trace.
void SmithView::addMarkers(const std::vector<Cx>& trace) {
    picture_.points.clear();
    if (trace.empty()) return;
    const LadderResponse response(model_.network());
    const auto add = [&](double f, const std::string& name) {
        const Cx gamma = response.at(f).gammaIn;
        if (!std::isfinite(gamma.real())) return;
        picture_.points.push_back({gamma, name, picture_.traces.front().colour, true});
    };
    for (const FrequencyBand& band : model_.network().bands) {
        for (const double f : {band.low, band.high}) add(f, FrequencyText(f).toStdString());
    }
    const auto& markers = model_.markers();
    for (std::size_t i = 0; i < markers.size(); ++i) add(markers[i], std::to_string(i + 1));
}

void SmithView::rebuild() {
    const Network& network = model_.network();
    const double f = model_.designFrequency();
    picture_.path = SmithPath(network, f);
    picture_.ghost = model_.ghost() ? SmithPath(*model_.ghost(), f) : std::vector<PathStep>();
    picture_.traces.clear();
    const std::vector<Cx> trace = sweepOf(network);
    picture_.traces.push_back({trace, kTraceColour});
    holdTraces();
    std::size_t held = 0;
    for (const Snapshot& snapshot : model_.snapshots())
        if (snapshot.shown)
            picture_.traces.push_back({held_[held++].trace, snapshot.colour, 1.4, true});
    addMarkers(trace);
    addContours();
    picture_.selectedStep = -1;
    for (std::size_t i = 0; i < picture_.path.size(); ++i) {
        const auto& tunable = picture_.path[i].tunable;
        if (tunable && tunable == model_.selected()) picture_.selectedStep = static_cast<int>(i);
    }
    const Cx zs = source();
    picture_.title = FrequencyText(f).toStdString();
    const std::string reference =
        "centre: " + FormatShortest(zs.real()) +
        (zs.imag() == 0  ? " Ω"
         : zs.imag() > 0 ? " - j" + FormatShortest(zs.imag()) + " Ω, power waves"
                         : " + j" + FormatShortest(-zs.imag()) + " Ω, power waves");
    picture_.reference = Shown(reference).toStdString();
    update();
}

/// Drawn anew only when it changes, not with every move of a node.
const QPixmap& SmithView::ground() {
    const int fontPixels = fontInfo().pixelSize();
    const Ground wanted{size(),         devicePixelRatioF(), picture_.view,
                        picture_.grids, picture_.dark,       fontPixels};
    if (drawn_ && *drawn_ == wanted) return ground_;
    ground_ = QPixmap((QSizeF(wanted.size) * wanted.ratio).toSize());
    ground_.setDevicePixelRatio(wanted.ratio);
    QPainter painter(&ground_);
    DrawSmithGround(painter, wanted.size, picture_, fontPixels);
    drawn_ = wanted;
    return ground_;
}

void SmithView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.drawPixmap(0, 0, ground());
    DrawSmithContents(painter, size(), picture_, fontInfo().pixelSize());
    if (hasFocus()) {
        painter.setPen(palette().color(QPalette::Highlight));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

// ---------------------------------------------------------------- mouse

void SmithView::mousePressEvent(QMouseEvent* event) {
    if (event->button() != Qt::LeftButton && event->button() != Qt::MiddleButton) return;
    const QPointF at = event->position();
    const Cx gamma = frame().gamma(at.x(), at.y());
    const auto node = event->button() == Qt::LeftButton
                          ? NodeNear(picture_.path, gamma, kReachPixels / frame().scale())
                          : std::nullopt;
    grabbed_ = at;
    if (!node) {
        gesture_ = Gesture::Pan;
        setCursor(Qt::ClosedHandCursor);
        return;
    }
    selectStep(static_cast<int>(*node));
    dragged_ = picture_.path[*node];
    gesture_ = Gesture::DragNode;
    model_.beginDrag(tr("Drag %1").arg(QString::fromStdString(dragged_->name)));
}

void SmithView::mouseMoveEvent(QMouseEvent* event) {
    const QPointF at = event->position();
    switch (gesture_) {
        case Gesture::DragNode:
            dragTo(at, event->modifiers());
            break;
        case Gesture::Pan:
            picture_.view = Panned(frame(), at.x() - grabbed_.x(), at.y() - grabbed_.y());
            grabbed_ = at;
            update();
            break;
        case Gesture::None:
            break;
    }
    hover(at);
}

void SmithView::mouseReleaseEvent(QMouseEvent*) {
    if (gesture_ == Gesture::DragNode) finishDrag(true);
    gesture_ = Gesture::None;
    unsetCursor();
}

void SmithView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) fit();
}

void SmithView::wheelEvent(QWheelEvent* event) {
    const double notches = event->angleDelta().y() / 120.0;
    zoom(event->position(), std::pow(kWheelFactor, notches));
    event->accept();
}

void SmithView::zoom(QPointF at, double factor) {
    picture_.view = ZoomedAt(frame(), at.x(), at.y(), factor);
    update();
}

void SmithView::dragTo(QPointF place, Qt::KeyboardModifiers modifiers) {
    // Fine: the node takes a tenth of the pointer's way.
    if (modifiers.testFlag(Qt::ControlModifier)) place = grabbed_ + kFineDrag * (place - grabbed_);
    const Cx gamma = frame().gamma(place.x(), place.y());
    const Tunable at = *dragged_->tunable;
    double value = DraggedValue(model_.network(), *dragged_, gamma, model_.designFrequency());
    if (modifiers.testFlag(Qt::ShiftModifier) && at.quantity == Tunable::Quantity::PartValue)
        value = NearestOfSeries(series_, value);
    model_.setValue(at, value);
}

void SmithView::finishDrag(bool keep) {
    if (gesture_ != Gesture::DragNode) return;
    gesture_ = Gesture::None;
    dragged_.reset();
    model_.endDrag(keep);
}

void SmithView::hover(QPointF at) {
    const Cx gamma = frame().gamma(at.x(), at.y());
    if (std::abs(gamma) > 1.05) return emit hovered({});
    QString text = QString::fromStdString(ReadingText(ReadingAt(gamma, source())));
    const auto node = NodeNear(picture_.path, gamma, kReachPixels / frame().scale());
    if (node) {
        const PathStep& step = picture_.path[*node];
        const auto& ladder = model_.network().ladder;
        text = QString::fromStdString(step.name + " = " +
                                      FormatQuantity(2, ValueOf(ladder, *step.tunable),
                                                     UnitOf(ladder, *step.tunable))) +
               QStringLiteral("; ") + text;
    }
    if (gesture_ == Gesture::None) setCursor(node ? Qt::SizeAllCursor : Qt::CrossCursor);
    emit hovered(text);
}

void SmithView::leaveEvent(QEvent*) {
    emit hovered({});
}

// ---------------------------------------------------------------- keys

void SmithView::selectStep(int step) {
    picture_.selectedStep = step;
    model_.select(step < 0 ? std::nullopt : picture_.path[static_cast<std::size_t>(step)].tunable);
    update();
}

/// Tab walks the nodes that can be tuned and leaves the chart behind the last one.
bool SmithView::focusNextPrevChild(bool next) {
    const int count = static_cast<int>(picture_.path.size());
    const int direction = next ? 1 : -1;
    int step = picture_.selectedStep < 0 && !next ? count : picture_.selectedStep;
    do {
        step += direction;
    } while (step >= 0 && step < count && !picture_.path[static_cast<std::size_t>(step)].tunable);
    if (step >= 0 && step < count) {
        selectStep(step);
        return true;
    }
    selectStep(-1);
    return QWidget::focusNextPrevChild(next);
}

void SmithView::stepValue(int direction, Qt::KeyboardModifiers modifiers) {
    const auto at = model_.selected();
    if (!at) return;
    const auto& ladder = model_.network().ladder;
    const double value = ValueOf(ladder, *at);
    const bool series =
        modifiers.testFlag(Qt::ShiftModifier) && at->quantity == Tunable::Quantity::PartValue;
    const double fine = modifiers.testFlag(Qt::ControlModifier) ? 0.1 : 1;
    const double next =
        series ? SeriesStep(series_, value, direction) : value * (1 + direction * fine * kKeyStep);
    const ValueRange range = RangeOf(ladder, *at);
    model_.setValue(*at, std::clamp(next, range.low, range.high));
}

void SmithView::keyPressEvent(QKeyEvent* event) {
    const QPointF middle(width() / 2.0, height() / 2.0);
    switch (event->key()) {
        case Qt::Key_Escape:
            if (gesture_ != Gesture::DragNode) return QWidget::keyPressEvent(event);
            return finishDrag(false);
        case Qt::Key_Up:
        case Qt::Key_Right:
            return stepValue(1, event->modifiers());
        case Qt::Key_Down:
        case Qt::Key_Left:
            return stepValue(-1, event->modifiers());
        case Qt::Key_Plus:
        case Qt::Key_Equal:
            return zoom(middle, kWheelFactor);
        case Qt::Key_Minus:
            return zoom(middle, 1 / kWheelFactor);
        case Qt::Key_0:
            return fit();
        default:
            QWidget::keyPressEvent(event);
    }
}

bool SmithView::event(QEvent* event) {
    // While a node is dragged Escape is the chart's own, not the window's.
    if (event->type() == QEvent::ShortcutOverride && gesture_ == Gesture::DragNode) {
        auto* key = static_cast<QKeyEvent*>(event);
        if (key->key() == Qt::Key_Escape) event->accept();
    }
    return QWidget::event(event);
}

}  // namespace kelvro
