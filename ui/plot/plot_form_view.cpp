// The commands of the plot windows that change the view.

#include <QAction>
#include <QScreen>
#include <QToolButton>
#include <algorithm>

#include "ui/plot/axis_limits_dialog.h"
#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"
#include "ui/plot/xmax_dialog.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Larger windows would only cost memory.
constexpr int kLargestSide = 8192;

bool IsLogX(const View& view) {
    return view.x.mode == AxisMode::Logarithmic;
}

}  // namespace

void PlotForm::showLogState() {
    findChild<QAction*>("xlog1")->setChecked(IsLogX(view()));
    findChild<QToolButton*>("xlogButton")->setChecked(IsLogX(view()));
}

void PlotForm::resizeTo(PixelSize size) {
    resize(std::min(size.width, kLargestSide), std::min(size.height, kLargestSide));
}

void PlotForm::Vergroessern1Click() {
    resizeTo(Enlarged({width(), height()}));
}

void PlotForm::Verkleinern1Click() {
    resizeTo(Reduced({width(), height()}));
}

void PlotForm::Standardgroesse1Click() {
    resizeTo(StandardSize(screen()->size().width()));
}

void PlotForm::Autoskalierung1Click() {
    View view = plot_.view;
    view.x = AutoscaledX(view.x, samples().validX());
    editView(AutoscaledToTraces(host_.design(), plot_.traces, view),
             QT_TRANSLATE_NOOP("kelvro", "Autoscale"));
}

void PlotForm::xAutoskalierung1Click() {
    View view = plot_.view;
    view.x = AutoscaledX(view.x, samples().validX());
    editView(view, QT_TRANSLATE_NOOP("kelvro", "Autoscale of x"));
}

void PlotForm::yAutoskalierung1Click() {
    editView(AutoscaledToTraces(host_.design(), plot_.traces, plot_.view),
             QT_TRANSLATE_NOOP("kelvro", "Autoscale of y"));
}

void PlotForm::xlog1Click() {
    View view = plot_.view;
    view.x.mode = IsLogX(view) ? AxisMode::Linear : AxisMode::Logarithmic;
    view.x = AutoscaledX(view.x, samples().x);
    editView(view, "x log");
}

void PlotForm::Ursprungfestlegen1Click() {
    const QPoint at(image_->frame().plot.left, image_->frame().plot.bottom);
    View view = plot_.view;
    if (const auto x = askValue(XOriginEdit(view), Zone::XStart, at)) view.x.origin = *x;
    if (const auto y = askValue(YOriginEdit(view), Zone::YStart, at)) view.y.origin = *y;
    editView(view, QT_TRANSLATE_NOOP("kelvro", "Origin"));
}

/// The stop that is read, else fo, as far as it is in view: what a zoom is about.
WorldPoint PlotForm::zoomCentre() const {
    const std::size_t at =
        samples().stops[NearestStop(samples(), reading_.value_or(host_.design().fo))];
    const auto visible = [](const Axis& axis, double value) {
        return axis.min < value && value < axis.max ? value : Middle(axis);
    };
    return {visible(view().x, samples().x[at]), visible(view().y, samples().y[at])};
}

void PlotForm::zoomAll(double factor) {
    const double fo = host_.design().fo;
    WorldPoint centre = zoomCentre();
    if (factor > 1) {
        const double atFo = leading().value(TraceSource(host_.design()), fo);
        centre = OutwardCentre(view(), centre, {fo, atFo});
    }
    editView(ZoomedView(view(), factor, centre, ZoomOf::Both, fo),
             QT_TRANSLATE_NOOP("kelvro", "Zoom"));
}

void PlotForm::ZoomInButtonClick() {
    zoomAll(kZoomStep);
}

void PlotForm::ZoomOutButtonClick() {
    zoomAll(1 / kZoomStep);
}

void PlotForm::Home1Click() {
    editView(DefaultView(plot_.traces, TraceSource(host_.design())),
             QT_TRANSLATE_NOOP("kelvro", "Home View"));
}

void PlotForm::UndoView1Click() {
    if (views_.undo()) showView();
}

void PlotForm::RedoView1Click() {
    if (views_.redo()) showView();
}

void PlotForm::showUndoState() {
    const auto show = [this](const char* action, const QString& text, const std::string& step) {
        auto* entry = findChild<QAction*>(action);
        entry->setText(StepCaption(text, step));
        entry->setEnabled(!step.empty());
    };
    show("UndoView1", tr("&Undo"), views_.undoName());
    show("RedoView1", tr("&Redo"), views_.redoName());
}

void PlotForm::AxisLimits1Click() {
    const Trace* right = RightTrace(plot_.traces);
    AxisLimitsDialog dialog(view(), host_.design().fo, leading(), right, this);
    if (dialog.exec() == QDialog::Accepted)
        editView(dialog.view(), QT_TRANSLATE_NOOP("kelvro", "Axis Limits"));
}

void PlotForm::DotButtonClick() {
    plot_.look = NextLook(plot_.look);
    redraw();
}

/// A question about the axis beside which a zone lies.
std::optional<double> PlotForm::askValue(const ValueEdit& edit, Zone zone, QPoint at) {
    const bool frequency = zone == Zone::XStart || zone == Zone::XEnd;
    const bool right = zone == Zone::RightStart || zone == Zone::RightEnd;
    const Trace& trace = right ? *RightTrace(plot_.traces) : leading();
    const Axis& axis = right ? *view().right : view().y;
    const QString unit =
        frequency ? "Hz" : QString::fromUtf8(trace.unit.data(), qsizetype(trace.unit.size()));
    const double step = frequency ? 0 : axis.step * axis.labelEvery;
    TXmaxDlg1 dialog(edit, unit, {host_.preferences().SweepFactor, step}, this);
    const QRect screenArea = screen()->availableGeometry();
    const QSize size = dialog.sizeHint();
    const QPoint place = pos() + at + QPoint(48, -72);
    dialog.move(std::clamp(place.x(), screenArea.left(),
                           std::max(screenArea.left(), screenArea.right() - size.width())),
                std::clamp(place.y(), screenArea.top(),
                           std::max(screenArea.top(), screenArea.bottom() - size.height())));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.value();
}

void PlotForm::editEnd(Zone zone, QPoint at) {
    const ValueEdit edit = EndEdit(view(), zone, host_.design().fo);
    const auto value = askValue(edit, zone, at);
    if (value)
        editView(WithEnd(view(), zone, *value, host_.design().fo),
                 QT_TRANSLATE_NOOP("kelvro", "Axis Limits"));
}

}  // namespace kelvro
