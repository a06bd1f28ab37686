#pragma once

#include <ostream>
#include <string>
#include <string_view>

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
    ExitCode code;
    std::string text;  ///< one line without the program's name
};

/// What a command works with besides its options: where it writes, and how it ended.
struct Session {
    std::ostream& out;
    std::ostream& err;
    ExitCode status = ExitCode::Done;
    bool terminal = false;  ///< somebody watches the error stream

    /// Says on a terminal how far a long command is, each text in place of the one before; an empty
    /// text wipes the last one.
    void progress(std::string_view text);

    /// Writes one line to the error stream.
    void tell(std::string line);
    /// Writes the one line of a problem to the error stream and gives back its code.
    ExitCode fail(const Problem& problem);
};

}  // namespace kelvro
