#include "ui/shared_panel.h"

#include <QCheckBox>
#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QRadioButton>
#include <QToolButton>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/pages.h"
#include "ui/form_row.h"
#include "ui/plot/icons.h"
#include "ui/plot/value_spin.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

enum Column { kLabel, kEdit, kSpin, kUnit, kAction };

constexpr int kLines = 5;

constexpr QColor kRefusalColour(170, 0, 0);
constexpr QColor kRefusalColourOnDark(255, 140, 130);

constexpr std::string_view kQInput = "QEingabe";
/// Spinning may pass the ceiling of typed values, and the floor of the Class-E page.
constexpr Limits kSpunQ = {0.2, 1000};

/// How spin buttons and the entry of a page write Q and the element Qs.
constexpr TextFormat kQFormat = Fixed(7, 2);

bool IsQuality(const InputField& field) {
    return field.object.starts_with("Q");
}

QGridLayout* GridIn(QGroupBox* box) {
    auto* grid = new QGridLayout(box);
    grid->setContentsMargins(10, 4, 10, 4);
    grid->setHorizontalSpacing(6);
    for (int row = 0; row < kLines; ++row) GiveLineHeight(*grid, row);
    grid->setColumnStretch(kAction + 1, 1);
    return grid;
}

QLabel* Caption(const QString& text, const QString& hint = {}) {
    auto* label = new QLabel(text);
    SetHint(*label, hint);
    return label;
}

/// In a low window the button is hardly higher than its text.
void LetShrink(QAbstractButton& button) {
    button.setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    button.setMinimumHeight(button.fontMetrics().height() + 4);
}

/// Q with the small "Btot" beside it.
QWidget* TotalQCaption() {
    auto* caption = new QWidget;
    auto* row = new QHBoxLayout(caption);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(1);
    auto* sub = Caption(QObject::tr("Btot"), QObject::tr("Bandwidth"));
    sub->setObjectName(QStringLiteral("BtotLabel"));
    QFont small = sub->font();
    small.setPointSizeF(small.pointSizeF() * 0.8);
    sub->setFont(small);
    row->addWidget(Caption(QObject::tr("Q"), QObject::tr("Total effective element Q-factor")));
    row->addWidget(sub, 0, Qt::AlignBottom);
    row->addStretch();
    return caption;
}

/// Takes the room of two lines, whatever its width: else the whole window would count as one that
/// may be lower where it is wider, and scroll where it need not.
class RefusalText : public QLabel {
  public:
    bool hasHeightForWidth() const override { return false; }
    QSize minimumSizeHint() const override { return {0, 2 * fontMetrics().lineSpacing()}; }
};

/// Numbers stand in the system font, words such as "infinite" in a smaller one.
void AdjustBandwidthFont(QLineEdit& edit) {
    const bool number = !ParseNumber(edit.text().toStdString()).noDigits;
    edit.setFont(number ? QFont(QStringLiteral("System"), 10) : QFont(QStringLiteral("Arial"), 9));
}

}  // namespace

SharedPanel::SharedPanel(DesignSession& session, QWidget* parent)
    : QWidget(parent), session_(session) {
    inputs_.reserve(SharedInputs().size());
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(8);
    row->addWidget(buildResistances(), 1);
    row->addWidget(buildQPanel(), 1);
    row->addWidget(buildOutputs(), 1);
    row->addWidget(buildSeries());
    for (const BoundInput& input : inputs_) {
        // Every change of R1, R2 and fo counts; the Q fields listen to the user only, since the
        // cycle itself rewrites Q.
        const auto signal =
            IsQuality(input.field()) ? &QLineEdit::textEdited : &QLineEdit::textChanged;
        connect(&input.edit(), signal, this, [this, input] { EingabeChange(input); });
        // With the session as context: fields lose their focus once more while they are torn down.
        connect(&input.edit(), &NumberEdit::left, &session_,
                [this, input] { input.writeInUse(session_.design()); });
    }
}

QWidget* SharedPanel::buildResistances() {
    auto* box = new QGroupBox(tr("Source and Load"));
    QGridLayout* grid = GridIn(box);
    int row = 0;
    for (const InputField& field : SharedInputs())
        if (!IsQuality(field)) addInput(grid, row++, field);
    auto* swap = new QToolButton;
    swap->setObjectName(QStringLiteral("SpeedButtonVertauschen"));
    swap->setText(tr("S&witch"));
    swap->setIcon(VectorIcon("switch"));
    swap->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    swap->setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Expanding);
    SetHint(*swap, tr("Switch R1 and R2"));
    connect(swap, &QToolButton::clicked, this, &SharedPanel::switchClicked);
    grid->addWidget(swap, 0, kAction, 2, 1);
    refusal_ = new RefusalText;
    refusal_->setObjectName(QStringLiteral("RefusalLabel"));
    refusal_->setTextFormat(Qt::PlainText);  // "R2<R1!" is no markup
    refusal_->setWordWrap(true);
    refusal_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Ignored);
    refusal_->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    grid->addWidget(refusal_, row, kLabel, 2, kAction - kLabel + 2);
    grid->setRowStretch(kLines, 1);
    return box;
}

QWidget* SharedPanel::buildQPanel() {
    auto* box = new QGroupBox(tr("Quality Factors"));
    box->setObjectName(QStringLiteral("PanelQ"));
    qPanel_ = box;
    QSizePolicy policy = box->sizePolicy();
    policy.setRetainSizeWhenHidden(true);  // nothing moves when a page does without Q
    box->setSizePolicy(policy);
    QGridLayout* grid = GridIn(box);
    int row = 0;
    for (const InputField& field : SharedInputs())
        if (IsQuality(field)) addInput(grid, row++, field);
    checkBoxQ_ = new QCheckBox(tr("&Q by d"));
    checkBoxQ_->setObjectName(QStringLiteral("CheckBoxQ"));
    checkBoxQ_->setChecked(true);
    SetHint(*checkBoxQ_, tr("otherwise Q will be determined by bandwidth"));
    connect(checkBoxQ_, &QCheckBox::clicked, this, &SharedPanel::CheckBoxQClick);
    grid->addWidget(checkBoxQ_, row, kEdit, 1, 3);
    grid->setRowStretch(kLines, 1);
    return box;
}

QWidget* SharedPanel::buildOutputs() {
    auto* box = new QGroupBox(tr("Results"));
    QGridLayout* grid = GridIn(box);
    const QString approximate = tr("approximately fo/Q");
    const QString loss = tr("compared to optimum match");
    addOutput(grid, 0, Caption(tr("Bandwidth"), approximate), "BAusgabe", "Hz", approximate);
    const QString ratio = tr("voltage at the load over that of the source, at fo");
    addOutput(grid, 1, Caption(tr("v=V2/V1"), ratio), "ueAusgabe", "", ratio);
    addOutput(grid, 2, Caption(tr("20·log(v)"), ratio), "dBAusgabe", "dB", ratio);
    addOutput(grid, 3, Caption(tr("Loss"), loss), "dAusgabe", "dB", loss);
    addOutput(grid, 4, TotalQCaption(), "QBgesAusgabe", "", tr("Total effective element Q-factor"));
    return box;
}

QWidget* SharedPanel::buildSeries() {
    auto* box = new QGroupBox(tr("Standard Values"));
    auto* column = new QVBoxLayout(box);
    column->setContentsMargins(10, 4, 10, 4);
    column->setSpacing(0);
    static constexpr const char* kCaptions[] = {QT_TRANSLATE_NOOP("kelvro", "E&6 Series (20%)"),
                                                QT_TRANSLATE_NOOP("kelvro", "E1&2 Series (10%)"),
                                                QT_TRANSLATE_NOOP("kelvro", "E2&4 Series (5%)"),
                                                QT_TRANSLATE_NOOP("kelvro", "E4&8 Series (2%)"),
                                                QT_TRANSLATE_NOOP("kelvro", "E&96 Series (1%)")};
    static constexpr const char* kNames[] = {"E6Button", "E12Button", "E24Button", "E48Button",
                                             "E96Button"};
    for (int i = 0; i < 5; ++i) {
        auto* button = new QRadioButton(Shown(kCaptions[i]));
        button->setObjectName(QLatin1String(kNames[i]));
        SetHint(*button, tr("Series that component values are rounded to"));
        LetShrink(*button);
        const auto series = static_cast<Series>(i + 1);
        connect(button, &QRadioButton::clicked, this,
                [this, series] { emit seriesChosen(series); });
        series_.insert(i + 1, button);
        column->addWidget(button);
    }
    auto* exportBox = new QCheckBox(tr("E-&Series for Export"));
    exportBox->setObjectName(QStringLiteral("CheckBoxE"));
    SetHint(*exportBox, tr("Use selected E-series values for circuit export for all elements"));
    LetShrink(*exportBox);
    column->addWidget(exportBox);
    return box;
}

void SharedPanel::addInput(QGridLayout* grid, int row, const InputField& field) {
    const QString name = ToQString(field.object).remove(QStringLiteral("Eingabe"));
    // The button of R2 shares the hint of R1, that of the element Qs the one of Q.
    const QString spun = name == "R2" ? QStringLiteral("R1") : name.left(1) == "Q" ? "Q" : name;
    const InputRow made = AddInputRow(*grid, {row, kLabel, kUnit - kEdit}, field, spun);
    const BoundInput input(field, *made.edit);
    inputs_.push_back(input);
    edits_.insert(made.edit->objectName(), made.edit);
    const auto step = [this, input](int direction) { SpinButtonClick(input, direction); };
    connect(made.edit, &InputEdit::stepped, this, step);
    connect(made.spin, &ValueSpin::clicked, this, step);
}

OutputEdit* SharedPanel::addOutput(QGridLayout* grid, int row, QWidget* label,
                                   const QString& object, const QString& unit,
                                   const QString& hint) {
    auto* edit = new OutputEdit(object, false);
    SetHint(*edit, hint);
    edits_.insert(object, edit);
    grid->addWidget(label, row, kLabel);
    grid->addWidget(edit, row, kEdit);
    grid->addWidget(new QLabel(unit), row, kUnit);
    return edit;
}

Limits SharedPanel::typedLimits(const BoundInput& input) const {
    return input.field().object == kQInput ? PageOf(session_.design()).typedQ
                                           : input.field().limits;
}

void SharedPanel::EingabeChange(const BoundInput& input) {
    Design typed = session_.design();
    input.read(typed, typedLimits(input));
    input.judge(typed);
    session_.edit(StepName(input.field()),
                  [&](Design& design) { input.read(design, typedLimits(input)); },
                  {.joins = "type " + std::string(input.field().object)});
}

void SharedPanel::SpinButtonClick(const BoundInput& input, int direction) {
    const InputField& field = input.field();
    Design stepped = session_.design();
    StepInput(field, stepped, direction, session_.preferences().SweepFactor,
              field.object == kQInput ? kSpunQ : field.limits);
    input.write(stepped, IsQuality(field) ? kQFormat : field.format);
    session_.edit(StepName(field), [&](Design& design) { design = stepped; },
                  {.joins = "spin " + std::string(field.object)});
}

void SharedPanel::CheckBoxQClick(bool checked) {
    session_.edit(QT_TRANSLATE_NOOP("kelvro", "Q by d"),
                  [=](Design& design) { design.QByBandwidth = checked; });
}

void SharedPanel::writeInputs() {
    for (const BoundInput& input : inputs_) input.write(session_.design());
    checkBoxQ_->setChecked(session_.design().QByBandwidth);
}

void SharedPanel::refreshInputs() {
    for (const BoundInput& input : inputs_) {
        // Q may stand outside its typed limits, where the cycle or a spin button put it.
        const bool isQ = input.field().object == kQInput;
        input.refresh(session_.design(), isQ ? Limits{0, kSpunQ.high} : input.field().limits);
    }
    checkBoxQ_->setChecked(session_.design().QByBandwidth);
}

bool SharedPanel::setText(const QString& object, const QString& text) {
    QLineEdit* edit = edits_.value(object);
    if (!edit) return false;
    edit->setText(ShownValue(text.toStdString()));
    if (object == QLatin1String("BAusgabe")) AdjustBandwidthFont(*edit);
    return true;
}

void SharedPanel::showRefusal(const QString& reason) {
    QPalette colours = refusal_->palette();
    const bool dark = palette().color(QPalette::Window).lightnessF() < 0.5;
    colours.setColor(QPalette::WindowText, dark ? kRefusalColourOnDark : kRefusalColour);
    refusal_->setPalette(colours);
    refusal_->setText(reason);
    refusal_->setToolTip(reason);
}

/// On some pages Q follows from the design: there its field tells, and takes nothing.
void SharedPanel::lockQ(bool locked) {
    for (const BoundInput& input : inputs_) {
        if (input.field().object != kQInput) continue;
        input.edit().setLocked(locked);
        if (QWidget* spin = findChild<QWidget*>(QStringLiteral("SpinButtonQ")))
            spin->setEnabled(!locked);
    }
}

void SharedPanel::enterPage() {
    const Page& page = PageOf(session_.design());
    qPanel_->setVisible(page.qPanel);
    for (const BoundInput& input : inputs_) {
        if (page.entryQ && input.field().object == kQInput)
            input.write(session_.design(), kQFormat);
    }
    refreshInputs();
}

void SharedPanel::setSeries(Series series) {
    if (QRadioButton* button = series_.value(static_cast<int>(series))) button->setChecked(true);
}

}  // namespace kelvro
