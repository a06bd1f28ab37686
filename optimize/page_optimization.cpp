#include "optimize/page_optimizer.h"

namespace kelvro {

const Summary& PageOptimization::bestRun() const {
    return runs.size() > 1 && runs[1].f <= runs[0].f ? runs[1] : runs[0];
}

int PageOptimization::iterations() const {
    int sum = 0;
    for (const Summary& run : runs) sum += run.iterations;
    return sum;
}

}  // namespace kelvro
