#pragma once

#include <QElapsedTimer>
#include <QMainWindow>
#include <optional>

#include "core/history.h"
#include "plot/frame_painter.h"
#include "plot/picture_files.h"
#include "plot/response_picture.h"
#include "plot/scatter.h"
#include "plot/view_edit.h"
#include "ui/plot/design_host.h"

class QLabel;
class QMenu;
class QPrinter;
class QToolBar;
class QToolButton;

namespace kelvro {

class MarkerPanel;
class PlotImage;

/// What the gain and the phase window share: the picture of one response, the commands that change
/// its view, reading and editing with the mouse and the keys, saving, copying and printing.
class PlotForm : public QMainWindow {
    Q_OBJECT

  public:
    const View& view() const { return plot_.view; }
    /// The traces shown, the leading one first.
    const TraceList& traces() const { return plot_.traces; }

    /// Fills a page with the picture as it stands.
    void print(QPrinter& printer);

  public slots:
    void FormShow();
    void FormResize() { redraw(); }

    void Vergroessern1Click();
    void VergroessernButtonClick() { Vergroessern1Click(); }
    void Verkleinern1Click();
    void VerkleinernButtonClick() { Verkleinern1Click(); }
    void Standardgroesse1Click();
    void StandardgrButtonClick() { Standardgroesse1Click(); }

    void Autoskalierung1Click();
    void AutoskButtonClick() { Autoskalierung1Click(); }
    void xAutoskalierung1Click();
    void yAutoskalierung1Click();
    void xlog1Click();
    void xlogButtonClick() { xlog1Click(); }
    void Ursprungfestlegen1Click();
    void ZoomInButtonClick();
    void ZoomOutButtonClick();
    /// Back to the view with which the window opens for the present design; from there on the
    /// frequencies follow fo until they are changed.
    void Home1Click();
    void UndoView1Click();
    void RedoView1Click();
    void AxisLimits1Click();
    void DotButtonClick();
    /// Shows a trace beside the leading one, or no more. One that needs the right axis for itself
    /// takes the place of those that had it.
    void showTrace(const Trace& trace, bool shown);

    void ImageMouseMove(QMouseEvent* event);
    void ImageMouseDown(QMouseEvent* event);
    void ImageMouseUp(QMouseEvent* event);
    /// Sets a marker, or removes the one that is there.
    void ImageDoubleClick(QMouseEvent* event);
    /// Zooms at the mouse: Ctrl or over the x labels only x, Shift or over the y labels only y.
    void ImageMouseWheel(QWheelEvent* event);
    /// Left, Right (with Shift by ten stops), Ctrl+Home and End move the reading along the curve
    /// from fo on, Up moves it to the peak; Ctrl and arrows pan; Escape ends a drag or the reading.
    void ImageKeyDown(QKeyEvent* event);

    void Marker1Click();
    void DeleteMarker1Click();
    void DeleteMarkers1Click();
    void Hold1Click();
    void Release1Click();

    /// Each run draws a grey curve of parts within their tolerances over the picture, until the
    /// next redraw or, when runs are kept, for as long as they are.
    void SpeedButtonMCClick() { runMonteCarlo(1); }
    void SpeedButtonMC10Click() { runMonteCarlo(10); }
    void SpeedButtonMC100Click() { runMonteCarlo(100); }
    void KeepRuns1Click();
    void Envelope1Click();
    void Seed1Click();
    void ClearRuns1Click();

    void Save1Click();
    void SaveWMF1Click();
    void SaveasJPEG1Click();
    void SaveasGIF1Click();
    void SaveasPNG1Click();
    void SaveasSVG1Click();
    void SaveasPDF1Click();
    void SaveasTable1Click();
    void SaveasCSV1Click();
    void Copy1Click();
    void Print1Click();

  protected:
    struct Texts {
        PlotWindow window;
        QString objectName;
        QString caption;
        QString bitmapFilter;
        QString metafileFilter;
    };
    PlotForm(DesignHost& host, const Texts& texts, const Trace& leading, QWidget* parent);

    DesignHost& host() { return host_; }
    PlotImage& image() { return *image_; }
    const Trace& leading() const { return *plot_.traces.front(); }
    /// Of the leading trace.
    const Samples& samples() const { return samples_.front(); }
    QToolBar& toolBar() { return *toolBar_; }
    /// Puts a trace of the same axis in the place of the leading one; takes effect with the next
    /// redraw.
    void setLeading(const Trace& trace);
    /// Another trace leads than the window's buttons have asked for.
    virtual void leadingChanged() {}

    /// Takes the view, publishes it and draws; no step to take back.
    void setView(const View& view);
    /// The same as a step that can be taken back, under its name; steps of the same key that
    /// follow each other are one.
    void editView(const View& view, const char* step, const char* key = "");
    /// Samples the response and draws; runs drawn over the picture are gone.
    void redraw();
    void buildMonteCarloButtons();

    QToolButton* addToolButton(const QString& name, const char* icon, const QString& hint);

    void showEvent(QShowEvent* event) override;

  private:
    void buildToolBar();
    void buildMenus();
    void fillTraceMenu(QMenu& menu);
    void designChanged();
    void setTraces(TraceList traces);
    void showView();
    void showUndoState();
    void showLogState();
    void showTraceState();
    PlotChoices choices() const;
    /// Shows what the settings say.
    void takeChoices();
    void keepChoices();
    void resizeTo(PixelSize size);
    std::optional<double> askValue(const ValueEdit& edit, Zone zone, QPoint at);
    void editEnd(Zone zone, QPoint at);
    void zoomAll(double factor);
    void showReadOut(WorldPoint place);
    void moveCursor(Zone zone, bool inside);
    void pan(QPoint to);
    void endPan();
    bool panByKey(int key);
    void moveReading(std::ptrdiff_t stop);
    WorldPoint zoomCentre() const;
    void stopReading();
    void cancelDrag();

    void compose();
    void runMonteCarlo(int runs);
    void addRun(const Design& varied);
    void redrawScatter();
    void updateEnvelope();
    void showYield();

    double markedFrequency() const;
    void addMarker(double f);
    std::optional<std::size_t> markerUnder(QPointF at) const;
    void dragMarker(QPointF to);
    void showMarkers();

    struct SaveDialog {
        QString name;
        QString filter;  ///< "caption|pattern"
        QString suffix;
        QString startName;
    };
    QString askFileName(const SaveDialog& asked);
    /// Asks for a name and writes the picture; the name when it was written, else empty.
    QString savePicture(const SaveDialog& asked, PictureFormat format);
    bool mayReplace(const QString& path);
    /// A picture to be saved or printed.
    struct Sheet {
        Picture picture;
        QSize size;
        FramePainter frame;
        /// Valid as long as the sheet stands.
        Drawing drawing() const;
    };
    Sheet sheetFor(bool paper) const;
    std::string shownNumbers(char separator) const;

    DesignHost& host_;
    const Texts texts_;
    ResponsePlot plot_;
    std::vector<Samples> samples_;  ///< of each trace
    History<View> views_;
    View home_;  ///< with which the window would open for the design that is drawn

    PlotImage* image_;
    QToolBar* toolBar_;
    QLabel* status_;
    QLabel* yield_;
    MarkerPanel* markerPanel_;

    Picture base_;  ///< without what the runs have drawn
    Scatter scatter_;
    std::vector<Curve> runCurves_;  ///< of the runs that are drawn
    int goodRuns_ = 0;              ///< of these, those that count for the yield
    std::optional<Envelope> envelope_;
    bool keepRuns_ = false;
    bool showEnvelope_ = false;
    std::optional<std::uint64_t> seed_;  ///< nothing: by the clock, another one each run

    std::optional<QPoint> dragStart_;
    struct Pan {
        QPoint start;
        Frame frame;
        bool moved = false;
    };
    std::optional<Pan> pan_;
    QElapsedTimer wheelPause_;
    QString lastBitmap_ = "GRAPH.BMP";
    QString lastMetafile_ = "GRAPH.WMF";
    std::optional<std::size_t> draggedMarker_;
    std::optional<double> mouseFrequency_;  ///< while the mouse is in the plot
    std::optional<double> reading_;         ///< frequency that the keys have reached
};

}  // namespace kelvro
