#include "ui/circuit_view.h"

#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QMouseEvent>
#include <QPainter>
#include <QPalette>
#include <utility>

#include "ui/picture_dialog.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr double kMargin = 6;
constexpr double kCopyScale = 2;  // sharp in a document that is printed

QRectF WithinMargins(QSizeF size) {
    return QRectF(QPointF(), size).adjusted(kMargin, kMargin, -kMargin, -kMargin);
}

}  // namespace

CircuitView::CircuitView(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
    setBackgroundRole(QPalette::Base);
    setAutoFillBackground(true);
    setMouseTracking(true);
    setContextMenuPolicy(Qt::ActionsContextMenu);
    const auto add = [this](const char* name, const QString& text, void (CircuitView::*handler)()) {
        auto* action = new QAction(text, this);
        action->setObjectName(QLatin1String(name));
        connect(action, &QAction::triggered, this, handler);
        addAction(action);
    };
    add("CopyCircuit", tr("&Copy Picture"), &CircuitView::CopyCircuitClick);
    add("SaveCircuit", tr("&Save Picture..."), &CircuitView::SaveCircuitClick);
}

void CircuitView::show(std::vector<Network> networks) {
    networks_ = std::move(networks);
    update();
}

QRectF CircuitView::area() const {
    return WithinMargins(size());
}

Drawing CircuitView::drawing() const {
    return [this](QPainter& painter, QSize whole) {
        PaintNetworks(painter, WithinMargins(whole), networks_);
    };
}

void CircuitView::CopyCircuitClick() {
    auto* copied = new QMimeData;
    copied->setImageData(ImageOf(drawing(), size(), kCopyScale));
    if (const Encoded svg = EncodePicture(PictureFormat::Svg, size(), drawing()))
        copied->setData(QStringLiteral("image/svg+xml"), *svg);
    QApplication::clipboard()->setMimeData(copied);
}

void CircuitView::SaveCircuitClick() {
    const QString file =
        AskForPictureFile(*this, "SaveDialogCircuit", QStringLiteral("circuit.svg"));
    const auto format = PictureFormatOf(file);
    if (!format) return;
    const Status saved = SavePicture(file, *format, size(), drawing(), kCopyScale);
    if (!saved) emit failed(Shown(saved.message()));
}

void CircuitView::mouseMoveEvent(QMouseEvent* event) {
    const bool part = !PartAt(area(), networks_, event->position()).isEmpty();
    setCursor(part ? Qt::PointingHandCursor : Qt::ArrowCursor);
}

void CircuitView::mousePressEvent(QMouseEvent* event) {
    const QString part = PartAt(area(), networks_, event->position());
    if (event->button() == Qt::LeftButton && !part.isEmpty()) return emit partClicked(part);
    QWidget::mousePressEvent(event);
}

void CircuitView::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QColor ink = palette().color(QPalette::Text);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    const CircuitColours colours{ink, ink,
                                 dark ? QColor(0x8A, 0xC4, 0xFF) : QColor(0x00, 0x50, 0xA0)};
    PaintNetworks(painter, area(), networks_, colours);
}

}  // namespace kelvro
