#include "io/spice_deck.h"

#include <algorithm>

#include "core/number_text.h"

namespace kelvro {

namespace {

/// One line of plain ASCII; names of files may hold anything.
std::string Plain(std::string_view text) {
    std::string plain(text);
    std::ranges::replace_if(
        plain,
        [](char c) {
            const auto byte = static_cast<unsigned char>(c);
            return byte >= 0x7F || byte < 0x20;
        },
        '?');
    return plain;
}

}  // namespace

SpiceDeck::SpiceDeck(std::string_view title) {
    text_ = "Kelvro: " + Plain(title) + '\n';
}

SpiceDeck::SpiceDeck(const ExportDesign& design) : SpiceDeck(design.title()) {
    if (design.page().showsDuals(design.state)) comment("Inductors and capacitors interchanged");
    if (design.standardValues) comment("Standard values");
}

void SpiceDeck::comment(std::string_view text) {
    text_ += "* " + Plain(text) + '\n';
}

void SpiceDeck::elementQ(double tangent) {
    if (tangent == 0) return;
    comment("Q of inductors and capacitors at fo: " + FormatFixed(0, 1, 1 / tangent));
}

void SpiceDeck::line(std::string_view text) {
    text_ += std::string(text) + '\n';
}

void SpiceDeck::part(const std::string& name, const std::string& from, const std::string& to,
                     double value) {
    const std::string nodes = ' ' + from + ' ' + to + ' ';
    if (value == 0) return line('V' + name + nodes + "DC 0");
    line(name + nodes + FormatShortest(value));
}

void SpiceDeck::expression(const std::string& name, const std::string& from, const std::string& to,
                           const std::string& ohms) {
    line(name + ' ' + from + ' ' + to + " R='" + ohms + '\'');
}

std::string SpiceDeck::text() const {
    return text_ + ".end\n";
}

}  // namespace kelvro
