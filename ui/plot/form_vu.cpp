#include "ui/plot/form_vu.h"

#include <QAction>
#include <QMenu>
#include <QRadioButton>
#include <QToolBar>
#include <algorithm>

namespace kelvro {

TFormVu::TFormVu(DesignHost& host, QWidget* parent)
    : PlotForm(host,
               {PlotWindow::Gain, "TFormVu", tr("Gain"),
                QT_TRANSLATE_NOOP("kelvro", "Bitmap Files (*.bmp)|*.bmp"),
                QT_TRANSLATE_NOOP("kelvro", "Meta Files (*.wmf)|*.wmf")},
               TraceOf("v"), parent) {
    buildQuantityButtons();
    buildMonteCarloButtons();
}

void TFormVu::buildQuantityButtons() {
    toolBar().addSeparator();
    const auto add = [this](const char* name, const QString& text, const QString& hint) {
        auto* button = new QRadioButton(text, &toolBar());
        button->setObjectName(name);
        button->setToolTip(hint);
        button->setFocusPolicy(Qt::NoFocus);
        toolBar().addWidget(button);
        return button;
    };
    radioButtonVu_ = add("RadioButtonVu", "V", tr("Voltage gain V(f)"));
    radioButtonGT_ = add("RadioButtonGT", "GT", tr("Transducer power gain GT(f)"));
    radioButtonVu_->setChecked(true);
    connect(radioButtonVu_, &QRadioButton::clicked, this, &TFormVu::RadioButtonVuClick);
    connect(radioButtonGT_, &QRadioButton::clicked, this, &TFormVu::RadioButtonGTClick);
    findChild<QMenu*>("View1")->addSeparator();
    addKey("Vu1", tr("&Voltage Gain"), "V", radioButtonVu_);
    addKey("GT1", tr("&Power Gain"), "G", radioButtonGT_);
}

/// The buttons of the tool bar take no focus: those who type have them in a menu.
void TFormVu::addKey(const char* name, const QString& text, const char* key, QRadioButton* button) {
    QAction* action = findChild<QMenu*>("View1")->addAction(text);
    action->setObjectName(name);
    action->setShortcut(QKeySequence(key));
    connect(action, &QAction::triggered, button, &QRadioButton::click);
}

void TFormVu::RadioButtonVuClick() {
    constexpr double kHighest = 10;
    View changed = view();
    // A range wholly above the limit is left alone: cut there it would have no extent.
    if (&leading() == &TraceOf("gt") && changed.y.min < kHighest) {
        changed.y.max = std::min(changed.y.max, kHighest);
    }
    setLeading(TraceOf("v"));
    setView(changed);
}

void TFormVu::leadingChanged() {
    (&leading() == &TraceOf("gt") ? radioButtonGT_ : radioButtonVu_)->setChecked(true);
}

void TFormVu::RadioButtonGTClick() {
    setLeading(TraceOf("gt"));
    setView(view());
}

}  // namespace kelvro
