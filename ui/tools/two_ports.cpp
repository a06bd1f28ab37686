#include "ui/tools/two_ports.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"
#include "ui/fields.h"

namespace kelvro {

namespace {

constexpr Ports kInside{50, 50};  ///< references of scattering parameters between calculations
constexpr const char* kPlaces[] = {"11", "12", "21", "22"};

QStringList KindNames() {
    QStringList names;
    for (const std::string_view name : kParameterNames) names << ToQString(name);
    return names;
}

QString ElementName(Parameters kind, int element) {
    if (kind == Parameters::ABCD) return QString("ABCD").mid(element, 1);
    return KindNames()[static_cast<int>(kind)] + kPlaces[element];
}

std::complex<double> FromParts(double first, double second, bool polar) {
    if (!polar) return {first, second};
    return first * std::exp(std::complex<double>(0, second / kDegreesPerRadian));
}

struct Parts {
    double first;
    double second;
};

Parts PartsOf(std::complex<double> value, bool polar) {
    if (!polar) return {value.real(), value.imag()};
    return {std::abs(value), std::arg(value) * kDegreesPerRadian};
}

}  // namespace

TFormTwoPorts::TFormTwoPorts(QWidget* parent)
    : ToolWindow("TFormTwoPorts", tr("Two-Ports"), parent) {
    beginGroup(tr("Numbers"));
    format_ = addChoice("FormatChoice", tr("&Written as"),
                        {tr("real and imaginary part"), tr("magnitude and degrees")},
                        tr("How complex numbers stand in all fields"));
    const QStringList pad{"0", "707.107m", "707.107m", "0"};
    first_ = addEntry(tr("Two-port"), "A", KindNames(), pad);
    second_ = addEntry(tr("Followed by"), "B", QStringList{tr("nothing")} + KindNames(), pad);
    addResult();
    setSource(
        tr("Real references. Conversions after Kurokawa 1965 and Frickey 1994, stability after "
           "Rollett 1962."));
    finish();
}

TFormTwoPorts::Entry TFormTwoPorts::addEntry(const QString& title, const char* prefix,
                                             const QStringList& kinds, const QStringList& start) {
    beginGroup(title);
    const std::string name(prefix);
    Entry entry{};
    entry.kind = addChoice((name + "KindChoice").c_str(), tr("Parameters"), kinds,
                           tr("What the four numbers below are"));
    for (std::size_t i = 0; i < 4; ++i) {
        entry.elements[i] = addInputPair((name + kPlaces[i]).c_str(), {},
                                         tr("Real part or magnitude, imaginary part or degrees"));
        entry.elements[i].first->setText(start[static_cast<int>(i)]);
        entry.elements[i].second->setText("0");
    }
    entry.reference = addInput(
        (name + "ZoEingabe").c_str(),
        {tr("refer to"), tr("ohm"), tr("Resistance for which the S parameters hold")}, "50");
    return entry;
}

void TFormTwoPorts::addResult() {
    beginGroup(tr("Result"), Place::NewColumn);
    kind_ =
        addChoice("ResultKindChoice", tr("&As"), KindNames(), tr("The chain as these parameters"));
    for (std::size_t i = 0; i < 4; ++i) {
        const std::string name = std::string("Result") + kPlaces[i];
        result_[i] = addOutputPair(name.c_str(), {});
    }
    beginGroup(tr("Between"));
    port1_ = addInput("Zo1Eingabe",
                      {tr("Port &1"), tr("ohm"), tr("Also what resulting S refer to")}, "50");
    port2_ = addInput("Zo2Eingabe",
                      {tr("Port &2"), tr("ohm"), tr("Also what resulting S refer to")}, "50");
    gain_ = addOutput("GainAusgabe", {tr("Gain |S21|"), "dB", {}});
    returnLoss_ = addOutput("ReturnLossAusgabe", {tr("Return loss"), "dB", {}});
    input_ = addOutputPair("Zin", tr("Input impedance"));
    stability_ = addOutput("KAusgabe", {tr("Stability factor K"), {}, {}});
    determinant_ = addOutput("DeltaAusgabe", {tr("|Determinant|"), {}, {}});
    available_ = addOutput("MagAusgabe", {"MAG", "dB", {}});
    kind_->setCurrentIndex(static_cast<int>(Parameters::ABCD));
}

bool TFormTwoPorts::polar() const {
    return format_->currentIndex() == 1;
}

bool TFormTwoPorts::hasSecond() const {
    return second_.kind->currentIndex() > 0;
}

Parameters TFormTwoPorts::kindOf(const Entry& entry) const {
    const int index = entry.kind->currentIndex() - (&entry == &second_ ? 1 : 0);
    return static_cast<Parameters>(std::max(index, 0));
}

void TFormTwoPorts::labelEntry(const Entry& entry, bool shown) {
    const Parameters kind = kindOf(entry);
    for (std::size_t i = 0; i < 4; ++i) {
        QWidget* row = entry.elements[i].first->parentWidget();
        setTexts(row, ElementName(kind, static_cast<int>(i)));
        setShown(row, shown);
    }
    setShown(entry.reference, shown && kind == Parameters::S);
}

void TFormTwoPorts::showRows() {
    labelEntry(first_, true);
    labelEntry(second_, hasSecond());
    for (std::size_t i = 0; i < 4; ++i) {
        setTexts(result_[i].first->parentWidget(),
                 ElementName(static_cast<Parameters>(kind_->currentIndex()), static_cast<int>(i)));
    }
}

/// After a change of the format the entries are rewritten, so that they stay the same numbers.
void TFormTwoPorts::convertEntries() {
    if (polarEntries_ == polar()) return;
    for (const Entry* entry : {&first_, &second_}) {
        for (const auto& [first, second] : entry->elements) {
            const Parts parts =
                PartsOf(FromParts(number(first), number(second), polarEntries_), polar());
            const QSignalBlocker blockFirst(first);
            const QSignalBlocker blockSecond(second);
            first->setText(ToQString(FormatEngShort(6, parts.first)));
            second->setText(ToQString(FormatEngShort(6, parts.second)));
        }
    }
    polarEntries_ = polar();
}

Matrix2 TFormTwoPorts::read(const Entry& entry) const {
    Matrix2 matrix;
    for (std::size_t i = 0; i < 4; ++i) {
        const auto& [first, second] = entry.elements[i];
        matrix.m[i] = FromParts(number(first), number(second), polarEntries_);
    }
    return matrix;
}

std::optional<Matrix2> TFormTwoPorts::scatteringOf(const Entry& entry) const {
    const double reference = number(entry.reference);
    const Parameters kind = kindOf(entry);
    if (kind != Parameters::S) return ToScattering(kind, read(entry), kInside);
    if (!(reference > 0)) return std::nullopt;
    return Renormalized(read(entry), {reference, reference}, kInside);
}

void TFormTwoPorts::recalculate() {
    convertEntries();
    showRows();
    const Ports ports{number(port1_), number(port2_)};
    std::optional<Matrix2> s = scatteringOf(first_);
    if (s && hasSecond()) {
        const std::optional<Matrix2> next = scatteringOf(second_);
        s = next ? Cascade(*s, kInside, *next, kInside) : std::nullopt;
    }
    const bool terminated = ports.first > 0 && ports.second > 0;
    if (s) s = terminated ? Renormalized(*s, kInside, ports) : std::nullopt;
    const auto kind = static_cast<Parameters>(kind_->currentIndex());
    const auto result = s ? FromScattering(kind, *s, ports) : std::nullopt;
    showMatrix(result);
    showFigures(s, ports);
    if (!terminated) {
        setNote(tr("The resistances of the ports must be positive."));
    } else if (!s) {
        setNote(tr("These parameters describe no two-port between resistances."));
    } else {
        setNote(result ? QString() : tr("This two-port has no such matrix."));
    }
}

void TFormTwoPorts::showComplex(const Pair<OutputEdit>& pair, std::complex<double> value,
                                bool fixed) {
    const Parts parts = PartsOf(value, polar());
    if (fixed) {
        writeFixed(pair.first, 4, parts.first);
    } else {
        write(pair.first, parts.first);
    }
    if (fixed || polar()) {
        writeFixed(pair.second, polar() ? 2 : 4, parts.second);
    } else {
        write(pair.second, parts.second);
    }
}

void TFormTwoPorts::showMatrix(const std::optional<Matrix2>& matrix) {
    const double none = std::nan("");
    const bool fixed = kind_->currentIndex() == static_cast<int>(Parameters::S);
    for (std::size_t i = 0; i < 4; ++i)
        showComplex(result_[i], matrix ? matrix->m[i] : std::complex<double>(none, none), fixed);
}

void TFormTwoPorts::showFigures(const std::optional<Matrix2>& s, Ports ports) {
    const double none = std::nan("");
    TwoPortFigures figures{none, none, none, none, none, false, false, {none, none}};
    if (s) figures = FiguresOf(*s, ports);
    writeFixed(gain_, 3, figures.gainDb);
    writeFixed(returnLoss_, 3, figures.returnLossDb);
    writeFixed(stability_, 4, figures.stability);
    writeFixed(determinant_, 4, figures.determinant);
    writeFixed(available_, 3, figures.availableDb);
    setTexts(available_, figures.stability >= 1 ? tr("Available gain MAG") : tr("Stable gain MSG"));
    showComplex(input_, figures.inputImpedance, false);
}

}  // namespace kelvro
