#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <nlohmann/json.hpp>
#include <sstream>
#include <string>
#include <vector>

#include "cli/command_line.h"
#include "cli/pictures.h"
#include "io/class_e_simulation.h"

namespace kelvro {

struct Output {
    int code;
    std::string out;
    std::string err;
};

/// Runs the program's commands within the test.
inline Output RunWith(std::vector<std::string> args) {
    std::ostringstream out;
    std::ostringstream err;
    const int code =
        RunCommandLine(std::move(args), out, err, false, {WritePicture, CompareWithNgspice});
    return {code, out.str(), err.str()};
}

using Json = nlohmann::json;

/// What commands say that have to succeed.
inline Json JsonOf(const std::vector<std::string>& args) {
    const Output outcome = RunWith(args);
    EXPECT_EQ(outcome.code, 0) << outcome.err;
    return Json::parse(outcome.out, nullptr, false);
}

/// A call that ends with a code and one line of errors, which says why.
struct Fault {
    std::vector<std::string> args;
    int code;
    std::string says;
};

inline void ExpectFaults(const std::vector<Fault>& faults) {
    for (const auto& [args, code, says] : faults) {
        SCOPED_TRACE(testing::PrintToString(args));
        const Output outcome = RunWith(args);
        EXPECT_EQ(outcome.code, code) << outcome.err;
        EXPECT_EQ(outcome.out, "");
        EXPECT_NE(outcome.err.find(says), std::string::npos) << outcome.err;
        EXPECT_EQ(std::ranges::count(outcome.err, '\n'), 1) << outcome.err;
    }
}

}  // namespace kelvro
