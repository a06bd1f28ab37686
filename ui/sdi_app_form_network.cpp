// From the main window on to networks: designs taken over, projects and measured data opened.

#include <QDragEnterEvent>
#include <QMimeData>
#include <QUrl>
#include <utility>

#include "design/opened_network.h"
#include "design/pages.h"
#include "ui/fields.h"
#include "ui/sdi_app_form.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

constexpr char kNetworkWindow[] = "NetworkWindow";

QString FileOf(const QDropEvent& event) {
    const QString file = event.mimeData()->urls().value(0).toLocalFile();
    return NetworkWindow::opens(file) ? file : QString();
}

}  // namespace

NetworkWindow* TSDIAppForm::networkWindow() {
    windows_.open(QLatin1String(kNetworkWindow));
    return dynamic_cast<NetworkWindow*>(windows_.window(QLatin1String(kNetworkWindow)));
}

void TSDIAppForm::OpenAsNetwork1Click() {
    const auto opened = OpenedNetwork(session_.design());
    if (!opened) return session_.showMessage(QString::fromStdString(opened.message()));
    networkWindow()->takeDesign(ToQString(PageOf(session_.design()).caption), *opened);
}

void TSDIAppForm::OpenProject1Click() {
    networkWindow()->chooseFile();
}

void TSDIAppForm::openNetworkFiles() {
    const QStringList files = std::exchange(networkFiles_, {});
    for (const QString& file : files) networkWindow()->openAny(file);
}

void TSDIAppForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!FileOf(*event).isEmpty()) event->acceptProposedAction();
}

void TSDIAppForm::dropEvent(QDropEvent* event) {
    const QString file = FileOf(*event);
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    networkWindow()->openAny(file);
}

}  // namespace kelvro
