#pragma once

#include <algorithm>
#include <atomic>
#include <cstddef>
#include <thread>
#include <vector>

namespace kelvro {

/// Threads to use where the caller does not say: one per core.
inline unsigned ThreadsOr(unsigned wanted) {
    return wanted > 0 ? wanted : std::max(1U, std::thread::hardware_concurrency());
}

/// Calls work(index, worker) once for each index below `count`, in order of the indices but on
/// several threads at a time; worker is below `threads`. What work does for an index must not
/// depend on the others: then the results do not depend on the number of threads. work must not
/// throw.
template <typename Work>
void ForEachInParallel(std::size_t count, unsigned threads, const Work& work) {
    std::atomic<std::size_t> next{0};
    const auto run = [&](unsigned worker) {
        for (std::size_t i = next++; i < count; i = next++) work(i, worker);
    };
    std::vector<std::jthread> others;
    const auto useful = static_cast<unsigned>(std::min<std::size_t>(threads, count));
    for (unsigned worker = 1; worker < useful; ++worker) others.emplace_back(run, worker);
    run(0);
}

}  // namespace kelvro
