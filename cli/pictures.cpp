#include "cli/pictures.h"

#include <QGuiApplication>
#include <QPainter>
#include <cmath>
#include <optional>

#include "plot/frame_painter.h"
#include "plot/picture_files.h"

namespace kelvro {

namespace {

/// Fonts need a running Qt, but no display. Its remarks on the surroundings are none of the user's.
class OffscreenQt {
  public:
    OffscreenQt() {
        if (QCoreApplication::instance()) return;
        qInstallMessageHandler([](QtMsgType, const QMessageLogContext&, const QString&) {});
        application_.emplace(count_, arguments_);
    }

  private:
    char name_[11] = "kelvro-cli";
    char option_[10] = "-platform";
    char platform_[10] = "offscreen";
    char* arguments_[4] = {name_, option_, platform_, nullptr};
    int count_ = 3;
    std::optional<QGuiApplication> application_;
};

}  // namespace

Status WritePicture(const Picture& picture, int width, int height, const std::string& file) {
    const OffscreenQt qt;
    const auto drawing = [&picture](QPainter& painter, QSize size) {
        const double scale = picture.dpi / Picture().dpi;
        painter.scale(scale, scale);
        // Rounded up, so that no rim is left without ground.
        const QSize logical(static_cast<int>(std::ceil(size.width() / scale)),
                            static_cast<int>(std::ceil(size.height() / scale)));
        FramePainter().draw(painter, logical, picture);
    };
    const QString path = QString::fromLocal8Bit(file.c_str());
    return SavePicture(path, *PictureFormatOf(path), QSize(width, height), drawing);
}

}  // namespace kelvro
