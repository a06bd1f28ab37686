#pragma once

#include <QMainWindow>
#include <functional>
#include <memory>

#include "core/series.h"
#include "io/data_files.h"
#include "io/project_file.h"
#include "ui/workbench/network_model.h"

class QAction;
class QLabel;
class QLineEdit;
class QLockFile;
class QMenu;
class QPainter;
class QSplitter;
class QTableWidget;
class QTableWidgetItem;
class QTimer;

namespace kelvro {

class DesignHost;
class LadderPanel;
class LimitWatch;
class NetworkExportWindow;
class SliderPanel;
class SmithView;
class SweepView;
struct SearchLosses;

/// The Network window: any source and load, a ladder of any shape between them, the Smith chart to
/// tune on, plots, sliders, snapshots. It shows the one network of its model; every change goes
/// through that and can be undone.
class NetworkWindow : public QMainWindow {
    Q_OBJECT

  public:
    explicit NetworkWindow(DesignHost& host, QWidget* parent = nullptr);
    ~NetworkWindow() override;

    NetworkModel& model() { return model_; }
    SmithView& chart() { return *chart_; }

    /// A project file; false, with a message shown, when it cannot be read.
    bool openFile(const QString& path);
    /// Can a file of this name be opened here: a project or measured data?
    static bool opens(const QString& file);
    /// A project in place of the present one, once that may go; measured data as the load.
    void openAny(const QString& file);
    /// A page's circuit as a step that can be undone, and as a document without a file.
    void takeDesign(const QString& caption, Network network);
    const QString& file() const { return file_; }
    /// Has a program that was killed left a network behind, which a window shown would offer?
    static bool leftBehind();
    /// Opens the search for the problem of a page, taken over like a design, with its losses.
    void findFor(const QString& caption, Network problem, const SearchLosses& losses);

    /// The call of the command-line program that analyses what is on the screen; empty where its
    /// measured data stand in no file.
    QString commandLine() const;

    /// Where messages go; a box by default.
    using MessageSink = std::function<void(const QString&)>;
    void setMessageSink(MessageSink sink) { message_ = std::move(sink); }

  public slots:
    void newProject();
    void chooseFile();
    /// The worked example of the manual, as a project without a file.
    void openExample();
    bool save();
    bool saveAs();
    void copyPicture();
    void copyCommandLine();
    void savePicture();
    void printPicture();
    void exportNetwork();
    void takeSnapshot();
    void matchHere();
    void refine();
    void findNetworks();
    void standardValues();
    void centre();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void changeEvent(QEvent* event) override;
    void showEvent(QShowEvent* event) override;

  private:
    void buildMenus();
    void addSearchActions(QMenu& menu);
    void addDataMenu(QMenu& menu);
    void fillDataMenu(QMenu& menu);
    void addDataActions(QMenu& menu, const std::shared_ptr<const PortData>& data);
    void interpolate(const std::string& name, Interpolation form);
    /// Asks for the file of data; false when none was taken.
    bool linkData(const std::shared_ptr<const PortData>& data);
    /// Tells of data of the project whose file is missing or another, and offers to find it.
    void askForData();
    std::shared_ptr<const PortData> dataNamed(const std::string& name) const;
    void showDataNotes();
    void buildFileMenu();
    void buildEditMenu();
    void buildNetworkMenu();
    void buildViewMenu();
    void addCircles(QMenu& view);
    void buildContents();
    QWidget* buildNetworkSide();
    QWidget* buildPlotSide();
    QWidget* buildSnapshots();
    QAction* add(QMenu& menu, const char* object, const QString& text, const QKeySequence& key,
                 const std::function<void()>& run);
    void addToggle(QMenu& menu, const char* object, const QString& text, bool on,
                   const std::function<void(bool)>& run);
    void showModel();
    void showTitle();
    struct Column;
    void showSnapshots();
    void showVariant(QTableWidgetItem& head, const Snapshot* snapshot);
    void applyFrequency();
    void applyBands();
    void chooseSeries(Series series);
    void setDark(bool dark);
    /// False when the user wants to keep what is not saved.
    bool mayDiscard();
    /// \param known checksum of the file that may go without a question; any when there is none
    bool write(const QString& path, const std::optional<std::string>& known);
    /// Asks what is to become of a file that another program has saved meanwhile.
    bool writeOverChanged(const QString& path);
    void rememberRecent(const QString& path);
    void fillRecent();
    void autosave();
    QString autosaveFile();
    void offerAutosave();
    void restorePlace();
    void savePlace();
    QStringList circlesFromUser(const QString& title, const QString& label, const QString& present);
    /// What pictures, copies and prints show: chart and plots side by side.
    void paintAll(QPainter& painter, QSize size);
    void say(const QString& text) { message_(text); }
    /// The project as it is on the screen, snapshots included.
    Project present() const;
    /// A project as a document, its data known from here on.
    NetworkDocument takeOver(Project project);

    DesignHost& host_;
    NetworkModel model_;
    QString file_;
    Project project_;  ///< as read: keys of others
    DataFiles data_;
    MessageSink message_;
    QSplitter* split_ = nullptr;
    QSplitter* right_ = nullptr;
    SmithView* chart_ = nullptr;
    LadderPanel* ladder_ = nullptr;
    SliderPanel* sliders_ = nullptr;
    std::vector<SweepView*> plots_;
    LimitWatch* limit_ = nullptr;
    QTableWidget* snapshots_ = nullptr;
    NetworkExportWindow* export_ = nullptr;  ///< once it was asked for
    QLineEdit* frequency_ = nullptr;
    QLineEdit* bands_ = nullptr;
    QLabel* problem_ = nullptr;
    QLabel* dataNotes_ = nullptr;
    std::size_t toldWarnings_ = 0;  ///< of those that reading data gave
    QAction* undo_ = nullptr;
    QAction* redo_ = nullptr;
    QMenu* recent_ = nullptr;
    QTimer* autosaveTimer_ = nullptr;
    std::unique_ptr<QLockFile> autosaveLock_;
    int autosaveSlot_ = 0;
    bool offered_ = false;  ///< what a crash left behind, once a run
};

/// The measured data of network, snapshots and ghost, each once.
std::vector<std::shared_ptr<const PortData>> DataOf(const NetworkDocument& document);

/// "70M:130M, 400M:410M"; a failure names what cannot be read.
Result<std::vector<FrequencyBand>> ParseBands(const std::string& text);
std::string BandsText(const std::vector<FrequencyBand>& bands);

}  // namespace kelvro
