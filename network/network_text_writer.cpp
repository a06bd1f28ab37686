// Texts of impedances and ladder elements, as network_text.h tells the notation.

#include <algorithm>
#include <cctype>

#include "core/exact_number.h"
#include "core/number_text.h"
#include "network/interpolation.h"
#include "network/network_text.h"

namespace kelvro {

namespace {

/// Groups of a single member are written as that member.
const Impedance& Bare(const Impedance& impedance) {
    const Impedance* bare = &impedance;
    for (auto* group = std::get_if<Impedance::Group>(&bare->is);
         group && group->members.size() == 1; group = std::get_if<Impedance::Group>(&bare->is)) {
        bare = &group->members[0];
    }
    return *bare;
}

bool IsPlainWord(std::string_view text) {
    const auto letter = [](char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); };
    return !text.empty() && letter(text[0]) && std::ranges::all_of(text, [&](char c) {
        return letter(c) || (c >= '0' && c <= '9') || c == '_' || c == '\'';
    });
}

std::string Quoted(std::string_view text) {
    std::string quoted = "\"";
    for (const char c : text) {
        quoted += c;
        if (c == '"') quoted += c;
    }
    return quoted + '"';
}

std::string WordText(std::string_view text) {
    return IsPlainWord(text) ? std::string(text) : Quoted(text);
}

/// File names go without quotes where the reader knows them by their ending. That values between
/// samples are found linearly is not said.
std::string FileText(const std::shared_ptr<const PortData>& data) {
    const std::string name = data ? data->name : std::string();
    const bool plain = std::ranges::all_of(name, [](char c) {
        return std::isalnum(static_cast<unsigned char>(c)) != 0 || c == '.' || c == '_' || c == '-';
    });
    const bool known = name.ends_with(".s1p") || name.ends_with(".s2p");
    const std::string file = plain && known ? name : Quoted(name);
    if (!data || data->interpolation == Interpolation::Linear) return file;
    const auto form = static_cast<std::size_t>(data->interpolation);
    return file + '(' + std::string(kInterpolationWords.at(form)) + ')';
}

class NetworkPrinter {
  public:
    explicit NetworkPrinter(int digits) : digits_(digits) {}

    std::string impedance(const Impedance& any) const {
        return std::visit([this](const auto& kind) { return text(kind); }, Bare(any).is);
    }

    std::string operator()(const Arm& arm) const {
        const char* kind = arm.atSupply                 ? "supply: "
                           : arm.place == Place::Series ? "series: "
                                                        : "shunt: ";
        return kind + impedance(arm.impedance);
    }

    std::string operator()(const Line& line) const {
        constexpr const char* kinds[] = {"line: ", "open: ", "short: "};
        std::string text = kinds[static_cast<std::size_t>(line.form)];
        text += "Z=" + number(line.Z0);
        const LineLength& length = line.length;
        if (length.atHertz > 0) {
            text += ", deg=" + number(length.degrees) + '@' + number(length.atHertz);
        } else {
            text += ", len=" + number(length.metres);
        }
        if (length.er != 1) text += ", er=" + number(length.er);
        if (line.attenuationAtHertz > 0) {
            text += ", att=" + number(line.attenuation) + '@' + number(line.attenuationAtHertz);
        }
        if (line.tangent != 0) text += ", tan=" + number(line.tangent);
        if (line.tolerance != 0) text += ", tol=" + FormatShortest(line.tolerance);
        if (!line.name.empty()) text += ", name=" + WordText(line.name);
        return text;
    }

    std::string operator()(const Transformer& transformer) const {
        return "transformer: n=" + number(transformer.n);
    }

    std::string operator()(const CoupledCoils& coils) const {
        return "coupled: L1=" + valueAndLosses(coils.first, true) +
               ", L2=" + valueAndLosses(coils.second, true) + ", k=" + number(coils.k);
    }

    std::string operator()(const MeasuredTwoPort& two) const {
        return "part: " + FileText(two.data);
    }

    std::string operator()(const Switch& gate) const { return "switch: " + WordText(gate.name); }

    std::string operator()(const Branch& branch) const {
        std::string text = "branch: {";
        for (const LadderElement& inner : branch.ladder) text += element(inner) + "; ";
        return text + "load: " + impedance(branch.load) + '}';
    }

    std::string element(const LadderElement& element) const {
        std::string text = std::visit(*this, element.is);
        if (!element.node.empty()) text += " -> " + WordText(element.node);
        return text;
    }

  private:
    std::string number(double value) const { return FormatPrefixed(value, digits_); }

    std::string complex(std::complex<double> z) const {
        if (z.imag() == 0) return number(z.real());
        const std::string imaginary = 'j' + number(std::abs(z.imag()));
        const bool negative = z.imag() < 0;
        if (z.real() == 0) return negative ? '-' + imaginary : imaginary;
        return number(z.real()) + (negative ? '-' : '+') + imaginary;
    }

    std::string part(const Part& part) const {
        const char letter = LetterOf(part.kind);
        const bool named = part.name.size() > 1 && part.name[0] == letter && IsPlainWord(part.name);
        return (named ? part.name : std::string(1, letter)) + '=' + valueAndLosses(part, !named);
    }

    std::string valueAndLosses(const Part& part, bool withName) const {
        const PartLoss& loss = part.loss;
        std::vector<std::string> list;
        if (loss.law != PartLoss::Law::Lossless) {
            list.push_back("Q=" + number(loss.Q) + (loss.f > 0 ? '@' + number(loss.f) : ""));
            if (const char* law = LawText(loss)) list.push_back(std::string("law=") + law);
        }
        if (loss.ESR != 0) list.push_back("ESR=" + number(loss.ESR));
        if (loss.SRF != 0) list.push_back("SRF=" + number(loss.SRF));
        if (part.tolerance != 0) list.push_back("tol=" + FormatShortest(part.tolerance));
        if (withName && !part.name.empty()) list.push_back("name=" + WordText(part.name));
        std::string text = number(part.value);
        for (std::size_t i = 0; i < list.size(); ++i) text += (i == 0 ? "(" : ",") + list[i];
        return list.empty() ? text : text + ')';
    }

    /// The law where it is not the one that follows from a Q with or without frequency.
    static const char* LawText(const PartLoss& loss) {
        switch (loss.law) {
            case PartLoss::Law::ConstantQ:
                return loss.f > 0 ? "constant" : nullptr;
            case PartLoss::Law::ProportionalQ:
                return "f";
            case PartLoss::Law::Page:
                return "page";
            case PartLoss::Law::PageMirrored:
                return "mirrored";
            default:
                return nullptr;
        }
    }

    std::string text(const Impedance::Constant& constant) const { return complex(constant.ohm); }
    std::string text(const Part& single) const { return part(single); }

    std::string text(const Impedance::Measured& measured) const {
        std::string text = FileText(measured.data);
        if (measured.port > 0) text += ':' + std::to_string(measured.port);
        return measured.conjugate ? text + '*' : text;
    }

    /// Groups within groups stand in parentheses, also where the reader could do without, and so
    /// does a constant next to another: "12 + j45" would be a single one.
    std::string text(const Impedance::Group& group) const {
        if (group.members.empty()) return group.parallel ? "inf" : "0";
        std::string text;
        const Impedance* before = nullptr;
        for (std::size_t i = 0; i < group.members.size(); ++i) {
            const Impedance& member = Bare(group.members[i]);
            const Impedance* after =
                i + 1 < group.members.size() ? &Bare(group.members[i + 1]) : nullptr;
            const bool apart = isGroup(member) || (!group.parallel && isConstant(&member) &&
                                                   (isConstant(before) || isConstant(after)));
            if (i > 0) text += group.parallel ? " | " : " + ";
            text += apart ? '(' + impedance(member) + ')' : impedance(member);
            before = &member;
        }
        return text;
    }

    static bool isConstant(const Impedance* impedance) {
        return impedance && std::holds_alternative<Impedance::Constant>(impedance->is);
    }
    static bool isGroup(const Impedance& impedance) {
        const auto* group = std::get_if<Impedance::Group>(&impedance.is);
        return group && !group->members.empty();
    }

    int digits_;
};

}  // namespace

std::string ImpedanceText(const Impedance& impedance, int digits) {
    return NetworkPrinter(digits).impedance(impedance);
}

std::string ElementText(const LadderElement& element, int digits) {
    return NetworkPrinter(digits).element(element);
}

}  // namespace kelvro
