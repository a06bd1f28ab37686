#include "network/coverage.h"

#include <algorithm>

#include "core/number_text.h"

namespace kelvro {

namespace {

/// A chord instead of an arc shortens |Γ| by 1 - cos(15°), 3.4 %, at this angle between samples.
constexpr double kCoarseTurn = 30;  // degrees
constexpr std::size_t kMostNamed = 3;

using Data = std::shared_ptr<const PortData>;

/// Visits the data of an impedance, to read or to replace as the impedance is.
template <typename Any, typename Visit>
void ForEachDataIn(Any& impedance, const Visit& visit) {
    if (auto* measured = std::get_if<Impedance::Measured>(&impedance.is)) {
        visit(measured->data);
    } else if (auto* group = std::get_if<Impedance::Group>(&impedance.is)) {
        for (auto& member : group->members) ForEachDataIn(member, visit);
    }
}

template <typename Ladder, typename Visit>
void ForEachDataOfLadder(Ladder& ladder, const Visit& visit) {
    for (auto& element : ladder) {
        if (auto* arm = std::get_if<Arm>(&element.is)) ForEachDataIn(arm->impedance, visit);
        if (auto* two = std::get_if<MeasuredTwoPort>(&element.is)) visit(two->data);
        if (auto* branch = std::get_if<Branch>(&element.is)) {
            ForEachDataOfLadder(branch->ladder, visit);
            ForEachDataIn(branch->load, visit);
        }
    }
}

/// From source to load.
template <typename Any, typename Visit>
void ForEachDataOfNetwork(Any& network, const Visit& visit) {
    ForEachDataIn(network.source, visit);
    ForEachDataOfLadder(network.ladder, visit);
    ForEachDataIn(network.load, visit);
}

/// Keeps data in the order in which they come, each once.
auto Into(std::vector<Data>& all) {
    return [&all](const Data& found) {
        if (found && std::ranges::find(all, found) == all.end()) all.push_back(found);
    };
}

std::string Hertz(double f) {
    return FormatQuantity(3, f, "Hz");
}

}  // namespace

std::vector<Data> DataOf(const Impedance& impedance) {
    std::vector<Data> all;
    ForEachDataIn(impedance, Into(all));
    return all;
}

std::vector<Data> DataOf(const Network& network) {
    std::vector<Data> all;
    ForEachDataOfNetwork(network, Into(all));
    return all;
}

void ReplaceData(Network& network, const std::function<Data(const Data&)>& other) {
    ForEachDataOfNetwork(network, [&other](Data& data) { data = other(data); });
}

Status CheckRange(const Network& network, double low, double high) {
    for (const Data& data : DataOf(network)) {
        if (data->covers(low) && data->covers(high)) continue;
        const std::string asked = low == high ? Hertz(low) : Hertz(low) + " to " + Hertz(high);
        if (data->f.empty())
            return Status::Failure(data->name + " has no data: its file is missing");
        return Status::Failure(data->name + " covers " + Hertz(data->f.front()) + " to " +
                               Hertz(data->f.back()) + ", not " + asked);
    }
    return {};
}

std::optional<FrequencyBand> CoveredRange(const Network& network, double low, double high) {
    for (const Data& data : DataOf(network)) {
        if (data->f.empty()) return std::nullopt;
        low = std::max(low, data->f.front());
        high = std::min(high, data->f.back());
    }
    if (low > high) return std::nullopt;
    return FrequencyBand{low, high};
}

std::vector<std::string> DataWarnings(const PortData& data, double low, double high) {
    std::vector<std::string> warnings;
    if (const double turn = data.largestTurn(low, high); turn > kCoarseTurn) {
        warnings.push_back(data.name + ": neighbouring samples turn by up to " +
                           FormatFixed(0, 0, turn) +
                           "°, too coarse to be read between them (30° at most)");
    }
    for (int port = 1; port <= data.ports; ++port) {
        std::vector<double> active = data.activeSamples(port);
        std::erase_if(active, [&](double f) { return f < low || f > high; });
        if (active.empty()) continue;
        std::string text = data.name + ": |Γ| of 1 or more";
        if (data.ports == 2) text += " at port " + std::to_string(port);
        for (std::size_t i = 0; i < std::min(active.size(), kMostNamed); ++i) {
            text += (i == 0 ? " at " : ", ") + Hertz(active[i]);
        }
        if (active.size() > kMostNamed) {
            text += " and " + std::to_string(active.size() - kMostNamed) + " more";
        }
        warnings.push_back(text + ", which no passive device has");
    }
    return warnings;
}

}  // namespace kelvro
