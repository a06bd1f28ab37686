// Settings files of the main window.

#include <QCloseEvent>
#include <QFileDialog>
#include <QFileInfo>

#include "design/pages.h"
#include "io/settings.h"
#include "ui/sdi_app_form.h"
#include "ui/window_place.h"

namespace kelvro {

namespace {

constexpr char kSuggestedName[] = "KVR.INI";

/// Shows a file dialog for settings files; the chosen file, or an empty text.
QString AskForFile(QFileDialog& dialog, const char* objectName, QFileDialog::AcceptMode mode) {
    dialog.setObjectName(QLatin1String(objectName));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                       : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("INI"));
    dialog.selectFile(QLatin1String(kSuggestedName));
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

}  // namespace

void TSDIAppForm::SpeedButtonINISaveClick() {
    QFileDialog dialog(this, tr("Save INI file"), {}, tr("INI File (*.ini *.INI)"));
    const QString file = AskForFile(dialog, "SaveDialogIni", QFileDialog::AcceptSave);
    if (!file.isEmpty()) saveSettings(file);
}

void TSDIAppForm::SpeedButtonINILadenClick() {
    QFileDialog dialog(this, tr("Load INI file"), {}, tr("INI Files (*.ini *.INI)"));
    const QString file = AskForFile(dialog, "OpenDialogIni", QFileDialog::AcceptOpen);
    if (file.isEmpty()) return;
    const SettingsRead read = ReadSettings(file, settings());
    session_.preferences() = read.settings.preferences;
    const auto load = [&](Design& design) {
        design = read.settings.design;
        EnterPage(design, design.page);
    };
    session_.edit("Load " + QFileInfo(file).fileName().toStdString(), load,
                  {.fields = Fields::Written});
    if (!read.message.isEmpty()) session_.showMessage(read.message);
}

Settings TSDIAppForm::settings() const {
    return {session_.design(), session_.preferences(), session_.result().v};
}

void TSDIAppForm::saveSettings(const QString& file) {
    const SettingsSave saved = WriteSettings(file, settings());
    if (!saved.message.isEmpty()) session_.showMessage(saved.message);
}

void TSDIAppForm::FormClose() {
    saveSettings(DefaultSettingsFile());
    SavePlace(*this);
}

void TSDIAppForm::closeEvent(QCloseEvent* event) {
    FormClose();
    windows_.closeAll();
    event->accept();
    emit formClosed();
}

}  // namespace kelvro
