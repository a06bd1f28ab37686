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

#include "core/number_text.h"
#include "plot/smith_picture.h"
#include "ui/fields.h"
#include "ui/texts.h"
#include "ui/workbench/element_palette.h"
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
    column->setSpacing(2);
    auto* palette = new ElementPalette;
    connect(palette, &ElementPalette::chosen, this, &LadderPanel::addKind);
    connect(palette, &ElementPalette::dragged, picture_,
            qOverload<const ElementKind&>(&LadderPicture::carry));
    column->addWidget(palette);
    column->addWidget(picture_);
    connect(picture_, &LadderPicture::chosen, list_,
            [this](int row) { list_->setCurrentRow(row); });
    connect(picture_, &LadderPicture::dropped, this, &LadderPanel::takeDropped);
    connect(picture_, &LadderPicture::kindDropped, this, &LadderPanel::takeKind);
    connect(picture_, &LadderPicture::thrownAway, this, &LadderPanel::removeElement);
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
    for (const ElementKind& kind : ElementKinds()) {
        auto* action = menu->addAction(Shown(kind.caption));
        action->setObjectName(QLatin1String(kind.object));
        action->setToolTip(Shown(kind.hint));
        connect(action, &QAction::triggered, this, [this, &kind] { addKind(kind); });
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
        return made;
    };
    picture_->setBin(button("ButtonDeleteElement", tr("Delete"),
                            tr("Delete the chosen element (Del), or the one that is dropped here"),
                            [this] { removeElement(current()); }));
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
                           : item->text() + QStringLiteral(": ") + Shown(read.message()));
    if (read)
        editElement(tr("Edit element %1").arg(index + 1), index,
                    [&](LadderElement& element) { element = std::move(read).value(); });
    showModel();
}

void LadderPanel::rowsMoved() {
    const auto before = model_.placed();
    std::vector<PlacedElement> ladder;
    ladder.reserve(before.size());
    for (int i = 0; i < list_->count(); ++i)
        ladder.push_back(
            before.at(static_cast<std::size_t>(list_->item(i)->data(Qt::UserRole).toInt())));
    model_.arrange(tr("Move element"), ladder);
    showModel();
}

void LadderPanel::editElement(const QString& name, std::size_t index,
                              const std::function<void(LadderElement&)>& change) {
    model_.edit(name, [&](Network& network) {
        if (index < network.ladder.size()) change(network.ladder[index]);
    });
}

double LadderPanel::usualResistance() const {
    const double R = std::abs(impedance(model_.network().source, model_.designFrequency()));
    return R > 0 && std::isfinite(R) ? R : 50;
}

void LadderPanel::addKind(const ElementKind& kind) {
    addElement(kind.make(model_.designFrequency(), usualResistance()),
               current() < 0 ? list_->count() : current() + 1);
}

void LadderPanel::addElement(const LadderElement& element, int row) {
    auto ladder = model_.placed();
    ladder.insert(ladder.begin() + row, {element});
    model_.arrange(tr("Add element"), ladder);
    list_->setCurrentRow(row);
    list_->setFocus();
}

void LadderPanel::replaceElement(const QString& name, const LadderElement& element, int row) {
    auto ladder = model_.placed();
    ladder[static_cast<std::size_t>(row)] = {element};
    model_.arrange(name, ladder);
    list_->setCurrentRow(row);
    rowChosen(row);
}

void LadderPanel::removeElement(int row) {
    if (row < 0 || row >= list_->count()) return;
    auto ladder = model_.placed();
    ladder.erase(ladder.begin() + row);
    model_.arrange(tr("Delete element"), ladder);
}

void LadderPanel::moveCurrent(int step) {
    const int row = current();
    const int to = row + step;
    if (row < 0 || to < 0 || to >= list_->count()) return;
    moveElement(row, to);
}

void LadderPanel::moveElement(int from, int to) {
    auto ladder = model_.placed();
    const auto first = ladder.begin();
    if (from < to) {
        std::rotate(first + from, first + from + 1, first + to + 1);
    } else {
        std::rotate(first + to, first + from, first + from + 1);
    }
    model_.arrange(tr("Move element"), ladder);
    list_->setCurrentRow(to);
}

void LadderPanel::swapElements(int a, int b) {
    auto ladder = model_.placed();
    std::swap(ladder[static_cast<std::size_t>(a)], ladder[static_cast<std::size_t>(b)]);
    model_.arrange(tr("Swap elements %1 and %2").arg(std::min(a, b) + 1).arg(std::max(a, b) + 1),
                   ladder);
    list_->setCurrentRow(b);
}

void LadderPanel::takeDropped(int from, LadderPlace to, bool copy) {
    if (copy) {
        const LadderElement element = model_.network().ladder[static_cast<std::size_t>(from)];
        if (!to.onto) return addElement(element, to.element);
        return replaceElement(
            tr("Replace element %1 by a copy of %2").arg(to.element + 1).arg(from + 1), element,
            to.element);
    }
    if (to.onto) return swapElements(from, to.element);
    moveElement(from, to.element > from ? to.element - 1 : to.element);
}

void LadderPanel::takeKind(const ElementKind& kind, LadderPlace to) {
    const double f = model_.designFrequency();
    const double R = usualResistance();
    if (!to.onto) return addElement(kind.make(f, R), to.element);
    const auto& old = model_.network().ladder[static_cast<std::size_t>(to.element)];
    replaceElement(tr("Replace element %1 by %2").arg(to.element + 1).arg(Shown(kind.caption)),
                   InPlaceOf(kind, old, f, R), to.element);
}

bool LadderPanel::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool control = key->modifiers() == Qt::ControlModifier;
    if (key->key() == Qt::Key_Delete) {
        removeElement(current());
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
    menu.addAction(tr("&Delete"), this, [this] { removeElement(current()); });
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
            const Part other = kind == PartKind::Inductor    ? Part::L(InductanceOf(X, f))
                               : kind == PartKind::Capacitor ? Part::C(CapacitanceOf(X, f))
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
        why = Shown(taken.message());
    }
}

}  // namespace kelvro
