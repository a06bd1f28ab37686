#include "ui/workbench/background_work.h"

namespace kelvro {

BackgroundWork::BackgroundWork(QObject* parent) : QObject(parent) {}

BackgroundWork::~BackgroundWork() = default;

void BackgroundWork::start(Work work) {
    const int run = ++run_;
    running_ = true;
    const HandOver handOver = [this, run](std::function<void()> act) {
        const auto ifStillWanted = [this, run, act = std::move(act)] {
            if (run == run_) act();
        };
        QMetaObject::invokeMethod(this, ifStillWanted, Qt::QueuedConnection);
    };
    // The thread before ends here.
    thread_ = std::jthread([this, handOver, work = std::move(work)](const std::stop_token& stop) {
        work(stop, handOver);
        handOver([this] {
            running_ = false;
            emit finished();
        });
    });
}

}  // namespace kelvro
