#include "ui/plot/plot_form.h"

#include <QAction>
#include <QLabel>
#include <QScreen>
#include <QShowEvent>
#include <QStatusBar>
#include <QToolBar>
#include <algorithm>
#include <array>

#include "design/cycle.h"
#include "design/pages.h"
#include "ui/plot/marker_panel.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr std::size_t kManyRuns = 100;

/// Flags of a picture that the settings keep, and the menu item of each.
struct ChoiceFlag {
    bool ResponsePlot::*ofPlot;
    bool PlotChoices::*ofChoices;
    const char* action;
};

constexpr std::array kChoiceFlags = {
    ChoiceFlag{&ResponsePlot::harmonics, &PlotChoices::harmonics, "Harmonics1"},
    ChoiceFlag{&ResponsePlot::levels, &PlotChoices::levels, "Levels1"},
    ChoiceFlag{&ResponsePlot::edges, &PlotChoices::edges, "BandEdges1"},
    ChoiceFlag{&ResponsePlot::dark, &PlotChoices::dark, "Dark1"},
};

}  // namespace

PlotForm::PlotForm(DesignHost& host, const Texts& texts, const Trace& leading, QWidget* parent)
    : QMainWindow(parent, Qt::Window),
      host_(host),
      texts_(texts),
      plot_{{&leading}, DefaultView(leading, host.design())},
      views_(plot_.view),
      image_(new PlotImage(this)),
      toolBar_(addToolBar(tr("Tools"))),
      status_(new QLabel(this)),
      yield_(new QLabel(this)),
      markerPanel_(new MarkerPanel(this)) {
    setObjectName(texts.objectName);
    setWindowTitle(texts.caption);
    image_->setObjectName("Image");
    setCentralWidget(image_);
    status_->setObjectName("StatusLabel");
    status_->setTextFormat(Qt::PlainText);
    status_->setMinimumWidth(1);
    statusBar()->addWidget(status_, 1);
    yield_->setObjectName("YieldLabel");
    yield_->setToolTip(tr("Runs whose gain at fo is at most 1 dB below the nominal one"));
    statusBar()->addPermanentWidget(yield_);
    addDockWidget(Qt::BottomDockWidgetArea, markerPanel_);
    buildToolBar();
    buildMenus();
    connect(image_, &PlotImage::mouseMoved, this, &PlotForm::ImageMouseMove);
    connect(image_, &PlotImage::mousePressed, this, &PlotForm::ImageMouseDown);
    connect(image_, &PlotImage::mouseReleased, this, &PlotForm::ImageMouseUp);
    connect(image_, &PlotImage::doubleClicked, this, &PlotForm::ImageDoubleClick);
    connect(image_, &PlotImage::mouseLeft, this, [this] { mouseFrequency_.reset(); });
    connect(image_, &PlotImage::wheelTurned, this, &PlotForm::ImageMouseWheel);
    connect(image_, &PlotImage::keyPressed, this, &PlotForm::ImageKeyDown);
    connect(image_, &PlotImage::resized, this, &PlotForm::FormResize);
    connect(&host_, &DesignHost::designChanged, this, &PlotForm::designChanged);
    connect(&host_, &DesignHost::plotChoicesChanged, this, &PlotForm::takeChoices);
    connect(findChild<QAction*>("Caption1"), &QAction::toggled, this, &PlotForm::keepChoices);
    resizeTo(StandardSize(screen()->size().width()));
}

void PlotForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) FormShow();
}

PlotChoices PlotForm::choices() const {
    PlotChoices now{.look = static_cast<int>(plot_.look)};
    for (const Trace* trace : plot_.traces) now.traces.emplace_back(trace->key);
    for (const auto& [ofPlot, ofChoices, name] : kChoiceFlags) now.*ofChoices = plot_.*ofPlot;
    now.caption = findChild<QAction*>("Caption1")->isChecked();
    return now;
}

void PlotForm::keepChoices() {
    host_.setPlotChoices(texts_.window, choices());
}

void PlotForm::takeChoices() {
    const PlotChoices wanted = host_.plotChoices(texts_.window);
    if (wanted == choices()) return;
    TraceList traces;
    for (const std::string& key : wanted.traces) {
        const Trace* trace = FindTrace(key);
        if (!trace) continue;
        const bool fits = std::ranges::all_of(traces, [&](const Trace* other) {
            return other->axis == traces.front()->axis || trace->axis == other->axis ||
                   trace->axis == traces.front()->axis;
        });
        if (fits) traces.push_back(trace);
    }
    if (!traces.empty() && traces.front()->axis == leading().axis) plot_.traces = traces;
    plot_.look = static_cast<CurveLook>(wanted.look);
    for (const auto& [ofPlot, ofChoices, name] : kChoiceFlags) {
        plot_.*ofPlot = wanted.*ofChoices;
        const QSignalBlocker blocked(findChild<QAction*>(name));
        findChild<QAction*>(name)->setChecked(wanted.*ofChoices);
    }
    const QSignalBlocker blocked(findChild<QAction*>("Caption1"));
    findChild<QAction*>("Caption1")->setChecked(wanted.caption);
    showTraceState();
    leadingChanged();
    if (isVisible()) showView();
}

void PlotForm::FormShow() {
    stopReading();
    cancelDrag();
    views_.reset(DefaultView(plot_.traces, TraceSource(host_.design())));
    showView();
    image_->setFocus();
}

/// The view follows the design where it is still the one with which the window opened.
void PlotForm::designChanged() {
    if (!isVisible()) return;
    const View now = DefaultView(plot_.traces, TraceSource(host_.design()));
    const View followed = Followed(view(), home_, now);
    if (followed == view()) return redraw();
    setView(followed);
}

void PlotForm::setView(const View& view) {
    views_.amend(view);
    showView();
}

void PlotForm::editView(const View& view, const char* step, const char* key) {
    views_.edit(view, step, key);
    showView();
}

/// A view of the history may come from other traces: it has the right axis that is needed now.
void PlotForm::showView() {
    views_.amend(
        WithRightAxis(views_.present(), plot_.traces, plot_.traces, TraceSource(host_.design())));
    plot_.view = views_.present();
    host_.publish(Published(view()));
    showLogState();
    showUndoState();
    redraw();
}

void PlotForm::setTraces(TraceList traces) {
    const View view = WithRightAxis(plot_.view, plot_.traces, traces, TraceSource(host_.design()));
    plot_.traces = std::move(traces);
    showTraceState();
    setView(view);
}

void PlotForm::setLeading(const Trace& trace) {
    if (&leading() == &trace) return;
    std::erase(plot_.traces, &trace);
    plot_.traces.front() = &trace;
    showTraceState();
}

void PlotForm::showTrace(const Trace& trace, bool shown) {
    TraceList traces = plot_.traces;
    std::erase_if(traces, [&](const Trace* other) {
        const bool inItsPlace = other->axis != leading().axis && other->axis != trace.axis;
        return other == &trace || (shown && trace.axis != leading().axis && inItsPlace);
    });
    if (shown) traces.push_back(&trace);
    setTraces(std::move(traces));
}

void PlotForm::redraw() {
    const Design& design = host_.design();
    const std::string_view page = PageOf(design).caption;
    setWindowTitle(texts_.caption + " - " + Shown(page));
    home_ = DefaultView(plot_.traces, TraceSource(design));
    plot_.note = NoteFor(design, host_.result().message.has_value());
    samples_ = SampledTraces(design, plot_);
    base_ = ResponsePicture(design, plot_, samples_);
    redrawScatter();
    compose();
    showMarkers();
    keepChoices();
}

/// The picture as it is shown: the response, and over it what the runs have drawn.
void PlotForm::compose() {
    Picture picture = base_;
    if (!runCurves_.empty()) {
        picture.curves.insert(picture.curves.end(), runCurves_.begin(), runCurves_.end());
        // So many curves bury the nominal one: it is drawn once more on top.
        if (runCurves_.size() >= kManyRuns) picture.curves.push_back(base_.curves.front());
        picture.legend.push_back(ScatterLegend(static_cast<int>(runCurves_.size())));
    }
    if (envelope_) AddEnvelope(picture, *envelope_);
    image_->setPicture(std::move(picture));
    if (reading_) moveReading(std::ptrdiff_t(NearestStop(samples(), *reading_)));
}

}  // namespace kelvro
