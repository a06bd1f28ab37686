#include "ui/picture_dialog.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QStringList>

#include "plot/picture_names.h"

namespace kelvro {

namespace {

QString FilterOf(const QString& suffix) {
    return QObject::tr("%1 Files (*.%2)").arg(suffix.toUpper(), suffix);
}

}  // namespace

bool MayReplace(QWidget& parent, const QString& file) {
    return QMessageBox::question(&parent, parent.windowTitle(),
                                 QObject::tr("%1 already exists.\nDo you want to replace it?")
                                     .arg(QFileInfo(file).fileName())) == QMessageBox::Yes;
}

QString AskForPictureFile(QWidget& parent, const char* objectName, const QString& name) {
    QFileDialog dialog(&parent, QObject::tr("Save picture"));
    dialog.setObjectName(QLatin1String(objectName));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    QStringList filters;
    for (const QString& suffix : PictureSuffixes()) filters << FilterOf(suffix);
    dialog.setNameFilters(filters);
    const auto follow = [&](const QString& filter) {
        const qsizetype chosen = filters.indexOf(filter);
        if (chosen < 0) return;
        dialog.setDefaultSuffix(PictureSuffixes()[chosen]);
        const QString present = dialog.selectedFiles().value(0);
        if (!present.isEmpty())
            dialog.selectFile(
                WithEnding(present, *PictureFormatOf('.' + PictureSuffixes()[chosen])));
    };
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog, follow);
    dialog.selectFile(name);
    dialog.selectNameFilter(FilterOf(QFileInfo(name).suffix()));
    dialog.setDefaultSuffix(QFileInfo(name).suffix());
    while (dialog.exec() == QDialog::Accepted) {
        QString file = dialog.selectedFiles().value(0);
        if (PictureFormatOf(file)) return file;
        QString ended = file + '.' + dialog.defaultSuffix();
        if (!QFileInfo::exists(ended) || MayReplace(parent, ended)) return ended;
    }
    return {};
}

}  // namespace kelvro
