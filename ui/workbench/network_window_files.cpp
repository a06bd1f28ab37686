// Project files of the Network window, and what it remembers.

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QDialog>
#include <QDir>
#include <QDragEnterEvent>
#include <QFileDialog>
#include <QLockFile>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QSettings>
#include <QSplitter>
#include <QStatusBar>
#include <QTimer>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/number_text.h"
#include "io/known_file.h"
#include "io/project_words.h"
#include "network/coverage.h"
#include "network/interpolation.h"
#include "synthesis/refine.h"
#include "ui/changed_file_box.h"
#include "ui/fields.h"
#include "ui/help/manual_text.h"
#include "ui/plot/design_host.h"
#include "ui/texts.h"
#include "ui/window_place.h"
#include "ui/workbench/match_dialog.h"
#include "ui/workbench/network_window.h"
#include "ui/workbench/smith_view.h"
#include "ui/workbench/sweep_view.h"

namespace kelvro {

namespace {

constexpr int kMostRecent = 8;
constexpr int kMostPrograms = 99;
constexpr char kProjectSuffix[] = ".kelvro";
constexpr char kFilter[] = QT_TRANSLATE_NOOP("kelvro", "Kelvro projects (*.kelvro)");

QSettings Remembered() {
    return QSettings(QSettings::IniFormat, QSettings::UserScope, QStringLiteral("kelvro"),
                     QStringLiteral("windows"));
}

QString PlotKey(const SweepView& plot, const char* what) {
    return QStringLiteral("NetworkWindow/") + plot.objectName() + QLatin1String(what);
}

/// "-3 0", empty for none.
QStringList Remembered(const std::optional<Range>& range) {
    if (!range) return {};
    return {QString::fromStdString(FormatShortest(range->min)),
            QString::fromStdString(FormatShortest(range->max))};
}

std::optional<Range> RangeFrom(const QStringList& texts) {
    const Range range{ParseValue(texts.value(0).toStdString()),
                      ParseValue(texts.value(1).toStdString())};
    return range.max > range.min ? std::optional(range) : std::nullopt;
}

/// Programs that run at once have a file each.
QString AutosaveFile(int slot) {
    QString folder = qEnvironmentVariable("XDG_STATE_HOME");
    if (folder.isEmpty()) folder = QDir::homePath() + QStringLiteral("/.local/state");
    folder += QStringLiteral("/kelvro");
    QDir().mkpath(folder);
    const QString number = slot == 0 ? QString() : QString::number(slot + 1);
    return QStringLiteral("%1/autosave%2.kelvro").arg(folder, number);
}

/// Held by the program that writes the file; of one that was killed it does not count.
std::unique_ptr<QLockFile> AutosaveLock(int slot) {
    auto lock = std::make_unique<QLockFile>(AutosaveFile(slot) + QStringLiteral(".lock"));
    lock->setStaleLockTime(0);
    return lock->tryLock() ? std::move(lock) : nullptr;
}

std::filesystem::path PathOf(const QString& file) {
    return std::filesystem::path(file.toStdString());
}

}  // namespace

// ---------------------------------------------------------------- projects

Project NetworkWindow::present() const {
    Project project = project_;
    project.network = model_.network();
    project.linkedData = model_.links();
    project.ghost = model_.ghost();
    project.locked = model_.locked();
    project.markers = model_.markers();
    project.snapshots.clear();
    for (const Snapshot& snapshot : model_.snapshots())
        project.snapshots.push_back(
            {snapshot.name.toStdString(), snapshot.network, snapshot.shown});
    return project;
}

NetworkDocument NetworkWindow::takeOver(Project project) {
    for (const std::string& message : project.messages) say(Shown(message));
    project_ = std::move(project);
    NetworkDocument document{.network = project_.network,
                             .ghost = project_.ghost,
                             .locked = project_.locked,
                             .markers = project_.markers,
                             .links = project_.linkedData};
    for (const ProjectSnapshot& kept : project_.snapshots)
        document.snapshots.push_back(
            {QString::fromStdString(kept.name), kept.network, {}, kept.shown});
    // Texts that are typed from now on mean the project's data by their names, read as they say.
    data_.clear();
    for (const auto& measured : DataOf(document))
        data_.add(Interpolated(measured, Interpolation::Linear));
    return document;
}

void NetworkWindow::newProject() {
    if (!mayDiscard()) return;
    file_.clear();
    project_ = {};
    model_.open(StartNetwork());
}

void NetworkWindow::chooseFile() {
    if (!mayDiscard()) return;
    QFileDialog dialog(this, tr("Open project"), QFileInfo(file_).path(), Shown(kFilter));
    dialog.setObjectName(QStringLiteral("OpenProjectDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted) openFile(dialog.selectedFiles().value(0));
}

bool NetworkWindow::openFile(const QString& path) {
    auto read = ReadProject(PathOf(path));
    if (!read) {
        say(Shown(read.message()));
        return false;
    }
    file_ = path;
    model_.open(takeOver(std::move(read).value()));
    rememberRecent(path);
    askForData();
    return true;
}

void NetworkWindow::openExample() {
    if (!mayDiscard()) return;
    auto read = ParseProject(ManualExample().toStdString(), {}, "whip.kelvro");
    if (!read) return say(Shown(read.message()));
    file_.clear();
    model_.open(takeOver(std::move(read).value()));
}

bool NetworkWindow::write(const QString& path, const std::optional<std::string>& known) {
    const auto written = WriteProject(PathOf(path), present(), known);
    if (!written) {
        if (known && HasChanged(PathOf(path), *known) && !IsOfLaterVersion(PathOf(path)))
            return writeOverChanged(path);
        say(Shown(written.message()));
        return false;
    }
    file_ = path;
    project_.readOnly = false;
    project_.checksum = *written;
    model_.markSaved();
    rememberRecent(path);
    QFile::remove(autosaveFile());
    showTitle();
    return true;
}

bool NetworkWindow::writeOverChanged(const QString& path) {
    switch (AskAboutChangedFile(path, this)) {
        case ChangedFileAnswer::SaveAnyway:
            return write(path, {});
        case ChangedFileAnswer::SaveAs:
            return saveAs();
        default:
            return false;
    }
}

bool NetworkWindow::save() {
    if (file_.isEmpty() || project_.readOnly) return saveAs();
    return write(file_, project_.checksum);
}

bool NetworkWindow::saveAs() {
    QFileDialog dialog(this, tr("Save project"), QFileInfo(file_).path(), Shown(kFilter));
    dialog.setObjectName(QStringLiteral("SaveProjectDialog"));
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(QStringLiteral("kelvro"));
    if (dialog.exec() != QDialog::Accepted) return false;
    return write(dialog.selectedFiles().value(0), {});  // the dialog has asked
}

bool NetworkWindow::mayDiscard() {
    if (!model_.modified()) return true;
    QMessageBox box(QMessageBox::Question, tr("Network"),
                    tr("The network has changed since it was saved."),
                    QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel, this);
    box.setObjectName(QStringLiteral("UnsavedBox"));
    switch (box.exec()) {
        case QMessageBox::Save:
            return save();
        case QMessageBox::Discard:
            return true;
        default:
            return false;
    }
}

void NetworkWindow::rememberRecent(const QString& path) {
    QSettings settings = Remembered();
    QStringList files = settings.value(QStringLiteral("recentProjects")).toStringList();
    const QString absolute = QFileInfo(path).absoluteFilePath();
    files.removeAll(absolute);
    files.prepend(absolute);
    while (files.size() > kMostRecent) files.removeLast();
    settings.setValue(QStringLiteral("recentProjects"), files);
}

void NetworkWindow::fillRecent() {
    recent_->clear();
    const QSettings settings = Remembered();
    const auto files = settings.value(QStringLiteral("recentProjects")).toStringList();
    for (const QString& file : files) {
        recent_
            ->addAction(QString(QFileInfo(file).fileName()).replace('&', "&&"), this,
                        [this, file] {
                            if (mayDiscard()) openFile(file);
                        })
            ->setToolTip(file);
    }
    recent_->setToolTipsVisible(true);
    if (files.isEmpty()) recent_->addAction(tr("none yet"))->setEnabled(false);
}

bool NetworkWindow::leftBehind() {
    return QFile::exists(AutosaveFile(0)) && AutosaveLock(0);
}

/// The first that no running program has.
QString NetworkWindow::autosaveFile() {
    while (!autosaveLock_ && autosaveSlot_ < kMostPrograms) {
        autosaveLock_ = AutosaveLock(autosaveSlot_);
        if (!autosaveLock_) ++autosaveSlot_;
    }
    return AutosaveFile(autosaveSlot_);
}

void NetworkWindow::autosave() {
    if (!model_.modified()) return;
    const auto written = WriteProject(PathOf(autosaveFile()), present());
    if (!written) statusBar()->showMessage(Shown(written.message()));
}

/// What a crash or a power cut has left behind.
void NetworkWindow::offerAutosave() {
    if (!QFile::exists(autosaveFile())) return;
    QMessageBox box(QMessageBox::Question, tr("Network"),
                    tr("The program ended before a network was saved. Take it up again?"),
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setObjectName(QStringLiteral("AutosaveBox"));
    const bool wanted = box.exec() == QMessageBox::Yes;
    auto read = ReadProject(PathOf(autosaveFile()));
    QFile::remove(autosaveFile());
    if (!wanted) return;
    if (!read) return say(Shown(read.message()));
    // Not saved anywhere yet: the change mark stands until it is.
    NetworkDocument document = takeOver(std::move(read).value());
    model_.open(StartNetwork());
    model_.change(tr("Take up the network of before"),
                  [&](NetworkDocument& next) { next = std::move(document); });
    autosave();
}

void NetworkWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (!std::exchange(offered_, true)) QTimer::singleShot(0, this, [this] { offerAutosave(); });
}

void NetworkWindow::closeEvent(QCloseEvent* event) {
    // What a dialog only previews is no change of the network.
    for (QDialog* dialog : findChildren<QDialog*>()) dialog->done(QDialog::Rejected);
    if (!mayDiscard()) return event->ignore();
    autosaveTimer_->stop();
    QFile::remove(autosaveFile());
    savePlace();
    event->accept();
}

void NetworkWindow::savePlace() {
    SavePlace(*this);
    QSettings settings = Remembered();
    settings.setValue(objectName() + QStringLiteral("/size"), size());
    settings.setValue(objectName() + QStringLiteral("/split"), split_->saveState());
    settings.setValue(objectName() + QStringLiteral("/plots"), right_->saveState());
    for (const SweepView* plot : plots_) {
        QStringList keys;
        for (const Trace* trace : plot->traces()) keys << ToQString(trace->key);
        settings.setValue(PlotKey(*plot, "Traces"), keys);
        settings.setValue(PlotKey(*plot, "Logarithmic"), plot->logarithmic());
        settings.setValue(PlotKey(*plot, "Values"), Remembered(plot->valueRanges().left));
        settings.setValue(PlotKey(*plot, "RightValues"), Remembered(plot->valueRanges().right));
    }
}

void NetworkWindow::restorePlace() {
    const QSettings settings = Remembered();
    resize(settings.value(objectName() + QStringLiteral("/size"), QSize(1000, 560)).toSize());
    split_->restoreState(settings.value(objectName() + QStringLiteral("/split")).toByteArray());
    right_->restoreState(settings.value(objectName() + QStringLiteral("/plots")).toByteArray());
    for (SweepView* plot : plots_) {
        TraceList traces;
        for (const QString& key : settings.value(PlotKey(*plot, "Traces")).toStringList())
            if (const auto* trace = FindTrace(key.toStdString())) traces.push_back(trace);
        plot->setTraces(traces);
        plot->setLogarithmic(settings.value(PlotKey(*plot, "Logarithmic")).toBool());
        plot->setValueRanges(
            {RangeFrom(settings.value(PlotKey(*plot, "Values")).toStringList()),
             RangeFrom(settings.value(PlotKey(*plot, "RightValues")).toStringList())});
    }
    RestorePlace(*this);
}

void NetworkWindow::dragEnterEvent(QDragEnterEvent* event) {
    if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void NetworkWindow::dropEvent(QDropEvent* event) {
    openAny(event->mimeData()->urls().value(0).toLocalFile());
}

bool NetworkWindow::opens(const QString& file) {
    constexpr std::array suffixes = {kProjectSuffix, ".s1p", ".s2p", ".ts"};
    return std::ranges::any_of(suffixes, [&file](const char* suffix) {
        return file.endsWith(QLatin1String(suffix), Qt::CaseInsensitive);
    });
}

void NetworkWindow::takeDesign(const QString& caption, Network network) {
    file_.clear();
    project_ = {};
    model_.take(tr("Open %1").arg(caption), std::move(network));
}

void NetworkWindow::openAny(const QString& file) {
    if (file.endsWith(QLatin1String(kProjectSuffix), Qt::CaseInsensitive)) {
        if (mayDiscard()) openFile(file);
        return;
    }
    auto read = data_.load(file.toStdString());
    if (!read) return say(Shown(read.message()));
    const Impedance::Measured load{*read, (*read)->ports == 1 ? 0 : 1, false};
    model_.edit(tr("Load"), [&](Network& network) { network.load = load; });
}

// ---------------------------------------------------------------- networks

void NetworkWindow::matchHere() {
    MatchDialog dialog(model_, this);
    if (dialog.exec() == QDialog::Accepted) model_.take(tr("Match here"), dialog.chosen());
}

void NetworkWindow::refine() {
    Network start = model_.network();
    start.designFrequency = model_.designFrequency();
    auto refined = Refined(start, model_.locked());
    if (!refined) return say(Shown(refined.message()));
    const double before = WorstGain(start);
    const double after = WorstGain(*refined);
    refined->designFrequency = model_.network().designFrequency;
    model_.take(tr("Refine"), std::move(refined).value());
    const auto text = [](double GT) {
        return QString::fromStdString(FormatFixed(0, 3, 10 * std::log10(GT)));
    };
    statusBar()->showMessage(tr("Worst GT %1 dB, was %2 dB").arg(text(after), text(before)));
}

}  // namespace kelvro
