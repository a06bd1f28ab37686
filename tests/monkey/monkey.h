#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QString>
#include <QStringList>
#include <deque>
#include <memory>
#include <random>

class QAbstractButton;
class QFileDialog;
class QLineEdit;
class QWidget;

namespace kelvro {

class TSDIAppForm;

/// Uses the whole program at random: types, clicks, drags, turns the wheel, opens and closes
/// windows and dialogs. The same seed does the same as far as the program answers in the same time.
/// Works inside the process, from the event loop, so that nested loops of dialogs go on.
class Monkey : public QObject {
    Q_OBJECT

  public:
    struct Limits {
        qint64 milliseconds = 60000;  ///< of the whole run
        double slow = 0.5;            ///< seconds of computing that a user takes for a hang
    };

    /// `folder` is where files may be written.
    Monkey(unsigned seed, Limits limits, QString folder);
    ~Monkey() override;

    /// Starts the program and uses it; returns behind the time.
    void run();
    int actions() const { return actions_; }
    /// What took too long, a line each.
    const QStringList& findings() const { return findings_; }
    /// The last things it did, for whoever looks for the reason of a crash.
    QString lastActions() const;

  signals:
    void finished();

  private:
    void startProgram();
    void next();
    void judgeTime();
    void act();
    void actInDialog(QWidget& dialog);
    void actInFileDialog(QFileDialog& dialog);
    void actOn(QWidget& window);
    void actOnPopup(QWidget& popup);
    void openWindow();
    void triggerAction(QWidget& window);
    void use(QWidget& widget);
    void type(QWidget& widget);
    void drag(QWidget& widget);
    void turnWheel(QWidget& widget);
    void note(const QString& what, const QWidget* widget);

    int draw(int most);  ///< 0..most-1
    bool rarely(int onceIn) { return draw(onceIn) == 0; }
    QString text();
    QPoint pointIn(const QWidget& widget);

    std::mt19937 random_;
    const Limits limits_;
    const QString folder_;
    QElapsedTimer time_;
    std::unique_ptr<TSDIAppForm> form_;
    QPointer<QWidget> dialog_;  ///< that it has been in ...
    int inDialog_ = 0;          ///< ... for so many actions
    double computed_ = 0;       ///< seconds at the last action
    int actions_ = 0;
    bool ended_ = false;
    QStringList findings_;
    std::deque<QString> last_;
};

}  // namespace kelvro
