#include "ui/tools/lines.h"

#include <QComboBox>
#include <QSignalBlocker>
#include <cmath>

#include "analysis/tools/physics.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr int kFirstType = 1;
const double kDecibelsPerNeper = 20 / std::log(10.0);

/// Texts of usual lines of about 50 ohm to start from, by type: width, height, gap, thickness,
/// permittivity and loss tangent. A semi-rigid cable, else epoxy boards.
const std::vector<QStringList>& UsualLines() {
    static const std::vector<QStringList> lines{
        {"0.92m", "2.98m", "0.3m", "35u", "2.03", "0.0004"},
        {"3m", "1.6m", "0.3m", "35u", "4.4", "0.02"},
        {"0.62m", "1.6m", "0.3m", "35u", "4.4", "0.02"},
        {"3m", "1.6m", "0.3m", "35u", "4.4", "0.02"},
        {"1.65m", "1.6m", "0.3m", "35u", "4.4", "0.02"},
    };
    return lines;
}

}  // namespace

TFormLines::TFormLines(QWidget* parent)
    : ToolWindow("TFormLines", tr("Transmission Line Parameters"), parent),
      ownTexts_(UsualLines()),
      shownType_(kFirstType) {
    addInputs();
    addOutputs();
    finish();
}

void TFormLines::addInputs() {
    QStringList types;
    for (const LineDescription& type : LineTypes()) types << Shown(type.caption);
    beginGroup(tr("Line"));
    type_ = addChoice("TypeChoice", tr("&Line"), types, tr("Cross-section of the line"));
    direction_ = addChoice("DirectionChoice", tr("&Find"),
                           {tr("Zo from dimensions"), tr("Dimensions from Zo")},
                           tr("What is given and what is looked for"));
    impedance_ =
        addInput("ZoEingabe", {tr("&Zo"), tr("ohm"), tr("Wanted characteristic impedance")}, "50");
    angle_ =
        addInput("AngleEingabe",
                 {tr("&Electrical length"), "°", tr("Wanted at fo; 90° is a quarter wave")}, "90");
    f_ = addInput("foEingabe", {tr("at f&o"), "Hz", tr("Follows the design until typed")}, "100M");
    setFrequencyField(f_);

    beginGroup(tr("Dimensions"));
    const QString mil = tr("A length may end in mil");
    const QStringList& start = ownTexts_[kFirstType];
    width_ = addInput("WidthEingabe", {{}, "m", mil}, start[0]);
    height_ = addInput("HeightEingabe", {{}, "m", mil}, start[1]);
    gap_ = addInput("GapEingabe", {{}, "m", mil}, start[2]);
    thickness_ =
        addInput("ThicknessEingabe", {{}, "m", tr("0: thin metal of unknown loss")}, start[3]);
    length_ =
        addInput("LengthEingabe", {tr("Lengt&h"), "m", tr("Of the line from end to end")}, "100m");

    beginGroup(tr("Material"));
    permittivity_ = addInput(
        "erEingabe",
        {tr("Permittivity e&r"), {}, tr("Of the dielectric, relative: air 1, PTFE 2.1, FR-4 4.4")},
        start[4]);
    lossTangent_ = addInput(
        "tanEingabe", {tr("Loss &tangent"), {}, tr("Of the dielectric: PTFE 0.0004, FR-4 0.02")},
        start[5]);
    conductivity_ = addInput(
        "SigmaEingabe",
        {tr("&Conductivity"), "S/m", tr("Copper 58M, silver 61M, gold 41M, aluminium 37M")}, "58M");
    roughness_ =
        addInput("RoughEingabe",
                 {tr("Ro&ughness"), "m", tr("Of the metal towards the dielectric, rms")}, "0");
    type_->setCurrentIndex(kFirstType);
}

std::vector<InputEdit*> TFormLines::ownFields() const {
    return {width_, height_, gap_, thickness_, permittivity_, lossTangent_};
}

void TFormLines::exchangeDimensions() {
    const int type = type_->currentIndex();
    if (type == shownType_) return;
    const auto fields = ownFields();
    for (std::size_t i = 0; i < fields.size(); ++i) {
        const QSignalBlocker blocker(fields[i]);
        ownTexts_[static_cast<std::size_t>(shownType_)][static_cast<int>(i)] = fields[i]->text();
        fields[i]->setText(ownTexts_[static_cast<std::size_t>(type)][static_cast<int>(i)]);
    }
    shownType_ = type;
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
    beginGroup(tr("Losses at fo"));
    conductorLoss_ = addOutput(
        "ConductorLossAusgabe",
        {tr("Conductor"), "dB/m", tr("Not known for coplanar lines and metal without thickness")});
    dielectricLoss_ = addOutput("DielectricLossAusgabe", {tr("Dielectric"), "dB/m", {}});
    lengthLoss_ = addOutput("LossAusgabe", {tr("Over the length"), "dB", tr("Matched line")});
    quality_ = addOutput("QAusgabe", {tr("Q of a resonator"), {}, tr("Without radiation")});
}

const LineDescription& TFormLines::description() const {
    return LineTypes()[static_cast<std::size_t>(type_->currentIndex())];
}

bool TFormLines::wantsWidth() const {
    return direction_->currentIndex() == 1;
}

void TFormLines::showRows() {
    const LineDescription& type = description();
    setTexts(width_, Shown(type.widthLabel));
    setTexts(widthOut_, Shown(type.widthLabel));
    setTexts(height_, Shown(type.heightLabel));
    setTexts(gap_, Shown(type.gapLabel));
    setTexts(thickness_, Shown(type.thicknessLabel));
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
    const bool coplanar = !type.gapLabel.empty();
    setSource(Shown(type.source) +
              (coplanar ? tr(" The loss of their conductors is not computed.")
                        : tr(" Conductor loss after Wheeler 1942, roughness after Hammerstad and "
                             "Jensen 1980; strips within 15 % of other formulas.")));
}

LineShape TFormLines::shape() const {
    LineShape shape{description().type, number(width_),     number(height_),
                    number(gap_),       number(thickness_), number(permittivity_)};
    if (wantsWidth()) shape.width = WidthFor(shape, number(impedance_));
    return shape;
}

LineMaterials TFormLines::materials() const {
    return {number(conductivity_), number(roughness_), number(lossTangent_)};
}

void TFormLines::recalculate() {
    exchangeDimensions();
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
    showLosses(line, f, showLength(permittivity, f));
    setNote(noteOn(line, parameters.impedance, f));
}

QString TFormLines::noteOn(const LineShape& line, double impedance, double f) const {
    if (!std::isfinite(impedance)) {
        return wantsWidth() ? tr("No width gives this impedance with the other dimensions.")
                            : tr("These dimensions make no line.");
    }
    if (!(f > 0)) return tr("fo must be positive.");
    if (!(number(conductivity_) > 0)) return tr("The conductivity must be positive.");
    const std::string_view caution = Caution(line, f);
    return Shown(caution.empty() ? LossCaution(line, materials(), f) : caution);
}

void TFormLines::showLosses(const LineShape& line, double f, double length) {
    const LineLosses losses = LossesOf(line, materials(), f);
    write(conductorLoss_, kDecibelsPerNeper * losses.conductor);
    write(dielectricLoss_, kDecibelsPerNeper * losses.dielectric);
    write(lengthLoss_, kDecibelsPerNeper * losses.total() * length);
    write(quality_, LineQuality(line, losses, f));
}

double TFormLines::showLength(double permittivity, double f) {
    const double velocity = kSpeedOfLight / std::sqrt(permittivity);
    const double wavelength = f > 0 ? velocity / f : std::nan("");
    const double length = wantsWidth() ? number(angle_) / 360 * wavelength : number(length_);
    write(wavelength_, wavelength);
    write(lengthOut_, length);
    writeFixed(angleOut_, 2, length / wavelength * 360);
    write(delay_, length / velocity);
    return length;
}

}  // namespace kelvro
