#include "ui/menus.h"

#include <QAction>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <span>

#include "design/pages.h"
#include "ui/fields.h"
#include "ui/plot/icons.h"
#include "ui/sdi_app_form.h"
#include "ui/splash_screen.h"

namespace kelvro {

namespace {

using Handler = void (TSDIAppForm::*)();

/// One menu item. Items without a handler open a window (see AppWindows) or are page items.
struct Item {
    const char* object;
    const char* text;
    const char* shortcut = "";
    Handler handler = nullptr;
};

constexpr Item kSeparator{"", ""};

constexpr std::array kFileItems = {
    Item{"New1", "&New", "Ctrl+N", &TSDIAppForm::New1Click},
    Item{"Open1", "&Open...", "Ctrl+O", &TSDIAppForm::SpeedButtonINILadenClick},
    Item{"OpenRecent1", "Open &Recent"},
    Item{"OpenProject1", "Open Network Pro&ject...", "Ctrl+Shift+O",
         &TSDIAppForm::OpenProject1Click},
    Item{"Save1", "Sa&ve", "Ctrl+Shift+S", &TSDIAppForm::Save1Click},
    Item{"SaveAs1", "Save &As...", "", &TSDIAppForm::SpeedButtonINISaveClick},
    kSeparator,
    Item{"Drucken1", "&Print", "", &TSDIAppForm::Drucken1Click},
    Item{"Druckereinstellung1", "Printer &Setup...", "", &TSDIAppForm::Druckereinstellung1Click},
    kSeparator,
    Item{"ExitItem", "&Exit", "Alt+X", &TSDIAppForm::ExitClick},
};

constexpr std::array kEditItems = {
    Item{"Rechnen1", "&Calculate", "", &TSDIAppForm::OKClick},
    Item{"Undo1", "&Undo", "Ctrl+Z", &TSDIAppForm::Undo1Click},
    Item{"Redo1", "&Redo", "Ctrl+Shift+Z", &TSDIAppForm::Redo1Click},
};

constexpr std::array kOptionItems = {
    Item{"SweepFaktor1", "&Sweep Factor", "Ctrl+S"},
    Item{"Optimizationsetup1", "&Optimization setup"},
};

constexpr std::array kToolItems = {
    Item{"Ausfhren1", "&Execute", "", &TSDIAppForm::ExecButtonClick},
    Item{"Zwischenablage1", "&Clipboard"},
    Item{"Taschenrechner1", "&Calculator"},
    Item{"Spulen1", "&Coils"},
    Item{"Leitungsparameter1", "&Transmission Line Parameters"},
    Item{"LCFilter1", "LC &Filters"},
    Item{"SerienParallelkreise1", "Series/Parallel Circuits"},
    Item{"GemischteKreise1", "Mixed Series/Parallel Circuits"},
    Item{"Dezibelrechnung1", "&Decibel Calculations"},
    Item{"Zweitore1", "&Two-Ports"},
    Item{"Network1", "&Network"},
    Item{"OpenAsNetwork1", "&Open as Network", "Ctrl+Shift+N", &TSDIAppForm::OpenAsNetwork1Click},
    Item{"FindBetter1", "Find &Better...", "Ctrl+F", &TSDIAppForm::FindBetter1Click},
};

constexpr std::array kHelpItems = {
    Item{"Hilfe1", "&Help", "F1"},
    Item{"NetworkExample1", "Network &Example", "", &TSDIAppForm::NetworkExample1Click},
    Item{"ImVordergrundbleiben1", "Always Stay in &Front", "",
         &TSDIAppForm::ImVordergrundbleiben1Click},
    Item{"Info1", "&Info..."},
};

constexpr std::array kSeriesItems = {
    Item{"E6Reihe1", "E&6 Series"},   Item{"E12Reihe1", "E&12 Series"},
    Item{"E24Reihe1", "E&24 Series"}, Item{"E48Reihe1", "E&48 Series"},
    Item{"E96Reihe1", "E&96 Series"},
};

QAction* AddItem(TSDIAppForm& form, QMenu& menu, const Item& item) {
    if (!*item.text) return menu.addSeparator();
    QAction* action = menu.addAction(QString::fromUtf8(item.text));
    action->setObjectName(QLatin1String(item.object));
    action->setShortcut(QKeySequence(QLatin1String(item.shortcut)));
    action->setParent(&form);
    if (item.handler) QObject::connect(action, &QAction::triggered, &form, item.handler);
    return action;
}

QMenu* AddMenu(TSDIAppForm& form, const char* title, std::span<const Item> items) {
    QMenu* menu = form.menuBar()->addMenu(QString::fromUtf8(title));
    for (const Item& item : items) AddItem(form, *menu, item);
    return menu;
}

void AddPageItem(TSDIAppForm& form, QMenu& menu, const Page& page) {
    QAction* action = menu.addAction(ToQString(page.menuText));
    action->setObjectName(ToQString(page.menuItem));
    action->setCheckable(true);
    action->setData(page.number);
    action->setParent(&form);
    const int index = page.number - 1;
    QObject::connect(action, &QAction::triggered, &form,
                     [&form, index] { form.TabSet1Click(index); });
}

void AddPageItems(TSDIAppForm& form, QMenu& options) {
    struct Group {
        MenuGroup group;
        const char* title;
    };
    static constexpr std::array kGroups = {Group{MenuGroup::Matching, "&Matching Pages"},
                                           Group{MenuGroup::Attenuator, "&Attenuator Pages"},
                                           Group{MenuGroup::Amplifier, "&Power Amplifier Pages"},
                                           Group{MenuGroup::Options, nullptr}};
    for (const Group& group : kGroups) {
        QMenu* menu = group.title ? options.addMenu(QLatin1String(group.title)) : &options;
        for (const Page& page : Pages())
            if (page.menuGroup == group.group) AddPageItem(form, *menu, page);
    }
}

void AddSeriesItems(TSDIAppForm& form, QMenu& options) {
    options.addSeparator();
    for (std::size_t i = 0; i < kSeriesItems.size(); ++i) {
        QAction* action = AddItem(form, options, kSeriesItems[i]);
        const auto series = static_cast<Series>(i + 1);
        action->setCheckable(true);
        QObject::connect(action, &QAction::triggered, &form,
                         [&form, series] { form.SeriesClick(series); });
    }
    options.addSeparator();
}

/// One button of the tool bar: with a caption beside the icon, or with the icon alone, whose text
/// is then the hint.
struct Button {
    const char* object;
    const char* icon;
    const char* caption;
    const char* hint;
    Handler handler = nullptr;
};

constexpr std::array kButtons = {
    Button{"ExitBtn", "exit", "", "Exit", &TSDIAppForm::ExitClick},
    Button{"RechenButton", "calculate", "", "Make calculations", &TSDIAppForm::OKClick},
    Button{"ExecButton", "execute", "", "Call another program", &TSDIAppForm::ExecButtonClick},
    Button{"SweepButton", "sweep", "", "Modify sweep factor"},
    Button{"ButtonCopy", "copy", "", "&Copy window contents to clipboard",
           &TSDIAppForm::ButtonCopyClick},
    Button{"SpeedButtonINISave", "save", "", "Save INI file",
           &TSDIAppForm::SpeedButtonINISaveClick},
    Button{"SpeedButtonINILaden", "open", "", "Load INI file",
           &TSDIAppForm::SpeedButtonINILadenClick},
    Button{"", "", "", ""},
    Button{"VuButton", "gain", "V(f)", "Graphic output of transfer function"},
    Button{"PhiBtn", "phase", "Phi(f)", "Graphic output of phase shift"},
    Button{"SpeedButtonTol", "tolerance", "Tol", "Tolerances for Monte-Carlo analysis"},
    Button{"", "", "", ""},
    Button{"SpeedButtonOptSettings", "optimize", "Optimization", "Optimization"},
    Button{"SpeedButtonGlobalOpt", "global", "Global Opt", "Global Opt"},
    Button{"", "", "", ""},
    Button{"NetworkBtn", "network", "Network", "Networks between any source and load, Smith chart"},
    Button{"", "", "", ""},
    Button{"SpeedButtonInfo", "info", "Info", "Sugestions for circuit topology"},
};

void AddSplashItem(QMenu& options) {
    QAction* action = options.addAction(QObject::tr("Splash Screen at Sta&rt"));
    action->setObjectName(QStringLiteral("SplashScreen1"));
    action->setCheckable(true);
    action->setChecked(IsSplashWanted());
    QObject::connect(action, &QAction::toggled, RememberSplash);
}

}  // namespace

void BuildMenus(TSDIAppForm& form) {
    AddMenu(form, "&File", kFileItems);
    form.findChild<QAction*>(QStringLiteral("OpenRecent1"))->setMenu(new QMenu(&form));
    AddMenu(form, "&Edit", kEditItems);
    QMenu* options = AddMenu(form, "&Options", {});
    AddPageItems(form, *options);
    AddSeriesItems(form, *options);
    for (const Item& item : kOptionItems) AddItem(form, *options, item);
    AddSplashItem(*options);
    AddMenu(form, "&Tools", kToolItems);
    AddMenu(form, "Hel&p", kHelpItems);
    auto* unused = form.findChild<QAction*>(QStringLiteral("SerienParallelkreise1"));
    unused->setVisible(false);
    unused->setEnabled(false);
    form.findChild<QAction*>(QStringLiteral("ImVordergrundbleiben1"))->setCheckable(true);
}

void BuildSpeedPanel(TSDIAppForm& form) {
    auto* bar = form.addToolBar(QObject::tr("Tools"));
    bar->setObjectName(QStringLiteral("SpeedPanel"));
    bar->setMovable(false);
    bar->setContextMenuPolicy(Qt::PreventContextMenu);
    bar->setIconSize(QSize(24, 24));
    for (const Button& entry : kButtons) {
        if (!*entry.object) {
            bar->addSeparator();
            continue;
        }
        auto* button = new QToolButton;
        button->setObjectName(QLatin1String(entry.object));
        button->setIcon(VectorIcon(entry.icon));
        button->setIconSize(bar->iconSize());
        const QString hint = QString::fromLatin1(entry.hint);
        const QString name = QString(hint).remove('&');
        button->setText(*entry.caption ? QString::fromLatin1(entry.caption) : hint);
        button->setToolButtonStyle(*entry.caption ? Qt::ToolButtonTextBesideIcon
                                                  : Qt::ToolButtonIconOnly);
        button->setAutoRaise(true);
        button->setAccessibleName(name);
        SetHint(*button, name);
        if (entry.handler) QObject::connect(button, &QToolButton::clicked, &form, entry.handler);
        bar->addWidget(button);
    }
    bar->layout()->setContentsMargins(4, 1, 4, 1);  // no room to spare in a low window
}

void CheckPageItem(TSDIAppForm& form, const Page& page) {
    for (const Page& other : Pages()) {
        if (other.menuItem.empty()) continue;
        auto* item = form.findChild<QAction*>(ToQString(other.menuItem));
        if (item) item->setChecked(other.number == page.number);
    }
}

void CheckSeriesItem(TSDIAppForm& form, Series series) {
    for (std::size_t i = 0; i < kSeriesItems.size(); ++i) {
        auto* item = form.findChild<QAction*>(QLatin1String(kSeriesItems[i].object));
        if (item) item->setChecked(static_cast<Series>(i + 1) == series);
    }
}

}  // namespace kelvro
