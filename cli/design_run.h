#pragma once

#include "cli/design_options.h"
#include "io/design_report.h"

namespace kelvro {

/// Calculates the design of the options as the window would; the components of --take stand in
/// place of designed ones, and then nothing is optimized or refused. A design that the page refuses
/// comes back with its message and without components. Problems are unknown names and, with
/// --take, components that neither the design nor the options give.
Outcome<DesignRun> RunDesign(const DesignOptions& options, Session& session);

/// The same for commands that need components: a refused design is a problem as well.
Outcome<DesignRun> RunAcceptedDesign(const DesignOptions& options, Session& session);

/// The same for commands that show a response: a page without one is a problem as well.
Outcome<DesignRun> RunRespondingDesign(const DesignOptions& options, Session& session);

}  // namespace kelvro
