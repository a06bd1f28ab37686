#include "optimize/page_optimizer.h"

namespace kelvro {

CallCounts PageOptimization::calls() const {
    CallCounts sum;
    for (const Summary& run : runs) sum += run.calls;
    return sum;
}

int PageOptimization::iterations() const {
    int sum = 0;
    for (const Summary& run : runs) sum += run.iterations;
    return sum;
}

}  // namespace kelvro
