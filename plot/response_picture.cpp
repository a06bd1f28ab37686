#include "plot/response_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

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

/// Of the traces behind the leading one: apart from each other for most eyes, and from the green
/// (after M. Okabe and K. Ito, "Color Universal Design", 2008, darkened for a white ground).
constexpr std::array kFurtherColours{Rgb{0x00, 0x50, 0xb4}, Rgb{0xc8, 0x46, 0x00},
                                     Rgb{0x96, 0x28, 0x82}, Rgb{0x28, 0x8c, 0xc8},
                                     Rgb{0x8c, 0x6e, 0x00}, Rgb{0x50, 0x50, 0x50}};

/// Dots stand at the prescribed samples, not at the points between them.
std::vector<std::size_t> DotsOf(const Samples& samples) {
    std::vector<std::size_t> dots;
    for (const std::size_t at : samples.prescribed) {
        if (at >= samples.first) dots.push_back(at - samples.first);
    }
    return dots;
}

Curve CurveOf(const Samples& samples, Rgb colour, double width) {
    return {.x = {samples.validX().begin(), samples.validX().end()},
            .y = {samples.validY().begin(), samples.validY().end()},
            .colour = colour,
            .width = width,
            .dots = DotsOf(samples),
            .turn = samples.turn};
}

Curve LeadingCurve(const Samples& samples, CurveLook look) {
    Curve curve = CurveOf(samples, kCurveColour, 1.5);
    curve.dotColour = kDotColour;
    if (look == CurveLook::LineWithDots) curve.dotSize = kDotSize;
    if (look == CurveLook::Alternative) {
        curve.colour = kAlternativeColour;
        curve.style = LineStyle::Alternative;
    }
    return curve;
}

Axis RangeAxis(const TraceScale& scale) {
    return {.min = scale.min,
            .max = scale.max,
            .origin = std::clamp(0.0, scale.min, scale.max),
            .step = scale.step,
            .labelEvery = scale.labelEvery};
}

LabelStyle LabelsOf(const Trace& trace) {
    if (trace.turn == 360) return LabelStyle::Degrees;
    return trace.engineering ? LabelStyle::Engineering : LabelStyle::Plain;
}

/// "Power Gain GT(f), Group Delay".
std::string TitleOf(const TraceList& traces) {
    std::string title;
    for (const Trace* trace : traces)
        title += (title.empty() ? "" : ", ") + std::string(trace->title);
    return title;
}

void AddCurves(Picture& picture, const ResponsePlot& plot, const std::vector<Samples>& samples) {
    for (std::size_t i = 0; i < plot.traces.size(); ++i) {
        const Trace& trace = *plot.traces[i];
        Curve curve =
            i == 0 ? LeadingCurve(samples[i], plot.look)
                   : CurveOf(samples[i], kFurtherColours[(i - 1) % kFurtherColours.size()], 1.5);
        curve.onRight = trace.axis != plot.traces.front()->axis;
        picture.legend.push_back({trace.legend(), curve.colour, curve.style});
        picture.curves.push_back(std::move(curve));
    }
}

std::string LeadingReadOut(const Design& design, double v, const Trace& trace, double y) {
    std::string text = std::string(trace.readOutName()) + '=' + trace.text(y);
    if (trace.atDesign == nullptr) return text;
    const std::string name(trace.readOutName());
    return text + " (" + FormatEngShort(2, std::pow(10.0, y / 20)) + "), " + name + '-' + name +
           "o=" + trace.text(y - trace.atDesign(design, v));
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

View DefaultView(const TraceList& traces, const TraceSource& source) {
    const View view{.x = DefaultFrequencyAxis(source.fo),
                    .y = RangeAxis(traces.front()->scale(source)),
                    .right = {}};
    return WithRightAxis(view, {traces.front()}, traces, source);
}

View DefaultView(const Trace& trace, const Design& state) {
    return DefaultView({&trace}, TraceSource(state));
}

View WithRightAxis(View view, const TraceList& before, const TraceList& traces,
                   const TraceSource& source) {
    const Trace* had = RightTrace(before);
    const Trace* needed = RightTrace(traces);
    if (needed == nullptr) {
        view.right.reset();
    } else if (!view.right || had == nullptr || had->axis != needed->axis) {
        view.right = RangeAxis(needed->scale(source));
    }
    return view;
}

double ValueAt(const Design& state, const Trace& trace, double f) {
    return trace.value(TraceSource(state), f);
}

View AutoscaledToTraces(const Design& state, const TraceList& traces, View view) {
    const TraceSource source(state);
    std::vector<double> left;
    std::vector<double> right;
    for (const Trace* trace : traces) {
        const Samples samples = Sampled(source, view, *trace);
        auto& values = trace->axis == traces.front()->axis ? left : right;
        const auto add = [&](double value) {
            if (std::fabs(value) <= trace->farthest) values.push_back(value);
        };
        for (const std::size_t at : samples.prescribed) add(samples.y[at]);
        // The axis has room for a peak between samples, but not for the depth of a notch.
        add(PeakOf(samples));
    }
    view.y = AutoscaledY(view.y, left);
    if (view.right) view.right = AutoscaledY(*view.right, right);
    return view;
}

std::vector<Samples> SampledTraces(const Design& state, const ResponsePlot& plot) {
    const TraceSource source(state);
    std::vector<Samples> samples;
    for (const Trace* trace : plot.traces) {
        View own = plot.view;
        if (trace->axis != plot.traces.front()->axis) own.y = own.right.value_or(own.y);
        samples.push_back(Sampled(source, own, *trace));
    }
    return samples;
}

Picture ResponsePicture(const Design& state, const ResponsePlot& plot) {
    return ResponsePicture(state, plot, SampledTraces(state, plot));
}

Picture ResponsePicture(const Design& state, const ResponsePlot& plot,
                        const std::vector<Samples>& samples) {
    const Trace& leading = *plot.traces.front();
    Picture picture;
    picture.view = plot.view;
    picture.title = TitleOf(plot.traces);
    picture.xName = "f in Hz";
    picture.yName = leading.axisName();
    picture.yLabels = LabelsOf(leading);
    AddCurves(picture, plot, samples);
    if (const Trace* right = RightTrace(plot.traces)) {
        picture.rightName = right->axisName();
        picture.rightLabels = LabelsOf(*right);
    }
    picture.hairLines.push_back({Harmonics(state.fo, plot.view.x.max), kHarmonicColour});
    picture.legend.push_back({"Harmonics of fo :", kHarmonicColour});
    const double peak = PeakOf(samples.front());
    if (leading.levels && std::isfinite(peak)) {
        picture.marks = {{peak - 1, "-1dB", kMarkLineColour, kMarkLabelColour},
                         {peak - 3, "-3dB", kMarkLineColour, kMarkLabelColour}};
    }
    return picture;
}

Curve ScatterCurve(const Samples& samples) {
    return CurveOf(samples, kScatterColour, 1);
}

std::string ReadOut(const Design& design, double v, const TraceList& traces, WorldPoint place) {
    std::string text = "Position : f=" + FormatEngShort(2, place.x) + "Hz, " +
                       LeadingReadOut(design, v, *traces.front(), place.y);
    if (traces.size() < 2) return text;
    const TraceSource source(design);
    for (std::size_t i = 1; i < traces.size(); ++i) {
        text += "; " + std::string(traces[i]->readOutName()) + '=' +
                traces[i]->text(traces[i]->value(source, place.x));
    }
    return text;
}

}  // namespace kelvro
