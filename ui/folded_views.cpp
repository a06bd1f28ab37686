#include "ui/folded_views.h"

#include <QTabBar>
#include <QVBoxLayout>
#include <algorithm>

#include "ui/fields.h"

namespace kelvro {

FoldedViews::FoldedViews(QWidget* parent)
    : QWidget(parent), tabs_(new QTabBar), column_(new QVBoxLayout(this)) {
    tabs_->setDrawBase(false);
    SetHint(*tabs_, tr("A higher window shows all of these"));
    column_->setContentsMargins(0, 0, 0, 0);
    column_->setSpacing(2);
    column_->addWidget(tabs_);
    connect(tabs_, &QTabBar::currentChanged, this, &FoldedViews::showViews);
}

void FoldedViews::add(QWidget* view, const QString& caption, int height) {
    views_.push_back({view, height});
    column_->addWidget(view, 1);
    tabs_->addTab(caption);
    showViews();
}

int FoldedViews::unfoldedHeight() const {
    int whole = 0;
    for (const View& view : views_) whole += view.height + column_->spacing();
    return whole;
}

QSize FoldedViews::sizeHint() const {
    return {minimumSizeHint().width(), unfoldedHeight()};
}

QSize FoldedViews::minimumSizeHint() const {
    QSize least;
    for (const View& view : views_)
        least =
            least.expandedTo(view.widget->minimumSizeHint()).expandedTo(view.widget->minimumSize());
    return least + QSize(0, tabs_->sizeHint().height() + column_->spacing());
}

void FoldedViews::resizeEvent(QResizeEvent* event) {
    showViews();
    QWidget::resizeEvent(event);
}

void FoldedViews::showViews() {
    const bool folded = height() < unfoldedHeight();
    tabs_->setVisible(folded);
    for (std::size_t i = 0; i < views_.size(); ++i)
        views_[i].widget->setVisible(!folded || static_cast<int>(i) == tabs_->currentIndex());
}

}  // namespace kelvro
