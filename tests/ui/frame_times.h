#pragma once

#include <QElapsedTimer>
#include <QEvent>
#include <QMouseEvent>
#include <QString>
#include <QTimer>
#include <QWidget>
#include <algorithm>
#include <vector>

namespace kelvro {

/// How long it takes from a move of the pointer until the last view is painted.
class FrameTimes : public QObject {
  public:
    FrameTimes(QWidget& moved, QWidget& last) : moved_(moved) {
        moved.installEventFilter(this);
        const auto parts = last.findChildren<QWidget*>();
        for (QWidget* part : parts) part->installEventFilter(this);
    }
    QString text() const {
        auto sorted = times_;
        std::ranges::sort(sorted);
        if (sorted.empty()) return "nothing painted";
        return QString("median %1 ms, longest %2 ms of %3")
            .arg(sorted[sorted.size() / 2], 0, 'f', 1)
            .arg(sorted.back(), 0, 'f', 1)
            .arg(sorted.size());
    }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (watched == &moved_ && event->type() == QEvent::MouseMove) {
            // A pointer that only passes over paints nothing.
            const bool drags = static_cast<QMouseEvent*>(event)->buttons() != Qt::NoButton;
            if (drags && !timer_.isValid()) timer_.start();
        } else if (watched != &moved_ && event->type() == QEvent::Paint && timer_.isValid()) {
            // The paint itself comes behind this filter.
            QTimer::singleShot(0, this, [this] {
                if (timer_.isValid()) times_.push_back(double(timer_.nsecsElapsed()) / 1e6);
                timer_.invalidate();
            });
        }
        return false;
    }

  private:
    QWidget& moved_;
    QElapsedTimer timer_;
    std::vector<double> times_;
};

}  // namespace kelvro
