#include "tests/monkey/monkey.h"

#include <QPrintDialog>
#include <QtTest>
#include <QtWidgets>
#include <ctime>

#include "ui/end_request.h"
#include "ui/sdi_app_form.h"

namespace kelvro {

namespace {

constexpr int kLongestInDialog = 60;
constexpr std::size_t kKept = 30;

constexpr const char* kTexts[] = {
    "50",    "200",  "1",     "0",     "-5",  "1e99",          "100M",        "2,2u",      "4.7k",
    "0.001", "nan",  "inf",   "",      "abc", "12-j45",        "R=10 + L=2n", "50 | C=2p", "1 1",
    "\"",    "%s%n", "(((((", "ans^2", "1/0", "9999999999999", "µΩ"};
constexpr const char* kFiles[] = {"a",      "b.kelvro",      "c.ini",      "d.png",
                                  "e.s1p",  "f.svg",         "g.txt",      "h.csv",
                                  "folder", "missing/i.pdf", "no-such.s2p"};
constexpr Qt::Key kKeys[] = {Qt::Key_Tab,    Qt::Key_Backtab, Qt::Key_Return,   Qt::Key_Escape,
                             Qt::Key_Up,     Qt::Key_Down,    Qt::Key_Left,     Qt::Key_Right,
                             Qt::Key_PageUp, Qt::Key_Delete,  Qt::Key_PageDown, Qt::Key_Home,
                             Qt::Key_End,    Qt::Key_Space,   Qt::Key_F1,       Qt::Key_Backspace};

/// Seconds that this process has computed in this thread: other programs of the machine do not
/// count.
double Computed() {
    timespec now{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return static_cast<double>(now.tv_sec) + 1e-9 * static_cast<double>(now.tv_nsec);
}

template <typename List>
auto Visible(const List& widgets) {
    List visible;
    for (auto* widget : widgets) {
        if (widget->isVisible() && widget->isEnabled()) visible.push_back(widget);
    }
    return visible;
}

}  // namespace

Monkey::Monkey(unsigned seed, Limits limits, QString folder)
    : random_(seed), limits_(limits), folder_(std::move(folder)) {}

Monkey::~Monkey() = default;

void Monkey::run() {
    QEventLoop loop;
    connect(this, &Monkey::finished, &loop, &QEventLoop::quit);
    time_.start();
    startProgram();
    computed_ = Computed();
    QTimer::singleShot(0, this, &Monkey::next);
    loop.exec();
    form_.reset();
}

void Monkey::startProgram() {
    form_ = std::make_unique<TSDIAppForm>();
    form_->setProgramStarter([](const QString&) { return false; });
    form_->windows().create(StartStage::BeforeSplash);
    form_->windows().create(StartStage::BehindSplash);
    connect(form_.get(), &TSDIAppForm::formClosed, this, [this] { form_->hide(); });
    form_->startUp({});
    form_->show();
    form_->openNetworkFiles();
}

/// One action. The one behind it is asked for first: a dialog that this one opens runs its own
/// loop.
void Monkey::next() {
    judgeTime();
    if (time_.hasExpired(limits_.milliseconds)) {
        if (QWidget* dialog = QApplication::activeModalWidget()) {
            dialog->close();
        } else if (QWidget* popup = QApplication::activePopupWidget()) {
            popup->close();
        } else if (!ended_) {
            ended_ = true;
            emit finished();
        }
        if (!ended_) QTimer::singleShot(0, this, &Monkey::next);
        return;
    }
    QTimer::singleShot(0, this, &Monkey::next);
    ++actions_;
    act();
}

void Monkey::judgeTime() {
    const double now = Computed();
    const double took = now - computed_;
    if (took > limits_.slow) {
        findings_
            << QString("%1 s: %2").arg(took, 0, 'f', 2).arg(last_.empty() ? "" : last_.back());
    }
    computed_ = Computed();
}

void Monkey::act() {
    if (QWidget* popup = QApplication::activePopupWidget()) return actOnPopup(*popup);
    if (QWidget* dialog = QApplication::activeModalWidget()) return actInDialog(*dialog);
    dialog_.clear();
    if (!form_->isVisible()) {
        note("starts again", nullptr);
        // Behind the windows' own last events.
        form_.reset();
        return startProgram();
    }
    if (rarely(40)) return openWindow();
    QWidgetList windows;
    for (QWidget* window : Visible(QApplication::topLevelWidgets())) {
        if (window->windowType() != Qt::ToolTip) windows << window;
    }
    if (windows.isEmpty()) return;
    QWidget& window = *windows[draw(static_cast<int>(windows.size()))];
    window.activateWindow();
    actOn(window);
}

void Monkey::openWindow() {
    const QStringList names = AppWindows::names();
    const QString& name = names[draw(static_cast<int>(names.size()))];
    note("opens " + name, nullptr);
    form_->windows().open(name);
}

void Monkey::actOnPopup(QWidget& popup) {
    note("popup", &popup);
    if (rarely(3)) {
        popup.close();
    } else if (rarely(2)) {
        QTest::keyClick(&popup, rarely(3) ? Qt::Key_Return : Qt::Key_Down);
    } else {
        QTest::mouseClick(&popup, Qt::LeftButton, {}, pointIn(popup));
    }
}

void Monkey::actInDialog(QWidget& dialog) {
    if (dialog_ != &dialog) inDialog_ = 0;
    dialog_ = &dialog;
    auto* box = qobject_cast<QDialog*>(&dialog);
    // Nothing is sent to a printer.
    const bool leave = ++inDialog_ > kLongestInDialog || qobject_cast<QPrintDialog*>(box);
    if (leave || rarely(12)) {
        note("leaves", &dialog);
        if (box) return box->reject();
        dialog.close();
        return;
    }
    if (auto* files = qobject_cast<QFileDialog*>(box)) return actInFileDialog(*files);
    actOn(dialog);
}

void Monkey::actInFileDialog(QFileDialog& dialog) {
    const QString file = folder_ + '/' + kFiles[draw(static_cast<int>(std::size(kFiles)))];
    note("chooses " + file, &dialog);
    if (rarely(4)) return dialog.reject();
    auto* name = dialog.findChild<QLineEdit*>("fileNameEdit");
    if (!name) return dialog.reject();
    name->setText(file);
    QMetaObject::invokeMethod(&dialog, "accept");
}

void Monkey::actOn(QWidget& window) {
    if (rarely(60)) {
        note("closes", &window);
        window.close();
        return;
    }
    if (rarely(40)) {
        note("resizes", &window);
        window.resize(200 + draw(1400), 150 + draw(900));
        return;
    }
    if (rarely(8)) return triggerAction(window);
    const auto widgets = Visible(window.findChildren<QWidget*>());
    if (widgets.isEmpty()) return;
    // Fields are few among all widgets, and most of what people do.
    const auto fields = Visible(window.findChildren<QLineEdit*>());
    if (!fields.isEmpty() && rarely(3)) {
        return type(*fields[draw(static_cast<int>(fields.size()))]);
    }
    use(*widgets[draw(static_cast<int>(widgets.size()))]);
}

void Monkey::triggerAction(QWidget& window) {
    QList<QAction*> actions;
    for (QAction* action : window.findChildren<QAction*>()) {
        if (action->isEnabled() && !action->menu() && !action->isSeparator()) actions << action;
    }
    if (actions.isEmpty()) return;
    QAction* action = actions[draw(static_cast<int>(actions.size()))];
    note("triggers " + action->objectName() + ' ' + action->text(), &window);
    action->trigger();
}

void Monkey::use(QWidget& widget) {
    const QPoint at = pointIn(widget);
    switch (draw(10)) {
        case 0:
        case 1:
            return type(widget);
        case 2:
            return drag(widget);
        case 3:
            return turnWheel(widget);
        case 4:
            note("double click", &widget);
            return QTest::mouseDClick(&widget, Qt::LeftButton, {}, at);
        case 5: {
            note("context menu", &widget);
            QContextMenuEvent event(QContextMenuEvent::Mouse, at, widget.mapToGlobal(at));
            QApplication::sendEvent(&widget, &event);
            return;
        }
        default:
            note("click", &widget);
            return QTest::mouseClick(&widget, rarely(10) ? Qt::RightButton : Qt::LeftButton, {},
                                     at);
    }
}

void Monkey::type(QWidget& widget) {
    widget.setFocus();
    if (rarely(3)) {
        const Qt::Key key = kKeys[draw(static_cast<int>(std::size(kKeys)))];
        note("key " + QString::number(key, 16), &widget);
        return QTest::keyClick(&widget, key, rarely(5) ? Qt::ControlModifier : Qt::NoModifier);
    }
    const QString typed = text();
    note("types " + typed, &widget);
    if (auto* edit = qobject_cast<QLineEdit*>(&widget); edit && !rarely(3)) edit->selectAll();
    const QPointer<QWidget> alive(&widget);
    for (const QChar letter : typed) {
        if (!alive || QApplication::activeModalWidget()) return;
        QTest::sendKeyEvent(QTest::Click, &widget, Qt::Key_unknown, QString(letter),
                            Qt::NoModifier);
    }
}

void Monkey::drag(QWidget& widget) {
    note("drag", &widget);
    const QPointer<QWidget> alive(&widget);
    const auto button = rarely(3) ? Qt::RightButton : Qt::LeftButton;
    QTest::mousePress(&widget, button, {}, pointIn(widget));
    for (int i = 0; i < 4 && alive; ++i) QTest::mouseMove(&widget, pointIn(widget));
    if (alive) QTest::mouseRelease(&widget, button, {}, pointIn(widget));
}

void Monkey::turnWheel(QWidget& widget) {
    note("wheel", &widget);
    const QPoint at = pointIn(widget);
    const auto keys = rarely(3) ? Qt::ControlModifier : Qt::NoModifier;
    QWheelEvent event(at, widget.mapToGlobal(at), {}, {0, 120 * (draw(7) - 3)}, Qt::NoButton, keys,
                      Qt::NoScrollPhase, false);
    QApplication::sendEvent(&widget, &event);
}

void Monkey::note(const QString& what, const QWidget* widget) {
    QString line = QString::number(actions_) + ' ' + what;
    if (widget) {
        line += QString(" in %1 %2 of %3")
                    .arg(widget->metaObject()->className(), widget->objectName(),
                         widget->window()->metaObject()->className());
    }
    last_.push_back(line);
    if (last_.size() > kKept) last_.pop_front();
}

QString Monkey::lastActions() const {
    return QStringList(last_.begin(), last_.end()).join('\n');
}

int Monkey::draw(int most) {
    // Unlike a distribution the same in every library.
    return most < 1 ? 0 : static_cast<int>(random_() % static_cast<unsigned>(most));
}

QString Monkey::text() {
    if (rarely(2)) return QString::fromUtf8(kTexts[draw(static_cast<int>(std::size(kTexts)))]);
    return QString::number(draw(1000)) +
           (rarely(2) ? QString() : QString("pnumkMG").mid(draw(7), 1));
}

QPoint Monkey::pointIn(const QWidget& widget) {
    return {draw(widget.width()), draw(widget.height())};
}

}  // namespace kelvro
