#pragma once

#include <QFont>
#include <QRectF>
#include <QSize>
#include <QString>
#include <vector>

#include "plot/picture.h"

class QPainter;

namespace kelvro {

/// Draws a Picture with any QPainter: screen, bitmap, SVG, PDF, metafile. Only lines, polylines,
/// rectangles and unrotated text are used, so that simple paint engines can follow. Sizes are
/// logical pixels; scale the painter for finer devices.
class FramePainter {
  public:
    /// The texts' height in pixels; the default suits 640 x 480, small images take 9. A family of
    /// the desktop stands in where the plots' own one is not installed.
    explicit FramePainter(int fontPixels = kFontPixels, const QString& family = {});
    static constexpr int kFontPixels = 11;

    /// A text with the place it takes; drawn left-aligned on its rectangle.
    struct Label {
        QRectF box;
        QString text;
    };
    /// A level mark within the plot: the row of its line, and its label with the place it takes.
    struct Mark {
        LevelMark level;
        int row;
        QFont font;
        double baseline;
        QRectF box;
    };
    /// A legend entry with the place of its text and line.
    struct Key {
        LegendEntry entry;
        QRectF box;
    };
    /// Where everything of a picture stands in an image of a size.
    struct Layout {
        Frame frame;
        Ticks xTicks;
        Ticks yTicks;
        Ticks rightTicks;
        std::vector<Label> xLabels;
        std::vector<Label> yLabels;
        std::vector<Label> rightLabels;
        std::vector<Label> names;  ///< of the axes
        std::vector<Key> legend;
        std::vector<Label> footer;
        std::vector<Mark> marks;
    };
    Layout layout(QSize size, const Picture& picture) const;

    /// Draws the whole picture, its ground included, and returns the frame by which pixels of
    /// the image are converted to world values.
    Frame draw(QPainter& painter, QSize size, const Picture& picture) const;

    /// Draws one more curve over a picture that was drawn with this frame.
    void drawCurve(QPainter& painter, const Frame& frame, const Curve& curve, bool dark = false,
                   bool paper = false) const;

    /// By how much the lines of its footer make a picture of this width higher.
    int footerHeight(const Picture& picture, int width) const;

  private:
    Layout layoutWith(QSize whole, const Picture& picture, int legendRows) const;

    QFont font_;
};

}  // namespace kelvro
