#pragma once

#include "tests/ui/plot_fixture.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

/// A Network window with settings of its own, whose messages are collected instead of shown.
/// Controls are found by object name and driven by events.
class NetworkFixture {
  public:
    NetworkFixture() {
        qputenv("XDG_CONFIG_HOME", folder_.path().toLocal8Bit());
        qputenv("XDG_STATE_HOME", folder_.path().toLocal8Bit());
        window_ = std::make_unique<NetworkWindow>(host_);
        window_->setMessageSink([this](const QString& text) { messages << text; });
        window_->resize(1024, 600);
        window_->show();
        // Where nobody manages the windows, the keys go to one that asks for them.
        window_->activateWindow();
        if (!QTest::qWaitForWindowActive(window_.get())) qFatal("the window does not show");
    }
    ~NetworkFixture() { window_->model().markSaved(); }

    NetworkWindow& operator*() { return *window_; }
    NetworkWindow* operator->() { return window_.get(); }
    NetworkModel& model() { return window_->model(); }
    QString path(const char* name) const { return folder_.filePath(QLatin1String(name)); }

    template <typename Widget>
    static Widget& find(QWidget& in, const char* name) {
        auto* found = in.findChild<Widget*>(QLatin1String(name));
        if (!found) qFatal("no control %s", name);
        return *found;
    }
    template <typename Widget>
    Widget& find(const char* name) {
        return find<Widget>(*window_, name);
    }
    void trigger(const char* action) { find<QAction>(action).trigger(); }

    static void type(QWidget& in, const char* edit, const char* text) {
        auto& field = find<QLineEdit>(in, edit);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, QLatin1String(text));
    }
    void type(const char* edit, const char* text) { type(*window_, edit, text); }

    double value(std::size_t index) {
        const auto& ladder = model().network().ladder;
        return ValueOf(ladder, TunablesOf(ladder).at(index));
    }

    QStringList messages;

  private:
    QTemporaryDir folder_;
    Host host_;
    std::unique_ptr<NetworkWindow> window_;
};

}  // namespace kelvro
