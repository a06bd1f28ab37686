#pragma once

#include <QSize>

#include "core/result.h"
#include "plot/picture_files.h"

class QPrinter;
class QWidget;

namespace kelvro {

/// Draws on one page, as large as it fits: on paper, or into a PDF file where the printer stands
/// for one. What is drawn stays lines and texts. The message for the user when that failed; a file
/// keeps its old content then.
Status PrintPage(QPrinter& printer, QSize size, const Drawing& drawing);

/// A window as a drawing of lines and texts, its frame not included.
Drawing DrawingOf(QWidget& window);

}  // namespace kelvro
