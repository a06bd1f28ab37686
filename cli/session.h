#pragma once

#include <ostream>
#include <span>
#include <stop_token>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "core/result.h"
#include "io/class_e_comparison.h"
#include "io/exports.h"
#include "plot/picture.h"

namespace kelvro {

/// How a run of the program ends; the numbers are its exit codes.
enum class ExitCode {
    Done = 0,
    Failed = 1,   ///< a file or the output could not be read or written
    Usage = 2,    ///< wrong options, a text without digits, an unknown page or component
    Refused = 3,  ///< the page refuses the design
};

/// Why a command ends early.
struct Problem {
    ExitCode code = ExitCode::Done;
    std::string text = {};  ///< one line without the program's name
};

/// What a step of a command gives, or why the command ends: a failure that carries the exit code.
template <typename T>
class [[nodiscard]] Outcome : public Result<T> {
  public:
    Outcome(T value) : Result<T>(std::move(value)) {}
    Outcome(const Problem& problem)
        : Result<T>(Status::Failure(problem.text)), code_(problem.code) {}

    /// Only when not ok().
    Problem status() const { return {code_, Result<T>::message()}; }

  private:
    ExitCode code_ = ExitCode::Done;
};

/// What needs Qt; nothing of it in the program that is linked without.
struct QtServices {
    /// Writes a picture of so many pixels to a file whose ending says the format.
    Status (*writePicture)(const Picture& picture, int width, int height,
                           const std::string& file) = nullptr;
    /// CompareWithNgspice.
    Result<std::vector<ComparedValue>> (*compareStage)(const ExportDesign& design,
                                                       const std::stop_token& stop) = nullptr;
};

/// What a command works with besides its options: where it writes, and how it ended.
struct Session {
    std::ostream& out;
    std::ostream& err;
    QtServices qt = {};
    ExitCode status = ExitCode::Done;
    bool terminal = false;                   ///< somebody watches the error stream
    std::span<const std::string> args = {};  ///< of the program, without its name

    /// Do the arguments give the option "--name", or ask for help, which lists it? Pages have more
    /// inputs than one run gives: to declare them all is a quarter of the work of a short command.
    bool mentions(std::string_view name) const;

    /// Says on a terminal how far a long command is, each text in place of the one before; an empty
    /// text wipes the last one.
    void progress(std::string_view text);

    /// Keeps a remark on what the command works with: a line of its own once the command has
    /// succeeded, a part of the one line of its problem otherwise.
    void warn(std::string text) { warnings.push_back(std::move(text)); }
    /// Writes the one line of a problem to the error stream and gives back its code.
    ExitCode fail(const Problem& problem);
    /// Writes what is left to be said of a command that has succeeded.
    void tellWarnings();

    std::vector<std::string> warnings = {};
};

}  // namespace kelvro
