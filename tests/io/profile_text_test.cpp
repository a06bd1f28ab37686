#include "io/profile_text.h"

#include <gtest/gtest.h>

#include <random>

namespace kelvro {
namespace {

TEST(ProfileTextTest, KnowsWhichTextsItUnderstandsInFull) {
    for (const char* text : {"", "\n\n", "[A]\nb=1", "; note\n[A]\nb=1\n# note\nc = 2\n",
                             "\r\n[A]\r\nb=\r\n", "x=1\n[A]\n", "[A]\nb=1\n\n[C]\n"}) {
        EXPECT_TRUE(ProfileText(text).complete()) << text;
    }
    for (const char* text : {"prose", "[A\nb=1\n", "[A]\nb=1\nb=2\n", "[A]\nprose\n", "=1\n"}) {
        EXPECT_FALSE(ProfileText(text).complete()) << text;
    }
    EXPECT_FALSE(ProfileText(std::string("[A]\nb=\0\n", 8)).complete());
}

TEST(ProfileTextTest, ByteOrderMarksBelongToNoName) {
    const std::string mark = "\xEF\xBB\xBF";
    for (const std::string& before : {mark, mark + mark + mark, '\n' + mark, ' ' + mark + '\t'}) {
        const ProfileText profile(before + "a=1\n");
        EXPECT_EQ(profile.bytes(), "a=1\n") << testing::PrintToString(before);
    }
}

TEST(ProfileTextTest, WrittenTextsReadTheSameForAnyBytes) {
    std::mt19937 random(5);
    const std::string likely = "[]=;#\n\r\n \tAb1\xFC\"<\0";
    for (int i = 0; i < 20000; ++i) {
        std::string bytes(random() % 60, '\0');
        for (char& c : bytes) {
            c = random() % 8 ? likely[random() % likely.size()] : static_cast<char>(random());
        }
        ProfileText profile(bytes);
        profile.set("Variablen", "R1", "50");
        const ProfileText again(profile.bytes());
        EXPECT_EQ(again.value("Variablen", "R1"), "50") << testing::PrintToString(bytes);
        EXPECT_EQ(again.bytes(), profile.bytes()) << testing::PrintToString(bytes);
    }
}

}  // namespace
}  // namespace kelvro
