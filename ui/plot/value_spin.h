#pragma once

#include <QWidget>

class QToolButton;

namespace kelvro {

/// A pair of small arrow buttons beside an edit; they repeat while held. The buttons carry the
/// name of the pair with "Up" and "Down" appended.
class ValueSpin : public QWidget {
    Q_OBJECT

  public:
    explicit ValueSpin(const QString& name, QWidget* parent = nullptr);

  signals:
    /// 1 for the up arrow, -1 for the down arrow.
    void clicked(int direction);

  protected:
    bool event(QEvent* event) override;

  private:
    void click(QToolButton& button, int direction);
};

}  // namespace kelvro
