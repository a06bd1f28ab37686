#include "plot/response_picture.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>

#include "core/number_text.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr Rgb kCurveColour{0x00, 0x80, 0x00};
constexpr Rgb kAlternativeColour{0xff, 0x00, 0x00};
constexpr Rgb kDotColour{0x00, 0x00, 0xff};
constexpr Rgb kHarmonicColour{0x80, 0xff, 0xff};
constexpr Rgb kInvalidColour{0xb0, 0xb0, 0xb0};
constexpr std::array kLevels{1.0, 3.0};  // dB below the peak
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
        if (!plot.note.empty()) curve.colour = kInvalidColour;
        picture.legend.push_back({trace.legend(), curve.colour, curve.style});
        picture.curves.push_back(std::move(curve));
    }
}

/// Colours of held curves: paler relatives of those in use, so that both are told apart.
constexpr std::array kHeldColours{Rgb{0x5a, 0x9b, 0xe6}, Rgb{0xf0, 0x96, 0x46},
                                  Rgb{0xc8, 0x78, 0xd2}, Rgb{0x6e, 0xb4, 0x50},
                                  Rgb{0xd2, 0x5a, 0x5a}, Rgb{0x46, 0xb4, 0xb4}};

void AddHeld(Picture& picture, const ResponsePlot& plot) {
    for (std::size_t i = 0; i < plot.held.size(); ++i) {
        const Samples samples = Sampled(plot.held[i].design, plot.view, *plot.traces.front());
        Curve curve = CurveOf(samples, kHeldColours[i % kHeldColours.size()], 1.2);
        curve.behind = true;
        picture.legend.push_back({plot.held[i].name + " :", curve.colour});
        picture.curves.push_back(std::move(curve));
    }
}

void AddLevels(Picture& picture, double peak) {
    for (const double drop : kLevels) {
        picture.marks.push_back(
            {peak - drop, "-" + FormatFixed(0, 0, drop) + "dB", kMarkLineColour, kMarkLabelColour});
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

std::string NoteFor(const Design& design, bool refused) {
    if (refused) return "no valid design";
    return PageOf(design).plottable ? "" : "no frequency response";
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
    AddHeld(picture, plot);
    if (plot.harmonics) {
        picture.hairLines.push_back({Harmonics(state.fo, plot.view.x.max), kHarmonicColour});
        picture.legend.push_back({"Harmonics of fo :", kHarmonicColour});
    }
    const TraceSource source(state);
    const double peak = PeakOf(samples.front());
    if (leading.levels && plot.levels && std::isfinite(peak)) AddLevels(picture, peak);
    if (leading.levels && plot.edges) {
        for (const double drop : kLevels) {
            AddEdges(picture, EdgesOf(source, leading, samples.front(), drop));
        }
    }
    AddMarkers(picture, source, plot.traces, plot.markers);
    picture.note = plot.note;
    picture.dark = plot.dark;
    return picture;
}

std::vector<std::string> EdgeTexts(const Design& state, const ResponsePlot& plot,
                                   const std::vector<Samples>& samples) {
    std::vector<std::string> texts;
    if (!plot.edges || !plot.traces.front()->levels) return texts;
    const TraceSource source(state);
    for (const double drop : kLevels) {
        texts.push_back(EdgesText(EdgesOf(source, *plot.traces.front(), samples.front(), drop)));
    }
    return texts;
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
