// Exported two-port files, read back by a reader of the format's own rules.

#include <gtest/gtest.h>

#include <cmath>
#include <complex>
#include <sstream>

#include "export_design.h"

namespace kelvro {
namespace {

using Cx = std::complex<double>;

struct TouchstonePoint {
    double f;
    Cx s11, s21, s12, s22;  // the order of two-port files
};

struct TouchstoneData {
    double reference = 0;
    std::vector<TouchstonePoint> points;
    std::string problem;
};

/// Comments behind '!', one option line, nine numbers per frequency, frequencies rising.
TouchstoneData Read(const std::string& text) {
    TouchstoneData data;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);) {
        line.resize(std::min(line.find('!'), line.size()));
        std::istringstream words(line);
        if (line.starts_with('#')) {
            std::string hash, unit, kind, form, r;
            words >> hash >> unit >> kind >> form >> r >> data.reference;
            if (unit != "HZ" || kind != "S" || form != "RI" || r != "R") data.problem = line;
            continue;
        }
        double v[9];
        int count = 0;
        while (count < 9 && words >> v[count]) ++count;
        if (count == 0) continue;
        if (count != 9 || !(words >> std::ws).eof() || data.reference == 0) data.problem = line;
        if (!data.points.empty() && v[0] <= data.points.back().f) data.problem = line;
        data.points.push_back({v[0], {v[1], v[2]}, {v[3], v[4]}, {v[5], v[6]}, {v[7], v[8]}});
    }
    return data;
}

/// Largest eigenvalue of S^H·S: above 1 the two-port would deliver power.
double LargestGain(const TouchstonePoint& p) {
    const double a = std::norm(p.s11) + std::norm(p.s21);
    const double d = std::norm(p.s12) + std::norm(p.s22);
    const Cx b = std::conj(p.s11) * p.s12 + std::conj(p.s21) * p.s22;
    return (a + d) / 2 + std::sqrt((a - d) * (a - d) / 4 + std::norm(b));
}

/// Transducer gain between real resistances, by the formula of the textbooks.
double TransducerGain(const TouchstonePoint& p, double z0, double R1, double R2) {
    const double source = (R1 - z0) / (R1 + z0);
    const double load = (R2 - z0) / (R2 + z0);
    const Cx loop = (1.0 - p.s11 * source) * (1.0 - p.s22 * load) - p.s12 * p.s21 * source * load;
    return (1 - source * source) * std::norm(p.s21) * (1 - load * load) / std::norm(loop);
}

class TouchstoneFiles : public testing::TestWithParam<DesignCase> {};

TEST_P(TouchstoneFiles, DescribeAPassiveReciprocalTwoPortWithTheDesignsGain) {
    Design state = DesignedState(GetParam(), 1000);
    state.QB = 40;
    state.QBC = 150;
    const ExportDesign design = Exported(state);
    ExportRange range = ExportRange::Around(state.fo);
    range.points = 41;
    for (const double z0 : {50.0, 75.0}) {
        range.z0 = z0;
        const TouchstoneData data = Read(TouchstoneFile(design, range));
        ASSERT_EQ(data.problem, "");
        EXPECT_EQ(data.reference, z0);
        ASSERT_EQ(data.points.size(), 41U);
        EXPECT_EQ(data.points.front().f, range.from);
        EXPECT_EQ(data.points.back().f, range.to);
        const Response response(design.state);
        for (const TouchstonePoint& p : data.points) {
            EXPECT_LE(LargestGain(p), 1 + 1e-9) << p.f;
            EXPECT_EQ(p.s12, p.s21) << p.f;
            const double expected = std::norm(response.transfer(p.f)) / (state.R2 / state.R1);
            EXPECT_NEAR(TransducerGain(p, z0, state.R1, state.R2), expected, 1e-9 * expected)
                << p.f;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, TouchstoneFiles, testing::ValuesIn(kTwoPorts));

/// Shunt admittance Y: S11 = -Y·Z0/(2 + Y·Z0).
TEST(TouchstoneFile, ShowsTheCombinedTankAcrossTheLine) {
    Design state = DesignedState({"tank", 12}, 1e9);
    ExportRange range;
    range.from = 12e6;
    range.to = 20e6;
    range.points = 2;
    const TouchstoneData data = Read(TouchstoneFile(Exported(state), range));
    ASSERT_EQ(data.points.size(), 2U);
    for (std::size_t i = 0; i < 2; ++i) {
        const double X = i == 0 ? -237.52 : 33.72;
        const Cx y = 50.0 / Cx(0, X);
        EXPECT_NEAR(std::abs(data.points[i].s11 + y / (2.0 + y)), 0, 1e-4);
        EXPECT_NEAR(std::abs(data.points[i].s21 - 2.0 / (2.0 + y)), 0, 1e-4);
    }
}

}  // namespace
}  // namespace kelvro
