#include "ui/workbench/limit_watch.h"

#include <cmath>

#include "core/number_text.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// What a limit depends on.
Network EndsOf(const Network& network) {
    Network ends;
    ends.source = network.source;
    ends.load = network.load;
    ends.bands = network.bands;
    return ends;
}

}  // namespace

QString LimitSentence(const GainLimit& limit) {
    const double dB = 10 * std::log10(limit.GT);
    // Not "-0.000": what rounds to nothing is a perfect match.
    const QString value = QString::fromStdString(FormatFixed(0, 3, dB > -5e-4 ? 0.0 : dB));
    if (limit.estimate) {
        return QObject::tr(
                   "The limit of lossless networks is about %1 dB (an estimate: the source "
                   "is no fixed resistance)")
            .arg(value);
    }
    return QObject::tr("No lossless network does better than %1 dB").arg(value);
}

LimitWatch::LimitWatch(NetworkModel& model, QObject* parent) : QObject(parent), model_(model) {
    connect(&model_, &NetworkModel::changed, this, &LimitWatch::follow);
    connect(&work_, &BackgroundWork::finished, this, &LimitWatch::follow);
}

void LimitWatch::setOn(bool on) {
    if (on == on_) return;
    on_ = on;
    asked_ = {};
    limit_.reset();
    problem_.clear();
    emit changed();
    follow();
}

void LimitWatch::follow() {
    const Network ends = EndsOf(model_.network());
    // One after the other: a limit cannot be interrupted, and takes a second or two.
    if (!on_ || work_.running() || ends == asked_) return;
    asked_ = ends;
    limit_.reset();
    problem_.clear();
    emit changed();
    if (ends.bands.empty()) return;
    work_.start([this, ends](const std::stop_token&, const BackgroundWork::HandOver& handOver) {
        handOver([this, ends, limit = GainLimitOf(ends.source, ends.load, ends.bands)] {
            if (ends == asked_ && on_) take(limit);
        });
    });
}

void LimitWatch::take(const Result<GainLimit>& limit) {
    if (limit) {
        limit_ = *limit;
    } else {
        problem_ = Shown(limit.message());
    }
    emit changed();
}

QString LimitWatch::text() const {
    if (limit_) return LimitSentence(*limit_);
    return problem_.isEmpty() ? QString() : tr("No limit: %1").arg(problem_);
}

}  // namespace kelvro
