#pragma once

#include <QString>

namespace kelvro {

/// Says in a modal box why a design is refused, and offers "Switch" where exchanging R1 and R2
/// cures it; true when the user chose that. A printable key or Backspace closes the box and goes on
/// into the field that had the focus, so that typing is not held up.
bool ShowRefusalBox(const QString& reason, bool offersSwitch);

}  // namespace kelvro
