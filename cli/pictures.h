#pragma once

#include <string>

#include "core/result.h"
#include "plot/picture.h"

namespace kelvro {

/// Draws a picture without a display and writes it to a file, whole or not at all; the file's
/// ending is one of a picture format. What uses it loads Qt's Gui.
Status WritePicture(const Picture& picture, int width, int height, const std::string& file);

}  // namespace kelvro
