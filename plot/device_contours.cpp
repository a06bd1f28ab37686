#include "plot/device_contours.h"

#include <array>
#include <cmath>
#include <numbers>

#include "core/number_text.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

constexpr std::array kGainsBelow = {1.0, 2.0, 3.0};  // dB
constexpr Rgb kStabilityColour{190, 60, 60};
constexpr Rgb kGainColour{60, 120, 60};

/// A reflection to a real resistance where the chart has that impedance. Γ = 1, an open, included.
Cx OnChart(Cx reflection, double reference, Cx source) {
    const Cx Z = reference * (1.0 + reflection);
    const Cx less = 1.0 - reflection;
    return (Z - std::conj(source) * less) / (Z + source * less);
}

std::optional<ChartCircle> OnChart(const ReflectionCircle& circle, double reference, Cx source) {
    if (!std::isfinite(circle.radius) || !(circle.radius > 0)) return std::nullopt;
    std::array<Cx, 3> on;
    for (std::size_t i = 0; i < on.size(); ++i) {
        const double angle = 2 * std::numbers::pi * static_cast<double>(i) / 3;
        on[i] = OnChart(circle.centre + std::polar(circle.radius, angle), reference, source);
    }
    return CircleThrough(on[0], on[1], on[2]);
}

class DeviceCircles {
  public:
    DeviceCircles(const PortData& data, const Matrix2& s, DeviceSide side, Cx source)
        : data_(data), s_(s), side_(side), source_(source) {}

    std::vector<ChartContour> contours() {
        const StabilityCircle edge = StabilityCircleOf(s_, side_);
        const bool load = side_ == DeviceSide::Load;
        add(edge,
            data_.name + (load ? " loads" : " sources") + " stable " +
                (edge.stableInside ? "inside" : "outside"),
            kStabilityColour);
        const double largest = 10 * std::log10(DeviceFiguresOf(s_).availableGain);
        for (const double below : kGainsBelow) {
            const double dB = largest - below;
            const auto circle = GainCircleOf(s_, side_, std::pow(10.0, dB / 10));
            const std::string name = load ? "Gp " : "Ga ";
            if (circle) add(*circle, name + FormatFixed(0, 1, dB) + " dB", kGainColour);
        }
        return std::move(contours_);
    }

  private:
    void add(const ReflectionCircle& circle, std::string label, Rgb colour) {
        const double reference = data_.reference[side_ == DeviceSide::Load ? 1 : 0];
        const auto shown = OnChart(circle, reference, source_);
        if (shown) contours_.push_back({*shown, std::move(label), colour});
    }

    const PortData& data_;
    const Matrix2& s_;
    const DeviceSide side_;
    const Cx source_;
    std::vector<ChartContour> contours_;
};

}  // namespace

std::vector<ChartContour> DeviceContours(const Network& network, double f, DeviceSide side) {
    std::vector<ChartContour> contours;
    for (const LadderElement& element : network.ladder) {
        const auto* device = std::get_if<MeasuredTwoPort>(&element.is);
        if (!device || !device->data) continue;
        const auto s = device->data->at(f);
        if (!s) continue;
        const Matrix2 matrix{*s};
        DeviceCircles circles(*device->data, matrix, side, impedance(network.source, f));
        for (ChartContour& contour : circles.contours()) contours.push_back(std::move(contour));
    }
    return contours;
}

}  // namespace kelvro
