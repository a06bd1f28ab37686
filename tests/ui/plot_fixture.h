#pragma once

#include <QtTest>
#include <QtWidgets>
#include <functional>
#include <memory>

#include "analysis/response.h"
#include "design/cycle.h"
#include "tests/ui/files.h"
#include "ui/plot/design_host.h"
#include "ui/plot/form_vu.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

/// The main window's part: a design with its cycle, and no window.
class Host : public DesignHost {
  public:
    Host() {
        result_.design.fo = 1e6;
        recalculate();
    }
    const Design& design() const override { return result_.design; }
    const CycleResult& result() const override { return result_; }
    Design& state() { return result_.design; }
    void recalculate(bool storeComponents = true) override {
        result_ = Calculate(result_.design, storeComponents, services_);
        emit designChanged();
    }
    void goToPage(int page) override {
        result_.design.page = page;
        recalculate();
    }
    void showMessage(const QString& text) override { messages.append(text); }

    QStringList messages;

  private:
    CycleResult result_;
    ResponseServices services_;
};

/// A gain window over a host, as most tests of plots have it; opened before each, closed behind.
class GainWindow {
  protected:
    void openWindow() {
        host_ = std::make_unique<Host>();
        vu_ = std::make_unique<TFormVu>(*host_);
        vu_->show();
        QVERIFY(QTest::qWaitForWindowExposed(vu_.get()));
    }
    void closeWindow() {
        vu_.reset();
        host_.reset();
    }

    static PlotImage& image(QWidget& window) { return *window.findChild<PlotImage*>("Image"); }
    PlotImage& image() { return image(*vu_); }
    QAction& action(const char* name) {
        auto* found = vu_->findChild<QAction*>(name);
        if (!found) qFatal("no action %s", name);
        return *found;
    }
    QPoint pixel(double f, double y) {
        return {image().frame().xPixel(f), image().frame().yPixel(y)};
    }
    void drag(Qt::MouseButton button, QPoint from, QPoint to) {
        QTest::mousePress(&image(), button, {}, from);
        QTest::mouseMove(&image(), (from + to) / 2);
        QTest::mouseMove(&image(), to);
        QTest::mouseRelease(&image(), button, {}, to);
    }
    void turnWheel(QPoint at, int notches, Qt::KeyboardModifiers keys = {}) {
        QWheelEvent event(at, image().mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, keys,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&image(), &event);
    }

    std::unique_ptr<Host> host_;
    std::unique_ptr<TFormVu> vu_;
};

/// Does something to the next modal dialog, as soon as it is open.
class InDialog {
  public:
    explicit InDialog(std::function<void(QWidget&)> act) {
        QObject::connect(&poll_, &QTimer::timeout, &poll_, [this, act] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr) return;
            poll_.stop();
            seen_ = true;
            act(*dialog);
        });
        poll_.start(1);
    }
    bool seen() const { return seen_; }

  private:
    QTimer poll_;
    bool seen_ = false;
};

}  // namespace kelvro
