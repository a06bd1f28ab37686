#include "synthesis/search.h"

#include <algorithm>
#include <atomic>
#include <cmath>
#include <map>
#include <mutex>

#include "core/parallel.h"
#include "synthesis/candidate_search.h"
#include "synthesis/search_task.h"

namespace kelvro {

namespace {

/// Nepers of worst gain (0.002 dB) that are not worth a part.
constexpr double kNotWorthAPart = 0.002 * 0.230258509299404568;

using Starts = std::vector<std::vector<double>>;

/// One run of the search, from one part to as many as wanted.
class SearchRun {
  public:
    SearchRun(const SearchTask& task, const SearchMonitor& monitor)
        : task_(task),
          monitor_(monitor),
          threads_(ThreadsOr(task.options.threads)),
          workers_(threads_, CandidateSearch(task)) {}

    SearchResult run();

  private:
    struct Level {
        std::vector<Stages> candidates;
        std::vector<std::vector<ScreenedLadder>> solved;  ///< of each candidate
    };

    int parts() const { return static_cast<int>(levels_.size()) - 1; }
    void screenStraight();
    void screen(Level& level);
    std::map<Stages, Starts> startsFor(const Level& before) const;
    std::vector<ScreenedLadder> shortlist() const;
    bool isWorthItsParts(const ScreenedLadder& ladder) const;
    void refine(const std::vector<ScreenedLadder>& ladders);
    std::vector<FoundNetwork> ranked();
    void tell(double share, const std::vector<FoundNetwork>* networks);

    const SearchTask& task_;
    const SearchMonitor& monitor_;
    unsigned threads_;
    std::vector<CandidateSearch> workers_;
    std::vector<Level> levels_;      ///< by number of parts, from 0
    std::map<Stages, double> best_;  ///< screened worst of each topology
    std::map<Stages, std::optional<FoundNetwork>> refined_;
    std::mutex telling_;
    std::atomic<bool> stop_ = false;
    double done_ = 0;
    double total_ = 0;
};

/// Marks the best network of each number of parts that surpasses all with fewer parts.
void MarkFront(std::vector<FoundNetwork>& networks) {
    std::ranges::stable_sort(networks, [](const FoundNetwork& a, const FoundNetwork& b) {
        return a.parts != b.parts ? a.parts < b.parts : a.worstGT > b.worstGT;
    });
    double best = 0;
    for (FoundNetwork& network : networks) {
        const bool first = &network == &networks.front() || (&network - 1)->parts < network.parts;
        network.front = first && network.worstGT * (1 - kNotWorthAPart) > best;
        best = std::max(best, network.worstGT);
    }
}

/// Does a network lose more than twice what the best with as few parts does, and half a dB on top?
/// Nobody would build it.
bool IsFarBehind(const FoundNetwork& network, const std::vector<FoundNetwork>& all) {
    double best = 0;
    for (const FoundNetwork& other : all) {
        if (other.parts <= network.parts) best = std::max(best, other.worstGT);
    }
    return network.worstGT < best * best * 0.9;
}

/// What the candidates with so many parts cost compared with others: starts, steps and rows grow.
double CostOf(std::size_t candidates, int parts) {
    return static_cast<double>(candidates) * parts * parts;
}

void SearchRun::tell(double share, const std::vector<FoundNetwork>* networks) {
    const std::scoped_lock lock(telling_);
    done_ += share;
    if (!monitor_ || stop_) return;
    if (!monitor_({done_, parts(), networks})) stop_ = true;
}

/// Where to start in each ladder of the next level: in the solutions with a part less.
std::map<Stages, Starts> SearchRun::startsFor(const Level& before) const {
    std::map<Stages, Starts> starts;
    for (const auto& solved : before.solved) {
        for (const ScreenedLadder& ladder : solved) {
            for (LadderPoint& more : OnePartMore(ladder.ladder)) {
                starts[more.topology].push_back(std::move(more.x));
            }
        }
    }
    return starts;
}

/// The straight connection, where nothing forbids it: what the others have to surpass.
void SearchRun::screenStraight() {
    const SearchOptions& options = task_.options;
    levels_.emplace_back();
    if (options.dc == DcWish::Block || options.atSource || options.atLoad) return;
    const ScreenedLadder straight = workers_.front().straight();
    best_[{}] = straight.worst;
    levels_.back().solved.push_back({straight});
}

void SearchRun::screen(Level& level) {
    const auto starts = startsFor(levels_[levels_.size() - 2]);
    const double share = CostOf(1, parts()) / total_;
    level.solved.resize(level.candidates.size());
    ForEachInParallel(level.candidates.size(), threads_, [&](std::size_t i, unsigned worker) {
        if (stop_) return;
        const Stages& topology = level.candidates[i];
        const auto known = starts.find(topology);
        const std::uint64_t seed = task_.options.seed * 1'000'003 + levels_.size() * 10'007 + i;
        level.solved[i] = workers_[worker].screen(
            topology, known == starts.end() ? Starts() : known->second, seed);
        tell(share, nullptr);
    });
    for (const auto& solved : level.solved) {
        if (!solved.empty()) best_[solved.front().ladder.topology] = solved.front().worst;
    }
}

/// No ladder with one of its parts left out is as good.
bool SearchRun::isWorthItsParts(const ScreenedLadder& ladder) const {
    for (int part = 0; part < PartsIn(ladder.ladder.topology); ++part) {
        const auto less = OnePartLess(ladder.ladder.topology, part);
        if (!less) continue;
        const auto known = best_.find(*less);
        if (known != best_.end() && known->second > ladder.worst - kNotWorthAPart) return false;
    }
    return true;
}

/// The best solution of each candidate that can appear in the result: of every number of parts a
/// few, and of all together some more than wanted.
std::vector<ScreenedLadder> SearchRun::shortlist() const {
    constexpr std::size_t kOfEachLevel = 3;
    std::vector<ScreenedLadder> chosen;
    std::vector<ScreenedLadder> others;
    for (const Level& level : levels_) {
        std::vector<ScreenedLadder> best;
        for (const auto& solved : level.solved) {
            if (!solved.empty() && isWorthItsParts(solved.front())) best.push_back(solved.front());
        }
        std::ranges::stable_sort(best, std::greater{}, &ScreenedLadder::worst);
        const std::size_t few = std::min(best.size(), kOfEachLevel);
        chosen.insert(chosen.end(), best.begin(), best.begin() + static_cast<long>(few));
        others.insert(others.end(), best.begin() + static_cast<long>(few), best.end());
    }
    std::ranges::stable_sort(others, std::greater{}, &ScreenedLadder::worst);
    others.resize(std::min(others.size(), task_.options.most + 2));
    chosen.insert(chosen.end(), others.begin(), others.end());
    return chosen;
}

/// Refines what has not been refined before.
void SearchRun::refine(const std::vector<ScreenedLadder>& ladders) {
    std::vector<ScreenedLadder> missing;
    for (const ScreenedLadder& ladder : ladders) {
        if (!refined_.contains(ladder.ladder.topology)) missing.push_back(ladder);
    }
    std::vector<std::optional<FoundNetwork>> found(missing.size());
    ForEachInParallel(missing.size(), threads_, [&](std::size_t i, unsigned worker) {
        found[i] = workers_[worker].refine(missing[i]);
    });
    for (std::size_t i = 0; i < missing.size(); ++i) {
        refined_[missing[i].ladder.topology] = std::move(found[i]);
    }
}

/// The result as far as it is known: the front first, then the others.
std::vector<FoundNetwork> SearchRun::ranked() {
    const auto ladders = shortlist();
    refine(ladders);
    std::vector<FoundNetwork> all;
    for (const ScreenedLadder& ladder : ladders) {
        const auto& network = refined_[ladder.ladder.topology];
        if (network) all.push_back(*network);
    }
    // The straight connection only where nothing is better.
    if (all.size() > 1)
        std::erase_if(all, [](const FoundNetwork& found) { return found.parts == 0; });
    MarkFront(all);
    std::erase_if(all, [&](const FoundNetwork& network) {
        return !network.front && IsFarBehind(network, all);
    });
    std::ranges::stable_sort(all, std::greater{}, [](const FoundNetwork& network) {
        return std::pair(network.front, network.worstGT);
    });
    if (all.size() > task_.options.most) all.resize(task_.options.most);
    return all;
}

SearchResult SearchRun::run() {
    std::vector<std::vector<Stages>> candidates;
    for (int parts = 1; parts <= task_.options.mostParts; ++parts) {
        candidates.push_back(CandidatesOf(task_.options, parts));
        total_ += CostOf(candidates.back().size(), parts);
    }
    screenStraight();
    SearchResult result;
    for (auto& level : candidates) {
        levels_.push_back({std::move(level), {}});
        screen(levels_.back());
        result.networks = ranked();
        tell(0, &result.networks);
        if (stop_) break;
    }
    result.cancelled = stop_;
    return result;
}

}  // namespace

Result<SearchResult> SearchNetworks(const Network& problem, const SearchOptions& options,
                                    const SearchMonitor& monitor) {
    const auto task = PrepareSearch(problem, options);
    if (!task) return task.status();
    SearchResult result = SearchRun(*task, monitor).run();
    if (result.networks.empty() && !result.cancelled) {
        return Status::Failure("no ladder with so few parts meets these wishes");
    }
    return result;
}

}  // namespace kelvro
