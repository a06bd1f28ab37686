#include "advise/window_arguments.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvro {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

TEST(WindowArguments, OptionsAreNoKeywords) {
    const std::vector<std::string> arguments{"--no-splash", "dfpsteep", "my.kelvro", "0.5"};
    const WindowCall call = ReadWindowArguments(arguments);
    EXPECT_FALSE(call.splash);
    EXPECT_FALSE(call.help || call.version);
    EXPECT_THAT(call.others, ElementsAre("dfpsteep", "my.kelvro", "0.5"));
    EXPECT_TRUE(ReadWindowArguments({}).splash);
}

TEST(WindowArguments, HelpAlignsWhatItTells) {
    const std::string help = WindowHelp();
    EXPECT_THAT(help, HasSubstr("  --no-splash  Show the window at once"));
    EXPECT_THAT(help, HasSubstr("  FILE         Open a design; a project"));
    EXPECT_THAT(help, HasSubstr("  CENTRE       Behind the accuracy"));
    EXPECT_THAT(help, HasSubstr(": dfp hessian "));
    EXPECT_THAT(help, HasSubstr(" thorough\n"));
}

}  // namespace
}  // namespace kelvro
