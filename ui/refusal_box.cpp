#include "ui/refusal_box.h"

#include <QApplication>
#include <QKeyEvent>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>
#include <memory>

#include "ui/design_session.h"
#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Does the key belong to a text? Space presses the buttons of the box.
bool Types(const QKeyEvent& key) {
    constexpr auto commands = Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier;
    if (key.modifiers() & commands) return false;
    if (key.key() == Qt::Key_Backspace || key.key() == Qt::Key_Delete) return true;
    return !key.text().isEmpty() && key.text().front().isPrint() && key.key() != Qt::Key_Space;
}

class RefusalBox : public QMessageBox {
  public:
    RefusalBox(const QString& reason, QWidget* parent)
        : QMessageBox(Information, Shown(kApplicationTitle), reason, Ok, parent) {
        setObjectName(QStringLiteral("RefusalBox"));
        setTextFormat(Qt::PlainText);  // "R2<R1!" is no markup
        setEscapeButton(Ok);
    }
    /// The key that has closed the box; null where it was closed otherwise.
    std::unique_ptr<QKeyEvent> takeKey() { return std::move(key_); }

  protected:
    void keyPressEvent(QKeyEvent* event) override {
        if (!Types(*event)) return QMessageBox::keyPressEvent(event);
        key_.reset(event->clone());
        event->accept();
        reject();
    }

  private:
    std::unique_ptr<QKeyEvent> key_;
};

}  // namespace

bool ShowRefusalBox(const QString& reason, bool offersSwitch) {
    const QPointer<QWidget> field = QApplication::focusWidget();
    RefusalBox box(reason, QApplication::activeWindow());
    QPushButton* exchange = nullptr;
    if (offersSwitch) {
        exchange = box.addButton(QObject::tr("&Switch"), QMessageBox::ActionRole);
        exchange->setObjectName(QStringLiteral("ButtonSwitch"));
        SetHint(*exchange, QObject::tr("Switch R1 and R2"));
    }
    box.exec();
    // Behind the handler of the key before, which still runs.
    if (auto key = box.takeKey(); key && field) QCoreApplication::postEvent(field, key.release());
    return exchange && box.clickedButton() == exchange;
}

}  // namespace kelvro
