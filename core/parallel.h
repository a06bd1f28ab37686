#pragma once

#include <algorithm>
#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <mutex>
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

/// Calls work(index, worker, place) in the same way, and then deliver(index, place) for each index
/// in order and one at a time: by whichever thread brings the next one, while others work on. A
/// place, below `places`, is a result's own from its work to its delivery; work waits only where
/// no place is left.
template <typename Work, typename Deliver>
void ForEachInOrder(std::size_t count, unsigned threads, std::size_t places, const Work& work,
                    const Deliver& deliver) {
    std::mutex mutex;
    std::condition_variable delivered;
    std::vector<char> ready(places);
    std::size_t next = 0;
    bool delivering = false;
    ForEachInParallel(count, threads, [&](std::size_t i, unsigned worker) {
        std::unique_lock lock(mutex);
        delivered.wait(lock, [&] { return i < next + places; });
        lock.unlock();
        work(i, worker, i % places);
        lock.lock();
        ready[i % places] = 1;
        if (delivering) return;
        delivering = true;
        while (ready[next % places] != 0) {
            lock.unlock();
            deliver(next, next % places);
            lock.lock();
            ready[next++ % places] = 0;
            delivered.notify_all();
        }
        delivering = false;
    });
}

}  // namespace kelvro
