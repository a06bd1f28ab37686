#pragma once

#include <QList>
#include <QStringList>
#include <QWidget>

class QAbstractButton;

namespace kelvro {

/// Tabs that hang below a notebook, in as many rows as it takes to show every caption whole: all
/// pages are in sight and one click away.
class TabSet : public QWidget {
    Q_OBJECT

  public:
    explicit TabSet(const QString& objectName, QWidget* parent = nullptr);

    void setTabs(const QStringList& captions);
    int count() const { return static_cast<int>(tabs_.size()); }
    QString tabText(int index) const;
    /// The button of a tab; named "Tab1", "Tab2", ...
    QAbstractButton* tab(int index) const;
    int currentIndex() const;
    /// Does not emit clicked.
    void setCurrentIndex(int index);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  signals:
    void clicked(int index);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    QList<QAbstractButton*> tabs_;
};

}  // namespace kelvro
