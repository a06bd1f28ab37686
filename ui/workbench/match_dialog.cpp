#include "ui/workbench/match_dialog.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <utility>

#include "core/number_text.h"
#include "network/network_text.h"
#include "plot/ladder_thumbnail.h"
#include "ui/fields.h"
#include "ui/mnemonics.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr QSize kThumbnail(150, 60);
constexpr int kShownDigits = 5;

QString DcText(DcPath dc) {
    switch (dc) {
        case DcPath::Passed:
            return QObject::tr("passes DC");
        case DcPath::Blocked:
            return QObject::tr("blocks DC");
        case DcPath::Grounded:
            break;
    }
    return QObject::tr("grounds DC");
}

QString WidthText(const Passband& band) {
    const auto hertz = [](double f) { return QString::fromStdString(FormatQuantity(2, f, "Hz")); };
    if (!std::isfinite(band.high)) return QObject::tr("1 dB from %1 up").arg(hertz(band.low));
    if (band.low == 0) return QObject::tr("1 dB up to %1").arg(hertz(band.high));
    return QObject::tr("1 dB width %1 (%2 to %3)")
        .arg(hertz(band.width()), hertz(band.low), hertz(band.high));
}

}  // namespace

MatchDialog::MatchDialog(NetworkModel& model, QWidget* parent)
    : QDialog(parent),
      model_(model),
      topology_(new QComboBox),
      Q_(new QLineEdit),
      list_(new QListWidget),
      problem_(new QLabel) {
    setObjectName(QStringLiteral("MatchDialog"));
    const double f = model_.designFrequency();
    setWindowTitle(tr("Match at %1").arg(QString::fromStdString(FormatQuantity(3, f, "Hz"))));
    auto* column = new QVBoxLayout(this);
    auto* head = new QHBoxLayout;
    topology_->setObjectName(QStringLiteral("MatchTopology"));
    topology_->addItems({tr("L sections"), tr("Pi sections"), tr("T sections")});
    SetHint(*topology_, tr("Shape of the networks"));
    Q_->setObjectName(QStringLiteral("MatchQ"));
    Q_->setPlaceholderText(tr("automatic"));
    SetHint(*Q_, tr("Loaded Q of the pi or T; empty: twice the lowest"));
    auto* label = new QLabel(tr("&Q"));
    label->setBuddy(Q_);
    head->addWidget(topology_);
    head->addWidget(label);
    head->addWidget(Q_);
    head->addStretch();
    column->addLayout(head);
    list_->setObjectName(QStringLiteral("MatchList"));
    list_->setIconSize(kThumbnail);
    list_->setSpacing(2);
    column->addWidget(list_, 1);
    problem_->setObjectName(QStringLiteral("MatchProblem"));
    problem_->setWordWrap(true);
    column->addWidget(problem_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(tr("&Take"));
    column->addWidget(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(list_, &QListWidget::itemActivated, this, &QDialog::accept);
    connect(topology_, &QComboBox::currentIndexChanged, this, &MatchDialog::search);
    connect(Q_, &QLineEdit::textEdited, this, &MatchDialog::search);
    search();
    constexpr int kBeside = 60;  // frame, scroll bar and margins
    resize(std::max(520, list_->sizeHintForColumn(0) + kBeside), 420);
    list_->setFocus();
    GiveMnemonics(*this);
}

void MatchDialog::search() {
    constexpr MatchTopology topologies[] = {MatchTopology::L, MatchTopology::Pi, MatchTopology::T};
    ExactMatchOptions options;
    options.topology = topologies[topology_->currentIndex()];
    Q_->setEnabled(options.topology != MatchTopology::L);
    if (Q_->isEnabled() && !Q_->text().trimmed().isEmpty())
        options.Q = ParseValue(Q_->text().toStdString());
    const Network& network = model_.network();
    auto found = ExactMatches(network.source, network.load, model_.designFrequency(), options);
    list_->clear();
    matches_.clear();
    problem_->setText(Shown(found.message()));
    problem_->setVisible(!found.ok());
    if (!found) return;
    matches_ = std::move(found).value();
    for (const ExactMatch& match : matches_) addMatch(match);
    list_->setCurrentRow(0);
}

void MatchDialog::addMatch(const ExactMatch& match) {
    QStringList texts;
    for (const LadderElement& element : match.network.ladder)
        texts << QString::fromStdString(ElementText(element, kShownDigits));
    if (texts.isEmpty()) texts << tr("nothing: source and load match as they are");
    const QString text = texts.join(QStringLiteral("\n")) + '\n' + DcText(match.dc) +
                         QStringLiteral(", ") + WidthText(match.width);
    QIcon icon;
    for (const auto& [mode, colour] : {std::pair(QIcon::Normal, QPalette::Text),
                                       std::pair(QIcon::Selected, QPalette::HighlightedText)}) {
        const QImage picture = LadderThumbnail(match.network.ladder, kThumbnail,
                                               palette().color(colour).rgb(), devicePixelRatioF());
        icon.addPixmap(QPixmap::fromImage(picture), mode);
    }
    list_->addItem(new QListWidgetItem(icon, text));
}

Network MatchDialog::chosen() const {
    Network next = model_.network();
    const int row = list_->currentRow();
    if (row >= 0) next.ladder = matches_[static_cast<std::size_t>(row)].network.ladder;
    return next;
}

}  // namespace kelvro
