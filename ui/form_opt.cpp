#include "ui/form_opt.h"

#include <QAction>
#include <QCheckBox>
#include <QDesktopServices>
#include <QFileInfo>
#include <QGridLayout>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QScreen>
#include <QTabBar>
#include <QUrl>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "core/number_text.h"
#include "core/scalar.h"
#include "design/pages.h"
#include "ui/fields.h"
#include "ui/form_row.h"
#include "ui/plot/plot_image.h"
#include "ui/texts.h"

namespace kelvro {

namespace {

constexpr int kMostIterations = 199;
constexpr double kLargestGradientLimit = 1e3;
constexpr int kAddedMilliseconds = 55;  // one tick of the clock that the time is quoted in

/// Plots of the two tabs, from the first image to the third.
constexpr std::array<std::array<HistoryPlot, 3>, 2> kTabs = {
    {{HistoryPlot::Gradient, HistoryPlot::Function, HistoryPlot::ParameterChanges},
     {HistoryPlot::FunctionCalls, HistoryPlot::StepSize, HistoryPlot::Parameters}}};

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

QString Short(double value) {
    return Text(FormatEngShort(2, value)).trimmed();
}

}  // namespace

/// A check box bound to one shared setting.
struct TFormOpt::Option {
    const char* object;
    const char* caption;
    const char* hint;
    bool byDefault;
    bool defaultApplies;  ///< the Defaults button sets it
    std::function<bool(TFormOpt&)> read;
    std::function<void(TFormOpt&, bool)> write;
};

const std::vector<TFormOpt::Option>& TFormOpt::options() {
    const auto local = [](bool LocalOptions::*flag) {
        return std::pair{
            [flag](TFormOpt& form) { return form.optimizer_.settings.local.*flag; },
            [flag](TFormOpt& form, bool on) { form.optimizer_.settings.local.*flag = on; }};
    };
    const auto shared = [](bool OptimizerSettings::*flag) {
        return std::pair{[flag](TFormOpt& form) { return form.optimizer_.settings.*flag; },
                         [flag](TFormOpt& form, bool on) { form.optimizer_.settings.*flag = on; }};
    };
    const auto goal = [](bool GoalOptions::*flag) {
        return std::pair{
            [flag](TFormOpt& form) { return form.optimizer_.settings.goal.*flag; },
            [flag](TFormOpt& form, bool on) { form.optimizer_.settings.goal.*flag = on; }};
    };
    const auto gradient = [](GradientChoice choice) {
        return std::pair{
            [choice](TFormOpt& form) { return form.optimizer_.settings.local.gradient == choice; },
            [choice](TFormOpt& form, bool on) {
                form.optimizer_.settings.local.gradient = on ? choice : GradientChoice::Automatic;
            }};
    };
    const auto row = [](const char* object, const char* caption, const char* hint, bool byDefault,
                        auto access, bool defaultApplies = true) {
        return Option{object,         caption,      hint,         byDefault,
                      defaultApplies, access.first, access.second};
    };
    static const std::vector<Option> all = {
        row("CheckBoxForceSteepestDescent",
            QT_TRANSLATE_NOOP("kelvro", "Force steepest descent algorithm"),
            QT_TRANSLATE_NOOP("kelvro", "is quite slow"), false,
            local(&LocalOptions::steepestDescent)),
        row("CheckBoxForceNoOpt", QT_TRANSLATE_NOOP("kelvro", "Force no optimization"),
            QT_TRANSLATE_NOOP("kelvro", "Warning : leads too inaccurate parameters"), false,
            shared(&OptimizerSettings::disabled)),
        row("CheckBoxForceSingleOpt", QT_TRANSLATE_NOOP("kelvro", "Force single optimization run"),
            QT_TRANSLATE_NOOP(
                "kelvro",
                "Might be a bit unreliable, but is good to explore optimization algorithm."),
            true, shared(&OptimizerSettings::singleRun)),
        row("CheckBoxForceSingleSidedGrad",
            QT_TRANSLATE_NOOP("kelvro", "Force single-sided gradient calculation"),
            QT_TRANSLATE_NOOP("kelvro", "is a bit faster but less accurate"), false,
            gradient(GradientChoice::SingleSided)),
        row("CheckBoxDiffStartValues", QT_TRANSLATE_NOOP("kelvro", "Force different start values"),
            QT_TRANSLATE_NOOP("kelvro", "is a bit slow, but allows estimation for accuracy"), false,
            shared(&OptimizerSettings::differentStartValues)),
        row("CheckBoxForceDoubleSidedGrad",
            QT_TRANSLATE_NOOP("kelvro", "Force double-sided gradient calculation"),
            QT_TRANSLATE_NOOP("kelvro", "is a bit slower but most accurate"), false,
            gradient(GradientChoice::DoubleSided)),
        row("CheckBoxGradAna", QT_TRANSLATE_NOOP("kelvro", "Do gradient checks"),
            QT_TRANSLATE_NOOP("kelvro", "for performing internal accuracy analysis"), true,
            local(&LocalOptions::gradientChecks)),
        row("CheckBoxEnhStartMatrix", QT_TRANSLATE_NOOP("kelvro", "Use enhanced start matrix"),
            QT_TRANSLATE_NOOP("kelvro", "wo. using full Hessian, is sometimes a bit faster "),
            false, local(&LocalOptions::enhancedStartMatrix)),
        row("CheckBoxNoClampings", QT_TRANSLATE_NOOP("kelvro", "No parameter clampings"),
            QT_TRANSLATE_NOOP("kelvro",
                              "no clampings is sometimes faster, but might be less robust"),
            false, local(&LocalOptions::noClampings)),
        row("CheckBoxThorough", QT_TRANSLATE_NOOP("kelvro", "Thorough search for the lowest goal"),
            QT_TRANSLATE_NOOP("kelvro",
                              "looks everywhere; the design may end far from the calculated one"),
            false, local(&LocalOptions::thorough)),
        row("CheckBoxMaxNorm", QT_TRANSLATE_NOOP("kelvro", "Use max-norm"),
            QT_TRANSLATE_NOOP("kelvro", "worst point of the band counts, in case of Q<0.2"), false,
            goal(&GoalOptions::maxNorm)),
        row("CheckBoxNoise", QT_TRANSLATE_NOOP("kelvro", "Add numerical noise"),
            QT_TRANSLATE_NOOP("kelvro", "to study the optimizer with inaccurate goal functions"),
            false, goal(&GoalOptions::noise)),
        row("CheckBoxWritexls", QT_TRANSLATE_NOOP("kelvro", "Write csv"),
            QT_TRANSLATE_NOOP("kelvro", "save detailed optimization data to file"), false,
            shared(&OptimizerSettings::writeTable), false),
    };
    return all;
}

TFormOpt::TFormOpt(DesignHost& host, OptimizerServices& optimizer, const OptimizerFiles& files,
                   QWidget* parent)
    : QDialog(parent),
      host_(host),
      optimizer_(optimizer),
      files_(files),
      openFile_([](const QString& path) {
          return QDesktopServices::openUrl(QUrl::fromLocalFile(path));
      }) {
    setObjectName(QStringLiteral("TFormOpt"));
    setWindowTitle(tr("Optimization Setup and Evaluation"));
    auto* layout = new QVBoxLayout(this);
    auto* top = new QHBoxLayout;
    top->addWidget(settingsPanel());
    top->addWidget(evaluationPanel(), 1);
    layout->addLayout(top);
    layout->addWidget(historyPanel(), 1);
    layout->addWidget(buttonRow());
    addMenu();
    connect(&host_, &DesignHost::designChanged, this, [this] {
        if (!isVisible()) return;
        showEvaluation();
        showHistory();
    });
    showSettings();
    const QSize room = screen()->availableSize() - QSize(20, 60);  // less the window's frame
    resize(QSize(980, 700).boundedTo(room));
}

QWidget* TFormOpt::settingsPanel() {
    auto* box = new QGroupBox(tr("Setup"));
    auto* grid = new QGridLayout(box);
    int row = 0;
    for (const Option& option : options()) {
        auto* check = new QCheckBox(Shown(option.caption));
        check->setObjectName(QLatin1String(option.object));
        SetHint(*check, Shown(option.hint));
        connect(check, &QCheckBox::clicked, this,
                [this, &option](bool checked) { optionClicked(option, checked); });
        grid->addWidget(check, row / 2, row % 2);
        boxes_.push_back(check);
        ++row;
    }
    const auto edit = [&](const char* object, const QString& caption, const QString& hint, int at,
                          void (TFormOpt::*handler)()) {
        auto* line = new QLineEdit;
        line->setObjectName(QLatin1String(object));
        line->setMaximumWidth(90);
        auto* pair = new QGridLayout;
        AddRow(*pair, {0}, line, {caption, {}, hint});
        pair->setColumnStretch(2, 1);
        grid->addLayout(pair, row / 2 + 1, at);
        connect(line, &QLineEdit::textEdited, this, handler);
        return line;
    };
    itEingabe_ = edit("itEingabe", tr("Max. number of iterations"),
                      tr("Use 10, 20, 30, etc. if 2-step optimization  is enabled to support "
                         "reporting"),
                      0, &TFormOpt::itEingabeChange);
    gradEingabe_ = edit("GradEingabe", tr("Gradient limit"),
                        tr("The run ends when the gradient is shorter than this"), 1,
                        &TFormOpt::GradEingabeChange);
    return box;
}

QWidget* TFormOpt::evaluationPanel() {
    auto* box = new QGroupBox(tr("Evaluation"));
    auto* layout = new QVBoxLayout(box);
    const std::array<const char*, 6> objects = {"LabelIterations", "LabelTime",  "LabelCalls",
                                                "LabelCallsSplit", "LabelHours", "LabelGoal"};
    const std::array<const char*, 6> hints = {
        QT_TRANSLATE_NOOP("kelvro", "of the internal BFGS gradient optimizer"),
        "",
        "",
        "",
        QT_TRANSLATE_NOOP("kelvro",
                          "if we would run all simulations in a sequence (and not in parallel)"),
        QT_TRANSLATE_NOOP("kelvro", "the lower the better")};
    for (std::size_t i = 0; i < objects.size(); ++i) {
        evaluation_[i] = new QLabel;
        evaluation_[i]->setObjectName(QLatin1String(objects[i]));
        evaluation_[i]->setToolTip(Shown(hints[i]));
        evaluation_[i]->setWordWrap(true);
        evaluation_[i]->setTextInteractionFlags(Qt::TextSelectableByMouse);
    }
    layout->addWidget(evaluation_[0]);
    layout->addWidget(evaluation_[1]);
    layout->addWidget(evaluation_[2]);
    layout->addWidget(evaluation_[3]);
    auto* time = new QHBoxLayout;
    timeCaption_ = new QLabel(tr("Time:"));
    time->addWidget(timeCaption_, 0, Qt::AlignTop);
    time->addWidget(evaluation_[4], 1);
    layout->addLayout(time);
    QFont bold = evaluation_[5]->font();
    bold.setBold(true);
    evaluation_[5]->setFont(bold);
    layout->addWidget(evaluation_[5]);
    layout->addStretch();
    return box;
}

QWidget* TFormOpt::historyPanel() {
    auto* panel = new QWidget;
    auto* layout = new QVBoxLayout(panel);
    layout->setContentsMargins(0, 0, 0, 0);
    tabs_ = new QTabBar;
    tabs_->setObjectName(QStringLiteral("TabControlHistory"));
    tabs_->addTab(tr("Gradient - Function - Parameter Steps"));
    tabs_->addTab(tr("Function Calls - Step Size - Parameters"));
    connect(tabs_, &QTabBar::currentChanged, this, [this] { showHistory(); });
    layout->addWidget(tabs_);
    auto* grid = new QGridLayout;
    for (std::size_t i = 0; i < images_.size(); ++i) {
        const int column = static_cast<int>(i);
        images_[i] = new PlotImage;
        images_[i]->setObjectName(QStringLiteral("ImageHistory%1").arg(column + 1));
        readOuts_[i] = new QLabel(QStringLiteral(" "));
        readOuts_[i]->setObjectName(QStringLiteral("LabelHistory%1").arg(column + 1));
        grid->addWidget(images_[i], 0, column);
        grid->addWidget(readOuts_[i], 1, column);
        grid->setColumnStretch(column, 1);
        connect(images_[i], &PlotImage::mouseMoved, this,
                [this, i](QMouseEvent* event) { readOut(i, event->position()); });
    }
    grid->setRowStretch(0, 1);
    layout->addLayout(grid, 1);
    return panel;
}

QWidget* TFormOpt::buttonRow() {
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    const auto button = [&](const char* object, const QString& caption, const QString& hint,
                            void (TFormOpt::*handler)()) {
        auto* made = new QPushButton(caption);
        made->setObjectName(QLatin1String(object));
        made->setToolTip(hint);
        made->setAutoDefault(false);
        connect(made, &QPushButton::clicked, this, handler);
        layout->addWidget(made);
    };
    button("ButtonTrigger", tr("&Trigger"), tr("Restart optimization with current settings"),
           &TFormOpt::ButtonTriggerClick);
    button("ButtonHistory", tr("&History"), tr("Open the report of the last run"),
           &TFormOpt::ButtonHistoryClick);
    button("ButtonDefaults", tr("&Defaults"), tr("Reset all settings"),
           &TFormOpt::ButtonDefaultsClick);
    layout->addStretch();
    button("ButtonClose", tr("&Close"), tr("Close the window; the settings stay"),
           &TFormOpt::ButtonCloseClick);
    return row;
}

void TFormOpt::addMenu() {
    const auto action = [&](const char* object, const QString& caption, bool checked) {
        auto* made = new QAction(caption, this);
        made->setObjectName(QLatin1String(object));
        made->setCheckable(true);
        made->setChecked(checked);
        connect(made, &QAction::toggled, this, [this] { showHistory(); });
        for (PlotImage* image : images_) image->addAction(made);
        return made;
    };
    showLabels_ = action("Togglelabelxyvisibility1", tr("Toggle label xy visibility"), true);
    showDx_ = action("Toggledxoutput1", tr("Toggle dx output"), true);
    logarithmic_ = action("Togglelinlog1", tr("Toggle lin/log for y in t graph"), false);
    for (PlotImage* image : images_) image->setContextMenuPolicy(Qt::ActionsContextMenu);
}

void TFormOpt::optionClicked(const Option& option, bool checked) {
    option.write(*this, checked);
    showSettings();  // the two gradient options exclude each other
}

void TFormOpt::itEingabeChange() {
    const int iterations = static_cast<int>(
        Clamp(std::trunc(ParseValue(itEingabe_->text().toStdString())), 1, kMostIterations));
    optimizer_.settings.local.maxIterations = iterations;
}

void TFormOpt::GradEingabeChange() {
    optimizer_.settings.local.gradientLimit =
        Clamp(ParseValue(gradEingabe_->text().toStdString()), 0, kLargestGradientLimit);
}

void TFormOpt::ButtonTriggerClick() {
    host_.recalculate();
    FormShow();
}

void TFormOpt::ButtonDefaultsClick() {
    for (const Option& option : options()) {
        if (option.defaultApplies) option.write(*this, option.byDefault);
    }
    // Both gradient options write the same choice; neither of them is the default.
    optimizer_.settings.local.gradient = GradientChoice::Automatic;
    optimizer_.settings.local.maxIterations = LocalOptions{}.maxIterations;
    optimizer_.settings.local.gradientLimit = LocalOptions{}.gradientLimit;
    showSettings();
}

void TFormOpt::ButtonHistoryClick() {
    const QString table = Text(files_.table);
    const QString log = Text(files_.log);
    if (QFileInfo(table).isFile()) openFile_(QFileInfo(table).absoluteFilePath());
    if (!QFileInfo(log).isFile()) {
        host_.showMessage(tr("History file does not exist."));
    } else if (!openFile_(QFileInfo(log).absoluteFilePath())) {
        host_.showMessage(tr("No program is set up to open %1.").arg(log));
    }
}

void TFormOpt::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    FormShow();
}

void TFormOpt::FormShow() {
    showSettings();
    showEvaluation();
    showHistory();
    const OptimizerSettings& settings = optimizer_.settings;
    if (!settings.singleRun && settings.local.maxIterations % 10 != 0) {
        host_.showMessage(
            tr("Better use 20, 30, 40, etc. to support reporting on 2nd optimization run."));
    }
}

void TFormOpt::showSettings() {
    for (std::size_t i = 0; i < boxes_.size(); ++i) {
        boxes_[i]->setChecked(options()[i].read(*this));
    }
    itEingabe_->setText(QStringLiteral(" %1").arg(optimizer_.settings.local.maxIterations));
    gradEingabe_->setText(' ' + Text(FormatEng(5, 1, optimizer_.settings.local.gradientLimit)));
}

/// A page without optimizer, and a design that is refused, leave the run of another one behind.
const PageOptimization* TFormOpt::run() const {
    const PageOptimization& last = optimizer_.last();
    const bool ofThis = last.page == host_.design().page && !host_.result().message;
    const bool ran = last.status != PageOptimization::Status::NotRun;
    return ofThis && ran ? &last : nullptr;
}

QString TFormOpt::whyNoRun() const {
    const Page& page = PageOf(host_.design());
    if (page.goal.moved == nullptr && page.goal.testParameters == 0) {
        return tr("This page has nothing to optimize.");
    }
    if (host_.result().message) return tr("The design is refused: there was nothing to optimize.");
    if (optimizer_.settings.disabled) return tr("Optimization is switched off.");
    return tr("No optimization has been run.");
}

void TFormOpt::showEvaluation() {
    const PageOptimization& last = optimizer_.last();
    const CallCounts calls = last.calls;
    const int line = calls.of(CallKind::LineSearch);
    const int gradient = calls.of(CallKind::Gradient);
    for (QLabel* label : evaluation_) label->clear();
    timeCaption_->setVisible(run() != nullptr);
    if (run() == nullptr) return evaluation_[0]->setText(whyNoRun());
    evaluation_[0]->setText(tr("Actually used iterations : %1").arg(last.iterations()));
    evaluation_[1]->setText(tr("Total optimization time : %1ms")
                                .arg(std::lround(last.milliseconds) + kAddedMilliseconds));
    evaluation_[2]->setText(tr("Total number of function calls : %1").arg(line + gradient));
    evaluation_[3]->setText(tr("(%1 in line search and %2 in gradient)").arg(line).arg(gradient));
    evaluation_[4]->setText(
        tr("If one simulation takes one minute, then the optimization would take %1hours.")
            .arg(Text(FormatFixed(0, 1, (line + gradient) / 60.0))));
    evaluation_[5]->setText(
        tr("Achieved goal function : %1").arg(Text(FormatFixed(0, 6, last.achievedGoal))));
}

void TFormOpt::showHistory() {
    history_ = run() ? JoinedHistory(*run()) : std::vector<HistoryPoint>();
    for (QLabel* label : readOuts_) label->setText(QStringLiteral(" "));
    const HistoryStyle style{showLabels_->isChecked(), !showDx_->isChecked(),
                             logarithmic_->isChecked()};
    const auto& plots = kTabs[static_cast<std::size_t>(tabs_->currentIndex() == 1)];
    for (std::size_t i = 0; i < images_.size(); ++i) {
        Picture picture = HistoryPicture(plots[i], history_, style);
        if (history_.empty()) picture.note = tr("no run").toStdString();
        images_[i]->setPicture(std::move(picture));
    }
}

void TFormOpt::readOut(std::size_t image, QPointF position) {
    if (history_.empty()) return;
    const WorldPoint at = images_[image]->frame().toWorld(position.x(), position.y());
    const auto last = static_cast<double>(history_.size() - 1);
    const HistoryPoint& point =
        history_[static_cast<std::size_t>(std::lround(std::clamp(at.x, 0.0, last)))];
    QString text = QStringLiteral("i=%1").arg(point.iteration);
    if (image == 0) {
        text += QStringLiteral(", |g|=%1, calls=%2").arg(Short(point.gradient)).arg(point.calls);
    } else if (image == 1) {
        text += QStringLiteral(", f-fmin=%1, t=%2").arg(Short(point.excess), Short(point.t));
    } else if (!point.x.empty()) {
        // The parameter whose curve runs nearest below the cursor.
        const auto& curves = images_[image]->picture().curves;
        std::size_t nearest = 0;
        const auto distance = [&](std::size_t i) {
            return std::fabs(curves[i].y[static_cast<std::size_t>(point.iteration)] - at.y);
        };
        for (std::size_t i = 1; i < curves.size(); ++i) {
            if (distance(i) < distance(nearest)) nearest = i;
        }
        const auto& changes = showDx_->isChecked() ? point.toFinal : point.toNext;
        text +=
            QStringLiteral(", dx=%1, x=%2").arg(Short(changes[nearest]), Short(point.x[nearest]));
    }
    readOuts_[image]->setText(text);
}

}  // namespace kelvro
