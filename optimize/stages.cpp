#include "optimize/stages.h"

#include <numeric>

namespace kelvro {

bool Stage::has(PartKind part) const {
    const bool pair = kind == StageKind::LC || kind == StageKind::Trap;
    return pair || (part == PartKind::Inductor && kind == StageKind::L) ||
           (part == PartKind::Capacitor && kind == StageKind::C);
}

int Stage::parts() const {
    return kind == StageKind::LC || kind == StageKind::Trap ? 2 : 1;
}

std::size_t Stage::parameters() const {
    switch (kind) {
        case StageKind::L:
        case StageKind::C:
        case StageKind::Transformer:
            return 1;
        default:
            return 2;
    }
}

int PartsIn(const Stages& topology) {
    return std::accumulate(topology.begin(), topology.end(), 0,
                           [](int sum, const Stage& stage) { return sum + stage.parts(); });
}

std::size_t ParametersOf(const Stages& topology) {
    return std::accumulate(
        topology.begin(), topology.end(), std::size_t{0},
        [](std::size_t sum, const Stage& stage) { return sum + stage.parameters(); });
}

}  // namespace kelvro
