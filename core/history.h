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
            push(past_, {std::move(present_), std::move(name)});
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

    /// A change that nobody would call an edit (looking at another page, which calculates it). Undo
    /// and redo pass over it, and what was undone can still be redone behind it.
    void pass(State next) {
        openKey_.clear();
        const bool behindAnother = !past_.empty() && past_.back().passing;
        if (next == present_ || behindAnother || !future_.empty()) return amend(std::move(next));
        push(past_, {std::exchange(present_, std::move(next)), {}, true});
    }

    /// Another document: nothing to undo.
    void reset(State present) { *this = History(std::move(present), most_); }

    bool canUndo() const { return nextOf(past_) != nullptr; }
    bool canRedo() const { return nextOf(future_) != nullptr; }
    /// Name of the step that undo takes back; empty without one.
    std::string undoName() const { return nameOf(nextOf(past_)); }
    std::string redoName() const { return nameOf(nextOf(future_)); }

    /// False without a step.
    bool undo() { return move(past_, future_); }
    bool redo() { return move(future_, past_); }

  private:
    struct Step {
        State state;
        std::string name;
        bool passing = false;
    };

    void push(std::vector<Step>& steps, Step step) {
        steps.push_back(std::move(step));
        if (steps.size() > most_) steps.erase(steps.begin());
    }

    /// The step that is next to be taken; passing ones lie singly between others.
    static const Step* nextOf(const std::vector<Step>& steps) {
        for (auto step = steps.rbegin(); step != steps.rend(); ++step) {
            if (!step->passing) return &*step;
        }
        return nullptr;
    }

    static std::string nameOf(const Step* step) { return step ? step->name : std::string(); }

    bool move(std::vector<Step>& from, std::vector<Step>& to) {
        if (!nextOf(from)) return false;
        openKey_.clear();
        bool passing = true;
        while (passing) {
            Step step = std::move(from.back());
            from.pop_back();
            passing = step.passing;
            step.state = std::exchange(present_, std::move(step.state));
            to.push_back(std::move(step));
        }
        return true;
    }

    State present_;
    std::size_t most_;
    std::vector<Step> past_;
    std::vector<Step> future_;
    std::string openKey_;
};

}  // namespace kelvro
