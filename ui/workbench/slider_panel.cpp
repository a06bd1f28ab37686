#include "ui/workbench/slider_panel.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QProgressBar>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QSlider>
#include <QVBoxLayout>
#include <algorithm>
#include <array>
#include <cmath>

#include "core/exact_number.h"
#include "core/number_text.h"
#include "ui/fields.h"
#include "ui/texts.h"
#include "ui/workbench/smith_view.h"

namespace kelvro {

namespace {

constexpr int kHalfWay = 500;        // positions of a slider to each side of its middle
constexpr double kWorstShown = -20;  // dB at which the bar is empty
constexpr double kKeyStep = 0.01;
constexpr int kShownDigits = 5;

/// By how much the ends of a slider differ from its middle.
constexpr std::array kRanges = {1.1, 1.5, 3.0, 10.0};
constexpr int kUsualRange = 2;

constexpr std::array kSeriesEntries = {Series::None, Series::E6,  Series::E12,
                                       Series::E24,  Series::E48, Series::E96};

QString ValueText(double value) {
    return QString::fromStdString(FormatPrefixed(value, kShownDigits));
}

}  // namespace

SliderPanel::SliderPanel(NetworkModel& model, QWidget* parent)
    : QWidget(parent),
      model_(model),
      rowsArea_(new QWidget),
      worst_(new QProgressBar),
      worstText_(new QLabel),
      seriesBox_(new QComboBox),
      rangeBox_(new QComboBox) {
    setObjectName(QStringLiteral("SliderPanel"));
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(4, 4, 4, 4);
    auto* head = new QHBoxLayout;
    worst_->setObjectName(QStringLiteral("WorstBar"));
    worst_->setRange(0, 1000);
    worst_->setTextVisible(false);
    worstText_->setObjectName(QStringLiteral("WorstText"));
    head->addWidget(new QLabel(tr("Worst GT in the bands")));
    head->addWidget(worst_, 1);
    head->addWidget(worstText_);
    column->addLayout(head);

    auto* choices = new QHBoxLayout;
    seriesBox_->setObjectName(QStringLiteral("SliderSeries"));
    for (const char* entry :
         {QT_TRANSLATE_NOOP("kelvro", "continuous"), "E6", "E12", "E24", "E48", "E96"})
        seriesBox_->addItem(Shown(entry));
    SetHint(*seriesBox_,
            tr("Values through which sliders step; Shift steps through them on the chart"));
    connect(seriesBox_, &QComboBox::activated, this, [this](int index) {
        emit seriesChosen(kSeriesEntries[static_cast<std::size_t>(index)]);
    });
    rangeBox_->setObjectName(QStringLiteral("SliderRange"));
    for (const double range : kRanges)
        rangeBox_->addItem(tr("÷ × %1").arg(QString::fromStdString(FormatShortest(range))));
    rangeBox_->setCurrentIndex(kUsualRange);
    SetHint(*rangeBox_, tr("How far the ends of the sliders lie from the present values"));
    connect(rangeBox_, &QComboBox::activated, this, [this] {
        for (Row& row : rows_) row.centre = ValueOf(model_.network().ladder, row.at);
        showModel();
    });
    choices->addWidget(new QLabel(tr("Steps")));
    choices->addWidget(seriesBox_);
    choices->addWidget(new QLabel(tr("Range")));
    choices->addWidget(rangeBox_);
    choices->addStretch();
    column->addLayout(choices);

    grid_ = new QGridLayout(rowsArea_);
    grid_->setContentsMargins(0, 0, 0, 0);
    grid_->setColumnStretch(3, 1);
    heads_ = {new QLabel(tr("gang")), new QLabel(tr("lock"))};
    grid_->addWidget(heads_[0], 0, 0);
    grid_->addWidget(heads_[1], 0, 1);
    scroll_ = new QScrollArea;
    scroll_->setWidgetResizable(true);
    scroll_->setFrameShape(QFrame::NoFrame);
    scroll_->setWidget(rowsArea_);
    // Both show what is behind them: the page of the tab.
    rowsArea_->setAutoFillBackground(false);
    scroll_->viewport()->setAutoFillBackground(false);
    column->addWidget(scroll_, 1);
    connect(&model_, &NetworkModel::changed, this, &SliderPanel::showModel);
    showModel();
}

void SliderPanel::setSeries(Series series) {
    const auto at = std::ranges::find(kSeriesEntries, series);
    seriesBox_->setCurrentIndex(static_cast<int>(at - kSeriesEntries.begin()));
}

void SliderPanel::rebuild() {
    for (const Row& row : rows_) {
        for (QWidget* widget : std::initializer_list<QWidget*>{row.gang, row.lock, row.name,
                                                               row.slider, row.edit, row.unit})
            delete widget;
    }
    rows_.clear();
    shown_ = TunablesOf(model_.network().ladder);
    for (QLabel* head : heads_) head->setVisible(!shown_.empty());
    for (std::size_t i = 0; i < shown_.size(); ++i) addRow(shown_[i], static_cast<int>(i));
    grid_->setRowStretch(static_cast<int>(shown_.size()) + 1, 1);
}

/// Sideways nothing is ever out of sight, the bar to scroll down included.
void SliderPanel::keepWide() {
    scroll_->setMinimumWidth(rowsArea_->minimumSizeHint().width() +
                             scroll_->verticalScrollBar()->sizeHint().width());
}

void SliderPanel::addRow(const Tunable& at, int line) {
    const auto& ladder = model_.network().ladder;
    const auto index = static_cast<std::size_t>(line);
    const QString name = QString::fromStdString(NameOf(ladder, at));
    Row row{at,
            new QCheckBox,
            new QCheckBox,
            new QLabel,
            new QSlider(Qt::Horizontal),
            new InputEdit(QStringLiteral("Value%1").arg(line + 1)),
            new QLabel(ToQString(UnitOf(ladder, at))),
            ValueOf(ladder, at)};
    row.name->setObjectName(QStringLiteral("SliderName%1").arg(line + 1));
    row.name->setBuddy(row.edit);
    row.edit->setUnit(row.unit->text());
    row.slider->setObjectName(QStringLiteral("Slider%1").arg(line + 1));
    row.slider->setRange(-kHalfWay, kHalfWay);
    row.slider->setPageStep(kHalfWay / 10);
    row.slider->setMinimumWidth(90);
    row.gang->setObjectName(QStringLiteral("Gang%1").arg(line + 1));
    SetHint(*row.gang, tr("Moves together with the others that are ganged, by the same ratio"));
    row.lock->setObjectName(QStringLiteral("Lock%1").arg(line + 1));
    SetHint(*row.lock, tr("Refining and centring leave it alone"));
    connect(row.lock, &QCheckBox::clicked, this, [this, at](bool on) { model_.setLocked(at, on); });
    connect(row.slider, &QSlider::valueChanged, this,
            [this, index](int position) { slid(index, position); });
    connect(row.slider, &QSlider::sliderPressed, this,
            [this, name] { model_.beginDrag(tr("Tune %1").arg(name)); });
    connect(row.slider, &QSlider::sliderReleased, this, [this, index] {
        model_.endDrag(true);
        rows_[index].centre = ValueOf(model_.network().ladder, rows_[index].at);
        showModel();
    });
    connect(row.edit, &QLineEdit::textEdited, this, [this, index] { typed(index); });
    connect(row.edit, &QLineEdit::editingFinished, this, &SliderPanel::showModel);
    connect(row.edit, &InputEdit::stepped, this,
            [this, index](int direction) { stepped(index, direction); });
    int column = 0;
    for (QWidget* widget : std::initializer_list<QWidget*>{row.gang, row.lock, row.name, row.slider,
                                                           row.edit, row.unit})
        grid_->addWidget(widget, line + 1, column++);
    nameRow(row, name);
    rows_.push_back(row);
}

void SliderPanel::nameRow(Row& row, const QString& name) {
    row.name->setText(name);
    row.slider->setAccessibleName(name);
    row.gang->setAccessibleName(tr("Gang %1").arg(name));
    row.lock->setAccessibleName(tr("Lock %1").arg(name));
}

double SliderPanel::valueAt(const Row& row, int position) const {
    const double range = kRanges[static_cast<std::size_t>(rangeBox_->currentIndex())];
    const double value = row.centre * std::pow(range, position / double{kHalfWay});
    const ValueRange limits = RangeOf(model_.network().ladder, row.at);
    const bool part = row.at.quantity == Tunable::Quantity::PartValue;
    const Series series =
        part ? kSeriesEntries[static_cast<std::size_t>(seriesBox_->currentIndex())] : Series::None;
    return NearestOfSeries(series, std::clamp(value, limits.low, limits.high));
}

int SliderPanel::positionOf(const Row& row, double value) const {
    const double range = kRanges[static_cast<std::size_t>(rangeBox_->currentIndex())];
    const double place = std::log(value / row.centre) / std::log(range);
    return static_cast<int>(std::lround(kHalfWay * std::clamp(place, -1.0, 1.0)));
}

void SliderPanel::showModel() {
    if (TunablesOf(model_.network().ladder) != shown_) rebuild();
    filling_ = true;
    for (Row& row : rows_) {
        const auto& ladder = model_.network().ladder;
        const double value = ValueOf(ladder, row.at);
        // The element may have got another name, or become another kind of part.
        nameRow(row, QString::fromStdString(NameOf(ladder, row.at)));
        row.unit->setText(ToQString(UnitOf(ladder, row.at)));
        // A value set elsewhere, beyond the slider's ends, becomes its new middle.
        const double range = kRanges[static_cast<std::size_t>(rangeBox_->currentIndex())];
        const bool beyond =
            !(value < row.centre * range * 1.0001 && value > row.centre / range / 1.0001);
        if (beyond && !row.slider->isSliderDown()) row.centre = value;
        const QSignalBlocker blocker(row.slider);
        if (!row.slider->isSliderDown()) row.slider->setValue(positionOf(row, value));
        if (!row.edit->hasFocus() || !row.edit->isModified()) row.edit->setText(ValueText(value));
        row.lock->setChecked(model_.locked(row.at));
    }
    filling_ = false;
    keepWide();
    showWorst();
}

void SliderPanel::showWorst() {
    const auto worst = model_.worstGainDb();
    worst_->setEnabled(worst.has_value());
    const double part = worst ? std::clamp(1 - *worst / kWorstShown, 0.0, 1.0) : 0;
    worst_->setValue(static_cast<int>(std::lround(1000 * part)));
    worstText_->setText(worst ? tr("%1 dB").arg(QString::fromStdString(FormatFixed(0, 3, *worst)))
                        : model_.network().bands.empty() ? tr("no bands")
                                                         : tr("no value"));
}

void SliderPanel::move(std::size_t index, double value) {
    const auto& ladder = model_.network().ladder;
    const double ratio = value / ValueOf(ladder, rows_[index].at);
    if (!rows_[index].gang->isChecked()) return model_.setValue(rows_[index].at, value);
    model_.edit(
        tr("Tune ganged values"),
        [&](Network& network) {
            for (const Row& row : rows_) {
                if (!row.gang->isChecked()) continue;
                const ValueRange limits = RangeOf(network.ladder, row.at);
                SetValue(
                    network.ladder, row.at,
                    std::clamp(ratio * ValueOf(network.ladder, row.at), limits.low, limits.high));
            }
        },
        QStringLiteral("gang"));
}

void SliderPanel::slid(std::size_t index, int position) {
    if (filling_) return;
    model_.select(rows_[index].at);
    move(index, valueAt(rows_[index], position));
}

void SliderPanel::typed(std::size_t index) {
    const double value = rows_[index].edit->value();
    const ValueRange limits = RangeOf(model_.network().ladder, rows_[index].at);
    if (value > 0) move(index, std::clamp(value, limits.low, limits.high));
}

void SliderPanel::stepped(std::size_t index, int direction) {
    const Row& row = rows_[index];
    const double value = ValueOf(model_.network().ladder, row.at);
    const Series series = kSeriesEntries[static_cast<std::size_t>(seriesBox_->currentIndex())];
    const bool part = row.at.quantity == Tunable::Quantity::PartValue;
    const double next = part && series != Series::None ? SeriesStep(series, value, direction)
                                                       : value * (1 + direction * kKeyStep);
    const ValueRange limits = RangeOf(model_.network().ladder, row.at);
    row.edit->setModified(false);
    move(index, std::clamp(next, limits.low, limits.high));
}

}  // namespace kelvro
