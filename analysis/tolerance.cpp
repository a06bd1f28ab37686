#include "analysis/tolerance.h"

#include <algorithm>
#include <chrono>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

#include "analysis/response.h"
#include "core/scalar.h"
#include "design/pages.h"

namespace kelvro {

namespace {

constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();
constexpr double kSmallestFactor = 0.5;

/// Random numbers of a run by group and place in the group; further parts take those behind.
constexpr std::size_t kCapacitanceDraws[] = {0, 1, 4, 5};
constexpr std::size_t kInductanceDraws[] = {2, 3, 6, 7};
constexpr std::size_t kLineDraw = 8;
constexpr std::size_t kNamedDraws = 9;

/// A part of a network; nothing where it cannot be varied.
std::optional<TolerancePart> VariedPart(const Page& page, const Network& network,
                                        const ListedPart& part, bool dual) {
    const auto ref = PartOf(page, network, part.name, dual);
    if (!ref || GroupOf(part) == ToleranceGroup::None) return std::nullopt;
    // An input that several parts share stands for all of them.
    std::string name = ref->input ? part.name.substr(0, 1) : part.name;
    return TolerancePart{std::move(name), GroupOf(part), *ref, dual};
}

/// Tells each part its random number.
void Number(std::vector<TolerancePart>& parts) {
    std::size_t capacitances = 0;
    std::size_t inductances = 0;
    std::size_t further = kNamedDraws;
    for (TolerancePart& part : parts) {
        if (part.group == ToleranceGroup::LineImpedance) {
            part.draw = kLineDraw;
            continue;
        }
        if (part.group == ToleranceGroup::Resistance) {
            part.draw = further++;
            continue;
        }
        const bool capacitance = part.group == ToleranceGroup::Capacitance;
        const std::size_t place = capacitance ? capacitances++ : inductances++;
        const auto& draws = capacitance ? kCapacitanceDraws : kInductanceDraws;
        part.draw = place < std::size(draws) ? draws[place] : further++;
    }
}

}  // namespace

double Tolerances::of(ToleranceGroup group) const {
    switch (group) {
        case ToleranceGroup::Capacitance:
            return capacitance;
        case ToleranceGroup::Inductance:
            return inductance;
        case ToleranceGroup::LineImpedance:
            return lineImpedance;
        case ToleranceGroup::Resistance:
            return resistance;
        case ToleranceGroup::None:
            break;
    }
    return 0;
}

double ClampTolerance(double percent) {
    return Clamp(percent, kToleranceLimits.low, kToleranceLimits.high);
}

std::uint64_t ClockSeed() {
    static std::uint64_t calls = 0;  // the clock may stand still between two calls
    const auto now = std::chrono::system_clock::now().time_since_epoch();
    return static_cast<std::uint64_t>(now.count()) + (++calls << 48);
}

std::vector<TolerancePart> ToleranceParts(const Design& state) {
    const Page& page = PageOf(state);
    std::vector<TolerancePart> parts;
    for (const Network& network : page.builtNetworks(state)) {
        for (const ListedPart& listed : ListOf(network)) {
            auto part = VariedPart(page, network, listed, page.showsDuals(state));
            const auto same = [&part](const auto& other) { return other.ref == part->ref; };
            if (!part || std::ranges::any_of(parts, same)) continue;
            parts.push_back(*std::move(part));
        }
    }
    std::ranges::stable_sort(parts, {}, [](const TolerancePart& part) { return part.ref.slot; });
    Number(parts);
    std::ranges::sort(parts, {}, &TolerancePart::draw);
    return parts;
}

ToleranceRuns::ToleranceRuns(const Design& nominal, const Tolerances& tolerances,
                             std::uint64_t seed)
    : nominal_(nominal),
      varied_(nominal),
      tolerances_(tolerances),
      generator_(seed),
      parts_(ToleranceParts(nominal)),
      deviations_(parts_.size()),
      draws_(parts_.empty() ? kNamedDraws : std::max(kNamedDraws, parts_.back().draw + 1)) {}

const Design& ToleranceRuns::next() {
    for (double& draw : draws_) draw = generator_.next();
    varied_ = nominal_;
    for (std::size_t i = 0; i < parts_.size(); ++i) {
        const TolerancePart& part = parts_[i];
        const double tolerance = tolerances_.of(part.group) / 100;
        const double off = (draws_[part.draw] - 0.5) * 2 * tolerance;
        const double factor = std::max(kSmallestFactor, 1 + off);
        const double nominal = part.ref.read(nominal_);
        part.ref.write(varied_, part.dual ? nominal / factor : nominal * factor);
        deviations_[i] = off;
    }
    return varied_;
}

Spread SpreadOf(std::vector<double> values, double limit) {
    Spread spread{.count = values.size(),
                  .min = kNaN,
                  .mean = kNaN,
                  .max = kNaN,
                  .deviation = kNaN,
                  .percentile5 = kNaN,
                  .percentile95 = kNaN,
                  .yield = kNaN};
    if (values.empty()) return spread;
    const auto isGood = [limit](double x) { return std::isfinite(x) && x >= limit; };
    const auto good = std::ranges::count_if(values, isGood);
    spread.yield = static_cast<double>(good) / static_cast<double>(values.size());
    std::erase_if(values, [](double x) { return !std::isfinite(x); });
    spread.finite = values.size();
    if (values.empty()) return spread;

    std::ranges::sort(values);
    spread.min = values.front();
    spread.max = values.back();
    spread.percentile5 = PercentileOf(values, 0.05);
    spread.percentile95 = PercentileOf(values, 0.95);
    const auto count = static_cast<double>(values.size());
    double sum = 0;
    for (const double x : values) sum += x;
    spread.mean = sum / count;
    double squares = 0;
    for (const double x : values) squares += (x - spread.mean) * (x - spread.mean);
    if (values.size() > 1) spread.deviation = std::sqrt(squares / (count - 1));
    return spread;
}

double PercentileOf(std::span<const double> sorted, double part) {
    const double place = part * static_cast<double>(sorted.size() - 1);
    const auto below = static_cast<std::size_t>(place);
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return std::lerp(sorted[below], sorted[above], place - static_cast<double>(below));
}

double Correlation(std::span<const double> x, std::span<const double> y) {
    const auto usable = [&](std::size_t i) { return std::isfinite(x[i]) && std::isfinite(y[i]); };
    const std::size_t size = std::min(x.size(), y.size());
    double count = 0;
    double meanX = 0;
    double meanY = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (!usable(i)) continue;
        ++count;
        meanX += (x[i] - meanX) / count;
        meanY += (y[i] - meanY) / count;
    }
    double xx = 0;
    double yy = 0;
    double xy = 0;
    for (std::size_t i = 0; i < size; ++i) {
        if (!usable(i)) continue;
        xx += (x[i] - meanX) * (x[i] - meanX);
        yy += (y[i] - meanY) * (y[i] - meanY);
        xy += (x[i] - meanX) * (y[i] - meanY);
    }
    const double scale = std::sqrt(xx) * std::sqrt(yy);
    return scale > 0 ? std::clamp(xy / scale, -1.0, 1.0) : kNaN;
}

double BuildGain(const Response& nominal, const Design& build) {
    // A page may refer to its own gain at fo: that of the nominal design, or no build would differ.
    return Response(build).magnitudeDb(build.fo) - nominal.referenceDb();
}

double YieldLimit(const Response& nominal, const Design& design) {
    return nominal.relativeDb(design.fo) - kYieldMargin;
}

ToleranceReport AnalyseTolerance(const Design& nominal, const Tolerances& tolerances, int runs,
                                 std::uint64_t seed, std::optional<double> limitDb) {
    ToleranceReport report;
    const Response reference(nominal);
    report.nominalGain = reference.relativeDb(nominal.fo);
    report.limit = limitDb.value_or(YieldLimit(reference, nominal));
    ToleranceRuns draws(nominal, tolerances, seed);
    if (draws.parts().empty()) runs = 0;
    std::vector<double> gains;
    std::vector<std::vector<double>> deviations(draws.parts().size());
    for (int i = 0; i < runs; ++i) {
        gains.push_back(BuildGain(reference, draws.next()));
        for (std::size_t part = 0; part < deviations.size(); ++part) {
            deviations[part].push_back(draws.deviations()[part]);
        }
    }
    for (std::size_t i = 0; i < deviations.size(); ++i) {
        PartInfluence influence{draws.parts()[i], Correlation(deviations[i], gains), 0};
        for (double& deviation : deviations[i]) deviation = std::fabs(deviation);
        influence.correlationOfSize = Correlation(deviations[i], gains);
        report.parts.push_back(std::move(influence));
    }
    report.gain = SpreadOf(std::move(gains), report.limit);
    return report;
}

}  // namespace kelvro
