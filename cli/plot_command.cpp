#include <CLI/CLI.hpp>
#include <algorithm>
#include <array>
#include <charconv>
#include <ctime>
#include <optional>

#include "cli/commands.h"
#include "cli/design_options.h"
#include "cli/design_run.h"
#include "cli/given_options.h"
#include "cli/range_options.h"
#include "cli/tolerance_options.h"
#include "cli/trace_option.h"
#include "core/number_text.h"
#include "core/rounding.h"
#include "plot/caption.h"
#include "plot/picture_format.h"
#include "plot/response_picture.h"
#include "plot/scatter.h"

namespace kelvro {

namespace {

constexpr int kMostDrawnRuns = 10'000;
constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 10'000;
/// As in the window: a range that is set by hand has fifty steps.
constexpr int kSteps = 50;

struct PlotOptions {
    std::shared_ptr<DesignOptions> design;
    std::vector<std::string> traces{"gt"};
    RangeOptions range;
    bool autoscale = false;
    std::string size = "768x576";
    ToleranceOptions tolerance;
    int runs = 0;
    bool envelope = false;
    OptionList onlyScatter;  ///< what goes with --mc alone
    bool edges = false;
    bool dark = false;
    bool noCaption = false;
    bool noHarmonics = false;
    bool noLevels = false;
    double dpi = Picture().dpi;
    std::vector<std::string> markers;
    std::string file;
};

struct Pixels {
    int width = 0;
    int height = 0;
};

/// "WIDTHxHEIGHT" in pixels.
std::optional<Pixels> SizeOf(const std::string& text) {
    const auto number = [](std::string_view digits) {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [last, error] = std::from_chars(digits.data(), end, value);
        const bool whole = error == std::errc() && last == end;
        return whole && value >= kSmallestSide && value <= kLargestSide ? value : 0;
    };
    const auto cross = text.find_first_of("xX");
    if (cross == std::string::npos) return {};
    const Pixels size{number(std::string_view(text).substr(0, cross)),
                      number(std::string_view(text).substr(cross + 1))};
    return size.width == 0 || size.height == 0 ? std::nullopt : std::optional(size);
}

std::string SizeProblem(const std::string& text) {
    return SizeOf(text) ? "" : "'" + text + "' is no size such as 768x576, 100 to 10000 a side";
}

Outcome<TraceList> DrawnTraces(const PlotOptions& options) {
    TraceList traces = TracesOf(options.traces);
    if (const Trace* third = TraceWithoutAxis(traces)) {
        return Problem{ExitCode::Usage, "--trace: '" + std::string(third->key) +
                                            "' needs a third axis; a plot has two"};
    }
    return traces;
}

std::string FileProblem(const std::string& text) {
    if (PictureFormatOfFile(text)) return "";
    return "'" + text + "' does not end in ." + PictureSuffixText(", .");
}

/// The view with which the window opens, its axes as the options say.
Outcome<View> ViewOf(const PlotOptions& options, const TraceList& traces, const Design& state) {
    View view = DefaultView(traces, TraceSource(state));
    if (options.range.linear) {
        view.x.mode = AxisMode::Linear;
        view.x = AutoscaledX(view.x, SampleFrequencies(view));
    }
    const auto range = RangeOf(options.range, {view.x.min, view.x.max});
    if (!range) return range.status();
    if (!options.range.from.empty() || !options.range.to.empty()) {
        view.x.min = range->from;
        view.x.max = range->to;
        view.x.step = StepUp125((view.x.max - view.x.min) / kSteps);
        view.x.origin = view.x.min;
    }
    if (options.autoscale) return AutoscaledToTraces(state, traces, view);
    return view;
}

/// The response with the scattered curves behind it.
Picture PictureOf(const PlotOptions& options, const ResponsePlot& plot, const Design& state) {
    Picture picture = ResponsePicture(state, plot);
    if (options.runs == 0) return picture;
    Scatter scatter;
    scatter.add(options.runs, options.tolerance.seedOrClock(), options.tolerance.tolerances());
    const auto runs = scatter.designs(state);
    AddScatter(picture, runs, plot.view, *plot.traces.front());
    if (options.envelope) {
        AddEnvelope(picture, EnvelopeOf(state, runs, plot.view, *plot.traces.front()));
    }
    return picture;
}

/// Of the user's clock, "2026-11-22".
std::string Today() {
    const std::time_t now = std::time(nullptr);
    std::tm local = {};
    std::array<char, 16> text = {};
    if (::localtime_r(&now, &local) == nullptr) return {};
    return {text.data(), std::strftime(text.data(), text.size(), "%Y-%m-%d", &local)};
}

/// What stands below the plot: markers, edges of the band, and what was drawn on which day.
std::vector<std::string> FooterOf(const ResponsePlot& plot, const DesignRun& run) {
    const TraceSource source(run.state);
    std::vector<std::string> lines = MarkerLines(source, plot.traces, plot.markers);
    const auto add = [&lines](const std::vector<std::string>& more) {
        lines.insert(lines.end(), more.begin(), more.end());
    };
    add(EdgeTexts(run.state, plot, SampledTraces(run.state, plot)));
    add(CaptionOf(run, Today()));
    return lines;
}

ExitCode Plot(const PlotOptions& options, Session& session) {
    if (!session.qt.writePicture) {
        return session.fail({ExitCode::Failed,
                             "pictures are drawn by the program kelvro-pictures, which is not "
                             "installed"});
    }
    if (options.runs == 0) {
        if (const auto wrong = RefuseGiven(options.onlyScatter, "only with --mc"))
            return session.fail(*wrong);
    }
    const auto traces = DrawnTraces(options);
    if (!traces) return session.fail(traces.status());
    const auto outcome = RunRespondingDesign(*options.design, session);
    if (!outcome) return session.fail(outcome.status());
    const DesignRun& run = *outcome;
    const Design& state = run.state;
    const auto view = ViewOf(options, *traces, state);
    if (!view) return session.fail(view.status());
    ResponsePlot plot{*traces, *view};
    plot.edges = options.edges;
    plot.dark = options.dark;
    plot.harmonics = !options.noHarmonics;
    plot.levels = !options.noLevels;
    for (const std::string& marker : options.markers) plot.markers.push_back(ParseValue(marker));
    Picture picture = PictureOf(options, plot, state);
    if (!options.noCaption) picture.footer = FooterOf(plot, run);

    picture.dpi = options.dpi;
    const Pixels size = *SizeOf(options.size);
    const Status written = session.qt.writePicture(picture, size.width, size.height, options.file);
    if (!written) return session.fail({ExitCode::Failed, written.message()});
    return ExitCode::Done;
}

}  // namespace

void AddPlotCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("plot", "Plot of a design's response as a picture file");
    auto options = std::make_shared<PlotOptions>();
    options->design = AddDesignOptions(*command, session);
    AddTraceOption(*command, options->traces,
                   "What is drawn, the first on the left axis, those of one more on the right")
        ->capture_default_str();
    AddRangeOptions(*command, options->range, false);
    command->add_flag("--autoscale", options->autoscale, "Scale the y axis to the curve");
    command->add_option("--size", options->size, "Width and height in pixels")
        ->capture_default_str()
        ->check(SizeProblem)
        ->type_name("WxH");
    command->add_option("--mc", options->runs, "Monte Carlo runs drawn behind the curve")
        ->check(CLI::Range(0, kMostDrawnRuns));
    const OptionList others = DeclaredOptions(*command);
    AddToleranceOptions(*command, options->tolerance);
    command->add_flag("--envelope", options->envelope,
                      "Within what the runs lie: all, nine tenths, median");
    options->onlyScatter = DeclaredSince(*command, others);
    command->add_option("--marker", options->markers, "Frequencies to mark, several with commas")
        ->delimiter(',')
        ->allow_extra_args(false)
        ->check(NumberProblem)
        ->type_name("NUMBER");
    command->add_flag("--edges", options->edges, "Edges of the band at -1 dB and -3 dB");
    command->add_flag("--dark", options->dark, "On a dark ground");
    command->add_flag("--no-caption", options->noCaption,
                      "Nothing below the plot; else page, inputs, parts, markers and the day");
    command->add_flag("--no-harmonics", options->noHarmonics, "No lines at the multiples of fo");
    command->add_flag("--no-levels", options->noLevels, "No lines at -1 dB and -3 dB");
    command->add_option("--dpi", options->dpi, "Dots per inch for which texts and lines are sized")
        ->capture_default_str()
        ->check(CLI::Range(24.0, 1200.0));
    command
        ->add_option("-o,--output", options->file,
                     "File to write; its ending says which format: png, svg, pdf, bmp, jpg, gif "
                     "or wmf")
        ->required()
        ->check(FileProblem)
        ->type_name("FILE");
    command->callback([&session, options] { session.status = Plot(*options, session); });
}

}  // namespace kelvro
