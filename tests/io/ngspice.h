#pragma once

#include <sys/wait.h>

#include <algorithm>
#include <complex>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "tests/temporary_folder.h"

// Netlists run by the real simulator, in batch mode.

namespace kelvro {

class Ngspice {
  public:
    explicit Ngspice(const std::string& netlist) { WriteFile(folder_ / "deck.cir", netlist); }

    /// What the run prints; nothing when it failed.
    std::optional<std::string> output() const {
        if (!run("-b deck.cir >output 2>&1")) return std::nullopt;
        return ReadFile(folder_ / "output");
    }

    /// Number behind "name" and perhaps "=" at the start of a line of the output.
    static std::optional<double> number(const std::string& output, const std::string& name) {
        std::istringstream lines(output);
        for (std::string line; std::getline(lines, line);) {
            std::istringstream words(line);
            std::string word;
            if (!(words >> word) || word != name) continue;
            while (words >> word) {
                if (word != "=") return std::strtod(word.c_str(), nullptr);
            }
        }
        return std::nullopt;
    }

    using Vectors = std::map<std::string, std::vector<std::complex<double>>>;

    /// All vectors of a sweep by name, "frequency" among them; empty when the run failed.
    Vectors sweep() const {
        if (!run("-b -r raw deck.cir >output 2>&1")) return {};
        std::ifstream raw(folder_ / "raw");
        std::vector<std::string> names;
        std::string line;
        while (std::getline(raw, line) && line != "Variables:") {
        }
        for (; std::getline(raw, line) && line != "Values:";) {
            std::istringstream words(line);
            std::string name;
            if (words >> name >> name) names.push_back(name);
        }
        return values(raw, names);
    }

  private:
    bool run(const std::string& arguments) const {
        const std::string command =
            "cd '" + folder_.path().string() + "' && SPICE_ASCIIRAWFILE=1 ngspice " + arguments;
        const int status = std::system(command.c_str());
        return WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

    static Vectors values(std::istream& raw, const std::vector<std::string>& names) {
        Vectors vectors;
        for (int index = 0; raw >> index;) {
            for (const std::string& name : names) {
                std::string text;
                raw >> text;
                std::ranges::replace(text, ',', ' ');
                double re = 0;
                double im = 0;
                std::sscanf(text.c_str(), "%lf %lf", &re, &im);
                vectors[name].emplace_back(re, im);
            }
        }
        return vectors;
    }

    TemporaryFolder folder_;
};

}  // namespace kelvro
