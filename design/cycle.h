#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "design/class_e.h"
#include "design/design.h"
#include "design/page.h"

namespace kelvro {

/// Bandwidths from here on are written as "infinite".
inline constexpr double kInfiniteBandwidth = 1e20;

/// A text for one field of the window.
struct FieldText {
    std::string_view object;
    std::string text;
};

/// Caption and unit that a field changes at run time.
struct FieldCaption {
    std::string_view object;
    std::string caption;
    std::string unit;
};

/// One row of a page's element table. Rows with a slot are components: they can be rounded to a
/// standard value and taken back.
struct TableRow {
    std::string element;
    std::string text;
    double value = 0;
    std::string_view unit;
    Slot slot = Slot::None;
};

/// What one calculation has to say. Fields that are not named keep their texts.
struct CycleResult {
    Design design;  ///< as calculated: its components, and Q where the page finds it
    std::optional<std::string> message;  ///< why the design was refused
    std::vector<FieldText> texts;
    std::vector<FieldCaption> captions;
    std::optional<std::vector<TableRow>> table;  ///< new contents of the element table
    std::optional<ClassEOperation> operation;    ///< of a switched stage of parts without loss

    // Shared outputs.
    double bandwidth = 0;
    double QBges = 0;  ///< total effective element Q
    double v = 0;      ///< V2/V1 at fo
    double vDb = 0;
    double lossDb = 0;

    /// Text of a field, or null where the calculation did not write it.
    const std::string* text(std::string_view object) const;
};

/// What a calculation needs from the rooms above: the network's response and the optimizer.
class CycleServices {
  public:
    virtual ~CycleServices() = default;
    /// |V2/V1| of the design's network at f.
    virtual double responseMagnitude(const Design& design, double f) = 0;
    /// The components of the design, refined.
    virtual Slots optimize(const Design& design) = 0;
};

/// Turns the inputs of a design into the outputs of its page: component values (designed anew only
/// when `storeComponents`; Take and Optimize keeps those in place), v at fo, and the texts of all
/// fields. A refused design keeps its components, and its page fields have no texts.
CycleResult Calculate(const Design& design, bool storeComponents, CycleServices& services);

/// The outputs for the components as they stand in the slots, nothing designed, judged or
/// optimized; the bandwidth is the one that the page gives its inputs. A field into which the user
/// types keeps showing that.
CycleResult ShowComponents(const Design& design, CycleServices& services);

/// What fields show in place of a value at infinity.
inline constexpr std::string_view kInfinite = "infinite";

/// sqrt(R2/R1): the voltage ratio of a lossless match.
double MatchedRatio(const Design& design);

/// 2·π·fo with the constant of the program.
double Omega(const Design& state);

/// The loaded Q wherever it divides: at least 0.001.
double EffectiveQ(const Design& state);

/// What a page's design function works with: the design, shared values, and where outputs go.
class DesignPass {
  public:
    DesignPass(const Page& page, bool storeComponents, CycleServices& services,
               CycleResult& result);

    Design& state;  ///< the result's, which the page completes
    const Page& page;
    const double omega;
    const double Qe;
    const bool storeComponents;

    /// The input breaks the page's rule; the design function returns behind this.
    void refuse(std::string message);
    /// The optimizer entry.
    void optimize();
    /// v = |H(fo)| of the stored components.
    void evaluate();
    /// All components of the page as stored, or their duals where the page shows them; also the
    /// rows of its element table.
    void showComponents();
    /// One output in its own format.
    void show(std::string_view object, double value);
    /// One output whose value may lie at infinity.
    void showOrInfinite(std::string_view object, double value);
    void showText(std::string_view object, std::string text);
    void showCaption(std::string_view object, std::string caption, std::string unit);
    /// Q follows from the design on this page: stores it and rewrites its field.
    void showQ(double Q);
    void setBandwidth(double B);
    void setOperation(ClassEOperation operation);
    /// Optimize, evaluate, show: the usual end of a matching page.
    void finish();

  private:
    CycleServices& services_;
    CycleResult& result_;
};

/// The rows of a page's element table: its circuit as it is to be built; none without a table.
std::vector<TableRow> TableRows(const Design& state, const Page& page);

}  // namespace kelvro
