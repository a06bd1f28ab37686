// From the main window on to networks: designs taken over, projects and measured data opened.

#include <utility>

#include "design/opened_network.h"
#include "design/pages.h"
#include "ui/fields.h"
#include "ui/sdi_app_form.h"
#include "ui/texts.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

constexpr char kNetworkWindow[] = "NetworkWindow";

}  // namespace

NetworkWindow* TSDIAppForm::networkWindow() {
    windows_.open(QLatin1String(kNetworkWindow));
    return dynamic_cast<NetworkWindow*>(windows_.window(QLatin1String(kNetworkWindow)));
}

void TSDIAppForm::OpenAsNetwork1Click() {
    const auto opened = OpenedNetwork(session_.design());
    if (!opened) return session_.showMessage(Shown(opened.message()));
    networkWindow()->takeDesign(Shown(PageOf(session_.design()).caption), *opened);
}

void TSDIAppForm::OpenProject1Click() {
    networkWindow()->chooseFile();
}

void TSDIAppForm::NetworkExample1Click() {
    networkWindow()->openExample();
}

void TSDIAppForm::openNetworkFiles() {
    const QStringList files = std::exchange(networkFiles_, {});
    for (const QString& file : files) networkWindow()->openAny(file);
    // The window asks whether to take it up again.
    if (files.isEmpty() && NetworkWindow::leftBehind()) networkWindow();
}

}  // namespace kelvro
