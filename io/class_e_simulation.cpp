#include "io/class_e_simulation.h"

#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "design/class_e_page.h"
#include "io/class_e_netlist.h"
#include "io/ngspice.h"

namespace kelvro {

namespace {

double Found(const Measurements& measured, const std::string& name) {
    const auto at = measured.find(name);
    return at == measured.end() ? std::numeric_limits<double>::quiet_NaN() : at->second;
}

std::vector<ComparedValue> Compared(const ClassEOperation& computed, double R,
                                    const Measurements& measured) {
    constexpr double percent = 100;
    const double fundamental = Found(measured, "harmonic1");
    std::vector<ComparedValue> values = {
        {"Power in R", "W", computed.outputPower, Found(measured, "pout")},
        {"Supply current", "A", computed.supplyCurrent, -Found(measured, "isupply")},
        {"Efficiency", "%", percent * computed.efficiency, Found(measured, "efficiency")},
        {"Peak voltage", "V", computed.peakVoltage, Found(measured, "vpeak")},
        {"Peak current", "A", computed.peakCurrent, Found(measured, "ipeak")},
        {"Voltage left at turn-on", "V", computed.turnOnVoltage, Found(measured, "vturnon")},
        {"Load current at fo", "A", computed.harmonics[0], fundamental / R}};
    for (const int n : {2, 3}) {
        const double amplitude = Found(measured, "harmonic" + std::to_string(n));
        values.push_back({"Harmonic at " + std::to_string(n) + "·fo", "dB", computed.harmonicDb(n),
                          20 * std::log10(amplitude / fundamental)});
    }
    return values;
}

}  // namespace

Result<std::vector<ComparedValue>> CompareWithNgspice(const ExportDesign& design,
                                                      const std::stop_token& stop) {
    if (!design.page().switched) {
        return Status::Failure("Only a class-E stage is compared with ngspice");
    }
    const ClassEStage stage = ClassEStageOf(design.state, true);
    const auto computed = OperateClassE(stage);
    if (!computed) return computed.status();
    const auto measured = RunNgspice(ClassENetlist(design), stop);
    if (!measured) return measured.status();
    return Compared(*computed, stage.R, *measured);
}

}  // namespace kelvro
