// Settings files of the main window.

#include <QAction>
#include <QCloseEvent>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLockFile>
#include <QMenu>
#include <QMimeData>
#include <QSettings>
#include <QUrl>

#include "design/pages.h"
#include "io/settings.h"
#include "ui/changed_file_box.h"
#include "ui/sdi_app_form.h"
#include "ui/texts.h"
#include "ui/window_place.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

constexpr char kSuggestedName[] = "KVR.INI";

/// Shows a file dialog for settings files; the chosen file, or an empty text.
/// The present file is proposed, or a name for a first one.
QString AskForFile(QFileDialog& dialog, const char* objectName, QFileDialog::AcceptMode mode,
                   const QString& present) {
    dialog.setObjectName(QLatin1String(objectName));
    dialog.setAcceptMode(mode);
    dialog.setFileMode(mode == QFileDialog::AcceptSave ? QFileDialog::AnyFile
                                                       : QFileDialog::ExistingFile);
    dialog.setDefaultSuffix(QStringLiteral("INI"));
    if (present.isEmpty()) {
        dialog.selectFile(QLatin1String(kSuggestedName));
    } else {
        dialog.setDirectory(QFileInfo(present).path());
        dialog.selectFile(QFileInfo(present).fileName());
    }
    if (dialog.exec() != QDialog::Accepted) return {};
    return dialog.selectedFiles().value(0);
}

constexpr char kRecentKey[] = "recent";
constexpr int kMostRecent = 8;

QSettings RememberedFiles() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kelvro"),
                     QStringLiteral("files"));
}

/// The one file that is dropped and can be opened; empty for anything else.
QString DroppedFile(const QMimeData& data) {
    const QString file = data.urls().size() == 1 ? data.urls().front().toLocalFile() : QString();
    const bool settings = file.endsWith(QLatin1String(".ini"), Qt::CaseInsensitive);
    return settings || NetworkWindow::opens(file) ? file : QString();
}

}  // namespace

void TSDIAppForm::New1Click() {
    session_.edit(QT_TRANSLATE_NOOP("kelvro", "New"),
                  [](Design& design) {
                      const int page = design.page;
                      design = Design();
                      EnterPage(design, page);
                  },
                  {.fields = Fields::Written});
    nameFile({}, {});
}

void TSDIAppForm::Save1Click() {
    if (file_.isEmpty()) return SpeedButtonINISaveClick();
    const SettingsSave saved = saveSettings(file_, checksum_);
    if (saved.status == SettingsSave::Status::Saved) nameFile(file_, saved.checksum);
    if (saved.status == SettingsSave::Status::Changed) saveOverChanged();
}

void TSDIAppForm::saveOverChanged() {
    switch (AskAboutChangedFile(file_, this)) {
        case ChangedFileAnswer::SaveAnyway:
            saveUnder(file_);
            break;
        case ChangedFileAnswer::SaveAs:
            SpeedButtonINISaveClick();
            break;
        case ChangedFileAnswer::Cancel:
            break;
    }
}

void TSDIAppForm::saveUnder(const QString& file) {
    const SettingsSave saved = saveSettings(file, {});
    if (saved.status == SettingsSave::Status::Saved) nameFile(file, saved.checksum);
}

void TSDIAppForm::SpeedButtonINISaveClick() {
    QFileDialog dialog(this, tr("Save INI file"), {}, tr("INI File (*.ini *.INI)"));
    const QString file = AskForFile(dialog, "SaveDialogIni", QFileDialog::AcceptSave, file_);
    if (!file.isEmpty()) saveUnder(file);
}

void TSDIAppForm::SpeedButtonINILadenClick() {
    QFileDialog dialog(this, tr("Load INI file"), {}, tr("INI Files (*.ini *.INI)"));
    const QString file = AskForFile(dialog, "OpenDialogIni", QFileDialog::AcceptOpen, file_);
    if (!file.isEmpty()) openFile(file);
}

void TSDIAppForm::openFile(const QString& file) {
    const SettingsRead read = ReadSettings(file, settings());
    if (!read.message.isEmpty()) session_.showMessage(Shown(read.message.toStdString()));
    if (read.status == SettingsRead::Status::Unusable) return;
    applyPreferences(read.settings);
    const auto load = [&](Design& design) {
        design = read.settings.design;
        if (!read.whole) EnterPage(design, design.page);
    };
    session_.edit("Load " + QFileInfo(file).fileName().toStdString(), load,
                  {.followup = read.whole ? Followup::Restoration : Followup::Calculation,
                   .fields = Fields::Written});
    nameFile(file, read.checksum);
}

void TSDIAppForm::nameFile(const QString& file, const std::string& checksum) {
    file_ = file.isEmpty() ? QString() : QFileInfo(file).absoluteFilePath();
    checksum_ = checksum;
    saved_ = session_.design();
    if (!file_.isEmpty()) {
        QSettings kept = RememberedFiles();
        QStringList files = kept.value(kRecentKey).toStringList();
        files.removeAll(file_);
        files.prepend(file_);
        kept.setValue(kRecentKey, files.mid(0, kMostRecent));
    }
    listRecentFiles();
    showCaption();
}

void TSDIAppForm::listRecentFiles() {
    auto* item = findChild<QAction*>(QStringLiteral("OpenRecent1"));
    QMenu* menu = item->menu();
    menu->clear();
    const QStringList files = RememberedFiles().value(kRecentKey).toStringList();
    int number = 0;
    for (const QString& file : files) {
        const QString name = QString(QDir::toNativeSeparators(file)).replace('&', "&&");
        QAction* entry = menu->addAction(QStringLiteral("&%1 %2").arg(++number).arg(name));
        entry->setObjectName(QStringLiteral("Recent%1").arg(number));
        connect(entry, &QAction::triggered, this, [this, file] { openFile(file); });
    }
    item->setEnabled(!files.isEmpty());
}

void TSDIAppForm::showCaption() {
    const QString product = tr("Kelvro - Matching Network and PA Design");
    const QString name = QFileInfo(file_).fileName();
    setWindowTitle(name.isEmpty() ? product : name + QStringLiteral("[*] - ") + product);
    setWindowModified(!name.isEmpty() && !(session_.design() == saved_));
}

Settings TSDIAppForm::settings() const {
    return {session_.design(),
            session_.preferences(),
            session_.result().v,
            session_.tolerances(),
            session_.standardValues(),
            {session_.plotChoices(PlotWindow::Gain), session_.plotChoices(PlotWindow::Phase)}};
}

void TSDIAppForm::applyPreferences(const Settings& settings) {
    session_.preferences() = settings.preferences;
    session_.setTolerances(settings.tolerances);
    session_.setStandardValues(settings.standardValues);
    for (std::size_t i = 0; i < settings.plots.size(); ++i)
        session_.setPlotChoices(static_cast<PlotWindow>(i), settings.plots[i]);
    SeriesClick(settings.preferences.ESeries);
}

SettingsSave TSDIAppForm::saveSettings(const QString& file,
                                       const std::optional<std::string>& known) {
    SettingsSave saved = WriteSettings(file, settings(), known);
    if (!saved.message.isEmpty()) session_.showMessage(Shown(saved.message.toStdString()));
    return saved;
}

bool TSDIAppForm::claimSettings() {
    QDir().mkpath(QFileInfo(DefaultSettingsFile()).absolutePath());
    claim_ = std::make_unique<QLockFile>(DefaultSettingsFile() + QStringLiteral(".lock"));
    claim_->setStaleLockTime(0);  // only the end of the other process frees the file
    if (claim_->tryLock() || claim_->error() != QLockFile::LockFailedError) return true;
    claim_.reset();
    return false;
}

void TSDIAppForm::saveSoon() {
    showCaption();
    if (claim_) pause_.start();
}

void TSDIAppForm::saveNow() {
    pause_.stop();
    if (!claim_) return;
    const SettingsSave saved = WriteSettings(DefaultSettingsFile(), settings());
    // The user may have opened that very file.
    const bool opened = QFileInfo(file_) == QFileInfo(DefaultSettingsFile());
    if (opened && saved.status == SettingsSave::Status::Saved) checksum_ = saved.checksum;
}

void TSDIAppForm::dragEnterEvent(QDragEnterEvent* event) {
    if (!DroppedFile(*event->mimeData()).isEmpty()) event->acceptProposedAction();
}

void TSDIAppForm::dropEvent(QDropEvent* event) {
    const QString file = DroppedFile(*event->mimeData());
    if (file.isEmpty()) return;
    event->acceptProposedAction();
    if (NetworkWindow::opens(file)) return networkWindow()->openAny(file);
    openFile(file);
}

void TSDIAppForm::FormClose() {
    pause_.stop();
    if (claim_) (void)saveSettings(DefaultSettingsFile(), {});
    claim_.reset();
    SavePlace(*this);
}

void TSDIAppForm::closeEvent(QCloseEvent* event) {
    FormClose();
    windows_.closeAll();
    event->accept();
    emit formClosed();
}

}  // namespace kelvro
