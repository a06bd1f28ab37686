#include "ui/plot/plot_form.h"

#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QMenuBar>
#include <QMouseEvent>
#include <QScreen>
#include <QShowEvent>
#include <QStatusBar>
#include <QToolBar>
#include <QToolButton>
#include <algorithm>
#include <array>
#include <cmath>

#include "design/cycle.h"
#include "design/pages.h"
#include "ui/plot/icons.h"
#include "ui/plot/plot_image.h"
#include "ui/plot/xmax_dialog.h"

namespace kelvro {

namespace {

/// Larger windows would only cost memory.
constexpr int kLargestSide = 8192;

struct ToolEntry {
    const char* name;
    const char* icon;
    const char* hint;
    void (PlotForm::*handler)();
};

constexpr std::array kToolEntries{
    ToolEntry{"VergroessernButton", "enlarge", "Enlarge the window",
              &PlotForm::VergroessernButtonClick},
    ToolEntry{"VerkleinernButton", "reduce", "Reduce the window",
              &PlotForm::VerkleinernButtonClick},
    ToolEntry{"StandardgrButton", "standard size", "Standard size of the window",
              &PlotForm::StandardgrButtonClick},
    ToolEntry{"AutoskButton", "autoscale", "Scale both axes to the curve",
              &PlotForm::AutoskButtonClick},
    ToolEntry{"xlogButton", "log x", "Logarithmic frequency axis", &PlotForm::xlogButtonClick},
    ToolEntry{"ZoomInButton", "zoom in", "Zoom in (or turn the wheel at a place)",
              &PlotForm::ZoomInButtonClick},
    ToolEntry{"ZoomOutButton", "zoom out", "Zoom out (or turn the wheel at a place)",
              &PlotForm::ZoomOutButtonClick},
    ToolEntry{"DotButton", "curve style", "Curve as line, line with dots, dashed line",
              &PlotForm::DotButtonClick},
};

struct MenuEntry {
    const char* name;  ///< null for a separator
    const char* text;
    const char* shortcut;
    void (PlotForm::*handler)();
};

constexpr MenuEntry kSeparator{nullptr, nullptr, nullptr, nullptr};

constexpr std::array kFileEntries{
    MenuEntry{"Save1", "&Save as Bitmap...", "Ctrl+S", &PlotForm::Save1Click},
    MenuEntry{"SaveWMF1", "Save as &Metafile...", "", &PlotForm::SaveWMF1Click},
    MenuEntry{"SaveasJPEG1", "Save as &JPEG...", "", &PlotForm::SaveasJPEG1Click},
    MenuEntry{"SaveasGIF1", "Save as &GIF...", "", &PlotForm::SaveasGIF1Click},
    MenuEntry{"SaveasPNG1", "Save as P&NG...", "", &PlotForm::SaveasPNG1Click},
    MenuEntry{"SaveasSVG1", "Save as S&VG...", "", &PlotForm::SaveasSVG1Click},
    MenuEntry{"SaveasPDF1", "Save as P&DF...", "", &PlotForm::SaveasPDF1Click},
    kSeparator,
    MenuEntry{"SaveasTable1", "Save as &Table...", "Ctrl+T", &PlotForm::SaveasTable1Click},
    kSeparator,
    MenuEntry{"Print1", "&Print...", "Ctrl+P", &PlotForm::Print1Click},
};

constexpr std::array kEditEntries{
    MenuEntry{"Copy1", "&Copy", "Ctrl+C", &PlotForm::Copy1Click},
};

constexpr std::array kViewEntries{
    MenuEntry{"Vergroessern1", "&Enlarge", "Ctrl++", &PlotForm::Vergroessern1Click},
    MenuEntry{"Verkleinern1", "&Reduce", "Ctrl+-", &PlotForm::Verkleinern1Click},
    MenuEntry{"Standardgroesse1", "&Standard Size", "Ctrl+0", &PlotForm::Standardgroesse1Click},
    kSeparator,
    MenuEntry{"Autoskalierung1", "&Autoscale", "A", &PlotForm::Autoskalierung1Click},
    MenuEntry{"xAutoskalierung1", "&x Autoscale", "", &PlotForm::xAutoskalierung1Click},
    MenuEntry{"yAutoskalierung1", "&y Autoscale", "", &PlotForm::yAutoskalierung1Click},
    kSeparator,
    MenuEntry{"ZoomIn1", "Zoom &In", "+", &PlotForm::ZoomInButtonClick},
    MenuEntry{"ZoomOut1", "Zoom &Out", "-", &PlotForm::ZoomOutButtonClick},
    kSeparator,
    MenuEntry{"xlog1", "x &log", "L", &PlotForm::xlog1Click},
    MenuEntry{"Ursprungfestlegen1", "Set O&rigin...", "", &PlotForm::Ursprungfestlegen1Click},
};

/// Opens a window that the plots do not know; whoever shows them connects it.
constexpr std::array kHelpEntries{
    MenuEntry{"GRHilfe1", "&Help on plots", "F1", nullptr},
};

constexpr const char* kZoneHints[] = {"", "Click to set xmin", "Click to set xmax",
                                      "Click to set ymin", "Click to set ymax"};

bool IsLogX(const View& view) {
    return view.x.mode == AxisMode::Logarithmic;
}

}  // namespace

PlotForm::PlotForm(DesignHost& host, const Texts& texts, Quantity quantity, QWidget* parent)
    : QMainWindow(parent, Qt::Window),
      host_(host),
      texts_(texts),
      quantity_(quantity),
      view_(DefaultView(quantity, host.design().fo)),
      image_(new PlotImage(this)),
      toolBar_(addToolBar(tr("Tools"))),
      status_(new QLabel(this)) {
    setObjectName(texts.objectName);
    setWindowTitle(texts.caption);
    image_->setObjectName("Image");
    setCentralWidget(image_);
    status_->setObjectName("StatusLabel");
    status_->setTextFormat(Qt::PlainText);
    status_->setMinimumWidth(1);
    statusBar()->addWidget(status_, 1);
    buildToolBar();
    buildMenus();
    connect(image_, &PlotImage::mouseMoved, this, &PlotForm::ImageMouseMove);
    connect(image_, &PlotImage::mousePressed, this, &PlotForm::ImageMouseDown);
    connect(image_, &PlotImage::mouseReleased, this, &PlotForm::ImageMouseUp);
    connect(image_, &PlotImage::wheelTurned, this, &PlotForm::ImageMouseWheel);
    connect(image_, &PlotImage::keyPressed, this, &PlotForm::ImageKeyDown);
    connect(image_, &PlotImage::resized, this, &PlotForm::FormResize);
    connect(&host_, &DesignHost::designChanged, this, &PlotForm::designChanged);
    resizeTo(StandardSize(screen()->size().width()));
}

QToolButton* PlotForm::addToolButton(const QString& name, const char* icon, const QString& hint) {
    auto* button = new QToolButton(toolBar_);
    button->setObjectName(name);
    button->setIcon(VectorIcon(icon));
    button->setToolTip(hint);
    button->setAutoRaise(true);
    button->setFocusPolicy(Qt::NoFocus);
    toolBar_->addWidget(button);
    return button;
}

void PlotForm::buildToolBar() {
    toolBar_->setObjectName("ToolBar");
    toolBar_->setMovable(false);
    toolBar_->setIconSize(QSize(18, 18));
    for (const ToolEntry& entry : kToolEntries) {
        auto* button = addToolButton(entry.name, entry.icon, tr(entry.hint));
        button->setCheckable(entry.handler == &PlotForm::xlogButtonClick);
        connect(button, &QToolButton::clicked, this, entry.handler);
    }
}

void PlotForm::buildMenus() {
    const auto fill = [this](QMenu* menu, const auto& entries) {
        for (const MenuEntry& entry : entries) {
            if (entry.name == nullptr) {
                menu->addSeparator();
                continue;
            }
            QAction* action = menu->addAction(tr(entry.text));
            action->setObjectName(entry.name);
            action->setShortcut(QKeySequence(entry.shortcut));
            action->setCheckable(entry.handler == &PlotForm::xlog1Click);
            if (entry.handler) connect(action, &QAction::triggered, this, entry.handler);
        }
    };
    QMenu* file = menuBar()->addMenu(tr("&File"));
    fill(file, kFileEntries);
    file->addSeparator();
    file->addAction(tr("&Close"), QKeySequence("Ctrl+W"), this, &QWidget::close);
    fill(menuBar()->addMenu(tr("&Edit")), kEditEntries);
    fill(menuBar()->addMenu(tr("&View")), kViewEntries);
    fill(menuBar()->addMenu(tr("&Help")), kHelpEntries);
}

void PlotForm::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!event->spontaneous()) FormShow();
}

void PlotForm::FormShow() {
    stopReading();
    cancelDrag();
    setView(DefaultView(quantity_, host_.design().fo));
    image_->setFocus();
}

void PlotForm::designChanged() {
    if (isVisible()) redraw();
}

void PlotForm::setView(const View& view) {
    view_ = view;
    host_.publish(Published(view_));
    showLogState();
    redraw();
}

void PlotForm::redraw() {
    const std::string_view page = PageOf(host_.design()).caption;
    setWindowTitle(texts_.caption + " - " + QString::fromUtf8(page.data(), qsizetype(page.size())));
    samples_ = Sampled(host_.design(), view_, quantity_);
    image_->setPicture(ResponsePicture(host_.design(), view_, quantity_, look_, samples_));
    if (reading_) moveReading(sampleNearest(*reading_));
}

void PlotForm::showLogState() {
    findChild<QAction*>("xlog1")->setChecked(IsLogX(view_));
    findChild<QToolButton*>("xlogButton")->setChecked(IsLogX(view_));
}

void PlotForm::resizeTo(PixelSize size) {
    resize(std::min(size.width, kLargestSide), std::min(size.height, kLargestSide));
}

void PlotForm::Vergroessern1Click() {
    resizeTo(Enlarged({width(), height()}));
}

void PlotForm::Verkleinern1Click() {
    resizeTo(Reduced({width(), height()}));
}

void PlotForm::Standardgroesse1Click() {
    resizeTo(StandardSize(screen()->size().width()));
}

void PlotForm::Autoskalierung1Click() {
    View view = view_;
    view.x = AutoscaledX(view.x, samples_.validX());
    view.y = AutoscaledToSamples(view.y, Sampled(host_.design(), view, quantity_));
    setView(view);
}

void PlotForm::xAutoskalierung1Click() {
    View view = view_;
    view.x = AutoscaledX(view.x, samples_.validX());
    setView(view);
}

void PlotForm::yAutoskalierung1Click() {
    View view = view_;
    view.y = AutoscaledToSamples(view.y, samples_);
    setView(view);
}

void PlotForm::xlog1Click() {
    View view = view_;
    view.x.mode = IsLogX(view) ? AxisMode::Linear : AxisMode::Logarithmic;
    view.x = AutoscaledX(view.x, samples_.x);
    setView(view);
}

void PlotForm::Ursprungfestlegen1Click() {
    const QPoint at(image_->frame().plot.left, image_->frame().plot.bottom);
    View view = view_;
    if (const auto x = askValue(XOriginEdit(view), true, at)) view.x.origin = *x;
    if (const auto y = askValue(YOriginEdit(view), false, at)) view.y.origin = *y;
    setView(view);
}

/// The sample that is read, else the one at fo, as far as it is in view: what a zoom is about.
WorldPoint PlotForm::zoomCentre() const {
    const auto at = static_cast<std::size_t>(sampleNearest(reading_.value_or(host_.design().fo)));
    const auto visible = [](const Axis& axis, double value) {
        return axis.min < value && value < axis.max ? value : Middle(axis);
    };
    return {visible(view_.x, samples_.x[at]), visible(view_.y, samples_.y[at])};
}

void PlotForm::zoomAll(double factor) {
    View view = view_;
    const WorldPoint centre = zoomCentre();
    view.x = Zoomed(view.x, factor, centre.x, FrequencyLimits(view.x, host_.design().fo));
    view.y = Zoomed(view.y, factor, centre.y, {});
    setView(view);
}

void PlotForm::ZoomInButtonClick() {
    zoomAll(kZoomStep);
}

void PlotForm::ZoomOutButtonClick() {
    zoomAll(1 / kZoomStep);
}

void PlotForm::DotButtonClick() {
    look_ = NextLook(look_);
    redraw();
}

std::optional<double> PlotForm::askValue(const ValueEdit& edit, bool frequency, QPoint at) {
    const QString unit = frequency ? "Hz" : quantity_ == Quantity::Phase ? "°" : "dB";
    const double step = frequency ? 0 : view_.y.step * view_.y.labelEvery;
    TXmaxDlg1 dialog(edit, unit, {host_.preferences().SweepFactor, step}, this);
    const QRect screenArea = screen()->availableGeometry();
    const QSize size = dialog.sizeHint();
    const QPoint place = pos() + at + QPoint(48, -72);
    dialog.move(std::clamp(place.x(), screenArea.left(),
                           std::max(screenArea.left(), screenArea.right() - size.width())),
                std::clamp(place.y(), screenArea.top(),
                           std::max(screenArea.top(), screenArea.bottom() - size.height())));
    if (dialog.exec() != QDialog::Accepted) return std::nullopt;
    return dialog.value();
}

void PlotForm::editEnd(Zone zone, QPoint at) {
    const bool frequency = zone == Zone::XStart || zone == Zone::XEnd;
    const ValueEdit edit = EndEdit(view_, zone, host_.design().fo);
    if (const auto value = askValue(edit, frequency, at)) setView(WithEnd(view_, zone, *value));
}

void PlotForm::showReadOut(WorldPoint place) {
    status_->setText(
        QString::fromStdString(ReadOut(host_.design(), host_.result().v, quantity_, place)));
}

void PlotForm::moveCursor(Zone zone, bool inside) {
    image_->setToolTip(tr(kZoneHints[static_cast<std::size_t>(zone)]));
    if (zone == Zone::XStart || zone == Zone::XEnd) {
        image_->setCursor(Qt::SizeHorCursor);
    } else if (zone == Zone::YStart || zone == Zone::YEnd) {
        image_->setCursor(Qt::SizeVerCursor);
    } else if (inside) {
        static const QCursor kCross = PlotCursor();
        image_->setCursor(kCross);
    } else {
        image_->unsetCursor();
    }
}

void PlotForm::ImageMouseMove(QMouseEvent* event) {
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    stopReading();
    moveCursor(ZoneAt(frame.plot, at.x(), at.y()), frame.contains(at.x(), at.y()));
    showReadOut(frame.toWorld(at.x(), at.y()));
    if (dragStart_) {
        const auto& plot = frame.plot;
        const QPoint end(std::clamp(event->pos().x(), plot.left, plot.right),
                         std::clamp(event->pos().y(), plot.top, plot.bottom));
        image_->setRubberBand(QRect(*dragStart_, end));
    }
}

void PlotForm::ImageMouseDown(QMouseEvent* event) {
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    if (event->button() == Qt::LeftButton) {
        const Zone zone = ZoneAt(frame.plot, at.x(), at.y());
        if (zone != Zone::None) editEnd(zone, event->pos());
    } else if (event->button() == Qt::RightButton && frame.contains(at.x(), at.y())) {
        dragStart_ = event->pos();
    }
}

void PlotForm::ImageMouseUp(QMouseEvent* event) {
    if (event->button() != Qt::RightButton || !dragStart_) return;
    const Frame frame = image_->frame();
    const QPoint start = *dragStart_;
    const QPointF end = event->position();
    cancelDrag();
    if (!frame.contains(end.x(), end.y())) return;
    const auto zoomed =
        DragZoomed(view_, frame.toWorld(start.x(), start.y()), frame.toWorld(end.x(), end.y()));
    if (zoomed) {
        setView(*zoomed);
    } else {
        redraw();
    }
}

void PlotForm::ImageMouseWheel(QWheelEvent* event) {
    const QPoint turned = event->angleDelta();
    const double notches = std::clamp((turned.x() + turned.y()) / 120.0, -10.0, 10.0);
    const double factor = std::pow(kZoomStep, notches);
    const QPointF at = event->position();
    const Frame& frame = image_->frame();
    const WorldPoint fixed = frame.toWorld(at.x(), at.y());
    const bool onlyX = event->modifiers() & Qt::ControlModifier || at.y() > frame.plot.bottom;
    const bool onlyY = event->modifiers() & Qt::ShiftModifier || at.x() < frame.plot.left;
    View view = view_;
    if (!onlyY) {
        view.x = Zoomed(view.x, factor, fixed.x, FrequencyLimits(view.x, host_.design().fo));
    }
    if (!onlyX) view.y = Zoomed(view.y, factor, fixed.y, {});
    setView(view);
    event->accept();
}

void PlotForm::ImageKeyDown(QKeyEvent* event) {
    const int step = event->modifiers() & Qt::ShiftModifier ? 10 : 1;
    const int last = static_cast<int>(samples_.x.size()) - 1;
    const auto moved = [&](int by) {
        const int start = sampleNearest(reading_.value_or(host_.design().fo));
        moveReading(reading_ ? start + by : start);
    };
    switch (event->key()) {
        case Qt::Key_Escape:
            return dragStart_ ? cancelDrag() : stopReading();
        case Qt::Key_Left:
            return moved(-step);
        case Qt::Key_Right:
            return moved(step);
        case Qt::Key_Home:
            return moveReading(0);
        case Qt::Key_End:
            return moveReading(last);
        case Qt::Key_Up:
            return moveReading(static_cast<int>(
                std::max_element(samples_.validY().begin(), samples_.validY().end()) -
                samples_.validY().begin() + static_cast<std::ptrdiff_t>(samples_.first)));
        default:
            event->ignore();
    }
}

int PlotForm::sampleNearest(double frequency) const {
    const auto distance = [=](double f) { return std::fabs(f - frequency); };
    const auto nearest =
        std::min_element(samples_.x.begin(), samples_.x.end(),
                         [&](double a, double b) { return distance(a) < distance(b); });
    return static_cast<int>(nearest - samples_.x.begin());
}

void PlotForm::moveReading(int index) {
    const int last = static_cast<int>(samples_.x.size()) - 1;
    const int first = std::min(static_cast<int>(samples_.first), last);
    const auto at = static_cast<std::size_t>(std::clamp(index, first, last));
    const Frame& frame = image_->frame();
    reading_ = samples_.x[at];
    image_->setCross(QPointF(frame.xPixel(samples_.x[at]), frame.yPixel(samples_.y[at])));
    showReadOut({samples_.x[at], samples_.y[at]});
}

void PlotForm::stopReading() {
    reading_.reset();
    if (image_->hasCross()) image_->setCross(std::nullopt);
}

void PlotForm::cancelDrag() {
    dragStart_.reset();
    if (image_->rubberBand()) image_->setRubberBand(std::nullopt);
}

}  // namespace kelvro
