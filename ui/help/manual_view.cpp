#include "ui/help/manual_view.h"

#include <QImage>
#include <QPainter>

#include "analysis/response.h"
#include "design/pages.h"
#include "plot/circuit_painter.h"

namespace kelvro {

namespace {

/// The design that a chapter's picture shows: the defaults, with R1 and R2 in the order that the
/// page asks for.
Design ExampleOf(int page) {
    Design state;
    EnterPage(state, page);
    ResponseServices services;
    const CycleResult result = Calculate(state, true, services);
    if (!result.message) return result.design;
    std::swap(state.R1, state.R2);
    return Calculate(state, true, services).design;
}

QImage CircuitPicture(int page, double ratio) {
    const QSizeF size(560, 230);
    QImage image((size * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::white);
    const Design state = ExampleOf(page);
    QPainter painter(&image);
    painter.scale(ratio, ratio);
    PaintNetworks(painter, QRectF(QPointF(0, 0), size).adjusted(8, 8, -8, -8),
                  PageOf(page).drawnNetworks(state));
    return image;
}

}  // namespace

QVariant ManualView::loadResource(int type, const QUrl& name) {
    const QString path = name.toString();
    const QString circuit = QStringLiteral("picture:circuit-");
    if (path.startsWith(circuit)) return CircuitPicture(path.mid(circuit.size()).toInt(), 2);
    const QString picture = QStringLiteral("picture:");
    if (path.startsWith(picture)) {
        return QImage(QStringLiteral(":/manual/%1.png").arg(path.mid(picture.size())));
    }
    return QTextBrowser::loadResource(type, name);
}

}  // namespace kelvro
