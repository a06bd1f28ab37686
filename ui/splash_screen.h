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

/// Whether the user wants to see the splash screen, remembered beside the places of the windows.
bool IsSplashWanted();
void RememberSplash(bool wanted);

}  // namespace kelvro
