#pragma once

#include <QObject>
#include <functional>
#include <stop_token>
#include <thread>

namespace kelvro {

/// One piece of work at a time in a thread of its own, for windows that stay awake meanwhile. What
/// it hands over runs in the window's thread; nothing arrives any more once the work was replaced
/// or this object is gone.
class BackgroundWork : public QObject {
    Q_OBJECT

  public:
    using HandOver = std::function<void(std::function<void()>)>;
    /// Ends soon after it was asked to stop.
    using Work = std::function<void(const std::stop_token&, const HandOver&)>;

    explicit BackgroundWork(QObject* parent = nullptr);
    ~BackgroundWork() override;

    /// Work that runs still is stopped first, and waited for.
    void start(Work work);
    /// Asks the work to end; what it hands over on its way out still arrives.
    void askToStop() { thread_.request_stop(); }
    bool running() const { return running_; }

  signals:
    /// Behind everything that the work has handed over.
    void finished();

  private:
    std::jthread thread_;
    int run_ = 0;
    bool running_ = false;
};

}  // namespace kelvro
