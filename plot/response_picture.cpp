#include "plot/response_picture.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

#include "analysis/response.h"
#include "core/number_text.h"

namespace kelvro {

namespace {

constexpr Rgb kCurveColour{0x00, 0x80, 0x00};
constexpr Rgb kAlternativeColour{0xff, 0x00, 0x00};
constexpr Rgb kDotColour{0x00, 0x00, 0xff};
constexpr Rgb kHarmonicColour{0x80, 0xff, 0xff};
constexpr Rgb kScatterColour{0x80, 0x80, 0x80};
constexpr Rgb kMarkLabelColour{0xc0, 0xc0, 0xc0};
/// Warm, so that the levels stand out from the grid and the light labels stay with them.
constexpr Rgb kMarkLineColour{0xe0, 0xa8, 0x70};
constexpr double kDotSize = 4;

struct Texts {
    const char* title;
    const char* legend;
    const char* yName;
};

Texts TextsOf(Quantity quantity) {
    switch (quantity) {
        case Quantity::VoltageGain:
            return {"Voltage Gain V(f)", "V(f) :", "V in dB"};
        case Quantity::PowerGain:
            return {"Power Gain GT(f)", "GT(f) :", "GT in dB"};
        case Quantity::Phase:
            break;
    }
    return {"Phase Response", "phi(f) :", "phi in °"};
}

double ValueOf(const Response& response, Quantity quantity, double f) {
    switch (quantity) {
        case Quantity::VoltageGain:
            return response.magnitudeDb(f);
        case Quantity::PowerGain:
            return response.relativeDb(f);
        case Quantity::Phase:
            break;
    }
    return response.phase(f);
}

Curve MainCurve(const Samples& samples, CurveLook look) {
    Curve curve{.x = {samples.validX().begin(), samples.validX().end()},
                .y = {samples.validY().begin(), samples.validY().end()},
                .colour = kCurveColour,
                .width = 1.5,
                .dotColour = kDotColour,
                .turn = samples.turn};
    if (look == CurveLook::LineWithDots) curve.dotSize = kDotSize;
    if (look == CurveLook::Alternative) {
        curve.colour = kAlternativeColour;
        curve.style = LineStyle::Alternative;
    }
    return curve;
}

}  // namespace

CurveLook NextLook(CurveLook look) {
    switch (look) {
        case CurveLook::Line:
            return CurveLook::LineWithDots;
        case CurveLook::LineWithDots:
            return CurveLook::Alternative;
        case CurveLook::Alternative:
            break;
    }
    return CurveLook::Line;
}

View DefaultView(Quantity quantity, double fo) {
    if (quantity == Quantity::Phase) return DefaultPhaseView(fo);
    return DefaultGainView(fo, quantity == Quantity::PowerGain);
}

double ValueAt(const Design& state, Quantity quantity, double f) {
    return ValueOf(Response(state), quantity, f);
}

Samples Sampled(const Design& state, const View& view, Quantity quantity) {
    const Response response(state);
    Samples samples{.x = SampleFrequencies(view), .y = {}};
    if (quantity == Quantity::Phase) samples.turn = 360;
    samples.y.reserve(samples.x.size());
    for (const double f : samples.x) samples.y.push_back(ValueOf(response, quantity, f));
    const auto isValid = [&](double f) { return f > 0; };
    const auto first = std::find_if(samples.x.begin(), samples.x.end(), isValid);
    samples.first = static_cast<std::size_t>(first - samples.x.begin());
    return samples;
}

Axis AutoscaledToSamples(const Axis& y, const Samples& samples) {
    constexpr double kMost = 1000;  // the limit of a y axis edited by hand
    std::vector<double> values;
    std::copy_if(samples.validY().begin(), samples.validY().end(), std::back_inserter(values),
                 [](double value) { return std::fabs(value) <= kMost; });
    return AutoscaledY(y, values);
}

double PeakOf(const Samples& samples) {
    const auto range = RangeOf(samples.validY());
    return range ? range->max : -std::numeric_limits<double>::infinity();
}

Picture ResponsePicture(const Design& state, const View& view, Quantity quantity, CurveLook look) {
    return ResponsePicture(state, view, quantity, look, Sampled(state, view, quantity));
}

Picture ResponsePicture(const Design& state, const View& view, Quantity quantity, CurveLook look,
                        const Samples& samples) {
    const Texts texts = TextsOf(quantity);
    Picture picture;
    picture.view = view;
    picture.title = texts.title;
    picture.xName = "f in Hz";
    picture.yName = texts.yName;
    picture.curves.push_back(MainCurve(samples, look));
    picture.hairLines.push_back({Harmonics(state.fo, view.x.max), kHarmonicColour});
    const Curve& curve = picture.curves.front();
    picture.legend = {{texts.legend, curve.colour, curve.style},
                      {"Harmonics of fo :", kHarmonicColour}};
    const double peak = PeakOf(samples);
    if (quantity != Quantity::Phase && std::isfinite(peak)) {
        picture.marks = {{peak - 1, "-1dB", kMarkLineColour, kMarkLabelColour},
                         {peak - 3, "-3dB", kMarkLineColour, kMarkLabelColour}};
    }
    return picture;
}

Curve ScatterCurve(const Samples& samples) {
    return {.x = {samples.validX().begin(), samples.validX().end()},
            .y = {samples.validY().begin(), samples.validY().end()},
            .colour = kScatterColour,
            .turn = samples.turn};
}

std::string ReadOut(const Design& design, double v, Quantity quantity, WorldPoint place) {
    const std::string start = "Position : f=" + FormatEngShort(2, place.x) + "Hz, ";
    if (quantity == Quantity::Phase) return start + "phi=" + FormatFixed(0, 3, place.y) + "°";
    const bool power = quantity == Quantity::PowerGain;
    const double reference = power ? v / std::sqrt(design.R2 / design.R1) : v;
    return start + (power ? "GT=" : "Vu=") + FormatFixed(0, 3, place.y) + "dB (" +
           FormatEngShort(2, std::pow(10.0, place.y / 20)) + "), " +
           (power ? "GT-GTo=" : "Vu-Vuo=") + FormatFixed(0, 3, place.y - MagnitudeDb(reference)) +
           "dB";
}

}  // namespace kelvro
