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
        state_.fo = 1e6;
        recalculate();
    }
    DesignState& state() override { return state_; }
    void recalculate(bool storeComponents = true) override {
        Calculate(state_, storeComponents, services_);
        emit designChanged();
    }
    void goToPage(int page) override {
        state_.page = page;
        recalculate();
    }
    void showMessage(const QString& text) override { messages.append(text); }

    QStringList messages;

  private:
    DesignState state_;
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
