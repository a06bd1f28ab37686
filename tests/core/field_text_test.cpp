// What a field makes of typed text: all of it, or visibly less.

#include "core/field_text.h"

#include <gtest/gtest.h>

#include "core/number_text.h"

namespace kelvro {
namespace {

struct Typed {
    const char* text;
    const char* unit;
    double value;
    const char* unread;
    bool asMeant;
};

class FieldText : public testing::TestWithParam<Typed> {};

TEST_P(FieldText, IsReadAsPeopleMeanItOrVisiblyNot) {
    const Typed& typed = GetParam();
    const FieldReading reading = ReadField(typed.text, typed.unit);
    EXPECT_DOUBLE_EQ(reading.value, typed.value) << typed.text;
    EXPECT_EQ(reading.unread, typed.unread) << typed.text;
    EXPECT_EQ(reading.asMeant, typed.asMeant) << typed.text;
}

INSTANTIATE_TEST_SUITE_P(
    AsMeant, FieldText,
    testing::Values(
        Typed{"  50.000", "Ω", 50, "", true}, Typed{"433.92M", "Hz", 433.92e6, "", true},
        Typed{"433.92MHz", "Hz", 433.92e6, "", true}, Typed{"433.92 MHz", "Hz", 433.92e6, "", true},
        Typed{"433,92 MHz ", "Hz", 433.92e6, "", true}, Typed{"5 Hz", "Hz", 5, "", true},
        Typed{"10 pF", "F", 10e-12, "", true}, Typed{"10 F", "F", 10, "", true},
        Typed{"10 \u00B5H", "H", 10e-6, "", true}, Typed{"4.7\u03BC", "F", 4.7e-6, "", true},
        Typed{"4.7 kOhm", "Ω", 4700, "", true}, Typed{"4.7k\u2126", "Ω", 4700, "", true},
        Typed{"75 \u03A9", "Ω", 75, "", true}, Typed{"10mil", "m", 2.54e-4, "", true},
        Typed{"10 mil", "m", 2.54e-4, "", true}, Typed{"2 miles", "m", 3200, "", true},
        Typed{"5 mm", "m", 5e-3, "", true}, Typed{"5m", "m", 5e-3, "", true},
        Typed{"1.5E-3", "", 0.0015, "", true}));

INSTANTIATE_TEST_SUITE_P(
    VisiblyNot, FieldText,
    testing::Values(Typed{"3k3", "Ω", 3000, "3", false}, Typed{"1,000,000", "Ω", 1, ",000", false},
                    Typed{"100.433.92M", "Hz", 100.433, ".92M", false},
                    Typed{"12 k", "Ω", 12, "k", false}, Typed{"12 kHz", "Ω", 12, "kHz", false},
                    Typed{"433 mhz", "Hz", 433, "mhz", false}, Typed{"1 000", "Ω", 1, "000", false},
                    Typed{"10F", "F", 10e-15, "", false}, Typed{"1l5", "Ω", 15, "", false},
                    Typed{"12x", "", 12, "x", false}, Typed{"--5", "Ω", 0, "--5", false},
                    Typed{"x mil", "m", 0, "x mil", false},
                    Typed{"10 milk", "m", 2.54e-4, "k", false}, Typed{"abc", "Ω", 0, "abc", false},
                    Typed{"", "Ω", 0, "", false}));

/// Without micro signs and units behind blanks a field reads what every number text reads.
TEST(FieldText, KeepsTheRulesOfNumberTexts) {
    for (const char* text : {"4,7k", "2E3k", "3dB", "3d", "-2e2", "+5", "  12", "12 k", "1m", "1M",
                             "10mil", "2miles", "12x", "abc", "--5", "1e-400"})
        EXPECT_DOUBLE_EQ(ReadField(text, "Ω").value, ParseValue(text)) << text;
}

}  // namespace
}  // namespace kelvro
