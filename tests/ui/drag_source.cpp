// A window from which a file can be dragged: drag_source FILE

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QTimer>
#include <QUrl>

namespace {

class Source : public QLabel {
  public:
    explicit Source(const QString& file) : QLabel(file), file_(file) {
        setWindowTitle(QStringLiteral("Drag source"));
        setFixedSize(120, 60);
        move(1100, 100);  // beside the window that it is dragged to
    }

  protected:
    void mouseMoveEvent(QMouseEvent*) override {
        auto* drag = new QDrag(this);
        auto* data = new QMimeData;
        data->setUrls({QUrl::fromLocalFile(file_)});
        drag->setMimeData(data);
        drag->exec(Qt::CopyAction);
        // The file is handed over only after the drop.
        QTimer::singleShot(2000, qApp, &QApplication::quit);
    }

  private:
    QString file_;
};

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Source source(app.arguments().value(1));
    source.show();
    return app.exec();
}
