#pragma once

#include <optional>

#include "synthesis/limit.h"
#include "ui/workbench/background_work.h"
#include "ui/workbench/network_model.h"

namespace kelvro {

/// Knows how well any lossless network could match the load of the model over its bands, and finds
/// that out anew, in the background, whenever source, load or bands change. Off until it is wanted.
class LimitWatch : public QObject {
    Q_OBJECT

  public:
    explicit LimitWatch(NetworkModel& model, QObject* parent = nullptr);

    void setOn(bool on);
    bool on() const { return on_; }
    /// Nothing while it is off, being found out, or not to be had.
    const std::optional<GainLimit>& limit() const { return limit_; }
    /// The limit in dB, or why there is none.
    QString text() const;

  signals:
    void changed();

  private:
    void follow();
    void take(const Result<GainLimit>& limit);

    NetworkModel& model_;
    BackgroundWork work_;
    bool on_ = false;
    Network asked_;  ///< source, load and bands that the limit belongs to
    std::optional<GainLimit> limit_;
    QString problem_;
};

/// "No lossless network does better than -0.215 dB".
QString LimitSentence(const GainLimit& limit);

}  // namespace kelvro
