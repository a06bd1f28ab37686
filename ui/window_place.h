#pragma once

class QWidget;

namespace kelvro {

/// Remembers where a window stands, beside the settings file.
void SavePlace(const QWidget& window);

/// Moves a window to where it stood last, if that is still on a screen.
void RestorePlace(QWidget& window);

}  // namespace kelvro
