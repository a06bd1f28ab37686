#include "ui/tools/calculator_engine.h"

#include <muParser.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

#include "analysis/tools/physics.h"

namespace kelvro {

namespace {

constexpr std::size_t kLongestExpression = 1000;

// ---------------------------------------------------------------- what expressions may use

template <int exponent>
double Prefix(double x) {
    // Division by a power of ten is exact where multiplication by its inverse is not: 4.7u
    // = 4.7/1e6.
    constexpr double power = [] {
        double p = 1;
        for (int i = 0; i < (exponent < 0 ? -exponent : exponent); ++i) p *= 10;
        return p;
    }();
    return exponent < 0 ? x / power : x * power;
}

double Mil(double x) {
    return x * 25.4 / 1e6;
}

double Parallel(const double* x, int count) {
    double reciprocals = 0;
    for (int i = 0; i < count; ++i) reciprocals += 1 / x[i];
    return 1 / reciprocals;
}

double Decibels(double ratio) {
    return 20 * std::log10(ratio);
}

double FromDecibels(double decibels) {
    return std::pow(10, decibels / 20);
}

double DecimalLogarithm(double x) {
    return std::log10(x);
}

void DefineLanguage(mu::Parser& parser) {
    parser.SetDecSep('.');
    parser.SetArgSep(';');
    struct Letter {
        const char* names;
        double (*factor)(double);
    };
    for (const auto& [names, factor] :
         {Letter{"aA", Prefix<-18>}, Letter{"fF", Prefix<-15>}, Letter{"pP", Prefix<-12>},
          Letter{"nN", Prefix<-9>}, Letter{"uU", Prefix<-6>}, Letter{"m", Prefix<-3>},
          Letter{"cC", Prefix<-2>}, Letter{"dD", Prefix<-1>}, Letter{"kK", Prefix<3>},
          Letter{"M", Prefix<6>}, Letter{"gG", Prefix<9>}, Letter{"tT", Prefix<12>}}) {
        for (const char* name = names; *name; ++name)
            parser.DefinePostfixOprt(std::string(1, *name), factor);
    }
    parser.DefinePostfixOprt("mil", Mil);
    parser.DefineConst("pi", std::numbers::pi);
    parser.DefineConst("e", std::numbers::e);
    parser.DefineConst("c0", kSpeedOfLight);
    parser.DefineConst("mu0", kVacuumPermeability);
    parser.DefineConst("eps0", kVacuumPermittivity);
    parser.DefineFun("log", DecimalLogarithm);
    parser.DefineFun("par", Parallel);
    parser.DefineFun("dB", Decibels);
    parser.DefineFun("lin", FromDecibels);
}

// ---------------------------------------------------------------- preparing the text

/// Both signs for micro, U+00B5 and U+03BC, read as u.
std::string WithoutGreek(std::string_view text) {
    std::string result;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const std::string_view sign = text.substr(i, 2);
        const bool micro = sign == "\u00b5" || sign == "\u03bc";
        result += micro ? 'u' : text[i];
        if (micro) ++i;
    }
    return result;
}

bool IsNameCharacter(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '_';
}

/// Whether each position stands between the parentheses of a function's arguments, directly.
std::vector<bool> InsideArguments(const std::string& text) {
    std::vector<bool> inside;
    std::vector<bool> open;
    char before = '\0';
    for (const char c : text) {
        if (c == ')' && !open.empty()) open.pop_back();
        inside.push_back(!open.empty() && open.back());
        if (c == '(') open.push_back(IsNameCharacter(before));
        if (c != ' ') before = c;
    }
    return inside;
}

/// Decimal commas become points, separating ones semicolons.
void SettleCommas(std::string& text) {
    const bool semicolons = text.find(';') != std::string::npos;
    const std::vector<bool> arguments = InsideArguments(text);
    for (std::size_t i = 0; i < text.size(); ++i) {
        if (text[i] == ',') text[i] = !semicolons && arguments[i] ? ';' : '.';
    }
}

// ---------------------------------------------------------------- errors

/// "Too many arguments for "sqrt"." and the like; without the token when the parser names none.
std::string Sentence(std::string_view start, const std::string& token, std::string_view otherwise) {
    if (token.empty()) return std::string(otherwise);
    std::string text(start);
    return text.append(" \"").append(token).append("\".");
}

std::string ErrorText(const mu::ParserError& error) {
    const std::string& token = error.GetToken();
    switch (error.GetCode()) {
        case mu::ecUNEXPECTED_EOF:
            return "The expression is not complete.";
        case mu::ecMISSING_PARENS:
            return "A closing parenthesis is missing.";
        case mu::ecUNASSIGNABLE_TOKEN:
        case mu::ecINVALID_NAME:
            return Sentence("Unknown name", token, "Unknown name.");
        case mu::ecTOO_MANY_PARAMS:
            return Sentence("Too many arguments for", token, "Too many arguments.");
        case mu::ecTOO_FEW_PARAMS:
            return Sentence("Too few arguments for", token, "Too few arguments.");
        default:
            return Sentence("Does not belong here:", token, "Cannot read the expression.");
    }
}

}  // namespace

struct CalculatorEngine::Parser {
    mu::Parser parser;
};

CalculatorEngine::CalculatorEngine() : parser_(std::make_unique<Parser>()) {
    DefineLanguage(parser_->parser);
    setAnswer(0);
}

CalculatorEngine::~CalculatorEngine() = default;

void CalculatorEngine::setAnswer(double value) {
    // A constant, so that no expression can assign to it.
    parser_->parser.DefineConst("ans", value);
}

Result<double> CalculatorEngine::evaluate(std::string_view expression) {
    std::string text = WithoutGreek(expression);
    if (text.find_first_not_of(" \t") == std::string::npos) return 0.0;
    if (text.size() > kLongestExpression) return Status::Failure("The expression is too long.");
    const auto printable = [](char c) { return c >= ' ' && c <= '~' && c != '"'; };
    if (!std::ranges::all_of(text, printable))
        return Status::Failure("Unknown character in the expression.");
    SettleCommas(text);
    try {
        mu::Parser& parser = parser_->parser;
        parser.SetExpr(text);
        const double value = parser.Eval();
        if (parser.GetNumResults() != 1) return Status::Failure("One expression at a time.");
        if (!std::isfinite(value)) return Status::Failure("The result is not a finite number.");
        return value;
    } catch (const mu::ParserError& error) {
        return Status::Failure(ErrorText(error));
    } catch (const std::exception&) {
        return Status::Failure("Cannot read the expression.");
    }
}

}  // namespace kelvro
