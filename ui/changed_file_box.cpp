#include "ui/changed_file_box.h"

#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace kelvro {

ChangedFileAnswer AskAboutChangedFile(const QString& file, QWidget* parent) {
    QMessageBox box(QMessageBox::Warning, QObject::tr("Save"),
                    QObject::tr("\"%1\" was changed by another program since it was read or "
                                "saved here. Saving replaces what that one has written.")
                        .arg(QFileInfo(file).fileName()),
                    QMessageBox::Cancel, parent);
    box.setObjectName(QStringLiteral("ChangedFileBox"));
    box.setTextFormat(Qt::PlainText);
    QPushButton* anyway = box.addButton(QObject::tr("Save any&way"), QMessageBox::DestructiveRole);
    anyway->setObjectName(QStringLiteral("ButtonSaveAnyway"));
    QPushButton* other = box.addButton(QObject::tr("Save &as…"), QMessageBox::AcceptRole);
    other->setObjectName(QStringLiteral("ButtonSaveAs"));
    box.setDefaultButton(other);
    box.exec();
    if (box.clickedButton() == anyway) return ChangedFileAnswer::SaveAnyway;
    return box.clickedButton() == other ? ChangedFileAnswer::SaveAs : ChangedFileAnswer::Cancel;
}

}  // namespace kelvro
