#pragma once

#include <cmath>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "network/network_text.h"
#include "network/text_reader.h"

// The grammar of network texts, by recursive descent. Every function leaves its failure with the
// reader and gives back whatever it has then.

namespace kelvro {

/// One "key=value" that a list may hold.
struct SettingRule {
    enum class At : unsigned char { Never, Optional, Required };
    enum class Kind : unsigned char { Number, Word, Part };

    std::string_view key;
    TextUnit unit = TextUnit::None;
    At at = At::Never;  ///< may "@frequency" follow?
    Kind kind = Kind::Number;
};

struct Setting {
    std::string_view key;
    std::size_t place = 0;
    double value = 0;
    std::optional<double> at = {};
    std::string word = {};
    Part part = {};
};

/// The setting of this key; none where the list does not have it.
const Setting* FindSetting(const std::vector<Setting>& settings, std::string_view key);

class NetworkParser {
  public:
    NetworkParser(std::string_view text, const DataLoader& load, bool portNeeded)
        : reader_(text), load_(load), portNeeded_(portNeeded) {
        if (text.size() > kLongestText) reader_.fail(kLongestText, "the text is too long");
    }

    template <typename T>
    Result<T> whole(T (NetworkParser::*rule)()) {
        T value = reader_.failed() ? T{} : (this->*rule)();
        if (!reader_.failed() && !reader_.atEnd()) reader_.expected(wanted_);
        if (reader_.failed()) return reader_.status();
        return value;
    }

    /// Terms joined by "+".
    Impedance series();
    LadderElement element();

  private:
    static constexpr std::size_t kLongestText = 100'000;
    static constexpr int kDeepest = 100;

    Impedance parallel();
    Impedance atom();
    Impedance grouped();
    Impedance constant();
    Impedance measured(const std::string& file, std::size_t place);
    std::shared_ptr<const PortData> data(const std::string& file, std::size_t place);
    std::shared_ptr<const PortData> interpolated(std::shared_ptr<const PortData> data);
    std::optional<std::string> fileName();
    std::optional<Impedance> named();

    Part part(PartKind kind, std::string name);
    void readLosses(Part& part);
    PartLoss lossOf(const std::vector<Setting>& settings);
    std::vector<Setting> settings(std::span<const SettingRule> rules);
    Setting setting(std::span<const SettingRule> rules);
    std::string wordOrQuoted();

    struct Term {
        double value = 0;
        bool imaginary = false;
    };
    Term term();

    LadderElement elementOfKind(std::string_view kind, std::size_t place);
    Arm arm(Place where, bool atSupply);
    Line line(Line::Form form);
    LineLength lineLength(const std::vector<Setting>& settings, std::size_t place);
    Transformer transformer();
    CoupledCoils coils();
    MeasuredTwoPort twoPort();
    Switch switchToGround();
    Branch branch();

    double lineLoss(const Setting& loss);
    double toleranceOf(const std::vector<Setting>& settings);
    double positive(const std::vector<Setting>& settings, std::string_view key);
    void require(bool holds, std::size_t place, std::string_view message) {
        if (!holds) reader_.fail(place, message);
    }
    /// Counts what stands within what; text that nests without end is no reason to crash.
    bool enter() {
        require(++depth_ <= kDeepest, reader_.place(), "nested too deeply");
        return !reader_.failed();
    }
    void leave() { --depth_; }

    TextReader reader_;
    const DataLoader& load_;
    bool portNeeded_;
    int depth_ = 0;
    /// What could go on where the text does not.
    static constexpr std::string_view wanted_ = "'+', '|' or the end";
};

}  // namespace kelvro
