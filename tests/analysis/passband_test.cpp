#include "analysis/passband.h"

#include <gtest/gtest.h>

#include <cmath>

#include "tests/calculated.h"

namespace kelvro {
namespace {

Design Designed(int page, double R1, double R2, double Q, bool swapped) {
    return Calculated(
        {.page = page, .R1 = R1, .R2 = R2, .Q = Q, .QB = 1e4, .QBC = 1e4, .LCSwapped = swapped});
}

/// L-section 50 to 200 ohm, L = √3·R1/ω, C = √3/(ω·R2), x = (f/fo)², lossless:
/// |D|² = (1/40 - 3x/200)² + (√3/100)²·x. At x = 1 it is 4e-4; it reaches twice that at x = 7/3 and
/// stays below down to x = 0 (6.25e-4).
TEST(PassbandTest, OfAnLSectionIsThatOfItsFormula) {
    const double end = std::sqrt(7.0 / 3);
    const Design low = Designed(13, 50, 200, 5, false);
    const Passband lowPass = PassbandAround(Response(low), low.fo);
    EXPECT_EQ(lowPass.low, 0);
    EXPECT_NEAR(lowPass.high / low.fo, end, 2e-4);

    const Design high = Designed(13, 50, 200, 5, true);
    const Passband highPass = PassbandAround(Response(high), high.fo);
    EXPECT_NEAR(highPass.low / high.fo, 1 / end, 2e-4);
    EXPECT_TRUE(std::isinf(highPass.high));
}

TEST(PassbandTest, EndsWhereTheGainHasDroppedByTheLimit) {
    for (const double Q : {1.5, 20.0, 500.0}) {
        const Design state = Designed(3, 50, 200, Q, false);
        const Response response(state);
        for (const double drop : {1.0, 3.0102999566398120}) {
            const Passband band = PassbandAround(response, state.fo, drop);
            const double least = response.relativeDb(state.fo) - drop;
            EXPECT_NEAR(response.relativeDb(band.high), least, 1e-6) << Q;
            if (band.low > 0) {
                EXPECT_NEAR(response.relativeDb(band.low), least, 1e-6) << Q;
            }
            EXPECT_TRUE(band.contains(state.fo));
        }
    }
}

TEST(PassbandTest, OfAFlatNetworkHasNoEnds) {
    const Design pad = Designed(7, 200, 50, 5, false);
    const Passband band = PassbandAround(Response(pad), pad.fo);
    EXPECT_EQ(band.low, 0);
    EXPECT_TRUE(std::isinf(band.width()));
}

}  // namespace
}  // namespace kelvro
