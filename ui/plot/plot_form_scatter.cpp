// Monte Carlo runs of the plot windows.

#include <QAction>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>

#include "core/number_text.h"
#include "ui/plot/plot_form.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

void PlotForm::buildMonteCarloButtons() {
    struct Button {
        const char* name;
        const char* text;
        const char* hint;
        void (PlotForm::*handler)();
    };
    constexpr std::array kButtons{
        Button{"SpeedButtonMC", "MC",
               QT_TRANSLATE_NOOP("kelvro", "One Monte Carlo run within the tolerances"),
               &PlotForm::SpeedButtonMCClick},
        Button{"SpeedButtonMC10", "10", QT_TRANSLATE_NOOP("kelvro", "Ten Monte Carlo runs"),
               &PlotForm::SpeedButtonMC10Click},
        Button{"SpeedButtonMC100", "100", QT_TRANSLATE_NOOP("kelvro", "A hundred Monte Carlo runs"),
               &PlotForm::SpeedButtonMC100Click},
    };
    toolBar().addSeparator();
    for (const Button& entry : kButtons) {
        QToolButton* button = addToolButton(entry.name, "scatter", Shown(entry.hint));
        button->setText(entry.text);
        button->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
        connect(button, &QToolButton::clicked, this, entry.handler);
    }
}

/// Each run is drawn as soon as it is computed; what all have in common follows at the end.
void PlotForm::runMonteCarlo(int runs) {
    if (ToleranceParts(host_.design()).empty()) return yield_->setText(tr("No part to vary"));
    for (int run = 0; run < runs; ++run) {
        scatter_.add(1, seed_.value_or(ClockSeed()), host_.tolerances());
        addRun(scatter_.designs(host_.design(), scatter_.count() - 1).front());
        image_->addCurve(runCurves_.back());
        showYield();
        image_->repaint();
    }
    updateEnvelope();
    compose();
}

void PlotForm::addRun(const Design& varied) {
    const Design& design = host_.design();
    const Response nominal(design);
    runCurves_.push_back(ScatterCurve(Sampled(varied, view(), leading())));
    if (BuildGain(nominal, varied) >= YieldLimit(nominal, design)) ++goodRuns_;
}

/// A redraw takes the runs away, unless they are kept; the envelope stays either way.
void PlotForm::redrawScatter() {
    if (!keepRuns_ && !showEnvelope_) scatter_.clear();
    runCurves_.clear();
    goodRuns_ = 0;
    if (keepRuns_) {
        for (const Design& varied : scatter_.designs(host_.design())) addRun(varied);
    }
    updateEnvelope();
    showYield();
}

void PlotForm::updateEnvelope() {
    envelope_.reset();
    if (!showEnvelope_ || scatter_.count() == 0) return;
    envelope_ = EnvelopeOf(host_.design(), scatter_.designs(host_.design()), view(), leading());
}

void PlotForm::showYield() {
    const auto runs = static_cast<int>(runCurves_.size());
    const double percent = runs > 0 ? 100.0 * goodRuns_ / runs : 0;
    const QString text = tr("Yield: %1 % (%2 of %3)")
                             .arg(QString::fromStdString(FormatFixed(0, 1, percent)))
                             .arg(goodRuns_)
                             .arg(runs);
    yield_->setText(runs > 0 ? text : QString());
}

void PlotForm::KeepRuns1Click() {
    keepRuns_ = findChild<QAction*>("KeepRuns1")->isChecked();
    // Runs on the screen stay there when they are to be kept from now on.
    if (!keepRuns_) redraw();
}

void PlotForm::Envelope1Click() {
    showEnvelope_ = findChild<QAction*>("Envelope1")->isChecked();
    updateEnvelope();
    compose();
}

void PlotForm::Seed1Click() {
    const QString start = seed_ ? QString::number(*seed_) : QString();
    bool done = false;
    const QString text = QInputDialog::getText(
        this, tr("Monte Carlo"), tr("Seed, a whole number; empty: other parts with every run"),
        QLineEdit::Normal, start, &done);
    if (!done) return;
    bool number = false;
    const qulonglong seed = text.trimmed().toULongLong(&number);
    if (!number && !text.trimmed().isEmpty()) {
        return host_.showMessage(tr("\"%1\" is no whole number.").arg(text));
    }
    seed_ = number ? std::optional<std::uint64_t>(seed) : std::nullopt;
    ClearRuns1Click();
}

void PlotForm::ClearRuns1Click() {
    scatter_.clear();
    redraw();
}

}  // namespace kelvro
