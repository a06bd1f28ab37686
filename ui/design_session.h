#pragma once

#include <functional>
#include <utility>

#include "design/cycle.h"
#include "design/design.h"
#include "optimize/page_optimizer.h"
#include "ui/plot/design_host.h"

namespace kelvro {

/// The program's one design together with what changes it: the calculation cycle, page
/// switches and messages. The main window shows what the session says; plot windows and dialogs
/// reach the design through it.
class DesignSession : public DesignHost {
    Q_OBJECT

  public:
    using MessageSink = std::function<void(const QString&)>;

    explicit DesignSession(QObject* parent = nullptr);

    const Design& design() const override { return state_; }
    const CycleResult& result() const override { return result_; }
    Design& state() { return state_; }
    void recalculate(bool storeComponents = true) override;
    void goToPage(int page) override;
    /// Shows the state's page and calculates it as it stands, without what entering it would
    /// change.
    void showPage();
    /// Shows what the components as they stand do: nothing is designed or optimized.
    void showComponents();
    void showMessage(const QString& text) override;
    QString fieldText(std::string_view object) const override;

    /// The optimizer of all calculations: its settings, files and last run.
    OptimizerServices& optimizer() { return optimizer_; }
    const PageOptimization& lastOptimization() const { return optimizer_.last(); }
    /// Where fieldText finds the texts of the window's output fields.
    using FieldTexts = std::function<QString(std::string_view object)>;
    void setFieldTexts(FieldTexts texts) { fieldTexts_ = std::move(texts); }
    /// What showMessage does; by default a modal box with the active window as parent.
    void setMessageSink(MessageSink sink);

    /// Inputs were written into the state by the program: fields that show something else are
    /// rewritten. Does not recalculate.
    void announceInputs();

  signals:
    /// Texts of a calculation, before its message is shown.
    void calculated(const CycleResult& result);
    /// The state's page has changed; its calculation follows.
    void pageEntered();
    /// The program itself has written inputs of the state.
    void inputsWritten();

  private:
    void show(CycleResult result);

    Design state_;
    CycleResult result_;
    OptimizerServices optimizer_;
    MessageSink messageSink_;
    FieldTexts fieldTexts_;
};

/// Title of the program's message boxes and print jobs.
inline constexpr char kApplicationTitle[] = "Matching Networks";

/// A modal box with one text and an OK button.
void ShowMessageBox(const QString& text);

}  // namespace kelvro
