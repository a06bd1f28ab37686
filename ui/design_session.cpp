#include "ui/design_session.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "design/pages.h"

namespace kelvro {

DesignSession::DesignSession(QObject* parent) : DesignHost(parent), messageSink_(ShowMessageBox) {}

void DesignSession::recalculate(bool storeComponents) {
    show(Calculate(state_, storeComponents, optimizer_));
}

void DesignSession::showComponents() {
    show(ShowComponents(state_, optimizer_));
}

void DesignSession::show(CycleResult result) {
    result_ = std::move(result);
    state_ = result_.design;
    emit calculated(result_);
    emit designChanged();
    // Last, because a modal box runs its own event loop: every window is up to date behind it.
    if (result_.message) showMessage(QString::fromStdString(*result_.message));
}

void DesignSession::goToPage(int page) {
    EnterPage(state_, page);
    showPage();
}

void DesignSession::showPage() {
    emit pageEntered();
    recalculate();
}

void DesignSession::showMessage(const QString& text) {
    messageSink_(text);
}

QString DesignSession::fieldText(std::string_view object) const {
    return fieldTexts_ ? fieldTexts_(object) : QString();
}

void DesignSession::setMessageSink(MessageSink sink) {
    messageSink_ = std::move(sink);
}

void DesignSession::announceInputs() {
    emit inputsWritten();
}

void ShowMessageBox(const QString& text) {
    QMessageBox box(QMessageBox::Information, QString::fromLatin1(kApplicationTitle), text,
                    QMessageBox::Ok, QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);  // "R2<R1!" is no markup
    box.exec();
}

}  // namespace kelvro
