#include "ui/tools/lines.h"

#include <QComboBox>
#include <cmath>

#include "analysis/tools/physics.h"
#include "ui/fields.h"

namespace kelvro {

TFormLines::TFormLines(QWidget* parent)
    : ToolWindow("TFormLines", tr("Transmission Line Parameters"), parent) {
    addInputs();
    addOutputs();
    finish();
}

void TFormLines::addInputs() {
    QStringList types;
    for (const LineDescription& type : LineTypes()) types << ToQString(type.caption);
    beginGroup(tr("Line"));
    type_ = addChoice("TypeChoice", tr("&Line"), types);
    direction_ = addChoice("DirectionChoice", tr("&Find"),
                           {tr("Zo from dimensions"), tr("Dimensions from Zo")});
    impedance_ = addInput("ZoEingabe", {tr("&Zo"), tr("ohm"), {}}, "50");
    angle_ = addInput("AngleEingabe", {tr("&Electrical length"), "°", {}}, "90");
    f_ = addInput("foEingabe", {tr("at f&o"), "Hz", {}}, "100M");
    setFrequencyField(f_);

    beginGroup(tr("Dimensions"));
    permittivity_ = addInput("erEingabe", {tr("Permittivity e&r"), {}, {}}, "4.4");
    width_ = addInput("WidthEingabe", {{}, "m", tr("A length may end in mil")}, "3m");
    height_ = addInput("HeightEingabe", {{}, "m", tr("A length may end in mil")}, "1.6m");
    gap_ = addInput("GapEingabe", {{}, "m", tr("A length may end in mil")}, "0.3m");
    thickness_ = addInput("ThicknessEingabe", {{}, "m", tr("0: thin metal")}, "35u");
    length_ = addInput("LengthEingabe", {tr("Lengt&h"), "m", {}}, "100m");
    type_->setCurrentIndex(1);
}

void TFormLines::addOutputs() {
    beginGroup(tr("Result"), Place::NewColumn);
    impedanceOut_ = addOutput("ZoAusgabe", {"Zo", tr("ohm"), {}});
    widthOut_ = addOutput("WidthAusgabe", {{}, "m", {}});
    lengthOut_ = addOutput("LengthAusgabe", {tr("Length"), "m", {}});
    angleOut_ = addOutput("AngleAusgabe", {tr("Electrical length"), "°", {}});
    effective_ = addOutput("eeffAusgabe", {tr("Effective permittivity"), {}, {}});
    dispersed_ = addOutput("eefffAusgabe", {tr("the same at fo"), {}, {}});
    velocity_ = addOutput("VelocityAusgabe", {tr("Velocity factor at fo"), {}, {}});
    wavelength_ = addOutput("WavelengthAusgabe", {tr("Wavelength at fo"), "m", {}});
    delay_ = addOutput("DelayAusgabe", {tr("Delay"), "s", {}});
    inductance_ = addOutput("LAusgabe", {tr("Inductance"), "H/m", {}});
    capacitance_ = addOutput("CAusgabe", {tr("Capacitance"), "F/m", {}});
    limit_ = addOutput("LimitAusgabe",
                       {tr("Next mode from"), "Hz", tr("Where another mode begins to propagate")});
}

const LineDescription& TFormLines::description() const {
    return LineTypes()[static_cast<std::size_t>(type_->currentIndex())];
}

bool TFormLines::wantsWidth() const {
    return direction_->currentIndex() == 1;
}

void TFormLines::showRows() {
    const LineDescription& type = description();
    setTexts(width_, ToQString(type.widthLabel));
    setTexts(widthOut_, ToQString(type.widthLabel));
    setTexts(height_, ToQString(type.heightLabel));
    setTexts(gap_, ToQString(type.gapLabel));
    setTexts(thickness_, ToQString(type.thicknessLabel));
    setShown(gap_, !type.gapLabel.empty());
    setShown(thickness_, !type.thicknessLabel.empty());
    const bool width = wantsWidth();
    setShown(impedance_, width);
    setShown(angle_, width);
    setShown(widthOut_, width);
    setShown(lengthOut_, width);
    setShown(width_, !width);
    setShown(length_, !width);
    setShown(angleOut_, !width);
    setShown(dispersed_, type.type == LineType::Microstrip);
    setShown(limit_, type.gapLabel.empty());
    setSource(ToQString(type.source));
}

LineShape TFormLines::shape() const {
    LineShape shape{description().type, number(width_),     number(height_),
                    number(gap_),       number(thickness_), number(permittivity_)};
    if (wantsWidth()) shape.width = WidthFor(shape, number(impedance_));
    return shape;
}

void TFormLines::recalculate() {
    showRows();
    const LineShape line = shape();
    const LineParameters parameters = Analyse(line);
    const double f = number(f_);
    const double permittivity = EffectivePermittivity(line, f);
    const LineConstants constants = ConstantsOf(parameters);
    write(impedanceOut_, parameters.impedance);
    write(widthOut_, line.width);
    writeFixed(effective_, 4, parameters.permittivity);
    writeFixed(dispersed_, 4, permittivity);
    writeFixed(velocity_, 4, 1 / std::sqrt(permittivity));
    write(inductance_, constants.inductance);
    write(capacitance_, constants.capacitance);
    write(limit_, ModeLimit(line));
    showLength(permittivity, f);
    if (std::isfinite(parameters.impedance)) {
        setNote(f > 0 ? ToQString(Caution(line, f)) : tr("fo must be positive."));
    } else if (wantsWidth()) {
        setNote(tr("No width gives this impedance with the other dimensions."));
    } else {
        setNote(tr("These dimensions make no line."));
    }
}

void TFormLines::showLength(double permittivity, double f) {
    const double velocity = kSpeedOfLight / std::sqrt(permittivity);
    const double wavelength = f > 0 ? velocity / f : std::nan("");
    const double length = wantsWidth() ? number(angle_) / 360 * wavelength : number(length_);
    write(wavelength_, wavelength);
    write(lengthOut_, length);
    writeFixed(angleOut_, 2, length / wavelength * 360);
    write(delay_, length / velocity);
}

}  // namespace kelvro
