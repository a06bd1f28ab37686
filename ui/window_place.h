#pragma once

class QWidget;

namespace kelvro {

/// Remembers where a window stands, beside the settings file.
void SavePlace(const QWidget& window);

/// Moves a window to where it stood last, if that is still on a screen.
void RestorePlace(QWidget& window);

/// Moves a visible window so that it stands on its screen as a whole, and makes it smaller where it
/// is larger than the screen and can be.
void KeepOnScreen(QWidget& window);

}  // namespace kelvro
