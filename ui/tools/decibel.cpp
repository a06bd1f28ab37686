#include "ui/tools/decibel.h"

#include <QComboBox>
#include <cmath>

#include "analysis/tools/decibels.h"
#include "analysis/tools/number_list.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

TFormDecibel::TFormDecibel(QWidget* parent)
    : ToolWindow("TFormDecibel", tr("Decibel Calculations"), parent) {
    addLevels();
    addRatio();
    addSums();
    setSource(tr("Voltages and currents are effective values of a sine in the resistance R."));
    finish();
}

void TFormDecibel::addLevels() {
    QStringList units;
    for (const LevelUnitName& unit : LevelUnits()) units << Shown(unit.text);
    beginGroup(tr("Level"));
    level_ = addInput("LevelEingabe", {tr("&Level"), {}, tr("In the unit below")}, "0");
    levelUnit_ = addChoice("LevelUnitChoice", tr("&Unit"), units, tr("Of the level above"));
    R_ =
        addInput("REingabe", {tr("In &R"), tr("ohm"), tr("Resistance that takes the level")}, "50");
    beginGroup(tr("The same level"));
    for (int i = 0; i < units.size(); ++i) {
        const std::string name = "Level" + std::to_string(i) + "Ausgabe";
        levels_.push_back(addOutput(name.c_str(), {{}, units[i], {}}));
    }
}

void TFormDecibel::addRatio() {
    beginGroup(tr("Ratio"), Place::NewColumn);
    ratio_ =
        addInput("RatioEingabe", {tr("R&atio"), {}, tr("Output over input, given as below")}, "6");
    ratioUnit_ =
        addChoice("RatioUnitChoice", tr("Gi&ven as"), {"dB", "Np", tr("power"), tr("voltage")},
                  tr("What the number above is"));
    R1_ = addInput("R1Eingabe", {tr("From R&1"), tr("ohm"), tr("Resistance at the input")}, "50");
    R2_ = addInput("R2Eingabe", {tr("To R&2"), tr("ohm"), tr("Resistance at the output")}, "50");
    ratioDb_ = addOutput("RatioDbAusgabe", {tr("Gain"), "dB", {}});
    ratioNp_ = addOutput("RatioNpAusgabe", {{}, "Np", {}});
    ratioPower_ = addOutput("RatioPowerAusgabe", {"P2/P1", {}, {}});
    ratioVoltage_ = addOutput("RatioVoltageAusgabe", {"V2/V1", {}, {}});
}

void TFormDecibel::addSums() {
    beginGroup(tr("Several levels in dB"));
    list_ = addInput("ListEingabe",
                     {tr("Level&s"), {}, tr("Any number of levels, separated by spaces or ;")},
                     "10 10 7");
    list_->setAlignment(Qt::AlignLeft);
    widenLast();
    count_ = addOutput("CountAusgabe", {tr("Number"), {}, {}});
    powers_ = addOutput("PowersAusgabe",
                        {tr("Sum of powers"), "dB", tr("Sources that do not know each other")});
    voltages_ =
        addOutput("VoltagesAusgabe", {tr("Sum in phase"), "dB", tr("Voltages that add up")});
    chain_ = addOutput("ChainAusgabe", {tr("In a chain"), "dB", tr("Gains one after the other")});
}

void TFormDecibel::recalculate() {
    const QString levels = showLevels();
    const QString ratio = showRatio();
    const QString sums = showSums();
    setNote(!levels.isEmpty() ? levels : !ratio.isEmpty() ? ratio : sums);
}

QString TFormDecibel::showLevels() {
    const auto unit = LevelUnits()[static_cast<std::size_t>(levelUnit_->currentIndex())].unit;
    const double resistance = number(R_);
    const bool sound = resistance > 0;
    const double power = sound ? PowerOf(unit, number(level_), resistance) : std::nan("");
    for (std::size_t i = 0; i < levels_.size(); ++i) {
        const auto& [target, text, logarithmic] = LevelUnits()[i];
        const double value = LevelOf(target, power, resistance);
        if (logarithmic) {
            writeFixed(levels_[i], 3, value);
        } else {
            write(levels_[i], value);
        }
    }
    if (!sound) return tr("R must be positive.");
    return power < 0 ? tr("A power cannot be negative here.") : QString();
}

QString TFormDecibel::showRatio() {
    const double R1 = number(R1_);
    const double R2 = number(R2_);
    const bool sound = R1 > 0 && R2 > 0;
    // In the order of the choice.
    static constexpr RatioUnit units[] = {RatioUnit::Decibel, RatioUnit::Neper, RatioUnit::Power,
                                          RatioUnit::Voltage};
    const double value = sound ? number(ratio_) : std::nan("");
    const Ratio ratio = RatioOf(units[ratioUnit_->currentIndex()], value, R1, R2);
    writeFixed(ratioDb_, 3, ratio.decibels);
    writeFixed(ratioNp_, 4, ratio.nepers);
    write(ratioPower_, ratio.power);
    write(ratioVoltage_, ratio.voltage);
    if (!sound) return tr("R1 and R2 must be positive.");
    return ratio.power < 0 ? tr("A power ratio cannot be negative here.") : QString();
}

QString TFormDecibel::showSums() {
    std::vector<double> levels;
    for (const FoundNumber& found : NumbersIn(list_->text().toStdString()))
        levels.push_back(found.value);
    const LevelSum sum = SumOf(levels);
    const bool any = !levels.empty();
    writeFixed(count_, 0, static_cast<double>(levels.size()));
    writeFixed(powers_, 3, any ? sum.powers : std::nan(""));
    writeFixed(voltages_, 3, any ? sum.voltages : std::nan(""));
    writeFixed(chain_, 3, any ? sum.chain : std::nan(""));
    return {};
}

}  // namespace kelvro
