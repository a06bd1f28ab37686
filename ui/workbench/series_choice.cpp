#include "ui/workbench/series_choice.h"

#include <QComboBox>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>

#include "ui/fields.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// A list of values is some kilobytes; what is larger is another file.
constexpr qint64 kLargestList = 1 << 20;

}  // namespace

SeriesChoice::SeriesChoice(const QString& prefix, bool resistors, Series first, QWidget* parent)
    : QWidget(parent), prefix_(prefix), ownedName_(new QLabel) {
    auto* form = new QFormLayout(this);
    form->setContentsMargins(0, 0, 0, 0);
    inductors_ = addSeries("SeriesL", tr("&Inductors"), first);
    capacitors_ = addSeries("SeriesC", tr("Ca&pacitors"), first);
    if (resistors) resistors_ = addSeries("SeriesR", tr("&Resistors"), Series::None);
    auto* row = new QHBoxLayout;
    auto* own = new QPushButton(tr("&Own parts…"));
    own->setObjectName(prefix_ + QStringLiteral("Owned"));
    own->setAutoDefault(false);
    SetHint(*own, tr("A text file with values like \"L: 10n 22n\", \"18pF\"; kinds that it names "
                     "are chosen from it"));
    ownedName_->setObjectName(prefix_ + QStringLiteral("OwnedName"));
    ownedName_->setWordWrap(true);
    row->addWidget(own);
    row->addWidget(ownedName_, 1);
    form->addRow(row);
    connect(own, &QPushButton::clicked, this, &SeriesChoice::chooseFile);
}

QComboBox* SeriesChoice::addSeries(const char* name, const QString& caption, Series first) {
    auto* box = new QComboBox;
    box->setObjectName(prefix_ + QLatin1String(name));
    box->addItem(tr("any value"));
    for (const char* series : {"E6", "E12", "E24", "E48", "E96"}) {
        box->addItem(QLatin1String(series));
    }
    box->setCurrentIndex(static_cast<int>(first));
    SetHint(*box, tr("Series that the values are taken from"));
    static_cast<QFormLayout*>(layout())->addRow(caption, box);
    connect(box, &QComboBox::currentIndexChanged, this, &SeriesChoice::changed);
    return box;
}

void SeriesChoice::chooseFile() {
    QFileDialog dialog(this, tr("List of own parts"), {}, tr("Lists (*.txt *.csv);;All files (*)"));
    dialog.setObjectName(QStringLiteral("OwnedPartsDialog"));
    dialog.setFileMode(QFileDialog::ExistingFile);
    if (dialog.exec() == QDialog::Accepted) readOwned(dialog.selectedFiles().value(0));
}

void SeriesChoice::readOwned(const QString& file) {
    QFile list(file);
    owned_ = {};
    const bool opened = list.open(QIODevice::ReadOnly) && list.size() <= kLargestList;
    const auto read = opened
                          ? ParseOwnedParts(list.readAll().toStdString())
                          : Result<OwnedParts>(Status::Failure(tr("cannot be read").toStdString()));
    const QString name = QFileInfo(file).fileName();
    if (read) owned_ = *read;
    ownedName_->setText(read ? name : name + QStringLiteral(": ") + Shown(read.message()));
    emit changed();
}

std::optional<StandardOptions> SeriesChoice::options() const {
    const auto chosen = [](const QComboBox* box) {
        return box ? static_cast<Series>(box->currentIndex()) : Series::None;
    };
    const StandardOptions options{.resistors = chosen(resistors_),
                                  .inductors = chosen(inductors_),
                                  .capacitors = chosen(capacitors_),
                                  .owned = owned_};
    const StandardOptions free{
        .resistors = Series::None, .inductors = Series::None, .capacitors = Series::None};
    if (options == free) return {};
    return options;
}

}  // namespace kelvro
