#pragma once

#include <concepts>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "design/design.h"
#include "design/page_goal.h"
#include "design/page_network.h"
#include "design/transfer.h"

// What a design page is, as data. The window, the menus, the command line, the settings keys and
// the tests are built from these records; a new page is one file of page functions and one row.

namespace kelvro {

class DesignPass;

/// A member that a record has to give: leaving it out does not compile.
template <typename T>
class Required {
  public:
    template <typename U>
    requires std::convertible_to<U, T>
    constexpr Required(U value) : value_(std::move(value)) {}
    constexpr operator const T&() const { return value_; }

  private:
    T value_;
};

/// How a field writes its value; every text begins with one added space.
struct TextFormat {
    enum class Kind : std::uint8_t { Engineering, Fixed };
    Kind kind = Kind::Engineering;
    int width = 7;
    int decimals = 2;

    std::string text(double value) const;
};

inline constexpr TextFormat kEngineering{};

constexpr TextFormat Fixed(int width, int decimals) {
    return {TextFormat::Kind::Fixed, width, decimals};
}

struct Limits {
    double low;
    double high;
};

/// How the settings file keeps an input in its rounded texts; exactly it keeps every input.
struct SettingsKey {
    enum class Form : std::uint8_t {
        Compact,  ///< FormatEngShort with 2 decimals; whole numbers as such
        AsField,  ///< FormatEng(7, 2), as fields show it
    };
    std::string_view name;  ///< empty: kept exactly only
    Form form = Form::Compact;
    std::optional<Limits> limits = {};  ///< of what is read, where the field's own are narrower

    constexpr SettingsKey(const char* key) : name(key) {}
    constexpr SettingsKey(std::string_view key, Form as, std::optional<Limits> within = {})
        : name(key), form(as), limits(within) {}
};

inline constexpr SettingsKey kKeptExactly{""};

/// An input of the design: shared by all pages or belonging to one.
struct InputField {
    std::string_view object;  ///< name of the edit: "k5Eingabe"
    std::string_view label;
    std::string_view unit;
    std::string_view hint;
    std::string_view option;  ///< command-line option without dashes: "k"
    Required<SettingsKey> settings;
    std::variant<double Design::*, int Design::*> value;
    Limits limits;
    TextFormat format = kEngineering;
    /// Without effect, and not to be typed, while this says no; null: never.
    bool (*applies)(const Design&) = nullptr;
    /// What it is while the state holds 0, so until a value is typed; null: nothing else.
    double (*untilTyped)(const Design&) = nullptr;

    bool hasEffect(const Design& state) const { return !applies || applies(state); }
    /// The value in use.
    double read(const Design& state) const;
    /// What the state holds.
    double stored(const Design& state) const;
    /// Stores the value clamped to the limits.
    void write(Design& state, double x) const;
    /// Stores the value as it is; rounded where the input is a whole number.
    void store(Design& state, double x) const;
};

/// A check box of a page, bound to one flag of the state, with a weight where it has one.
struct SwitchField {
    std::string_view object;
    std::string_view caption;
    std::string_view hint;
    bool Design::*flag;
    std::string_view weightObject = {};  ///< scroll bar, empty where the switch has none
    int Design::*weight = nullptr;       ///< 0..100
    std::string_view option = {};        ///< command-line option without dashes, where it has one
    std::string_view offOption = {};     ///< the same of an option that clears the box
};

/// A push button of a page that does something to the state and then recalculates.
struct ActionField {
    std::string_view object;
    std::string_view caption;
    std::string_view hint;
    /// Returns a message when refused, an empty text when done.
    std::string (*run)(Design&);
};

/// An output of a page. A component has a slot; its field can be rounded to a standard value and
/// taken back into the design.
struct OutputField {
    std::string_view object;  ///< "C11Ausgabe"
    std::string_view name;    ///< name on the command line: "C1"
    std::string_view label;
    std::string_view unit;
    std::string_view hint = {};
    Slot slot = Slot::None;
    TextFormat format = kEngineering;
    bool editable = false;
    std::string_view initial = {};          ///< text until the first successful design
    std::optional<PartKey> takenFrom = {};  ///< component whose field Take reads instead
    /// Shown only while this says so; null: always.
    bool (*shown)(const Design&) = nullptr;
    /// Where the component is not simply what its slot holds: reads and stores it.
    double (*get)(const Design&) = nullptr;
    void (*set)(Design&, double) = nullptr;

    bool isShown(const Design& state) const { return !shown || shown(state); }
    /// Parts are sold in preferred values; lengths, which have a slot too, are cut.
    bool hasStandardValues() const;
    /// The component of a field with a slot, SI units.
    double component(const Design& state) const;
    void setComponent(Design& state, double value) const;
};

/// A fixed line of text on the page, with a name where texts change: "Suited for R1<R2".
struct NoteField {
    std::string_view text;
    std::string_view hint = {};
    std::string_view object = {};
};

enum class MenuGroup : std::uint8_t { None, Matching, Attenuator, Amplifier, Options };

/// What a page is for, where networks are suggested.
enum class Role : std::uint8_t { Match, Pad, Balun, Amplifier, Other };

struct Suggestion {
    Required<Role> role;
    Required<std::string_view> character;  ///< first words of the reason: "Two parts only, ..."
    bool floats = false;                   ///< the load need not share the ground of the source
};

/// What an engineer tells a colleague about a network before he builds it.
struct CircuitHint {
    Required<std::string_view> use;         ///< what the network is good for
    Required<std::string_view> limits;      ///< where it stops being good
    Required<std::string_view> parasitics;  ///< where pads, leads and parasitics of parts go
    Required<std::string_view> values;      ///< values that can be built
};

/// Which of the shared outputs (B, v, 20·log v, loss, Q) a page fills; the rest show "     -".
enum class SharedOutputs : std::uint8_t { All, None, BandwidthOnly };

/// Input labels that show before the first design on pages whose texts start so.
inline constexpr std::string_view kNoValueYet = "        -";

struct Page {
    Required<std::string_view> key;      ///< command-line name: "lc-series"
    Required<std::string_view> caption;  ///< tab
    std::string_view menuItem;           ///< object name; empty where the page has no menu item
    std::string_view menuText;
    MenuGroup menuGroup = MenuGroup::None;
    bool qPanel = false;
    bool exportable = false;
    bool plottable = false;
    std::string_view swapBox = {};  ///< "CheckBox1"; empty where the page has none
    bool mirrored = false;          ///< LCSwapped evaluates the page at the mirrored frequency
    SharedOutputs shared = SharedOutputs::All;
    double sourceCount = 1;  ///< loss is referred to sqrt(R2/(sourceCount·R1))
    Limits typedQ = {0.2, 500};
    std::optional<double> entryQ = {};  ///< Q that the page starts from
    bool unswapsLC = false;             ///< entering the page clears LCSwapped

    Suggestion suggestion;
    CircuitHint hint;
    PageGoal goal;

    int number = 0;  ///< its place in the table of pages, from 1 on

    std::vector<NoteField> notes = {};
    std::vector<InputField> inputs = {};
    std::vector<SwitchField> switches = {};
    std::vector<ActionField> actions = {};
    std::vector<OutputField> outputs = {};
    bool switched = false;               ///< a switched stage: waves and harmonics are shown
    std::string_view table = {};         ///< object of a table of the circuit's elements
    std::string_view pictureHint = {};   ///< of the circuit picture
    std::string_view transferText = {};  ///< the printed transfer function

    void (*design)(DesignPass&) = nullptr;
    Transfer (*transfer)(const Design&) = nullptr;  ///< null: the ideal network
    /// Is the gain at fo itself 0 dB of the transducer gain? null: never, it is sqrt(R2/R1).
    bool (*refersToItself)(const Design&) = nullptr;
    /// What there is to build, from source to load; null: nothing. All parts are named.
    std::vector<Network> (*networks)(const Design&) = nullptr;
    /// Another network of the same behaviour, drawn and listed beside the first: the Pi beside the
    /// T.
    Network (*alternative)(const Design&) = nullptr;
    bool atFrequency = true;  ///< false where everything is direct current
    /// Parts that no component field of their own name keeps.
    std::vector<PartRow> parts = {};

    /// Does the page show dual values in the present state?
    bool showsDuals(const Design& state) const { return mirrored && state.LCSwapped; }
    /// The networks as they are to be built: interchanged where the page shows duals. None where
    /// the page has none.
    std::vector<Network> builtNetworks(const Design& state) const;
    /// The same with the alternative behind them, where the page has one.
    std::vector<Network> drawnNetworks(const Design& state) const;
    const OutputField* output(std::string_view object) const;
    const InputField* input(std::string_view object) const;
};

}  // namespace kelvro
