#pragma once

#include <QObject>
#include <QString>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "core/history.h"
#include "core/series.h"
#include "network/ladder_response.h"
#include "network/network.h"
#include "network/tunable.h"
#include "plot/picture.h"

namespace kelvro {

/// A named variant beside the present network, kept to compare with.
struct Snapshot {
    QString name;
    Network network;
    Rgb colour;
    bool shown = true;
    bool operator==(const Snapshot&) const = default;
};

/// Measured data that a project names by their file, by name; all others are stored in it.
using DataLinks = std::map<std::string, std::filesystem::path>;

/// What undo brings back: the network and what belongs to it.
struct NetworkDocument {
    Network network;
    std::vector<Snapshot> snapshots = {};
    std::optional<Network> ghost = {};
    std::vector<Tunable> locked = {};
    std::vector<double> markers = {};  ///< Hz, in plots and chart, by their numbers
    DataLinks links = {};
    bool operator==(const NetworkDocument&) const = default;
};

/// An element of a ladder put together anew, and where it has stood; nothing for one that is new.
struct PlacedElement {
    LadderElement element;
    std::optional<std::size_t> was = {};
};

/// The network that the Network window shows, and the one door through which it changes. Every view
/// of the window reads it from here and nowhere else.
class NetworkModel : public QObject {
    Q_OBJECT

  public:
    explicit NetworkModel(QObject* parent = nullptr);

    const Network& network() const { return history_.present().network; }

    /// Replaces the network by a changed copy. `name` stands in Edit > Undo; changes of one key
    /// that follow each other are one step.
    void edit(const QString& name, const std::function<void(Network&)>& change,
              const QString& key = {});
    /// One number of the ladder; within a drag all moves are one step.
    void setValue(const Tunable& at, double value);
    /// The ladder with elements in other places, fewer, more or others: what is locked and selected
    /// goes with its element.
    void arrange(const QString& name, const std::vector<PlacedElement>& ladder);
    /// The present ladder, to be put together anew.
    std::vector<PlacedElement> placed() const;
    /// Another network as a step that can be undone: taken from a page, a search, a snapshot.
    void take(const QString& name, Network network);
    /// A step of the whole document: what belongs to the network with it.
    using Change = std::function<void(NetworkDocument&)>;
    void change(const QString& name, const Change& change, const QString& key = {});
    /// Another document: nothing left to undo.
    void open(NetworkDocument document);
    void open(Network network) { open(NetworkDocument{.network = std::move(network)}); }

    // A drag: its moves are shown at once and are one step; cancelled it was none.
    void beginDrag(const QString& name);
    void endDrag(bool keep);
    bool dragging() const { return drag_.has_value(); }
    /// Another network within a drag: one of a list that the user looks through.
    void preview(Network network);

    void undo();
    void redo();
    const History<NetworkDocument>& history() const { return history_; }

    /// Changed since the file was written?
    bool modified() const { return !(history_.present() == saved_); }
    void markSaved();

    const std::vector<Snapshot>& snapshots() const { return history_.present().snapshots; }
    void addSnapshot(const QString& name);
    void removeSnapshot(std::size_t index);
    void showSnapshot(std::size_t index, bool shown);
    void renameSnapshot(std::size_t index, const QString& name);

    const DataLinks& links() const { return history_.present().links; }

    const std::vector<double>& markers() const { return history_.present().markers; }
    void addMarker(double f);
    /// Takes away those that `is` is true of; `addedNow`: as if the last had not been added.
    void removeMarkers(const std::function<bool(double)>& is, bool addedNow = false);

    /// The design whose ghost the chart shows; none until one was frozen.
    const std::optional<Network>& ghost() const { return history_.present().ghost; }
    void freeze();
    void unfreeze();

    /// Numbers that refining and centring leave alone.
    bool locked(const Tunable& at) const;
    const std::vector<Tunable>& locked() const { return history_.present().locked; }
    void setLocked(const Tunable& at, bool on);

    /// What is selected in list, chart and sliders alike; nothing, or a number of the ladder.
    const std::optional<Tunable>& selected() const { return selected_; }
    void select(std::optional<Tunable> at);

    /// The frequency of path and exact matches: the chosen one, the middle of the bands, or 100
    /// MHz.
    double designFrequency() const;
    /// The present network as a problem over bands: where it has none, 5 % to each side of the
    /// design frequency.
    Network problem() const;
    /// Where the plots reach: the bands with half their width to each side, or a decade around the
    /// design frequency.
    FrequencyBand plotRange() const;
    /// Lowest GT over the bands in dB; nothing without bands or values in them.
    std::optional<double> worstGainDb() const { return WorstGainDb(network()); }

    /// The same of any network, on 41 points a band.
    static std::optional<double> WorstGainDb(const Network& network);

  signals:
    /// The network, or what belongs to it, has changed: views show it anew.
    void changed();
    void selectionChanged();

  private:
    /// A step of one snapshot; none where there is no such snapshot.
    void changeSnapshot(const QString& name, std::size_t index,
                        const std::function<void(std::vector<Snapshot>&, std::size_t)>& change);
    /// Moves in the history and tells of what is different then.
    void moveTo(bool (History<NetworkDocument>::*move)());
    void tell(const NetworkDocument& before);

    struct Drag {
        QString name;
        NetworkDocument before;
    };

    History<NetworkDocument> history_;
    NetworkDocument saved_;
    std::optional<Tunable> selected_;
    std::optional<Drag> drag_;
    int drags_ = 0;
    int marked_ = 0;  ///< markers so far, for the keys of their steps
    int taken_ = 0;   ///< snapshots so far, for their colours
};

/// 50 ohm to 50 ohm around 100 MHz, straight through: what a new window shows.
Network StartNetwork();

}  // namespace kelvro
