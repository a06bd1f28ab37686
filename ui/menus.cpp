#include "ui/menus.h"

#include <QAction>
#include <QActionGroup>
#include <QLayout>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>
#include <array>
#include <span>

#include "design/pages.h"
#include "ui/fields.h"
#include "ui/language.h"
#include "ui/plot/icons.h"
#include "ui/sdi_app_form.h"
#include "ui/splash_screen.h"
#include "ui/texts.h"

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
    Item{"New1", QT_TRANSLATE_NOOP("kelvro", "&New"), "Ctrl+N", &TSDIAppForm::New1Click},
    Item{"Open1", QT_TRANSLATE_NOOP("kelvro", "&Open..."), "Ctrl+O",
         &TSDIAppForm::SpeedButtonINILadenClick},
    Item{"OpenRecent1", QT_TRANSLATE_NOOP("kelvro", "Open &Recent")},
    Item{"OpenProject1", QT_TRANSLATE_NOOP("kelvro", "Open Network Pro&ject..."), "Ctrl+Shift+O",
         &TSDIAppForm::OpenProject1Click},
    Item{"Save1", QT_TRANSLATE_NOOP("kelvro", "Sa&ve"), "Ctrl+Shift+S", &TSDIAppForm::Save1Click},
    Item{"SaveAs1", QT_TRANSLATE_NOOP("kelvro", "Save &As..."), "",
         &TSDIAppForm::SpeedButtonINISaveClick},
    kSeparator,
    Item{"Drucken1", QT_TRANSLATE_NOOP("kelvro", "&Print"), "", &TSDIAppForm::Drucken1Click},
    Item{"Druckereinstellung1", QT_TRANSLATE_NOOP("kelvro", "Printer &Setup..."), "",
         &TSDIAppForm::Druckereinstellung1Click},
    kSeparator,
    Item{"ExitItem", QT_TRANSLATE_NOOP("kelvro", "&Exit"), "Alt+X", &TSDIAppForm::ExitClick},
};

constexpr std::array kEditItems = {
    Item{"Rechnen1", QT_TRANSLATE_NOOP("kelvro", "&Calculate"), "", &TSDIAppForm::OKClick},
    Item{"Undo1", QT_TRANSLATE_NOOP("kelvro", "&Undo"), "Ctrl+Z", &TSDIAppForm::Undo1Click},
    Item{"Redo1", QT_TRANSLATE_NOOP("kelvro", "&Redo"), "Ctrl+Shift+Z", &TSDIAppForm::Redo1Click},
};

constexpr std::array kOptionItems = {
    Item{"SweepFaktor1", QT_TRANSLATE_NOOP("kelvro", "&Sweep Factor"), "Ctrl+S"},
    Item{"Optimizationsetup1", QT_TRANSLATE_NOOP("kelvro", "&Optimization setup")},
};

constexpr std::array kToolItems = {
    Item{"Ausfhren1", QT_TRANSLATE_NOOP("kelvro", "&Execute"), "", &TSDIAppForm::ExecButtonClick},
    Item{"Zwischenablage1", QT_TRANSLATE_NOOP("kelvro", "&Clipboard")},
    Item{"Taschenrechner1", QT_TRANSLATE_NOOP("kelvro", "&Calculator")},
    Item{"Spulen1", QT_TRANSLATE_NOOP("kelvro", "&Coils")},
    Item{"Leitungsparameter1", QT_TRANSLATE_NOOP("kelvro", "&Transmission Line Parameters")},
    Item{"LCFilter1", QT_TRANSLATE_NOOP("kelvro", "LC &Filters")},
    Item{"SerienParallelkreise1", QT_TRANSLATE_NOOP("kelvro", "Series/Parallel Circuits")},
    Item{"GemischteKreise1", QT_TRANSLATE_NOOP("kelvro", "Mixed Series/Parallel Circuits")},
    Item{"Dezibelrechnung1", QT_TRANSLATE_NOOP("kelvro", "&Decibel Calculations")},
    Item{"Zweitore1", QT_TRANSLATE_NOOP("kelvro", "&Two-Ports")},
    Item{"Network1", QT_TRANSLATE_NOOP("kelvro", "&Network")},
    Item{"OpenAsNetwork1", QT_TRANSLATE_NOOP("kelvro", "&Open as Network"), "Ctrl+Shift+N",
         &TSDIAppForm::OpenAsNetwork1Click},
    Item{"FindBetter1", QT_TRANSLATE_NOOP("kelvro", "Find &Better..."), "Ctrl+F",
         &TSDIAppForm::FindBetter1Click},
};

constexpr std::array kHelpItems = {
    Item{"Hilfe1", QT_TRANSLATE_NOOP("kelvro", "&Help"), "F1"},
    Item{"NetworkExample1", QT_TRANSLATE_NOOP("kelvro", "Network &Example"), "",
         &TSDIAppForm::NetworkExample1Click},
    Item{"ImVordergrundbleiben1", QT_TRANSLATE_NOOP("kelvro", "Always Stay in &Front"), "",
         &TSDIAppForm::ImVordergrundbleiben1Click},
    Item{"Info1", QT_TRANSLATE_NOOP("kelvro", "&Info...")},
};

constexpr std::array kSeriesItems = {
    Item{"E6Reihe1", QT_TRANSLATE_NOOP("kelvro", "E&6 Series")},
    Item{"E12Reihe1", QT_TRANSLATE_NOOP("kelvro", "E&12 Series")},
    Item{"E24Reihe1", QT_TRANSLATE_NOOP("kelvro", "E&24 Series")},
    Item{"E48Reihe1", QT_TRANSLATE_NOOP("kelvro", "E&48 Series")},
    Item{"E96Reihe1", QT_TRANSLATE_NOOP("kelvro", "E&96 Series")},
};

QAction* AddItem(TSDIAppForm& form, QMenu& menu, const Item& item) {
    if (!*item.text) return menu.addSeparator();
    QAction* action = menu.addAction(Shown(item.text));
    action->setObjectName(QLatin1String(item.object));
    action->setShortcut(QKeySequence(QLatin1String(item.shortcut)));
    action->setParent(&form);
    if (item.handler) QObject::connect(action, &QAction::triggered, &form, item.handler);
    return action;
}

QMenu* AddMenu(TSDIAppForm& form, const char* title, std::span<const Item> items) {
    QMenu* menu = form.menuBar()->addMenu(Shown(title));
    for (const Item& item : items) AddItem(form, *menu, item);
    return menu;
}

void AddPageItem(TSDIAppForm& form, QMenu& menu, const Page& page) {
    QAction* action = menu.addAction(Shown(page.menuText));
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
    static constexpr std::array kGroups = {
        Group{MenuGroup::Matching, QT_TRANSLATE_NOOP("kelvro", "&Matching Pages")},
        Group{MenuGroup::Attenuator, QT_TRANSLATE_NOOP("kelvro", "&Attenuator Pages")},
        Group{MenuGroup::Amplifier, QT_TRANSLATE_NOOP("kelvro", "&Power Amplifier Pages")},
        Group{MenuGroup::Options, nullptr}};
    for (const Group& group : kGroups) {
        QMenu* menu = group.title ? options.addMenu(Shown(group.title)) : &options;
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
    Button{"ExitBtn", "exit", "", QT_TRANSLATE_NOOP("kelvro", "Exit"), &TSDIAppForm::ExitClick},
    Button{"RechenButton", "calculate", "", QT_TRANSLATE_NOOP("kelvro", "Make calculations"),
           &TSDIAppForm::OKClick},
    Button{"ExecButton", "execute", "", QT_TRANSLATE_NOOP("kelvro", "Call another program"),
           &TSDIAppForm::ExecButtonClick},
    Button{"SweepButton", "sweep", "", QT_TRANSLATE_NOOP("kelvro", "Modify sweep factor")},
    Button{"ButtonCopy", "copy", "",
           QT_TRANSLATE_NOOP("kelvro", "&Copy window contents to clipboard"),
           &TSDIAppForm::ButtonCopyClick},
    Button{"SpeedButtonINISave", "save", "", QT_TRANSLATE_NOOP("kelvro", "Save INI file"),
           &TSDIAppForm::SpeedButtonINISaveClick},
    Button{"SpeedButtonINILaden", "open", "", QT_TRANSLATE_NOOP("kelvro", "Load INI file"),
           &TSDIAppForm::SpeedButtonINILadenClick},
    Button{"", "", "", ""},
    Button{"VuButton", "gain", "V(f)",
           QT_TRANSLATE_NOOP("kelvro", "Graphic output of transfer function")},
    Button{"PhiBtn", "phase", QT_TRANSLATE_NOOP("kelvro", "Phi(f)"),
           QT_TRANSLATE_NOOP("kelvro", "Graphic output of phase shift")},
    Button{"SpeedButtonTol", "tolerance", QT_TRANSLATE_NOOP("kelvro", "Tol"),
           QT_TRANSLATE_NOOP("kelvro", "Tolerances for Monte-Carlo analysis")},
    Button{"", "", "", ""},
    Button{"SpeedButtonOptSettings", "optimize", QT_TRANSLATE_NOOP("kelvro", "Optimization"),
           QT_TRANSLATE_NOOP("kelvro", "Optimization")},
    Button{"SpeedButtonGlobalOpt", "global", QT_TRANSLATE_NOOP("kelvro", "Global Opt"),
           QT_TRANSLATE_NOOP("kelvro", "Global Opt")},
    Button{"", "", "", ""},
    Button{"NetworkBtn", "network", QT_TRANSLATE_NOOP("kelvro", "Network"),
           QT_TRANSLATE_NOOP("kelvro", "Networks between any source and load, Smith chart")},
    Button{"", "", "", ""},
    Button{"SpeedButtonInfo", "info", QT_TRANSLATE_NOOP("kelvro", "Info"),
           QT_TRANSLATE_NOOP("kelvro", "Sugestions for circuit topology")},
};

void AddLanguages(TSDIAppForm& form, QMenu& options) {
    QMenu* menu = options.addMenu(QObject::tr("Lan&guage"));
    auto* group = new QActionGroup(menu);
    const auto add = [&](const QString& name, Language language) {
        QAction* action = menu->addAction(name);
        action->setObjectName(QStringLiteral("Language%1").arg(static_cast<int>(language)));
        action->setCheckable(true);
        action->setChecked(language == ChosenLanguage());
        group->addAction(action);
        QObject::connect(action, &QAction::triggered, &form,
                         [&form, language] { form.LanguageClick(language); });
    };
    add(QObject::tr("Of the &system"), Language::System);
    // Each under its own name: who cannot read the present language looks for it.
    add(QStringLiteral("&English"), Language::English);
    add(QStringLiteral("&Deutsch"), Language::German);
}

void AddSplashItem(QMenu& options) {
    QAction* action = options.addAction(QObject::tr("Splash Screen at Sta&rt"));
    action->setObjectName(QStringLiteral("SplashScreen1"));
    action->setCheckable(true);
    action->setChecked(IsSplashWanted());
    QObject::connect(action, &QAction::toggled, RememberSplash);
}

}  // namespace

void BuildMenus(TSDIAppForm& form) {
    AddMenu(form, QT_TRANSLATE_NOOP("kelvro", "&File"), kFileItems);
    form.findChild<QAction*>(QStringLiteral("OpenRecent1"))->setMenu(new QMenu(&form));
    AddMenu(form, QT_TRANSLATE_NOOP("kelvro", "&Edit"), kEditItems);
    QMenu* options = AddMenu(form, QT_TRANSLATE_NOOP("kelvro", "&Options"), {});
    AddPageItems(form, *options);
    AddSeriesItems(form, *options);
    for (const Item& item : kOptionItems) AddItem(form, *options, item);
    AddLanguages(form, *options);
    AddSplashItem(*options);
    AddMenu(form, QT_TRANSLATE_NOOP("kelvro", "&Tools"), kToolItems);
    AddMenu(form, QT_TRANSLATE_NOOP("kelvro", "Hel&p"), kHelpItems);
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
        const QString hint = Shown(entry.hint);
        const QString name = QString(hint).remove('&');
        button->setText(*entry.caption ? Shown(entry.caption) : hint);
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
