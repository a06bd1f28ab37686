#include "ui/tools/mixed.h"

#include <QComboBox>
#include <cmath>

#include "core/scalar.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

TFormMixed::TFormMixed(QWidget* parent)
    : ToolWindow("TFormMixed", tr("Mixed Series/Parallel Circuits"), parent) {
    beginGroup(tr("Circuit"));
    QStringList names;
    for (const ConnectionName& name : Connections()) names << Shown(name.text);
    connection_ = addChoice("ConnectionChoice", tr("&Connection"), names,
                            tr("How R, L and C are put together"));
    const QString hint = tr("Leave empty what the circuit does not have");
    R_ = addInput("REingabe", {"&R", tr("ohm"), hint}, "10");
    L_ = addInput("LEingabe", {"&L", "H", hint}, "100n");
    C_ = addInput("CEingabe", {"C", "F", hint}, {});
    f_ = addInput("foEingabe", {"&fo", "Hz", tr("Frequency at which the forms are equal")}, "100M");
    setFrequencyField(f_);
    beginGroup(tr("Impedance at fo"));
    magnitude_ = addOutput("ZAusgabe", {"|Z|", tr("ohm"), {}});
    phase_ = addOutput("PhiAusgabe", {tr("Phase"), "°", {}});
    Q_ = addOutput("QAusgabe", {tr("Quality factor Q"), {}, {}});
    series_ = addForm(tr("Series form"), "s");
    parallel_ = addForm(tr("Parallel form"), "p");
    setSource(
        tr("Exact at fo: Rp = Rs (1 + Q²), Xp = Xs (1 + 1/Q²). A positive reactance is an "
           "inductor's."));
    finish();
}

TFormMixed::Form TFormMixed::addForm(const QString& title, const char* suffix) {
    beginGroup(title, *suffix == 's' ? Place::NewColumn : Place::Below);
    const auto name = [&](const char* quantity) {
        return std::string(quantity) + suffix + "Ausgabe";
    };
    return {addOutput(name("R").c_str(), {QString("R") + suffix, tr("ohm"), {}}),
            addOutput(name("X").c_str(), {QString("X") + suffix, tr("ohm"), {}}),
            addOutput(name("Element").c_str(), {QString("L") + suffix, "H", {}})};
}

void TFormMixed::showForm(const Form& form, const char* suffix, const Equivalent& equivalent) {
    const bool inductor = equivalent.reactance >= 0;
    write(form.resistance, equivalent.resistance);
    write(form.reactance, equivalent.reactance);
    write(form.element, equivalent.element);
    setTexts(form.element, QString(inductor ? "L" : "C") + suffix, inductor ? "H" : "F");
}

void TFormMixed::clearOutputs() {
    for (OutputEdit* output :
         {magnitude_, phase_, Q_, series_.resistance, series_.reactance, series_.element,
          parallel_.resistance, parallel_.reactance, parallel_.element}) {
        write(output, std::nan(""));
    }
}

void TFormMixed::recalculate() {
    const auto valueOf = [](const InputEdit* edit) {
        return isEmpty(edit) ? std::nullopt : std::optional(number(edit));
    };
    MixedCircuit circuit{
        Connections()[static_cast<std::size_t>(connection_->currentIndex())].connection,
        valueOf(R_), valueOf(L_), valueOf(C_)};
    const double f = number(f_);
    const auto result = f > 0 ? ImmittanceOf(circuit, f) : std::nullopt;
    if (!result) {
        setNote(f > 0 ? tr("Type at least one element.") : tr("fo must be positive."));
        return clearOutputs();
    }
    const auto below = [](const std::optional<double>& x) { return x && *x < 0; };
    const bool negative = below(circuit.R) || below(circuit.L) || below(circuit.C);
    setNote(negative ? tr("An element is negative.") : QString());
    const std::complex<double> z = result->impedance();
    write(magnitude_, std::abs(z));
    writeFixed(phase_, 2, std::arg(z) * kDegreesPerRadian);
    write(Q_, QualityFactor(*result));
    showForm(series_, "s", SeriesForm(*result, f));
    showForm(parallel_, "p", ParallelForm(*result, f));
}

}  // namespace kelvro
