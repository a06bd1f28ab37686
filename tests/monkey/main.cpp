// The whole program used at random, and over and over:
//   monkey [--seed N] [--seconds N] [--slow SECONDS]   random use; ends with 1 where a step is slow
//   monkey --growth [--edits N]                        10 000 edits and 500 openings of windows: no
//                                                      memory, descriptors or widgets may pile up

#include <fcntl.h>
#include <unistd.h>

#include <QtWidgets>
#include <csignal>
#include <cstdio>
#include <cstring>
#include <random>

#include "tests/monkey/growth.h"
#include "tests/monkey/monkey.h"
#include "ui/hint_handler.h"

namespace {

using namespace kelvro;

constexpr const char* kSchemes[] = {"file", "http", "https", "mailto"};

Monkey* running = nullptr;

/// Before whatever handles the crash; all that is left to lose is this text.
void TellLastActions(int signal) {
    if (running) std::fprintf(stderr, "%s\n", qPrintable(running->lastActions()));
    std::signal(signal, SIG_DFL);
    std::raise(signal);
}

/// What a platform without a screen cannot do is none of the program's faults.
void TellMessage(QtMsgType, const QMessageLogContext&, const QString& text) {
    if (!text.startsWith("This plugin does not support")) {
        std::fprintf(stderr, "%s\n", qPrintable(text));
    }
}

/// Addresses lead nowhere: no other program starts.
class Nowhere : public QObject {
    Q_OBJECT
  public slots:
    void open(const QUrl&) {}
};

/// The user's own files are out of reach.
void Isolate(const QTemporaryDir& home, Nowhere& nowhere) {
    for (const char* name : {"HOME", "XDG_CONFIG_HOME", "XDG_STATE_HOME", "XDG_DATA_HOME",
                             "XDG_CACHE_HOME", "XDG_RUNTIME_DIR", "TMPDIR"}) {
        qputenv(name, home.path().toLocal8Bit());
    }
    qputenv("PATH", "/nonexistent");
    QDir::setCurrent(home.path());
    QDir(home.path()).mkdir("folder");
    for (const char* scheme : kSchemes) QDesktopServices::setUrlHandler(scheme, &nowhere, "open");
}

int UseAtRandom(const QCommandLineParser& options, const QString& folder) {
    const unsigned seed =
        options.isSet("seed") ? options.value("seed").toUInt() : std::random_device()();
    const Monkey::Limits limits{options.value("seconds").toLongLong() * 1000,
                                options.value("slow").toDouble()};
    std::printf("seed %u\n", seed);
    std::fflush(stdout);
    Monkey monkey(seed, limits, folder);
    running = &monkey;
    for (const int signal : {SIGSEGV, SIGABRT, SIGFPE, SIGTERM}) {
        std::signal(signal, TellLastActions);
    }
    monkey.run();
    running = nullptr;
    for (const QString& finding : monkey.findings()) std::printf("%s\n", qPrintable(finding));
    std::printf("%d actions, %d too slow\n", monkey.actions(),
                static_cast<int>(monkey.findings().size()));
    return monkey.findings().isEmpty() ? 0 : 1;
}

}  // namespace

int main(int argc, char** argv) {
    const QTemporaryDir home;
    Nowhere nowhere;
    Isolate(home, nowhere);
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    qInstallMessageHandler(TellMessage);
    QApplication app(argc, argv);
    QApplication::setApplicationName("kelvro");
    QApplication::setStyle(new HintStyle);
    QApplication::setQuitOnLastWindowClosed(false);
    QApplication::setAttribute(Qt::AA_DontUseNativeDialogs);
    QCommandLineParser options;
    options.addOptions({{"seed", "", "N"},
                        {"seconds", "", "N", "60"},
                        {"slow", "", "SECONDS", "0.5"},
                        {"growth", ""},
                        {"edits", "", "N", "10000"}});
    options.process(app);
    const int code = options.isSet("growth") ? WatchGrowth(options.value("edits").toInt())
                                             : UseAtRandom(options, home.path());
    for (const char* scheme : kSchemes) QDesktopServices::unsetUrlHandler(scheme);
    return code;
}

#include "main.moc"
