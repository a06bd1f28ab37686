#include "optimize/report.h"

#include <Eigen/Dense>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/scalar.h"
#include "optimize/linear.h"
#include "optimize/report_text.h"

namespace kelvro {

namespace {

/// What is nearly 0 divides as something small: the report shows a huge number then.
double Guarded(double divisor) {
    constexpr double negligible = 1e-18;
    return SymmetricClamp(divisor, negligible, 1 / negligible);
}

double AngleBetween(const Eigen::VectorXd& a, const Eigen::VectorXd& b) {
    const double cosine = a.dot(b) / Guarded(a.norm() * b.norm());
    return std::acos(std::clamp(cosine, -1.0, 1.0)) * kDegreesPerRadian;
}

// ---------------------------------------------------------------- notes

void WriteDoubleSidedReasons(ReportText& out, const Note& note) {
    if (note.flags & kCloseToEnd) out << "Close to end. ";
    if (note.flags & kGradientSmall) out << "|g| is smaller than " << note.value[0] << ". ";
    if (note.flags & kStepsSmall) {
        out << "Maximum step dxi smaller than dxss in gradient calculation. ";
    }
    if (note.flags & kGradientBelowDifference) {
        out << "|g| is smaller 100dxss=" << note.value[1] << ".";
    }
}

void WriteLineSearchReasons(ReportText& out, const Note& note) {
    if (note.flags & kOscillation) out << "Quite some oscillation!";
    if (note.flags & kLargeIncrease) out << "Quite large df/(t*psg)!";
    if (note.flags & kLargeDecrease) out << "Quite large -df/(t*psg)!";
}

struct Sentence {
    NoteKind kind;
    std::string_view words;
};

/// What notes say; those that name values go on in WriteNote.
constexpr std::array kSentences = {
    Sentence{NoteKind::StartMatrixFromFxx,
             "Hint : Start matrix using fxx values from finite differences."},
    Sentence{NoteKind::StartMatrixFromFxy,
             "Hint : Start matrix using fxy values from finite differences."},
    Sentence{NoteKind::CurvatureNotPositive, "Warning : fx"},
    Sentence{NoteKind::HessianRankDeficient,
             "Warning : Rank of real H maybe smaller than dimension!"},
    Sentence{NoteKind::SwitchedToDoubleSided,
             "Hint : Switched to double-sided gradient because : "},
    Sentence{NoteKind::SwitchedToSingleSided,
             "Warning : Switching to single-side gradient although double-sided used in previous "
             "interations."},
    Sentence{NoteKind::DoubleSidedUsed, "Hint : Double-sided gradient formula used"},
    Sentence{NoteKind::DoubleSidedInaccurate,
             "Warning : Used double-sided gradient calculation is maybe inaccurate for parameter"},
    Sentence{NoteKind::SingleSidedOffBy3Percent,
             "Warning : Single-sided gradient calculation would be inaccurate by more than 3%."},
    Sentence{NoteKind::SingleSidedOffBy1Percent,
             "Warning : Single-sided gradient calculation would be inaccurate by more than 1%."},
    Sentence{NoteKind::SingleSidedUsed, "Hint : Single-sided gradient formula used"},
    Sentence{NoteKind::SingleSidedInaccurate,
             "Warning : Used single-sided gradient calculation is maybe inaccurate for parameter"},
    Sentence{NoteKind::StepReduced, "Hint : step size t reduced to "},
    Sentence{NoteKind::StartStepBad,
             "Warning : Parabel interpolation shows that start stepsize before GST is quite bad."},
    Sentence{NoteKind::StartStepGood, "Hint : Start stepsize t good already before linear search."},
    Sentence{NoteKind::LineSearchTrouble,
             "Warning : Probably rounding errors, large stepsize or large high-order derivatives "
             "caused problems in linear search. "},
    Sentence{NoteKind::LineSearchSingleSided,
             "Warning : Single-sided gradient used. This might be the reason for problems in "
             "linear search."},
    Sentence{NoteKind::MatrixReset,
             "Warning : Reset of BFGS matrix with diagonal matrix. Smallest eigenvalue after "
             "update is negative ("},
    Sentence{NoteKind::MatrixStillPositive,
             "However, smallest eigenvalue after update is still positive ("},
    Sentence{NoteKind::MatrixFromHessian,
             "Hint : Narrow valley, matrix iH derived from real H at this point."},
    Sentence{NoteKind::NewtonStep, "Hint : Refinement, step by the real H at the point before."},
    Sentence{
        NoteKind::CreaseStep,
        "Hint : Refinement, step along a crease of f : G and |g| are those of one side of it."},
    Sentence{NoteKind::AngleExtreme, "Warning : Angle already quite extreme."},
    Sentence{NoteKind::StepsBelowDifference,
             "Hint : Steps xi-xi-1 already smaller than dx for gradient calculation."},
    Sentence{NoteKind::LineSearchQuiteTooMany,
             "Warning : Quite too many iterations in linear search!"},
    Sentence{NoteKind::LineSearchQuiteMany, "Warning : Quite many iterations in linear search!"},
    Sentence{NoteKind::StepUnusuallyLarge, "Warning : Current stepsize unusually large."},
    Sentence{NoteKind::StepZero, "Warning : Current stepsize is zero."},
};

static_assert(kSentences.size() == static_cast<std::size_t>(NoteKind::StepZero) + 1);

void WriteNote(ReportText& out, const Note& note) {
    out << std::ranges::find(kSentences, note.kind, &Sentence::kind)->words;
    switch (note.kind) {
        case NoteKind::CurvatureNotPositive:
            out << note.index << " not >0 at start!";
            break;
        case NoteKind::SwitchedToDoubleSided:
            WriteDoubleSidedReasons(out, note);
            break;
        case NoteKind::DoubleSidedInaccurate:
            out << note.index << " angle difference=" << note.value[0]
                << "° is larger then expected.";
            break;
        case NoteKind::SingleSidedInaccurate:
            out << note.index << ", delta(f) is already small.";
            break;
        case NoteKind::StepReduced:
            out << note.value[0] << " before linear search due to large parameter steps.";
            break;
        case NoteKind::LineSearchTrouble:
            WriteLineSearchReasons(out, note);
            break;
        case NoteKind::MatrixReset:
        case NoteKind::MatrixStillPositive:
            out << note.value[0] << ")";
            break;
        case NoteKind::StepsBelowDifference:
            if (note.flags & 1U) out << " Double-sided formula would be better.";
            break;
        default:
            break;
    }
    out << "\n";
}

/// Remarks belong to a line of the log, the other notes stand before the lines.
bool IsRemark(NoteKind kind) {
    return kind >= NoteKind::AngleExtreme || kind == NoteKind::HessianRankDeficient;
}

void WriteNotes(ReportText& out, const std::vector<Note>& notes) {
    for (const Note& note : notes) {
        if (!IsRemark(note.kind)) WriteNote(out, note);
    }
}

void WriteRemarks(ReportText& out, const IterationRecord& record, NoteKind first, NoteKind last) {
    for (const Note& note : record.notes) {
        if (note.kind >= first && note.kind <= last) WriteNote(out, note);
    }
}

void WriteRemarks(ReportText& out, const IterationRecord& record, NoteKind only) {
    WriteRemarks(out, record, only, only);
}

// ---------------------------------------------------------------- a run

void WriteStart(ReportText& out, const Summary& run) {
    const IterationRecord& start = run.start();
    WriteNotes(out, start.notes);
    if (run.startHessian) {
        out << "w elements of SVD of real H : " << run.startSingularValues << "\n";
        WriteRemarks(out, start, NoteKind::HessianRankDeficient);
        out << "Used start matrix iH derived from real H\n";
    } else if (run.startDiagonal.size() > 0) {
        out << "Used start matrix iH derived from fxx\n";
    }
    out << "Additional function calculations for Hessian : " << start.calls.of(CallKind::Hessian)
        << "\n";
    out << "Start values : f=" << start.f << ", |g|=" << start.gradientLength << "\n";
    out << "X : " << start.x << "\n";
    out << "Initial step size t=" << run.initialStep << "\n";
}

/// The start of a further descent.
void WriteFurtherStart(ReportText& out, const IterationRecord& start) {
    WriteNotes(out, start.notes);
    out << "Start " << start.descent + 1 << " (" << start.calls.total() << " calls) : f=" << start.f
        << ", |g|=" << start.gradientLength << "\n";
    out << "X : " << start.x << "\n";
}

void WriteSteps(ReportText& out, const IterationRecord& record) {
    const Eigen::VectorXd steps = record.step.cwiseAbs();
    if (steps.size() == 0) return;
    Eigen::Index largest = 0;
    Eigen::Index smallest = 0;
    const double most = steps.maxCoeff(&largest);
    const double least = steps.minCoeff(&smallest);
    out << "Current parameter steps : |dx|=" << record.step.norm() << ", max(dxi)=" << most
        << " for number i=" << static_cast<int>(largest) + 1 << ", min(dxi)=" << least
        << " for number i=" << static_cast<int>(smallest) + 1 << "\n";
}

void WriteIteration(ReportText& out, const IterationRecord& record) {
    using enum NoteKind;
    out << "Iteration " << record.iteration << " (" << record.calls.total() << " calls) :\n";
    WriteNotes(out, record.notes);
    out << "Current goal function and gradient : f=" << record.f
        << ", reduction df=" << record.reduction << ", |g|=" << record.gradientLength << "\n";
    out << "X : " << record.x << "\n";
    out << "G : " << record.g << "\n";
    out << "S : " << record.direction << "\n";
    out << "Angle between -G and S is " << record.angleToDescent << "°.\n";
    WriteRemarks(out, record, AngleExtreme);
    out << "Angle between old and new gradient is " << record.angleToOldGradient << "°.\n";
    WriteSteps(out, record);
    WriteRemarks(out, record, StepsBelowDifference);
    out << "Current steps in linear search : i=" << record.lineSteps
        << ", step size is t=" << record.t << ", clampings=" << record.clampings << "\n";
    WriteRemarks(out, record, LineSearchQuiteTooMany, StepZero);
}

std::string_view ReasonText(StopReason reason) {
    switch (reason) {
        case StopReason::MaxIterations:
            return " - max. number of iterations reached (maybe increase it).";
        case StopReason::GradientTooSmall:
            return " - gradient too small (good).";
        case StopReason::YsTooSmall:
            return " - YS too small.";
        case StopReason::VyTooSmall:
            return " - VY too small.";
        case StopReason::StepTooSmall:
            return " - stepsize too small.";
    }
    return "";
}

// ---------------------------------------------------------------- the end of a run

void WriteCounters(ReportText& out, const Summary& run) {
    out << "Number of warnings during optimization : " << run.warnings << "\n";
    out << "Function calls in gradient calculation : " << run.calls.of(CallKind::Gradient) << "\n";
    out << "Function calls in line search : " << run.calls.of(CallKind::LineSearch) << "\n";
    out << "Single-sided gradient calculations : " << run.singleSidedGradients << "\n";
    out << "Double-sided gradient calculations : " << run.doubleSidedGradients << "\n";
}

void WriteWay(ReportText& out, const Summary& run) {
    const IterationRecord& start = run.start();
    double sum = 0;
    for (const IterationRecord& record : run.history) {
        if (record.step.size() > 0 && record.descent == run.delivered) sum += record.step.norm();
    }
    const double direct = (run.x - start.x).norm();
    out << "f=" << run.f << " compared to " << start.f << " at start\n";
    out << "Sum of all dx steps : " << sum << " compared to direct step of " << direct
        << " (ratio is " << sum / Guarded(direct) << ":1)\n";
    out << "|g|=" << run.gradientLength << " compared to " << start.gradientLength << " at start\n";
    out << "Final X vector :     " << run.x << "\n";
    out << "Compared to start X : " << start.x << "\n";
    out << "Final G vector :     " << run.g << "\n";
    out << "Compared to start G : " << start.g << "\n";
}

double Rms(double squares, Eigen::Index count) {
    return count > 0 ? std::sqrt(squares / static_cast<double>(count)) : 0;
}

void WriteHessian(ReportText& out, const Eigen::MatrixXd& H) {
    const Eigen::Index n = H.rows();
    const double diagonal = Rms(H.diagonal().squaredNorm(), n);
    const double others = Rms(H.squaredNorm() - H.diagonal().squaredNorm(), n * n - n);
    out << "Real final Hessian matrix H\n" << H;
    out << "RMS value of diagonal matrix entries : " << diagonal << "\n";
    out << "RMS value of non-diagonal entries : " << others << "\n";
    out << "Ratio of RMS values : " << diagonal / Guarded(others) << ":1\n";
}

void WriteMismatch(ReportText& out, const Eigen::MatrixXd& real, const Eigen::MatrixXd& own) {
    int mismatches = 0;
    for (Eigen::Index i = 0; i < real.size(); ++i) {
        if (real(i) * own(i) < 0) ++mismatches;
    }
    const auto entries = static_cast<int>(real.size());
    const double difference =
        (real - own).cwiseAbs().sum() / Guarded(real.cwiseAbs().sum() + own.cwiseAbs().sum());
    out << "Sign mismatches in matrices : " << mismatches << " of " << entries << " ("
        << 100.0 * mismatches / std::max(entries, 1) << "%)\n";
    out << "Normalized average entry difference in matrices : " << 100 * difference << "%\n";
}

void WriteInverse(ReportText& out, const Summary& run) {
    const Eigen::MatrixXd& own = run.inverseHessian;
    const Eigen::MatrixXd real =
        run.finalHessian->completeOrthogonalDecomposition().pseudoInverse();
    out << "Real final inverse Hessian matrix iH\n" << real;
    out << "inverse H from BFGS\n" << own;
    WriteMismatch(out, real, own);
    const Eigen::VectorXd viaOwn = -own * run.g;
    const Eigen::VectorXd viaReal = -real * run.g;
    out << "Hint : Angle between S via iH and real iH is " << AngleBetween(viaOwn, viaReal)
        << "°. Length ratio is " << viaOwn.norm() / Guarded(viaReal.norm()) << ":1.\n";
    out << "Eigenvalues of real final iH : "
        << Eigen::VectorXd(Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd>(real).eigenvalues())
        << "\n";
}

/// The inverse Hessian to judge parameters by: the real one at a minimum, as the updates may have
/// been reset shortly before the end.
Eigen::MatrixXd TrustedInverse(const Summary& run) {
    if (!run.finalHessian || !run.finalHessian->allFinite()) return run.inverseHessian;
    const bool minimum = SmallestEigenvalue(*run.finalHessian) >= 0;
    if (!minimum) return run.inverseHessian;
    return run.finalHessian->completeOrthogonalDecomposition().pseudoInverse();
}

void WriteEigenvalues(ReportText& out, const Summary& run, const RemarkTuning& tuning) {
    const Eigen::SelfAdjointEigenSolver<Eigen::MatrixXd> solver(run.inverseHessian);
    const Eigen::VectorXd& values = solver.eigenvalues();
    out << "Eigenvalues of final BFGS iH : " << values << "\n";
    const double smallest = values.minCoeff();
    const double largest = values.maxCoeff();
    if (smallest < 0) out << "Warning : Inverse Hessian used in BFGS was not positive-definite.\n";
    if (std::fabs(largest / Guarded(smallest)) >= tuning.extremeEigenvalueRatio) {
        out << "Warning : Inverse Hessian used in BFGS has extreme eigenvalue ratio.\n";
    }
    for (Eigen::Index i = 0; i < values.size(); ++i) {
        out << "Eigenvector " << static_cast<int>(i) + 1 << " : "
            << Eigen::VectorXd(solver.eigenvectors().col(i)) << "\n";
    }
}

/// Which of several minima was delivered, and what became of the parts.
void WriteChoice(ReportText& out, const Summary& run) {
    if (run.descents > 1) {
        out << "Delivered : minimum of start " << run.delivered + 1 << " of " << run.descents
            << (run.good ? ", a good one.\n" : ", none is a good one.\n");
    }
    if (run.outOfReach) {
        out << "Warning : Nothing near the calculated design comes near this goal. Largest change "
               "of a parameter is "
            << run.distance << "\n";
    }
    if (run.notWorthTheWay) {
        out << "Hint : f still falls from here, but by less than parts near the calculated ones "
               "and "
               "a band around fo are worth.\n";
    }
    for (std::size_t i = 0; i < run.onLimit.size(); ++i) {
        if (!run.onLimit[i]) continue;
        out << "Hint : Parameter " << static_cast<int>(i) + 1
            << " is held at the largest change that is allowed.\n";
    }
}

void WriteEnd(ReportText& out, const Summary& run, const LocalOptions& options) {
    out << (run.maxMin                ? "Max-min"
            : options.steepestDescent ? "Gradient"
                                      : "BFGS")
        << " iterations : " << run.iterations << ", f=" << run.f << ", |g|=" << run.gradientLength
        << ReasonText(run.stop) << "\n";
    WriteCounters(out, run);
    WriteChoice(out, run);
    WriteWay(out, run);
    if (run.finalHessian) {
        WriteHessian(out, *run.finalHessian);
        WriteInverse(out, run);
    }
    if (run.inverseHessian.size() > 0) WriteEigenvalues(out, run, options.tuning.remark);
}

}  // namespace

std::string SettingsText(const OptimizerSettings& settings) {
    ReportText out;
    out << "Settings : Gradient limit=" << settings.local.gradientLimit
        << ", maximum iterations=" << settings.local.maxIterations;
    if (settings.goal.noise) out << ", numerical noise added";
    if (settings.goal.maxNorm) out << ", max-norm used";
    out << (settings.local.noClampings ? ", no clampings\n" : ", with clampings\n");
    out << "0: pure eval, 1: goal function call, 2: goal function gradient, 3: Hessian\n";
    return std::move(out).text();
}

std::string ReportHead(const OptimizerSettings& settings, std::string_view tableName) {
    std::string head = SettingsText(settings);
    if (!tableName.empty()) head += "Hint: More data in file " + std::string(tableName) + '\n';
    return head;
}

std::string RunText(const Summary& run, const OptimizerSettings& settings, RunOrigin origin,
                    int page) {
    ReportText out;
    switch (origin) {
        case RunOrigin::FirstOfTwo:
            out << "Started within Kelvro for Typ=";
            break;
        case RunOrigin::SecondOfTwo:
            out << "2nd optimization run : \nStarted 2nd time within Kelvro for Typ=";
            break;
        case RunOrigin::Single:
            out << "Started as single run within Kelvro for Typ=";
            break;
    }
    out << page << "\n";
    if (origin == RunOrigin::SecondOfTwo) {
        out << "Gradient limit of this run=" << settings.local.gradientLimit << "\n";
    }
    if (run.history.empty()) return std::move(out).text();
    WriteStart(out, run);
    for (std::size_t i = 1; i < run.history.size(); ++i) {
        const IterationRecord& record = run.history[i];
        record.isStart ? WriteFurtherStart(out, record) : WriteIteration(out, record);
    }
    WriteNotes(out, run.closingNotes);
    WriteEnd(out, run, settings.local);
    return std::move(out).text();
}

namespace {

/// Did the delivered descent's last iteration still change a parameter much?
bool IsStillMoving(const Summary& run, const RemarkTuning& tuning) {
    const auto last = std::ranges::find_if(
        run.history.rbegin(), run.history.rend(),
        [&](const IterationRecord& record) { return record.descent == run.delivered; });
    return last != run.history.rend() && last->step.size() > 0 &&
           last->step.cwiseAbs().maxCoeff() > tuning.stillMoving;
}

}  // namespace

std::string ClosingText(const Summary& best, const OptimizerSettings& settings) {
    ReportText out;
    const RemarkTuning& remark = settings.local.tuning.remark;
    const Eigen::VectorXd uncertainties =
        best.maxMin ? best.uncertainties
                    : Eigen::VectorXd((2 * remark.uncertaintyGoal * TrustedInverse(best).diagonal())
                                          .cwiseAbs()
                                          .cwiseSqrt());
    if (uncertainties.size() > 0) out << "Parameter uncertainty estimation : \n";
    for (Eigen::Index i = 0; i < uncertainties.size(); ++i) {
        const double dX = uncertainties[i];
        out << static_cast<int>(i) + 1 << " : " << 100 * dX << "%, dX=" << dX << "\n";
    }
    out << "f at achieved optimum : " << best.f << "\n";
    out << "f*1e9 at achieved optimum : " << best.f * 1e9 << "\n";
    if (best.stop == StopReason::MaxIterations && IsStillMoving(best, remark)) {
        out << "Warning : Quite big changes, maybe better increase number of iterations. Maximum "
               "number of iterations was "
            << settings.local.maxIterations << "\n";
    }
    return std::move(out).text();
}

std::string TableHead(const OptimizerSettings& settings) {
    return SettingsText(settings) +
           "ID function call  -  goal function   -   parameters  -  goal function\n";
}

std::string TableRows(const Summary& run, int firstId) {
    std::string rows;
    int id = firstId;
    for (const CallRecord& call : run.table) {
        rows += std::to_string(id++) + ';' + std::to_string(static_cast<int>(call.kind)) + ';' +
                FormatExact(call.f);
        for (Eigen::Index i = 0; i < call.x.size(); ++i) rows += ';' + FormatExact(call.x[i]);
        rows += ';' + FormatExact(call.f) + '\n';
    }
    return rows;
}

}  // namespace kelvro
