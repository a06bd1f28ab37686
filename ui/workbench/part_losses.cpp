#include "ui/workbench/part_losses.h"

#include <algorithm>
#include <vector>

#include "network/network_text.h"
#include "network/tunable.h"
#include "ui/fields.h"
#include "ui/texts.h"
#include "ui/workbench/network_model.h"

namespace kelvro {

namespace {

/// Where the parts of a kind stand in a ladder.
std::vector<Tunable> PartsOfKind(const std::vector<LadderElement>& ladder, PartKind kind) {
    auto all = TunablesOf(ladder);
    std::erase_if(all, [&](const Tunable& at) {
        const Part* part = PartAt(ladder, at);
        return at.quantity != Tunable::Quantity::PartValue || !part || part->kind != kind;
    });
    return all;
}

}  // namespace

QString LossText(Part part) {
    part.name.clear();
    part.tolerance = 0;
    const QString whole = QString::fromStdString(ImpedanceText(part));
    const auto open = whole.indexOf('(');
    return open < 0 ? QString() : whole.mid(open + 1, whole.size() - open - 2);
}

Result<Part> WithLosses(const Part& part, const QString& text) {
    Part next = part;
    next.loss = {};
    if (text.trimmed().isEmpty()) return next;
    const std::string letter(1, LetterOf(part.kind));
    const auto read = ParseImpedance(letter + "=1(" + text.toStdString() + ')');
    const Part* lossy = read ? std::get_if<Part>(&read->is) : nullptr;
    if (!lossy) {
        const std::string message = read.message();
        const auto place = message.find(": ");  // behind the column, which the user did not see
        return Status::Failure("These are no losses: " +
                               (read ? "one part's only" : message.substr(place + 2)));
    }
    next.loss = lossy->loss;
    if (lossy->tolerance > 0) next.tolerance = lossy->tolerance;
    return next;
}

PartLossesEdit::PartLossesEdit(const char* object, PartKind kind, NetworkModel& model,
                               QWidget* parent)
    : QLineEdit(parent), kind_(kind), model_(model) {
    setObjectName(QLatin1String(object));
    SetHint(*this, tr("Losses of all of them: Q=200@27M, law=f, ESR=0.1, SRF=3G; empty for none. "
                      "Single ones by the right button on the ladder"));
    connect(this, &QLineEdit::textEdited, this, &PartLossesEdit::apply);
    connect(this, &QLineEdit::editingFinished, this, [this] {
        setModified(false);
        showModel();
        emit problem({});
    });
    connect(&model_, &NetworkModel::changed, this, &PartLossesEdit::showModel);
    showModel();
}

void PartLossesEdit::apply() {
    const auto readable = WithLosses(Part{kind_, 1}, text());
    emit problem(readable.ok() ? QString() : Shown(readable.message()));
    if (!readable) return;
    model_.edit(
        kind_ == PartKind::Inductor ? tr("Losses of coils") : tr("Losses of capacitors"),
        [this](Network& network) {
            for (const Tunable& at : PartsOfKind(network.ladder, kind_)) {
                const auto lossy = WithLosses(*PartAt(network.ladder, at), text());
                if (lossy) ReplacePart(network.ladder, at, *lossy);
            }
        },
        objectName());
}

void PartLossesEdit::showModel() {
    if (hasFocus() && isModified()) return;
    const auto& ladder = model_.network().ladder;
    QStringList texts;
    for (const Tunable& at : PartsOfKind(ladder, kind_)) texts << LossText(*PartAt(ladder, at));
    setEnabled(!texts.isEmpty());
    texts.removeDuplicates();
    setText(texts.size() == 1 ? texts.front() : QString());
    setPlaceholderText(texts.isEmpty()    ? tr("none in this network")
                       : texts.size() > 1 ? tr("they differ")
                                          : tr("lossless"));
}

}  // namespace kelvro
