#include "ui/end_request.h"

#include <fcntl.h>
#include <unistd.h>
#include <QSocketNotifier>
#include <csignal>

namespace kelvro {

namespace {

constexpr int kSignals[] = {SIGTERM, SIGINT, SIGHUP};

/// Reading and writing end. A handler may do no more than write to a pipe.
int g_pipe[2] = {-1, -1};

void Tell(int) {
    const char byte = 0;
    // A full pipe has told already.
    [[maybe_unused]] const auto written = ::write(g_pipe[1], &byte, 1);
}

}  // namespace

EndRequest::EndRequest(QObject* parent) : QObject(parent) {
    if (::pipe2(g_pipe, O_CLOEXEC | O_NONBLOCK) != 0) return;
    notifier_ = new QSocketNotifier(g_pipe[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, [this] {
        notifier_->setEnabled(false);
        emit requested();
    });
    for (const int signal : kSignals) std::signal(signal, Tell);
}

EndRequest::~EndRequest() {
    for (const int signal : kSignals) std::signal(signal, SIG_DFL);
    for (const int end : g_pipe)
        if (end >= 0) ::close(end);
}

}  // namespace kelvro
