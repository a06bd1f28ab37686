#include "ui/tab_set.h"

#include <QAbstractButton>
#include <QButtonGroup>
#include <QPainter>
#include <QPainterPath>
#include <algorithm>

#include "ui/fields.h"

namespace kelvro {

namespace {

constexpr int kRows = 2;
constexpr int kPadding = 9;
constexpr int kLeastPadding = 6;  // above and below, in a low window

class TabButton : public QAbstractButton {
  public:
    TabButton(const QString& caption, QWidget* parent) : QAbstractButton(parent) {
        setText(caption);
        setCheckable(true);
        setAutoExclusive(true);
        setFocusPolicy(Qt::TabFocus);
        setAttribute(Qt::WA_Hover);
    }
    QSize sizeHint() const override {
        return {fontMetrics().horizontalAdvance(text()) + 2 * kPadding,
                fontMetrics().height() + 10};
    }

  protected:
    void paintEvent(QPaintEvent*) override {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        const QPalette& p = palette();
        const QRectF box = QRectF(rect()).adjusted(0.5, -6, -0.5, -1.5);
        QPainterPath outline;
        outline.addRoundedRect(box, 5, 5);
        const QColor face = isChecked()    ? p.color(QPalette::Highlight)
                            : underMouse() ? p.color(QPalette::Light)
                                           : p.color(QPalette::Button);
        QColor edge = p.color(QPalette::WindowText);
        edge.setAlpha(70);
        painter.setPen(edge);
        painter.setBrush(face);
        painter.drawPath(outline);
        painter.setPen(p.color(isChecked() ? QPalette::HighlightedText : QPalette::ButtonText));
        painter.drawText(rect().adjusted(0, 0, 0, -1), Qt::AlignCenter, text());
        if (hasFocus()) {
            painter.setPen(QPen(painter.pen().color(), 1, Qt::DotLine));
            painter.setBrush(Qt::NoBrush);
            painter.drawRect(QRectF(rect()).adjusted(3.5, 3.5, -3.5, -4.5));
        }
    }
};

int WidthOf(const QList<QAbstractButton*>& tabs, qsizetype from, qsizetype to) {
    int width = 0;
    for (qsizetype i = from; i < to; ++i) width += tabs[i]->sizeHint().width();
    return width;
}

/// Number of tabs in the first row so that both rows are about equally long.
qsizetype FirstRow(const QList<QAbstractButton*>& tabs) {
    qsizetype best = tabs.size();
    int length = WidthOf(tabs, 0, tabs.size());
    for (qsizetype first = 1; first < tabs.size(); ++first) {
        const int longer = std::max(WidthOf(tabs, 0, first), WidthOf(tabs, first, tabs.size()));
        if (longer < length) {
            length = longer;
            best = first;
        }
    }
    return best;
}

/// Lays tabs [from, to) out in a row, the spare width shared out evenly.
void LayRow(const QList<QAbstractButton*>& tabs, qsizetype from, qsizetype to, QRect row) {
    const int spare = std::max(0, row.width() - WidthOf(tabs, from, to));
    int x = row.left();
    for (qsizetype i = from; i < to; ++i) {
        const auto share = [&](qsizetype n) { return static_cast<int>(spare * n / (to - from)); };
        const int extra = share(i - from + 1) - share(i - from);
        const int width = tabs[i]->sizeHint().width() + extra;
        tabs[i]->setGeometry(x, row.top(), width, row.height());
        x += width;
    }
}

}  // namespace

TabSet::TabSet(const QString& objectName, QWidget* parent) : QWidget(parent) {
    setObjectName(objectName);
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Maximum);
}

void TabSet::setTabs(const QStringList& captions) {
    qDeleteAll(tabs_);
    tabs_.clear();
    for (const QString& caption : captions) {
        const int index = count();
        auto* tab = new TabButton(caption, this);
        tab->setObjectName(QStringLiteral("Tab%1").arg(index + 1));
        SetHint(*tab, tr("Page %1; Ctrl+PgUp and Ctrl+PgDn lead to the one before and the next")
                          .arg(index + 1));
        connect(tab, &QAbstractButton::clicked, this, [this, index] { emit clicked(index); });
        tabs_.append(tab);
    }
    setCurrentIndex(0);
    updateGeometry();
}

QString TabSet::tabText(int index) const {
    return tabs_.value(index) ? tabs_[index]->text() : QString();
}

QAbstractButton* TabSet::tab(int index) const {
    return tabs_.value(index);
}

int TabSet::currentIndex() const {
    const auto at = std::ranges::find_if(tabs_, &QAbstractButton::isChecked);
    return at == tabs_.end() ? -1 : static_cast<int>(at - tabs_.begin());
}

void TabSet::setCurrentIndex(int index) {
    if (QAbstractButton* button = tabs_.value(index)) button->setChecked(true);
}

QSize TabSet::sizeHint() const {
    if (tabs_.isEmpty()) return {};
    const qsizetype first = FirstRow(tabs_);
    const int width = std::max(WidthOf(tabs_, 0, first), WidthOf(tabs_, first, tabs_.size()));
    return {width, kRows * tabs_.first()->sizeHint().height()};
}

QSize TabSet::minimumSizeHint() const {
    return {sizeHint().width(), kRows * (fontMetrics().height() + kLeastPadding)};
}

void TabSet::resizeEvent(QResizeEvent*) {
    if (tabs_.isEmpty()) return;
    const qsizetype first = FirstRow(tabs_);
    const int height = this->height() / kRows;
    LayRow(tabs_, 0, first, QRect(0, 0, width(), height));
    LayRow(tabs_, first, tabs_.size(), QRect(0, height, width(), height));
}

}  // namespace kelvro
