#include "advise/page_problem.h"

#include <cmath>
#include <string>

#include "design/opened_network.h"
#include "design/pages.h"

namespace kelvro {

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
    problem.bands = {BandAround(design.fo, design.fo / design.Q)};
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
    return {fo * fo / (middle + half), middle + half};
}

}  // namespace kelvro
