#include "ui/tools/filters.h"

#include <QComboBox>
#include <QHeaderView>
#include <QSpinBox>
#include <QTableWidget>
#include <QVBoxLayout>
#include <array>
#include <cmath>
#include <limits>

#include "core/rounding.h"
#include "ui/fields.h"
#include "ui/plot/plot_image.h"

namespace kelvro {

namespace {

constexpr Rgb kGainColour{0x00, 0x80, 0x00};
constexpr Rgb kReflectionColour{0xff, 0x00, 0x00};
constexpr Rgb kEdgeColour{0x80, 0xff, 0xff};
constexpr int kSamples = 1000;
constexpr double kDeepest = -500;  ///< dB; stands for no output at all

/// What the plot shows: dB downwards, and how far beyond the edges in widths of the band.
struct Depth {
    const char* name;
    double decibels;
    double width;
    double step;  ///< of the grid; every second line carries a label
};
constexpr std::array kDepths{Depth{"80 dB", 80, 8, 5}, Depth{"10 dB", 10, 2.5, 1},
                             Depth{"1 dB", 1, 1.2, 0.1}};

bool HasBandwidth(FilterBand band) {
    return band == FilterBand::BandPass || band == FilterBand::BandStop;
}

QString ValueText(double value, const char* unit) {
    return value == 0 ? QString() : EngineeringText(value) + unit;
}

/// Ends of the plot: a pass band so many times as wide about the same centre, or so many times the
/// cutoff to both sides.
BandEdges PlotEnds(const FilterWishes& wishes, double width) {
    FilterWishes wide = wishes;
    wide.band = FilterBand::BandPass;
    wide.bandwidth = HasBandwidth(wishes.band) ? width * wishes.bandwidth
                                               : wishes.frequency * (width - 1 / width);
    return EdgesOf(wide);
}

/// A linear axis as narrow as its grid allows; readable ends would hide a narrow band.
Axis NarrowAxis(BandEdges ends) {
    const double step = StepUp125((ends.upper - ends.lower) / 20);
    const double min = std::floor(ends.lower / step) * step;
    return {.min = min, .max = std::ceil(ends.upper / step) * step, .origin = min, .step = step};
}

View PlotView(const FilterWishes& wishes, const Depth& depth) {
    View view;
    view.sampleCount = kSamples;
    const BandEdges ends = PlotEnds(wishes, depth.width);
    if (HasBandwidth(wishes.band)) {
        view.x = NarrowAxis(ends);
    } else {
        view.x.mode = AxisMode::Logarithmic;
        view.x = AutoscaledX(view.x, std::array{ends.lower, ends.upper});
    }
    view.y = {.min = -depth.decibels,
              .max = depth.step,
              .origin = 0,
              .step = depth.step,
              .labelEvery = 2};
    return view;
}

Picture PictureOf(const FilterWishes& wishes, const Filter& filter, FilterLosses losses,
                  const Depth& depth) {
    Picture picture;
    picture.view = PlotView(wishes, depth);
    picture.xName = "f/Hz";
    picture.yName = "dB";
    Curve gain{.x = SampleFrequencies(picture.view), .y = {}, .colour = kGainColour, .width = 1.5};
    Curve reflection{.x = gain.x,
                     .y = {},
                     .colour = kReflectionColour,
                     .style = LineStyle::Alternative,
                     .width = 1.5};
    const LadderResponse response(NetworkOf(filter, losses));
    for (const double f : gain.x) {
        const FilterPoint point = ResponseOf(response, f);
        gain.y.push_back(std::max(point.gainDb, kDeepest));
        reflection.y.push_back(std::max(point.reflectionDb, kDeepest));
    }
    const BandEdges edges = EdgesOf(wishes);
    picture.legend = {{"gain :", kGainColour, LineStyle::Solid},
                      {"reflection :", kReflectionColour, LineStyle::Alternative}};
    picture.hairLines = {{{edges.lower, edges.upper}, kEdgeColour}};
    picture.curves = {std::move(gain), std::move(reflection)};
    return picture;
}

}  // namespace

TFormFilters::TFormFilters(QWidget* parent) : ToolWindow("TFormFilters", tr("LC Filters"), parent) {
    addInputs();
    addOutputs();
    addColumn(makePlotColumn());
    setSource(
        tr("Doubly terminated ladders after Matthaei, Young and Jones 1964. The edges are those "
           "at 3.01 dB (Butterworth) or at the ripple (Chebyshev)."));
    finish();
}

void TFormFilters::addInputs() {
    beginGroup(tr("Filter"));
    band_ = addChoice("BandChoice", tr("&Kind"),
                      {tr("Low-pass"), tr("High-pass"), tr("Band-pass"), tr("Band-stop")},
                      tr("What the filter lets pass"));
    shape_ = addChoice("ShapeChoice", tr("&Approximation"), {"Butterworth", "Chebyshev"},
                       tr("Flat in the pass band, or steeper with ripple"));
    order_ = new QSpinBox;
    order_->setObjectName(QStringLiteral("OrderEingabe"));
    order_->setRange(1, kMostOrder);
    order_->setValue(5);
    connect(order_, &QSpinBox::valueChanged, this, &TFormFilters::changed);
    addField(order_, {tr("&Order"), {}, tr("Of the low-pass that the filter is made from")});
    ripple_ = addInput("RippleEingabe", {tr("&Ripple"), "dB", tr("Above 0 to 3 dB")}, "0.5");
    f_ = addInput("foEingabe",
                  {{}, "Hz", tr("Edge or centre of the band; follows the design until typed")},
                  "100M");
    setFrequencyField(f_);
    bandwidth_ =
        addInput("BEingabe", {tr("&Bandwidth"), "Hz", tr("Upper edge less lower edge")}, "20M");
    source_ = addInput("R1Eingabe", {tr("R&1"), tr("ohm"), tr("Source resistance")}, "50");
    first_ = addChoice("FirstChoice", tr("First &element"), {tr("across"), tr("in series")},
                       tr("How the ladder begins at the source"));
    QL_ = addInput("QLEingabe", {tr("Q of &L"), {}, tr("Empty: no losses")}, {});
    QC_ = addInput("QCEingabe", {tr("&Q of C"), {}, tr("Empty: no losses")}, {});
}

void TFormFilters::addOutputs() {
    beginGroup(tr("Result"), Place::NewColumn);
    load_ = addOutput("R2Ausgabe", {"R2", tr("ohm"), tr("Load that the filter needs")});
    lower_ = addOutput("LowerAusgabe", {tr("Lower edge"), "Hz", {}});
    upper_ = addOutput("UpperAusgabe", {tr("Upper edge"), "Hz", {}});
    lowerHalf_ = addOutput("Lower3Ausgabe", {tr("Lower edge at 3 dB"), "Hz", tr("Without losses")});
    upperHalf_ = addOutput("Upper3Ausgabe", {tr("Upper edge at 3 dB"), "Hz", tr("Without losses")});
    beginGroup(tr("At another frequency"));
    at_ = addInput("fEingabe", {"&f", "Hz", tr("Where attenuation and return loss are told")},
                   "200M");
    wanted_ = addInput("WantedEingabe",
                       {tr("&Wanted attenuation"), "dB", tr("At f, for the least order")}, "40");
    attenuation_ =
        addOutput("AttenuationAusgabe", {tr("Attenuation"), "dB", tr("With the losses")});
    reflection_ = addOutput("ReflectionAusgabe", {tr("Return loss"), "dB", tr("With the losses")});
    leastOrder_ =
        addOutput("LeastOrderAusgabe", {tr("Least order for the wish"), {}, tr("Without losses")});
}

QWidget* TFormFilters::makePlotColumn() {
    auto* column = new QWidget;
    auto* layout = new QVBoxLayout(column);
    layout->setContentsMargins(0, 0, 0, 0);
    depth_ = new QComboBox;
    depth_->setObjectName(QStringLiteral("DepthChoice"));
    for (const Depth& depth : kDepths) depth_->addItem(tr("Plot down to ") + depth.name);
    SetHint(*depth_, tr("How deep the plot reaches, and how wide"));
    connect(depth_, &QComboBox::currentIndexChanged, this, &TFormFilters::changed);
    plot_ = new PlotImage;
    plot_->setObjectName(QStringLiteral("FilterPlot"));
    plot_->setMinimumSize(320, 180);
    elements_ = new QTableWidget(0, 4);
    elements_->setObjectName(QStringLiteral("ElementsTable"));
    elements_->setHorizontalHeaderLabels({tr("Arm"), "L", "C", tr("Resonator")});
    SetHint(*elements_, tr("Arms from source to load"));
    elements_->verticalHeader()->hide();
    elements_->horizontalHeader()->setSectionResizeMode(QHeaderView::Stretch);
    elements_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    elements_->setMinimumHeight(110);
    layout->addWidget(depth_, 0, Qt::AlignLeft);
    layout->addWidget(plot_, 3);
    layout->addWidget(elements_, 2);
    return column;
}

FilterWishes TFormFilters::wishes() const {
    return {.shape = static_cast<FilterShape>(shape_->currentIndex()),
            .band = static_cast<FilterBand>(band_->currentIndex()),
            .order = order_->value(),
            .ripple = number(ripple_),
            .frequency = number(f_),
            .bandwidth = number(bandwidth_),
            .source = number(source_),
            .shuntFirst = first_->currentIndex() == 0};
}

FilterLosses TFormFilters::losses() const {
    const auto quality = [](const InputEdit* edit) {
        const double q = number(edit);
        return q > 0 ? q : std::numeric_limits<double>::infinity();
    };
    return {quality(QL_), quality(QC_)};
}

void TFormFilters::showRows() {
    const auto band = static_cast<FilterBand>(band_->currentIndex());
    setShown(bandwidth_, HasBandwidth(band));
    setShown(ripple_, shape_->currentIndex() == 1);
    setTexts(f_, HasBandwidth(band) ? tr("&Centre fo") : tr("&Cutoff frequency"));
    for (OutputEdit* lower : {lower_, lowerHalf_}) setShown(lower, band != FilterBand::LowPass);
    for (OutputEdit* upper : {upper_, upperHalf_}) setShown(upper, band != FilterBand::HighPass);
}

void TFormFilters::showEdges(const FilterWishes& wishes) {
    const BandEdges edges = EdgesOf(wishes);
    const BandEdges half = HalfPowerEdges(wishes);
    write(lower_, edges.lower);
    write(upper_, edges.upper);
    write(lowerHalf_, half.lower);
    write(upperHalf_, half.upper);
}

void TFormFilters::showElements(const Filter& filter) {
    elements_->setRowCount(static_cast<int>(filter.arms.size()));
    for (int row = 0; row < elements_->rowCount(); ++row) {
        const FilterArm& arm = filter.arms[static_cast<std::size_t>(row)];
        const QString place = arm.series ? tr(" in series") : tr(" across");
        const bool resonator = arm.L != 0 && arm.C != 0;
        const QString kind = arm.seriesResonant ? tr("L, C in series") : tr("L, C in parallel");
        const QStringList texts{QString::number(row + 1) + place, ValueText(arm.L, "H"),
                                ValueText(arm.C, "F"), resonator ? kind : QString()};
        for (int i = 0; i < texts.size(); ++i)
            elements_->setItem(row, i, new QTableWidgetItem(texts[i]));
    }
}

void TFormFilters::recalculate() {
    showRows();
    const FilterWishes wanted = wishes();
    const Filter filter = DesignFilter(wanted);
    const bool sound = !filter.arms.empty();
    const double none = std::nan("");
    const double f = number(at_);
    const bool point = sound && f > 0;
    const FilterPoint there = point ? ResponseOf(LadderResponse(NetworkOf(filter, losses())), f)
                                    : FilterPoint{none, none};
    write(load_, sound ? filter.load : none);
    if (sound) {
        showEdges(wanted);
    } else {
        for (OutputEdit* edge : {lower_, upper_, lowerHalf_, upperHalf_}) write(edge, none);
    }
    writeFixed(attenuation_, 3, -there.gainDb);
    writeFixed(reflection_, 3, -there.reflectionDb);
    const int least = point ? LeastOrder(wanted, number(wanted_), f) : 0;
    writeFixed(leastOrder_, 0, least > 0 ? least : none);
    showElements(filter);
    const Depth& depth = kDepths[static_cast<std::size_t>(depth_->currentIndex())];
    plot_->setPicture(sound ? PictureOf(wanted, filter, losses(), depth) : Picture());
    if (!sound) {
        setNote(tr("Frequencies and R1 must be positive, the ripple above 0 to 3 dB."));
    } else {
        setNote(point && least == 0
                    ? tr("No order up to %1 attenuates that much at f.").arg(kMostOrder)
                    : QString());
    }
}

QString TFormFilters::resultText() const {
    QString text = ToolWindow::resultText();
    for (int row = 0; row < elements_->rowCount(); ++row) {
        QStringList cells;
        for (int i = 0; i < elements_->columnCount(); ++i) cells << elements_->item(row, i)->text();
        text += cells.join('\t').trimmed() + '\n';
    }
    return text;
}

}  // namespace kelvro
