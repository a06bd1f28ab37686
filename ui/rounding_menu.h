#pragma once

#include <functional>
#include <optional>

#include "design/rounding_choice.h"

class QWidget;

namespace kelvro {

class DesignSession;

/// Puts "Round down", "Round up", "Round to nearest" and "Undo rounding" into the context menu of a
/// widget. `part` says what they round; nothing: they do nothing.
void AddRounding(QWidget& widget, DesignSession& session,
                 std::function<std::optional<PartRef>()> part);

}  // namespace kelvro
