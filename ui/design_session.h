#pragma once

#include <functional>
#include <memory>
#include <string>

#include "core/history.h"
#include "design/cycle.h"
#include "design/design.h"
#include "design/rounding_choice.h"
#include "io/optimizer_reports.h"
#include "optimize/page_optimizer.h"
#include "ui/plot/design_host.h"

namespace kelvro {

/// What follows a change of the design.
enum class Followup : unsigned char {
    Calculation,     ///< the page designs its components anew
    KeptComponents,  ///< the page is calculated with the components as they are
    Evaluation,      ///< outputs of the components as they are; nothing is designed or optimized
    Restoration,     ///< the design comes back as it was; the page only tells of it
    Results,         ///< v, loss and the like of the components, whose fields stay as they are
    Nothing,         ///< outputs stay as they are
};

/// Which input fields follow a change of the design.
enum class Fields : unsigned char {
    Stay,    ///< the change comes from one of them
    Follow,  ///< those that show another value
    Written  ///< all, as when a file is loaded
};

struct EditOptions {
    Followup followup = Followup::Calculation;
    Fields fields = Fields::Stay;
    std::string joins = {};  ///< edits of one key that follow each other are one step
};

/// The program's one design together with what changes it: one door for edits with the calculation
/// cycle behind it, undo and redo, page visits and messages. The main window shows what the session
/// says; plot windows and dialogs reach the design through it.
class DesignSession : public DesignHost {
    Q_OBJECT

  public:
    using MessageSink = std::function<void(const QString&)>;
    /// Tells why a design is refused; true when the user wants R1 and R2 switched, which
    /// `offersSwitch` says would cure it.
    using RefusalSink = std::function<bool(const QString& reason, bool offersSwitch)>;
    using Change = std::function<void(Design&)>;

    explicit DesignSession(QObject* parent = nullptr);

    const Design& design() const override { return history_.present().design; }
    const CycleResult& result() const override { return *history_.present().result; }

    /// Changes the design. The name is what Undo will say of it: "R1".
    void edit(const std::string& name, const Change& change, const EditOptions& options = {});
    /// Keeps a value that the user types into the field of a component.
    void type(const PartRef& part, double value);
    /// Rounds what the field of a component shows to the preferred standard series.
    void round(const PartRef& part, Rounding rounding = Rounding::Nearest);
    /// Shows the component of the design in place of its standard value.
    void unround(const PartRef& part);
    /// Rounds all components of the page that standard values exist for.
    void roundAll();
    void recalculate(bool storeComponents = true) override;
    void goToPage(int page) override;
    /// Begins with a design, which is calculated as it stands: nothing can be undone.
    void open(const Design& design, Followup followup = Followup::Calculation);

    /// What comes next is a step of its own, though it has the key of the last one.
    void closeStep() { history_.close(); }
    void undo();
    void redo();
    /// Name of the step that would be taken back or forth; empty without one.
    std::string undoName() const { return history_.undoName(); }
    std::string redoName() const { return history_.redoName(); }

    void showMessage(const QString& text) override;
    /// What showMessage does; by default a modal box with the active window as parent. Refusals go
    /// there too, until they get a way of their own.
    void setMessageSink(MessageSink sink);
    void setRefusalSink(RefusalSink sink) { refusalSink_ = std::move(sink); }

    /// Exchanges R1 and R2.
    void switchResistances();

    /// The optimizer of all calculations: its settings and last run.
    OptimizerServices& optimizer() { return optimizer_; }
    const PageOptimization& lastOptimization() const { return optimizer_.last(); }
    /// Where its reports go.
    OptimizerFiles& optimizerFiles() { return optimizerFiles_; }

  signals:
    /// Texts of a calculation, before its message is shown.
    void calculated(const CycleResult& result);
    /// The design's page has changed; its result follows.
    void pageEntered();
    /// The program itself has changed inputs: fields that show other values are to follow.
    void inputsChanged();
    /// All fields are to be written anew.
    void fieldsOutdated();
    /// The steps to undo and redo are others.
    void historyChanged();

  private:
    /// A design and what its last calculation said.
    struct State {
        Design design;
        std::shared_ptr<const CycleResult> result = std::make_shared<CycleResult>();

        bool operator==(const State& other) const { return design == other.design; }
    };

    State follow(Design changed, Followup followup);
    CycleResult resultOf(const Design& changed, Followup followup);
    /// Tells of a new present; `before` is the design that it replaces.
    void announce(const Design& before, const EditOptions& options);
    void announceAll();
    void tellRefusal();
    /// Would the design be accepted with R1 and R2 exchanged?
    bool switchCures() const;

    History<State> history_;
    OptimizerFiles optimizerFiles_ = UserReports();
    OptimizerServices optimizer_;
    MessageSink messageSink_;
    RefusalSink refusalSink_;
};

/// Title of the program's message boxes and print jobs.
inline constexpr char kApplicationTitle[] = QT_TRANSLATE_NOOP("kelvro", "Matching Networks");

/// A modal box with one text and an OK button.
void ShowMessageBox(const QString& text);

}  // namespace kelvro
