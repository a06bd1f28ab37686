#pragma once

#include <QtTest>
#include <QtWidgets>

#include "tests/ui/files.h"
#include "ui/fields.h"
#include "ui/sdi_app_form.h"
#include "ui/tab_set.h"

namespace kelvro {

/// A main window of its own with an empty configuration, whose messages are collected instead of
/// shown. Without arguments designs are not optimized. Controls are found by object name and driven
/// by events.
class FormFixture {
  public:
    explicit FormFixture(const QStringList& arguments = {}) {
        qputenv("XDG_CONFIG_HOME", config_.path().toLocal8Bit());
        form_ = std::make_unique<TSDIAppForm>();
        form_->session().setMessageSink([this](const QString& text) { messages << text; });
        QObject::connect(&form_->session(), &DesignSession::calculated, form_.get(),
                         [this] { ++calculations; });
        form_->session().optimizerFiles() = {{}, {}};
        form_->startUp(arguments.isEmpty() ? QStringList("nopt") : arguments);
        form_->show();
        if (!QTest::qWaitForWindowActive(form_.get())) qFatal("the window does not show");
        startMessages = messages;
        messages.clear();
        calculations = 0;
    }

    TSDIAppForm& form() { return *form_; }
    const Design& state() const { return form_->session().design(); }
    Preferences& preferences() { return form_->session().preferences(); }
    QString configFolder() const { return config_.path(); }

    /// A file with a text in the folder of the configuration.
    QString written(const char* name, const QByteArray& text) const {
        const QString path = config_.filePath(name);
        Write(path, text);
        return path;
    }

    template <typename Widget = QLineEdit>
    Widget& find(const QString& name) {
        auto* found = form_->findChild<Widget*>(name);
        if (!found) qFatal("no control %s", qPrintable(name));
        return *found;
    }

    QString text(const QString& edit) { return find(edit).text(); }

    /// Replaces the text of an edit with the keyboard.
    void type(const QString& edit, const QString& text) {
        QLineEdit& field = find(edit);
        field.setFocus();
        field.selectAll();
        QTest::keyClicks(&field, text);
    }

    /// A click on the left end, where check boxes have their mark.
    void click(const QString& button) {
        auto& clicked = find<QAbstractButton>(button);
        QTest::mouseClick(&clicked, Qt::LeftButton, {}, QPoint(8, clicked.height() / 2));
    }

    void choose(const QString& item) { find<QAction>(item).trigger(); }

    void goTo(int page) {
        QTest::mouseClick(find<TabSet>("TabSet1").tab(page - 1), Qt::LeftButton);
    }

    void doubleClick(const QString& edit) { QTest::mouseDClick(&find(edit), Qt::LeftButton); }

    QStringList startMessages;  ///< those of the start
    QStringList messages;       ///< those since then
    int calculations = 0;

  private:
    QTemporaryDir config_;
    std::unique_ptr<TSDIAppForm> form_;
};

}  // namespace kelvro
