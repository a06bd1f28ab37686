#include "ui/design_session.h"

#include <QApplication>
#include <QMessageBox>
#include <utility>

#include "design/pages.h"
#include "ui/refusal_box.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

/// Do two designs differ in more than the page that stands before the user and its components?
bool InputsDiffer(const Design& x, Design y) {
    y.page = x.page;
    y.components = x.components;
    y.shown = x.shown;
    return !(x == y);
}

bool OnlyShownDiffers(const Design& x, Design y) {
    if (x.shown == y.shown) return false;
    y.shown = x.shown;
    return x == y;
}

}  // namespace

DesignSession::DesignSession(QObject* parent)
    : DesignHost(parent), messageSink_(ShowMessageBox), refusalSink_(ShowRefusalBox) {
    optimizer_.reports = [this](const PageOptimization& optimization) {
        return KeepReports(optimization, optimizerFiles_);
    };
}

void DesignSession::edit(const std::string& name, const Change& change,
                         const EditOptions& options) {
    const Design before = design();
    Design changed = before;
    change(changed);
    State next = follow(std::move(changed), options.followup);
    history_.edit(next, name, options.joins);
    history_.amend(std::move(next));  // an equal design may have another result: a message again
    announce(before, options);
}

void DesignSession::type(const PartRef& part, double value) {
    const std::string name = part.name(design());
    // Optimizing now would move the value that is being typed.
    edit(name, [&](Design& design) { part.type(design, value); },
         {.followup = Followup::Evaluation, .joins = "type " + name});
}

void DesignSession::round(const PartRef& part, Rounding rounding) {
    edit("Round " + part.name(design()),
         [&](Design& design) { RoundPart(part, design, preferences().ESeries, rounding); },
         {.followup = Followup::Nothing});
}

void DesignSession::unround(const PartRef& part) {
    edit("Undo rounding of " + part.name(design()),
         [&](Design& design) { UnroundPart(part, design); }, {.followup = Followup::Nothing});
}

void DesignSession::roundAll() {
    edit(QT_TRANSLATE_NOOP("kelvro", "Round All"),
         [&](Design& design) {
             for (const PartRef& part : PartsOf(design))
                 if (!part.field || part.field->hasStandardValues())
                     part.round(design, preferences().ESeries);
         },
         {.followup = Followup::Nothing});
}

void DesignSession::recalculate(bool storeComponents) {
    edit(QT_TRANSLATE_NOOP("kelvro", "Calculate"), [](Design&) {},
         {.followup = storeComponents ? Followup::Calculation : Followup::KeptComponents});
}

void DesignSession::goToPage(int number) {
    const Design before = design();
    Design changed = before;
    EnterPage(changed, number);
    State next = follow(std::move(changed), Followup::Calculation);
    if (InputsDiffer(before, next.design)) {
        history_.edit(std::move(next), std::string(PageOf(number).caption));
    } else {
        history_.pass(std::move(next));
    }
    emit pageEntered();
    announce(design(), {});
}

void DesignSession::open(const Design& design, Followup followup) {
    history_.reset(follow(design, followup));
    announceAll();
    if (result().message) tellRefusal();
}

void DesignSession::switchResistances() {
    edit(QT_TRANSLATE_NOOP("kelvro", "Switch"),
         [](Design& design) { std::swap(design.R1, design.R2); }, {.fields = Fields::Follow});
}

void DesignSession::undo() {
    if (history_.undo()) announceAll();
}

void DesignSession::redo() {
    if (history_.redo()) announceAll();
}

DesignSession::State DesignSession::follow(Design changed, Followup followup) {
    if (followup == Followup::Nothing) return {std::move(changed), history_.present().result};
    auto result = std::make_shared<CycleResult>(resultOf(changed, followup));
    const bool fieldsStay = followup == Followup::Results || followup == Followup::Restoration;
    if (fieldsStay) result->design.shown = std::move(changed.shown);
    return {result->design, std::move(result)};
}

CycleResult DesignSession::resultOf(const Design& changed, Followup followup) {
    if (followup == Followup::Restoration) {
        OptimizerServices quick;
        quick.settings.disabled = true;
        CycleResult result = Calculate(changed, false, quick);
        result.design.Q = changed.Q;
        return result;
    }
    if (followup == Followup::Calculation || followup == Followup::KeptComponents)
        return Calculate(changed, followup == Followup::Calculation, optimizer_);
    return ShowComponents(changed, optimizer_);
}

void DesignSession::announce(const Design& before, const EditOptions& options) {
    if (options.fields == Fields::Written) emit fieldsOutdated();
    if (options.fields == Fields::Follow) emit inputsChanged();
    if (design().page != before.page || options.fields == Fields::Written) emit pageEntered();
    const bool outputs = options.followup != Followup::Nothing;
    if (outputs) emit calculated(result());
    if (!outputs) emit shownChanged();
    if (outputs || !OnlyShownDiffers(before, design())) emit designChanged();
    emit historyChanged();
    // Last, because a modal box runs its own event loop: every window is up to date behind it.
    if (outputs && result().message) tellRefusal();
}

void DesignSession::announceAll() {
    emit fieldsOutdated();
    emit pageEntered();
    emit calculated(result());
    emit designChanged();
    emit historyChanged();
}

void DesignSession::showMessage(const QString& text) {
    messageSink_(text);
}

void DesignSession::setMessageSink(MessageSink sink) {
    refusalSink_ = [sink](const QString& reason, bool) {
        sink(reason);
        return false;
    };
    messageSink_ = std::move(sink);
}

void DesignSession::tellRefusal() {
    if (refusalSink_(Shown(*result().message), switchCures())) switchResistances();
}

bool DesignSession::switchCures() const {
    OptimizerServices quick;
    quick.settings.disabled = true;
    Design switched = design();
    std::swap(switched.R1, switched.R2);
    return !Calculate(switched, true, quick).message;
}

void ShowMessageBox(const QString& text) {
    QMessageBox box(QMessageBox::Information, Shown(kApplicationTitle), text, QMessageBox::Ok,
                    QApplication::activeWindow());
    box.setTextFormat(Qt::PlainText);  // "R2<R1!" is no markup
    box.exec();
}

}  // namespace kelvro
