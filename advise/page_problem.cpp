#include "advise/page_problem.h"

#include <cmath>
#include <string>
#include <string_view>

#include "core/exact_number.h"
#include "design/opened_network.h"
#include "design/pages.h"

namespace kelvro {

namespace {

/// With six digits, as an edge of a band is typed; the narrowest bands of pages need them.
double AsTyped(double f) {
    const std::string text = FormatPrefixed(f, 6);
    const auto number = ReadExactNumber(text);
    const auto prefix = ReadPrefix(std::string_view(text).substr(number->length));
    return ReadExactNumber(text, prefix ? prefix->exponent : 0)->value;
}

}  // namespace

Result<Network> PageProblem(const Design& design) {
    const Page& page = PageOf(design);
    if (page.suggestion.role != Role::Match) {
        return Status::Failure(std::string(page.caption) +
                               " matches no load to a source: there is nothing to search for.");
    }
    Network problem;
    problem.source = design.R1;
    problem.load = design.R2;
    if (const auto opened = OpenedNetwork(design)) problem.ladder = opened->ladder;
    problem.designFrequency = design.fo;
    problem.bands = {WorstGainBand(design).value_or(BandAround(design.fo, design.fo / design.Q))};
    return problem;
}

SearchLosses LossesOf(const Design& design) {
    using Law = PartLoss::Law;
    return {.inductor = {.law = Law::ConstantQ, .Q = design.QB},
            .capacitor = {.law = Law::ConstantQ, .Q = design.QBC}};
}

FrequencyBand BandAround(double fo, double width) {
    // high - low = width and low·high = fo², for the widest too.
    const double half = width / 2;
    const double middle = std::hypot(fo, half);
    return {AsTyped(fo * fo / (middle + half)), AsTyped(middle + half)};
}

}  // namespace kelvro
