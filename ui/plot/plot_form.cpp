#include "ui/plot/plot_form.h"

#include <QAction>
#include <QLabel>
#include <QMenuBar>
#include <QScreen>
#include <QShowEvent>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "design/cycle.h"
#include "design/pages.h"
#include "ui/plot/icons.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

struct ToolEntry {
    const char* name;
    const char* icon;
    const char* hint;
    void (PlotForm::*handler)();
};

constexpr std::array kToolEntries{
    ToolEntry{"VergroessernButton", "enlarge", "Enlarge the window",
              &PlotForm::VergroessernButtonClick},
    ToolEntry{"VerkleinernButton", "reduce", "Reduce the window",
              &PlotForm::VerkleinernButtonClick},
    ToolEntry{"StandardgrButton", "standard size", "Standard size of the window",
              &PlotForm::StandardgrButtonClick},
    ToolEntry{"AutoskButton", "autoscale", "Scale both axes to the curve",
              &PlotForm::AutoskButtonClick},
    ToolEntry{"xlogButton", "log x", "Logarithmic frequency axis", &PlotForm::xlogButtonClick},
    ToolEntry{"ZoomInButton", "zoom in", "Zoom in (or turn the wheel at a place)",
              &PlotForm::ZoomInButtonClick},
    ToolEntry{"ZoomOutButton", "zoom out", "Zoom out (or turn the wheel at a place)",
              &PlotForm::ZoomOutButtonClick},
    ToolEntry{"HomeButton", "home view", "Back to the whole view around fo (Home)",
              &PlotForm::Home1Click},
    ToolEntry{"DotButton", "curve style", "Curve as line, line with dots, dashed line",
              &PlotForm::DotButtonClick},
};

struct MenuEntry {
    const char* name;  ///< null for a separator
    const char* text;
    const char* shortcut;
    void (PlotForm::*handler)();
};

constexpr MenuEntry kSeparator{nullptr, nullptr, nullptr, nullptr};

constexpr std::array kFileEntries{
    MenuEntry{"Save1", "&Save as Bitmap...", "Ctrl+S", &PlotForm::Save1Click},
    MenuEntry{"SaveWMF1", "Save as &Metafile...", "", &PlotForm::SaveWMF1Click},
    MenuEntry{"SaveasJPEG1", "Save as &JPEG...", "", &PlotForm::SaveasJPEG1Click},
    MenuEntry{"SaveasGIF1", "Save as &GIF...", "", &PlotForm::SaveasGIF1Click},
    MenuEntry{"SaveasPNG1", "Save as P&NG...", "", &PlotForm::SaveasPNG1Click},
    MenuEntry{"SaveasSVG1", "Save as S&VG...", "", &PlotForm::SaveasSVG1Click},
    MenuEntry{"SaveasPDF1", "Save as P&DF...", "", &PlotForm::SaveasPDF1Click},
    kSeparator,
    MenuEntry{"SaveasTable1", "Save as &Table...", "Ctrl+T", &PlotForm::SaveasTable1Click},
    kSeparator,
    MenuEntry{"Print1", "&Print...", "Ctrl+P", &PlotForm::Print1Click},
};

constexpr std::array kEditEntries{
    MenuEntry{"UndoView1", "&Undo", "Ctrl+Z", &PlotForm::UndoView1Click},
    MenuEntry{"RedoView1", "&Redo", "Ctrl+Shift+Z", &PlotForm::RedoView1Click},
    kSeparator,
    MenuEntry{"Copy1", "&Copy", "Ctrl+C", &PlotForm::Copy1Click},
};

constexpr std::array kViewEntries{
    MenuEntry{"Vergroessern1", "&Enlarge", "Ctrl++", &PlotForm::Vergroessern1Click},
    MenuEntry{"Verkleinern1", "&Reduce", "Ctrl+-", &PlotForm::Verkleinern1Click},
    MenuEntry{"Standardgroesse1", "&Standard Size", "Ctrl+0", &PlotForm::Standardgroesse1Click},
    kSeparator,
    MenuEntry{"Autoskalierung1", "&Autoscale", "A", &PlotForm::Autoskalierung1Click},
    MenuEntry{"xAutoskalierung1", "&x Autoscale", "", &PlotForm::xAutoskalierung1Click},
    MenuEntry{"yAutoskalierung1", "&y Autoscale", "", &PlotForm::yAutoskalierung1Click},
    kSeparator,
    MenuEntry{"ZoomIn1", "Zoom &In", "+", &PlotForm::ZoomInButtonClick},
    MenuEntry{"ZoomOut1", "Zoom &Out", "-", &PlotForm::ZoomOutButtonClick},
    MenuEntry{"Home1", "&Home View", "Home", &PlotForm::Home1Click},
    kSeparator,
    MenuEntry{"xlog1", "x &log", "L", &PlotForm::xlog1Click},
    MenuEntry{"AxisLimits1", "Axis Li&mits...", "Ctrl+L", &PlotForm::AxisLimits1Click},
    MenuEntry{"Ursprungfestlegen1", "Set Ori&gin...", "", &PlotForm::Ursprungfestlegen1Click},
    kSeparator,
    MenuEntry{"Dot1", "&Curve Style", "C", &PlotForm::DotButtonClick},
};

/// Opens a window that the plots do not know; whoever shows them connects it.
constexpr std::array kHelpEntries{
    MenuEntry{"GRHilfe1", "&Help on plots", "F1", nullptr},
};

QString TraceAction(const Trace& trace) {
    return "Trace_" + QString::fromLatin1(trace.key.data(), qsizetype(trace.key.size()));
}

}  // namespace

PlotForm::PlotForm(DesignHost& host, const Texts& texts, const Trace& leading, QWidget* parent)
    : QMainWindow(parent, Qt::Window),
      host_(host),
      texts_(texts),
      plot_{{&leading}, DefaultView(leading, host.design())},
      views_(plot_.view),
      image_(new PlotImage(this)),
      toolBar_(addToolBar(tr("Tools"))),
      status_(new QLabel(this)) {
    setObjectName(texts.objectName);
    setWindowTitle(texts.caption);
    image_->setObjectName("Image");
    setCentralWidget(image_);
    status_->setObjectName("StatusLabel");
    status_->setTextFormat(Qt::PlainText);
    status_->setMinimumWidth(1);
    statusBar()->addWidget(status_, 1);
    buildToolBar();
    buildMenus();
    connect(image_, &PlotImage::mouseMoved, this, &PlotForm::ImageMouseMove);
    connect(image_, &PlotImage::mousePressed, this, &PlotForm::ImageMouseDown);
    connect(image_, &PlotImage::mouseReleased, this, &PlotForm::ImageMouseUp);
    connect(image_, &PlotImage::wheelTurned, this, &PlotForm::ImageMouseWheel);
    connect(image_, &PlotImage::keyPressed, this, &PlotForm::ImageKeyDown);
    connect(image_, &PlotImage::resized, this, &PlotForm::FormResize);
    connect(&host_, &DesignHost::designChanged, this, &PlotForm::designChanged);
    resizeTo(StandardSize(screen()->size().width()));
}

QToolButton* PlotForm::addToolButton(const QString& name, const char* icon, const QString& hint) {
    auto* button = new QToolButton(toolBar_);
    button->setObjectName(name);
    button->setIcon(VectorIcon(icon));
    button->setToolTip(hint);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    toolBar_->addWidget(button);
    return button;
}

void PlotForm::buildToolBar() {
    toolBar_->setObjectName("ToolBar");
    toolBar_->setMovable(false);
    toolBar_->setIconSize(QSize(18, 18));
    for (const ToolEntry& entry : kToolEntries) {
        auto* button = addToolButton(entry.name, entry.icon, tr(entry.hint));
        button->setCheckable(entry.handler == &PlotForm::xlogButtonClick);
        connect(button, &QToolButton::clicked, this, entry.handler);
    }
}

void PlotForm::buildMenus() {
    const auto fill = [this](QMenu* menu, const auto& entries) {
        for (const MenuEntry& entry : entries) {
            if (entry.name == nullptr) {
                menu->addSeparator();
                continue;
            }
            QAction* action = menu->addAction(tr(entry.text));
            action->setObjectName(entry.name);
            action->setShortcut(QKeySequence(entry.shortcut));
            action->setCheckable(entry.handler == &PlotForm::xlog1Click);
            if (entry.handler) connect(action, &QAction::triggered, this, entry.handler);
        }
    };
    QMenu* file = menuBar()->addMenu(tr("&File"));
    fill(file, kFileEntries);
    file->addSeparator();
    file->addAction(tr("&Close"), QKeySequence("Ctrl+W"), this, &QWidget::close);
    fill(menuBar()->addMenu(tr("&Edit")), kEditEntries);
    fill(menuBar()->addMenu(tr("&View")), kViewEntries);
    fillTraceMenu(*menuBar()->addMenu(tr("&Traces")));
    fill(menuBar()->addMenu(tr("&Help")), kHelpEntries);
}

void PlotForm::fillTraceMenu(QMenu& menu) {
    menu.setObjectName("Traces1");
    const Trace* last = nullptr;
    for (const Trace& trace : Traces()) {
        if (last != nullptr && last->axis != trace.axis) menu.addSeparator();
        last = &trace;
        const QString title = QString::fromUtf8(trace.title.data(), qsizetype(trace.title.size()));
        QAction* action = menu.addAction(title);
        action->setObjectName(TraceAction(trace));
        action->setCheckable(true);
        connect(action, &QAction::toggled, this,
                [this, &trace](bool shown) { showTrace(trace, shown); });
    }
    showTraceState();
}

/// The leading trace is chosen by the window, not by the menu.
void PlotForm::showTraceState() {
    for (const Trace& trace : Traces()) {
        auto* action = findChild<QAction*>(TraceAction(trace));
        const QSignalBlocker blocked(action);
        action->setChecked(std::ranges::find(plot_.traces, &trace) != plot_.traces.end());
        action->setEnabled(&trace != plot_.traces.front());
    }
}

void PlotForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) FormShow();
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
    std::erase(plot_.traces, &trace);
    plot_.traces.insert(plot_.traces.begin(), &trace);
    plot_.traces.erase(plot_.traces.begin() + 1);
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
    const std::string_view page = PageOf(host_.design()).caption;
    setWindowTitle(texts_.caption + " - " + QString::fromUtf8(page.data(), qsizetype(page.size())));
    home_ = DefaultView(plot_.traces, TraceSource(host_.design()));
    samples_ = SampledTraces(host_.design(), plot_);
    image_->setPicture(ResponsePicture(host_.design(), plot_, samples_));
    if (reading_) moveReading(std::ptrdiff_t(NearestStop(samples(), *reading_)));
}

}  // namespace kelvro
