#include "ui/form_proposal.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QSignalBlocker>
#include <QTreeWidget>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "design/pages.h"
#include "ui/design_session.h"
#include "ui/fields.h"
#include "ui/form_parts.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

enum Column { Network, Gain, Band, Harmonic, Smallest, Largest, Practical, ColumnCount };

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QString DecibelText(const std::optional<double>& value) {
    return value ? Text(FormatFixed(0, 2, *value)) : QStringLiteral("-");
}

QString PartText(const std::optional<SizedPart>& part) {
    return part ? Text(part->text()) : QStringLiteral("-");
}

/// Long enough that nobody who types waits for a search.
constexpr int kPause = 300;  // ms

/// The number that an edit holds; nothing where it is empty or holds none above zero.
std::optional<double> WishedNumber(const InputEdit& edit) {
    const double value = edit.value();
    if (value > 0) return value;
    return std::nullopt;
}

}  // namespace

const RankedCircuit& TFormProposal::Entry::circuit() const {
    return network ? static_cast<const RankedCircuit&>(*network) : *page;
}

QString TFormProposal::Entry::title() const {
    return Shown(network ? Title(*network) : Title(*page));
}

QStringList TFormProposal::Entry::texts() const {
    QStringList texts(ColumnCount);
    texts[Column::Network] = title();
    if (!suited()) return texts;
    const RankedCircuit& shown = circuit();
    const auto& band = shown.passband;
    texts[Gain] = DecibelText(shown.gtDb);
    texts[Column::Band] = band ? Text(FormatQuantity(2, band->width(), "Hz")) : QStringLiteral("-");
    texts[Harmonic] = DecibelText(shown.secondHarmonicDb);
    texts[Smallest] = PartText(shown.smallest);
    texts[Largest] = PartText(shown.largest);
    texts[Practical] = shown.practical ? tr("yes") : tr("no");
    return texts;
}

TFormProposal::TFormProposal(DesignSession& session, QWidget* parent)
    : QDialog(parent), session_(session), mayExchange_([this] { return askToExchange(); }) {
    setObjectName(QStringLiteral("TFormProposal"));
    setWindowTitle(tr("Suggestions for circuit topology"));
    inputs_ = new QLabel;
    inputs_->setObjectName(QStringLiteral("LabelInputs"));
    auto* rows = new QVBoxLayout(this);
    rows->addWidget(inputs_);
    rows->addWidget(buildWishes());
    buildTable();
    rows->addWidget(table_, 1);
    none_ =
        new QLabel(tr("No circuit suits these wishes. \"Show unsuited circuits too\" tells why."));
    none_->setObjectName(QStringLiteral("LabelNone"));
    rows->addWidget(none_);
    rows->addWidget(buildButtons());
    due_.setSingleShot(true);
    connect(&due_, &QTimer::timeout, this, &TFormProposal::refresh);
    pause_.setSingleShot(true);
    pause_.setInterval(kPause);
    connect(&pause_, &QTimer::timeout, this, &TFormProposal::search);
    connect(&session_, &DesignHost::designChanged, this, [this] {
        if (isVisible()) due_.start();
    });
    resize(960, 530);
}

InputEdit* TFormProposal::addInput(const char* name, const QString& hint) {
    auto* edit = new InputEdit(QLatin1String(name));
    edit->setPlaceholderText(tr("any"));
    SetHint(*edit, hint);
    connect(edit, &QLineEdit::textChanged, this, [this] { due_.start(); });
    return edit;
}

QGroupBox* TFormProposal::buildWishes() {
    auto* box = new QGroupBox(tr("Your wishes:"));
    auto* grid = new QGridLayout(box);
    Q_ = addInput("ProposalQEingabe", tr("Wanted loaded Q; leave empty if it does not matter"));
    bandwidth_ = addInput("ProposalBEingabe", tr("Wanted bandwidth in Hz, instead of a Q"));
    ratio_ = addInput("ProposalvEingabe",
                      tr("Wanted V2/V1; below that of the match, the rest is attenuated"));
    dc_ = new QComboBox;
    dc_->setObjectName(QStringLiteral("ComboBoxDc"));
    dc_->addItems({tr("does not matter"), tr("must pass"), tr("must be blocked")});
    SetHint(*dc_, tr("Direct current from source to load"));
    // Q and bandwidth say the same thing: the one typed last counts.
    connect(Q_, &QLineEdit::textEdited, bandwidth_, &QLineEdit::clear);
    connect(bandwidth_, &QLineEdit::textEdited, Q_, &QLineEdit::clear);
    connect(dc_, &QComboBox::currentIndexChanged, this, [this] { due_.start(); });
    const std::pair<QString, QWidget*> fields[] = {{tr("&Q-Factor"), Q_},
                                                   {tr("or &Bandwidth"), bandwidth_},
                                                   {tr("&Ratio v=V2/V1"), ratio_},
                                                   {tr("&DC"), dc_}};
    int column = 0;
    for (const auto& [caption, widget] : fields) {
        auto* label = new QLabel(caption);
        label->setBuddy(widget);
        grid->addWidget(label, 0, column++);
        grid->addWidget(widget, 0, column++);
    }
    grid->setColumnStretch(column, 1);

    auto* checks = new QHBoxLayout;
    harmonics_ = AddButton<QCheckBox>(*checks, "CheckBoxHarmonics", tr("Suppress &harmonics"),
                                      tr("At 2·fo the gain must be at least 6 dB down"));
    balanced_ = AddButton<QCheckBox>(*checks, "CheckBoxBalanced", tr("B&alanced output"),
                                     tr("Two outputs of opposite phase"));
    resistive_ = AddButton<QCheckBox>(*checks, "CheckBoxResistive", tr("R&esistive"),
                                      tr("A flat pad instead of a tuned circuit"));
    amplifier_ = AddButton<QCheckBox>(*checks, "CheckBoxAmplifier", tr("Am&plifier stage"),
                                      tr("The source is a power amplifier to be designed"));
    checks->addStretch();
    for (QCheckBox* check : {harmonics_, balanced_, resistive_, amplifier_}) {
        connect(check, &QCheckBox::toggled, this, [this] { due_.start(); });
    }
    grid->addLayout(checks, 1, 0, 1, column + 1);
    return box;
}

void TFormProposal::buildTable() {
    table_ = new QTreeWidget;
    table_->setObjectName(QStringLiteral("ProposalTable"));
    table_->setHeaderLabels({tr("Circuit"), tr("GT at fo/dB"), tr("-3 dB band"), tr("2·fo down/dB"),
                             tr("Smallest"), tr("Largest"), tr("Practical")});
    table_->setRootIsDecorated(false);
    table_->setItemsExpandable(false);
    table_->setExpandsOnDoubleClick(false);
    table_->setIndentation(14);
    table_->setUniformRowHeights(true);
    SetHint(*table_,
            tr("Double-click or Enter goes to the page, or opens the network that a search "
               "has found; parts are ordered by their impedance at fo"));
    table_->header()->setStretchLastSection(false);
    table_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    table_->header()->setSectionResizeMode(Column::Network, QHeaderView::Stretch);
    connect(table_, &QTreeWidget::itemActivated, this, &TFormProposal::ButtonGoClick);
    connect(table_, &QTreeWidget::currentItemChanged, this, &TFormProposal::showGo);
}

QWidget* TFormProposal::buildButtons() {
    auto* bar = new QWidget;
    auto* row = new QHBoxLayout(bar);
    row->setContentsMargins(0, 0, 0, 0);
    unsuited_ = AddButton<QCheckBox>(*row, "CheckBoxUnsuited", tr("Show &unsuited circuits too"),
                                     tr("With the reason why they do not suit"));
    connect(unsuited_, &QCheckBox::toggled, this, [this] { due_.start(); });
    searched_ =
        AddButton<QCheckBox>(*row, "CheckBoxSearched", tr("Sea&rch networks too"),
                             tr("Rank the best ladders of up to four parts beside the pages"));
    searched_->setChecked(true);
    connect(searched_, &QCheckBox::toggled, this, [this] { due_.start(); });
    row->addStretch();
    go_ = AddButton<QPushButton>(*row, "ButtonGo", tr("&Go to page"),
                                 tr("Show the selected circuit in the main window"));
    auto* copy = AddButton<QPushButton>(*row, "ButtonCopyProposals", tr("&Copy"),
                                        tr("Copy the table to the clipboard"));
    auto* quiz =
        AddButton<QPushButton>(*row, "ButtonQuiz", tr("Qui&z..."), tr("A quiz on matching"));
    auto* close =
        AddButton<QPushButton>(*row, "ButtonClose", tr("C&lose"), tr("Close this window"));
    for (QPushButton* button : {go_, copy, quiz, close}) button->setAutoDefault(false);
    go_->setEnabled(false);
    connect(go_, &QPushButton::clicked, this, &TFormProposal::ButtonGoClick);
    connect(copy, &QPushButton::clicked, this, &TFormProposal::ButtonCopyClick);
    connect(close, &QPushButton::clicked, this, &QDialog::close);
    return bar;
}

Wishes TFormProposal::wishes() const {
    Wishes wishes;
    wishes.Q = WishedNumber(*Q_);
    wishes.bandwidth = WishedNumber(*bandwidth_);
    wishes.voltageRatio = WishedNumber(*ratio_);
    wishes.dc = static_cast<Wishes::Dc>(dc_->currentIndex());
    wishes.suppressHarmonics = harmonics_->isChecked();
    wishes.balancedOutput = balanced_->isChecked();
    wishes.resistive = resistive_->isChecked();
    wishes.amplifierStage = amplifier_->isChecked();
    return wishes;
}

void TFormProposal::refresh() {
    const Design& state = session_.design();
    inputs_->setText(Shown("R1 " + FormatQuantity(2, state.R1, "Ω") + ", R2 " +
                           FormatQuantity(2, state.R2, "Ω") + ", fo " +
                           FormatQuantity(2, state.fo, "Hz") + ", ideal ratio v " +
                           FormatFixed(0, 3, std::sqrt(state.R2 / state.R1))));
    // The window's own settings, but without its reports: the proposals' designs are no runs that
    // the user has asked for.
    OptimizerServices services(session_.optimizer().settings);
    proposals_ = Propose(state, wishes(), services);
    prepareSearch();
    rank();
    showRows();
    if (QTreeWidgetItem* first = table_->topLevelItem(0)) table_->setCurrentItem(first);
    showGo();
}

/// Networks of another search are of no use; those of the same one stay.
void TFormProposal::prepareSearch() {
    const auto wished = SearchFor(session_.design(), wishes());
    if (!searched_->isChecked() || !wished) {
        wished_.reset();
    } else if (wished_ && *wished_ == *wished) {
        return;
    } else {
        wished_ = *wished;
    }
    work_.askToStop();
    networks_.clear();
    pause_.stop();
    if (wished_) pause_.start();
}

void TFormProposal::search() {
    if (!wished_) return;
    work_.start([this, wished = *wished_](const std::stop_token& stop,
                                          const BackgroundWork::HandOver& handOver) {
        const auto show = [&](const std::vector<FoundNetwork>& found) {
            handOver([this, wished, networks = ProposeNetworks(wished, found)]() mutable {
                if (!wished_ || !(*wished_ == wished)) return;
                networks_ = std::move(networks);
                rank();
                showRows();
            });
        };
        const auto monitor = [&](const SearchProgress& progress) {
            if (progress.networks && !stop.stop_requested()) show(*progress.networks);
            return !stop.stop_requested();
        };
        // What it has found was shown; where nothing fits, the pages stay alone.
        (void)SearchNetworks(wished.problem, wished.options, monitor);
    });
}

/// Pages and networks in the order of their points, unsuited pages behind.
void TFormProposal::rank() {
    entries_.clear();
    for (const Proposal& page : proposals_) {
        if (page.suited || unsuited_->isChecked()) entries_.push_back({.page = &page});
    }
    for (const NetworkProposal& network : networks_) entries_.push_back({.network = &network});
    std::ranges::stable_sort(entries_, RanksBefore, &Entry::circuit);
}

/// Fills the table; the current row stays current where it still exists.
void TFormProposal::showRows() {
    const QString chosen = table_->currentItem() ? table_->currentItem()->text(0) : QString();
    const QSignalBlocker blocker(table_);
    table_->clear();
    for (std::size_t i = 0; i < entries_.size(); ++i) addRow(entries_[i], static_cast<int>(i));
    none_->setVisible(std::ranges::none_of(entries_, &Entry::suited));
    for (int i = 0; i < table_->topLevelItemCount(); ++i) {
        QTreeWidgetItem* row = table_->topLevelItem(i);
        if (row->text(0) == chosen) table_->setCurrentItem(row);
    }
    showGo();
}

/// A line of numbers, and the reason below it across all columns.
void TFormProposal::addRow(const Entry& entry, int index) {
    auto* row = new QTreeWidgetItem(table_, entry.texts());
    const QString words = Shown(entry.circuit().reason);
    auto* reason = new QTreeWidgetItem(row, {words});
    reason->setFirstColumnSpanned(true);
    reason->setToolTip(0, words);
    for (QTreeWidgetItem* item : {row, reason}) item->setData(0, Qt::UserRole, index);
    for (int column = Gain; column <= Harmonic; ++column) {
        row->setTextAlignment(column, Qt::AlignRight | Qt::AlignVCenter);
    }
    QFont bold = table_->font();
    bold.setBold(entry.suited());
    row->setFont(Column::Network, bold);
    if (!entry.suited())
        row->setForeground(Column::Network, palette().brush(QPalette::Disabled, QPalette::Text));
    row->setExpanded(true);
}

void TFormProposal::showGo() {
    const Entry* entry = current();
    go_->setText(entry && entry->network ? tr("&Open network") : tr("&Go to page"));
    go_->setEnabled(entry && entry->suited());
}

const TFormProposal::Entry* TFormProposal::current() const {
    const QTreeWidgetItem* item = table_->currentItem();
    if (!item) return nullptr;
    return &entries_[static_cast<std::size_t>(item->data(0, Qt::UserRole).toInt())];
}

bool TFormProposal::askToExchange() {
    QMessageBox box(QMessageBox::Question, windowTitle(),
                    tr("This circuit is designed from your load to your source.\n"
                       "Switch R1 and R2 for its page?"),
                    QMessageBox::Yes | QMessageBox::No, this);
    box.setObjectName(QStringLiteral("MessageExchange"));
    return box.exec() == QMessageBox::Yes;
}

void TFormProposal::ButtonGoClick() {
    const Entry* entry = current();
    if (!entry || !entry->suited()) return;
    if (entry->network) {
        const auto chosen = *entry;
        return emit networkChosen(chosen.title(), chosen.network->found.network);
    }
    const Proposal* proposal = entry->page;
    const bool exchange = proposal->turned && mayExchange_();
    const auto apply = [&](Design& design) {
        Apply(*proposal, design, exchange);
        EnterPage(design, proposal->page);
    };
    session_.edit(Title(*proposal), apply, {.fields = Fields::Follow});
}

void TFormProposal::ButtonCopyClick() {
    QStringList lines;
    for (const Entry& entry : entries_) {
        if (!entry.suited()) continue;
        lines << entry.texts().join('\t') + '\t' + Shown(entry.circuit().reason);
    }
    QApplication::clipboard()->setText(lines.join('\n'));
}

void TFormProposal::showEvent(QShowEvent* event) {
    refresh();
    QDialog::showEvent(event);
}

void TFormProposal::hideEvent(QHideEvent* event) {
    pause_.stop();
    work_.askToStop();
    wished_.reset();  // shown again, it searches anew
    QDialog::hideEvent(event);
}

}  // namespace kelvro
