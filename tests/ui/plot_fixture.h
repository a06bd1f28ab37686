#pragma once

#include <QApplication>
#include <QStringList>
#include <QTimer>
#include <functional>

#include "analysis/response.h"
#include "design/cycle.h"
#include "ui/plot/design_host.h"

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
