// The networks of all pages against their responses, and what the circuits promise.

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <optional>
#include <random>

#include "analysis/response.h"
#include "core/scalar.h"
#include "design/pages.h"
#include "design/part_ref.h"
#include "design/transfer_text.h"
#include "network/ladder_response.h"
#include "tests/calculated.h"

namespace kelvro {
namespace {

class RandomDesigns {
  public:
    /// Log-uniform between the limits.
    double between(double low, double high) {
        return low * std::pow(high / low, std::uniform_real_distribution<>(0, 1)(random_));
    }

    /// A state of the page with components of moderate reactance at fo, matched to nothing.
    Design state(const Page& page, bool variant) {
        Design state;
        state.page = page.number;
        state.R1 = between(1, 1e4);
        state.R2 = between(1, 1e4);
        state.fo = between(1e5, 2e9);
        state.QB = between(10, 1e4);
        state.QBC = between(10, 1e4);
        state.k = between(0.1, 0.99);
        state.eightElements = variant;
        state.LCSwapped = variant;
        state.NBP = std::uniform_int_distribution<>(1, 8)(random_);
        const double X = std::sqrt(state.R1 * state.R2);
        state.LBP = X * between(0.1, 10) / (kTwoPi * state.fo);
        const Network network = page.networks(state).front();
        for (const ListedPart& part : ListOf(network)) {
            const auto ref = PartOf(page, network, part.name, false);
            if (ref && !ref->input) ref->write(state, valueFor(part.unit(), X, state.fo));
        }
        return state;
    }

  private:
    double valueFor(std::string_view unit, double X, double fo) {
        X *= between(0.05, 20);
        return unit == "H" ? X / (kTwoPi * fo) : unit == "F" ? 1 / (kTwoPi * fo * X) : X;
    }

    std::mt19937_64 random_{1951};
};

/// The printed formula of a page, "V(s) = sC[1] / (s²LC[1] + 2G[1])", with the values of a design.
class PrintedFormula {
  public:
    /// Interchanged, a page prints the formula of the parts that are built, or of those it keeps.
    enum class Of { Kept, Built };

    explicit PrintedFormula(const Design& state, Of of = Of::Kept)
        : state_(state),
          page_(PageOf(state)),
          duals_(page_.showsDuals(state) && of == Of::Built),
          mirrored_(page_.showsDuals(state) && of == Of::Kept) {
        if (mirrored_) state_.LCSwapped = false;
    }

    std::complex<double> at(double f) {
        const double tangent = (1 / state_.QB + 1 / state_.QBC) / 2;
        s_ = kTwoPi * f * std::complex<double>(tangent, 1);
        if (mirrored_) s_ = kTwoPi * (state_.fo * state_.fo / f) * std::complex(tangent, -1.0);
        text_ = TransferText(page_, duals_);
        EXPECT_TRUE(take("V(s) = "));
        const auto value = sum();
        EXPECT_TRUE(text_.empty()) << "left: " << text_;
        return value;
    }

  private:
    bool take(std::string_view token) {
        while (text_.starts_with(' ') && !token.starts_with(' ')) text_.remove_prefix(1);
        if (!text_.starts_with(token)) return false;
        text_.remove_prefix(token.size());
        return true;
    }

    std::complex<double> sum() {
        std::complex<double> value = product();
        while (take("+")) value += product();
        return value;
    }

    /// Factors stand side by side; what follows a stroke divides all of them.
    std::complex<double> product() {
        std::complex<double> value = 1;
        while (true) {
            if (take("/")) return value / product();
            const auto factor = power();
            if (!factor) return value;
            value *= *factor;
        }
    }

    std::optional<std::complex<double>> power() {
        const auto base = atom();
        if (!base) return base;
        if (take("²")) return *base * *base;
        if (take("³")) return *base * *base * *base;
        return base;
    }

    std::optional<std::complex<double>> atom() {
        if (take("(")) {
            const auto value = sum();
            EXPECT_TRUE(take(")"));
            return value;
        }
        if (take("1")) return 1;
        if (take("2")) return 2;
        if (take("s")) return s_;
        for (const char letter : {'G', 'L', 'C'}) {
            if (!take(std::string_view(&letter, 1))) continue;
            std::string name(1, letter);
            for (const char number : {'1', '2'}) {
                if (take(std::string{'[', number, ']'})) name += number;
            }
            if (name == "G1") return 1 / state_.R1;
            if (name == "G2") return 1 / state_.R2;
            const Network network = page_.networks(state_).front();
            return PartOf(page_, network, name, duals_).value().built(state_);
        }
        return std::nullopt;
    }

    Design state_;
    const Page& page_;
    bool duals_;
    bool mirrored_;
    std::complex<double> s_;
    std::string_view text_;
};

std::vector<int> PagesWithResponse() {
    std::vector<int> numbers;
    for (const Page& page : Pages()) {
        if (page.transfer) numbers.push_back(page.number);
    }
    return numbers;
}

class EveryPage : public testing::TestWithParam<int> {};

/// What a page promises three times: the closed form that its window works with, the network that
/// pictures and exports read, and the formula that it prints.
TEST_P(EveryPage, PromisesTheSameByFormulaNetworkAndPrint) {
    const Page& page = PageOf(GetParam());
    RandomDesigns designs;
    for (int i = 0; i < 120; ++i) {
        Design state = designs.state(page, i % 2 == 1);
        const bool lossless = i % 4 >= 2;
        if (lossless) state.QB = state.QBC = std::numeric_limits<double>::infinity();
        const Response response(state);
        std::vector<LadderResponse> networks;
        for (const Network& network : page.builtNetworks(state)) networks.emplace_back(network);
        for (int j = 0; j < 8; ++j) {
            const double f = state.fo * designs.between(0.2, 5);
            const std::complex<double> H = response.transfer(f);
            const auto close = [&](std::complex<double> other) {
                return std::abs(other - H) <= 1e-12 * std::abs(H);
            };
            ASSERT_PRED1(close, networks.front().voltageTransfer(f))
                << "draw " << i << " at " << f / state.fo << "·fo, where " << H << " is promised";
            if (page.transferText.empty()) continue;
            ASSERT_PRED1(close, 2.0 * PrintedFormula(state).at(f))
                << "draw " << i << " at " << f / state.fo << "·fo, where " << H << " is promised";
            if (!lossless || !page.showsDuals(state)) continue;  // losses belong to kept parts
            ASSERT_PRED1(close, 2.0 * PrintedFormula(state, PrintedFormula::Of::Built).at(f))
                << "duals, draw " << i << " at " << f / state.fo << "·fo";
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, EveryPage, testing::ValuesIn(PagesWithResponse()),
                         [](const auto& page) { return std::to_string(page.param); });

struct Match {
    int page;
    double R1;
    double R2;
    double Q = 5;
    bool variant = false;  ///< interchanged, or eight elements
};

/// A state designed with parts that are all but lossless.
Design Designed(const Match& match) {
    const CycleResult calculated = CycleOf({.page = match.page,
                                            .R1 = match.R1,
                                            .R2 = match.R2,
                                            .Q = match.Q,
                                            .QB = 1e12,
                                            .QBC = 1e12,
                                            .eightElements = match.variant,
                                            .LCSwapped = match.variant});
    EXPECT_FALSE(calculated.message);
    return calculated.design;
}

class LosslessMatches : public testing::TestWithParam<Match> {};

TEST_P(LosslessMatches, PassAllPowerAtFo) {
    SCOPED_TRACE(testing::Message() << "page " << GetParam().page << " from " << GetParam().R1
                                    << " to " << GetParam().R2 << " ohm, Q " << GetParam().Q
                                    << (GetParam().variant ? ", variant" : ""));
    const Design state = Designed(GetParam());
    EXPECT_NEAR(Response(state).relativeDb(state.fo), 0, 1e-8);
}

INSTANTIATE_TEST_SUITE_P(Pages, LosslessMatches,
                         testing::Values(Match{13, 50, 200}, Match{13, 200, 50},
                                         Match{13, 1, 1e4, 5, true}, Match{14, 50, 200},
                                         Match{14, 3, 470, 5, true}, Match{16, 50, 200, 0.2},
                                         Match{16, 50, 5000, 0.2, true}, Match{18, 200, 50},
                                         Match{18, 4700, 1, 5, true}, Match{17, 50, 50, 50},
                                         Match{17, 50, 200, 50}));

TEST(Pads, BehaveAlikeAsTAndAsPi) {
    const Design state = Calculated({.page = 8, .R2 = 75, .v8 = 0.3});
    const Response response(state);
    EXPECT_NEAR(response.magnitude(1e3), 0.3, 1e-12);
    const LadderResponse pi(PageOf(8).alternative(state));
    EXPECT_NEAR(pi.voltageTransfer(1e9).real(), 0.3, 1e-12);
}

struct FilterCase {
    int N;
    double ripple;
    double Q;
};

class ChebyshevFilters : public testing::TestWithParam<FilterCase> {};

/// Inverters made of capacitors hold near fo only: in narrow bands the response is that of the
/// prototype, 1 + (10^(ripple/10) - 1)·cos²(N·arccos x), x going from -1 to 1 over the band.
TEST_P(ChebyshevFilters, KeepRippleAndBandwidth) {
    SCOPED_TRACE(testing::Message() << GetParam().N << " resonators, " << GetParam().ripple
                                    << " dB, Q " << GetParam().Q);
    const auto [N, ripple, Q] = GetParam();
    Design state;
    state.page = 17;
    state.R1 = state.R2 = 50;
    state.Q = Q;
    state.NBP = N;
    state.rippleBP = ripple;
    state.LBP = 5e-9;
    state.QB = state.QBC = 1e9;
    const CycleResult calculated = CycleOf(state);
    ASSERT_FALSE(calculated.message);
    const Response response(calculated.design);
    const double square = std::pow(10, ripple / 10) - 1;
    for (double x = -1.2; x < 1.25; x += 0.1) {
        const double T =
            std::fabs(x) < 1 ? std::cos(N * std::acos(x)) : std::cosh(N * std::acosh(std::fabs(x)));
        const double promised = -10 * std::log10(1 + square * T * T);
        EXPECT_NEAR(response.relativeDb(state.fo * (1 + x / (2 * Q))), promised,
                    0.05 * ripple - 0.05 * promised)
            << x;
    }
}

INSTANTIATE_TEST_SUITE_P(Orders, ChebyshevFilters,
                         testing::Values(FilterCase{3, 0.5, 1000}, FilterCase{5, 0.5, 1000},
                                         FilterCase{3, 1, 2000}, FilterCase{5, 0.2, 2000}));

TEST(BandPass, FollowsItsPublishedResponse) {
    const CycleResult calculated = CycleOf({.page = 17, .Q = 10, .QB = 1e12, .QBC = 1e12});
    ASSERT_FALSE(calculated.message);
    const Design& state = calculated.design;
    const Response response(state);
    for (const auto& [f, dB] :
         {std::pair{90e6, -23.89}, std::pair{95e6, -1.24}, std::pair{100e6, 0.0},
          std::pair{105e6, -0.10}, std::pair{110e6, -14.18}}) {
        EXPECT_NEAR(response.relativeDb(f), dB, 0.006) << f;
    }
}

}  // namespace
}  // namespace kelvro
