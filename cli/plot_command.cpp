#include <CLI/CLI.hpp>
#include <QGuiApplication>
#include <QPainter>
#include <charconv>

#include "cli/commands.h"
#include "cli/design_run.h"
#include "cli/range_options.h"
#include "cli/tolerance_options.h"
#include "core/rounding.h"
#include "plot/frame_painter.h"
#include "plot/picture_files.h"
#include "plot/response_picture.h"

namespace kelvro {

namespace {

constexpr int kMostRuns = 10'000;
constexpr int kSmallestSide = 100;
constexpr int kLargestSide = 10'000;
/// As in the window: a range that is set by hand has fifty steps.
constexpr int kSteps = 50;

struct PlotOptions {
    std::shared_ptr<DesignOptions> design;
    std::string quantity = "gt";
    RangeOptions range;
    bool autoscale = false;
    std::string size = "768x576";
    ToleranceOptions tolerance;
    int runs = 0;
    std::string file;
};

/// Fonts need a running Qt, but no display. Its remarks on the surroundings are none of the user's.
class OffscreenQt {
  public:
    OffscreenQt() {
        if (QCoreApplication::instance()) return;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        application_.emplace(count_, arguments_);
    }

  private:
    char name_[11] = "kelvro-cli";
    char option_[10] = "-platform";
    char platform_[10] = "offscreen";
    char* arguments_[4] = {name_, option_, platform_, nullptr};
    int count_ = 3;
    std::optional<QGuiApplication> application_;
};

/// "WIDTHxHEIGHT" in pixels.
std::optional<QSize> SizeOf(const std::string& text) {
    const auto number = [](std::string_view digits) {
        int value = 0;
        const char* end = digits.data() + digits.size();
        const auto [last, error] = std::from_chars(digits.data(), end, value);
        const bool whole = error == std::errc() && last == end;
        return whole && value >= kSmallestSide && value <= kLargestSide ? value : 0;
    };
    const auto cross = text.find_first_of("xX");
    if (cross == std::string::npos) return {};
    const QSize size(number(std::string_view(text).substr(0, cross)),
                     number(std::string_view(text).substr(cross + 1)));
    return size.isEmpty() ? std::nullopt : std::optional(size);
}

std::string SizeProblem(const std::string& text) {
    return SizeOf(text) ? "" : "'" + text + "' is no size such as 768x576, 100 to 10000 a side";
}

std::optional<Quantity> QuantityOf(std::string_view text) {
    if (text == "v") return Quantity::VoltageGain;
    if (text == "gt") return Quantity::PowerGain;
    if (text == "phi") return Quantity::Phase;
    return {};
}

std::string QuantityProblem(const std::string& text) {
    return QuantityOf(text) ? "" : "'" + text + "' is no quantity; v, gt or phi";
}

std::string FileProblem(const std::string& text) {
    if (PictureFormatOf(QString::fromLocal8Bit(text.c_str()))) return "";
    return "'" + text + "' does not end in ." + PictureSuffixes().join(", .").toStdString();
}

/// The view with which the window opens, its axes as the options say.
std::variant<View, Problem> ViewOf(const PlotOptions& options, Quantity quantity,
                                   const Design& state) {
    View view = DefaultView(quantity, state.fo);
    if (options.range.linear) {
        view.x.mode = AxisMode::Linear;
        view.x = AutoscaledX(view.x, SampleFrequencies(view));
    }
    const auto range = RangeOf(options.range, {view.x.min, view.x.max});
    if (const auto* problem = std::get_if<Problem>(&range)) return *problem;
    if (!options.range.from.empty() || !options.range.to.empty()) {
        view.x.min = std::get<FrequencyRange>(range).from;
        view.x.max = std::get<FrequencyRange>(range).to;
        view.x.step = StepUp125((view.x.max - view.x.min) / kSteps);
        view.x.origin = view.x.min;
    }
    if (options.autoscale) {
        view.y = AutoscaledToSamples(view.y, Sampled(state, view, quantity));
    }
    return view;
}

/// The response with the scattered curves behind it.
Picture PictureOf(const PlotOptions& options, Quantity quantity, const Design& state,
                  const View& view) {
    Picture picture = ResponsePicture(state, view, quantity, CurveLook::Line);
    if (options.runs == 0) return picture;
    ToleranceRuns runs(state, options.tolerance.tolerances(), options.tolerance.seedOrClock());
    std::vector<Curve> curves;
    curves.reserve(static_cast<std::size_t>(options.runs));
    for (int i = 0; i < options.runs; ++i) {
        curves.push_back(ScatterCurve(Sampled(runs.next(), view, quantity)));
    }
    picture.legend.push_back({"Monte Carlo, " + std::to_string(options.runs) +
                                  (options.runs == 1 ? " run :" : " runs :"),
                              curves.front().colour});
    picture.curves.insert(picture.curves.begin(), curves.begin(), curves.end());
    return picture;
}

ExitCode Plot(const PlotOptions& options, Session& session) {
    const auto outcome = RunRespondingDesign(*options.design, session);
    if (const auto* problem = std::get_if<Problem>(&outcome)) return session.fail(*problem);
    const Design& state = std::get<DesignRun>(outcome).state;
    const Quantity quantity = *QuantityOf(options.quantity);
    const auto view = ViewOf(options, quantity, state);
    if (const auto* problem = std::get_if<Problem>(&view)) return session.fail(*problem);
    const Picture picture = PictureOf(options, quantity, state, std::get<View>(view));

    const OffscreenQt qt;
    const auto drawing = [&picture](QPainter& painter, QSize size) {
        FramePainter().draw(painter, size, picture);
    };
    const QString path = QString::fromLocal8Bit(options.file.c_str());
    const auto failure = SavePicture(path, *PictureFormatOf(path), *SizeOf(options.size), drawing);
    if (failure) return session.fail({ExitCode::Failed, failure->toStdString()});
    return ExitCode::Done;
}

}  // namespace

void AddPlotCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand("plot", "Plot of a design's response as a picture file");
    auto options = std::make_shared<PlotOptions>();
    options->design = AddDesignOptions(*command);
    command
        ->add_option("--quantity", options->quantity,
                     "Voltage gain V(f), power gain GT(f) or phase phi(f)")
        ->capture_default_str()
        ->check(QuantityProblem)
        ->type_name("v|gt|phi");
    AddRangeOptions(*command, options->range, false);
    command->add_flag("--autoscale", options->autoscale, "Scale the y axis to the curve");
    command->add_option("--size", options->size, "Width and height in pixels")
        ->capture_default_str()
        ->check(SizeProblem)
        ->type_name("WxH");
    command->add_option("--mc", options->runs, "Monte Carlo runs drawn behind the curve")
        ->check(CLI::Range(0, kMostRuns));
    AddToleranceOptions(*command, options->tolerance);
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
