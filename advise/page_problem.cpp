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
    // high - low = fo/Q and low·high = fo², for the lowest Q too.
    const double half = 1 / (2 * design.Q);
    const double root = std::sqrt(1 + half * half);
    problem.bands = {{design.fo * (root - half), design.fo * (root + half)}};
    return problem;
}

}  // namespace kelvro
