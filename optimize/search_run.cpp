#include "optimize/search_run.h"

#include <utility>

#include "optimize/line_search.h"
#include "optimize/start_matrix.h"

namespace kelvro {

namespace {

// Searches this near to their limit are worth a word, as people know it from the reports.
constexpr int kTooMany = kLineSearchLimit - 2;
constexpr int kMany = kLineSearchLimit - 6;

/// What is to be said about an iteration as a whole.
void AddRemarks(IterationRecord& record, const LocalOptions& options) {
    const auto remark = [&](bool holds, NoteKind kind, unsigned flags = 0) {
        if (holds) record.notes.push_back({.kind = kind, .flags = flags});
    };
    const int i = record.lineSteps;
    // Along a crease the gradient of either side is behind.
    const bool alongCrease =
        std::ranges::find(record.notes, NoteKind::CreaseStep, &Note::kind) != record.notes.end();
    remark(!alongCrease && record.angleToDescent > options.tuning.remark.extremeAngle,
           NoteKind::AngleExtreme);
    remark(LargestEntry(record.step) < options.differenceStep, NoteKind::StepsBelowDifference,
           record.doubleSided ? 0 : 1);
    remark(i >= kTooMany && i <= kLineSearchLimit, NoteKind::LineSearchQuiteTooMany);
    remark(i >= kMany && i < kTooMany, NoteKind::LineSearchQuiteMany);
    remark(record.t > options.tuning.remark.unusuallyLargeStep, NoteKind::StepUnusuallyLarge);
    remark(record.t == 0, NoteKind::StepZero);
}

}  // namespace

SearchRun::SearchRun(Objective& judge, Evaluator& evaluator, const LocalOptions& runOptions,
                     Summary& summary)
    : objective(evaluator),
      options(runOptions),
      gradients(evaluator, options),
      judge_(judge),
      summary_(summary) {}

Matrix SearchRun::diagonalInverseAt(const Vector& x, double f) {
    return InverseOfDiagonal(SecondDerivatives(objective, x, f, options.secondDifferenceStep),
                             options.tuning.matrix);
}

bool SearchRun::isGood(const Vector& x) {
    const Vector full = objective.fullPoint(x);
    return judge_.isGood({full.data(), static_cast<std::size_t>(full.size())});
}

/// With the value and the gradient that the objective has now.
void SearchRun::evaluate(Position& at) {
    const bool doubleSided = at.gradient.doubleSided;
    at.f = objective(at.x, CallKind::Evaluation);
    at.gradient = DoubleSidedGradient(objective, at.x, at.f, options.differenceStep);
    at.gradient.doubleSided = doubleSided;
}

Position SearchRun::plain(Position at) {
    const auto& nearness = objective.nearness();
    if (!nearness) return at;
    if (!objective.hasWishes()) {
        at.f -= nearness->value(at.x);
        at.gradient.g -= nearness->gradient(at.x);
        at.gradient.length = at.gradient.g.norm();
        return at;
    }
    const bool isLast = at.x.size() == lastPlain_.x.size() && at.x == lastPlain_.x;
    if (!isLast) {
        auto counted = objective.setNearness({});
        evaluate(at);
        objective.setNearness(std::move(counted));
        lastPlain_ = at;
    }
    return lastPlain_;
}

Position SearchRun::counted(Position at) {
    if (objective.nearness()) evaluate(at);
    return at;
}

void SearchRun::recordStart(const Position& counted) {
    const Position start = plain(counted);
    gradients.beginDescent();
    IterationRecord record;
    record.iteration = summary_.iterations;
    record.descent = summary_.descents++;
    record.isStart = true;
    record.f = start.f;
    record.calls = objective.calls();
    record.x = objective.fullPoint(start.x);
    record.g = objective.fullDirection(start.gradient.g);
    record.gradientLength = start.gradient.length;
    record.doubleSided = start.gradient.doubleSided;
    record.direction = record.step = Vector::Zero(record.x.size());
    record.notes = std::exchange(notes_, {});
    summary_.history.push_back(std::move(record));
}

void SearchRun::record(const Position& from, const Position& to, const StepData& step) {
    const Position before = plain(from);
    const Position after = plain(to);
    IterationRecord record;
    record.iteration = ++summary_.iterations;
    record.descent = summary_.descents - 1;
    record.calls = objective.calls();
    record.f = after.f;
    record.reduction = before.f - after.f;
    record.gradientLength = after.gradient.length;
    record.x = objective.fullPoint(after.x);
    record.g = objective.fullDirection(after.gradient.g);
    record.direction = objective.fullDirection(step.direction);
    record.step = objective.fullDirection(after.x - before.x);
    record.angleToDescent = AngleDegrees(-before.gradient.g, step.direction);
    record.angleToOldGradient = AngleDegrees(before.gradient.g, after.gradient.g);
    record.lineSteps = step.lineSteps;
    record.t = step.t;
    record.clampings = step.clampings;
    record.doubleSided = after.gradient.doubleSided;
    record.notes = std::exchange(notes_, {});
    AddRemarks(record, options);
    summary_.history.push_back(std::move(record));
}

}  // namespace kelvro
