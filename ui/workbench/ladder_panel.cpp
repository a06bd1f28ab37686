#include "ui/workbench/ladder_panel.h"

#include <QAction>
#include <QHBoxLayout>
#include <QInputDialog>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QPainter>
#include <QPushButton>
#include <QSignalBlocker>
#include <QToolButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "core/number_text.h"
#include "plot/smith_picture.h"
#include "ui/fields.h"
#include "ui/workbench/ladder_picture.h"
#include "ui/workbench/part_losses.h"
#include "ui/workbench/smith_view.h"

namespace kelvro {

namespace {

constexpr int kShownDigits = 5;  // of values in lists; the field being edited shows them all

QIcon ColourIcon(std::size_t element, bool dark) {
    const Rgb colour = ElementColour(element, dark);
    QPixmap pixmap(12, 12);
    pixmap.fill(QColor(colour.red, colour.green, colour.blue));
    return pixmap;
}

QString Text(const std::string& text) {
    return QString::fromStdString(text);
}

/// What the buttons add: values of a useful size at the frequency and resistance at hand.
struct NewElement {
    const char* object;
    const char* caption;
    const char* hint;
    LadderElement (*make)(double f, double R);
};

double Henry(double f, double R) {
    return R / (6.283185307179586 * f);
}
double Farad(double f, double R) {
    return 1 / (6.283185307179586 * f * R);
}
LadderElement LineOf(Line::Form form, double f, double R) {
    Line line;
    line.form = form;
    line.Z0 = R;
    line.length = {form == Line::Form::Through ? 90.0 : 45.0, f, 0, 1};
    return {line, {}};
}

const std::array kNewElements = {
    NewElement{"ButtonSeriesL", "Series L", "Add an inductor in series",
               [](double f, double R) { return SeriesArm(Part::L(Henry(f, R))); }},
    NewElement{"ButtonSeriesC", "Series C", "Add a capacitor in series",
               [](double f, double R) { return SeriesArm(Part::C(Farad(f, R))); }},
    NewElement{"ButtonShuntL", "Shunt L", "Add an inductor across the line",
               [](double f, double R) { return ShuntArm(Part::L(Henry(f, R))); }},
    NewElement{"ButtonShuntC", "Shunt C", "Add a capacitor across the line",
               [](double f, double R) { return ShuntArm(Part::C(Farad(f, R))); }},
    NewElement{"ButtonSeriesR", "Series R", "Add a resistor in series",
               [](double, double R) { return SeriesArm(Part::R(R)); }},
    NewElement{"ButtonShuntR", "Shunt R", "Add a resistor across the line",
               [](double, double R) { return ShuntArm(Part::R(R)); }},
    NewElement{"ButtonLine", "Line", "Add a line, a quarter wave long",
               [](double f, double R) { return LineOf(Line::Form::Through, f, R); }},
    NewElement{"ButtonOpenStub", "Open stub", "Add an open stub across the line",
               [](double f, double R) { return LineOf(Line::Form::OpenStub, f, R); }},
    NewElement{"ButtonShortStub", "Shorted stub", "Add a shorted stub across the line",
               [](double f, double R) { return LineOf(Line::Form::ShortedStub, f, R); }},
    NewElement{"ButtonTransformer", "Transformer", "Add an ideal transformer",
               [](double, double) {
                   return LadderElement{Transformer{2}, {}};
               }},
};

/// Percent of "5" or "5 %", 0 of an empty text.
Result<double> ToleranceFrom(const QString& text) {
    if (text.trimmed().isEmpty()) return 0.0;
    const auto read = ParseImpedance("R=1(tol=" + text.toStdString() + ')');
    if (!read) return Status::Failure("Expected percent, above 0 and below 100");
    return std::get<Part>(read->is).tolerance;
}

}  // namespace

// ---------------------------------------------------------------- the list

LadderPanel::LadderPanel(NetworkModel& model, DataLoader load, QWidget* parent)
    : QWidget(parent),
      model_(model),
      load_(std::move(load)),
      picture_(new LadderPicture(model)),
      list_(new QListWidget) {
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addWidget(picture_);
    connect(picture_, &LadderPicture::chosen, list_,
            [this](int row) { list_->setCurrentRow(row); });
    connect(picture_, &LadderPicture::moved, this, &LadderPanel::moveElement);
    connect(picture_, &LadderPicture::editWanted, this,
            [this](int row) { list_->editItem(list_->item(row)); });
    connect(picture_, &LadderPicture::menuWanted, this, &LadderPanel::showMenu);
    list_->setObjectName(QStringLiteral("LadderList"));
    list_->setAccessibleName(tr("Elements from source to load"));
    list_->setDragDropMode(QAbstractItemView::InternalMove);
    list_->setEditTriggers(QAbstractItemView::DoubleClicked | QAbstractItemView::EditKeyPressed |
                           QAbstractItemView::AnyKeyPressed);
    list_->setContextMenuPolicy(Qt::CustomContextMenu);
    SetHint(*list_, tr("Elements from source to load; type to change one, Del deletes, Ctrl+Up and "
                       "Ctrl+Down move, the right button offers more"));
    list_->installEventFilter(this);
    column->addWidget(list_, 1);
    buildButtons(*column);
    connect(list_, &QListWidget::itemChanged, this, &LadderPanel::itemEdited);
    connect(list_, &QListWidget::currentRowChanged, this, &LadderPanel::rowChosen);
    connect(list_, &QListWidget::customContextMenuRequested, this, [this](QPoint at) {
        showMenu(list_->row(list_->itemAt(at)), list_->viewport()->mapToGlobal(at));
    });
    // The list has moved its row when the model hears of it; only then its order can be read.
    connect(list_->model(), &QAbstractItemModel::rowsMoved, this, &LadderPanel::rowsMoved,
            Qt::QueuedConnection);
    connect(&model_, &NetworkModel::changed, this, &LadderPanel::showModel);
    connect(&model_, &NetworkModel::selectionChanged, this, &LadderPanel::followSelection);
    showModel();
}

void LadderPanel::buildButtons(QBoxLayout& column) {
    auto* row = new QHBoxLayout;
    auto* add = new QToolButton;
    add->setObjectName(QStringLiteral("ButtonAddElement"));
    add->setText(tr("&Add"));
    add->setPopupMode(QToolButton::InstantPopup);
    SetHint(*add, tr("Add an element behind the chosen one, towards the load"));
    auto* menu = new QMenu(add);
    for (const NewElement& entry : kNewElements) {
        auto* action = menu->addAction(tr(entry.caption));
        action->setObjectName(QLatin1String(entry.object));
        action->setToolTip(tr(entry.hint));
        connect(action, &QAction::triggered, this, [this, &entry] {
            const double f = model_.designFrequency();
            const double R = std::abs(impedance(model_.network().source, f));
            addElement(entry.make(f, R > 0 && std::isfinite(R) ? R : 50));
        });
    }
    add->setMenu(menu);
    row->addWidget(add);
    const auto button = [&](const char* object, const QString& caption, const QString& hint,
                            auto&& slot) {
        auto* made = new QToolButton;
        made->setObjectName(QLatin1String(object));
        made->setText(caption);
        SetHint(*made, hint);
        connect(made, &QToolButton::clicked, this, slot);
        row->addWidget(made);
    };
    button("ButtonDeleteElement", tr("Delete"), tr("Delete the chosen element (Del)"),
           [this] { removeCurrent(); });
    button("ButtonElementUp", tr("Up"), tr("Move towards the source (Ctrl+Up)"),
           [this] { moveCurrent(-1); });
    button("ButtonElementDown", tr("Down"), tr("Move towards the load (Ctrl+Down)"),
           [this] { moveCurrent(1); });
    row->addStretch();
    column.addLayout(row);
}

int LadderPanel::current() const {
    return list_->currentRow();
}

void LadderPanel::showModel() {
    filling_ = true;
    const auto& ladder = model_.network().ladder;
    const int row = list_->currentRow();
    const QSignalBlocker blocker(list_);
    while (list_->count() > static_cast<int>(ladder.size())) delete list_->takeItem(0);
    const bool dark = palette().color(QPalette::Base).lightness() < 128;
    for (std::size_t i = 0; i < ladder.size(); ++i) {
        auto* item = list_->item(static_cast<int>(i));
        if (!item) {
            item = new QListWidgetItem(list_);
            item->setFlags(item->flags() | Qt::ItemIsEditable);
            item->setFlags(item->flags() & ~Qt::ItemIsDropEnabled);
        }
        item->setText(Text(ElementText(ladder[i], kShownDigits)));
        item->setIcon(ColourIcon(i, dark));
        // Where the element stands, so that a drop tells the new order.
        item->setData(Qt::UserRole, static_cast<int>(i));
    }
    if (row >= 0) list_->setCurrentRow(std::min(row, list_->count() - 1));
    picture_->mark(list_->currentRow());
    filling_ = false;
}

void LadderPanel::followSelection() {
    const auto& at = model_.selected();
    if (!at) return;
    const QSignalBlocker blocker(list_);
    list_->setCurrentRow(static_cast<int>(at->element));
    picture_->mark(list_->currentRow());
}

void LadderPanel::rowChosen(int row) {
    if (filling_ || row < 0) return;
    picture_->mark(row);
    const auto all = TunablesOf(model_.network().ladder);
    const auto first = std::ranges::find_if(
        all, [row](const Tunable& at) { return static_cast<int>(at.element) == row; });
    if (first != all.end() && (!model_.selected() || model_.selected()->element != first->element))
        model_.select(*first);
}

void LadderPanel::itemEdited(QListWidgetItem* item) {
    if (filling_) return;
    const auto index = static_cast<std::size_t>(item->data(Qt::UserRole).toInt());
    auto read = ParseElement(item->text().toStdString(), load_);
    emit problem(read.ok() ? QString()
                           : item->text() + QStringLiteral(": ") + Text(read.message()));
    if (read)
        editElement(tr("Edit element %1").arg(index + 1), index,
                    [&](LadderElement& element) { element = std::move(read).value(); });
    showModel();
}

void LadderPanel::rowsMoved() {
    std::vector<std::size_t> order;
    order.reserve(static_cast<std::size_t>(list_->count()));
    for (int i = 0; i < list_->count(); ++i)
        order.push_back(static_cast<std::size_t>(list_->item(i)->data(Qt::UserRole).toInt()));
    model_.edit(tr("Move element"), [&](Network& network) {
        std::vector<LadderElement> ladder;
        ladder.reserve(order.size());
        for (const std::size_t from : order) ladder.push_back(network.ladder.at(from));
        network.ladder = std::move(ladder);
    });
    showModel();
}

void LadderPanel::editElement(const QString& name, std::size_t index,
                              const std::function<void(LadderElement&)>& change) {
    model_.edit(name, [&](Network& network) {
        if (index < network.ladder.size()) change(network.ladder[index]);
    });
}

void LadderPanel::addElement(const LadderElement& element) {
    const int row =
        current() < 0 ? static_cast<int>(model_.network().ladder.size()) : current() + 1;
    model_.edit(tr("Add element"), [&](Network& network) {
        network.ladder.insert(network.ladder.begin() + row, element);
    });
    list_->setCurrentRow(row);
    list_->setFocus();
}

void LadderPanel::removeCurrent() {
    const int row = current();
    if (row < 0) return;
    model_.edit(tr("Delete element"),
                [row](Network& network) { network.ladder.erase(network.ladder.begin() + row); });
}

void LadderPanel::moveCurrent(int step) {
    const int row = current();
    const int to = row + step;
    if (row < 0 || to < 0 || to >= list_->count()) return;
    moveElement(row, to);
}

void LadderPanel::moveElement(int from, int to) {
    model_.edit(tr("Move element"), [=](Network& network) {
        const auto first = network.ladder.begin();
        if (from < to) {
            std::rotate(first + from, first + from + 1, first + to + 1);
        } else {
            std::rotate(first + to, first + from, first + from + 1);
        }
    });
    list_->setCurrentRow(to);
}

bool LadderPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool control = key->modifiers() == Qt::ControlModifier;
    if (key->key() == Qt::Key_Delete) {
        removeCurrent();
    } else if (key->key() == Qt::Key_Insert) {
        findChild<QToolButton*>(QStringLiteral("ButtonAddElement"))->showMenu();
    } else if (key->key() == Qt::Key_Menu && list_->currentItem()) {
        const QPoint at = list_->visualItemRect(list_->currentItem()).center();
        showMenu(list_->currentRow(), list_->viewport()->mapToGlobal(at));
    } else if (control && key->key() == Qt::Key_Up) {
        moveCurrent(-1);
    } else if (control && key->key() == Qt::Key_Down) {
        moveCurrent(1);
    } else {
        return QWidget::eventFilter(watched, event);
    }
    return true;
}

// ---------------------------------------------------------------- the right button

void LadderPanel::showMenu(int row, QPoint global) {
    if (row < 0) return;
    const auto index = static_cast<std::size_t>(row);
    QMenu menu(this);
    menu.setObjectName(QStringLiteral("ElementMenu"));
    if (const auto* arm = std::get_if<Arm>(&model_.network().ladder[index].is)) {
        const bool series = arm->place == Place::Series;
        menu.addAction(series ? tr("Put &across") : tr("Put in &series"), this, [=, this] {
            editElement(tr("Place of element %1").arg(row + 1), index, [=](LadderElement& element) {
                std::get<Arm>(element.is).place = series ? Place::Shunt : Place::Series;
            });
        });
    }
    for (const Tunable& tunable : TunablesOf(model_.network().ladder))
        if (tunable.element == index) addPartActions(menu, tunable);
    menu.addSeparator();
    menu.addAction(tr("&Delete"), this, [this] { removeCurrent(); });
    menu.exec(global);
}

void LadderPanel::addPartActions(QMenu& menu, const Tunable& at) {
    const auto& ladder = model_.network().ladder;
    const Part* part = PartAt(ladder, at);
    QMenu* own = menu.addMenu(Text(NameOf(ladder, at)));
    QAction* lock = own->addAction(tr("&Locked for refining"));
    lock->setCheckable(true);
    lock->setChecked(model_.locked(at));
    connect(lock, &QAction::triggered, this, [=, this](bool on) { model_.setLocked(at, on); });
    if (CanHaveTolerance(at))
        own->addAction(tr("&Tolerance…"), this, [=, this] { askForTolerance(at); });
    if (!part) return;
    const double value = part->value;
    const auto set = [=, this](double next) { model_.setValue(at, next); };
    own->addAction(tr("&Nearest standard value"), this,
                   [=, this] { set(NearestOfSeries(series_, value)); });
    own->addAction(tr("Standard value &above"), this,
                   [=, this] { set(SeriesStep(series_, value, 1)); });
    own->addAction(tr("Standard value &below"), this,
                   [=, this] { set(SeriesStep(series_, value, -1)); });
    own->addSeparator();
    for (const PartKind kind : {PartKind::Inductor, PartKind::Capacitor, PartKind::Resistor}) {
        if (kind == part->kind) continue;
        const double f = model_.designFrequency();
        const double X = std::abs(impedance(*part, f));
        own->addAction(tr("Make it %1").arg(QChar::fromLatin1(LetterOf(kind))), this, [=, this] {
            // The reactance stays in size.
            const Part other = kind == PartKind::Inductor    ? Part::L(Henry(f, X))
                               : kind == PartKind::Capacitor ? Part::C(Farad(f, X))
                                                             : Part::R(X);
            model_.edit(tr("Kind of part"),
                        [&](Network& network) { ReplacePart(network.ladder, at, other); });
        });
    }
    if (part->kind != PartKind::Resistor)
        own->addAction(tr("&Losses…"), this, [=, this] { askForLoss(at); });
}

void LadderPanel::askForLoss(const Tunable& at) {
    const Part present = *PartAt(model_.network().ladder, at);
    ask(tr("Losses of %1").arg(Text(NameOf(model_.network().ladder, at))),
        tr("Q at a frequency, series resistance, self-resonance; empty for none:\n"
           "Q=40@100M, law=f, ESR=0.1, SRF=3G"),
        LossText(present), [&](const QString& text) {
            const auto lossy = WithLosses(present, text);
            if (lossy)
                model_.edit(tr("Losses of part"),
                            [&](Network& network) { ReplacePart(network.ladder, at, *lossy); });
            return lossy.status();
        });
}

void LadderPanel::askForTolerance(const Tunable& at) {
    const double present = ToleranceOf(model_.network().ladder, at);
    const QString name = Text(NameOf(model_.network().ladder, at));
    ask(tr("Tolerance of %1").arg(name),
        tr("± percent; empty: as all of its kind have it in Yield and Centring"),
        present > 0 ? Text(FormatShortest(present)) : QString(), [&](const QString& text) {
            const auto percent = ToleranceFrom(text);
            if (percent)
                model_.edit(tr("Tolerance of %1").arg(name),
                            [&](Network& network) { SetTolerance(network.ladder, at, *percent); });
            return percent.status();
        });
}

void LadderPanel::ask(const QString& title, const QString& label, QString text,
                      const std::function<Status(const QString&)>& take) {
    QString why;
    bool given = true;
    while (true) {
        text = QInputDialog::getText(this, title,
                                     label + (why.isEmpty() ? why : QStringLiteral("\n\n") + why),
                                     QLineEdit::Normal, text, &given);
        if (!given) return;
        const Status taken = take(text);
        if (taken) return;
        why = Text(taken.message());
    }
}

}  // namespace kelvro
