#include "ui/plot/icons.h"

#include <QApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QSvgRenderer>
#include <algorithm>
#include <array>

namespace kelvro {

namespace {

struct Drawing {
    std::string_view name;
    const char* body;  ///< SVG elements on a 24 by 24 grid; "ink" stands for the text colour
};

constexpr std::array kDrawings = {
    Drawing{"exit",
            "<path d='M10 4H5v16h5' stroke='ink'/><path d='M9 12h11M16 8l4 4-4 4' "
            "stroke='#d9480f'/>"},
    Drawing{"calculate",
            "<rect x='5' y='3' width='14' height='18' rx='2' stroke='ink'/><rect x='8' y='6' "
            "width='8' height='4' stroke='#1c7ed6'/><path d='M8.5 14h.01M12 14h.01M15.5 14h.01"
            "M8.5 17.5h.01M12 17.5h.01M15.5 17.5h.01' stroke='ink' stroke-width='2.2'/>"},
    Drawing{"execute",
            "<rect x='3' y='4' width='18' height='16' rx='2' stroke='ink'/><path d='M3 8h18' "
            "stroke='ink'/><path d='M10 11v6l5-3z' stroke='#2b8a3e' fill='#2b8a3e'/>"},
    Drawing{"sweep",
            "<path d='M3 12h18' stroke='ink'/><path d='M7 8l-4 4 4 4M17 8l4 4-4 4' "
            "stroke='#1c7ed6'/><path d='M12 6v12' stroke='ink' stroke-dasharray='2 2'/>"},
    Drawing{"copy",
            "<rect x='8' y='8' width='12' height='13' rx='1.5' stroke='ink'/><path d='M5 16H4V4.5"
            "C4 3.7 4.7 3 5.5 3H16v2' stroke='ink'/><path d='M11 13h6M11 16.5h6' "
            "stroke='#1c7ed6'/>"},
    Drawing{"gain",
            "<path d='M4 3v17h17' stroke='ink'/><path d='M5 18c4 0 4-12 7.5-12S16 18 20 18' "
            "stroke='#c92a2a'/>"},
    Drawing{"phase",
            "<path d='M4 3v17h17' stroke='ink'/><path d='M5 6c6 0 4.5 11 15 11' "
            "stroke='#1c7ed6'/>"},
    Drawing{"tolerance",
            "<path d='M4 3v17h17' stroke='ink'/><path d='M5 17c4 0 4-10 7.5-10S16 17 20 17' "
            "stroke='#c92a2a'/><path d='M5 18.5C8 18 8 4 11 4s5 13 9 13.5M5 15c5 0 6-6 9-6"
            "s4 6 6 6' stroke='#868e96' stroke-width='1'/>"},
    Drawing{"save",
            "<path d='M4 4h13l3 3v13H4z' stroke='ink'/><path d='M8 4v5h7V4' stroke='ink'/>"
            "<rect x='7' y='13' width='10' height='7' stroke='#1c7ed6'/>"},
    Drawing{"open",
            "<path d='M3 19V5h6l2 2.5h8V10' stroke='ink'/><path d='M3 19l3-9h15l-3 9z' "
            "stroke='#e67700'/>"},
    Drawing{"info",
            "<path d='M12 3a6.5 6.5 0 0 0-3.5 12v2.5h7V15A6.5 6.5 0 0 0 12 3z' "
            "stroke='#e67700'/><path d='M9.5 20.5h5' stroke='ink'/>"},
    Drawing{"network",
            "<circle cx='12' cy='12' r='9' stroke='ink'/><circle cx='16.5' cy='12' r='4.5' "
            "stroke='#1c7ed6'/><path d='M3 12h18' stroke='ink'/><path d='M21 12a9 9 0 0 1-9-9' "
            "stroke='#c92a2a'/>"},
    Drawing{"optimize",
            "<path d='M3 5c3 12 6 14 9 14s6-2 9-14' stroke='ink'/><circle cx='12' cy='16.5' "
            "r='2' stroke='#c92a2a' fill='#c92a2a'/><path d='M5.5 5.5l4.5 6M10 8.2v3.3H6.8' "
            "stroke='#1c7ed6'/>"},
    Drawing{"global",
            "<path d='M5 17L8 6l9-2 3 10-8 6z' stroke='#1c7ed6'/><g stroke='ink' fill='ink'>"
            "<circle cx='5' cy='17' r='1.5'/><circle cx='8' cy='6' r='1.5'/><circle cx='17' "
            "cy='4' r='1.5'/><circle cx='20' cy='14' r='1.5'/><circle cx='12' cy='20' "
            "r='1.5'/></g>"},
    Drawing{"switch",
            "<path d='M6 4v14M2.8 14.8L6 18l3.2-3.2' stroke='#1c7ed6'/><path d='M18 20V6M14.8 "
            "9.2L18 6l3.2 3.2' stroke='#d9480f'/>"},
    Drawing{"enlarge",
            "<rect x='2.5' y='2.5' width='19' height='19' stroke='ink' stroke-width='1.2'/><path "
            "d='M13.5 13.5l4.5 4.5M13.5 18H18v-4.5M10.5 10.5L6 6M10.5 6H6v4.5' "
            "stroke='#2b8a3e'/>"},
    Drawing{"reduce",
            "<rect x='2.5' y='2.5' width='19' height='19' stroke='ink' stroke-width='1.2'/><path "
            "d='M13.5 13.5l4.5 4.5M13.5 18v-4.5H18M10.5 10.5L6 6M6 10.5h4.5V6' "
            "stroke='#2b8a3e'/>"},
    Drawing{"standard size",
            "<rect x='2.5' y='2.5' width='19' height='19' stroke='ink' stroke-width='1.2'/><rect "
            "x='7' y='8' width='10' height='8' stroke='#2b8a3e'/>"},
    Drawing{"autoscale",
            "<path d='M4 3v17h17' stroke='ink'/><path d='M5 18c4 0 3.5-14 6.5-14S14 18 17 18' "
            "stroke='#c92a2a'/><path d='M20 4v12M18 6l2-2 2 2M18 14l2 2 2-2' stroke='#1c7ed6'/>"},
    Drawing{"log x",
            "<path d='M3 3v15M9.5 6.5V18M13.3 6.5V18M16 6.5V18M18 6.5V18M21 3v15' stroke='ink' "
            "stroke-width='1.3'/><path d='M3 21h18' stroke='#1c7ed6'/>"},
    Drawing{"zoom in",
            "<circle cx='10' cy='10' r='7' stroke='ink'/><path d='M15.2 15.2L21 21' "
            "stroke='ink'/><path d='M6.8 10h6.4M10 6.8v6.4' stroke='#1c7ed6'/>"},
    Drawing{"zoom out",
            "<circle cx='10' cy='10' r='7' stroke='ink'/><path d='M15.2 15.2L21 21' "
            "stroke='ink'/><path d='M6.8 10h6.4' stroke='#1c7ed6'/>"},
    Drawing{"home view",
            "<path d='M3 11.5L12 4l9 7.5M5.5 10v10h13V10' stroke='ink'/><path d='M7.5 18c2.5 0 "
            "2.5-6 4.5-6s2 6 4.5 6' stroke='#c92a2a'/>"},
    Drawing{"curve style",
            "<path d='M3 18L8 9l4-4 5 7 4 6' stroke='#2b8a3e'/><path d='M3 18h.01M8 9h.01M12 5h.01"
            "M17 12h.01M21 18h.01' stroke='#1c7ed6' stroke-width='4.5'/>"},
    Drawing{"scatter",
            "<path d='M2.5 19C8 19 6 3 11 3s5 16 10.5 16M2.5 19C8 19 8 10 13 10s4 9 8.5 9' "
            "stroke='#868e96' stroke-width='1.2'/><path d='M2.5 19C8 19 7 6 12 6s4 13 9.5 13' "
            "stroke='#c92a2a'/>"},
    Drawing{"kelvro",
            "<path d='M2 12h3M19 12h3' stroke='ink'/><path d='M5 12c0-4 4-4 4 0 0-4 4-4 4 0 "
            "0-4 4-4 4 0' stroke='#1c7ed6'/><path d='M18 12v4M15 16h6M15 18.5h6M18 18.5V22' "
            "stroke='#c92a2a'/>"},
};

QByteArray SvgOf(const Drawing& drawing, const QColor& ink, const QByteArray& ground = {}) {
    QByteArray body(drawing.body);
    body.replace("'ink'", '\'' + ink.name().toLatin1() + '\'');
    return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 24 24'>" + ground +
           "<g fill='none' stroke-width='1.7' stroke-linecap='round' stroke-linejoin='round'>" +
           body + "</g></svg>";
}

class DrawingEngine : public QIconEngine {
  public:
    explicit DrawingEngine(const Drawing& drawing) : drawing_(drawing) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override {
        const auto group = mode == QIcon::Disabled ? QPalette::Disabled : QPalette::Active;
        QSvgRenderer renderer(
            SvgOf(drawing_, QApplication::palette().color(group, QPalette::ButtonText)));
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(0.35);
        renderer.render(painter, QRectF(rect));
        painter->restore();
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap pixmap(size);
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        paint(&painter, QRect(QPoint(), size), mode, state);
        return pixmap;
    }

    QIconEngine* clone() const override { return new DrawingEngine(drawing_); }

  private:
    const Drawing& drawing_;
};

}  // namespace

QIcon VectorIcon(std::string_view name) {
    const auto drawing = std::ranges::find(kDrawings, name, &Drawing::name);
    return drawing == kDrawings.end() ? QIcon() : QIcon(new DrawingEngine(*drawing));
}

QByteArray ProgramIconFile() {
    const auto drawing = std::ranges::find(kDrawings, "kelvro", &Drawing::name);
    return SvgOf(*drawing, QColor(0x34, 0x3a, 0x40),
                 "<rect width='24' height='24' rx='5' fill='#f1f3f5'/>") +
           '\n';
}

}  // namespace kelvro
