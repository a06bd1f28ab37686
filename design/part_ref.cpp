#include "design/part_ref.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "core/number_text.h"
#include "design/cycle.h"
#include "design/pages.h"

namespace kelvro {

namespace {

/// 1/(ω²·value) where the page interchanges L and C.
double DualWhereShown(const Page& page, const Design& design, double value) {
    if (!page.showsDuals(design)) return value;
    const double omega = Omega(design);
    return 1 / (omega * omega * value);
}

std::string Text(const ShownPart& part, const TextFormat& format) {
    if (part.form == ShownPart::Form::Standard) {
        return "  " + SeriesNearest(part.series, part.value);
    }
    return std::isinf(part.value) ? std::string(kInfinite) : format.text(part.value);
}

double ValueOf(const ShownPart& part, const TextFormat& format) {
    return part.form == ShownPart::Form::Typed ? part.value : ParseComponent(Text(part, format));
}

}  // namespace

std::string PartRef::name(const Design& design) const {
    if (field) return std::string(field->name);
    for (const TableRow& row : TableRows(design, *page)) {
        if (row.slot == slot) return row.element;
    }
    return {};
}

double PartRef::read(const Design& design) const {
    if (input) return input->read(design);
    return field ? field->component(design) : design.components[slot];
}

void PartRef::write(Design& design, double value) const {
    if (input) {
        input->store(design, value);
    } else if (field) {
        field->setComponent(design, value);
    } else {
        design.components[slot] = value;
    }
}

double PartRef::built(const Design& design) const {
    return DualWhereShown(*page, design, read(design));
}

void PartRef::build(Design& design, double value) const {
    write(design, DualWhereShown(*page, design, value));
}

std::string PartRef::shownText(const Design& design) const {
    const ShownPart* part = design.shown.find(key());
    if (part) return Text(*part, field ? field->format : kEngineering);
    return field ? std::string(field->initial) : std::string();
}

double PartRef::shown(const Design& design) const {
    const ShownPart* part = design.shown.find(key());
    if (part) return ValueOf(*part, field ? field->format : kEngineering);
    return ParseComponent(shownText(design));
}

void PartRef::round(Design& design, Series series) const {
    const double value = shown(design);
    if (!(value > 0) || std::isinf(value)) return;
    const double nearest = ParseValue(SeriesNearest(series, value));
    design.shown.set({key(), nearest, ShownPart::Form::Standard, series});
}

void PartRef::type(Design& design, double value) const {
    write(design, value);
    // What was typed before stands in its field's format from now on.
    for (const PartRef& part : PartsOf(design)) {
        const ShownPart* shown = design.shown.find(part.key());
        if (shown && shown->form == ShownPart::Form::Typed) {
            design.shown.set({part.key(), shown->value});
        }
    }
    design.shown.set({key(), value, ShownPart::Form::Typed});
}

void PartRef::take(Design& design) const {
    if (field && field->takenFrom) {
        const Page& other = PageOf(field->takenFrom->page);
        const auto source =
            std::ranges::find(other.outputs, field->takenFrom->slot, &OutputField::slot);
        write(design, PartRef{&other, source->slot, &*source}.shown(design));
    } else if (field || design.shown.find(key())) {
        write(design, shown(design));
    }
}

std::vector<Network> ShownNetworks(const Design& design) {
    const Page& page = PageOf(design);
    const bool duals = page.showsDuals(design);
    std::vector<Network> networks = page.drawnNetworks(design);
    for (Network& network : networks) {
        const std::vector<double*> values = ValuesOf(network);
        const std::vector<ListedPart> listed = ListOf(network);
        for (std::size_t i = 0; i < listed.size(); ++i) {
            const auto part = PartOf(page, network, listed[i].name, duals);
            const ShownPart* shown = part ? design.shown.find(part->key()) : nullptr;
            if (!shown) continue;
            if (shown->form == ShownPart::Form::Standard || duals) *values[i] = shown->value;
        }
    }
    return networks;
}

std::vector<PartRef> PartsOf(const Design& design) {
    const Page& page = PageOf(design);
    std::vector<PartRef> parts;
    for (const OutputField& field : page.outputs) {
        if (field.slot != Slot::None && field.isShown(design))
            parts.push_back({&page, field.slot, &field});
    }
    for (const TableRow& row : TableRows(design, page)) {
        if (row.slot != Slot::None) parts.push_back({&page, row.slot});
    }
    return parts;
}

std::optional<PartRef> PartOf(const Page& page, const Network& network, std::string_view name,
                              bool dual) {
    const std::string kept = dual ? DualName(name) : std::string(name);
    const auto row = std::ranges::find_if(page.parts, [&](const PartRow& candidate) {
        return candidate.name == kept &&
               (candidate.network.empty() || candidate.network == network.caption);
    });
    if (row != page.parts.end()) {
        return PartRef{&page, row->slot, page.output(row->field), page.input(row->field)};
    }
    const auto field = std::ranges::find_if(page.outputs, [&](const OutputField& candidate) {
        return candidate.slot != Slot::None && candidate.name == kept;
    });
    if (field == page.outputs.end()) return std::nullopt;
    return PartRef{&page, field->slot, &*field};
}

void Take(Design& design) {
    for (const PartRef& part : PartsOf(design)) part.take(design);
}

double ParseComponent(std::string_view text) {
    return text == kInfinite ? std::numeric_limits<double>::infinity() : ParseValue(text);
}

}  // namespace kelvro
