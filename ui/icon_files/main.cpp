// Writes the program's icon in the sizes of a desktop: kelvro-icons FOLDER

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>

#include "ui/plot/icons.h"

namespace {

constexpr int kSizes[] = {16, 22, 24, 32, 48, 64, 128, 256, 512};

bool WriteBitmap(const QByteArray& svg, int size, const QString& path) {
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(svg).render(&painter);
    painter.end();
    return image.save(path);
}

}  // namespace

int main(int argc, char** argv) {
    if (argc != 2) return 2;
    const QString folder = QString::fromLocal8Bit(argv[1]);
    const QByteArray svg = kelvro::ProgramIconFile();
    QFile file(folder + "/scalable.svg");
    bool done = file.open(QIODevice::WriteOnly) && file.write(svg) == svg.size();
    for (const int size : kSizes) {
        done = WriteBitmap(svg, size, QStringLiteral("%1/%2.png").arg(folder).arg(size)) && done;
    }
    return done ? 0 : 1;
}
