#pragma once

#include <QTextBrowser>

namespace kelvro {

/// Text view of the manual; draws the circuits and loads the pictures that the chapters name.
class ManualView : public QTextBrowser {
  public:
    using QTextBrowser::QTextBrowser;

    QVariant loadResource(int type, const QUrl& name) override;
};

}  // namespace kelvro
