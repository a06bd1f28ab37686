#include "design/cycle.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/pages.h"
#include "design/part_ref.h"

namespace kelvro {

namespace {

constexpr double kSmallestQ = 0.001;
constexpr std::string_view kDoesNotApply = "     -";

/// Nothing passed is a loss without end, not one of so many digits.
double Decibels(double ratio) {
    if (ratio == 0) return -std::numeric_limits<double>::infinity();
    return static_cast<double>(20 * DecimalLog(ratio));
}

std::string DecibelText(const TextFormat& format, double decibels) {
    if (!std::isinf(decibels)) return format.text(decibels);
    return (decibels < 0 ? "-" : "") + std::string(kInfinite);
}

std::string BandwidthText(double B) {
    return B < kInfiniteBandwidth ? kEngineering.text(B) : std::string(kInfinite);
}

void PutSharedValues(const Page& page, CycleResult& result) {
    const Design& design = result.design;
    result.vDb = Decibels(result.v);
    const long double reference =
        std::sqrt(static_cast<long double>(design.R2) / (page.sourceCount * design.R1));
    result.lossDb = 0 - Decibels(static_cast<double>(result.v / reference));
}

void PutSharedTexts(const Page& page, CycleResult& result) {
    const auto put = [&](std::string_view object, std::string text) {
        result.texts.push_back({object, std::move(text)});
    };
    const bool all = page.shared == SharedOutputs::All;
    const bool bandwidth = page.shared != SharedOutputs::None;
    const std::string none(kDoesNotApply);
    put("BAusgabe", bandwidth ? BandwidthText(result.bandwidth) : none);
    put("ueAusgabe", all ? Fixed(9, 3).text(result.v) : none);
    put("dBAusgabe", all ? DecibelText(Fixed(7, 2), result.vDb) : none);
    put("dAusgabe", all ? DecibelText(Fixed(7, 3), result.lossDb) : none);
    put("QBgesAusgabe", all ? Fixed(7, 2).text(result.QBges) : none);
}

/// Neither response nor optimizer.
class IdleServices : public CycleServices {
  public:
    double responseMagnitude(const Design& design, double) override { return MatchedRatio(design); }
    Slots optimize(const Design& design) override { return design.components; }
};

template <typename PageStep>
CycleResult RunCycle(const Design& design, bool storeComponents, CycleServices& services,
                     PageStep&& pageStep) {
    const Page& page = PageOf(design);
    constexpr std::size_t usualTexts = 16;
    CycleResult result;
    result.design = design;
    result.texts.reserve(usualTexts);
    result.QBges = static_cast<double>(
        2 / (1 / static_cast<long double>(design.QBC) + 1 / static_cast<long double>(design.QB)));
    result.v = MatchedRatio(design);
    DesignPass pass(page, storeComponents, services, result);
    pageStep(pass);
    PutSharedValues(page, result);
    PutSharedTexts(page, result);
    return result;
}

}  // namespace

double MatchedRatio(const Design& design) {
    return static_cast<double>(std::sqrt(static_cast<long double>(design.R2) / design.R1));
}

double Omega(const Design& state) {
    return kTwoPi * state.fo;
}

double EffectiveQ(const Design& state) {
    return std::max(state.Q, kSmallestQ);
}

const std::string* CycleResult::text(std::string_view object) const {
    // The last write counts: a page may rewrite what it showed before.
    const auto at = std::find_if(texts.rbegin(), texts.rend(),
                                 [&](const FieldText& field) { return field.object == object; });
    return at == texts.rend() ? nullptr : &at->text;
}

CycleResult Calculate(const Design& design, bool storeComponents, CycleServices& services) {
    return RunCycle(design, storeComponents, services, [](DesignPass& pass) {
        if (pass.page.design) pass.page.design(pass);
    });
}

CycleResult ShowComponents(const Design& design, CycleServices& services) {
    IdleServices idle;
    const double bandwidth = Calculate(design, true, idle).bandwidth;
    CycleResult result = RunCycle(design, false, services, [=](DesignPass& pass) {
        pass.evaluate();
        pass.showComponents();
        pass.setBandwidth(bandwidth);
    });
    for (const PartRef& part : PartsOf(design)) {
        const ShownPart* shown = design.shown.find(part.key());
        if (shown && shown->form == ShownPart::Form::Typed) result.design.shown.set(*shown);
    }
    return result;
}

DesignPass::DesignPass(const Page& designPage, bool store, CycleServices& services,
                       CycleResult& result)
    : state(result.design),
      page(designPage),
      omega(Omega(state)),
      Qe(EffectiveQ(state)),
      storeComponents(store),
      services_(services),
      result_(result) {}

void DesignPass::refuse(std::string message) {
    result_.message = std::move(message);
}

void DesignPass::optimize() {
    state.components = services_.optimize(state);
}

void DesignPass::evaluate() {
    result_.v = services_.responseMagnitude(state, state.fo);
}

void DesignPass::showComponents() {
    state.shown.clear(page.number);
    for (const OutputField& field : page.outputs) {
        if (field.slot == Slot::None) continue;
        const PartRef part{&page, field.slot, &field};
        const double value = part.built(state);
        state.shown.set({part.key(), value});
        showOrInfinite(field.object, value);
    }
    if (page.table.empty()) return;
    result_.table = TableRows(state, page);
    for (const TableRow& row : *result_.table) {
        if (row.slot != Slot::None) state.shown.set({{page.number, row.slot}, row.value});
    }
}

void DesignPass::show(std::string_view object, double value) {
    const OutputField* field = page.output(object);
    showText(object, (field ? field->format : kEngineering).text(value));
}

void DesignPass::showOrInfinite(std::string_view object, double value) {
    if (std::isinf(value)) {
        showText(object, std::string(kInfinite));
    } else {
        show(object, value);
    }
}

void DesignPass::showText(std::string_view object, std::string text) {
    result_.texts.push_back({object, std::move(text)});
}

void DesignPass::showCaption(std::string_view object, std::string caption, std::string unit) {
    result_.captions.push_back({object, std::move(caption), std::move(unit)});
}

void DesignPass::showQ(double Q) {
    state.Q = Q;
    showText("QEingabe", Fixed(8, 2).text(Q));
}

void DesignPass::setBandwidth(double B) {
    result_.bandwidth = B;
}

void DesignPass::setOperation(ClassEOperation operation) {
    result_.operation = std::move(operation);
}

void DesignPass::finish() {
    optimize();
    evaluate();
    showComponents();
}

std::vector<TableRow> TableRows(const Design& state, const Page& page) {
    std::vector<TableRow> rows;
    if (page.table.empty()) return rows;
    for (const Network& network : page.builtNetworks(state)) {
        for (const ListedPart& listed : ListOf(network)) {
            const auto part = PartOf(page, network, listed.name, page.showsDuals(state));
            rows.push_back({listed.name, kEngineering.text(listed.value), listed.value,
                            listed.unit(), part ? part->slot : Slot::None});
        }
    }
    return rows;
}

}  // namespace kelvro
