#include "ui/page_panel.h"

#include <QCheckBox>
#include <QEvent>
#include <QLabel>
#include <QScrollBar>
#include <QTableWidget>
#include <algorithm>
#include <limits>

#include "core/number_text.h"
#include "core/series.h"
#include "design/transfer_text.h"
#include "ui/circuit_view.h"
#include "ui/form_row.h"
#include "ui/stage_view.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// What the user has typed into the field of a component.
double TypedComponent(const OutputEdit& edit) {
    return IsInfinite(edit.text()) ? std::numeric_limits<double>::infinity() : edit.value();
}

/// A table's value with its unit. Two leading spaces mark a rounded value, as in fields.
QString CellText(const std::string& text, const TableRow& row) {
    const QString value = ShownValue(text);
    const bool rounded = text.starts_with("  ") && !text.starts_with("   ");
    return (rounded ? value : value.trimmed()) + ' ' + ToQString(row.unit);
}

}  // namespace

/// The fraction bar does not follow the text's colour by itself.
void PagePanel::changeEvent(QEvent* event) {
    if (event->type() == QEvent::PaletteChange) showFormula();
    QWidget::changeEvent(event);
}

/// That of the circuit in the picture: of the duals where L and C are interchanged.
void PagePanel::showFormula() {
    if (!formula_) return;
    const QString formula = ToQString(TransferText(page_, page_.showsDuals(session_.design())));
    formula_->setText(FormulaMarkup(formula, palette().color(QPalette::WindowText)));
    formula_->setAccessibleName(formula);
}

void PagePanel::EingabeChange(const BoundInput& input) {
    Design typed = session_.design();
    input.read(typed);
    input.judge(typed);
    session_.edit(StepName(input.field(), page_.number),
                  [&](Design& design) { input.read(design); },
                  {.joins = "type " + std::string(input.field().object)});
}

void PagePanel::SpinButtonClick(const BoundInput& input, int direction) {
    Design stepped = session_.design();
    StepInput(input.field(), stepped, direction, session_.preferences().SweepFactor,
              input.field().limits);
    input.write(stepped);
    session_.edit(StepName(input.field(), page_.number), [&](Design& design) { design = stepped; },
                  {.joins = "spin " + std::string(input.field().object)});
}

void PagePanel::AusgabeChange(const FieldRow& row) {
    session_.type(row.part(page_), TypedComponent(*row.edit));
}

void PagePanel::AusgabeDblClick(const FieldRow& row) {
    session_.round(row.part(page_));
}

void PagePanel::runAction(const ActionField& action) {
    Design changed = session_.design();
    const std::string message = action.run(changed);
    if (!message.empty()) return session_.showMessage(Shown(message));
    session_.edit(std::string(action.caption), [&](Design& design) { design = changed; },
                  {.fields = Fields::Follow});
}

void PagePanel::CheckBoxClick(bool checked) {
    session_.edit("L <--> C", [=](Design& design) { design.LCSwapped = checked; });
}

void PagePanel::showResult(const CycleResult& result) {
    for (const FieldCaption& caption : result.captions)
        captions_.insert(ToQString(caption.object), caption);
    if (result.table && table_) showTable(*result.table);
    if (stage_) stage_->showStage(result);
    refused_ = result.message.has_value();
    refresh();
}

bool PagePanel::setText(const QString& object, const QString& text) {
    if (QLabel* note = notes_.value(object)) {
        note->setText(Shown(text.toStdString()));
        return true;
    }
    OutputEdit* edit = outputs_.value(object);
    if (!edit) return false;
    const OutputField* field = page_.output(object.toStdString());
    if (field->slot == Slot::None)
        edit->setText(ShownValue(text.toStdString()));  // components show the design: showParts
    return true;
}

void PagePanel::writeInputs() {
    for (const BoundInput& input : inputs_) input.write(session_.design());
}

void PagePanel::refresh() {
    const Design& state = session_.design();
    for (const BoundInput& input : inputs_) {
        if (!input.edit().hasFocus()) input.refresh(state);
        input.edit().setEnabled(input.field().hasEffect(state));
    }
    for (const SwitchRow& row : switches_) {
        row.box->setChecked(state.*row.field->flag);
        if (row.weight) row.weight->setValue(state.*row.field->weight);
    }
    if (swapBox_) swapBox_->setChecked(state.LCSwapped);
    showCaptions();
    showParts();
    showFormula();
    if (picture_) showPicture();
}

void PagePanel::showPicture() {
    const Design& state = session_.design();
    if (state.page != page_.number) return;
    std::vector<Network> networks = ShownNetworks(state);
    if (refused_) std::ranges::for_each(networks, [this](Network& network) { blank(network); });
    picture_->show(std::move(networks));
}

/// From a part of the picture to where its value stands: a field, a row of the table, or an input
/// of this page or of all.
void PagePanel::goToField(const QString& part) {
    const auto enter = [](QLineEdit& edit) {
        edit.setFocus(Qt::ShortcutFocusReason);
        edit.selectAll();
    };
    if (auto* shared = window()->findChild<QLineEdit*>(part + QStringLiteral("Eingabe")))
        return enter(*shared);
    const std::string name = part.toStdString();
    for (const BoundInput& input : inputs_)
        if (StepName(input.field(), page_.number) == name) return enter(input.edit());
    const bool duals = page_.showsDuals(session_.design());
    for (const Network& network : ShownNetworks(session_.design())) {
        const auto found = PartOf(page_, network, name, duals);
        if (!found) continue;
        if (found->input) {
            for (const BoundInput& input : inputs_)
                if (&input.field() == found->input) return enter(input.edit());
        }
        for (const FieldRow& row : rows_)
            if (row.field->slot == found->slot && !row.edit->isHidden()) return enter(*row.edit);
    }
    for (std::size_t i = 0; table_ && i < tableRows_.size(); ++i) {
        if (tableRows_[i].element != name) continue;
        table_->setFocus(Qt::ShortcutFocusReason);
        return table_->selectRow(static_cast<int>(i));
    }
}

/// The slots of a refused design hold another page's values.
void PagePanel::blank(Network& network) const {
    const std::vector<ListedPart> listed = ListOf(network);
    const std::vector<double*> values = ValuesOf(network);
    const bool duals = page_.showsDuals(session_.design());
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const auto part = PartOf(page_, network, listed[i].name, duals);
        if (part && part->slot != Slot::None) *values[i] = std::numeric_limits<double>::quiet_NaN();
    }
}

void PagePanel::showCaptions() {
    const Design& state = session_.design();
    const bool duals = page_.showsDuals(state);
    for (const FieldRow& row : rows_) {
        const OutputField& field = *row.field;
        const bool shown = !field.shown || field.shown(state);
        row.label->setText(duals ? Shown(DualLabel(field.label)) : Shown(field.label));
        row.unit->setText(ToQString(duals ? DualUnit(field.unit) : field.unit));
        if (const auto changed = captions_.find(row.edit->objectName());
            changed != captions_.end()) {
            row.label->setText(Shown(changed->caption));
            row.unit->setText(QString::fromStdString(changed->unit));
        }
        row.label->setVisible(shown);
        row.edit->setVisible(shown);
        row.unit->setVisible(shown);
    }
}

void PagePanel::showTable(const std::vector<TableRow>& rows) {
    tableRows_ = rows;
    table_->setRowCount(static_cast<int>(rows.size()));
    for (int i = 0; i < table_->rowCount(); ++i) {
        const TableRow& row = rows[static_cast<std::size_t>(i)];
        auto* value = new QTableWidgetItem(CellText(row.text, row));
        value->setTextAlignment(Qt::AlignRight | Qt::AlignVCenter);
        table_->setItem(i, 0, new QTableWidgetItem(QString::fromStdString(row.element)));
        table_->setItem(i, 1, value);
    }
}

void PagePanel::showParts() {
    const Design& design = session_.design();
    for (const FieldRow& row : rows_) {
        if (row.field->slot == Slot::None) continue;
        row.edit->setStale(refused_);
        const ShownPart* shown = design.shown.find(row.part(page_).key());
        // What the user has typed stays in their own form.
        const bool typed = shown && shown->form == ShownPart::Form::Typed;
        if (typed && TypedComponent(*row.edit) == shown->value) continue;
        const QString text = ShownValue(row.part(page_).shownText(design));
        if (text != row.edit->text()) row.edit->setText(text);
    }
    for (std::size_t i = 0; i < tableRows_.size(); ++i) {
        const TableRow& row = tableRows_[i];
        const std::string text = PartRef{&page_, row.slot}.shownText(design);
        if (row.slot == Slot::None || text.empty()) continue;
        table_->item(static_cast<int>(i), 1)->setText(CellText(text, row));
    }
}

void PagePanel::roundRowToSeries(int row) {
    if (const auto part = partOfRow(row)) session_.round(*part);
}

std::optional<PartRef> PagePanel::partOfRow(int row) const {
    if (row < 0) return std::nullopt;
    const TableRow& element = tableRows_[static_cast<std::size_t>(row)];
    if (element.slot == Slot::None) return std::nullopt;  // an input
    return PartRef{&page_, element.slot};
}

QString FormulaMarkup(const QString& formula, const QColor& barColour) {
    QString text = formula.toHtmlEscaped();
    text.replace('[', "<sub>").replace(']', "</sub>");
    const qsizetype equals = text.indexOf(" = ");
    const qsizetype bar = text.indexOf(" / (");
    if (equals < 0 || bar < equals || !text.endsWith(')')) return text;
    const QString numerator = text.mid(equals + 3, bar - equals - 3);
    const QString denominator = text.mid(bar + 4).chopped(1);
    return QStringLiteral(
               "<table cellspacing='0' cellpadding='2'><tr>"
               "<td rowspan='2' style='vertical-align:middle'>%1 =&nbsp;</td>"
               "<td align='center' style='border-bottom:1px solid %4'>%2</td></tr>"
               "<tr><td align='center'>%3</td></tr></table>")
        .arg(text.left(equals), numerator, denominator, barColour.name());
}

}  // namespace kelvro
