#include "ui/workbench/find_dialog.h"

#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QSplitter>
#include <QTableWidget>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "network/network_text.h"
#include "plot/gain_thumbnail.h"
#include "plot/ladder_thumbnail.h"
#include "ui/fields.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"
#include "ui/workbench/limit_watch.h"
#include "ui/workbench/network_window.h"
#include "ui/workbench/search_choices.h"

namespace kelvro {

namespace {

enum Column { Best, Ladder, Gain, Parts, Worst, Mean, Yield, Standard, Elements, ColumnCount };

constexpr QSize kLadderSize(130, 56);
constexpr QSize kCurveSize(96, 56);
constexpr int kElementsWidth = 150;  // at least
constexpr int kShownDigits = 4;
constexpr int kChoicesWidth = 300;
constexpr double kSteps = 1000;  // of the progress bar

QString DecibelText(double ratio) {
    const double dB = 10 * std::log10(ratio);
    return QString::fromStdString(FormatFixed(0, 3, dB > -5e-4 ? 0.0 : dB));
}

QString PercentText(double fraction) {
    return QString::fromStdString(FormatFixed(0, 1, 100 * fraction)) + QStringLiteral(" %");
}

QString ElementsText(const Network& network) {
    QStringList texts;
    for (const LadderElement& element : network.ladder) {
        texts << QString::fromStdString(ElementText(element, kShownDigits));
    }
    return texts.isEmpty() ? FindDialog::tr("nothing: a straight connection")
                           : texts.join(QStringLiteral("; "));
}

/// Depth of the small curves: the worst gain of all, and no less than lets differences be seen.
double LowestDb(const std::vector<RatedNetwork>& networks) {
    double lowest = 1;
    for (const RatedNetwork& rated : networks) {
        if (rated.found.front) lowest = std::min(lowest, rated.found.worstGT);
    }
    return std::clamp(1.5 * 10 * std::log10(lowest), -20.0, -0.5);
}

QTableWidgetItem* PictureItem(const QImage& picture) {
    auto* item = new QTableWidgetItem;
    item->setData(Qt::DecorationRole, QPixmap::fromImage(picture));
    return item;
}

}  // namespace

FindDialog::FindDialog(NetworkModel& model, LimitWatch& limit, QWidget* parent)
    : QDialog(parent), model_(model), limit_(limit) {
    setObjectName(QStringLiteral("FindDialog"));
    setWindowTitle(tr("Find networks"));
    auto* column = new QVBoxLayout(this);
    auto* split = new QSplitter(Qt::Horizontal);
    split->setChildrenCollapsible(false);
    split->addWidget(buildChoices());
    split->addWidget(buildResults());
    split->setStretchFactor(1, 1);
    split->setSizes({kChoicesWidth, 3 * kChoicesWidth});
    column->addWidget(split, 1);
    auto* row = new QHBoxLayout;
    progress_ = new QProgressBar;
    progress_->setObjectName(QStringLiteral("FindProgress"));
    progress_->setRange(0, static_cast<int>(kSteps));
    progress_->setTextVisible(false);
    progress_->setMaximumWidth(160);
    state_ = new QLabel;
    state_->setObjectName(QStringLiteral("FindState"));
    const auto button = [&](const char* name, const QString& caption, const QString& hint) {
        auto* made = new QPushButton(caption);
        SetHint(*made, hint);
        made->setObjectName(QLatin1String(name));
        made->setAutoDefault(false);
        row->addWidget(made);
        return made;
    };
    row->addWidget(progress_);
    row->addWidget(state_, 1);
    start_ =
        button("FindStart", tr("&Find"), tr("Start the search, or end it with what it has found"));
    take_ = button("FindTake", tr("&Take"), tr("Put the chosen network into the window"));
    auto* cancel = button("FindCancel", tr("Cancel"), tr("Close; the network stays as it was"));
    column->addLayout(row);
    connect(start_, &QPushButton::clicked, this, &FindDialog::startOrStop);
    connect(take_, &QPushButton::clicked, this, &QDialog::accept);
    connect(cancel, &QPushButton::clicked, this, [this] { done(Rejected); });
    connect(choices_, &SearchChoices::confirmed, this, &FindDialog::startOrStop);
    connect(&work_, &BackgroundWork::finished, this, &FindDialog::showState);
    connect(&limit_, &LimitWatch::changed, this, &FindDialog::showLimit);
    resize(1000, 520);
    model_.beginDrag(tr("Find networks"));
    limit_.setOn(true);
    showLimit();
    showState();
    GiveMnemonics(*this);
}

FindDialog::~FindDialog() = default;

QWidget* FindDialog::buildChoices() {
    auto* side = new QWidget;
    side->setMaximumWidth(kChoicesWidth);
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    const Network problem = model_.problem();
    auto* ends = new QLabel(tr("From %1\nto %2")
                                .arg(QString::fromStdString(ImpedanceText(problem.source)),
                                     QString::fromStdString(ImpedanceText(problem.load))));
    ends->setObjectName(QStringLiteral("FindEnds"));
    ends->setWordWrap(true);
    column->addWidget(ends);
    auto* row = new QHBoxLayout;
    auto* label = new QLabel(tr("&Bands"));
    bands_ = new QLineEdit(QString::fromStdString(BandsText(problem.bands)));
    bands_->setObjectName(QStringLiteral("FindBands"));
    label->setBuddy(bands_);
    SetHint(*bands_, tr("Where the networks have to work: 70M:130M, 400M:410M"));
    connect(bands_, &QLineEdit::returnPressed, this, &FindDialog::startOrStop);
    row->addWidget(label);
    row->addWidget(bands_, 1);
    column->addLayout(row);
    choices_ = new SearchChoices;
    column->addWidget(choices_);
    column->addStretch(1);
    return side;
}

QWidget* FindDialog::buildResults() {
    auto* side = new QWidget;
    auto* column = new QVBoxLayout(side);
    column->setContentsMargins(0, 0, 0, 0);
    table_ = new QTableWidget(0, ColumnCount);
    table_->setObjectName(QStringLiteral("FindTable"));
    table_->setHorizontalHeaderLabels({QString(), tr("Network"), tr("GT"), tr("Parts"),
                                       tr("Worst/dB"), tr("Mean/dB"), tr("Yield"),
                                       tr("Standard/dB"), tr("From source to load")});
    table_->verticalHeader()->hide();
    table_->setSelectionBehavior(QAbstractItemView::SelectRows);
    table_->setSelectionMode(QAbstractItemView::SingleSelection);
    table_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    table_->setTabKeyNavigation(false);
    table_->setWordWrap(true);
    table_->setColumnHidden(Standard, true);
    table_->resizeColumnsToContents();
    table_->horizontalHeader()->setStretchLastSection(true);
    SetHint(*table_, tr("A star: no network with fewer parts is as good. Arrow keys show a network "
                        "in chart and plots, Enter takes it"));
    column->addWidget(table_, 1);
    const auto text = [&](const char* name) {
        auto* label = new QLabel;
        label->setObjectName(QLatin1String(name));
        label->setWordWrap(true);
        column->addWidget(label);
        return label;
    };
    limitText_ = text("FindLimit");
    problemText_ = text("FindProblem");
    problemText_->hide();
    connect(table_, &QTableWidget::currentCellChanged, this, [this] {
        if (filling_) return;
        chosen_ = true;
        preview();
    });
    connect(table_, &QTableWidget::activated, this, [this] {
        if (take_->isEnabled()) accept();
    });
    return side;
}

void FindDialog::done(int result) {
    work_.askToStop();
    model_.endDrag(result == Accepted);
    QDialog::done(result);
}

/// Escape ends the search first: what it has found is still there.
void FindDialog::reject() {
    if (work_.running()) return work_.askToStop();
    QDialog::reject();
}

void FindDialog::startOrStop() {
    if (work_.running()) return work_.askToStop();
    start();
}

void FindDialog::start() {
    const auto bands = ParseBands(bands_->text().toStdString());
    const auto options = choices_->search();
    const auto rating = choices_->rating();
    for (const Status& status : {bands.status(), options.status(), rating.status()}) {
        if (!status) return say(Shown(status.message()));
    }
    say({});
    Network problem = model_.problem();
    problem.bands = *bands;
    networks_.clear();
    table_->setRowCount(0);
    chosen_ = false;
    // The plots show the bands, and the limit is theirs.
    Network present = model_.network();
    present.bands = *bands;
    model_.preview(std::move(present));
    search(problem, *options, *rating);
    showState();
}

void FindDialog::search(const Network& problem, const SearchOptions& options,
                        const RatingOptions& rating) {
    work_.start([this, problem, options, rating](const std::stop_token& stop,
                                                 const BackgroundWork::HandOver& handOver) {
        RatingOptions quick = rating;
        quick.standard.reset();  // chosen once, at the end
        int told = -1;
        const auto monitor = [&](const SearchProgress& progress) {
            if (const int step = static_cast<int>(kSteps * progress.done); step != told) {
                told = step;
                handOver([this, done = progress.done, parts = progress.parts] {
                    showProgress(done, parts);
                });
            }
            if (progress.networks) {
                handOver([this, rated = Rated(*progress.networks, quick)] { showNetworks(rated); });
            }
            return !stop.stop_requested();
        };
        const auto found = SearchNetworks(problem, options, monitor);
        const bool cancelled = found && found->cancelled;
        if (found) {
            handOver([this, rated = Rated(found->networks, rating)] { showNetworks(rated); });
        }
        handOver([this, status = found.status(), cancelled] { showEnd(status, cancelled); });
    });
}

void FindDialog::showProgress(double done, int parts) {
    progress_->setValue(static_cast<int>(kSteps * done));
    state_->setText(tr("%1 parts").arg(parts));
}

void FindDialog::showNetworks(Rating rating) {
    if (!model_.dragging()) return;  // closed meanwhile
    const int row = table_->currentRow();
    const bool keep = chosen_ && row >= 0 && row < static_cast<int>(networks_.size());
    const auto& same = [&](const RatedNetwork& other) {
        return other.found.network.ladder ==
               networks_[static_cast<std::size_t>(row)].found.network.ladder;
    };
    const auto kept = keep ? std::ranges::find_if(rating.networks, same) : rating.networks.end();
    const int current =
        kept == rating.networks.end() ? 0 : static_cast<int>(kept - rating.networks.begin());
    networks_ = std::move(rating.networks);
    filling_ = true;
    table_->setRowCount(static_cast<int>(networks_.size()));
    const double lowestDb = LowestDb(networks_);
    bool standard = false;
    for (std::size_t i = 0; i < networks_.size(); ++i) {
        fillRow(static_cast<int>(i), networks_[i], lowestDb);
        standard |= networks_[i].standard.has_value();
    }
    table_->setColumnHidden(Standard, !standard);
    table_->resizeColumnsToContents();
    // The last column takes what is left, and more lines instead of more width.
    table_->setColumnWidth(Elements, kElementsWidth);
    table_->horizontalHeader()->setStretchLastSection(true);
    table_->resizeRowsToContents();
    table_->horizontalHeaderItem(Yield)->setToolTip(
        tr("Builds that keep %1 dB").arg(DecibelText(rating.leastGT)));
    if (!networks_.empty()) table_->setCurrentCell(current, Best);
    filling_ = false;
    preview();
    showState();
}

void FindDialog::fillRow(int row, const RatedNetwork& rated, double lowestDb) {
    const FoundNetwork& found = rated.found;
    const QRgb colour = palette().color(QPalette::Text).rgb();
    const double scale = devicePixelRatioF();
    table_->setItem(row, Ladder,
                    PictureItem(LadderThumbnail(found.network.ladder, kLadderSize, colour, scale)));
    table_->setItem(row, Gain,
                    PictureItem(GainThumbnail(rated.asBuilt(), model_.plotRange(), lowestDb,
                                              kCurveSize, colour, scale)));
    const auto put = [&](Column column, const QString& text, bool number = true) {
        auto* item = new QTableWidgetItem(text);
        item->setTextAlignment(Qt::AlignVCenter | (number ? Qt::AlignRight : Qt::AlignLeft));
        QFont font = table_->font();
        font.setBold(found.front);
        item->setFont(font);
        table_->setItem(row, column, item);
    };
    put(Best, found.front ? QStringLiteral("★") : QString());
    put(Parts, QString::number(found.parts));
    put(Worst, DecibelText(found.worstGT));
    put(Mean, DecibelText(found.meanGT));
    put(Yield, rated.yield ? PercentText(rated.yield->yield) : QStringLiteral("-"));
    put(Standard, rated.standard ? DecibelText(rated.standard->worstGT) : QStringLiteral("-"));
    put(Elements, ElementsText(rated.asBuilt()), false);
}

void FindDialog::showEnd(const Status& status, bool cancelled) {
    if (!status) say(Shown(status.message()));
    progress_->setValue(0);
    if (networks_.empty()) {
        state_->setText(tr("Nothing found"));
    } else {
        state_->setText(cancelled ? tr("Stopped: the best so far") : tr("Done"));
    }
    if (!networks_.empty()) table_->setFocus();
}

void FindDialog::showState() {
    start_->setText(work_.running() ? tr("Sto&p") : tr("&Find"));
    take_->setEnabled(!networks_.empty());
    progress_->setVisible(work_.running());
}

void FindDialog::showLimit() {
    limitText_->setText(limit_.text());
}

void FindDialog::preview() {
    const int row = table_->currentRow();
    if (row < 0 || row >= static_cast<int>(networks_.size()) || !model_.dragging()) return;
    const Network& built = networks_[static_cast<std::size_t>(row)].asBuilt();
    Network next = model_.network();
    next.ladder = built.ladder;
    next.bands = built.bands;
    model_.preview(std::move(next));
}

void FindDialog::say(const QString& problem) {
    problemText_->setText(problem);
    problemText_->setVisible(!problem.isEmpty());
}

}  // namespace kelvro
