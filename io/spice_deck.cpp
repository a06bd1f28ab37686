#include "io/spice_deck.h"

#include "core/number_text.h"

namespace kelvro {

SpiceDeck::SpiceDeck(const ExportDesign& design) {
    text_ = "Kelvro: " + design.title() + '\n';
    if (design.page().showsDuals(design.state)) comment("Inductors and capacitors interchanged");
    if (design.standardValues) comment("Standard values");
}

void SpiceDeck::comment(std::string_view text) {
    text_ += "* " + std::string(text) + '\n';
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
