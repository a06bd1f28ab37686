// Menus and tool bar of the plot windows, from tables.

#include <QAction>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "ui/plot/icons.h"
#include "ui/plot/plot_form.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

struct ToolEntry {
    const char* name;
    const char* icon;
    const char* hint;
    void (PlotForm::*handler)();
};

constexpr std::array kToolEntries{
    ToolEntry{"VergroessernButton", "enlarge", QT_TRANSLATE_NOOP("kelvro", "Enlarge the window"),
              &PlotForm::VergroessernButtonClick},
    ToolEntry{"VerkleinernButton", "reduce", QT_TRANSLATE_NOOP("kelvro", "Reduce the window"),
              &PlotForm::VerkleinernButtonClick},
    ToolEntry{"StandardgrButton", "standard size",
              QT_TRANSLATE_NOOP("kelvro", "Standard size of the window"),
              &PlotForm::StandardgrButtonClick},
    ToolEntry{"AutoskButton", "autoscale",
              QT_TRANSLATE_NOOP("kelvro", "Scale both axes to the curve"),
              &PlotForm::AutoskButtonClick},
    ToolEntry{"xlogButton", "log x", QT_TRANSLATE_NOOP("kelvro", "Logarithmic frequency axis"),
              &PlotForm::xlogButtonClick},
    ToolEntry{"ZoomInButton", "zoom in",
              QT_TRANSLATE_NOOP("kelvro", "Zoom in (or turn the wheel at a place)"),
              &PlotForm::ZoomInButtonClick},
    ToolEntry{"ZoomOutButton", "zoom out",
              QT_TRANSLATE_NOOP("kelvro", "Zoom out (or turn the wheel at a place)"),
              &PlotForm::ZoomOutButtonClick},
    ToolEntry{"HomeButton", "home view",
              QT_TRANSLATE_NOOP("kelvro", "Back to the whole view around fo (Home)"),
              &PlotForm::Home1Click},
    ToolEntry{"DotButton", "curve style",
              QT_TRANSLATE_NOOP("kelvro", "Curve as line, line with dots, dashed line"),
              &PlotForm::DotButtonClick},
};

struct MenuEntry {
    const char* name;  ///< null for a separator
    const char* text;
    const char* shortcut;
    void (PlotForm::*handler)();
    const char* hint = "";
};

constexpr MenuEntry kSeparator{nullptr, nullptr, nullptr, nullptr};

/// A check mark that is one flag of the picture.
struct FlagEntry {
    const char* name;
    const char* text;
    const char* shortcut;
    bool ResponsePlot::*flag;
};

constexpr std::array kViewFlags{
    FlagEntry{"Harmonics1", QT_TRANSLATE_NOOP("kelvro", "Harmo&nics of fo"), "",
              &ResponsePlot::harmonics},
    FlagEntry{"Levels1", QT_TRANSLATE_NOOP("kelvro", "Level Mar&ks"), "", &ResponsePlot::levels},
    FlagEntry{"Dark1", QT_TRANSLATE_NOOP("kelvro", "&Dark Plot"), "", &ResponsePlot::dark},
};

constexpr std::array kMarkerFlags{
    FlagEntry{"BandEdges1", QT_TRANSLATE_NOOP("kelvro", "&Band Edges"), "B", &ResponsePlot::edges},
};

constexpr std::array kFileEntries{
    MenuEntry{"Save1", QT_TRANSLATE_NOOP("kelvro", "&Save as Bitmap..."), "Ctrl+S",
              &PlotForm::Save1Click},
    MenuEntry{"SaveWMF1", QT_TRANSLATE_NOOP("kelvro", "Save as &Metafile..."), "",
              &PlotForm::SaveWMF1Click},
    MenuEntry{"SaveasJPEG1", QT_TRANSLATE_NOOP("kelvro", "Save as &JPEG..."), "",
              &PlotForm::SaveasJPEG1Click},
    MenuEntry{"SaveasGIF1", QT_TRANSLATE_NOOP("kelvro", "Save as &GIF..."), "",
              &PlotForm::SaveasGIF1Click},
    MenuEntry{"SaveasPNG1", QT_TRANSLATE_NOOP("kelvro", "Save as P&NG..."), "",
              &PlotForm::SaveasPNG1Click},
    MenuEntry{"SaveasSVG1", QT_TRANSLATE_NOOP("kelvro", "Save as S&VG..."), "",
              &PlotForm::SaveasSVG1Click},
    MenuEntry{"SaveasPDF1", QT_TRANSLATE_NOOP("kelvro", "Save as P&DF..."), "",
              &PlotForm::SaveasPDF1Click},
    kSeparator,
    MenuEntry{"SaveasTable1", QT_TRANSLATE_NOOP("kelvro", "Save as &Table..."), "Ctrl+T",
              &PlotForm::SaveasTable1Click},
    MenuEntry{"SaveasCSV1", QT_TRANSLATE_NOOP("kelvro", "Sav&e as CSV..."), "Ctrl+E",
              &PlotForm::SaveasCSV1Click,
              QT_TRANSLATE_NOOP("kelvro", "All that is drawn, as numbers with all their digits")},
    kSeparator,
    MenuEntry{"Caption1", QT_TRANSLATE_NOOP("kelvro", "Capti&on in Pictures"), "", nullptr,
              QT_TRANSLATE_NOOP(
                  "kelvro",
                  "Writes page, inputs, parts, markers and the day below what is saved, copied and "
                  "printed")},
    MenuEntry{"Print1", QT_TRANSLATE_NOOP("kelvro", "&Print..."), "Ctrl+P", &PlotForm::Print1Click},
};

constexpr std::array kEditEntries{
    MenuEntry{"UndoView1", QT_TRANSLATE_NOOP("kelvro", "&Undo"), "Ctrl+Z",
              &PlotForm::UndoView1Click},
    MenuEntry{"RedoView1", QT_TRANSLATE_NOOP("kelvro", "&Redo"), "Ctrl+Shift+Z",
              &PlotForm::RedoView1Click},
    kSeparator,
    MenuEntry{"Copy1", QT_TRANSLATE_NOOP("kelvro", "&Copy"), "Ctrl+C", &PlotForm::Copy1Click},
};

constexpr std::array kViewEntries{
    MenuEntry{"Vergroessern1", QT_TRANSLATE_NOOP("kelvro", "&Enlarge"), "Ctrl++",
              &PlotForm::Vergroessern1Click},
    MenuEntry{"Verkleinern1", QT_TRANSLATE_NOOP("kelvro", "&Reduce"), "Ctrl+-",
              &PlotForm::Verkleinern1Click},
    MenuEntry{"Standardgroesse1", QT_TRANSLATE_NOOP("kelvro", "&Standard Size"), "Ctrl+0",
              &PlotForm::Standardgroesse1Click},
    kSeparator,
    MenuEntry{"Autoskalierung1", QT_TRANSLATE_NOOP("kelvro", "&Autoscale"), "A",
              &PlotForm::Autoskalierung1Click},
    MenuEntry{"xAutoskalierung1", QT_TRANSLATE_NOOP("kelvro", "&x Autoscale"), "",
              &PlotForm::xAutoskalierung1Click},
    MenuEntry{"yAutoskalierung1", QT_TRANSLATE_NOOP("kelvro", "&y Autoscale"), "",
              &PlotForm::yAutoskalierung1Click},
    kSeparator,
    MenuEntry{"ZoomIn1", QT_TRANSLATE_NOOP("kelvro", "Zoom &In"), "+",
              &PlotForm::ZoomInButtonClick},
    MenuEntry{"ZoomOut1", QT_TRANSLATE_NOOP("kelvro", "Zoom &Out"), "-",
              &PlotForm::ZoomOutButtonClick},
    MenuEntry{"Home1", QT_TRANSLATE_NOOP("kelvro", "&Home View"), "Home", &PlotForm::Home1Click},
    kSeparator,
    MenuEntry{"xlog1", QT_TRANSLATE_NOOP("kelvro", "x &log"), "L", &PlotForm::xlog1Click},
    MenuEntry{"AxisLimits1", QT_TRANSLATE_NOOP("kelvro", "Axis Li&mits..."), "Ctrl+L",
              &PlotForm::AxisLimits1Click},
    MenuEntry{"Ursprungfestlegen1", QT_TRANSLATE_NOOP("kelvro", "Set Ori&gin..."), "",
              &PlotForm::Ursprungfestlegen1Click},
    kSeparator,
    MenuEntry{"Dot1", QT_TRANSLATE_NOOP("kelvro", "&Curve Style"), "C", &PlotForm::DotButtonClick},
};

constexpr std::array kMarkerEntries{
    MenuEntry{
        "Marker1", QT_TRANSLATE_NOOP("kelvro", "&Set Marker"), "M", &PlotForm::Marker1Click,
        QT_TRANSLATE_NOOP(
            "kelvro", "On the curve, where the keys read it or the mouse is (or double-click)")},
    MenuEntry{"DeleteMarker1", QT_TRANSLATE_NOOP("kelvro", "&Delete Marker"), "Del",
              &PlotForm::DeleteMarker1Click,
              QT_TRANSLATE_NOOP("kelvro", "The one nearest to the reading or to the mouse")},
    MenuEntry{"DeleteMarkers1", QT_TRANSLATE_NOOP("kelvro", "Delete &All Markers"), "",
              &PlotForm::DeleteMarkers1Click},
    kSeparator,
    MenuEntry{"Hold1", QT_TRANSLATE_NOOP("kelvro", "&Hold Curve..."), "H", &PlotForm::Hold1Click,
              QT_TRANSLATE_NOOP("kelvro", "Keeps the present curve, to compare others with it")},
    MenuEntry{"Release1", QT_TRANSLATE_NOOP("kelvro", "&Release Held Curves"), "",
              &PlotForm::Release1Click},
    kSeparator,
};

constexpr std::array kScatterEntries{
    MenuEntry{"MC1", QT_TRANSLATE_NOOP("kelvro", "&One Run"), "F5", &PlotForm::SpeedButtonMCClick},
    MenuEntry{"MC10", QT_TRANSLATE_NOOP("kelvro", "&Ten Runs"), "Shift+F5",
              &PlotForm::SpeedButtonMC10Click},
    MenuEntry{"MC100", QT_TRANSLATE_NOOP("kelvro", "A &Hundred Runs"), "Ctrl+F5",
              &PlotForm::SpeedButtonMC100Click},
    kSeparator,
    MenuEntry{"KeepRuns1", QT_TRANSLATE_NOOP("kelvro", "&Keep Runs"), "", &PlotForm::KeepRuns1Click,
              QT_TRANSLATE_NOOP(
                  "kelvro", "Draws the runs again after every change of the view or the design")},
    MenuEntry{"Envelope1", QT_TRANSLATE_NOOP("kelvro", "&Envelope and Percentiles"), "E",
              &PlotForm::Envelope1Click,
              QT_TRANSLATE_NOOP(
                  "kelvro", "Within what all runs and nine tenths of them lie, and their median")},
    MenuEntry{"Seed1", QT_TRANSLATE_NOOP("kelvro", "&Seed..."), "", &PlotForm::Seed1Click,
              QT_TRANSLATE_NOOP("kelvro", "The same random parts each time, or others")},
    MenuEntry{"ClearRuns1", QT_TRANSLATE_NOOP("kelvro", "&Clear Runs"), "",
              &PlotForm::ClearRuns1Click},
};

/// Opens a window that the plots do not know; whoever shows them connects it.
constexpr std::array kHelpEntries{
    MenuEntry{"GRHilfe1", QT_TRANSLATE_NOOP("kelvro", "&Help on plots"), "F1", nullptr},
};

bool IsCheck(void (PlotForm::*handler)()) {
    return handler == &PlotForm::xlog1Click || handler == &PlotForm::KeepRuns1Click ||
           handler == &PlotForm::Envelope1Click;
}

QString TraceAction(const Trace& trace) {
    return "Trace_" + QString::fromLatin1(trace.key.data(), qsizetype(trace.key.size()));
}

}  // namespace

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
        auto* button = addToolButton(entry.name, entry.icon, Shown(entry.hint));
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
            QAction* action = menu->addAction(Shown(entry.text));
            action->setObjectName(entry.name);
            action->setShortcut(QKeySequence(entry.shortcut));
            action->setToolTip(Shown(entry.hint));
            action->setCheckable(IsCheck(entry.handler));
            if (entry.handler) connect(action, &QAction::triggered, this, entry.handler);
        }
    };
    const auto addFlags = [this](QMenu* menu, const auto& flags) {
        for (const FlagEntry& entry : flags) {
            QAction* action = menu->addAction(Shown(entry.text));
            action->setObjectName(entry.name);
            action->setShortcut(QKeySequence(entry.shortcut));
            action->setCheckable(true);
            action->setChecked(plot_.*entry.flag);
            connect(action, &QAction::toggled, this, [this, flag = entry.flag](bool on) {
                plot_.*flag = on;
                redraw();
            });
        }
    };
    QMenu* file = menuBar()->addMenu(tr("&File"));
    fill(file, kFileEntries);
    findChild<QAction*>("Caption1")->setCheckable(true);
    findChild<QAction*>("Caption1")->setChecked(true);
    file->addSeparator();
    file->addAction(tr("&Close"), QKeySequence("Ctrl+W"), this, &QWidget::close);
    fill(menuBar()->addMenu(tr("&Edit")), kEditEntries);
    QMenu* view = menuBar()->addMenu(tr("&View"));
    view->setObjectName("View1");
    fill(view, kViewEntries);
    addFlags(view, kViewFlags);
    fillTraceMenu(*menuBar()->addMenu(tr("&Traces")));
    QMenu* markers = menuBar()->addMenu(tr("&Markers"));
    fill(markers, kMarkerEntries);
    addFlags(markers, kMarkerFlags);
    fill(menuBar()->addMenu(tr("Monte &Carlo")), kScatterEntries);
    for (QMenu* menu : menuBar()->findChildren<QMenu*>()) menu->setToolTipsVisible(true);
    fill(menuBar()->addMenu(tr("&Help")), kHelpEntries);
}

void PlotForm::fillTraceMenu(QMenu& menu) {
    menu.setObjectName("Traces1");
    const Trace* last = nullptr;
    for (const Trace& trace : Traces()) {
        if (last != nullptr && last->axis != trace.axis) menu.addSeparator();
        last = &trace;
        QAction* action = menu.addAction(Shown(trace.title));
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

}  // namespace kelvro
