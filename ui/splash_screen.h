#pragma once

#include <QSplashScreen>

namespace kelvro {

/// The picture that stands while the program starts.
class TSplashScreen : public QSplashScreen {
    Q_OBJECT

  public:
    TSplashScreen();

  protected:
    void drawContents(QPainter* painter) override;
};

}  // namespace kelvro
