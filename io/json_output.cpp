#include "io/json_output.h"

#include <cmath>

#include "design/cycle.h"

namespace kelvro {

Json JsonNumber(double value) {
    if (std::isnan(value)) return nullptr;
    if (std::isinf(value)) return value > 0 ? "infinite" : "-infinite";
    return value;
}

Json JsonBandwidth(double bandwidth) {
    return bandwidth >= kInfiniteBandwidth ? Json("infinite") : JsonNumber(bandwidth);
}

std::string JsonText(const Json& document) {
    return document.dump(2, ' ', false, Json::error_handler_t::replace) + '\n';
}

}  // namespace kelvro
