#pragma once

#include <QIcon>
#include <string_view>

namespace kelvro {

/// An icon of the tool bars and the buttons by name ("copy", "gain", ...); drawn as vector graphics
/// in the text colour of the desktop at every scale. An unknown name gives a null icon.
QIcon VectorIcon(std::string_view name);

}  // namespace kelvro
