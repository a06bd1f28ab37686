// Measured data of the Network window: where the project keeps them, how they are read between
// samples, and what there is to know of them.

#include <QActionGroup>
#include <QFileDialog>
#include <QFileInfo>
#include <QLabel>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QStatusBar>
#include <algorithm>
#include <map>

#include "core/number_text.h"
#include "io/touchstone.h"
#include "network/coverage.h"
#include "network/interpolation.h"
#include "ui/texts.h"
#include "ui/workbench/network_window.h"

namespace kelvro {

namespace {

using Data = std::shared_ptr<const PortData>;

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

/// "201 points, 26.00 MHz to 28.00 MHz".
QString Described(const PortData& data) {
    if (data.f.empty()) return QObject::tr("its file is missing");
    return QObject::tr("%1 points, %2 to %3")
        .arg(data.f.size())
        .arg(Text(FormatQuantity(2, data.f.front(), "Hz")),
             Text(FormatQuantity(2, data.f.back(), "Hz")));
}

/// Other data in the whole document, where `other` answers differently.
void Replace(NetworkDocument& document, const std::function<Data(const Data&)>& other) {
    ReplaceData(document.network, other);
    for (Snapshot& snapshot : document.snapshots) ReplaceData(snapshot.network, other);
    if (document.ghost) ReplaceData(*document.ghost, other);
}

}  // namespace

std::vector<Data> DataOf(const NetworkDocument& document) {
    std::vector<Data> all = DataOf(document.network);
    const auto add = [&all](const Network& network) {
        for (const Data& measured : DataOf(network))
            if (std::ranges::find(all, measured) == all.end()) all.push_back(measured);
    };
    for (const Snapshot& snapshot : document.snapshots) add(snapshot.network);
    if (document.ghost) add(*document.ghost);
    return all;
}

void NetworkWindow::addDataMenu(QMenu& menu) {
    QMenu* measured = menu.addMenu(tr("Measured &Data"));
    measured->setObjectName(QStringLiteral("NetworkData"));
    connect(measured, &QMenu::aboutToShow, this, [this, measured] { fillDataMenu(*measured); });
}

void NetworkWindow::fillDataMenu(QMenu& menu) {
    menu.clear();
    // Clearing leaves the menus that its entries opened.
    for (QMenu* old : menu.findChildren<QMenu*>()) delete old;
    std::vector<Data> all;
    for (const Data& measured : DataOf(model_.history().present())) {
        if (std::ranges::none_of(all,
                                 [&](const Data& have) { return have->name == measured->name; }))
            all.push_back(measured);
    }
    for (const Data& measured : all)
        addDataActions(*menu.addMenu(Text(measured->name).replace('&', QStringLiteral("&&"))),
                       measured);
    if (all.empty()) menu.addAction(tr("none in this network"))->setEnabled(false);
}

void NetworkWindow::addDataActions(QMenu& menu, const Data& measured) {
    menu.addAction(Described(*measured))->setEnabled(false);
    menu.addSeparator();
    const auto link = model_.links().find(measured->name);
    const bool linked = link != model_.links().end();
    auto* storing = new QActionGroup(&menu);
    const auto choice = [&menu](QActionGroup* group, const QString& text, bool on) {
        QAction* action = group->addAction(menu.addAction(text));
        action->setCheckable(true);
        action->setChecked(on);
        return action;
    };
    QAction* embedded = choice(storing, tr("&Embedded in the Project"), !linked);
    embedded->setEnabled(!measured->f.empty());
    connect(embedded, &QAction::triggered, this, [this, name = measured->name] {
        model_.change(tr("Embed %1").arg(Text(name)),
                      [&](NetworkDocument& next) { next.links.erase(name); });
    });
    const QString file = linked ? Text(link->second.filename().string()) : QString();
    connect(
        choice(storing, linked ? tr("&Linked to %1…").arg(file) : tr("&Linked to a File…"), linked),
        &QAction::triggered, this, [this, measured] { linkData(measured); });
    menu.addSection(tr("Between samples"));
    auto* forms = new QActionGroup(&menu);
    for (const auto& [form, text] : {std::pair(Interpolation::Linear, tr("&Straight")),
                                     std::pair(Interpolation::Polar, tr("&Polar")),
                                     std::pair(Interpolation::MonotoneCubic, tr("&Cubic"))}) {
        connect(choice(forms, text, measured->interpolation == form), &QAction::triggered, this,
                [this, name = measured->name, form = form] { interpolate(name, form); });
    }
}

/// A snapshot may have other data under the name: each keeps its own.
void NetworkWindow::interpolate(const std::string& name, Interpolation form) {
    std::map<Data, Data> done;
    const auto other = [&](const Data& measured) {
        if (!measured || measured->name != name || measured->interpolation == form) return measured;
        Data& by = done[measured];
        if (!by) by = Interpolated(measured, form);
        return by;
    };
    model_.change(tr("Interpolation of %1").arg(Text(name)),
                  [&](NetworkDocument& next) { Replace(next, other); });
}

/// From then on the data are those of the file.
bool NetworkWindow::linkData(const Data& measured) {
    QFileDialog dialog(this, tr("Link to a file"), QFileInfo(file_).path(),
                       tr("Touchstone files (*.s1p *.s2p *.S1P *.S2P *.ts)"));
    dialog.setObjectName(QStringLiteral("LinkDataDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    const QString own = QFileInfo(QFileInfo(file_).dir(), Text(measured->name)).absoluteFilePath();
    if (QFileInfo::exists(own)) dialog.selectFile(own);
    if (dialog.exec() != QDialog::Accepted) return false;
    const std::filesystem::path file = dialog.selectedFiles().value(0).toStdString();
    auto read = ReadTouchstone(file, file.filename().string());
    if (read && read->data.ports != measured->ports)
        read = Status::Failure(tr("%1 has %2 ports, %3 has %4")
                                   .arg(Text(file.filename().string()))
                                   .arg(read->data.ports)
                                   .arg(Text(measured->name))
                                   .arg(measured->ports)
                                   .toStdString());
    if (!read) {
        say(Shown(read.message()));
        return false;
    }
    read->data.name = measured->name;
    read->data.interpolation = measured->interpolation;
    const bool same = read->data == *measured;
    const auto by = same ? measured : std::make_shared<const PortData>(std::move(read->data));
    data_.add(by);
    model_.change(tr("Link %1").arg(Text(measured->name)), [&](NetworkDocument& next) {
        Replace(next, [&](const Data& other) { return other && *other == *measured ? by : other; });
        next.links[by->name] = file;
    });
    const QString told = same ? tr("The project will name %1") : tr("The data are now those of %1");
    const bool known = IsAsSaved(project_, by->name, file);
    statusBar()->showMessage(told.arg(Text(file.string())) +
                             (known ? QString() : tr(", which is not the file it was")));
    return true;
}

std::shared_ptr<const PortData> NetworkWindow::dataNamed(const std::string& name) const {
    const auto all = DataOf(model_.history().present());
    const auto found = std::ranges::find(all, name, [](const Data& one) { return one->name; });
    return found == all.end() ? nullptr : *found;
}

void NetworkWindow::askForData() {
    for (const DataProblem& problem : project_.dataProblems) {
        if (!dataNamed(problem.name)) continue;
        const QString rest =
            problem.missing
                ? tr("The network is shown without these data. Saving the project loses nothing "
                     "of what it says of them.")
                : tr("The network is shown with the data that are there now.");
        QMessageBox box(QMessageBox::Warning, tr("Measured data"),
                        tr("%1: %2.").arg(Text(problem.name), Shown(problem.what)) +
                            QStringLiteral("\n\n") + rest,
                        QMessageBox::Ignore, this);
        box.setObjectName(QStringLiteral("MissingDataBox"));
        box.button(QMessageBox::Ignore)->setText(tr("&Go On"));
        const auto* locate = box.addButton(tr("&Locate…"), QMessageBox::AcceptRole);
        do {
            box.exec();
        } while (box.clickedButton() == locate && !linkData(dataNamed(problem.name)));
    }
}

/// What is wrong with the data where they are needed; that a file was odd is told once.
void NetworkWindow::showDataNotes() {
    const Network problem = model_.problem();
    QStringList notes;
    for (const FrequencyBand& band : problem.bands) {
        const Status covered = CheckRange(problem, band.low, band.high);
        if (!covered) notes << Shown(covered.message());
        for (const Data& measured : DataOf(problem)) {
            for (const std::string& warning : DataWarnings(*measured, band.low, band.high))
                notes << Shown(warning);
        }
    }
    notes.removeDuplicates();
    dataNotes_->setText(notes.join('\n'));
    dataNotes_->setVisible(!notes.isEmpty());
    const auto& warnings = data_.warnings();
    if (warnings.size() > toldWarnings_) statusBar()->showMessage(Shown(warnings.back()));
    toldWarnings_ = warnings.size();
}

}  // namespace kelvro
