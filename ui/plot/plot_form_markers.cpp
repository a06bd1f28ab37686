// Markers and held curves of the plot windows.

#include <QInputDialog>
#include <QLineEdit>
#include <QMouseEvent>
#include <algorithm>

#include "core/number_text.h"
#include "design/pages.h"
#include "ui/plot/marker_panel.h"
#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr std::size_t kMostMarkers = 20;

/// "Pi Section, Q 5.00".
QString HoldName(const Design& design) {
    return Shown(PageOf(design).caption) + ", Q " +
           QString::fromStdString(FormatEngShort(2, design.Q));
}

}  // namespace

/// Where the keys read the curve, else where the mouse is, else at the peak.
double PlotForm::markedFrequency() const {
    if (reading_) return *reading_;
    if (mouseFrequency_) return *mouseFrequency_;
    return samples().x[samples().stops[PeakStop(samples())]];
}

void PlotForm::addMarker(double f) {
    if (plot_.markers.size() >= kMostMarkers) {
        return host_.showMessage(
            tr("More than %1 markers would hide the curve.").arg(kMostMarkers));
    }
    plot_.markers.push_back(f);
    redraw();
}

void PlotForm::Marker1Click() {
    addMarker(markedFrequency());
}

void PlotForm::DeleteMarker1Click() {
    const auto at = NearestMarker(plot_.markers, markedFrequency());
    if (!at) return;
    plot_.markers.erase(plot_.markers.begin() + std::ptrdiff_t(*at));
    redraw();
}

void PlotForm::DeleteMarkers1Click() {
    plot_.markers.clear();
    redraw();
}

/// A marker where there is none, and none where there is one.
void PlotForm::ImageDoubleClick(QMouseEvent* event) {
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    if (event->button() != Qt::LeftButton || !frame.contains(at.x(), at.y())) return;
    if (const auto marker = markerUnder(at)) {
        plot_.markers.erase(plot_.markers.begin() + std::ptrdiff_t(*marker));
        return redraw();
    }
    addMarker(frame.toWorld(at.x(), at.y()).x);
}

std::optional<std::size_t> PlotForm::markerUnder(QPointF at) const {
    const auto pointer = PointerAt(image_->frame(), image_->picture().pointers, at.x(), at.y());
    if (!pointer) return std::nullopt;
    return *pointer / plot_.traces.size();
}

void PlotForm::dragMarker(QPointF to) {
    plot_.markers[*draggedMarker_] = image_->frame().toWorld(to.x(), to.y()).x;
    redraw();
}

void PlotForm::showMarkers() {
    const TraceSource source(host_.design());
    markerPanel_->show(MarkerTableOf(source, plot_.traces, plot_.markers),
                       EdgeTexts(host_.design(), plot_, samples_));
}

void PlotForm::Hold1Click() {
    bool done = false;
    const QString name = QInputDialog::getText(this, tr("Hold Curve"), tr("Name in the legend"),
                                               QLineEdit::Normal, HoldName(host_.design()), &done);
    if (!done) return;
    const QString shown = name.trimmed().isEmpty() ? HoldName(host_.design()) : name.trimmed();
    plot_.held.push_back({shown.toStdString(), host_.design()});
    redraw();
}

void PlotForm::Release1Click() {
    plot_.held.clear();
    redraw();
}

}  // namespace kelvro
