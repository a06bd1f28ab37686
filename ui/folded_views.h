#pragma once

#include <QWidget>
#include <vector>

class QBoxLayout;
class QTabBar;

namespace kelvro {

/// Views one above the other where there is room for all, else one at a time behind tabs.
class FoldedViews : public QWidget {
    Q_OBJECT

  public:
    explicit FoldedViews(QWidget* parent = nullptr);

    /// Another view, which wants at least this height beside the others.
    void add(QWidget* view, const QString& caption, int height);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct View {
        QWidget* widget;
        int height;
    };

    /// Of all views one above the other.
    int unfoldedHeight() const;
    void showViews();

    QTabBar* tabs_;
    QBoxLayout* column_;
    std::vector<View> views_;
};

}  // namespace kelvro
