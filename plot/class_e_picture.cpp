#include "plot/class_e_picture.h"

#include <algorithm>
#include <cmath>

#include "core/rounding.h"

namespace kelvro {

namespace {

constexpr Rgb kVoltage{0x00, 0x40, 0xC0};
constexpr Rgb kSwitchCurrent{0xC0, 0x20, 0x20};
constexpr Rgb kLoadCurrent{0x00, 0x60, 0x00};

Curve WaveOf(const ClassEOperation& operation, double fo, double ClassEInstant::*value,
             Rgb colour) {
    Curve curve;
    curve.colour = colour;
    for (const ClassEInstant& instant : operation.waves) {
        curve.x.push_back(instant.phase / fo);
        curve.y.push_back(instant.*value);
    }
    return curve;
}

/// Readable steps from the lowest to the highest value, zero included, with a label at each.
Axis AxisFor(double lowest, double highest, int steps) {
    Axis axis;
    lowest = std::min(lowest, 0.0);
    highest = std::max(highest, 0.0);
    axis.step = StepUp125((highest - lowest) / steps);
    axis.labelEvery = 1;
    // A hair beyond a grid line is no reason for one more step.
    constexpr double hair = 1e-9;
    axis.min = std::floor(lowest / axis.step + hair) * axis.step;
    axis.max = std::ceil(highest / axis.step - hair) * axis.step;
    return axis;
}

void FitAxes(Picture& picture, double fo) {
    double lowest = 0;
    double highest = 0;
    for (const Curve& curve : picture.curves) {
        const auto [low, high] = std::ranges::minmax(curve.y);
        lowest = std::min(lowest, low);
        highest = std::max(highest, high);
    }
    constexpr int timeSteps = 10;
    constexpr int valueSteps = 6;
    picture.view.x = AxisFor(0, 1 / fo, timeSteps);
    picture.view.x.max = 1 / fo;
    picture.view.x.labelEvery = 2;
    picture.view.y = AxisFor(lowest, highest, valueSteps);
    picture.xName = "t in s";
    picture.yLabels = LabelStyle::Engineering;
}

}  // namespace

Picture ClassEVoltagePicture(const ClassEOperation& operation, double fo) {
    Picture picture;
    picture.title = "Voltage across the switch";
    picture.curves = {WaveOf(operation, fo, &ClassEInstant::voltage, kVoltage)};
    picture.yName = "V";
    FitAxes(picture, fo);
    return picture;
}

Picture ClassECurrentPicture(const ClassEOperation& operation, double fo) {
    Picture picture;
    picture.title = "Currents";
    picture.curves = {WaveOf(operation, fo, &ClassEInstant::switchCurrent, kSwitchCurrent),
                      WaveOf(operation, fo, &ClassEInstant::loadCurrent, kLoadCurrent)};
    picture.legend = {{"Switch :", kSwitchCurrent}, {"Load :", kLoadCurrent}};
    picture.yName = "A";
    FitAxes(picture, fo);
    return picture;
}

}  // namespace kelvro
