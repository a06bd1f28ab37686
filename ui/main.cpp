#include <QApplication>
#include <QElapsedTimer>
#include <QThread>

#include "ui/hint_handler.h"
#include "ui/plot/icons.h"
#include "ui/sdi_app_form.h"
#include "ui/splash_screen.h"

namespace {

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

}  // namespace

int main(int argc, char** argv) {
    using namespace kelvro;
    QApplication app(argc, argv);
    QApplication::setApplicationName(QStringLiteral("kelvro"));
    QApplication::setApplicationVersion(QStringLiteral(KELVRO_VERSION));
    QApplication::setStyle(new HintStyle);
    QApplication::setWindowIcon(VectorIcon("kelvro"));
    QApplication::setQuitOnLastWindowClosed(false);  // message boxes come and go before the form

    TSDIAppForm form;
    auto splash = std::make_unique<TSplashScreen>();
    form.windows().create(StartStage::BeforeSplash);
    splash->show();
    splash->repaint();
    form.windows().create(StartStage::BehindSplash);
    form.startUp(app.arguments().mid(1));
    WaitBehindSplash(app);
    splash.reset();
    form.show();
    form.openNetworkFiles();
    QObject::connect(&form, &TSDIAppForm::formClosed, &app, &QApplication::quit);
    return app.exec();
}
