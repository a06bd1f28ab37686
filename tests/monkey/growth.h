#pragma once

namespace kelvro {

/// Types so many texts and opens a window for every twentieth, and prints what has grown. 0 where
/// nothing has, else 1. 2000 is the least: all pages and windows, and all steps that can be undone,
/// come in the part that does not count.
int WatchGrowth(int edits);

}  // namespace kelvro
