// What the main window is made of.

#include <QGuiApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenuBar>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QShortcut>
#include <QStackedWidget>
#include <QStatusBar>
#include <QVBoxLayout>
#include <array>

#include "design/pages.h"
#include "ui/fields.h"
#include "ui/menus.h"
#include "ui/mnemonics.h"
#include "ui/page_panel.h"
#include "ui/sdi_app_form.h"
#include "ui/shared_panel.h"
#include "ui/tab_set.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

struct PushButton {
    const char* object;
    const char* caption;
    const char* hint;
    void (TSDIAppForm::*handler)() = nullptr;
};

constexpr std::array kButtons = {
    PushButton{"OK", "O&K", QT_TRANSLATE_NOOP("kelvro", "To calculate the circuit"),
               &TSDIAppForm::OKClick},
    PushButton{
        "ButtonTake", QT_TRANSLATE_NOOP("kelvro", "Take E&ntries"),
        QT_TRANSLATE_NOOP("kelvro", "Take values now from output fields for graphical display"),
        &TSDIAppForm::ButtonTakeClick},
    PushButton{
        "ButtonTakeAndOpt", QT_TRANSLATE_NOOP("kelvro", "Take and Optimi&ze"),
        QT_TRANSLATE_NOOP("kelvro", "Take values from output fields and optimize from there"),
        &TSDIAppForm::ButtonTakeAndOptClick},
    PushButton{"ButtonRoundAll", QT_TRANSLATE_NOOP("kelvro", "Round &All"),
               QT_TRANSLATE_NOOP("kelvro",
                                 "Round all components of the page to the chosen standard series"),
               &TSDIAppForm::ButtonRoundAllClick},
    PushButton{"ButtonGuide", QT_TRANSLATE_NOOP("kelvro", "Gui&de"),
               QT_TRANSLATE_NOOP("kelvro", "Which optimizer suits, and how long it takes")},
    PushButton{"SpeedButtonHint", QT_TRANSLATE_NOOP("kelvro", "Circ&uit Hints"),
               QT_TRANSLATE_NOOP("kelvro", "What is worth knowing of this circuit")},
    PushButton{"SpeedButtonExport", QT_TRANSLATE_NOOP("kelvro", "Expo&rt"),
               QT_TRANSLATE_NOOP("kelvro", "The circuit in the forms that other tools read")},
    PushButton{"", "", ""},
    PushButton{"Abbruch", QT_TRANSLATE_NOOP("kelvro", "Ex&it"),
               QT_TRANSLATE_NOOP("kelvro", "Save the settings and end the program"),
               &TSDIAppForm::ExitClick},
    PushButton{"Hilfe", QT_TRANSLATE_NOOP("kelvro", "&Help"),
               QT_TRANSLATE_NOOP("kelvro", "The manual")},
};

/// Shows the contents whole where the window has room for them; else they scroll.
class ContentsArea : public QScrollArea {
  public:
    explicit ContentsArea(QWidget* contents) {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        setWidget(contents);
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
};

}  // namespace

void TSDIAppForm::buildContents() {
    BuildMenus(*this);
    BuildSpeedPanel(*this);
    auto* contents = new QWidget;
    contents->setObjectName(QStringLiteral("Contents"));
    auto* column = new QVBoxLayout(contents);
    column->setContentsMargins(10, 4, 10, 3);
    column->setSpacing(5);
    shared_ = new SharedPanel(session_);
    connect(shared_, &SharedPanel::switchClicked, this, &TSDIAppForm::SpeedButtonVertauschenClick);
    connect(shared_, &SharedPanel::seriesChosen, this, &TSDIAppForm::SeriesClick);
    column->addWidget(shared_);
    // Without a stretch factor: in a low window all give way, not the notebook alone.
    column->addWidget(buildNotebook());
    column->addWidget(buildButtons());
    setCentralWidget(new ContentsArea(contents));
    statusBar()->setObjectName(QStringLiteral("StatusBar"));
    statusBar()->setSizeGripEnabled(false);
    achieved_ = new QLabel;
    achieved_->setObjectName(QStringLiteral("AchievedLabel"));
    statusBar()->addPermanentWidget(achieved_);
    giveKeys();
    fitScreen();
}

/// Letters for menus and buttons. The pages share none with what stands around them, but with each
/// other, since one is shown at a time. C copies the window, Alt+X ends the program. What is left
/// goes to the tool bar, whose buttons are pictures in the first place.
void TSDIAppForm::giveKeys() {
    GiveMnemonics(*menuBar());
    QString taken = QStringLiteral("CX");
    for (const QAction* menu : menuBar()->actions())
        taken += menu->text()[menu->text().indexOf('&') + 1];
    taken = GiveMnemonics(*shared_, taken);
    taken = GiveMnemonics(*findChild<QWidget*>(QStringLiteral("ButtonRow")), taken);
    QString ofPages;
    for (PagePanel* panel : panels_) ofPages += GiveMnemonics(*panel, taken);
    GiveMnemonics(*findChild<QWidget*>(QStringLiteral("SpeedPanel")), taken + ofPages);
    EnterGroupsAtTheChosen(*this);
}

void TSDIAppForm::fitScreen() {
    // Pictures of the window are taken without a screen that it would have to fit.
    const bool pictured = QGuiApplication::platformName() == QLatin1String("offscreen");
    constexpr QSize kFrame(8, 36);
    constexpr int kHeight = 820;  // lets circuits be drawn large
    const QSize room = screen()->availableSize() - kFrame;
    const QSize wanted = sizeHint().expandedTo(QSize(0, kHeight));
    setFixedSize(pictured ? wanted : wanted.boundedTo(room));
}

QWidget* TSDIAppForm::buildNotebook() {
    auto* whole = new QWidget;
    auto* column = new QVBoxLayout(whole);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    notebook_ = new QStackedWidget;
    notebook_->setObjectName(QStringLiteral("Notebook1"));
    notebook_->setFrameStyle(QFrame::StyledPanel | QFrame::Plain);
    QStringList captions;
    for (const Page& page : Pages()) {
        panels_.push_back(new PagePanel(page, session_));
        connect(panels_.back(), &PagePanel::openAsNetworkClicked, this,
                &TSDIAppForm::OpenAsNetwork1Click);
        connect(panels_.back(), &PagePanel::findBetterClicked, this,
                &TSDIAppForm::FindBetter1Click);
        // Where the window is small the page scrolls, and all around it stays in sight.
        notebook_->addWidget(new ContentsArea(panels_.back()));
        captions << Shown(page.caption);
    }
    tabs_ = new TabSet(QStringLiteral("TabSet1"));
    tabs_->setTabs(captions);
    connect(tabs_, &TabSet::clicked, this, &TSDIAppForm::TabSet1Click);
    addPageKey(Qt::CTRL | Qt::Key_PageDown, 1);
    addPageKey(Qt::CTRL | Qt::Key_PageUp, -1);
    column->addWidget(notebook_);
    column->addWidget(tabs_);
    return whole;
}

void TSDIAppForm::addPageKey(const QKeySequence& key, int step) {
    auto* shortcut = new QShortcut(key, this);
    connect(shortcut, &QShortcut::activated, this, [this, step] {
        const int index = tabs_->currentIndex() + step;
        if (index >= 0 && index < tabs_->count()) TabSet1Click(index);
    });
}

QWidget* TSDIAppForm::buildButtons() {
    auto* whole = new QWidget;
    whole->setObjectName(QStringLiteral("ButtonRow"));
    auto* row = new QHBoxLayout(whole);
    row->setContentsMargins(0, 0, 0, 0);
    for (const PushButton& entry : kButtons) {
        if (!*entry.object) {
            row->addStretch();
            continue;
        }
        auto* button = new QPushButton(Shown(entry.caption));
        button->setObjectName(QLatin1String(entry.object));
        SetHint(*button, Shown(entry.hint));
        button->setMinimumWidth(button->sizeHint().width() + 12);
        if (entry.handler) connect(button, &QPushButton::clicked, this, entry.handler);
        row->addWidget(button);
    }
    return whole;
}

}  // namespace kelvro
