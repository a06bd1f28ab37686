#include "ui/workbench/search_choices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QTabWidget>
#include <QVBoxLayout>

#include "core/number_text.h"
#include "synthesis/search_text.h"
#include "ui/fields.h"
#include "ui/language.h"
#include "ui/texts.h"
#include "ui/workbench/series_choice.h"

namespace kelvro {

namespace {

struct KindRow {
    const char* name;
    const char* caption;
    bool SearchKinds::*member;
};

constexpr KindRow kKinds[] = {
    {"FindInductors", QT_TRANSLATE_NOOP("kelvro", "Inductors"), &SearchKinds::inductors},
    {"FindCapacitors", QT_TRANSLATE_NOOP("kelvro", "Capacitors"), &SearchKinds::capacitors},
    {"FindTraps", QT_TRANSLATE_NOOP("kelvro", "Traps"), &SearchKinds::traps},
    {"FindLines", QT_TRANSLATE_NOOP("kelvro", "Lines"), &SearchKinds::lines},
    {"FindStubs", QT_TRANSLATE_NOOP("kelvro", "Stubs"), &SearchKinds::stubs},
    {"FindTransformers", QT_TRANSLATE_NOOP("kelvro", "Transformers"), &SearchKinds::transformers}};

/// Where a text of a field cannot be read: the caption and why.
Status Wrong(const QString& field, const std::string& why) {
    return Status::Failure(field.toStdString() + ": " + why);
}

/// A positive number, or what stands there already where the field is empty.
Status ReadNumber(const QLineEdit& edit, double& value) {
    const std::string text = edit.text().trimmed().toStdString();
    if (text.empty()) return {};
    const ParsedNumber number = ParseNumber(text);
    if (number.noDigits || !(number.value > 0)) {
        return Wrong(edit.accessibleName(), "expected a number above 0");
    }
    value = number.value;
    return {};
}

template <typename Value>
Status Take(Result<Value> read, const QLineEdit& edit, Value& value) {
    if (!read) return Wrong(edit.accessibleName(), read.message());
    value = *std::move(read);
    return {};
}

std::string TextOf(const QLineEdit& edit) {
    return edit.text().trimmed().toStdString();
}

}  // namespace

SearchChoices::SearchChoices(QWidget* parent) : QWidget(parent) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    auto* tabs = new QTabWidget;
    tabs->setObjectName(QStringLiteral("FindTabs"));
    tabs->addTab(buildLadder(), tr("&Ladder"));
    tabs->addTab(buildValues(), tr("&Values"));
    tabs->addTab(buildBuilding(), tr("&Building"));
    column->addWidget(tabs);
}

QLineEdit* SearchChoices::addEdit(QFormLayout& form, const char* name, const QString& caption,
                                  const QString& placeholder, const QString& hint) {
    auto* edit = new QLineEdit;
    edit->setObjectName(QLatin1String(name));
    edit->setPlaceholderText(placeholder);
    edit->setAccessibleName(QString(caption).remove('&'));
    SetHint(*edit, hint);
    if (!caption.isEmpty()) form.addRow(caption, edit);
    connect(edit, &QLineEdit::returnPressed, this, &SearchChoices::confirmed);
    return edit;
}

/// Two fields in a row: the smallest and the largest value.
void SearchChoices::addRange(QFormLayout& form, const char* name, const QString& caption,
                             const char* least, const char* most, QLineEdit*& low,
                             QLineEdit*& high) {
    auto* row = new QHBoxLayout;
    const auto add = [&](const char* end, const char* placeholder, const QString& hint) {
        QLineEdit* edit = addEdit(form, name, QString(), QLatin1String(placeholder),
                                  hint + (IsTranslated() ? caption : caption.toLower()));
        edit->setObjectName(QLatin1String(name) + QLatin1String(end));
        edit->setAccessibleName(caption);
        row->addWidget(edit);
        return edit;
    };
    low = add("Least", least, tr("Smallest "));
    row->addWidget(new QLabel(tr("to")));
    high = add("Most", most, tr("Largest "));
    form.addRow(caption, row);
}

QWidget* SearchChoices::buildLadder() {
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    parts_ = new QSpinBox;
    parts_->setObjectName(QStringLiteral("FindParts"));
    parts_->setRange(1, 8);
    parts_->setValue(SearchOptions().mostParts);
    SetHint(*parts_, tr("4 parts take a second, 5 some seconds, 6 half a minute"));
    form->addRow(tr("&Most parts"), parts_);
    auto* grid = new QGridLayout;
    for (const KindRow& row : kKinds) {
        auto* box = new QCheckBox(Shown(row.caption));
        SetHint(*box, tr("The search may build with these"));
        box->setObjectName(QLatin1String(row.name));
        box->setChecked(SearchKinds().*row.member);
        const int at = static_cast<int>(kinds_.size());
        grid->addWidget(box, at / 2, at % 2);
        kinds_.push_back(box);
    }
    form->addRow(tr("Made of"), grid);
    dc_ = new QComboBox;
    dc_->setObjectName(QStringLiteral("FindDc"));
    dc_->addItems({tr("does not matter"), tr("blocked"), tr("passed")});
    SetHint(*dc_, tr("Direct current from source to load"));
    form->addRow(tr("&DC"), dc_);
    shape_ = new QComboBox;
    shape_->setObjectName(QStringLiteral("FindShape"));
    shape_->addItems({tr("any"), tr("low-pass"), tr("high-pass")});
    SetHint(*shape_, tr("Of the response far from the band"));
    form->addRow(tr("S&hape"), shape_);
    harmonics_ = addEdit(*form, "FindHarmonics", tr("Ha&rmonics"), QStringLiteral("2:-20, 3:-30"),
                         tr("Gain left at harmonics of the middle of the band: order:dB"));
    atSource_ = addEdit(*form, "FindAtSource", tr("F&irst at least"), QStringLiteral("C=2p"),
                        tr("A part that the source brings along: C across, L in series"));
    atLoad_ = addEdit(*form, "FindAtLoad", tr("Las&t at least"), QStringLiteral("L=3n"),
                      tr("A part that the load brings along: C across, L in series"));
    return page;
}

QWidget* SearchChoices::buildValues() {
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    addRange(*form, "FindL", tr("Inductance"), "1n", "1u", leastL_, mostL_);
    addRange(*form, "FindC", tr("Capacitance"), "1p", "1n", leastC_, mostC_);
    addRange(*form, "FindZ0", tr("Line impedance"), "20", "120", leastZ0_, mostZ0_);
    coilQ_ = addEdit(*form, "FindCoilQ", tr("&Q of inductors"), QStringLiteral("40@100M"),
                     tr("Losses count in the search: Q, or Q@frequency; empty: none"));
    capacitorQ_ = addEdit(*form, "FindCapacitorQ", tr("Q of ca&pacitors"), QStringLiteral("300"),
                          tr("Losses count in the search: Q, or Q@frequency; empty: none"));
    return page;
}

QWidget* SearchChoices::buildBuilding() {
    auto* page = new QWidget;
    auto* form = new QFormLayout(page);
    series_ = new SeriesChoice(QStringLiteral("Find"), false, Series::None);
    form->addRow(series_);
    coilTolerance_ = addEdit(*form, "FindLtol", tr("Tolerance of inductors %"), QStringLiteral("5"),
                             tr("For the yield, percent"));
    capacitorTolerance_ = addEdit(*form, "FindCtol", tr("of capacitors %"), QStringLiteral("5"),
                                  tr("For the yield, percent"));
    yieldLimit_ = addEdit(*form, "FindYieldLimit", tr("Builds keep dB"), tr("0.5 below the best"),
                          tr("Worst gain that a build has to keep to count as good, dB"));
    top_ = new QSpinBox;
    top_->setObjectName(QStringLiteral("FindTop"));
    top_->setRange(1, 100);
    top_->setValue(static_cast<int>(SearchOptions().most));
    SetHint(*top_, tr("The best so many are listed"));
    form->addRow(tr("Networks shown"), top_);
    seed_ = new QSpinBox;
    seed_->setObjectName(QStringLiteral("FindSeed"));
    seed_->setRange(1, 1'000'000);
    SetHint(*seed_, tr("The same seed finds the same networks"));
    form->addRow(tr("Seed"), seed_);
    return page;
}

void SearchChoices::setLosses(const SearchLosses& losses) {
    const auto text = [](const PartLoss& loss) {
        return QString::fromStdString(FormatShortest(loss.Q));
    };
    coilQ_->setText(text(losses.inductor));
    capacitorQ_->setText(text(losses.capacitor));
}

Result<SearchOptions> SearchChoices::search() const {
    SearchOptions options;
    options.mostParts = parts_->value();
    for (std::size_t i = 0; i < kinds_.size(); ++i) {
        options.kinds.*kKinds[i].member = kinds_[i]->isChecked();
    }
    options.dc = static_cast<DcWish>(dc_->currentIndex());
    options.shape = static_cast<LadderShape>(shape_->currentIndex());
    options.most = static_cast<std::size_t>(top_->value());
    options.seed = static_cast<std::uint64_t>(seed_->value());
    for (const auto& [edit, value] : {std::pair{leastL_, &options.inductance.low},
                                      {mostL_, &options.inductance.high},
                                      {leastC_, &options.capacitance.low},
                                      {mostC_, &options.capacitance.high},
                                      {leastZ0_, &options.lineImpedance.low},
                                      {mostZ0_, &options.lineImpedance.high}}) {
        if (Status wrong = ReadNumber(*edit, *value); !wrong) return wrong;
    }
    const auto lossOf = [](PartKind kind, const QLineEdit& edit, PartLoss& loss) {
        return Take(ParsePartQ(kind, TextOf(edit)), edit, loss);
    };
    SearchLosses& losses = options.losses;
    for (const Status& wrong :
         {lossOf(PartKind::Inductor, *coilQ_, losses.inductor),
          lossOf(PartKind::Capacitor, *capacitorQ_, losses.capacitor),
          Take(ParseAbsorbedPart(TextOf(*atSource_)), *atSource_, options.atSource),
          Take(ParseAbsorbedPart(TextOf(*atLoad_)), *atLoad_, options.atLoad)}) {
        if (!wrong) return wrong;
    }
    for (const QString& text : harmonics_->text().split(',', Qt::SkipEmptyParts)) {
        HarmonicLimit harmonic;
        const Status wrong =
            Take(ParseHarmonic(text.trimmed().toStdString()), *harmonics_, harmonic);
        if (!wrong) return wrong;
        options.harmonics.push_back(harmonic);
    }
    return options;
}

Result<RatingOptions> SearchChoices::rating() const {
    RatingOptions options;
    options.standard = series_->options();
    if (options.standard) {
        const auto limits = search();
        if (!limits) return limits.status();
        options.standard->inductance = limits->inductance;
        options.standard->capacitance = limits->capacitance;
    }
    Tolerances& tolerances = options.yield.tolerances;
    for (const auto& [edit, value] : {std::pair{coilTolerance_, &tolerances.inductance},
                                      {capacitorTolerance_, &tolerances.capacitance}}) {
        if (Status wrong = ReadNumber(*edit, *value); !wrong) return wrong;
        *value = ClampTolerance(*value);
    }
    options.yield.seed = static_cast<std::uint64_t>(seed_->value());
    if (const std::string text = TextOf(*yieldLimit_); !text.empty()) {
        const ParsedNumber number = ParseNumber(text);
        if (number.noDigits || !(number.value < 0)) {
            return Wrong(yieldLimit_->accessibleName(), "expected dB below 0");
        }
        options.yieldLimitDb = number.value;
    }
    return options;
}

}  // namespace kelvro
