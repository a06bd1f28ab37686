#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <string>

namespace {

/// Tests run in the locale of their environment, as the program with a window does.
const bool kLocaleSet = std::setlocale(LC_ALL, "") != nullptr;

TEST(EnvironmentTest, TheRunInAnotherLocaleReallyHasItsDecimalPoint) {
    const char* expected = std::getenv("KELVRO_DECIMAL_POINT");
    if (!expected) GTEST_SKIP() << "an ordinary run";
    ASSERT_TRUE(kLocaleSet);
    EXPECT_STREQ(std::localeconv()->decimal_point, expected);
}

}  // namespace
