#pragma once

#include <QObject>

class QSocketNotifier;

namespace kelvro {

/// Tells of SIGTERM, SIGINT and SIGHUP in the event loop, so that nothing typed is lost when the
/// process is asked to end. One at a time.
class EndRequest : public QObject {
    Q_OBJECT

  public:
    explicit EndRequest(QObject* parent = nullptr);
    ~EndRequest() override;

  signals:
    void requested();

  private:
    QSocketNotifier* notifier_ = nullptr;
};

}  // namespace kelvro
