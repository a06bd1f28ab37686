#include "ui/plot/form_vu.h"

#include <QLabel>
#include <QRadioButton>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "analysis/response.h"
#include "analysis/tolerance.h"
#include "core/number_text.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

TFormVu::TFormVu(DesignHost& host, QWidget* parent)
    : PlotForm(host,
               {"TFormVu", tr("Gain"), "Bitmap Files (*.bmp)|*.bmp", "Meta Files (*.wmf)|*.wmf"},
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
}

void TFormVu::buildMonteCarloButtons() {
    struct Button {
        const char* name;
        const char* text;
        const char* hint;
        void (TFormVu::*handler)();
    };
    constexpr std::array kButtons{
        Button{"SpeedButtonMC", "MC", "One Monte Carlo run within the tolerances",
               &TFormVu::SpeedButtonMCClick},
        Button{"SpeedButtonMC10", "10", "Ten Monte Carlo runs", &TFormVu::SpeedButtonMC10Click},
        Button{"SpeedButtonMC100", "100", "A hundred Monte Carlo runs",
               &TFormVu::SpeedButtonMC100Click},
    };
    toolBar().addSeparator();
    for (const Button& entry : kButtons) {
        QToolButton* button = addToolButton(entry.name, "scatter", tr(entry.hint));
        button->setText(entry.text);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        connect(button, &QToolButton::clicked, this, entry.handler);
    }
    yield_ = new QLabel(this);
    yield_->setObjectName("YieldLabel");
    yield_->setToolTip(tr("Runs whose gain at fo is at most 1 dB below the nominal one"));
    statusBar()->addPermanentWidget(yield_);
}

void TFormVu::redraw() {
    runs_ = 0;
    goodRuns_ = 0;
    PlotForm::redraw();
    showYield();
}

void TFormVu::SpeedButtonMC100Click() {
    runMonteCarlo(100);
    image().addCurve(image().picture().curves.front());
}

void TFormVu::runMonteCarlo(int runs) {
    const Design& nominal = host().design();
    if (ToleranceParts(nominal).empty()) return yield_->setText(tr("No part to vary"));
    const Response response(nominal);
    const double limit = YieldLimit(response, nominal);
    for (int run = 0; run < runs; ++run) {
        ToleranceRuns drawn(nominal, host().tolerances(), ClockSeed());
        const Design& varied = drawn.next();
        image().addCurve(ScatterCurve(Sampled(varied, view(), leading())));
        ++runs_;
        if (BuildGain(response, varied) >= limit) ++goodRuns_;
        showYield();
        image().repaint();
    }
}

void TFormVu::showYield() {
    if (yield_ == nullptr) return;
    const double percent = runs_ > 0 ? 100.0 * goodRuns_ / runs_ : 0;
    const QString text = tr("Yield: %1 % (%2 of %3)")
                             .arg(QString::fromStdString(FormatFixed(0, 1, percent)))
                             .arg(goodRuns_)
                             .arg(runs_);
    yield_->setText(runs_ > 0 ? text : QString());
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

void TFormVu::RadioButtonGTClick() {
    setLeading(TraceOf("gt"));
    setView(view());
}

}  // namespace kelvro
