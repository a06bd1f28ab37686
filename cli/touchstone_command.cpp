// What a file of measured data holds, and what a two-port in it is as a device.

#include <CLI/CLI.hpp>
#include <cmath>

#include "cli/commands.h"
#include "cli/design_options.h"
#include "cli/given_options.h"
#include "core/number_text.h"
#include "core/scalar.h"
#include "io/json_output.h"
#include "io/text_table.h"
#include "io/touchstone.h"
#include "network/coverage.h"
#include "network/device.h"

namespace kelvro {

namespace {

using Cx = std::complex<double>;

struct TouchstoneOptions {
    std::string file;
    std::string at;
    std::string gain;
    bool json = false;
    OptionList ofDevices;  ///< what is told of two-ports alone
};

/// Rows of the table of a device, unless one frequency was asked for.
constexpr std::size_t kMostRows = 21;

double Decibel(double ratio) {
    return 10 * std::log10(ratio);
}

std::string Hertz(double f) {
    return FormatQuantity(3, f, "Hz");
}

std::string PolarText(Cx gamma) {
    return FormatFixed(0, 4, std::abs(gamma)) + "∠" +
           FormatFixed(0, 2, std::arg(gamma) * kDegreesPerRadian) + "°";
}

/// The device at the frequencies that are shown.
struct DevicePoint {
    double f;
    Matrix2 s;
};

std::vector<DevicePoint> PointsOf(const PortData& data, std::optional<double> at) {
    if (data.ports != 2) return {};
    if (at) return {{*at, {*data.at(*at)}}};
    std::vector<DevicePoint> points;
    for (std::size_t i = 0; i < data.f.size(); ++i) points.push_back({data.f[i], {data.s[i]}});
    return points;
}

// ---------------------------------------------------------------- JSON

Json JsonComplex(Cx z) {
    return {JsonNumber(z.real()), JsonNumber(z.imag())};
}

Json JsonCircle(const ReflectionCircle& circle) {
    return {{"centre", JsonComplex(circle.centre)}, {"radius", JsonNumber(circle.radius)}};
}

Json JsonStability(const Matrix2& s, DeviceSide side) {
    const StabilityCircle circle = StabilityCircleOf(s, side);
    Json document = JsonCircle(circle);
    document["stable_inside"] = circle.stableInside;
    return document;
}

Json JsonGain(const Matrix2& s, DeviceSide side, double gainDb) {
    const auto circle = GainCircleOf(s, side, std::pow(10.0, gainDb / 10));
    return circle ? JsonCircle(*circle) : Json(nullptr);
}

Json JsonDevice(const DevicePoint& point, const TouchstoneOptions& options) {
    const DeviceFigures device = DeviceFiguresOf(point.s);
    Json document = {{"f", point.f},
                     {"k", JsonNumber(device.K)},
                     {"mu", JsonNumber(device.mu)},
                     {"mu_prime", JsonNumber(device.muPrime)},
                     {"determinant", JsonNumber(device.determinant)},
                     {"unconditional", device.unconditional},
                     {"available_gain_db", JsonNumber(Decibel(device.availableGain))},
                     {"match", nullptr},
                     {"stability_source", JsonStability(point.s, DeviceSide::Source)},
                     {"stability_load", JsonStability(point.s, DeviceSide::Load)}};
    if (device.match) {
        document["match"] = {{"source", JsonComplex(device.match->source)},
                             {"load", JsonComplex(device.match->load)},
                             {"gain_db", JsonNumber(Decibel(device.match->gain))}};
    }
    if (!options.gain.empty()) {
        const double gainDb = ParseValue(options.gain);
        document["gain_db"] = gainDb;
        document["available_gain_circle"] = JsonGain(point.s, DeviceSide::Source, gainDb);
        document["operating_gain_circle"] = JsonGain(point.s, DeviceSide::Load, gainDb);
    }
    return document;
}

Json JsonFile(const TouchstoneContent& content, const std::vector<std::string>& warnings,
              const TouchstoneOptions& options, std::optional<double> at) {
    const PortData& data = content.data;
    Json document = {{"file", data.name},
                     {"ports", data.ports},
                     {"version", content.version},
                     {"parameter", std::string(1, content.parameter)},
                     {"format", content.format},
                     {"unit", content.unit},
                     {"points", data.f.size()},
                     {"from", data.f.front()},
                     {"to", data.f.back()},
                     {"reference", Json::array()},
                     {"noise", content.noise},
                     {"largest_turn_deg", data.largestTurn(data.f.front(), data.f.back())},
                     {"active", Json::array()},
                     {"warnings", warnings},
                     {"comments", content.comments}};
    for (int port = 1; port <= data.ports; ++port) {
        document["reference"].push_back(data.reference[static_cast<std::size_t>(port - 1)]);
        document["active"].push_back(data.activeSamples(port));
    }
    if (data.ports == 2) {
        document["device"] = Json::array();
        for (const DevicePoint& point : PointsOf(data, at)) {
            document["device"].push_back(JsonDevice(point, options));
        }
    }
    return document;
}

// ---------------------------------------------------------------- for people

std::string HumanFile(const TouchstoneContent& content, const std::vector<std::string>& warnings) {
    const PortData& data = content.data;
    const bool unlike = data.ports == 2 && data.reference[0] != data.reference[1];
    TextRows rows = {
        {"file", data.name},
        {"ports", std::to_string(data.ports)},
        {"written as", "version " + std::to_string(content.version) + ", " + content.parameter +
                           " parameters, " + content.format + ", " + content.unit},
        {"range", Hertz(data.f.front()) + " to " + Hertz(data.f.back())},
        {"points", std::to_string(data.f.size())},
        {"reference", FormatQuantity(2, data.reference[0], "Ω") +
                          (unlike ? ", " + FormatQuantity(2, data.reference[1], "Ω") : "")},
        {"largest turn", FormatFixed(0, 1, data.largestTurn(data.f.front(), data.f.back())) +
                             "° between neighbouring samples"}};
    if (content.noise) rows.push_back({"noise data", "yes, not read"});
    for (const std::string& comment : content.comments) rows.push_back({"comment", comment});
    for (const std::string& warning : warnings) rows.push_back({"warning", warning});
    return AlignedTable(rows);
}

TextRows DeviceTable(const std::vector<DevicePoint>& points) {
    TextRows rows = {{"f", "K", "µ", "MAG/MSG dB", "match: source", "load", "dB"}};
    const std::size_t step = (points.size() + kMostRows - 1) / kMostRows;
    for (std::size_t i = 0; i < points.size(); i += step) {
        const DeviceFigures device = DeviceFiguresOf(points[i].s);
        rows.push_back({Hertz(points[i].f), FormatFixed(0, 5, device.K),
                        FormatFixed(0, 5, device.mu),
                        FormatFixed(0, 3, Decibel(device.availableGain))});
        if (!device.match) {
            rows.back().insert(rows.back().end(), {"none, potentially unstable"});
            continue;
        }
        rows.back().insert(rows.back().end(),
                           {PolarText(device.match->source), PolarText(device.match->load),
                            FormatFixed(0, 3, Decibel(device.match->gain))});
    }
    return rows;
}

std::vector<std::string> CircleRow(const std::string& name, const ReflectionCircle& circle,
                                   const std::string& remark) {
    return {name, "centre " + PolarText(circle.centre),
            "radius " + FormatFixed(0, 4, circle.radius), remark};
}

/// Circles at one frequency: stability, and the gain asked for.
TextRows CircleTable(const Matrix2& s, const TouchstoneOptions& options) {
    TextRows rows;
    for (const DeviceSide side : {DeviceSide::Source, DeviceSide::Load}) {
        const bool source = side == DeviceSide::Source;
        const StabilityCircle edge = StabilityCircleOf(s, side);
        rows.push_back(CircleRow(source ? "stability, source" : "stability, load", edge,
                                 edge.stableInside ? "stable inside" : "stable outside"));
        if (options.gain.empty()) continue;
        const double gainDb = ParseValue(options.gain);
        const auto circle = GainCircleOf(s, side, std::pow(10.0, gainDb / 10));
        const std::string name = std::string(source ? "Ga" : "Gp") + " = " +
                                 FormatFixed(0, 2, gainDb) + " dB, " + (source ? "source" : "load");
        rows.push_back(circle ? CircleRow(name, *circle, "")
                              : std::vector<std::string>{name, "no such circle"});
    }
    return rows;
}

std::string HumanDevice(const PortData& data, const TouchstoneOptions& options,
                        std::optional<double> at) {
    const auto points = PointsOf(data, at);
    std::string text = '\n' + AlignedTable(DeviceTable(points));
    if (at) text += '\n' + AlignedTable(CircleTable(points.front().s, options));
    return text;
}

ExitCode ReportTouchstone(const TouchstoneOptions& options, Session& session) {
    const auto read = ReadTouchstone(options.file, options.file);
    if (!read.ok()) return session.fail({ExitCode::Failed, read.message()});
    const PortData& data = read->data;
    if (data.ports != 2) {
        if (const auto wrong = RefuseGiven(options.ofDevices, data.name + " is no two-port"))
            return session.fail(*wrong);
    }
    if (options.at.empty() && !options.json && !options.gain.empty())
        return session.fail({ExitCode::Usage, "--gain: only with --at or --json"});
    const auto at = options.at.empty() ? std::nullopt : std::optional(ParseValue(options.at));
    if (at && !data.covers(*at)) {
        return session.fail({ExitCode::Refused, data.name + " covers " + Hertz(data.f.front()) +
                                                    " to " + Hertz(data.f.back()) + ", not " +
                                                    Hertz(*at)});
    }
    auto warnings = read->warnings;
    std::ranges::move(DataWarnings(data, data.f.front(), data.f.back()),
                      std::back_inserter(warnings));
    if (options.json) {
        session.out << JsonText(JsonFile(*read, warnings, options, at));
        return ExitCode::Done;
    }
    session.out << HumanFile(*read, warnings);
    if (data.ports == 2) session.out << HumanDevice(data, options, at);
    return ExitCode::Done;
}

}  // namespace

void AddTouchstoneCommand(CLI::App& app, Session& session) {
    CLI::App* command = app.add_subcommand(
        "touchstone",
        "What is in a file of measured data; of two-ports stability, gains and the "
        "simultaneous match");
    auto options = std::make_shared<TouchstoneOptions>();
    command->add_option("FILE", options->file, "A Touchstone file, .s1p or .s2p")
        ->required()
        ->type_name("");
    const OptionList ofAll = DeclaredOptions(*command);
    command->add_option("--at", options->at, "One frequency (Hz), with the circles there")
        ->check(PositiveNumberProblem)
        ->type_name("NUMBER");
    command
        ->add_option("--gain", options->gain,
                     "Circles of this available and operating power gain (dB), with --at or --json")
        ->check(NumberProblem)
        ->type_name("NUMBER");
    options->ofDevices = DeclaredSince(*command, ofAll);
    command->add_flag("--json", options->json, "Write JSON");
    command->callback(
        [&session, options] { session.status = ReportTouchstone(*options, session); });
}

}  // namespace kelvro
