#include <QApplication>
#include <QElapsedTimer>
#include <QThread>
#include <iostream>

#include "advise/window_arguments.h"
#include "ui/end_request.h"
#include "ui/hint_handler.h"
#include "ui/language.h"
#include "ui/plot/icons.h"
#include "ui/sdi_app_form.h"
#include "ui/splash_screen.h"

namespace {

using namespace kelvro;

constexpr int kSplashStays = 1500;  // ms, counted from the end of the start-up routine

/// Handles events until the splash screen has stood long enough.
void WaitBehindSplash(QApplication& app) {
    QElapsedTimer timer;
    timer.start();
    while (timer.elapsed() < kSplashStays) {
        app.processEvents(QEventLoop::AllEvents, 20);
        QThread::msleep(5);
    }
}

WindowCall CallOf(const QStringList& arguments) {
    std::vector<std::string> texts;
    for (const QString& argument : arguments) texts.push_back(argument.toStdString());
    return ReadWindowArguments(texts);
}

/// Help and version need no display, so they are told before Qt asks for one.
bool IsOnlyToTell(const WindowCall& call) {
    if (call.help) std::cout << WindowHelp();
    if (call.version && !call.help) std::cout << "kelvro " KELVRO_VERSION "\n";
    return call.help || call.version;
}

}  // namespace

int main(int argc, char** argv) {
    if (IsOnlyToTell(ReadWindowArguments(std::vector<std::string>(argv + 1, argv + argc)))) {
        return 0;
    }
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kelvro"));
    QApplication::setApplicationVersion(QStringLiteral(KELVRO_VERSION));
    QApplication::setDesktopFileName(QStringLiteral("org.kelvro.Kelvro"));
    QApplication::setStyle(new HintStyle);
    QApplication::setWindowIcon(VectorIcon("kelvro"));
    QApplication::setQuitOnLastWindowClosed(false);  // message boxes come and go before the form

    SpeakLanguage(app, ChosenLanguage());

    const WindowCall call = CallOf(app.arguments().mid(1));
    TSDIAppForm form;
    std::unique_ptr<TSplashScreen> splash;
    if (call.splash && IsSplashWanted()) splash = std::make_unique<TSplashScreen>();
    form.windows().create(StartStage::BeforeSplash);
    if (splash) {
        splash->show();
        splash->repaint();
    }
    form.windows().create(StartStage::BehindSplash);
    QStringList others;
    for (const std::string& argument : call.others) others << QString::fromStdString(argument);
    form.startUp(others);
    if (splash) WaitBehindSplash(app);
    splash.reset();
    form.show();
    form.openNetworkFiles();
    QObject::connect(&form, &TSDIAppForm::formClosed, &app, &QApplication::quit);
    EndRequest endRequest;
    QObject::connect(&endRequest, &EndRequest::requested, &form, [&] {
        form.saveNow();
        QApplication::exit();
    });
    return app.exec();
}
