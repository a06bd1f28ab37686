#include "optimize/trace.h"

namespace kelvro {

bool IsWarning(const Note& note) {
    switch (note.kind) {
        case NoteKind::StartMatrixFromFxx:
        case NoteKind::StartMatrixFromFxy:
        case NoteKind::SwitchedToDoubleSided:
        case NoteKind::DoubleSidedUsed:
        case NoteKind::SingleSidedUsed:
        case NoteKind::StepReduced:
        case NoteKind::StartStepGood:
        case NoteKind::MatrixStillPositive:
        case NoteKind::MatrixFromHessian:
        case NoteKind::NewtonStep:
        case NoteKind::CreaseStep:
        case NoteKind::StepsBelowDifference:
            return false;
        default:
            return true;
    }
}

}  // namespace kelvro
