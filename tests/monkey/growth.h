#pragma once

namespace kelvro {

/// Types 10 000 texts and opens each window until 500 have been opened, and prints what has grown.
/// 0 where nothing has, else 1.
int WatchGrowth();

}  // namespace kelvro
