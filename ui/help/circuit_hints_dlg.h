#pragma once

#include <QDialog>

#include "ui/plot/design_host.h"

class QTextBrowser;

namespace kelvro {

/// "Circuit Hints": what the present page's network is good for. Stays open and follows the page.
class TCircuitHintsDlg : public QDialog {
    Q_OBJECT

  public:
    TCircuitHintsDlg(DesignHost& host, QWidget* parent);

  private:
    void showPage();

    DesignHost& host_;
    QTextBrowser* text_;
    int page_ = 0;
};

}  // namespace kelvro
