#include "ui/tools/coils.h"

#include <QComboBox>
#include <cmath>

#include "core/scalar.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Entries of the choice of kinds.
enum Kind { kSolenoid, kSpiral, kToroid };

}  // namespace

TFormCoils::TFormCoils(QWidget* parent) : ToolWindow("TFormCoils", tr("Coils"), parent) {
    addInputs();
    addOutputs();
    finish();
}

void TFormCoils::addInputs() {
    beginGroup(tr("Wanted"));
    kind_ = addChoice("KindChoice", tr("&Coil"),
                      {tr("Single-layer solenoid"), tr("Flat spiral"), tr("Toroid")},
                      tr("How the coil is wound"));
    direction_ = addChoice("DirectionChoice", tr("&Find"), {tr("L from turns"), tr("Turns from L")},
                           tr("What is given and what is looked for"));
    turns_ = addInput("NEingabe", {tr("Turns &N"), {}, tr("May be a fraction")}, "10");
    inductance_ =
        addInput("LEingabe", {tr("&Inductance L"), "H", tr("Wanted at low frequencies")}, "1u");
    f_ = addInput(
        "foEingabe",
        {tr("F&requency fo"), "Hz", tr("For reactance and Q; follows the design until typed")},
        "100M");
    setFrequencyField(f_);

    beginGroup(tr("Dimensions"));
    diameter_ =
        addInput("DEingabe", {tr("Mean &diameter"), "m", tr("Wire centre to wire centre")}, "8m");
    wire_ =
        addInput("WireEingabe", {tr("&Wire diameter"), "m", tr("0: ideal current sheet")}, "0.8m");
    keeps_ = addChoice("KeepsChoice", tr("&Given"), {tr("Length of winding"), tr("Pitch of turns")},
                       tr("Which of the two stays as typed when the turns change"));
    extent_ = addInput("ExtentEingabe",
                       {tr("L&ength"), "m", tr("Of the winding, or from turn to turn")}, "12m");
    shape_ =
        addChoice("ShapeChoice", tr("&Shape"),
                  {tr("Square"), tr("Hexagon"), tr("Octagon"), tr("Circle")}, tr("Of one turn"));
    inner_ = addInput("InnerEingabe",
                      {tr("Inner &diameter"), "m", tr("Free width inside the first turn")}, "5m");
    width_ =
        addInput("WidthEingabe", {tr("Conductor &width"), "m", tr("Of the track or wire")}, "0.5m");
    gap_ = addInput("GapEingabe",
                    {tr("&Gap between turns"), "m", tr("Free width from turn to turn")}, "0.5m");
    core_ = addChoice("CoreChoice", tr("C&ore"), {tr("A_L of the data sheet"), tr("Dimensions")},
                      tr("What is known of the core"));
    factor_ =
        addInput("ALEingabe",
                 {tr("&A_L per turn²"), "H", tr("Inductance factor of the data sheet")}, "4.9n");
    permeability_ = addInput("muEingabe", {tr("&Permeability"), {}, tr("1: air")}, "10");
    coreOuter_ =
        addInput("OuterEingabe", {tr("O&utside diameter"), "m", tr("Of the core")}, "12.7m");
    coreInner_ = addInput("HoleEingabe",
                          {tr("&Hole diameter"), "m", tr("Inside diameter of the core")}, "7.7m");
    coreHeight_ =
        addInput("HeightEingabe", {tr("H&eight"), "m", tr("Of the core, along its axis")}, "4.83m");
    shape_->setCurrentIndex(3);
}

void TFormCoils::addOutputs() {
    beginGroup(tr("Result"), Place::NewColumn);
    inductanceOut_ = addOutput("LAusgabe", {tr("Inductance L"), "H", {}});
    turnsOut_ = addOutput("NAusgabe", {tr("Turns N"), {}, {}});
    wholeOut_ = addOutput("LWholeAusgabe", {tr("L at whole turns"), "H", {}});
    reactanceOut_ = addOutput("XAusgabe", {tr("Reactance at fo"), tr("ohm"), {}});
    lengthOut_ = addOutput("LengthAusgabe", {tr("Length of winding"), "m", {}});
    pitchOut_ = addOutput("PitchAusgabe", {tr("Pitch of turns"), "m", {}});
    factorOut_ = addOutput("ALAusgabe", {tr("A_L per turn²"), "H", {}});
    wireOut_ = addOutput("WireAusgabe", {tr("Length of wire"), "m", tr("Without its ends")});
    qualityOut_ = addOutput("QAusgabe", {tr("Q at fo, about"), {}, tr("Copper wire, free air")});
    capacitanceOut_ =
        addOutput("CAusgabe", {tr("Self-capacitance"), "F", tr("One end earthed, free air")});
    resonanceOut_ = addOutput("ResonanceAusgabe", {tr("Self-resonance"), "Hz", {}});
}

bool TFormCoils::wantsTurns() const {
    return direction_->currentIndex() == 1;
}

void TFormCoils::showRows() {
    const int kind = kind_->currentIndex();
    const bool catalogue = core_->currentIndex() == 0;
    setShown(turns_, !wantsTurns());
    setShown(inductance_, wantsTurns());
    setShown(wholeOut_, wantsTurns());
    for (QWidget* field :
         {static_cast<QWidget*>(diameter_), static_cast<QWidget*>(wire_),
          static_cast<QWidget*>(keeps_), static_cast<QWidget*>(extent_),
          static_cast<QWidget*>(pitchOut_), static_cast<QWidget*>(qualityOut_),
          static_cast<QWidget*>(capacitanceOut_), static_cast<QWidget*>(resonanceOut_)})
        setShown(field, kind == kSolenoid);
    for (QWidget* field : {static_cast<QWidget*>(shape_), static_cast<QWidget*>(inner_),
                           static_cast<QWidget*>(width_), static_cast<QWidget*>(gap_)})
        setShown(field, kind == kSpiral);
    setShown(core_, kind == kToroid);
    setShown(factor_, kind == kToroid && catalogue);
    for (InputEdit* field : {permeability_, coreOuter_, coreInner_, coreHeight_})
        setShown(field, kind == kToroid && !catalogue);
    setShown(factorOut_, kind == kToroid);
    setShown(lengthOut_, kind != kToroid);
    setShown(wireOut_, kind != kToroid || !catalogue);
    setTexts(extent_, keeps_->currentIndex() == 0 ? tr("L&ength") : tr("&Pitch"));
    setTexts(lengthOut_, kind == kSolenoid ? tr("Length of winding") : tr("Outside diameter"));
    static const QString sources[] = {
        tr("Lundin 1985 (within 3e-6 of the exact current sheet, any shape); round wire after Rosa "
           "1906. Q and self-capacitance after the measurements of Medhurst 1947, length of 0.2 to "
           "10 diameters. No screen."),
        tr("Mohan, Hershenson, Boyd and Lee 1999: within 2 to 3 % while the gap is not wider than "
           "the conductor. Flat conductor, no ground plane."),
        tr("L = A_L N². From dimensions: rectangular section, wound all around, exact without "
           "leakage."),
    };
    setSource(sources[kind]);
}

/// Either quantity from the other; what follows from both is the same for all coils.
template <typename Coil>
TFormCoils::Outcome TFormCoils::solve(Coil coil) const {
    Outcome outcome;
    coil.turns = wantsTurns() ? Turns(coil, number(inductance_)) : number(turns_);
    outcome.turns = coil.turns;
    outcome.inductance = Inductance(coil);
    outcome.wire = coil.wireLength();
    outcome.note = Shown(Caution(coil));
    coil.turns = std::round(coil.turns);
    outcome.atWholeTurns = Inductance(coil);
    return outcome;
}

TFormCoils::Outcome TFormCoils::solenoid() const {
    Solenoid coil;
    coil.diameter = number(diameter_);
    coil.wire = number(wire_);
    coil.keeps = keeps_->currentIndex() == 0 ? Solenoid::Keeps::Length : Solenoid::Keeps::Pitch;
    coil.extent = number(extent_);
    Outcome outcome = solve(coil);
    coil.turns = outcome.turns;
    outcome.length = coil.length();
    outcome.pitch = coil.pitch();
    outcome.resistance = Resistance(coil, number(f_));
    outcome.capacitance = SelfCapacitance(coil);
    return outcome;
}

TFormCoils::Outcome TFormCoils::spiral() const {
    Spiral coil;
    coil.shape = static_cast<Spiral::Shape>(shape_->currentIndex());
    coil.inner = number(inner_);
    coil.width = number(width_);
    coil.gap = number(gap_);
    Outcome outcome = solve(coil);
    coil.turns = outcome.turns;
    outcome.length = coil.outer();
    return outcome;
}

TFormCoils::Outcome TFormCoils::toroid() const {
    const Toroid core{number(permeability_), number(coreOuter_), number(coreInner_),
                      number(coreHeight_)};
    Outcome outcome;
    outcome.factor = core_->currentIndex() == 0 ? number(factor_) : InductanceFactor(core);
    outcome.turns =
        wantsTurns() ? ToroidTurns(outcome.factor, number(inductance_)) : number(turns_);
    const auto inductanceOf = [&](double turns) { return outcome.factor * turns * turns; };
    const bool sound = outcome.factor > 0 && outcome.turns > 0;
    outcome.inductance = sound ? inductanceOf(outcome.turns) : std::nan("");
    outcome.atWholeTurns = inductanceOf(std::round(outcome.turns));
    outcome.wire = outcome.turns * core.turnLength();
    return outcome;
}

void TFormCoils::recalculate() {
    showRows();
    const int kind = kind_->currentIndex();
    Outcome outcome = kind == kSolenoid ? solenoid() : kind == kSpiral ? spiral() : toroid();
    if (!std::isfinite(outcome.inductance)) {
        const double none = std::nan("");
        const double factor = outcome.factor;
        outcome = {none, none, none, none, none, none, factor, {}};
        outcome.note = wantsTurns() ? tr("No coil of these dimensions has this inductance.")
                                    : tr("These dimensions make no coil.");
    }
    write(inductanceOut_, outcome.inductance);
    writeFixed(turnsOut_, 2, outcome.turns);
    write(wholeOut_, outcome.atWholeTurns);
    write(reactanceOut_, kTwoPi * number(f_) * outcome.inductance);
    write(lengthOut_, outcome.length);
    write(pitchOut_, outcome.pitch);
    write(wireOut_, outcome.wire);
    write(factorOut_, outcome.factor);
    showQuality(outcome);
}

void TFormCoils::showQuality(const Outcome& outcome) {
    const double f = number(f_);
    const double resonance = SelfResonance(outcome.inductance, outcome.capacitance);
    write(qualityOut_, kTwoPi * f * outcome.inductance / outcome.resistance);
    write(capacitanceOut_, outcome.capacitance);
    write(resonanceOut_, resonance);
    const bool near = outcome.note.isEmpty() && f > resonance / 3;
    setNote(near ? tr("fo is near the self-resonance: the coil acts as a larger inductance.")
                 : outcome.note);
}

}  // namespace kelvro
