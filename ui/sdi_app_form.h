#pragma once

#include <QKeySequence>
#include <QMainWindow>
#include <QStringList>
#include <QTimer>
#include <functional>
#include <memory>
#include <vector>

#include "core/series.h"
#include "io/settings.h"
#include "ui/app_windows.h"
#include "ui/design_session.h"

class QAction;
class QLabel;
class QLockFile;
class QPrinter;
class QStackedWidget;

namespace kelvro {

class NetworkWindow;
enum class Language;
class PagePanel;
class SharedPanel;
class TabSet;

/// The main window: shared inputs and outputs, the notebook of design pages with its tabs, menus,
/// tool bar and status panel. It owns the design session and shows what that calculates.
class TSDIAppForm : public QMainWindow {
    Q_OBJECT

  public:
    explicit TSDIAppForm(QWidget* parent = nullptr);
    ~TSDIAppForm() override;

    DesignSession& session() { return session_; }
    AppWindows& windows() { return windows_; }

    /// What follows the creation of all windows: settings, printer, command line, caption and the
    /// first calculation. `arguments` without the program's name.
    void startUp(const QStringList& arguments);
    /// Opens the projects and measured data that the command line named, once the window stands, or
    /// the window that offers what a crash has left behind.
    void openNetworkFiles();

    /// Starts a program with the platform's means; false when it cannot be started.
    using ProgramStarter = std::function<bool(const QString& program)>;
    void setProgramStarter(ProgramStarter starter);
    /// Runs a program, or beeps.
    void execute(const QString& program);

  public slots:
    void OKClick();
    void ExitClick();
    void TabSet1Click(int index);
    void SpeedButtonVertauschenClick();
    void SeriesClick(Series series);
    void LanguageClick(Language language);
    void ButtonTakeClick();
    void ButtonTakeAndOptClick();
    void ButtonRoundAllClick();
    void Undo1Click();
    void Redo1Click();
    void ImVordergrundbleiben1Click();
    void ButtonCopyClick();
    void FindBetter1Click();
    void Drucken1Click();
    void Druckereinstellung1Click();
    void ExecButtonClick();
    void SpeedButtonINISaveClick();
    void SpeedButtonINILadenClick();
    void OpenAsNetwork1Click();
    void OpenProject1Click();
    void New1Click();
    void Save1Click();
    /// Saves the settings at once: the session of the desktop ends, or the process is to.
    void saveNow();
    void NetworkExample1Click();
    void ShowHint(const QString& hint);

  signals:
    /// The window has closed; the program ends.
    void formClosed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void buildContents();
    void giveKeys();
    /// As large as its contents, or as the screen.
    void fitScreen();
    QWidget* buildNotebook();
    QWidget* buildButtons();
    /// Key that leads `step` pages on.
    void addPageKey(const QKeySequence& key, int step);
    void enterPage();
    void showResult(const CycleResult& result);
    QStringList achievedTexts() const;
    void writeInputs();
    void refreshInputs();
    /// Writes all inputs, and the components of all pages.
    void writeFields();
    /// Lets Undo and Redo name their steps.
    void nameSteps();
    Settings settings() const;
    /// True when the file was written; else the user has been told.
    /// Tells what there is to say of it, but not that another program has changed the file `known`.
    SettingsSave saveSettings(const QString& file, const std::optional<std::string>& known);
    /// Saves under a name that the user has chosen.
    void saveUnder(const QString& file);
    void saveOverChanged();
    void applyPreferences(const Settings& settings);
    /// Is this the program that keeps the settings file? A second one leaves it alone.
    bool claimSettings();
    void saveSoon();
    void openFile(const QString& file);
    /// The design is that of a file now, unchanged; an empty name: of none.
    void nameFile(const QString& file, const std::string& checksum);
    void showCaption();
    void listRecentFiles();
    void FormClose();
    void enable(const char* control, bool on);
    void readArguments(const QStringList& arguments);
    void connectSuggestions(const QWidget& made);
    /// The Network window, brought to the front.
    NetworkWindow* networkWindow();
    void namePrinter();
    QPrinter& printer();
    void printOn(QPrinter& printer);

    DesignSession session_;
    AppWindows windows_;
    SharedPanel* shared_ = nullptr;
    QStackedWidget* notebook_ = nullptr;
    TabSet* tabs_ = nullptr;
    std::vector<PagePanel*> panels_;
    std::unique_ptr<QPrinter> printer_;
    ProgramStarter startProgram_;
    QStringList networkFiles_;  ///< named by the command line, not opened yet
    QString file_;              ///< that the design was opened from or saved to; empty: none
    Design saved_;              ///< as that file holds it
    std::string checksum_;      ///< of that file, as it was read or last saved here
    QTimer pause_;              ///< after a change, until the settings are saved
    std::unique_ptr<QLockFile> claim_;  ///< on the settings file; null in a second instance
    QLabel* achieved_ = nullptr;        ///< in the status panel, beside a hint
    QString hint_;                      ///< of the control under the pointer
};

}  // namespace kelvro
