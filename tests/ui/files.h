#pragma once

#include <QtWidgets>

namespace kelvro {

// Files, and the dialogs that ask for them.

inline void Write(const QString& path, const QByteArray& text) {
    QFile file(path);
    if (!file.open(QFile::WriteOnly) || file.write(text) != text.size()) qFatal("cannot write");
}

inline QByteArray ReadAll(const QString& path) {
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

/// Chooses a file in a dialog that is open, to be replaced where it is there.
inline void ChooseFile(QWidget& dialog, const QString& path) {
    auto& files = dynamic_cast<QFileDialog&>(dialog);
    files.setOption(QFileDialog::DontConfirmOverwrite);
    // The file it starts from counts before the text until the folder is listed.
    files.findChild<QListView*>("listView")->selectionModel()->clear();
    files.findChild<QLineEdit*>("fileNameEdit")->setText(path);
    static_cast<QDialog&>(files).accept();
}

/// Answers the next file dialog with a path.
inline void AnswerFileDialog(const QString& path, int milliseconds = 50) {
    QTimer::singleShot(milliseconds, qApp, [path] {
        QWidget* dialog = QApplication::activeModalWidget();
        if (!dialog) qFatal("no file dialog");
        ChooseFile(*dialog, path);
    });
}

/// Drops a file on a window that wants it.
inline bool DropFile(QWidget& window, const QString& path) {
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
    enter.setAccepted(false);
    QApplication::sendEvent(&window, &enter);
    if (!enter.isAccepted()) return false;
    QDropEvent drop(QPointF(20, 20), Qt::CopyAction, &data, Qt::LeftButton, {});
    QApplication::sendEvent(&window, &drop);
    return true;
}

}  // namespace kelvro
