#pragma once

namespace kelvro {

/// The streams as the program needs them, before their first use: a reader that goes away is a
/// failed write with its message and exit code instead of a silent end, and results leave in large
/// pieces.
void PrepareStreams();

}  // namespace kelvro
