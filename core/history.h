#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace kelvro {

/// Undo and redo of one value that is replaced as a whole: a page design, a network. Steps have the
/// names that menus show ("R1"); steps of one key that follow each other are one (the keystrokes in
/// a field, the moves of a drag).
template <typename State>
class History {
  public:
    explicit History(State present = {}, std::size_t most = 1000)
        : present_(std::move(present)), most_(std::max<std::size_t>(most, 1)) {}

    const State& present() const { return present_; }

    /// Takes a new value over. One that equals the present is no step. A key that is not empty
    /// joins the step before when that has the same key and nothing came between.
    void edit(State next, std::string name, std::string key = {}) {
        if (next == present_) return;
        const bool joins = !key.empty() && key == openKey_ && !past_.empty() && future_.empty();
        if (!joins) {
            past_.push_back({std::move(present_), std::move(name)});
            if (past_.size() > most_) past_.erase(past_.begin());
        }
        present_ = std::move(next);
        future_.clear();
        openKey_ = std::move(key);
        // Back where the joined steps began: they were none.
        if (joins && past_.back().state == present_) past_.pop_back();
    }

    /// What comes next starts a step of its own, whatever its key.
    void close() { openKey_.clear(); }

    /// Replaces the present without a step: values derived from the design that it belongs to.
    void amend(State present) { present_ = std::move(present); }

    /// Another document: nothing to undo.
    void reset(State present) { *this = History(std::move(present), most_); }

    bool canUndo() const { return !past_.empty(); }
    bool canRedo() const { return !future_.empty(); }
    /// Name of the step that undo takes back; empty without one.
    std::string undoName() const { return past_.empty() ? std::string() : past_.back().name; }
    std::string redoName() const { return future_.empty() ? std::string() : future_.back().name; }

    /// False without a step.
    bool undo() { return move(past_, future_); }
    bool redo() { return move(future_, past_); }

  private:
    struct Step {
        State state;
        std::string name;
    };

    bool move(std::vector<Step>& from, std::vector<Step>& to) {
        if (from.empty()) return false;
        Step step = std::move(from.back());
        from.pop_back();
        to.push_back({std::exchange(present_, std::move(step.state)), std::move(step.name)});
        openKey_.clear();
        return true;
    }

    State present_;
    std::size_t most_;
    std::vector<Step> past_;
    std::vector<Step> future_;
    std::string openKey_;
};

}  // namespace kelvro
