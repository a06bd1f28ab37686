#pragma once

#include <QByteArray>
#include <QIcon>
#include <string_view>

namespace kelvro {

/// An icon of the tool bars and the buttons by name ("copy", "gain", ...); drawn as vector graphics
/// in the text colour of the desktop at every scale. An unknown name gives a null icon.
QIcon VectorIcon(std::string_view name);

/// The icon of the program as an SVG file for desktops: on a ground of its own, so that it shows on
/// light and dark panels.
QByteArray ProgramIconFile();

}  // namespace kelvro
