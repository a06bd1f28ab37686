#include "ui/app_windows.h"

#include <QAbstractButton>
#include <QAction>
#include <QMenuBar>
#include <QShortcut>
#include <QWidget>
#include <algorithm>
#include <array>

#include "ui/about_box.h"
#include "ui/design_session.h"
#include "ui/export_dlg.h"
#include "ui/form_global_opt.h"
#include "ui/form_guide_gxl.h"
#include "ui/form_opt.h"
#include "ui/form_proposal.h"
#include "ui/form_quiz.h"
#include "ui/help/circuit_hints_dlg.h"
#include "ui/help/gr_hilfe_box.h"
#include "ui/help/help_box.h"
#include "ui/info_dlg.h"
#include "ui/mnemonics.h"
#include "ui/plot/form_phi.h"
#include "ui/plot/form_vu.h"
#include "ui/sweep_dlg.h"
#include "ui/tol_dlg.h"
#include "ui/tools/tool_window.h"
#include "ui/tools/tool_windows.h"
#include "ui/window_place.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

struct WindowEntry {
    const char* window;
    StartStage stage;
    QWidget* (*make)(DesignSession& session, QWidget& parent);
    const char* helpTopic = nullptr;  ///< chapter that F1 opens; the plots have help of their own
};

constexpr char kToolsTopic[] = "tools";

/// A dialog in front of the main window, made from the design host and its parent.
template <typename Window>
QWidget* Dialog(DesignSession& session, QWidget& parent) {
    return new Window(session, &parent);
}

/// A window that may stand anywhere, behind the main window too.
template <typename Window>
QWidget* FreeWindow(DesignSession& session, QWidget&) {
    return new Window(session);
}

/// A box that needs no design.
template <typename Window>
QWidget* Box(DesignSession&, QWidget& parent) {
    return new Window(&parent);
}

QWidget* OptimizerWindow(DesignSession& session, QWidget& parent) {
    return new TFormOpt(session, session.optimizer(), session.optimizerFiles(), &parent);
}

constexpr std::array kWindows = {
    WindowEntry{"TFormVu", StartStage::BeforeSplash, FreeWindow<TFormVu>},
    WindowEntry{"TFormPhi", StartStage::BeforeSplash, FreeWindow<TFormPhi>},
    WindowEntry{"TGRHilfeBox", StartStage::BeforeSplash, Box<TGRHilfeBox>},
    WindowEntry{"TToldlg", StartStage::BeforeSplash, Dialog<TToldlg>, "tolerances"},
    WindowEntry{"TInfoDlg", StartStage::BeforeSplash, Box<TInfoDlg>},
    WindowEntry{"TFormProposal", StartStage::BeforeSplash, Dialog<TFormProposal>, "suggestions"},
    WindowEntry{"TFormOpt", StartStage::BeforeSplash, OptimizerWindow, "optimizer"},
    WindowEntry{"TFormGuideGXL", StartStage::BeforeSplash, Box<TFormGuideGXL>, "optimizer"},
    WindowEntry{"TFormQuiz", StartStage::BeforeSplash, Box<TFormQuiz>, "suggestions"},
    WindowEntry{"TFormGlobalOpt", StartStage::BeforeSplash, Dialog<TFormGlobalOpt>, "optimizer"},
    WindowEntry{"TCircuitHintsDlg", StartStage::BeforeSplash, Dialog<TCircuitHintsDlg>},
    WindowEntry{"TAboutBox", StartStage::BehindSplash, Box<TAboutBox>},
    WindowEntry{"THilfeBox", StartStage::BehindSplash, Dialog<THilfeBox>},
    WindowEntry{"TSweepDlg", StartStage::BehindSplash, Dialog<TSweepDlg>},
    WindowEntry{"TExportDlg", StartStage::BehindSplash, Dialog<TExportDlg>, "files"},
    WindowEntry{"NetworkWindow", StartStage::WhenOpened, FreeWindow<NetworkWindow>,
                "network-match"},
};

// clang-format off
constexpr std::array kLinks = {
    WindowLink{"VuButton", "TFormVu"},
    WindowLink{"PhiBtn", "TFormPhi"},
    WindowLink{"SpeedButtonTol", "TToldlg"},
    WindowLink{"SweepButton", "TSweepDlg"},
    WindowLink{"SweepFaktor1", "TSweepDlg"},
    WindowLink{"SpeedButtonExport", "TExportDlg"},
    WindowLink{"SpeedButtonHint", "TCircuitHintsDlg"},
    WindowLink{"Hilfe", "THilfeBox"},
    WindowLink{"Hilfe1", "THilfeBox"},
    WindowLink{"GRHilfe1", "TGRHilfeBox"},
    WindowLink{"SpeedButtonInfo", "TFormProposal"},
    WindowLink{"ButtonQuiz", "TFormQuiz"},
    WindowLink{"SpeedButtonOptSettings", "TFormOpt"},
    WindowLink{"Optimizationsetup1", "TFormOpt"},
    WindowLink{"SpeedButtonGlobalOpt", "TFormGlobalOpt"},
    WindowLink{"ButtonGuide", "TFormGuideGXL"},
    WindowLink{"Info1", "TAboutBox"},
    WindowLink{"ButtonDetails", "TInfoDlg"},
    WindowLink{"Network1", "NetworkWindow"},
    WindowLink{"NetworkBtn", "NetworkWindow"},
};
// clang-format on

}  // namespace

AppWindows::AppWindows(DesignSession& session, QWidget& parent)
    : session_(session), parent_(parent) {}

AppWindows::~AppWindows() = default;

void AppWindows::create(StartStage stage) {
    for (const WindowEntry& entry : kWindows)
        if (entry.stage == stage) window(QLatin1String(entry.window));
}

QWidget* AppWindows::make(const QString& name) {
    const auto named = [&](const auto& entry) { return name == QLatin1String(entry.window); };
    if (const auto entry = std::ranges::find_if(kWindows, named); entry != kWindows.end()) {
        QWidget* made = entry->make(session_, parent_);
        if (entry->helpTopic) connectHelp(*made, entry->helpTopic);
        return made;
    }
    const auto tool = std::ranges::find_if(ToolWindows(), named);
    if (tool == ToolWindows().end()) return nullptr;
    ToolWindow* window = tool->create(&parent_);
    window->followDesign(session_);
    connectHelp(*window, kToolsTopic);
    return window;
}

QWidget* AppWindows::window(const QString& name) {
    if (QWidget* existing = byName_.value(name)) return existing;
    QWidget* made = make(name);
    if (!made) return nullptr;
    made->setObjectName(name);
    byName_.insert(name, made);
    for (QMenuBar* bar : made->findChildren<QMenuBar*>()) GiveMnemonics(*bar);
    GiveMnemonics(*made);
    EnterGroupsAtTheChosen(*made);
    connectControls(*made);
    if (whenMade_) whenMade_(*made);
    if (!made->parent()) owned_.emplace_back(made);
    return made;
}

void AppWindows::open(const QString& name) {
    QWidget* opened = window(name);
    if (!opened) return;
    opened->show();
    KeepOnScreen(*opened);
    opened->raise();
    opened->activateWindow();
}

void AppWindows::connectHelp(QWidget& made, const char* topic) {
    auto* key = new QShortcut(QKeySequence(Qt::Key_F1), &made);
    QObject::connect(key, &QShortcut::activated, &parent_, [this, topic] {
        open(QStringLiteral("THilfeBox"));
        auto* help = dynamic_cast<THilfeBox*>(window(QStringLiteral("THilfeBox")));
        if (help) help->showTopic(QLatin1String(topic));
    });
}

void AppWindows::closeAll() {
    for (QWidget* window : std::as_const(byName_)) window->close();
}

void AppWindows::connectControls(const QWidget& root) {
    for (const WindowLink& link : links()) {
        const QString control = QLatin1String(link.control);
        const auto show = [this, link] { open(QLatin1String(link.window)); };
        if (const auto* button = root.findChild<QAbstractButton*>(control))
            QObject::connect(button, &QAbstractButton::clicked, &parent_, show);
        if (const auto* action = root.findChild<QAction*>(control))
            QObject::connect(action, &QAction::triggered, &parent_, show);
    }
}

QStringList AppWindows::names() {
    QStringList names;
    for (const WindowEntry& entry : kWindows) names << QLatin1String(entry.window);
    for (const ToolEntry& tool : ToolWindows()) names << QLatin1String(tool.window);
    return names;
}

std::span<const WindowLink> AppWindows::links() {
    static const std::vector<WindowLink> links = [] {
        std::vector<WindowLink> all(kLinks.begin(), kLinks.end());
        for (const ToolEntry& tool : ToolWindows()) all.push_back({tool.control, tool.window});
        return all;
    }();
    return links;
}

}  // namespace kelvro
