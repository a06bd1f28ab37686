#include "ui/workbench/network_model.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvro {

namespace {

constexpr double kUsualFrequency = 100e6;
constexpr int kBandPoints = 41;
constexpr double kUsualHalfWidth = 0.05;  // of a band around the design frequency

constexpr std::array<Rgb, 6> kSnapshotColours = {
    {{200, 60, 0}, {0, 130, 60}, {150, 0, 150}, {140, 100, 0}, {0, 130, 150}, {190, 0, 80}}};

}  // namespace

NetworkModel::NetworkModel(QObject* parent)
    : QObject(parent), history_(StartNetwork()), saved_(StartNetwork()) {}

void NetworkModel::edit(const QString& name, const std::function<void(Network&)>& change,
                        const QString& key) {
    Network next = network();
    change(next);
    if (next == network()) return;
    const std::size_t before = network().ladder.size();
    history_.edit(std::move(next), name.toStdString(), key.toStdString());
    forgetLost(before);
    emit changed();
}

void NetworkModel::setValue(const Tunable& at, double value) {
    const QString name = QString::fromStdString(NameOf(network().ladder, at));
    const QString key = drag_ ? QStringLiteral("drag %1").arg(drags_)
                              : QStringLiteral("%1 %2 %3")
                                    .arg(at.element)
                                    .arg(at.part)
                                    .arg(static_cast<int>(at.quantity));
    edit(
        drag_ ? drag_->name : name, [&](Network& next) { SetValue(next.ladder, at, value); }, key);
}

void NetworkModel::take(const QString& name, Network network) {
    edit(name, [&](Network& next) { next = std::move(network); });
}

void NetworkModel::forgetLost(std::size_t before) {
    const auto& ladder = network().ladder;
    const auto all = TunablesOf(ladder);
    const bool sameSize = ladder.size() == before;
    const auto lost = [&](const Tunable& at) {
        return !sameSize || std::ranges::find(all, at) == all.end();
    };
    std::erase_if(locked_, lost);
    if (selected_ && lost(*selected_)) selected_.reset();
}

void NetworkModel::open(Network network, std::vector<Snapshot> snapshots) {
    history_.reset(network);
    saved_ = std::move(network);
    setSnapshots(std::move(snapshots));
    savedSnapshots_ = snapshots_;
    ghost_.reset();
    locked_.clear();
    selected_.reset();
    drag_.reset();
    emit snapshotsChanged();
    emit changed();
}

void NetworkModel::beginDrag(const QString& name) {
    history_.close();
    ++drags_;
    drag_ = Drag{name, network(), locked_};
}

void NetworkModel::preview(Network network) {
    if (!drag_) return;
    edit(
        drag_->name, [&](Network& next) { next = std::move(network); },
        QStringLiteral("drag %1").arg(drags_));
}

void NetworkModel::endDrag(bool keep) {
    if (!drag_) return;
    const Drag drag = *drag_;
    // The moves so far and the way back are one step, which then is none.
    if (!keep) {
        edit(
            drag.name, [&](Network& next) { next = drag.before; },
            QStringLiteral("drag %1").arg(drags_));
        locked_ = drag.locked;
    }
    drag_.reset();
    history_.close();
    emit changed();
}

void NetworkModel::undo() {
    const std::size_t before = network().ladder.size();
    if (!history_.undo()) return;
    forgetLost(before);
    emit changed();
}

void NetworkModel::redo() {
    const std::size_t before = network().ladder.size();
    if (!history_.redo()) return;
    forgetLost(before);
    emit changed();
}

void NetworkModel::markSaved() {
    saved_ = network();
    savedSnapshots_ = snapshots_;
}

void NetworkModel::addSnapshot(const QString& name) {
    const Rgb colour =
        kSnapshotColours[static_cast<std::size_t>(taken_++) % kSnapshotColours.size()];
    snapshots_.push_back({name, network(), colour, true});
    emit snapshotsChanged();
}

void NetworkModel::setSnapshots(std::vector<Snapshot> snapshots) {
    snapshots_ = std::move(snapshots);
    taken_ = static_cast<int>(snapshots_.size());
    for (std::size_t i = 0; i < snapshots_.size(); ++i)
        snapshots_[i].colour = kSnapshotColours[i % kSnapshotColours.size()];
}

void NetworkModel::removeSnapshot(std::size_t index) {
    if (index >= snapshots_.size()) return;
    snapshots_.erase(snapshots_.begin() + static_cast<std::ptrdiff_t>(index));
    emit snapshotsChanged();
}

void NetworkModel::showSnapshot(std::size_t index, bool shown) {
    if (index >= snapshots_.size() || snapshots_[index].shown == shown) return;
    snapshots_[index].shown = shown;
    emit snapshotsChanged();
}

void NetworkModel::renameSnapshot(std::size_t index, const QString& name) {
    if (index >= snapshots_.size() || snapshots_[index].name == name) return;
    snapshots_[index].name = name;
    emit snapshotsChanged();
}

void NetworkModel::freeze() {
    ghost_ = network();
    emit changed();
}

void NetworkModel::unfreeze() {
    ghost_.reset();
    emit changed();
}

bool NetworkModel::locked(const Tunable& at) const {
    return std::ranges::find(locked_, at) != locked_.end();
}

void NetworkModel::setLocked(const Tunable& at, bool on) {
    std::erase(locked_, at);
    if (on) locked_.push_back(at);
    emit changed();
}

void NetworkModel::select(std::optional<Tunable> at) {
    if (at == selected_) return;
    selected_ = at;
    emit selectionChanged();
}

double NetworkModel::designFrequency() const {
    const Network& present = network();
    if (present.designFrequency > 0) return present.designFrequency;
    if (present.bands.empty()) return kUsualFrequency;
    return std::sqrt(present.bands.front().low * present.bands.back().high);
}

Network NetworkModel::problem() const {
    Network problem = network();
    const double f = designFrequency();
    problem.designFrequency = f;
    if (problem.bands.empty()) {
        problem.bands = {{f * (1 - kUsualHalfWidth), f * (1 + kUsualHalfWidth)}};
    }
    return problem;
}

FrequencyBand NetworkModel::plotRange() const {
    const auto& bands = network().bands;
    const double f = designFrequency();
    if (bands.empty()) return {f / std::sqrt(10.0), f * std::sqrt(10.0)};
    double low = bands.front().low;
    double high = bands.front().high;
    for (const FrequencyBand& band : bands) {
        low = std::min(low, band.low);
        high = std::max(high, band.high);
    }
    const double margin = (high - low) / 2;
    return {std::max(low - margin, low / 10), high + margin};
}

std::optional<double> NetworkModel::WorstGainDb(const Network& network) {
    double worst = std::numeric_limits<double>::infinity();
    const LadderResponse response(network);
    for (const FrequencyBand& band : network.bands) {
        for (int i = 0; i < kBandPoints; ++i) {
            const double f = std::lerp(band.low, band.high, i / double{kBandPoints - 1});
            const double gain = response.GT(f);
            if (std::isnan(gain)) return std::nullopt;
            worst = std::min(worst, gain);
        }
    }
    if (!std::isfinite(worst)) return std::nullopt;
    return 10 * std::log10(std::max(worst, 1e-30));
}

Network StartNetwork() {
    Network network;
    network.source = 50.0;
    network.load = 50.0;
    network.designFrequency = kUsualFrequency;
    return network;
}

}  // namespace kelvro
