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

/// Does an address of the ladder before point at the same number of the one behind?
bool Stays(const Tunable& at, const Network& before, const Network& behind) {
    if (before.ladder.size() != behind.ladder.size()) return false;
    const auto all = TunablesOf(behind.ladder);
    return std::ranges::find(all, at) != all.end();
}

}  // namespace

NetworkModel::NetworkModel(QObject* parent)
    : QObject(parent), history_({StartNetwork()}), saved_(history_.present()) {}

void NetworkModel::edit(const QString& name, const std::function<void(Network&)>& change,
                        const QString& key) {
    this->change(
        name,
        [&](NetworkDocument& next) {
            change(next.network);
            std::erase_if(next.locked,
                          [&](const Tunable& at) { return !Stays(at, network(), next.network); });
        },
        key);
}

void NetworkModel::change(const QString& name, const Change& change, const QString& key) {
    const NetworkDocument before = history_.present();
    NetworkDocument next = before;
    change(next);
    if (next == before) return;
    history_.edit(std::move(next), name.toStdString(), key.toStdString());
    tell(before);
}

void NetworkModel::tell(const NetworkDocument& before) {
    if (selected_ && !Stays(*selected_, before.network, network())) selected_.reset();
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

std::vector<PlacedElement> NetworkModel::placed() const {
    std::vector<PlacedElement> all;
    all.reserve(network().ladder.size());
    for (const LadderElement& element : network().ladder) all.push_back({element, all.size()});
    return all;
}

void NetworkModel::arrange(const QString& name, const std::vector<PlacedElement>& ladder) {
    const auto followed = [&](const Tunable& at) -> std::optional<Tunable> {
        const auto to = std::ranges::find(ladder, std::optional(at.element), &PlacedElement::was);
        if (to == ladder.end()) return std::nullopt;
        return Tunable{static_cast<std::size_t>(to - ladder.begin()), at.part, at.quantity};
    };
    const auto selected = selected_ ? followed(*selected_) : std::nullopt;
    change(name, [&](NetworkDocument& next) {
        next.network.ladder.clear();
        for (const PlacedElement& placed : ladder) next.network.ladder.push_back(placed.element);
        std::vector<Tunable> locked;
        for (const Tunable& at : next.locked)
            if (const auto to = followed(at)) locked.push_back(*to);
        next.locked = std::move(locked);
    });
    select(selected);
}

void NetworkModel::take(const QString& name, Network network) {
    edit(name, [&](Network& next) { next = std::move(network); });
}

void NetworkModel::open(NetworkDocument document) {
    taken_ = static_cast<int>(document.snapshots.size());
    for (std::size_t i = 0; i < document.snapshots.size(); ++i)
        document.snapshots[i].colour = kSnapshotColours[i % kSnapshotColours.size()];
    history_.reset(std::move(document));
    markSaved();
    selected_.reset();
    drag_.reset();
    emit changed();
}

void NetworkModel::beginDrag(const QString& name) {
    history_.close();
    ++drags_;
    drag_ = Drag{name, history_.present()};
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
        change(
            drag.name, [&](NetworkDocument& next) { next = drag.before; },
            QStringLiteral("drag %1").arg(drags_));
    }
    drag_.reset();
    history_.close();
    emit changed();
}

void NetworkModel::undo() {
    moveTo(&History<NetworkDocument>::undo);
}

void NetworkModel::redo() {
    moveTo(&History<NetworkDocument>::redo);
}

void NetworkModel::moveTo(bool (History<NetworkDocument>::*move)()) {
    const NetworkDocument before = history_.present();
    if ((history_.*move)()) tell(before);
}

void NetworkModel::markSaved() {
    saved_ = history_.present();
}

void NetworkModel::addMarker(double f) {
    ++marked_;
    change(
        tr("Add marker"), [=](NetworkDocument& next) { next.markers.push_back(f); },
        QStringLiteral("marker %1").arg(marked_));
}

void NetworkModel::removeMarkers(const std::function<bool(double)>& is, bool addedNow) {
    change(
        tr("Remove marker"), [&](NetworkDocument& next) { std::erase_if(next.markers, is); },
        addedNow ? QStringLiteral("marker %1").arg(marked_) : QString());
}

void NetworkModel::addSnapshot(const QString& name) {
    const Rgb colour =
        kSnapshotColours[static_cast<std::size_t>(taken_++) % kSnapshotColours.size()];
    change(tr("Snapshot %1").arg(name), [&](NetworkDocument& next) {
        next.snapshots.push_back({name, network(), colour, true});
    });
}

void NetworkModel::changeSnapshot(
    const QString& name, std::size_t index,
    const std::function<void(std::vector<Snapshot>&, std::size_t)>& change) {
    if (index >= snapshots().size()) return;
    this->change(name.arg(snapshots()[index].name),
                 [&](NetworkDocument& next) { change(next.snapshots, index); });
}

void NetworkModel::removeSnapshot(std::size_t index) {
    changeSnapshot(tr("Delete %1"), index, [](std::vector<Snapshot>& all, std::size_t at) {
        all.erase(all.begin() + static_cast<std::ptrdiff_t>(at));
    });
}

void NetworkModel::showSnapshot(std::size_t index, bool shown) {
    changeSnapshot(shown ? tr("Show %1") : tr("Hide %1"), index,
                   [=](std::vector<Snapshot>& all, std::size_t at) { all[at].shown = shown; });
}

void NetworkModel::renameSnapshot(std::size_t index, const QString& name) {
    changeSnapshot(tr("Rename %1"), index,
                   [&](std::vector<Snapshot>& all, std::size_t at) { all[at].name = name; });
}

void NetworkModel::freeze() {
    change(tr("Freeze as ghost"), [this](NetworkDocument& next) { next.ghost = network(); });
}

void NetworkModel::unfreeze() {
    change(tr("Remove ghost"), [](NetworkDocument& next) { next.ghost.reset(); });
}

bool NetworkModel::locked(const Tunable& at) const {
    const auto& all = history_.present().locked;
    return std::ranges::find(all, at) != all.end();
}

void NetworkModel::setLocked(const Tunable& at, bool on) {
    const QString name = QString::fromStdString(NameOf(network().ladder, at));
    change((on ? tr("Lock %1") : tr("Unlock %1")).arg(name), [&](NetworkDocument& next) {
        std::erase(next.locked, at);
        if (on) next.locked.push_back(at);
    });
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
