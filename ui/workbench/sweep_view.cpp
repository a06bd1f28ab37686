#include "ui/workbench/sweep_view.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QMouseEvent>
#include <QVBoxLayout>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

constexpr Rgb kPresentColour{0, 60, 200};
constexpr double kWheelFactor = 1.25;
constexpr double kMarkerReach = 8;  // pixels

QString FrequencyText(double f) {
    return QString::fromStdString(FormatQuantity(3, f, "Hz"));
}

}  // namespace

SweepView::SweepView(const char* object, const char* trace, NetworkModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      trace_(FindNetworkTrace(trace)),
      image_(new PlotImage),
      box_(new QComboBox),
      markerText_(new QLabel) {
    setObjectName(QLatin1String(object));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(2);
    auto* head = new QHBoxLayout;
    box_->setObjectName(QLatin1String(object) + QStringLiteral("Trace"));
    for (const NetworkTrace& entry : NetworkTraces()) box_->addItem(ToQString(entry.title));
    SetHint(*box_, tr("What this plot shows"));
    markerText_->setObjectName(QLatin1String(object) + QStringLiteral("Markers"));
    markerText_->setTextInteractionFlags(Qt::TextSelectableByMouse);
    head->addWidget(box_);
    head->addWidget(markerText_, 1);
    column->addLayout(head);
    image_->setObjectName(QLatin1String(object) + QStringLiteral("Image"));
    SetHint(*image_, tr("Click: marker, right button: remove it, wheel: zoom, double-click: fit"));
    column->addWidget(image_, 1);
    connect(box_, &QComboBox::activated, this,
            [this](int index) { setTrace(NetworkTraces()[static_cast<std::size_t>(index)]); });
    connect(&model_, &NetworkModel::changed, this, &SweepView::rebuild);
    connectMouse();
    setTrace(*trace_);
}

void SweepView::connectMouse() {
    connect(image_, &PlotImage::mouseMoved, this, [this](QMouseEvent* event) {
        const QPointF at = event->position();
        if (!image_->frame().contains(at.x(), at.y())) return emit hovered({});
        const double f = image_->frame().toWorld(at.x(), at.y()).x;
        emit hovered(FrequencyText(f) + QStringLiteral(": ") + readings(f));
    });
    connect(image_, &PlotImage::mousePressed, this, [this](QMouseEvent* event) {
        const QPointF at = event->position();
        if (!image_->frame().contains(at.x(), at.y())) return;
        const double f = image_->frame().toWorld(at.x(), at.y()).x;
        if (event->button() == Qt::LeftButton) {
            if (event->type() == QEvent::MouseButtonDblClick) return fit();
            markers_.push_back(f);
        } else {
            std::erase_if(markers_, [&](double marker) {
                return std::fabs(image_->frame().xPixel(marker) - at.x()) < kMarkerReach;
            });
        }
        emit markersChanged();
        rebuild();
    });
    connect(image_, &PlotImage::wheelTurned, this, [this](QWheelEvent* event) {
        const double f = image_->frame().toWorld(event->position().x(), 0).x;
        const FrequencyBand shown = zoomed_.value_or(model_.plotRange());
        const double factor = std::pow(kWheelFactor, -event->angleDelta().y() / 120.0);
        const FrequencyBand next{std::max(f - (f - shown.low) * factor, 1e-3 * f),
                                 f + (shown.high - f) * factor};
        if (next.high - next.low > 1e-9 * f && next.high < 1e13) zoomed_ = next;
        rebuild();
        event->accept();
    });
}

const Picture& SweepView::picture() const {
    return image_->picture();
}

QImage SweepView::image(double scale) const {
    return image_->toImage(scale);
}

void SweepView::setTrace(const NetworkTrace& trace) {
    trace_ = &trace;
    box_->setCurrentIndex(static_cast<int>(trace_ - NetworkTraces().data()));
    rebuild();
}

void SweepView::setLimit(std::optional<double> dB, bool estimate) {
    limitDb_ = dB;
    limitIsEstimate_ = estimate;
    rebuild();
}

void SweepView::setMarkers(std::vector<double> markers) {
    markers_ = std::move(markers);
    rebuild();
}

void SweepView::setDark(bool dark) {
    dark_ = dark;
    rebuild();
}

void SweepView::fit() {
    zoomed_.reset();
    rebuild();
}

void SweepView::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    rebuild();
}

void SweepView::rebuild() {
    // A plot that nobody sees costs nothing while a node is dragged.
    if (!isVisible() && !image_->picture().curves.empty()) return;
    NetworkPlot plot{
        trace_,          zoomed_.value_or(model_.plotRange()), false, {}, markers_, limitDb_,
        limitIsEstimate_};
    const bool alone = model_.snapshots().empty();
    plot.networks.push_back({&model_.network(), alone ? std::string() : "now", kPresentColour});
    for (const Snapshot& snapshot : model_.snapshots()) {
        if (!snapshot.shown) continue;
        plot.networks.push_back(
            {&snapshot.network, snapshot.name.toStdString(), snapshot.colour, true});
    }
    Picture picture = NetworkPicture(plot);
    picture.dark = dark_;
    image_->setPicture(std::move(picture));
    showMarkers();
}

QString SweepView::readings(double f) const {
    const auto value = [&](const Network& network) {
        LadderResponse response(network);
        const double y = TraceValue(*trace_, response, f);
        if (!std::isfinite(y)) return tr("no value");
        const bool engineering = trace_->unit == "s" || trace_->unit == "Ω";
        return QString::fromStdString(engineering
                                          ? FormatQuantity(2, y, trace_->unit)
                                          : FormatFixed(0, 3, y) + " " + std::string(trace_->unit));
    };
    QString text = ToQString(trace_->symbol) + ' ' + value(model_.network());
    for (const Snapshot& snapshot : model_.snapshots())
        if (snapshot.shown)
            text += QStringLiteral(", ") + snapshot.name + ' ' + value(snapshot.network);
    return text;
}

void SweepView::showMarkers() {
    QStringList texts;
    for (const double f : markers_) texts << FrequencyText(f) + ' ' + readings(f);
    if (markers_.size() == 2)
        texts << tr("Δf %1").arg(FrequencyText(std::fabs(markers_[1] - markers_[0])));
    markerText_->setText(texts.join(QStringLiteral(" | ")));
}

}  // namespace kelvro
